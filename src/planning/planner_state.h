// Which day the planner shows and what it remembers between commands. None of it is saved.
#pragma once

#include "basics/date.h"
#include "basics/values.h"

namespace tavernook {

extern i16 current_day;  // slot of `days`, also of one that is only opened; 0 = none yet
extern i16 selected_day;
extern i16 selected_month;
extern i16 selected_year;
extern i16 copy_source_day;           // slot remembered by Copy; 0 = none
extern i16 day_changed;               // -1 = something was planned since the last Delete_Day
extern i16 pending_calendar_refresh;  // -1 = the totals redraw the grid when they are next shown
extern i16 full_table_told;           // -1 = for the date opened a box has told of the last slot

// What Copy and Cut remember; the day itself is copy_source_day.
struct DayClipboard {
    bool filled = false;
    bool cut = false;  // the source goes when it has been pasted
    Date first = 0;    // midnights
    Date last = 0;
};
extern DayClipboard day_clipboard;

// Nothing shown, nothing remembered, as before the planner's first opening.
void reset_planner_state() noexcept;

}  // namespace tavernook
