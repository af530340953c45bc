// The clock of the daily audit, tick by tick.
#include "core/project/daily_audit.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/file_management.h"
#include "core/project/main_commands.h"
#include "core/project_data.h"
#include "core/project_settings.h"
#include "fakes/test_platform.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

using Texts = std::vector<std::string>;

class DailyAudit : public testing::Test {
  protected:
    DailyAudit() {
        project_open = i16_true;
        choose(14, 30);
    }
    void choose(i16 hour, i16 minute) {
        audit_hour = hour;
        audit_minute = minute;
    }
    // The timer ticks at this time; the result is how many audits that brought.
    int tick(int day, int hour, int minute, int second = 0) {
        platform.clock.time = date_from_moment({2024, 5, day}, {hour, minute, second});
        const int before = audits();
        daily_audit_check();
        return audits() - before;
    }
    int audits() const {
        const auto& events = platform.progress.events();
        return static_cast<int>(
            std::count(events.begin(), events.end(),
                       "load Auditing Inventory|Auditing Inventory...Please Wait"));
    }
    // A day whose audit shows a box: the shelf is empty.
    ExpectedBox& plan_more_than_there_is() {
        items[4].in_use = 1;
        items[4].name = "Flour";
        items[4].serving_size = 1;
        items[4].servings_per_qty_unit = 1;
        days[1].in_use = 1;
        days[1].month = 5;
        days[1].day = 15;
        days[1].year = 2024;
        days[1].planned_item[1] = 4;
        day_quantities[1].item_quantity[1] = 3;
        return platform.boxes.expect_message(
            "The quantity that you provided is more than is currently in the inventory for item "
            "Flour                            .  Cannot update Inventory.  Please adjust the "
            "quantity to adjust.");
    }
    std::string shown_time() {
        show_audit_time();
        return platform.main.status[2];
    }

    Texts screen_calls() const {
        Texts found;
        for (const std::string& step : platform.transcript) {
            if (step.starts_with("window MealPlan") || step.starts_with("window ShoppingList")) {
                found.push_back(step);
            }
        }
        return found;
    }

    TestPlatform platform;
};

TEST_F(DailyAudit, FiresOnceInTheChosenMinute) {
    EXPECT_EQ(tick(15, 14, 29, 59), 0);
    EXPECT_EQ(tick(15, 14, 30, 0), 1);
    EXPECT_EQ(tick(15, 14, 30, 1), 0);
    EXPECT_EQ(tick(15, 14, 30, 59), 0);
    EXPECT_EQ(tick(15, 14, 31, 0), 0);
}

TEST_F(DailyAudit, FiresInTheLastSecondOfTheMinuteToo) {
    EXPECT_EQ(tick(15, 14, 30, 59), 1);
}

TEST_F(DailyAudit, TheFlagStandsForTheMinuteAndIsClearedBehindIt) {
    EXPECT_EQ(audit_done_flag, 0);
    tick(15, 14, 30);
    EXPECT_EQ(audit_done_flag, -1);
    tick(15, 14, 30, 40);
    EXPECT_EQ(audit_done_flag, -1);
    tick(15, 14, 31);
    EXPECT_EQ(audit_done_flag, 0);
}

TEST_F(DailyAudit, FiresAgainTheNextDay) {
    EXPECT_EQ(tick(15, 14, 30), 1);
    EXPECT_EQ(tick(15, 14, 31), 0);
    EXPECT_EQ(tick(16, 14, 30), 1);
}

TEST_F(DailyAudit, WithoutATickInBetweenTheNextDayIsMissed) {
    // As when the machine slept through: the flag of yesterday's minute still stands.
    EXPECT_EQ(tick(15, 14, 30), 1);
    EXPECT_EQ(tick(16, 14, 30), 0);
}

TEST_F(DailyAudit, ATimeInTheAfternoonFiresTwelveHoursEarlierAsWell) {
    EXPECT_EQ(tick(15, 2, 30), 1);
    EXPECT_EQ(tick(15, 2, 31), 0);
    EXPECT_EQ(tick(15, 14, 30), 1);
}

TEST_F(DailyAudit, ATimeInTheMorningFiresInTheMorningOnly) {
    choose(2, 30);
    EXPECT_EQ(tick(15, 2, 30), 1);
    EXPECT_EQ(tick(15, 2, 31), 0);
    EXPECT_EQ(tick(15, 14, 30), 0);
}

