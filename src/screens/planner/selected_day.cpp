#include "screens/planner/selected_day.h"

#include "core/project_data.h"
#include "core/rows.h"
#include "planning/planner_state.h"

namespace tavernook {

void select_date(const QDate& date) {
    selected_day = to_i16(date.day());
    selected_month = to_i16(date.month());
    selected_year = to_i16(date.year());
}

QDate selected_date() {
    return {selected_year, selected_month, selected_day};
}

bool day_is_held() {
    const DayRecord& day = row_or_none(days, current_day);
    return day.in_use == 1 && day.day == selected_day && day.month == selected_month &&
           day.year == selected_year;
}

bool day_is_audited() {
    const DayRecord& day = row_or_none(days, current_day);
    return day.in_use == 1 && day.audited != 0;
}

i16 slot_shown() {
    return day_is_held() ? current_day : i16{0};
}

}  // namespace tavernook
