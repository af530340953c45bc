#include "planning/day_ranges.h"

#include <algorithm>
#include <string>

#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "planning/day_plans.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

struct DateRange {
    Date first;
    i16 count;

    CivilDate date(i16 n) const { return civil_from_date(first + n); }
};

DateRange range_of(Date first, Date last) {
    civil_from_date(first);
    civil_from_date(last);
    const Date start = date_alone(first);
    return {start, round_to_i16(date_alone(last) - start + 1)};
}

void empty_all_places(DayRecord& day) {
    std::fill(day.planned_meal.begin() + 1, day.planned_meal.end(), i16{0});
    std::fill(day.planned_item.begin() + 1, day.planned_item.end(), i16{0});
}

void free_day(DayRecord& day) {
    day.in_use = 0;
    day.day = 0;
    day.month = 0;
    day.year = 0;
    day.audited = 0;
    empty_all_places(day);
}

bool free_days(const DateRange& range) {
    bool any = false;
    for (i16 n = 0; n < range.count; ++n) {
        for (const i16 slot : live_days_of(range.date(n))) {
            free_day(days[slot]);
            any = true;
        }
    }
    return any;
}

Answer ask_to_copy_over(const CivilDate& date) {
    return boxes().critical("The day of " + std::to_string(date.month) + "/" +
                                std::to_string(date.day) + "/" + std::to_string(date.year) +
                                " is already being used.  Do you want to copy over it?",
                            Buttons::yes_no, "Copy Day", DefaultButton::no);
}

i16 new_day(const CivilDate& date, const RowRef& source) {
    const i16 slot = find_free_day();
    if (source.now() == 0) return 0;
    DayRecord& day = days[slot];
    day.day = to_i16(date.day);
    day.month = to_i16(date.month);
    day.year = to_i16(date.year);
    day.in_use = 1;
    return slot;
}

// The slot to copy onto, 0 when the user keeps the date as it is. A date that is held twice is
// asked about twice; the last slot and the last answer count.
i16 target_of(const CivilDate& date, const RowRef& source) {
    const std::vector<i16> held = live_days_of(date);
    if (held.empty()) return new_day(date, source);
    const RowRef target(Subject::plans, held.back());
    Answer answer = Answer::no;
    for (std::size_t n = 0; n < held.size(); ++n) answer = ask_to_copy_over(date);
    return answer == Answer::yes ? target.now() : i16{0};
}

void lay_over(i16 source, i16 target) {
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 recipe = days[source].planned_meal[place];
        if (recipe == 0) continue;
        days[target].planned_meal[place] = recipe;
        day_quantities[target].meal_servings[place] = day_quantities[source].meal_servings[place];
    }
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 item = days[source].planned_item[place];
        if (item == 0) continue;
        days[target].planned_item[place] = item;
        day_quantities[target].item_quantity[place] = day_quantities[source].item_quantity[place];
    }
}

int copy_onto(const DateRange& range, const RowRef& source) {
    int copied = 0;
    for (i16 n = 0; n < range.count; ++n) {
        const i16 target = target_of(range.date(n), source);
        if (source.now() == 0) break;
        if (target == 0) continue;
        lay_over(source.now(), target);
        ++copied;
    }
    return copied;
}

}  // namespace

void Delete_Day(Date first, Date last, i16) {
    const DateRange range = range_of(first, last);
    DayRecord& shown = days[current_day];
    if (shown.audited == i16_true) empty_all_places(shown);
    project_modified = i16_true;
    const bool any = free_days(range);
    ports::MealPlan* screen = meal_plan();
    if (any && screen != nullptr) {
        screen->reset_day_totals();
        screen->set_day_editable(false);
    }
    if (screen != nullptr) screen->populate_day();
    day_changed = i16_false;
    pending_calendar_refresh = i16_true;
    screen = meal_plan();
    if (screen != nullptr) screen->CalendarUpdate(100);
}

int copy_day(Date first, Date last, i16 no_refresh) {
    if (days[copy_source_day].in_use == 0) return 0;
    const DateRange range = range_of(first, last);
    const bool only_opened = current_day != 0 && days[current_day].in_use == 0;
    project_modified = i16_true;
    const int copied = copy_onto(range, RowRef(Subject::plans, copy_source_day));
    // Otherwise the next entry would take the copy over to the selected date.
    if (only_opened && days[current_day].in_use != 0) current_day = slot_of_selected_date();
    pending_calendar_refresh = i16_true;
    ports::MealPlan* screen = meal_plan();
    if (no_refresh == 0 && screen != nullptr) screen->CalendarUpdate(100);
    return copied;
}

}  // namespace tavernook
