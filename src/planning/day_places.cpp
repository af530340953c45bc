#include "planning/day_places.h"

#include <algorithm>
#include <array>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "planning/planner_state.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

using Places = std::array<i16, day_places + 1>;

i16 first_free_place(const Places& places) {
    i16 place = 1;
    while (place < day_places && places[static_cast<std::size_t>(place)] != 0) ++place;
    return place;
}

i16 place_of(const Places& places, i16 wanted) {
    if (wanted == 0) return 0;
    const auto found = std::find(places.begin() + 1, places.end(), wanted);
    return found == places.end() ? i16{0} : to_i16(found - places.begin());
}

void empty_places(Places& places, i16 unwanted) {
    if (place_of(places, unwanted) == 0) return;
    std::replace(places.begin() + 1, places.end(), unwanted, i16{0});
    project_modified = i16_true;
}

bool all_empty(const Places& places) {
    return std::all_of(places.begin() + 1, places.end(), [](i16 held) { return held == 0; });
}

bool is_slot(i16 day) {
    return day >= 1 && day <= day_capacity;
}

bool is_on(const DayRecord& day, const CivilDate& date) {
    return day.in_use == 1 && day.day == date.day && day.month == date.month &&
           day.year == date.year;
}

}  // namespace

DayRecord& day_at(i16 day) {
    if (day < 1) throw Fault(fault_number::subscript_out_of_range);
    return days[day];
}

std::size_t place_index(i16 place) {
    if (place < 1 || place > day_places) throw Fault(fault_number::subscript_out_of_range);
    return static_cast<std::size_t>(place);
}

i16 lowest_free_day() noexcept {
    i16 slot = 1;
    while (slot < day_capacity && days[slot].in_use != 0) ++slot;
    return slot;
}

i16 find_free_day() noexcept {
    const i16 slot = lowest_free_day();
    trap_in_module([slot] {
        if (slot < day_capacity) return;
        boxes().message(
            "No more Days left.  It is recommended that you delete some of the older days to allow "
            "for more days.");
    });
    return slot;
}

std::vector<i16> live_days_of(const CivilDate& date) noexcept {
    std::vector<i16> found;
    for (i16 slot = 1; slot <= day_capacity; ++slot) {
        if (is_on(days[slot], date)) found.push_back(slot);
    }
    return found;
}

i16 find_free_day_meal_place(i16 day) noexcept {
    return is_slot(day) ? first_free_place(days[day].planned_meal) : i16{0};
}

i16 find_free_day_item_place(i16 day) noexcept {
    return is_slot(day) ? first_free_place(days[day].planned_item) : i16{0};
}

i16 find_day_item(i16 item, i16 day) noexcept {
    return place_of(row_or_none(days, day).planned_item, item);
}

i16 check_for_existing_meal_index(i16 recipe) noexcept {
    return place_of(row_or_none(days, current_day).planned_meal, recipe);
}

void delete_day_meal(i16 day, i16 recipe) {
    empty_places(day_at(day).planned_meal, recipe);
}

void delete_day_items(i16 day, i16 item) {
    empty_places(day_at(day).planned_item, item);
}

bool day_is_empty(i16 day) noexcept {
    const DayRecord& record = row_or_none(days, day);
    return all_empty(record.planned_meal) && all_empty(record.planned_item);
}

}  // namespace tavernook
