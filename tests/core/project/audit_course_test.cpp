// What goes round an audit: windows, the items that expire, the save, the history, the list.
#include <algorithm>

#include "core/project/audit_fixture.h"

namespace tavernook {
namespace {

using AuditCourse = AuditTest;

TEST_F(AuditCourse, ShowsItsProgressAndThePlannerAnew) {
    FakeMealPlan planner(platform.calls);
    audit_inventory();
    Texts expected = {"window status 3 Auditing...",
                      "progress load Auditing Inventory|Auditing Inventory...Please Wait",
                      "progress bar 0", "progress show"};
    for (int percent = 1; percent <= 100; ++percent) {
        expected.push_back("progress bar " + std::to_string(percent));
    }
    expected.insert(expected.end(),
                    {"progress unload", "progress hide", "window MealPlan CalendarUpdate 100"});
    EXPECT_EQ(platform.transcript, expected);
}

TEST_F(AuditCourse, OnlyAnAuditThatTakesADayChangesTheProject) {
    audit_inventory();
    EXPECT_EQ(project_modified, 0);
    plan_yesterday();
    audit_inventory();
    EXPECT_EQ(project_modified, i16_true);
}

// --- items that expire
// -----------------------------------------------------------------------------

TEST_F(AuditCourse, ListsTheItemsThatExpireWithoutGaps) {
    expiration_warning_days = 10;
    for (const i16 item : {i16{5}, i16{300}, i16{10000}}) {
        items[item].storage_time = 30;
        items[item].last_restock_date = now - 20;
    }
    for (i16& entry : expiring_items) entry = 99;
    audit_inventory();
    EXPECT_EQ(expiring_items[1], 5);
    EXPECT_EQ(expiring_items[2], 300);
    EXPECT_EQ(expiring_items[3], 10000);
    EXPECT_TRUE(std::all_of(expiring_items.begin() + 4, expiring_items.end(),
                            [](i16 entry) { return entry == 0; }));
}

TEST_F(AuditCourse, AnItemExpiresFromTheHourOnThatTheWarningReaches) {
    expiration_warning_days = 10;
    items[5].storage_time = 30;
    items[5].last_restock_date = now - 19.75;
    audit_inventory();
    EXPECT_EQ(expiring_items[1], 0);
    platform.clock.time += 0.25;
    audit_inventory();
    EXPECT_EQ(expiring_items[1], 5);
}

TEST_F(AuditCourse, AWarningLongerThanTheItemKeepsCountsFromTheRestockOn) {
    expiration_warning_days = 10;
    items[5].storage_time = 7;
    items[5].last_restock_date = now;
    audit_inventory();
    EXPECT_EQ(expiring_items[1], 5);
}

TEST_F(AuditCourse, WhatDoesNotExpireNeverCounts) {
    expiration_warning_days = 10;
    items[5].last_restock_date = 1;
    audit_inventory();
    EXPECT_EQ(expiring_items[1], 0);
}

TEST_F(AuditCourse, ASecondAuditRebuildsThemOnly) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 2);
    audit_inventory();
    expiration_warning_days = 10;
    items[flour].storage_time = 7;
    items[flour].last_restock_date = now;
    audit_inventory();
    EXPECT_EQ(expiring_items[1], flour);
    EXPECT_EQ(items[flour].quantity, 9);
}

// --- the list
// --------------------------------------------------------------------------------------

TEST_F(AuditCourse, TheShoppingListSeesWhatTheAuditLeft) {
    items[flour].stock_quantity = 10;
    items[flour].restock_quantity = 8;
    items[salt].on_shopping_list = i16_true;  // without a level to keep
    plan_yesterday();
    plan_item(yesterday, 1, flour, 4);
    audit_inventory();
    EXPECT_EQ(items[flour].on_shopping_list, -1);
    EXPECT_EQ(items[flour].shopping_quantity, 2);
    EXPECT_EQ(items[salt].on_shopping_list, 0);
}

