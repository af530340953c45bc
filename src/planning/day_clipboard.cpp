#include "planning/day_clipboard.h"

#include <algorithm>

#include "core/project_data.h"
#include "planning/day_plans.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

void remember_selected_day(bool cut) {
    const Date date = date_from_civil(selected_year, selected_month, selected_day);
    copy_source_day = current_day;
    day_clipboard = {.filled = true, .cut = cut, .first = date, .last = date};
}

// The slot remembered may have been freed or taken by another date meanwhile.
bool find_source() {
    const std::vector<i16> held = live_days_of(civil_from_date(day_clipboard.first));
    if (held.empty()) return false;
    if (std::find(held.begin(), held.end(), copy_source_day) == held.end()) {
        copy_source_day = held.back();
    }
    return true;
}

}  // namespace

void copy_selected_day() {
    remember_selected_day(false);
}

void cut_selected_day() {
    remember_selected_day(true);
}

bool paste_day(Date date) {
    const Date target = date_alone(date);
    if (!day_clipboard.filled || (day_clipboard.cut && target == day_clipboard.first)) return false;
    if (!find_source() || copy_day(target, target, 0) == 0) return false;
    if (day_clipboard.cut) {
        const Date source = day_clipboard.first;
        day_clipboard = DayClipboard{};
        delete_day_of(source);
    } else if (ports::MealPlan* screen = meal_plan(); screen != nullptr) {
        screen->populate_day();
    }
    return true;
}

void delete_day_of(Date date) {
    const CivilDate day = civil_from_date(date);
    for (const i16 slot : live_days_of(day)) {
        if (days[slot].audited != 0) release_audited_day(slot);
    }
    const std::vector<i16> held = live_days_of(day);  // behind the boxes of the settlement
    // Delete_Day empties an audited current_day, which must not be that of another date.
    current_day = held.empty() ? i16{0} : held.back();
    Delete_Day(date, date);
    current_day = slot_of_selected_date();
}

}  // namespace tavernook
