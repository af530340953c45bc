// A damaged household goes through everything the logic does with a project as a whole: it is
// saved, opened, audited, listed, computed for every screen and saved again. Boxes may come, Faults
// may not; sound records work as ever.
#include "support/damaged_household.h"

#include <gtest/gtest.h>

#include "core/project/audit.h"
#include "core/project/daily_audit.h"
#include "core/project_file/project_file_testing.h"
#include "core/project_settings.h"
#include "planning/day_totals.h"
#include "planning/recommendations.h"
#include "recipes/roll_up.h"
#include "shopping/list_rows.h"
#include "shopping/shopping_list.h"

namespace tavernook {
namespace {

using Names = std::vector<std::string>;

class DamagedHousehold : public ProjectFileTest {
  protected:
    DamagedHousehold() {
        platform.clock.time = damaged_household_today + 0.5;
        note_boxes();
        fill_damaged_household();
    }

    // Reads the file as a program does that has just been started.
    void save_and_open() {
        save();
        open();
        expect_opened();
    }
};

TEST_F(DamagedHousehold, BearsItsOwnNamesFromTheStart) {
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
    EXPECT_EQ(items[1].name, "Item 1");
    EXPECT_EQ(meals[1].name, "Recipe 1");
    std::swap(items[5].barcode, items[6].barcode);
    EXPECT_EQ(strangers_in_damaged_household(),
              (Names{"items[5] is named \"B6\"", "items[6] is named \"B5\""}));
}

// The first opening puts right what the shopping list cannot hold; nothing else changes, ever.
TEST_F(DamagedHousehold, IsSavedAndOpenedBitByBit) {
    save_and_open();
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
    const std::string bytes = save();
    open();
    expect_opened();
    EXPECT_EQ(first_difference(bytes, save()), "");
}

TEST_F(DamagedHousehold, IsAudited) {
    save_and_open();
    EXPECT_NO_THROW(audit_inventory());
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
    EXPECT_EQ(days[1].audited, -1);
    save_and_open();
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
}

// The sound day comes first; the days behind it take of the sound item as well, as far as it goes.
TEST_F(DamagedHousehold, TheSoundDayIsTakenOutOfTheStock) {
    for (int day = 2; day <= day_capacity; ++day) days[day].in_use = 0;
    EXPECT_NO_THROW(audit_inventory());
    EXPECT_EQ(days[1].audited, -1);
    // 0.125 of 4 servings, and of the recipe 2 x 2 of 4 servings, 0.125 times.
    EXPECT_EQ(lots[1].lot_quantity[0], 10 - 0.03125 - 0.125);
}

TEST_F(DamagedHousehold, TheListIsBuiltFromItAndCollected) {
    save_and_open();
    EXPECT_NO_THROW(build_shopping_list());
    EXPECT_EQ(items[1].on_shopping_list, -1);
    EXPECT_EQ(items[1].shopping_quantity, 10);
    EXPECT_NO_THROW(collect_list_items());
    EXPECT_GE(list_count, 100);
    EXPECT_EQ(list_items[1], 1);
    for (int row = 1; row <= list_count; ++row) {
        for (const ListColumn column : list_columns) {
            EXPECT_NO_THROW(cell_text(column, list_items[row])) << "item " << list_items[row];
        }
    }
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
}

TEST_F(DamagedHousehold, WhatIsPickedForTheListIsToldForEachItem) {
    save_and_open();
    for (const i16 item : quick_pick_items()) {
        EXPECT_NO_THROW(quick_pick_tip(item)) << "item " << item;
    }
}

TEST_F(DamagedHousehold, EachRecipeIsRolledUp) {
    save_and_open();
    for (i16 meal = 1; meal <= meal_capacity; ++meal) {
        if (meals[meal].in_use == 0) continue;
        EXPECT_NO_THROW(roll_up(meals[meal], meal_serving_size[meal])) << "recipe " << meal;
    }
}

TEST_F(DamagedHousehold, EachDayIsTotalled) {
    save_and_open();
    for (i16 day = 1; day <= day_capacity; ++day) {
        if (days[day].in_use == 0) continue;
        EXPECT_NO_THROW(day_totals_shown(day)) << "day " << day;
    }
}

TEST_F(DamagedHousehold, MealsAreRecommended) {
    save_and_open();
    EXPECT_NO_THROW(meal_recommendations());
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
}

TEST_F(DamagedHousehold, TheDailyAuditNeverComesAtAnHourThatIsNone) {
    save_and_open();
    EXPECT_NO_THROW(daily_audit_check());
    EXPECT_EQ(days[1].audited, 0);
    EXPECT_NO_THROW(show_audit_time());
}

TEST_F(DamagedHousehold, WhatIsOnTheListIsBooked) {
    save_and_open();
    build_shopping_list();
    EXPECT_NO_THROW(book_list_into_stock());
    EXPECT_EQ(items[1].on_shopping_list, 0);
    EXPECT_EQ(lots[1].lot_quantity[1], 10);
    EXPECT_EQ(strangers_in_damaged_household(), Names{});
}

}  // namespace
}  // namespace tavernook
