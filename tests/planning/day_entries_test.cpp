// Opening dates and planning on them.
#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 bread = 4;
constexpr i16 flour = 7;

class DayEntries : public PlanningTest {
  protected:
    DayEntries() {
        add_item(flour);
        items[flour].serving_size = 0.5;
        add_meal(bread);
        meal_serving_size[bread] = 4;
    }

    static void plan_meal(i16 recipe, f64 quantity) { tavernook::add_meal(recipe, quantity); }
};

TEST_F(DayEntries, OpeningFindsTheDayOfTheDate) {
    add_day(9, 6, 2, 2024);
    select(6, 2, 2024);
    EXPECT_TRUE(open_day());
    EXPECT_EQ(current_day, 9);
}

TEST_F(DayEntries, OpeningADateHeldTwiceTakesTheLastSlot) {
    add_day(9, 6, 2, 2024);
    add_day(300, 6, 2, 2024);
    open_june(2);
    EXPECT_EQ(current_day, 300);
}

TEST_F(DayEntries, OpeningAnEmptyDateWritesNothing) {
    fill_days(3);
    select(6, 2, 2024);
    EXPECT_FALSE(open_day());
    EXPECT_EQ(current_day, 4);
    expect_free(4);
    EXPECT_EQ(project_modified, 0);
    open_june(3);
    EXPECT_EQ(current_day, 4);
    EXPECT_TRUE(live_days_of({2024, 6, 2}).empty());
}

TEST_F(DayEntries, OpeningAnEmptyDateOfAFullTableWarnsOnce) {
    fill_days(1095);
    platform.boxes.expect_message(days_full_warning);
    open_june(2);
    EXPECT_EQ(current_day, 1095);
    EXPECT_EQ(platform.boxes.shown().size(), 1u);
}

TEST_F(DayEntries, OpeningAPlannedDateOfAFullTableSaysNothing) {
    fill_days(1095);
    add_day(20, 6, 2, 2024);
    open_june(2);
    EXPECT_EQ(current_day, 20);
}

TEST_F(DayEntries, TheDayOfTheLastSlotIsStored) {
    fill_days(1094);
    platform.boxes.expect_message(days_full_warning);
    open_june(2);
    plan_meal(bread, 1);
    expect_date(1095, 6, 2, 2024);
    EXPECT_EQ(live_days_of({2024, 6, 2}), std::vector<i16>{1095});
}

TEST_F(DayEntries, AFullTableHandsItsLastSlotToTheNewDate) {
    fill_days(1095);
    platform.boxes.expect_message(days_full_warning);
    open_june(2);
    plan_meal(bread, 1);
    expect_date(1095, 6, 2, 2024);
}

// The box comes before anything is planned.
TEST_F(DayEntries, ATableThatBecameFullSinceTheDateWasOpenedIsToldAtTheFirstEntry) {
    fill_days(1093);
    open_june(2);
    add_day(1094, 6, 5, 2024);
    current_day = slot_of_selected_date();
    platform.boxes.expect_message(days_full_warning).during([] { expect_free(1095); });
    EXPECT_TRUE(tavernook::add_meal(bread, 1));
    EXPECT_TRUE(Add_Item(flour, 1));
    expect_date(1095, 6, 2, 2024);
}

TEST_F(DayEntries, ADateThatWasNeverOpenedIsToldToo) {
    fill_days(1095);
    select(6, 2, 2024);
    current_day = slot_of_selected_date();
    platform.boxes.expect_message(days_full_warning).during([] {
        EXPECT_EQ(days[1095].planned_item[1], 0);
    });
    EXPECT_TRUE(Add_Item(flour, 1));
    expect_date(1095, 6, 2, 2024);
}

TEST_F(DayEntries, TheNextOpeningTellsAgainAndAPlannedDateNever) {
    fill_days(1095);
    add_day(20, 6, 3, 2024);
    platform.boxes.expect_message(days_full_warning);
    open_june(2);
    open_june(3);
    plan_meal(bread, 1);
    EXPECT_EQ(days[20].planned_meal[1], bread);
    platform.boxes.expect_message(days_full_warning);
    open_june(2);
    plan_meal(bread, 1);
    plan_meal(bread, 1);
    EXPECT_EQ(day_quantities[1095].meal_servings[1], 2);
}

