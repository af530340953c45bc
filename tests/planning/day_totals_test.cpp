#include "planning/day_totals.h"

#include <cmath>

#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 day = 5;
constexpr i16 bread = 4;
constexpr i16 flour = 7;

// A bag of flour costs 3 and gives 4 servings of 0.5 cups.
class DayTotalsTest : public PlanningTest {
  protected:
    DayTotalsTest() {
        add_item(flour);
        items[flour].cost = 3;
        items[flour].serving_size = 0.5;
        items[flour].servings_per_qty_unit = 4;
        items[flour].calories = 100;
        items[flour].fat = 3;
        item_details[flour].calories = 120.5;
        item_details[flour].fat = 1.25;
        add_meal(bread);
        meal_serving_size[bread] = 4;
        put(bread, 50, flour, 2);
        add_day(day, 6, 2, 2024);
    }

    static DayTotals totals() { return day_totals(days[day], day_quantities[day]); }
};

TEST_F(DayTotalsTest, AnItemCountsWithItsExactFigures) {
    plan_item(day, 30, flour, 1.5);
    EXPECT_EQ(totals().calories, 180.75);  // 1.5 x 120.5
    EXPECT_EQ(totals().fat, 1.875);        // 1.5 x 1.25
    EXPECT_EQ(totals().cost, 2.25);        // 1.5 x 3 / (4 x 0.5)
}

TEST_F(DayTotalsTest, ARecipeCountsWithTheWholeFiguresOfItsIngredients) {
    plan(day, 30, bread, 2);
    EXPECT_EQ(totals().calories, 100);  // 100 x 2 / 4 x 2
    EXPECT_EQ(totals().fat, 3);         // 3 x 2 / 4 x 2
    EXPECT_EQ(totals().cost, 0.75);     // 3 / 4 x 2 / 4 x 2
}

TEST_F(DayTotalsTest, AllEntriesAreSummedAndShown) {
    plan_item(day, 1, flour, 1.5);
    plan(day, 1, bread, 2);
    plan(day, 2, bread, 40);
    EXPECT_EQ(totals().calories, 2280.75);  // 180.75 + 100 + 2000
    EXPECT_EQ(totals().fat, 64.875);        // 1.875 + 3 + 60
    EXPECT_EQ(totals().cost, 18);           // 2.25 + 0.75 + 15
    EXPECT_EQ(totals().calories_text, "2280.75");
    EXPECT_EQ(totals().fat_text, "64.88g");
    EXPECT_EQ(totals().cost_text, "$18.00");
}

TEST_F(DayTotalsTest, CostIsGroupedBehindTheCurrencySign) {
    currency_symbol = 163;
    plan_item(day, 1, flour, 1000000);
    EXPECT_EQ(totals().cost_text,
              "\xA3"
              "1,500,000.00");
}

TEST_F(DayTotalsTest, AnEmptyDayHasNone) {
    EXPECT_EQ(totals().calories_text, "0.0");
    EXPECT_EQ(totals().fat_text, "0.0g");
    EXPECT_EQ(totals().cost_text, "$0.00");
}

TEST_F(DayTotalsTest, ANegativeServingSizeAddsNothing) {
    meal_serving_size[bread] = -2;
    plan(day, 1, bread, 2);
    plan_item(day, 1, flour, 1.5);
    EXPECT_EQ(totals().calories, 180.75);
    EXPECT_EQ(totals().cost, 2.25);
    day_totals_shown(day);
    EXPECT_EQ(meal_serving_size[bread], -2);
}

TEST_F(DayTotalsTest, ZerosCountAsOneAndAreWrittenWhenShown) {
    items[flour].servings_per_qty_unit = 0;
    meal_serving_size[bread] = 0;
    plan_item(day, 1, flour, 1.5);
    plan(day, 1, bread, 2);
    const f64 cost = 21;  // 1.5 x 3 / (1 x 0.5) + 3 / 1 x 2 / 1 x 2
    EXPECT_EQ(totals().cost, cost);
    EXPECT_EQ(items[flour].servings_per_qty_unit, 0);
    EXPECT_EQ(meal_serving_size[bread], 0);
    EXPECT_EQ(day_totals_shown(day).cost, cost);
    EXPECT_EQ(items[flour].servings_per_qty_unit, 1);
    EXPECT_EQ(meal_serving_size[bread], 1);
}

