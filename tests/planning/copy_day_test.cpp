#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 source = 9;

class CopyDay : public PlanningTest {
  protected:
    CopyDay() {
        add_day(source, 6, 2, 2024);
        plan(source, 1, 4, 2.5);
        plan(source, 30, 5, 1);
        plan_item(source, 2, 7, 1.5);
        copy_source_day = source;
        open_june(2);
    }

    ExpectedBox& expect_question(const std::string& date, Answer answer) {
        return platform.boxes.expect_message(copy_question(date), answer);
    }

    static void expect_copy(i16 slot) {
        EXPECT_EQ(days[slot].planned_meal[1], 4);
        EXPECT_EQ(day_quantities[slot].meal_servings[1], 2.5);
        EXPECT_EQ(days[slot].planned_meal[30], 5);
        EXPECT_EQ(day_quantities[slot].meal_servings[30], 1);
        EXPECT_EQ(days[slot].planned_item[2], 7);
        EXPECT_EQ(day_quantities[slot].item_quantity[2], 1.5);
    }
};

TEST_F(CopyDay, OntoAFreeDateTakesTheLowestFreeSlot) {
    EXPECT_EQ(copy_day(june(5), june(5), 0), 1);
    expect_date(1, 6, 5, 2024);
    expect_copy(1);
    expect_date(source, 6, 2, 2024);
    EXPECT_NE(project_modified, 0);
    EXPECT_NE(pending_calendar_refresh, 0);
}

TEST_F(CopyDay, OntoARangeFillsEachDate) {
    EXPECT_EQ(copy_day(date_from_civil(2024, 6, 29), date_from_civil(2024, 7, 1), 0), 3);
    expect_date(1, 6, 29, 2024);
    expect_date(2, 6, 30, 2024);
    expect_date(3, 7, 1, 2024);
    for (const i16 slot : {i16{1}, i16{2}, i16{3}}) expect_copy(slot);
}

TEST_F(CopyDay, OntoADateInUseAsksWithNoAsTheDefault) {
    add_day(20, 6, 5, 2024);
    expect_question("6/5/2024", Answer::yes)
        .title("Copy Day")
        .buttons(Buttons::yes_no)
        .default_button(DefaultButton::no)
        .critical();
    EXPECT_EQ(copy_day(june(5), june(5), 0), 1);
    expect_copy(20);
    expect_free(1);
}

TEST_F(CopyDay, ADateThatIsFreedWhileItIsAskedAboutStaysFree) {
    add_day(20, 6, 5, 2024);
    expect_question("6/5/2024", Answer::yes).during([] { days[20] = DayRecord{}; });
    EXPECT_EQ(copy_day(june(5), june(6), 0), 1);
    expect_free(20);
    expect_copy(1);
}

TEST_F(CopyDay, WithASourceThatGoesMeanwhileTheCopyingEnds) {
    add_day(20, 6, 5, 2024);
    expect_question("6/5/2024", Answer::yes).during([] { days[source] = DayRecord{}; });
    EXPECT_EQ(copy_day(june(5), june(6), 0), 0);
    expect_free(1);
    fill_days(1095);
    add_day(source, 6, 2, 2024);
    platform.boxes.expect_message(days_full_warning).during([] { days[source] = DayRecord{}; });
    EXPECT_EQ(copy_day(june(7), june(7), 0), 0);
    EXPECT_TRUE(live_days_of({2024, 6, 7}).empty());
}

TEST_F(CopyDay, AnsweredYesPlacesThatAreEmptyInTheSourceKeepWhatTheyHeld) {
    add_day(20, 6, 5, 2024);
    for (const std::size_t place : {1, 2, 29}) {
        plan(20, place, 100, 7);
        plan_item(20, place, 200, 8);
    }
    expect_question("6/5/2024", Answer::yes);
    copy_day(june(5), june(5), 0);
    expect_copy(20);
    for (const std::size_t place : {2, 29}) {
        EXPECT_EQ(days[20].planned_meal[place], 100);
        EXPECT_EQ(day_quantities[20].meal_servings[place], 7);
    }
    for (const std::size_t place : {1, 29}) {
        EXPECT_EQ(days[20].planned_item[place], 200);
        EXPECT_EQ(day_quantities[20].item_quantity[place], 8);
    }
}

TEST_F(CopyDay, AnsweredNoOnlyThatDateIsSkipped) {
    add_day(20, 6, 6, 2024);
    plan(20, 1, 100, 7);
    expect_question("6/6/2024", Answer::no);
    EXPECT_EQ(copy_day(june(5), june(7), 0), 2);
    EXPECT_EQ(days[20].planned_meal[1], 100);
    EXPECT_EQ(days[20].planned_meal[30], 0);
    expect_date(1, 6, 5, 2024);
    expect_date(2, 6, 7, 2024);
    expect_copy(1);
    expect_copy(2);
    expect_free(3);
}