// --- the save
// --------------------------------------------------------------------------------------

class SavingAudit : public AuditTest {
  protected:
    SavingAudit() {
        set_project_path(platform.path("pantry.tvk"));
        save_after_audit = 1;
        plan_yesterday();
        plan_item(yesterday, 1, flour, 2);
    }
    bool saved() { return platform.disk.exists(project_path); }
};

TEST_F(SavingAudit, SavesWithTheWindowShown) {
    audit_inventory();
    EXPECT_TRUE(saved());
    EXPECT_EQ(progress_count("show"), 2);  // its own and the save's
    EXPECT_EQ(progress_count("load Saving Project|Saving Project...."), 1);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(platform.progress.events().back(), "hide");
}

TEST_F(SavingAudit, SavesTheHistoryToo) {
    audit_inventory();
    EXPECT_EQ(decode_usage(report_bytes("pantry000007.dat")),
              (std::vector<UsageEntry>{{1, now, usage_removed, 0}}));
    EXPECT_EQ(report_bytes("pantry000007.tmp"), "");
}

TEST_F(SavingAudit, SavesWithoutADayToTakeToo) {
    days[yesterday].audited = i16_true;
    audit_inventory();
    EXPECT_TRUE(saved());
}

TEST_F(SavingAudit, DoesNotSaveOtherwise) {
    save_after_audit = 0;
    audit_inventory();
    EXPECT_FALSE(saved());
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(SavingAudit, AFailedSaveIsToldAndTheAuditGoesOn) {
    FakeMealPlan planner(platform.calls);
    items[flour].stock_quantity = 10;
    items[flour].restock_quantity = 9;
    set_project_path(platform.path("no such folder/pantry.tvk"));
    platform.boxes.expect_message(
        "There has been a file access error.  The error number is ERROR #: 76");
    audit_inventory();
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(platform.calls.entries.back(), "MealPlan CalendarUpdate 100");
    EXPECT_EQ(items[flour].on_shopping_list, -1);
    EXPECT_EQ(platform.progress.events().back(), "hide");
}

// --- the history
// -----------------------------------------------------------------------------------

TEST_F(AuditCourse, EachItemsLastMoveIsWrittenOnce) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 2);  // 1
    plan_item(yesterday, 2, salt, 16);  // 1
    plan_item(yesterday, 3, flour, 3);  // 1.5
    audit_inventory();
    EXPECT_EQ(moves_written(), 2);
    EXPECT_EQ(decode_usage(report_bytes("pantry000007.tmp")),
              (std::vector<UsageEntry>{{1.5, now, usage_removed, 0}}));
}

TEST_F(AuditCourse, ItGoesBehindTheSavedHistory) {
    const std::string saved = encode_usage({4, 45000, usage_added, 2});
    write_whole_file(report_path("pantry000007.dat"), saved);
    plan_yesterday();
    plan_item(yesterday, 1, flour, 2);
    audit_inventory();
    EXPECT_EQ(report_bytes("pantry000007.dat"), saved);
    EXPECT_EQ(report_bytes("pantry000007.tmp"), saved + encode_usage({1, now, usage_removed, 0}));
}

TEST_F(AuditCourse, AHistoryThatCannotBeWrittenStopsNothing) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 2);
    platform.files.fail_at(1, fault_number::disk_full, Repeat::persistently);
    audit_inventory();
    EXPECT_EQ(items[flour].quantity, 9);
    EXPECT_EQ(days[yesterday].audited, -1);
}

TEST_F(AuditCourse, MovesBehindItAreWrittenAtOnceAgain) {
    plan_yesterday();
    plan_item(yesterday, 1, flour, 2);
    audit_inventory();
    platform.files.start_over();
    add_to_lots(flour, 3);
    EXPECT_EQ(moves_written(), 1);
}

}  // namespace
}  // namespace tavernook