TEST_F(DayTotalsTest, AnIngredientWithoutServingsCountsAsOneAndStays) {
    items[flour].servings_per_qty_unit = 0;
    plan(day, 1, bread, 2);
    EXPECT_EQ(day_totals_shown(day).cost, 3);  // 3 / 1 x 2 / 4 x 2
    EXPECT_EQ(items[flour].servings_per_qty_unit, 0);
}

TEST_F(DayTotalsTest, AnItemWithoutServingSizeIsADivisionByZero) {
    items[flour].serving_size = 0;
    plan_item(day, 1, flour, 1.5);
    EXPECT_EQ(fault_of([] { totals(); }), 11);
}

TEST_F(DayTotalsTest, PlannedWithoutAQuantityItCostsNothing) {
    items[flour].serving_size = 0;
    items[flour].cost = 3;
    plan_item(day, 1, flour, 0);
    EXPECT_EQ(totals().cost, 0);
    EXPECT_EQ(day_totals_shown(day).cost_text, "$0.00");
}

TEST_F(DayTotalsTest, ShownItIsOneBoxAndTheTotalsOfAnEmptyDay) {
    items[flour].serving_size = 0;
    items[flour].servings_per_qty_unit = 0;
    plan(day, 1, bread, 2);
    plan_item(day, 1, flour, 1.5);
    platform.boxes.expect_message("there has been an error");
    const DayTotals shown = day_totals_shown(day);
    EXPECT_EQ(shown.calories, 0);
    EXPECT_EQ(shown.calories_text, "0.0");
    EXPECT_EQ(shown.fat_text, "0.0g");
    EXPECT_EQ(shown.cost_text, "$0.00");
    EXPECT_EQ(items[flour].servings_per_qty_unit, 0);
}

TEST_F(DayTotalsTest, EntriesThatNameNothingLiveAddNothing) {
    items[20].cost = 3;  // not live, without a serving size
    item_details[20].calories = 7;
    plan_item(day, 1, flour, 1.5);
    plan(day, 1, bread, 2);
    std::size_t place = 2;
    for (const i16 item : {i16{10001}, i16{-1}, i16{32767}, i16{20}}) {
        plan_item(day, place++, item, 4);
    }
    place = 2;
    for (const i16 recipe : {i16{1001}, i16{-1}, i16{900}}) plan(day, place++, recipe, 4);
    EXPECT_EQ(totals().calories, 280.75);  // 180.75 + 100
    EXPECT_EQ(totals().fat, 4.875);        // 1.875 + 3
    EXPECT_EQ(totals().cost, 3);           // 2.25 + 0.75
    EXPECT_EQ(day_totals_shown(day).cost, 3);
    EXPECT_EQ(items[20].servings_per_qty_unit, 0);
    EXPECT_EQ(meal_serving_size[900], 0);
}

TEST_F(DayTotalsTest, AnItemBeyondTheTableAddsNothing) {
    plan_item(day, 1, flour, 1.5);
    plan_item(day, 2, 10001, 4);
    EXPECT_EQ(totals().cost, 2.25);
    EXPECT_EQ(day_totals_shown(day).cost, 2.25);
}

TEST_F(DayTotalsTest, ARecipeBeyondTheTableAddsNothing) {
    plan(day, 1, bread, 2);
    plan(day, 2, 1001, 4);
    EXPECT_EQ(totals().cost, 0.75);
    EXPECT_EQ(day_totals_shown(day).cost, 0.75);
}

TEST_F(DayTotalsTest, ADeletedItemAndADeletedRecipeAddNothing) {
    items[20].serving_size = 1;
    items[20].cost = 3;
    put(900, 1, flour, 2);
    meal_serving_size[900] = 1;
    plan_item(day, 1, 20, 4);
    plan(day, 1, 900, 4);
    EXPECT_EQ(totals().cost, 0);
    EXPECT_EQ(totals().calories, 0);
}

TEST_F(DayTotalsTest, WhatIsNoNumberIsShownAsSuch) {
    plan_item(day, 1, flour, std::nan(""));
    EXPECT_EQ(totals().calories_text, "nan");
    EXPECT_EQ(totals().cost_text, "$nan");
}

TEST_F(DayTotalsTest, ADayThatIsNoneIsOneBox) {
    platform.boxes.expect_message("there has been an error");
    EXPECT_EQ(day_totals_shown(0).calories_text, "0.0");
}

}  // namespace
}  // namespace tavernook
