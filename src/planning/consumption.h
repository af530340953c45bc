// What a day takes out of the stock when it is audited, beside what it gives back when an audited
// day is changed (day_settlement). The two do not use the same figures: kept, households' stock has
// always been counted so.
//
//   planned item      item_quantity / (serving_size * servings_per_qty_unit)
//   planned recipe    for each ingredient, ingredient_qty * meal_serving_size /
//                     servings_per_qty_unit, or 1 where that is 0, times meal_servings
//
// An entry takes nothing when it names no live item or recipe, as the entries of a damaged file do,
// or an item without servings in a quantity unit. What the lots cannot give is told by
// remove_from_lots and takes nothing either. The entries behind it go on.
#pragma once

#include "basics/date.h"
#include "core/records.h"

namespace tavernook {

// Live, not audited yet, and of a date before the limit. A day whose three fields are all 0 stands
// for one that is long past; one with a date that no calendar has never comes.
bool is_due(const DayRecord& day, Date limit) noexcept;

// Takes the items of the day in that slot, then its recipes, and marks it as audited. Fault 11 for
// a planned item whose serving size is 0: the day is not marked then, and what it took so far stays
// taken. Fault 9 for a slot outside 1..1095.
void consume_day(i16 slot);

}  // namespace tavernook
