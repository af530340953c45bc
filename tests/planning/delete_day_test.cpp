#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

class DeleteDay : public PlanningTest {
  protected:
    static void add_planned_day(i16 slot, i16 day) {
        add_day(slot, 6, day, 2024);
        plan(slot, 30, 4, 2.5);
        plan_item(slot, 30, 7, 1.5);
        days[slot].audited = -1;
    }
};

TEST_F(DeleteDay, FreesTheSlotAndKeepsTheQuantities) {
    add_planned_day(9, 2);
    Delete_Day(june(2), june(2));
    expect_free(9);
    EXPECT_EQ(day_quantities[9].meal_servings[30], 2.5);
    EXPECT_EQ(day_quantities[9].item_quantity[30], 1.5);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DeleteDay, FreesEverySlotThatHoldsTheDate) {
    add_planned_day(1, 2);
    add_planned_day(500, 2);
    add_planned_day(1095, 2);
    Delete_Day(june(2), june(2));
    for (const i16 slot : {i16{1}, i16{500}, i16{1095}}) expect_free(slot);
}

TEST_F(DeleteDay, FreesTheDatesOfTheRangeAndNoOther) {
    for (i16 day = 1; day <= 5; ++day) add_planned_day(day, day);
    Delete_Day(june(2), june(4));
    expect_date(1, 6, 1, 2024);
    for (const i16 slot : {i16{2}, i16{3}, i16{4}}) expect_free(slot);
    expect_date(5, 6, 5, 2024);
    EXPECT_EQ(days[5].planned_item[30], 7);
}

TEST_F(DeleteDay, RangesCrossMonthsAndYears) {
    add_day(1, 12, 31, 2023);
    add_day(2, 1, 1, 2024);
    add_day(3, 1, 2, 2024);
    Delete_Day(date_from_civil(2023, 12, 31), date_from_civil(2024, 1, 1));
    expect_free(1);
    expect_free(2);
    expect_date(3, 1, 2, 2024);
}

TEST_F(DeleteDay, TimesOfDayDoNotCount) {
    add_planned_day(1, 2);
    add_planned_day(2, 3);
    add_planned_day(3, 4);
    Delete_Day(june(2) + 0.75, june(3) + 0.25);
    expect_free(1);
    expect_free(2);
    expect_date(3, 6, 4, 2024);
}

TEST_F(DeleteDay, ADateWithoutADayOnlyMarksTheProjectAndTheCalendar) {
    PlannerScreen screen(platform.calls);
    add_planned_day(5, 3);
    const DayRecord before = days[5];
    day_changed = i16_true;
    Delete_Day(june(2), june(2));
    EXPECT_EQ(days[5], before);
    EXPECT_NE(project_modified, 0);
    EXPECT_EQ(day_changed, 0);
    EXPECT_NE(pending_calendar_refresh, 0);
    EXPECT_EQ(platform.calls.entries,
              (Texts{"MealPlan populate_day", "MealPlan CalendarUpdate 100"}));
}

TEST_F(DeleteDay, ResetsTheListThenShowsTheDateAnew) {
    PlannerScreen screen(platform.calls);
    add_planned_day(5, 2);
    open_june(2);
    day_changed = i16_true;
    Delete_Day(june(2), june(2));
    EXPECT_EQ(platform.calls.entries,
              (Texts{"MealPlan reset_day_totals", "MealPlan set_day_editable not",
                     "MealPlan populate_day", "MealPlan CalendarUpdate 100"}));
    EXPECT_EQ(current_day, 1);
    EXPECT_EQ(day_changed, 0);
    EXPECT_NE(pending_calendar_refresh, 0);
}

TEST_F(DeleteDay, AnAuditedCurrentDayLosesItsPlansWhateverItsDate) {
    add_planned_day(5, 2);
    open_june(2);
    Delete_Day(june(20), june(20));
    expect_date(5, 6, 2, 2024);
    EXPECT_EQ(days[5].planned_meal[30], 0);
    EXPECT_EQ(days[5].planned_item[30], 0);
    EXPECT_EQ(days[5].audited, -1);
}

TEST_F(DeleteDay, ACurrentDayThatIsNotAuditedKeepsItsPlans) {
    add_planned_day(5, 2);
    days[5].audited = 0;
    open_june(2);
    Delete_Day(june(20), june(20));
    EXPECT_EQ(days[5].planned_meal[30], 4);
    EXPECT_EQ(days[5].planned_item[30], 7);
}

TEST_F(DeleteDay, DamagedDaysAreLeftAlone) {
    add_day(3, 13, 0, 2024);
    add_day(4, 0, 0, 0);
    add_day(5, -1, 99, -5);
    Delete_Day(date_from_civil(2024, 1, 1), date_from_civil(2025, 12, 31));
    expect_date(3, 13, 0, 2024);
    expect_date(4, 0, 0, 0);
    expect_date(5, -1, 99, -5);
}

TEST_F(DeleteDay, TheLongestRangeHas32767Dates) {
    add_planned_day(1, 2);
    Delete_Day(june(2), june(2) + 32766);
    expect_free(1);
}

TEST_F(DeleteDay, OneDateMoreIsAFaultAndChangesNothing) {
    add_planned_day(1, 2);
    open_june(2);
    EXPECT_EQ(fault_of([] { Delete_Day(june(2), june(2) + 32767); }), 6);
    EXPECT_EQ(fault_of([] { copy_day(june(2), june(2) + 32767, 0); }), 0);  // no source
    EXPECT_EQ(days[1].planned_meal[30], 4);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(pending_calendar_refresh, 0);
}

TEST_F(DeleteDay, DatesBeyondTheCalendarAreAFault) {
    const Date last = date_from_civil(9999, 12, 31);
    EXPECT_EQ(fault_of([last] { Delete_Day(last, last + 1); }), 6);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DeleteDay, ARangeThatEndsBeforeItsStartHoldsNoDate) {
    add_planned_day(1, 2);
    Delete_Day(june(2), june(1));
    expect_date(1, 6, 2, 2024);
}

}  // namespace
}  // namespace tavernook
