#include "core/changes.h"

#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

const char* const names[subject_count] = {"items",   "lots",  "catagories", "units",   "stores",
                                          "recipes", "plans", "measures",   "settings"};

// Every test begins behind a look that has seen the tables as they are.
class Changes : public testing::Test {
  protected:
    Changes() { look_for_changes(); }

    // The subjects, by name, that a look finds changed by `work`.
    static std::set<std::string> changed_by(const std::function<void()>& work) {
        std::array<std::uint32_t, subject_count> before{};
        for (int n = 0; n < subject_count; ++n) {
            before[static_cast<std::size_t>(n)] = revision_of(static_cast<Subject>(n));
        }
        work();
        look_for_changes();
        std::set<std::string> changed;
        for (int n = 0; n < subject_count; ++n) {
            const auto at = static_cast<std::size_t>(n);
            if (revision_of(static_cast<Subject>(n)) != before[at]) changed.insert(names[at]);
        }
        return changed;
    }

    using Names = std::set<std::string>;
    TestPlatform platform;
};

struct Write {
    const char* what;
    const char* subject;
    std::function<void()> work;
};

const std::vector<Write>& writes() {
    static const std::vector<Write> all = {
        {"first item", "items", [] { items[1].cost = 2.5; }},
        {"last item", "items", [] { items[10000].barcode = "4012"; }},
        {"entry 0 of the items", "items", [] { items[0].store_order = 3; }},
        {"last field of an item", "items", [] { items[5000].shopping_quantity = 1; }},
        {"detail", "items", [] { item_details[7].protien_units = 4; }},
        {"last detail", "items", [] { item_details[10000].fat = 1; }},
        {"text", "items", [] { pooled_strings[2] = "Snow"; }},
        {"last text", "items", [] { pooled_strings[30000] = "x"; }},
        {"lot", "lots", [] { lots[1].lot_quantity[15] = 4; }},
        {"name of a lot", "lots", [] { lots[0].lot_name[3] = "jar"; }},
        {"catagory", "catagories", [] { catagories[100].parent = 1; }},
        {"unit", "units", [] { units[1000].name = "pinch"; }},
        {"store", "stores", [] { stores[1].name = "Mill"; }},
        {"recipe", "recipes", [] { meals[1000].ingredient_qty[50] = 2; }},
        {"serving size", "recipes", [] { meal_serving_size[1000] = 4; }},
        {"document", "recipes", [] { meal_documents[1] = "*vk14home000001.rtf"; }},
        {"day", "plans", [] { days[1095].planned_item[30] = 7; }},
        {"quantity of a day", "plans", [] { day_quantities[1].meal_servings[1] = 2; }},
        {"measure", "measures", [] { wams[200].text = "1 Cup = 8 oz"; }},
        {"use of a measure", "measures", [] { wams[1].in_use = -1; }},
        {"audit_hour", "settings", [] { audit_hour = 7; }},
        {"audit_minute", "settings", [] { audit_minute = 7; }},
        {"expiration_warning_days", "settings", [] { expiration_warning_days = 7; }},
        {"sales_tax", "settings", [] { sales_tax = 7.5; }},
        {"scanner_comm_port", "settings", [] { scanner_comm_port = 7; }},
        {"scanner_reserved", "settings", [] { scanner_reserved = 7; }},
        {"ftp_send_after_audit", "settings", [] { ftp_send_after_audit = 7; }},
        {"audit_on_startup", "settings", [] { audit_on_startup = 7; }},
        {"save_after_audit", "settings", [] { save_after_audit = 7; }},
        {"scanner_type", "settings", [] { scanner_type = 2; }},
        {"project_created", "settings", [] { project_created = 45000; }},
        {"ftp_server", "settings", [] { ftp_server = "ftp.example"; }},
        {"ftp_account", "settings", [] { ftp_account = "me"; }},
        {"ftp_password", "settings", [] { ftp_password = "secret"; }},
        {"ftp_directory", "settings", [] { ftp_directory = "/pages"; }},
        {"audit_days_ahead", "settings", [] { audit_days_ahead = 7; }},
        {"currency_symbol", "settings", [] { currency_symbol = 163; }},
        {"font_size", "settings", [] { font_size = 12; }},
        {"show_toolbar_text", "settings", [] { show_toolbar_text = 1; }},
        {"project_tag", "settings", [] { project_tag = 7; }},
        {"date_day_first", "settings", [] { date_day_first = 1; }},
    };
    return all;
}

