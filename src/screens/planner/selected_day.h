// What the planner knows of the day that it shows: the selected date, the slot that stands for it,
// and whether it has been audited. What asks, only reads, and never throws.
#pragma once

#include <QDate>

#include "basics/values.h"
#include "screens/parts/qt_dates.h"

namespace tavernook {

void select_date(const QDate& date);  // nothing is opened
QDate selected_date();

// current_day is a day of the selected date. Otherwise it is a free slot, or of a full table the
// last one, which is another date's.
bool day_is_held();

// Also where a full table has handed out the last slot, which is another date's audited day.
bool day_is_audited();

// The slot whose plan is on show; 0 where the date has none.
i16 slot_shown();

}  // namespace tavernook
