// What an audited day gives back to the stock.
#include "core/changes.h"
#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 day = 12;
constexpr i16 bread = 4;
constexpr i16 flour = 7;
constexpr i16 salt = 8;

// A bag of flour gives 4 servings of 0.5 cups, a box of salt 8 of 2 spoons.
class DaySettlement : public PlanningTest {
  protected:
    DaySettlement() {
        add_item(flour);
        items[flour].serving_size = 0.5;
        items[flour].servings_per_qty_unit = 4;
        add_item(salt, "Salt");
        items[salt].serving_size = 2;
        items[salt].servings_per_qty_unit = 8;
        add_meal(bread);
        put(bread, 1, salt, 1);
        add_day(day, 6, 2, 2024);
        days[day].audited = -1;
        plan_item(day, 30, flour, 3);
        plan(day, 1, bread, 2);
    }

    void answer_items(Answer answer) {
        platform.boxes.expect_message(item_stock_question, answer)
            .title("Inventory Adjustment")
            .buttons(Buttons::yes_no)
            .default_button(DefaultButton::no);
    }
    void answer_meals(Answer answer) { platform.boxes.expect_message(meal_stock_question, answer); }
};

TEST_F(DaySettlement, GivesBackItemsFirstThenRecipes) {
    answer_items(Answer::yes);
    answer_meals(Answer::yes);
    release_audited_day(day);
    expect_lot(flour, 0, 1.5, now, now + 30);  // 3 / (4 x 0.5)
    expect_lot(salt, 0, 0.5, now, now + 30);   // 2 servings x 1 x (2 / 8)
    EXPECT_EQ(items[flour].quantity, 1.5);
    EXPECT_EQ(items[salt].quantity, 0.5);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DaySettlement, EveryPlaceAsksForItself) {
    plan_item(day, 1, salt, 16);
    plan(day, 9, bread, 4);
    answer_items(Answer::no);   // salt
    answer_items(Answer::yes);  // flour
    answer_meals(Answer::no);   // place 1
    answer_meals(Answer::yes);  // place 9
    release_audited_day(day);
    EXPECT_EQ(items[flour].quantity, 1.5);
    EXPECT_EQ(items[salt].quantity, 1);  // 4 servings x 1 x (2 / 8)
}