TEST_F(DailyAudit, Hour0FiresAtMidnight) {
    choose(0, 0);
    EXPECT_EQ(tick(15, 23, 59), 0);
    EXPECT_EQ(tick(16, 0, 0), 1);
    EXPECT_EQ(tick(16, 12, 0), 0);
}

TEST_F(DailyAudit, Hour12FiresAtNoonAndAtMidnight) {
    choose(12, 5);
    EXPECT_EQ(tick(15, 0, 5), 1);
    EXPECT_EQ(tick(15, 0, 6), 0);
    EXPECT_EQ(tick(15, 12, 5), 1);
}

TEST_F(DailyAudit, Hour24FiresAtNoonOnly) {
    choose(24, 5);
    EXPECT_EQ(tick(15, 0, 5), 0);
    EXPECT_EQ(tick(15, 12, 5), 1);
}

TEST_F(DailyAudit, TheWrongHourOrMinuteDoesNotFire) {
    EXPECT_EQ(tick(15, 13, 30), 0);
    EXPECT_EQ(tick(15, 15, 30), 0);
    EXPECT_EQ(tick(15, 14, 0), 0);
}

TEST_F(DailyAudit, DoesNotFireWithoutAProject) {
    project_open = i16_false;
    EXPECT_EQ(tick(15, 14, 30), 0);
    EXPECT_EQ(audit_done_flag, 0);
    // A project that is opened within the minute is audited.
    project_open = i16_true;
    EXPECT_EQ(tick(15, 14, 30, 30), 1);
}

TEST_F(DailyAudit, TheFlagIsUpBeforeTheAuditRuns) {
    // Ticks that come while the audit shows its boxes must not start another one.
    plan_more_than_there_is().during([] { daily_audit_check(); });
    EXPECT_EQ(tick(15, 14, 30), 1);
}

TEST_F(DailyAudit, WaitsForABoxThatStandsOpenAlsoBeyondItsMinute) {
    platform.boxes.expect_message("How much flour?").during([&] {
        EXPECT_EQ(tick(15, 14, 30), 0);
        EXPECT_EQ(tick(15, 14, 30, 30), 0);
        EXPECT_EQ(tick(15, 14, 31), 0);
        EXPECT_EQ(tick(15, 15, 10), 0);
    });
    boxes().message("How much flour?");
    EXPECT_EQ(tick(15, 15, 10, 1), 1);
    EXPECT_EQ(tick(15, 15, 10, 2), 0);
    EXPECT_EQ(tick(16, 14, 30), 1);
}

TEST_F(DailyAudit, AMinuteThatWasOnlyNotedIsNotMissed) {
    platform.clock.time = date_from_moment({2024, 5, 15}, {14, 30, 20});
    note_audit_minute();
    note_audit_minute();
    EXPECT_EQ(audits(), 0);
    EXPECT_EQ(tick(15, 14, 31), 1);
    EXPECT_EQ(tick(15, 14, 32), 0);
    EXPECT_EQ(tick(16, 14, 30), 1);
}

TEST_F(DailyAudit, NothingIsSavedBelowABox) {
    project_path = platform.path("home.tvk");
    save_after_audit = 1;
    platform.boxes.expect_message("How much flour?").during([&] { tick(15, 14, 30); });
    boxes().message("How much flour?");
    EXPECT_FALSE(platform.disk.exists(project_path));
    tick(15, 14, 30, 10);
    EXPECT_TRUE(platform.disk.exists(project_path));
}

TEST_F(DailyAudit, AnAuditThatWaitsIsNoneOfTheNextProjects) {
    project_created = 45000;
    set_project_path(platform.path("cabin.tvk"));
    ASSERT_TRUE(Project_Save(1));
    for (const bool opens : {true, false}) {
        choose(14, 30);
        platform.boxes.expect_message("How much flour?").during([&] {
            EXPECT_EQ(tick(15, 14, 30), 0);
        });
        boxes().message("How much flour?");
        if (opens) {
            Project_Open();
        } else {
            project_close();
            project_open = i16_true;
        }
        choose(14, 30);
        EXPECT_EQ(tick(15, 14, 31), 0) << opens;
    }
}

TEST_F(DailyAudit, AnAuditThatWaitsIsStillThatOfAProjectWithANewName) {
    platform.boxes.expect_message("How much flour?").during([&] { tick(15, 14, 30); });
    boxes().message("How much flour?");
    set_project_path(platform.path("cabin.tvk"));
    EXPECT_EQ(tick(15, 14, 31), 1);
}

