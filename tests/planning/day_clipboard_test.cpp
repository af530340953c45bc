// Copy, Cut, Paste and Delete as the popup of a date does them.
#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 flour = 7;

class DayClipboardTest : public PlanningTest {
  protected:
    DayClipboardTest() {
        add_item(flour);
        items[flour].serving_size = 1;
        items[flour].servings_per_qty_unit = 1;
        add_day(9, 6, 2, 2024);
        plan_item(9, 1, flour, 3);
        open_june(2);
    }

    PlannerScreen screen{platform.calls};
};

TEST_F(DayClipboardTest, CopyRemembersTheDayAndTheSelectedDate) {
    EXPECT_FALSE(day_clipboard.filled);
    copy_selected_day();
    EXPECT_TRUE(day_clipboard.filled);
    EXPECT_FALSE(day_clipboard.cut);
    EXPECT_EQ(day_clipboard.first, june(2));
    EXPECT_EQ(day_clipboard.last, june(2));
    EXPECT_EQ(copy_source_day, 9);
}

TEST_F(DayClipboardTest, ACopyCanBePastedAgainAndAgain) {
    copy_selected_day();
    open_june(5);
    EXPECT_TRUE(paste_day(june(5)));
    EXPECT_TRUE(paste_day(june(6)));
    expect_date(9, 6, 2, 2024);
    expect_date(1, 6, 5, 2024);
    expect_date(2, 6, 6, 2024);
    EXPECT_EQ(days[2].planned_item[1], flour);
    EXPECT_EQ(current_day, 1);
    EXPECT_EQ(platform.calls.entries.back(), "MealPlan populate_day");
}

TEST_F(DayClipboardTest, ACutDayGoesWhenItIsPasted) {
    cut_selected_day();
    expect_date(9, 6, 2, 2024);
    open_june(5);
    EXPECT_TRUE(paste_day(june(5)));
    expect_free(9);
    expect_date(1, 6, 5, 2024);
    EXPECT_EQ(days[1].planned_item[1], flour);
    EXPECT_EQ(day_quantities[1].item_quantity[1], 3);
    EXPECT_EQ(current_day, 1);
    EXPECT_FALSE(day_clipboard.filled);
    EXPECT_FALSE(paste_day(june(6)));
}

TEST_F(DayClipboardTest, ACopyPastedOntoItsOwnDateAsksLikeAnyOther) {
    copy_selected_day();
    platform.boxes.expect_message(copy_question("6/2/2024"), Answer::yes);
    EXPECT_TRUE(paste_day(june(2)));
    expect_date(9, 6, 2, 2024);
    EXPECT_EQ(day_quantities[9].item_quantity[1], 3);
}

TEST_F(DayClipboardTest, ACutDayPastedOntoItsOwnDateStays) {
    cut_selected_day();
    EXPECT_FALSE(paste_day(june(2)));
    EXPECT_FALSE(paste_day(june(2) + 0.5));
    expect_date(9, 6, 2, 2024);
    EXPECT_EQ(days[9].planned_item[1], flour);
    EXPECT_TRUE(day_clipboard.cut);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayClipboardTest, ACutDayStaysWhenThePasteWasRefused) {
    add_day(20, 6, 5, 2024);
    cut_selected_day();
    open_june(5);
    platform.boxes.expect_message(copy_question("6/5/2024"), Answer::no);
    EXPECT_FALSE(paste_day(june(5)));
    expect_date(9, 6, 2, 2024);
    EXPECT_EQ(days[9].planned_item[1], flour);
    EXPECT_TRUE(day_clipboard.cut);
}

TEST_F(DayClipboardTest, AnAuditedCutDayIsSettledWithTheStock) {
    days[9].audited = -1;
    cut_selected_day();
    open_june(5);
    platform.boxes.expect_message(item_stock_question, Answer::yes);
    EXPECT_TRUE(paste_day(june(5)));
    EXPECT_EQ(items[flour].quantity, 3);
    expect_free(9);
    EXPECT_EQ(days[1].audited, 0);
}