TEST_F(DaySettlement, AnsweredNoTheStockStays) {
    answer_items(Answer::no);
    answer_meals(Answer::no);
    release_audited_day(day);
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(items[salt].quantity, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(DaySettlement, LooksAtNoFlagAndLeavesThePlan) {
    days[day].audited = 0;
    answer_items(Answer::yes);
    answer_meals(Answer::no);
    release_audited_day(day);
    EXPECT_EQ(items[flour].quantity, 1.5);
    EXPECT_EQ(days[day].planned_item[30], flour);
    EXPECT_EQ(days[day].planned_meal[1], bread);
    EXPECT_EQ(days[day].audited, 0);
}

TEST_F(DaySettlement, OfAnEmptyDayAsksNothing) {
    release_audited_day(3);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DaySettlement, WithAllLotsFilledTheStockStays) {
    for (std::size_t at = 0; at < lot_places; ++at) set_lot(flour, at, 1);
    items[flour].quantity = 16;
    answer_items(Answer::yes);
    answer_meals(Answer::no);
    release_audited_day(day);
    EXPECT_EQ(items[flour].quantity, 16);
    EXPECT_EQ(lot_total(flour), 16);
}

TEST_F(DaySettlement, AnItemWithoutLotsGetsItsOwnStockIntoOneFirst) {
    items[20].in_use = 1;
    items[20].quantity = 5;
    items[20].serving_size = 1;
    items[20].servings_per_qty_unit = 2;
    plan_item(day, 30, 20, 3);
    answer_items(Answer::yes);
    answer_meals(Answer::no);
    release_audited_day(day);
    EXPECT_EQ(lots[20].lot_quantity[0], 5);
    EXPECT_EQ(lots[20].lot_quantity[1], 1.5);
    EXPECT_EQ(items[20].quantity, 6.5);
}

TEST_F(DaySettlement, AnAmountThatCannotBeWorkedOutKeepsNobodyElsesStockBack) {
    plan_item(day, 1, salt, 16);
    items[salt].serving_size = 0;
    answer_items(Answer::yes);  // salt
    answer_items(Answer::yes);  // flour
    answer_meals(Answer::no);
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(release_audited_day(day));
    EXPECT_EQ(items[salt].quantity, 0);
    EXPECT_EQ(items[flour].quantity, 1.5);
}

TEST_F(DaySettlement, AnsweredNoAnAmountThatCannotBeWorkedOutIsNotMissed) {
    items[flour].servings_per_qty_unit = 0;
    answer_items(Answer::no);
    answer_meals(Answer::yes);
    release_audited_day(day);
    EXPECT_EQ(items[salt].quantity, 0.5);
}

TEST_F(DaySettlement, ARecipeThatCannotBeWorkedOutKeepsNobodyElsesStockBack) {
    const i16 cake = 9;
    add_meal(cake, "Cake");
    meal_serving_size[cake] = 0;
    put(cake, 1, salt, 1);
    plan(day, 1, cake, 2);
    plan(day, 2, bread, 2);
    answer_items(Answer::yes);
    answer_meals(Answer::yes);
    platform.boxes.expect_message(module_error(11));
    answer_meals(Answer::yes);
    EXPECT_FALSE(release_audited_day(day));
    EXPECT_EQ(items[flour].quantity, 1.5);
    EXPECT_EQ(items[salt].quantity, 0.5);
}

TEST_F(DaySettlement, EntriesThatNameNothingLiveGiveNothingBackAndAskNothing) {
    items[20].serving_size = items[20].servings_per_qty_unit = 1;  // not live
    i16 place = 1;
    for (const i16 item : {i16{10001}, i16{-5}, i16{32767}, i16{20}})
        plan_item(day, place++, item, 1);
    place = 2;
    for (const i16 recipe : {i16{1001}, i16{-5}, i16{900}}) plan(day, place++, recipe, 1);
    put(bread, 2, 10001, 1);
    put(bread, 3, -1, 1);
    put(bread, 4, 20, 1);
    answer_items(Answer::yes);
    answer_meals(Answer::yes);
    EXPECT_TRUE(release_audited_day(day));
    EXPECT_EQ(items[flour].quantity, 1.5);
    EXPECT_EQ(items[salt].quantity, 0.5);
    EXPECT_EQ(items[20].quantity, 0);
}

TEST_F(DaySettlement, WhatGoesWhileItIsAskedAboutGivesNothingBack) {
    platform.boxes.expect_message(item_stock_question, Answer::yes).during([] {
        items[flour].in_use = 0;
    });
    platform.boxes.expect_message(meal_stock_question, Answer::yes).during([] {
        meals[bread].in_use = 0;
    });
    EXPECT_TRUE(release_audited_day(day));
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(DaySettlement, ADayThatGoesWhileItIsAskedAboutAsksNoMore) {
    look_for_changes();
    platform.boxes.expect_message(item_stock_question, Answer::yes).during([] {
        days[day].in_use = 0;
        look_for_changes();
        days[day].in_use = 1;  // the same places, but another day
        look_for_changes();
    });
    EXPECT_TRUE(release_audited_day(day));
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(DaySettlement, ADayThatGoesWhileItsRecipeIsAskedAboutGivesNothingBack) {
    days[day].planned_item[30] = 0;
    platform.boxes.expect_message(meal_stock_question, Answer::yes).during([] {
        days[day].in_use = 0;
    });
    EXPECT_TRUE(release_audited_day(day));
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(DaySettlement, ADayThatIsNoneIsToldAndAnsweredFalse) {
    for (const i16 wrong : {i16{-1}, i16{0}, i16{1096}}) {
        platform.boxes.expect_message("there has been an error");
        EXPECT_FALSE(release_audited_day(wrong)) << wrong;
    }
}

TEST_F(DaySettlement, EditingAnAuditedDayMakesItADayToBeAudited) {
    PlannerScreen screen(platform.calls);
    open_june(2);
    answer_items(Answer::yes);
    answer_meals(Answer::no);
    edit_audited_day();
    EXPECT_EQ(days[day].audited, 0);
    EXPECT_EQ(items[flour].quantity, 1.5);
    EXPECT_EQ(days[day].planned_item[30], flour);
    EXPECT_NE(project_modified, 0);
    EXPECT_EQ(platform.calls.entries,
              (Texts{"MealPlan set_day_editable", "MealPlan CalendarUpdate 100",
                     "MealPlan populate_days_Meals_Items"}));
}

TEST_F(DaySettlement, EditingAnEmptyAuditedDayIsAChangeToo) {
    add_day(3, 6, 5, 2024);
    days[3].audited = -1;
    open_june(5);
    edit_audited_day();
    EXPECT_EQ(days[3].audited, 0);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DaySettlement, EditingADayWithAnAmountThatCannotBeWorkedOutShowsOneBox) {
    open_june(2);
    items[flour].serving_size = 0;
    answer_items(Answer::yes);
    answer_meals(Answer::yes);
    platform.boxes.expect_message("there has been an error");
    edit_audited_day();
    EXPECT_EQ(days[day].audited, 0);
    EXPECT_EQ(items[salt].quantity, 0.5);
}

}  // namespace
}  // namespace tavernook
