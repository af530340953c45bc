// Finding and emptying: the slots of the table `days` and the places of a day.
#pragma once

#include <cstddef>
#include <vector>

#include "basics/date.h"
#include "basics/values.h"
#include "core/records.h"

namespace tavernook {

// The first free slot. A box warns when the search comes to slot 1095, free or not; that slot is
// then the result and the caller takes it over.
i16 find_free_day() noexcept;

// The same slot without a box.
i16 lowest_free_day() noexcept;

// The live slots of a date, ascending; damaged files hold a date twice. Compared field by field, so
// that a record with a date of no calendar is found by that very date.
std::vector<i16> live_days_of(const CivilDate& date) noexcept;

// The first empty place; 30 when there is none, so that the next entry replaces place 30. 0 for a
// slot outside 1..1095.
i16 find_free_day_meal_place(i16 day) noexcept;
i16 find_free_day_item_place(i16 day) noexcept;

// The place that holds it; 0 when none does, and for a slot outside 1..1095.
i16 find_day_item(i16 item, i16 day) noexcept;
i16 check_for_existing_meal_index(i16 recipe) noexcept;  // on current_day

// Empty every place that holds it; the quantities of the places stay. Fault 9 for a slot outside
// 1..1095.
void delete_day_meal(i16 day, i16 recipe);
void delete_day_items(i16 day, i16 item);

// Nothing is planned on it, or it is none.
bool day_is_empty(i16 day) noexcept;

// The checked steps from numbers to records and array places, for what writes. Fault 9 for slots
// outside 1..1095 and places outside 1..30.
DayRecord& day_at(i16 day);
std::size_t place_index(i16 place);

}  // namespace tavernook