TEST_F(DayEntries, AnItemIsStoredInItsServingSizeUnits) {
    open_june(2);
    Add_Item(flour, 3);
    EXPECT_EQ(days[1].planned_item[1], flour);
    EXPECT_EQ(day_quantities[1].item_quantity[1], 1.5);  // 3 x 0.5
    expect_date(1, 6, 2, 2024);
    EXPECT_EQ(days[1].audited, 0);
}

TEST_F(DayEntries, TheSameItemAgainAddsScaledByTheServingSize) {
    open_june(2);
    Add_Item(flour, 3);
    items[flour].serving_size = 2;
    Add_Item(flour, 1);
    EXPECT_EQ(day_quantities[1].item_quantity[1], 3.5);  // 1.5 + 1 x 2
    EXPECT_EQ(days[1].planned_item[2], 0);
}

TEST_F(DayEntries, ARecipeIsStoredInServings) {
    open_june(2);
    plan_meal(bread, 2);
    EXPECT_EQ(days[1].planned_meal[1], bread);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 2);
    expect_date(1, 6, 2, 2024);
}

TEST_F(DayEntries, TheSameRecipeAgainAddsInOnePlace) {
    open_june(2);
    plan_meal(bread, 2);
    plan_meal(bread, 0.5);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 2.5);
    EXPECT_EQ(days[1].planned_meal[2], 0);
}

TEST_F(DayEntries, AFreedPlaceForgetsItsOldQuantity) {
    open_june(2);
    plan_meal(bread, 2);
    Add_Item(flour, 3);
    delete_day_meal(1, bread);
    delete_day_items(1, flour);
    plan_meal(bread, 1);
    Add_Item(flour, 1);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 1);
    EXPECT_EQ(day_quantities[1].item_quantity[1], 0.5);
}

TEST_F(DayEntries, TheThirtyFirstEntryReplacesPlaceThirtyInSilence) {
    for (std::size_t place = 1; place <= 30; ++place) {
        plan(3, place, static_cast<i16>(100 + place), 9);
        plan_item(3, place, static_cast<i16>(100 + place), 9);
    }
    add_day(3, 6, 2, 2024);
    open_june(2);
    plan_meal(bread, 2);
    Add_Item(flour, 2);
    EXPECT_EQ(days[3].planned_meal[30], bread);
    EXPECT_EQ(day_quantities[3].meal_servings[30], 2);
    EXPECT_EQ(days[3].planned_meal[29], 129);
    EXPECT_EQ(days[3].planned_item[30], flour);
    EXPECT_EQ(day_quantities[3].item_quantity[30], 1);
    EXPECT_EQ(days[3].planned_item[29], 129);
}

TEST_F(DayEntries, AnEntryMarksDayProjectAndCalendarAndRedrawsTheList) {
    PlannerScreen screen(platform.calls);
    open_june(2);
    Add_Item(flour, 1);
    EXPECT_NE(day_changed, 0);
    EXPECT_NE(pending_calendar_refresh, 0);
    EXPECT_NE(project_modified, 0);
    const Texts redrawn{"MealPlan set_day_editable", "MealPlan populate_days_Meals_Items"};
    EXPECT_EQ(platform.calls.entries, redrawn);
    day_changed = pending_calendar_refresh = project_modified = 0;
    platform.calls.clear();
    plan_meal(bread, 1);
    EXPECT_NE(day_changed, 0);
    EXPECT_NE(pending_calendar_refresh, 0);
    EXPECT_NE(project_modified, 0);
    EXPECT_EQ(platform.calls.entries, redrawn);
}