TEST_F(DailyAudit, EachTickSaysReady) {
    platform.main.status[3] = "Auditing...";
    tick(15, 10, 0);
    EXPECT_EQ(platform.main.status[3], "Ready");
    std::string meanwhile;
    plan_more_than_there_is().during([&] { meanwhile = platform.main.status[3]; });
    tick(15, 14, 30);
    EXPECT_EQ(meanwhile, "Auditing...");
    EXPECT_EQ(platform.main.status[3], "Ready");
}

TEST_F(DailyAudit, AnErrorInItIsToldAndEndsTheProgramWithoutSaving) {
    project_modified = i16_true;
    project_path = platform.path("home.tvk");
    platform.clock.time = 1e9;  // beyond the year 9999
    platform.boxes.expect_message(
        "There has been an error in the Tavernook software.  Please report the error number 6 to "
        "Brenwyk Software.  Tavernook will now close.");
    daily_audit_check();
    EXPECT_EQ(platform.main.program_ends, 1);
    EXPECT_EQ(platform.main.unloads, 0);
    EXPECT_TRUE(platform.files.log().empty());
    EXPECT_EQ(platform.transcript.back(), "window end program");
}

TEST_F(DailyAudit, TheAuditTakesThePlanAndTheListFollows) {
    plan_more_than_there_is().during([] {
        lots[4].lot_quantity[0] = 10;  // too late for the entry, in time for the list
    });
    items[4].stock_quantity = 12;
    items[4].restock_quantity = 10;
    EXPECT_EQ(tick(15, 14, 30), 1);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(items[4].on_shopping_list, -1);
    EXPECT_EQ(items[4].shopping_quantity, 2);
}

TEST_F(DailyAudit, AListOnTheScreenIsShownAnew) {
    FakeShoppingList list(platform.calls);
    tick(15, 14, 30);
    EXPECT_EQ(screen_calls(), (Texts{"window ShoppingList populate_list"}));
    tick(15, 14, 31);
    EXPECT_EQ(screen_calls().size(), 1u);
}

TEST_F(DailyAudit, AuditNowShowsThePlannerAnew) {
    FakeMealPlan planner(platform.calls);
    FakeShoppingList list(platform.calls);
    audit_now();
    EXPECT_EQ(audits(), 1);
    EXPECT_EQ(screen_calls(),
              (Texts{"window MealPlan CalendarUpdate 100", "window MealPlan CalendarUpdate 100",
                     "window ShoppingList populate_list", "window MealPlan populate_day",
                     "window MealPlan set_firstcall"}));
}

TEST_F(DailyAudit, HowManyDaysItWereIsTold) {
    audit_now();
    EXPECT_EQ(platform.main.status[message_panel], "No planned day was left to audit.");
    for (const i16 day : {10, 11}) days[day] = {.month = 5, .year = 2024, .day = day, .in_use = 1};
    audit_now();
    EXPECT_EQ(platform.main.status[message_panel], "2 planned days were audited.");
    days[12] = {.month = 5, .year = 2024, .day = 12, .in_use = 1};
    audit_now();
    EXPECT_EQ(platform.main.status[message_panel], "1 planned day was audited.");
}

TEST_F(DailyAudit, AuditNowNeedsNoScreen) {
    audit_now();
    EXPECT_EQ(audits(), 1);
    EXPECT_EQ(audit_done_flag, 0);
    EXPECT_EQ(platform.main.status[3], "Auditing...");
}

TEST_F(DailyAudit, TheTimeIsShownWithAmAndPm) {
    struct Case {
        i16 hour;
        i16 minute;
        const char* text;
    };
    for (const Case& c : {Case{0, 30, "Audit Time: -:-"}, Case{1, 0, "Audit Time: 1:00 AM"},
                          Case{11, 59, "Audit Time: 11:59 AM"}, Case{12, 0, "Audit Time: 12:00 AM"},
                          Case{13, 5, "Audit Time: 1:05 PM"}, Case{23, 59, "Audit Time: 11:59 PM"},
                          Case{24, 7, "Audit Time: 12:07 PM"}}) {
        choose(c.hour, c.minute);
        EXPECT_EQ(shown_time(), c.text) << c.hour;
    }
}

TEST_F(DailyAudit, HoursThatNoClockHasShowNoTime) {
    choose(25, 0);
    EXPECT_EQ(shown_time(), "Audit Time: -:-");
    choose(-1, 0);
    EXPECT_EQ(shown_time(), "Audit Time: -:-");
}

}  // namespace

}  // namespace tavernook