TEST_F(Changes, EveryTableAndSettingTellsOfItsOwnSubjectOnly) {
    for (const Write& write : writes()) {
        EXPECT_EQ(changed_by(write.work), Names{write.subject}) << write.what;
    }
}

TEST_F(Changes, TheSameAgainIsNoChange) {
    for (const Write& write : writes()) {
        write.work();
        look_for_changes();
        EXPECT_EQ(changed_by(write.work), Names{}) << write.what;
    }
}

TEST_F(Changes, WhatIsPutBackBeforeTheLookIsNoChange) {
    EXPECT_EQ(changed_by([] {
                  items[1].name = "Flour";
                  items[1].name = "";
                  pooled_strings[2] = "Snow";
                  pooled_strings[2].clear();
                  units[1].in_use = 0;
                  units[1].in_use = 1;
              }),
              Names{});
}

TEST_F(Changes, TheCopyFollows) {
    EXPECT_EQ(changed_by([] { items[1].cost = 2.5; }), Names{"items"});
    EXPECT_EQ(changed_by([] {}), Names{});
    EXPECT_EQ(changed_by([] { items[1].cost = 0; }), Names{"items"});
    EXPECT_EQ(changed_by([] { pooled_strings[9] = "a"; }), Names{"items"});
    EXPECT_EQ(changed_by([] { pooled_strings[9] = "b"; }), Names{"items"});
    EXPECT_EQ(changed_by([] { wams[9].in_use = -1; }), Names{"measures"});
    EXPECT_EQ(changed_by([] { wams[9].in_use = 0; }), Names{"measures"});
}

TEST_F(Changes, SeveralSubjectsAreToldTogether) {
    EXPECT_EQ(changed_by([] {
                  items[1].quantity = 4;
                  lots[1].lot_quantity[0] = 4;
                  days[3].audited = -1;
              }),
              (Names{"items", "lots", "plans"}));
}

TEST_F(Changes, ManyChangesRaiseTheRevisionOnce) {
    const std::uint32_t before = revision_of(Subject::items);
    items[1].cost = items[9999].cost = 1;
    item_details[5].fat = 2;
    pooled_strings[1] = "x";
    look_for_changes();
    EXPECT_EQ(revision_of(Subject::items), before + 1);
}

TEST_F(Changes, WhatIsNoNumberAndStaysIsNoChange) {
    EXPECT_EQ(changed_by([] { items[1].quantity = std::nan(""); }), Names{"items"});
    EXPECT_EQ(changed_by([] {}), Names{});
    EXPECT_EQ(changed_by([] { items[1].quantity = 2; }), Names{"items"});
    sales_tax = std::nan("");
    look_for_changes();
    EXPECT_EQ(changed_by([] {}), Names{});
}

TEST_F(Changes, AnotherNumberBesideOneThatIsNoneIsSeen) {
    items[1].quantity = std::nan("");
    look_for_changes();
    EXPECT_EQ(changed_by([] { items[1].cost = 1; }), Names{"items"});
}

TEST_F(Changes, TextsThatOnlyMoveAreSeen) {
    pooled_strings[1] = "ab";
    pooled_strings[2] = "c";
    look_for_changes();
    EXPECT_EQ(changed_by([] {
                  pooled_strings[1] = "a";
                  pooled_strings[2] = "bc";
              }),
              Names{"items"});
    EXPECT_EQ(changed_by([] {
                  wams[1].text = "a";
                  wams[2].text = "b";
              }),
              Names{"measures"});
    EXPECT_EQ(changed_by([] {
                  wams[1].text = "";
                  wams[2].text = "ab";
              }),
              Names{"measures"});
}

