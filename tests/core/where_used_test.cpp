#include "core/where_used.h"

#include <gtest/gtest.h>
#include <string>

#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class WhereUsedTest : public testing::Test {
  protected:
    static void add_item(i16 item, const char* name) {
        items[item].in_use = 1;
        items[item].name = name;
    }

    static void add_meal(i16 meal, const char* name) {
        meals[meal].in_use = 1;
        meals[meal].name = name;
    }

    static void add_day(i16 slot, i16 month, i16 day, i16 year) {
        days[slot].in_use = 1;
        days[slot].month = month;
        days[slot].day = day;
        days[slot].year = year;
    }

    TestPlatform platform;
};

TEST_F(WhereUsedTest, NobodyIsTheEmptyText) {
    EXPECT_EQ(item_store_users(1), "");
    EXPECT_EQ(item_unit_users(1), "");
    EXPECT_EQ(item_users(1), "");
    EXPECT_EQ(meal_users(1), "");
}

TEST_F(WhereUsedTest, AStoreIsUsedByTheLiveItemsInSlotOrder) {
    add_item(10000, "Butter");
    add_item(1, "Milk");
    add_item(2, "Bread");
    add_item(3, "Eggs");
    items[10000].store = 7;
    items[1].store = 7;
    items[2].store = 8;
    items[3].store = 7;
    items[3].in_use = 0;
    EXPECT_EQ(item_store_users(7), "ITEM:Milk,ITEM:Butter,");
}

TEST_F(WhereUsedTest, AUnitIsUsedInEitherFieldAndListedOnceAnItem) {
    add_item(1, "Milk");
    add_item(2, "Bread");
    add_item(3, "Eggs");
    add_item(4, "Salt");
    items[1].qty_units = 6;
    items[2].serving_size_units = 6;
    items[3].qty_units = 6;
    items[3].serving_size_units = 6;
    items[4].qty_units = 5;
    EXPECT_EQ(item_unit_users(6), "ITEM:Milk,ITEM:Bread,ITEM:Eggs,");
}

TEST_F(WhereUsedTest, TheUnitsOfNutrientsAreNotLookedAt) {
    add_item(1, "Milk");
    item_details[1].fat_units = 6;
    item_details[1].calories_units = 6;
    item_details[1].protien_units = 6;
    EXPECT_EQ(item_unit_users(6), "");
}

TEST_F(WhereUsedTest, FreedItemsDoNotUseAUnit) {
    items[1].name = "Milk";
    items[1].qty_units = 6;
    EXPECT_EQ(item_unit_users(6), "");
}

TEST_F(WhereUsedTest, AnItemIsUsedByRecipesThenByDays) {
    add_day(1, 3, 9, 2024);
    days[1].planned_item[30] = 12;
    add_meal(1000, "Pancakes");
    meals[1000].ingredient_item[50] = 12;
    add_meal(1, "  Omelette ");
    meals[1].ingredient_item[1] = 12;
    EXPECT_EQ(item_users(12), "MEAL:Omelette,MEAL:Pancakes,DAY:3/9/2024,");
}

TEST_F(WhereUsedTest, AnItemIsListedOnceAPlace) {
    add_meal(1, "Omelette");
    meals[1].ingredient_item[2] = 12;
    meals[1].ingredient_item[9] = 12;
    add_day(1095, 12, 31, 2024);
    days[1095].planned_item[1] = 12;
    days[1095].planned_item[2] = 12;
    EXPECT_EQ(item_users(12), "MEAL:Omelette,MEAL:Omelette,DAY:12/31/2024,DAY:12/31/2024,");
}

TEST_F(WhereUsedTest, PlaceZeroFreeRowsAndRecipesOfADayDoNotUseAnItem) {
    add_meal(1, "Omelette");
    meals[1].ingredient_item[0] = 12;
    meals[2].ingredient_item[1] = 12;
    add_day(1, 3, 9, 2024);
    days[1].planned_item[0] = 12;
    days[1].planned_meal[1] = 12;
    days[2].planned_item[1] = 12;
    EXPECT_EQ(item_users(12), "");
}

TEST_F(WhereUsedTest, ARecipeIsUsedByDaysInSlotOrderOnceAPlace) {
    add_day(1, 11, 2, 2025);
    days[1].planned_meal[30] = 4;
    add_day(2, 1, 15, 2024);
    days[2].planned_meal[1] = 4;
    days[2].planned_meal[5] = 4;
    EXPECT_EQ(meal_users(4), "DAY:11/2/2025,DAY:1/15/2024,DAY:1/15/2024,");
}

TEST_F(WhereUsedTest, PlaceZeroFreeDaysAndItemsOfADayDoNotUseARecipe) {
    add_day(1, 3, 9, 2024);
    days[1].planned_meal[0] = 4;
    days[1].planned_item[1] = 4;
    days[2].planned_meal[1] = 4;
    EXPECT_EQ(meal_users(4), "");
}

TEST_F(WhereUsedTest, ADateHasNoLeadingZeros) {
    DayRecord day;
    EXPECT_EQ(day_date_text(day), "0/0/0");
    day.month = 1;
    day.day = 5;
    day.year = 2003;
    EXPECT_EQ(day_date_text(day), "1/5/2003");
    day.month = 12;
    day.day = 25;
    EXPECT_EQ(day_date_text(day), "12/25/2003");
}

}  // namespace
}  // namespace tavernook