TEST_F(CopyDay, ADateHeldTwiceAsksTwiceAndTheLastSlotAndAnswerCount) {
    add_day(20, 6, 5, 2024);
    add_day(30, 6, 5, 2024);
    expect_question("6/5/2024", Answer::no);
    expect_question("6/5/2024", Answer::yes);
    EXPECT_EQ(copy_day(june(5), june(5), 0), 1);
    EXPECT_EQ(days[20].planned_meal[1], 0);
    expect_copy(30);
    expect_question("6/5/2024", Answer::yes);
    expect_question("6/5/2024", Answer::no);
    EXPECT_EQ(copy_day(june(5), june(5), 0), 0);
}

TEST_F(CopyDay, AnAuditedDayGivesADayToBeAudited) {
    days[source].audited = -1;
    copy_day(june(5), june(5), 0);
    EXPECT_EQ(days[1].audited, 0);
    EXPECT_EQ(days[source].audited, -1);
}

TEST_F(CopyDay, AnAuditedTargetStaysAudited) {
    add_day(20, 6, 5, 2024);
    days[20].audited = -1;
    expect_question("6/5/2024", Answer::yes);
    copy_day(june(5), june(5), 0);
    EXPECT_EQ(days[20].audited, -1);
}

TEST_F(CopyDay, AFreeSourceStopsAtOnce) {
    PlannerScreen screen(platform.calls);
    add_day(20, 6, 5, 2024);
    for (const i16 none : {i16{0}, i16{77}}) {
        copy_source_day = none;
        EXPECT_EQ(copy_day(june(5), june(5), 0), 0);
    }
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(pending_calendar_refresh, 0);
    EXPECT_TRUE(platform.calls.entries.empty());
}

TEST_F(CopyDay, RedrawsTheCalendarOnlyWhereItMay) {
    PlannerScreen screen(platform.calls);
    copy_day(june(5), june(5), 1);
    EXPECT_TRUE(platform.calls.entries.empty());
    EXPECT_NE(pending_calendar_refresh, 0);
    copy_day(june(6), june(6), 0);
    EXPECT_EQ(platform.calls.entries, Texts{"MealPlan CalendarUpdate 100"});
}

TEST_F(CopyDay, IntoTheLastSlotWarnsAndGoesOn) {
    fill_days(1094);
    add_day(source, 6, 2, 2024);
    platform.boxes.expect_message(days_full_warning);
    EXPECT_EQ(copy_day(june(5), june(5), 0), 1);
    expect_date(1095, 6, 5, 2024);
    expect_copy(1095);
}

TEST_F(CopyDay, IntoAFullTableTakesTheLastSlotOver) {
    fill_days(1095);
    add_day(source, 6, 2, 2024);
    platform.boxes.expect_message(days_full_warning);
    copy_day(june(5), june(5), 0);
    expect_date(1095, 6, 5, 2024);
}

TEST_F(CopyDay, TheSlotThatWasOpenedIsNotPlannedOnTwice) {
    add_meal(4);
    open_june(20);  // slot 1 is only opened
    copy_day(june(5), june(5), 0);
    expect_date(1, 6, 5, 2024);
    EXPECT_EQ(current_day, 2);
    tavernook::add_meal(4, 1);
    expect_date(1, 6, 5, 2024);
    expect_date(2, 6, 20, 2024);
}

TEST_F(CopyDay, OntoTheOpenedDateItselfThatDayIsTheCurrentOne) {
    open_june(20);
    copy_day(june(20), june(20), 0);
    EXPECT_EQ(current_day, 1);
    expect_copy(1);
}

TEST_F(CopyDay, ADamagedSourceIsCopiedLikeAnyOther) {
    add_day(source, 13, 0, -5);
    EXPECT_EQ(copy_day(june(5), june(5), 0), 1);
    expect_date(1, 6, 5, 2024);
    expect_copy(1);
}

TEST_F(CopyDay, TooLongARangeIsAFaultAndChangesNothing) {
    EXPECT_EQ(fault_of([] { copy_day(june(5), june(5) + 32767, 0); }), 6);
    expect_free(1);
    EXPECT_EQ(project_modified, 0);
    copy_source_day = 1096;
    EXPECT_EQ(fault_of([] { copy_day(june(5), june(5), 0); }), 9);
}

}  // namespace
}  // namespace tavernook
