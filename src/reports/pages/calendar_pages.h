// The week and the month of the planner as pages: "dat/cal.dat" and "dat/calm.dat" filled into
// "dat/cal.htm" and "dat/calm.htm" under the program's folder.
//
// Cell n is 1 to 7 for the days of a week, 1 to 42 for those of a month, whose first cell is the
// Sunday on or before the first. Of each placeholder the first occurrence counts.
//
//   %a% to %g%  names of the days of the week, "Sun" (week only)
//   %n%         day of the month
//   %ctn%       what is planned, a line for each recipe and then for each item
//   %$n%        cost, with the currency sign
//   %fn%        fat, "12.0 g"
//   %cn%        calories, "850 cal"
//   %on%        "out" for a day outside the month shown, else nothing (month only)
//   %title%     the dates of the week; the name of the month with its year
//   %note%      a sentence when nothing is planned, else nothing
//
// The figures are those that the planner shows. Where they cannot be worked out "-" stands; entries
// that name nothing live are passed over; of a date that a damaged file holds twice the last slot
// counts.
#pragma once

#include "basics/date.h"
#include "basics/values.h"

namespace tavernook {

// The week, Sunday first, of the selected date; of today where none is selected. `size` is the
// font size of what is planned. False, after a box, when there is no template or the page cannot
// be written; an older page is as it was then.
[[nodiscard]] bool Build_HTMLCal(i16 size = 1) noexcept;

// The same for the month of the selected date, or of the date given.
[[nodiscard]] bool Build_HTMLCal_Month(i16 size = 1, Date shown = 0) noexcept;

}  // namespace tavernook