TEST_F(Changes, LotsThatAreAddedAreSeen) {
    EXPECT_EQ(changed_by([] { lots.grow(500); }), Names{}) << "blank ones are what was there";
    EXPECT_EQ(changed_by([] { lots[500].active = -1; }), Names{"lots"});
    EXPECT_EQ(changed_by([] { lots[501].current_lot = 3; }), Names{"lots"});
    EXPECT_EQ(changed_by([] { lots.clear(); }), Names{"lots"}) << "their quantities have gone";
    EXPECT_EQ(changed_by([] { lots.grow(500); }), Names{}) << "and do not come back";
}

TEST_F(Changes, AFullProjectIsSeenToItsLastRecord) {
    fill_full_project();
    look_for_changes();
    EXPECT_EQ(changed_by([] {}), Names{});
    EXPECT_EQ(changed_by([] { items[10000].quantity += 1; }), Names{"items"});
    EXPECT_EQ(changed_by([] { lots[10000].lot_quantity[15] += 1; }), Names{"lots"});
    EXPECT_EQ(changed_by([] { pooled_strings[30000] += "x"; }), Names{"items"});
    EXPECT_EQ(changed_by([] { day_quantities[1095].item_quantity[30] += 1; }), Names{"plans"});
}

// --- what a pane has drawn from ------------------------------------------------------------------

TEST_F(Changes, APaneIsStaleFromTheLookUntilItIsDrawn) {
    Seen seen{Subject::items, Subject::units};
    EXPECT_FALSE(seen.is_stale());
    units[1].name = "piece";
    EXPECT_FALSE(seen.is_stale()) << "nobody has looked yet";
    look_for_changes();
    EXPECT_TRUE(seen.is_stale());
    look_for_changes();
    EXPECT_TRUE(seen.is_stale()) << "still not drawn";
    seen.renew();
    EXPECT_FALSE(seen.is_stale());
}

TEST_F(Changes, APaneFollowsItsOwnSubjectsOnly) {
    const Seen items_only{Subject::items};
    const Seen nothing{};
    stores[1].name = "Mill";
    look_for_changes();
    EXPECT_FALSE(items_only.is_stale());
    EXPECT_FALSE(nothing.is_stale());
}

// --- a record that is remembered -----------------------------------------------------------------

struct RowTable {
    const char* name;
    Subject subject;
    i16 last;
    void (*set)(i16 slot, bool in_use);
};

const RowTable row_tables[] = {
    {"items", Subject::items, 10000, [](i16 slot, bool in_use) { items[slot].in_use = in_use; }},
    {"catagories", Subject::catagories, 100,
     [](i16 slot, bool in_use) { catagories[slot].in_use = in_use; }},
    {"units", Subject::units, 1000, [](i16 slot, bool in_use) { units[slot].in_use = in_use; }},
    {"stores", Subject::stores, 1000, [](i16 slot, bool in_use) { stores[slot].in_use = in_use; }},
    {"recipes", Subject::recipes, 1000, [](i16 slot, bool in_use) { meals[slot].in_use = in_use; }},
    {"plans", Subject::plans, 1095, [](i16 slot, bool in_use) { days[slot].in_use = in_use; }},
    {"measures", Subject::measures, 200,
     [](i16 slot, bool in_use) { wams[slot].in_use = truth(in_use); }},
};

TEST_F(Changes, ARecordIsRememberedAsLongAsItLives) {
    for (const RowTable& table : row_tables) {
        table.set(table.last, true);
        look_for_changes();
        const RowRef row(table.subject, table.last);
        EXPECT_EQ(row.now(), table.last) << table.name;
        look_for_changes();
        EXPECT_EQ(row.now(), table.last) << table.name;
        table.set(table.last, false);
        EXPECT_EQ(row.now(), 0) << table.name << ": freed, and not looked for yet";
        look_for_changes();
        EXPECT_EQ(row.now(), 0) << table.name;
    }
}

