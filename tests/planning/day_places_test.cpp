// Finding slots and places, and emptying places.
#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 day = 5;

class DayPlaces : public PlanningTest {
  protected:
    static void fill_places(std::size_t last) {
        for (std::size_t place = 1; place <= last; ++place) {
            plan(day, place, static_cast<i16>(100 + place), 1);
            plan_item(day, place, static_cast<i16>(200 + place), 1);
        }
    }
};

TEST_F(DayPlaces, TheLowestFreeSlotIsTaken) {
    EXPECT_EQ(find_free_day(), 1);
    fill_days(20);
    days[7].in_use = 0;
    EXPECT_EQ(find_free_day(), 7);
    EXPECT_EQ(lowest_free_day(), 7);
}

TEST_F(DayPlaces, TheLastSlotWarnsAlthoughItIsFree) {
    fill_days(1094);
    platform.boxes.expect_message(days_full_warning).title("Tavernook").buttons(Buttons::ok);
    EXPECT_EQ(find_free_day(), 1095);
}

TEST_F(DayPlaces, AFullTableWarnsAndGivesTheLastSlot) {
    fill_days(1095);
    platform.boxes.expect_message(days_full_warning);
    EXPECT_EQ(find_free_day(), 1095);
    EXPECT_EQ(lowest_free_day(), 1095);
}

TEST_F(DayPlaces, SlotBeforeTheLastDoesNotWarn) {
    fill_days(1093);
    EXPECT_EQ(find_free_day(), 1094);
}

TEST_F(DayPlaces, TheFirstEmptyPlaceIsFree) {
    fill_places(9);
    EXPECT_EQ(find_free_day_meal_place(day), 10);
    EXPECT_EQ(find_free_day_item_place(day), 10);
    days[day].planned_meal[4] = 0;
    days[day].planned_item[2] = 0;
    EXPECT_EQ(find_free_day_meal_place(day), 4);
    EXPECT_EQ(find_free_day_item_place(day), 2);
}

TEST_F(DayPlaces, AFullDayGivesItsLastPlaceInSilence) {
    fill_places(30);
    EXPECT_EQ(find_free_day_meal_place(day), 30);
    EXPECT_EQ(find_free_day_item_place(day), 30);
}

TEST_F(DayPlaces, AnItemIsFoundInItsFirstPlace) {
    fill_places(30);
    days[day].planned_item[12] = 207;
    EXPECT_EQ(find_day_item(207, day), 7);
    EXPECT_EQ(find_day_item(230, day), 30);
    EXPECT_EQ(find_day_item(99, day), 0);
    EXPECT_EQ(find_day_item(0, day), 0);
}

TEST_F(DayPlaces, ARecipeIsFoundOnTheCurrentDayOnly) {
    fill_places(30);
    current_day = day;
    EXPECT_EQ(check_for_existing_meal_index(130), 30);
    EXPECT_EQ(check_for_existing_meal_index(0), 0);
    current_day = day + 1;
    EXPECT_EQ(check_for_existing_meal_index(130), 0);
}

TEST_F(DayPlaces, DeletingARecipeEmptiesAllItsPlacesAndKeepsTheQuantities) {
    for (const std::size_t place : {1, 2, 30}) plan(day, place, 4, 2.5);
    plan(day, 3, 9, 1);
    plan_item(day, 1, 4, 1);
    delete_day_meal(day, 4);
    for (const std::size_t place : {1, 2, 30}) {
        EXPECT_EQ(days[day].planned_meal[place], 0);
        EXPECT_EQ(day_quantities[day].meal_servings[place], 2.5);
    }
    EXPECT_EQ(days[day].planned_meal[3], 9);
    EXPECT_EQ(days[day].planned_item[1], 4);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DayPlaces, DeletingAnItemEmptiesAllItsPlacesAndKeepsTheQuantities) {
    for (const std::size_t place : {1, 29, 30}) plan_item(day, place, 4, 2.5);
    plan(day, 1, 4, 1);
    delete_day_items(day, 4);
    for (const std::size_t place : {1, 29, 30}) {
        EXPECT_EQ(days[day].planned_item[place], 0);
        EXPECT_EQ(day_quantities[day].item_quantity[place], 2.5);
    }
    EXPECT_EQ(days[day].planned_meal[1], 4);
    EXPECT_NE(project_modified, 0);
}

TEST_F(DayPlaces, DeletingWhatIsNotPlannedChangesNothing) {
    fill_places(3);
    delete_day_meal(day, 4);
    delete_day_items(day, 0);
    EXPECT_EQ(find_free_day_meal_place(day), 4);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(DayPlaces, ADayIsEmptyWithoutRecipesAndItems) {
    EXPECT_TRUE(day_is_empty(day));
    plan(day, 30, 1, 1);
    EXPECT_FALSE(day_is_empty(day));
    days[day].planned_meal[30] = 0;
    plan_item(day, 30, 1, 1);
    EXPECT_FALSE(day_is_empty(day));
}

TEST_F(DayPlaces, ADateIsFoundFieldByFieldInAllItsLiveSlots) {
    add_day(3, 6, 2, 2024);
    add_day(9, 6, 2, 2024);
    add_day(4, 2, 6, 2024);
    add_day(5, 6, 2, 2025);
    add_day(6, 6, 2, 2024);
    days[6].in_use = 0;
    add_day(7, 6, 2, 2024);
    days[7].in_use = 2;
    EXPECT_EQ(live_days_of({2024, 6, 2}), (std::vector<i16>{3, 9}));
}

TEST_F(DayPlaces, ADateOfNoCalendarIsFoundByThatDateOnly) {
    add_day(3, 13, 0, 2024);
    EXPECT_EQ(live_days_of({2024, 13, 0}), std::vector<i16>{3});
    EXPECT_TRUE(live_days_of({2024, 12, 31}).empty());
    EXPECT_TRUE(live_days_of({2025, 1, 0}).empty());
}

TEST_F(DayPlaces, SlotsOutsideTheTableHoldNothing) {
    for (const i16 wrong : {i16{-1}, i16{0}, i16{1096}}) {
        EXPECT_EQ(find_free_day_meal_place(wrong), 0);
        EXPECT_EQ(find_free_day_item_place(wrong), 0);
        EXPECT_EQ(find_day_item(1, wrong), 0);
        EXPECT_TRUE(day_is_empty(wrong));
        current_day = wrong;
        EXPECT_EQ(check_for_existing_meal_index(1), 0);
    }
}

TEST_F(DayPlaces, SlotsOutsideTheTableAreFaultsForWhatWrites) {
    for (const i16 wrong : {i16{-1}, i16{0}, i16{1096}}) {
        EXPECT_EQ(fault_of([wrong] { delete_day_meal(wrong, 1); }), 9);
        EXPECT_EQ(fault_of([wrong] { delete_day_items(wrong, 1); }), 9);
        EXPECT_EQ(fault_of([wrong] { day_at(wrong); }), 9);
    }
    for (const i16 wrong : {i16{-1}, i16{0}, i16{31}}) {
        EXPECT_EQ(fault_of([wrong] { place_index(wrong); }), 9);
    }
    EXPECT_EQ(project_modified, 0);
}

}  // namespace
}  // namespace tavernook