TEST_F(DayEntries, WhatIsNotLiveIsNotPlanned) {
    fill_days(1094);
    platform.boxes.expect_message(days_full_warning);
    open_june(2);
    full_table_told = 0;  // not even the box comes
    for (const i16 wrong : {i16{-1}, i16{0}, i16{8}, i16{10001}}) {
        EXPECT_FALSE(Add_Item(wrong, 1)) << wrong;
    }
    for (const i16 wrong : {i16{-1}, i16{0}, i16{5}, i16{1001}}) {
        EXPECT_FALSE(tavernook::add_meal(wrong, 1)) << wrong;
    }
    expect_free(1095);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayEntries, WhatGoesWhileTheBoxStandsOpenIsNotPlanned) {
    fill_days(1095);
    select(6, 2, 2024);
    current_day = 1095;
    platform.boxes.expect_message(days_full_warning).during([] { meals[bread].in_use = 0; });
    EXPECT_FALSE(tavernook::add_meal(bread, 1));
    EXPECT_EQ(days[1095].planned_meal[1], 0);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayEntries, ADayOutsideTheTableIsAFaultAndChangesNothing) {
    open_june(2);
    for (const i16 wrong : {i16{-1}, i16{0}, i16{1096}}) {
        current_day = wrong;
        EXPECT_EQ(fault_of([] { Add_Item(flour, 1); }), 9);
        EXPECT_EQ(fault_of([] { plan_meal(bread, 1); }), 9);
    }
    EXPECT_EQ(project_modified, 0);
}

class DayRows : public DayEntries {
  protected:
    DayRows() {
        add_day(3, 6, 2, 2024);
        plan(3, 2, bread, 4);
        plan_item(3, 2, flour, 5);
        open_june(2);
    }

    PlannerScreen screen{platform.calls};
    const Texts list_redrawn{"MealPlan populate_days_Meals_Items"};
};

TEST_F(DayRows, ANewQuantityGoesToTheSelectedItem) {
    screen.selected_key = "i7:2";
    modify_mealplan_qty(1.25);
    EXPECT_EQ(day_quantities[3].item_quantity[2], 1.25);
    EXPECT_EQ(day_quantities[3].meal_servings[2], 4);
    EXPECT_EQ(platform.calls.entries, list_redrawn);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DayRows, ANewQuantityGoesToTheSelectedRecipe) {
    screen.selected_key = "m4:2";
    modify_mealplan_qty(1.25);
    EXPECT_EQ(day_quantities[3].meal_servings[2], 1.25);
    EXPECT_EQ(day_quantities[3].item_quantity[2], 5);
    EXPECT_EQ(platform.calls.entries, list_redrawn);
}

TEST_F(DayRows, WithoutASelectedRowNoQuantityChanges) {
    modify_mealplan_qty(1.25);
    EXPECT_EQ(day_quantities[3].meal_servings[2], 4);
    EXPECT_EQ(day_quantities[3].item_quantity[2], 5);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayRows, AKeyWithAPlaceThatNoDayHasIsAFault) {
    screen.selected_key = "i7:31";
    EXPECT_EQ(fault_of([] { modify_mealplan_qty(1); }), 9);
    screen.selected_key = "m4:0";
    EXPECT_EQ(fault_of([] { modify_mealplan_qty(1); }), 9);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayRows, TheTwoOtherQuantityCommandsOnlyRedraw) {
    fill_lots(flour, 8);
    modify_item_qty(flour, 0, 9, 5);
    modify_meal_qty(0, 0, 9, 4);
    EXPECT_EQ(day_quantities[3].item_quantity[2], 5);
    EXPECT_EQ(day_quantities[3].meal_servings[2], 4);
    EXPECT_EQ(items[flour].quantity, 8);
    EXPECT_EQ(platform.calls.entries.size(), 2u);
    EXPECT_EQ(platform.calls.entries[1], list_redrawn[0]);
}

TEST_F(DayRows, RemovingARowLeavesTheOtherKind) {
    remove_day_entry("m4:2");
    EXPECT_EQ(days[3].planned_meal[2], 0);
    EXPECT_EQ(days[3].planned_item[2], flour);
    expect_date(3, 6, 2, 2024);
    EXPECT_EQ(platform.calls.entries, list_redrawn);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DayRows, RemovingTheLastRowDeletesTheDay) {
    remove_day_entry("m4:2");
    remove_day_entry("i7:2");
    expect_free(3);
}

TEST_F(DayRows, RemovingWithoutASelectedRowDoesNothing) {
    remove_day_entry("");
    EXPECT_EQ(days[3].planned_meal[2], bread);
    EXPECT_EQ(project_modified, 0);
    EXPECT_TRUE(platform.calls.entries.empty());
}

}  // namespace
}  // namespace tavernook