TEST_F(Changes, AnotherRecordInTheSameSlotIsAnother) {
    for (const RowTable& table : row_tables) {
        table.set(table.last, true);
        look_for_changes();
        const RowRef first(table.subject, table.last);
        table.set(table.last, false);
        look_for_changes();
        table.set(table.last, true);
        EXPECT_EQ(first.now(), 0) << table.name << ": taken, and not looked for yet";
        look_for_changes();
        EXPECT_EQ(first.now(), 0) << table.name;
        const RowRef second(table.subject, table.last);
        EXPECT_EQ(second.now(), table.last) << table.name;
        EXPECT_FALSE(first == second) << table.name;
    }
}

TEST_F(Changes, ARecordRememberedBeforeTheLookThatFindsItStays) {
    for (const RowTable& table : row_tables) {
        table.set(table.last, true);
        const RowRef row(table.subject, table.last);
        EXPECT_EQ(row.now(), table.last) << table.name;
        look_for_changes();
        EXPECT_EQ(row.now(), table.last) << table.name;
        EXPECT_EQ(row, RowRef(table.subject, table.last)) << table.name;
    }
}

TEST_F(Changes, ARecordThatIsFreedAndTakenWithinOneStepPassesForTheSame) {
    items[5].in_use = 1;
    look_for_changes();
    const RowRef row(Subject::items, 5);
    items[5] = ItemRecord{};
    items[5].in_use = 1;
    look_for_changes();
    EXPECT_EQ(row.now(), 5);
}

TEST_F(Changes, OtherContentsAreTheSameRecord) {
    items[5].in_use = 1;
    look_for_changes();
    const RowRef row(Subject::items, 5);
    items[5].name = "Flour";
    look_for_changes();
    EXPECT_EQ(row.now(), 5);
}

TEST_F(Changes, NeighboursHaveBirthsOfTheirOwn) {
    items[5].in_use = items[6].in_use = 1;
    look_for_changes();
    const RowRef row(Subject::items, 5);
    items[6].in_use = 0;
    items[4].in_use = 1;
    units[5].in_use = 0;
    look_for_changes();
    EXPECT_EQ(row.now(), 5);
}

TEST_F(Changes, AnotherProjectForgetsEveryRow) {
    for (const RowTable& table : row_tables) {
        table.set(1, true);
        look_for_changes();
        const RowRef row(table.subject, 1);
        ASSERT_EQ(row.now(), 1) << table.name;
        reset_project_tables();
        table.set(1, true);
        EXPECT_EQ(row.now(), 0) << table.name << ": as live as before, in another project";
        look_for_changes();
        EXPECT_EQ(row.now(), 0) << table.name;
        EXPECT_EQ(RowRef(table.subject, 1).now(), 1) << table.name;
    }
}

TEST_F(Changes, NoRecordIsNone) {
    EXPECT_EQ(RowRef().now(), 0);
    EXPECT_EQ(RowRef(), RowRef());
    for (const RowTable& table : row_tables) {
        for (const i16 wrong : {i16{0}, i16{-1}, to_i16(table.last + 1), i16{32767}, table.last}) {
            const RowRef row(table.subject, wrong);
            EXPECT_EQ(row.now(), 0) << table.name << " " << wrong;
            EXPECT_EQ(row, RowRef()) << table.name << " " << wrong << ": one none is as the other";
        }
        const RowRef free(table.subject, table.last);
        table.set(table.last, true);
        look_for_changes();
        EXPECT_EQ(free.now(), 0) << table.name << ": none from the start stays none";
    }
}

TEST_F(Changes, SubjectsWithoutRowsHaveNoRecords) {
    lots[1].active = -1;
    EXPECT_EQ(RowRef(Subject::lots, 1).now(), 0);
    EXPECT_EQ(RowRef(Subject::settings, 1).now(), 0);
}

}  // namespace
}  // namespace tavernook
