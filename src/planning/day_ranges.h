// Whole dates: deleting them and copying a day onto them. Times of day do not count. A range whose
// last date lies before the first holds no date. Ranges raise no messages of their own: more than
// 32767 dates are the failure of the caller.
#pragma once

#include "basics/date.h"
#include "basics/values.h"

namespace tavernook {

// Frees every live slot of the dates. Kept: a current_day that is audited loses its plans, whatever
// its date. The screen shows the selected date anew; the quantities of freed slots stay. Fault 6
// for more than 32767 dates and for dates outside the years 1..9999, 9 for a current_day outside
// the table; nothing has changed then.
void Delete_Day(Date first, Date last, i16 unused = 0);

// Lays the plans of copy_source_day over each date, place by place: what the source leaves empty
// keeps what it held. A date in use is asked about, a free one takes a slot of its own. Returns how
// many dates were copied onto; 0, with nothing changed, when the source is free. A day that goes
// while a box asks about it is left out, and with the source the copying ends. When the copy takes
// the slot that is opened for the selected date, current_day moves to another one. A nonzero
// no_refresh leaves the grid as drawn. Fault 6 and 9 as above.
int copy_day(Date first, Date last, i16 no_refresh);

}  // namespace tavernook
