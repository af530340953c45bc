// The calendar for assistive technology: a table of 42 cells with names, states and an action.
#pragma once

namespace tavernook {

// From the first call on, every CalendarGrid answers.
void install_calendar_access();

}  // namespace tavernook
