#include "planning/day_plans.h"

#include <vector>

#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

CivilDate selected_civil_date() {
    return {selected_year, selected_month, selected_day};
}

void redraw_list() {
    ports::MealPlan* screen = meal_plan();
    if (screen != nullptr) screen->populate_days_Meals_Items();
}

// The slot opened for a date may have become the last one since, by plans of other dates.
void tell_of_last_slot() {
    const bool has_none = live_days_of(selected_civil_date()).empty();
    if (!has_none || current_day != day_capacity || full_table_told != 0) return;
    current_day = find_free_day();
    full_table_told = truth(current_day == day_capacity);
}

// Whether it is still there behind the box that may come.
bool may_enter(Subject table, i16 number) {
    const RowRef entry(table, number);
    if (entry.now() == 0) return false;
    day_at(current_day);
    tell_of_last_slot();
    return entry.now() != 0;
}

// What follows every entry: stamping the date is what makes a day of a slot that was only opened.
void keep_entry(DayRecord& day) {
    day_changed = i16_true;
    project_modified = i16_true;
    day.day = selected_day;
    day.month = selected_month;
    day.year = selected_year;
    day.in_use = 1;
    pending_calendar_refresh = i16_true;
    ports::MealPlan* screen = meal_plan();
    if (screen != nullptr) screen->set_day_editable(true);
    redraw_list();
}

void put_entry(i16& held, f64& held_quantity, i16 entry, f64 quantity) {
    held_quantity = held == entry ? held_quantity + quantity : quantity;
    held = entry;
}

}  // namespace

i16 slot_of_selected_date() noexcept {
    const std::vector<i16> held = live_days_of(selected_civil_date());
    return held.empty() ? lowest_free_day() : held.back();
}

bool open_day() noexcept {
    const std::vector<i16> held = live_days_of(selected_civil_date());
    current_day = held.empty() ? find_free_day() : held.back();
    full_table_told = truth(held.empty() && current_day == day_capacity);
    return !held.empty();
}

bool Add_Item(i16 item, f64 servings) {
    if (!may_enter(Subject::items, item)) return false;
    DayRecord& day = day_at(current_day);
    i16 place = find_day_item(item, current_day);
    if (place == 0) place = find_free_day_item_place(current_day);
    const std::size_t at = place_index(place);
    put_entry(day.planned_item[at], day_quantities[current_day].item_quantity[at], item,
              items[item].serving_size * servings);
    keep_entry(day);
    return true;
}

bool add_meal(i16 recipe, f64 quantity) {
    if (!may_enter(Subject::recipes, recipe)) return false;
    DayRecord& day = day_at(current_day);
    i16 place = check_for_existing_meal_index(recipe);
    if (place == 0) place = find_free_day_meal_place(current_day);
    const std::size_t at = place_index(place);
    put_entry(day.planned_meal[at], day_quantities[current_day].meal_servings[at], recipe,
              quantity);
    keep_entry(day);
    return true;
}

void modify_mealplan_qty(f64 quantity) {
    ports::MealPlan* screen = meal_plan();
    const std::string key = screen == nullptr ? "" : screen->selected_day_key();
    const std::optional<i16> place = number_behind_colon(key);
    if (!place) return;
    day_at(current_day);
    DayQuantityRecord& quantities = day_quantities[current_day];
    const std::size_t at = place_index(*place);
    (key.starts_with('i') ? quantities.item_quantity[at] : quantities.meal_servings[at]) = quantity;
    project_modified = i16_true;
    redraw_list();
}

void modify_item_qty(i16, i16, f64, f64) noexcept {
    redraw_list();
}

void modify_meal_qty(i16, i16, f64, f64) noexcept {
    redraw_list();
}

void remove_day_entry(std::string_view key) {
    if (!get_index(key)) return;
    const Date date = date_from_civil(selected_year, selected_month, selected_day);
    delete_day_meal(current_day, get_meal_index(key));
    delete_day_items(current_day, get_item_index(key));
    redraw_list();
    if (day_is_empty(current_day)) Delete_Day(date, date);
}

}  // namespace tavernook