TEST_F(DayClipboardTest, ACutDayPastedOntoAnAuditedDayLeavesThatItsPlans) {
    add_day(20, 6, 5, 2024);
    days[20].audited = -1;
    plan_item(20, 2, 8, 1);
    cut_selected_day();
    open_june(5);
    platform.boxes.expect_message(copy_question("6/5/2024"), Answer::yes);
    EXPECT_TRUE(paste_day(june(5)));
    expect_free(9);
    EXPECT_EQ(days[20].planned_item[1], flour);
    EXPECT_EQ(days[20].planned_item[2], 8);
    EXPECT_EQ(current_day, 20);
}

TEST_F(DayClipboardTest, AnEmptyDateHasNothingToPaste) {
    open_june(20);
    copy_selected_day();
    EXPECT_FALSE(paste_day(june(21)));
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayClipboardTest, ADayThatIsGoneHasNothingToPasteThoughItsSlotIsUsedAgain) {
    copy_selected_day();
    delete_day_of(june(2));
    add_day(9, 6, 11, 2024);
    plan_item(9, 1, 8, 1);
    EXPECT_FALSE(paste_day(june(5)));
    EXPECT_TRUE(live_days_of({2024, 6, 5}).empty());
}

TEST_F(DayClipboardTest, ADayThatMovedToAnotherSlotIsPastedFromThere) {
    copy_selected_day();
    delete_day_of(june(2));
    add_day(40, 6, 2, 2024);
    plan_item(40, 1, 8, 1);
    EXPECT_TRUE(paste_day(june(5)));
    EXPECT_EQ(days[1].planned_item[1], 8);
}

TEST_F(DayClipboardTest, PastingOfNothingDoesNothing) {
    EXPECT_FALSE(paste_day(june(5)));
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayClipboardTest, DeleteAsksNothingOfADayThatIsNotAudited) {
    delete_day_of(june(2));
    expect_free(9);
    EXPECT_EQ(current_day, 1);
}

TEST_F(DayClipboardTest, DeleteSettlesAnAuditedDayFirst) {
    days[9].audited = -1;
    platform.boxes.expect_message(item_stock_question, Answer::yes).during([] {
        EXPECT_EQ(days[9].planned_item[1], flour);
    });
    delete_day_of(june(2));
    EXPECT_EQ(items[flour].quantity, 3);
    expect_free(9);
}

TEST_F(DayClipboardTest, DeleteOfAnAuditedDayAnsweredNoLeavesTheStock) {
    days[9].audited = -1;
    platform.boxes.expect_message(item_stock_question, Answer::no);
    delete_day_of(june(2));
    EXPECT_EQ(items[flour].quantity, 0);
    expect_free(9);
}

TEST_F(DayClipboardTest, DeleteGoesOnWhenAnAmountCannotBeWorkedOut) {
    days[9].audited = -1;
    items[flour].serving_size = 0;
    platform.boxes.expect_message(item_stock_question, Answer::yes);
    platform.boxes.expect_message("there has been an error");
    delete_day_of(june(2));
    expect_free(9);
}

TEST_F(DayClipboardTest, DeleteOfAnotherDateLeavesAnAuditedDayOnTheScreenItsPlans) {
    days[9].audited = -1;
    add_day(20, 6, 5, 2024);
    delete_day_of(june(5));
    expect_free(20);
    EXPECT_EQ(days[9].planned_item[1], flour);
    delete_day_of(june(25));
    EXPECT_EQ(days[9].planned_item[1], flour);
    EXPECT_EQ(current_day, 9);
}

TEST_F(DayClipboardTest, WorksWithoutAScreen) {
    set_meal_plan(nullptr);
    cut_selected_day();
    open_june(5);
    EXPECT_TRUE(paste_day(june(5)));
    expect_free(9);
    EXPECT_EQ(current_day, 1);
    delete_day_of(june(5));
    expect_free(1);
}

TEST_F(DayClipboardTest, ResettingThePlannerForgetsIt) {
    cut_selected_day();
    reset_planner_state();
    EXPECT_FALSE(day_clipboard.filled);
    EXPECT_EQ(copy_source_day, 0);
    EXPECT_EQ(current_day, 0);
}

}  // namespace
}  // namespace tavernook
