// What a planned recipe gives back to the stock.
#include "recipes/recipes_fixture.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;
constexpr i16 bread = 4;
constexpr i16 flour = 7;
constexpr i16 salt = 8;
constexpr i16 day = 12;
constexpr i16 place = 3;

// A bag of flour gives 4 servings of 0.5 cups.
class StockRestoration : public RecipesTest {
  protected:
    StockRestoration() {
        add_item(flour);
        items[flour].serving_size = 0.5;
        items[flour].servings_per_qty_unit = 4;
        add_item(salt, "Salt");
        items[salt].serving_size = 2;
        items[salt].servings_per_qty_unit = 8;
        add_meal(bread);
        put(bread, 1, flour, 3);
        put(bread, 50, salt, 1);
        add_day(day, 6, 2, 2024);
        plan(day, place, bread, 1);
    }
};

TEST_F(StockRestoration, GivesEachIngredientItsShare) {
    restore_day_meal_stock_quietly(bread, day, place);
    expect_lot(flour, 0, 0.375, now, now + 30);  // 1 x 3 x (0.5 / 4)
    expect_lot(salt, 0, 0.25, now, now + 30);    // 1 x 1 x (2 / 8)
    EXPECT_EQ(items[flour].quantity, 0.375);
    EXPECT_EQ(items[salt].quantity, 0.25);
}

TEST_F(StockRestoration, DividesByTheServingSizeTwice) {
    meal_serving_size[bread] = 2;
    plan(day, place, bread, 2);
    restore_day_meal_stock_quietly(bread, day, place);
    EXPECT_EQ(items[flour].quantity, 0.1875);  // half of 0.375
    EXPECT_EQ(items[salt].quantity, 0.125);    // half of 0.25
}

TEST_F(StockRestoration, OfFortyServingsOfARecipeForFour) {
    meal_serving_size[bread] = 4;
    plan(day, place, bread, 40);
    restore_day_meal_stock_quietly(bread, day, place);
    EXPECT_EQ(items[flour].quantity, 0.9375);  // 40 / 4 / 4 = 2.5 times 0.375
}

TEST_F(StockRestoration, ReadsTheServingsOfItsOwnPlace) {
    plan(day, 30, bread, 8);
    restore_day_meal_stock_quietly(bread, day, 30);
    EXPECT_EQ(items[flour].quantity, 3);  // 8 x 0.375
}

TEST_F(StockRestoration, LeavesThePlanAsItIs) {
    restore_day_meal_stock_quietly(bread, day, place);
    EXPECT_EQ(days[day].planned_meal[place], bread);
    EXPECT_EQ(day_quantities[day].meal_servings[place], 1);
}

TEST_F(StockRestoration, AsksWithNoAsTheDefault) {
    platform.boxes.expect_message(audited_day_question, Answer::yes)
        .title("Inventory Adjustment")
        .buttons(Buttons::yes_no)
        .default_button(DefaultButton::no);
    restore_day_meal_stock(bread, day, place);
    EXPECT_EQ(items[flour].quantity, 0.375);
    EXPECT_EQ(items[salt].quantity, 0.25);
}

TEST_F(StockRestoration, AnsweredNoChangesNothing) {
    platform.boxes.expect_message(audited_day_question, Answer::no);
    restore_day_meal_stock(bread, day, place);
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(items[salt].quantity, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(StockRestoration, APlaceThatHasAnotherRecipeByThenGivesNothingBack) {
    platform.boxes.expect_message(audited_day_question, Answer::yes).during([] {
        days[day].planned_meal[place] = 0;
    });
    EXPECT_TRUE(restore_day_meal_stock(bread, day, place));
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(StockRestoration, AnItemWithoutLotsGetsItsOwnStockIntoOneFirst) {
    items[20].in_use = 1;
    items[20].quantity = 5;
    items[20].serving_size = 1;
    items[20].servings_per_qty_unit = 2;
    put(bread, 2, 20, 3);
    restore_day_meal_stock_quietly(bread, day, place);
    EXPECT_EQ(lots[20].lot_quantity[0], 5);
    EXPECT_EQ(lots[20].lot_quantity[1], 1.5);
    EXPECT_EQ(items[20].quantity, 6.5);
}

TEST_F(StockRestoration, WithAllLotsFilledTheStockStays) {
    for (std::size_t at = 0; at < lot_places; ++at) set_lot(flour, at, 1);
    items[flour].quantity = 16;
    restore_day_meal_stock_quietly(bread, day, place);
    EXPECT_EQ(items[flour].quantity, 16);
    EXPECT_EQ(lot_total(flour), 16);
    EXPECT_EQ(items[salt].quantity, 0.25);
}

TEST_F(StockRestoration, AnItemWithoutServingsInAUnitFailsBeforeAnythingMoves) {
    items[salt].servings_per_qty_unit = 0;
    expect_trapped(
        11, [] { return restore_day_meal_stock_quietly(bread, day, place); }, false);
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(StockRestoration, AServingSizeOfZeroIsADivisionByZero) {
    meal_serving_size[bread] = 0;
    expect_trapped(
        11, [] { return restore_day_meal_stock_quietly(bread, day, place); }, false);
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(meal_serving_size[bread], 0);
}

TEST_F(StockRestoration, DaysAndPlacesOutsideTheTablesAreTold) {
    for (const i16 wrong : {i16{0}, i16{31}, i16{-1}}) {
        expect_trapped(
            9, [&] { return restore_day_meal_stock_quietly(bread, day, wrong); }, false);
    }
    expect_trapped(
        9, [] { return restore_day_meal_stock_quietly(bread, 1096, place); }, false);
    EXPECT_EQ(items[flour].quantity, 0);
}

TEST_F(StockRestoration, WhatNamesNothingLiveGivesNothingBack) {
    items[20].serving_size = items[20].servings_per_qty_unit = 1;  // not live
    put(bread, 2, 10001, 1);
    put(bread, 3, -1, 1);
    put(bread, 4, 20, 1);
    EXPECT_TRUE(restore_day_meal_stock_quietly(bread, day, place));
    EXPECT_EQ(items[flour].quantity, 0.375);
    EXPECT_EQ(items[20].quantity, 0);
    for (const i16 wrong : {i16{-1}, i16{0}, i16{1001}, i16{900}}) {
        EXPECT_TRUE(restore_day_meal_stock(wrong, day, place)) << wrong;
    }
    EXPECT_EQ(items[flour].quantity, 0.375);
}

}  // namespace
}  // namespace tavernook
