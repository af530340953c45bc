// What a planned day amounts to.
#pragma once

#include <string>

#include "core/records.h"

namespace tavernook {

struct DayTotals {
    f64 calories = 0;
    f64 fat = 0;
    f64 cost = 0;
    std::string calories_text;  // "#0.0#"
    std::string fat_text;       // "#0.0#" and "g"
    std::string cost_text;      // the currency sign and "##,##0.00"
};

// Reads the tables and changes nothing. Items count with their exact figures, recipes with the
// whole-number figures of their ingredients. Servings in a unit and a recipe's serving size of
// exactly 0 count as 1; a recipe with a negative serving size adds nothing, and so does an entry
// that names no live item or recipe. Fault 11 for an item whose serving size is 0 and whose planned
// quantity is not.
DayTotals day_totals(const DayRecord& day, const DayQuantityRecord& quantities);

// The same for the day that the planner shows: figures of exactly 0 that count as 1 become 1 in the
// tables, for planned items and planned recipes. On a Fault "there has been an error" is shown,
// nothing has changed and the totals are those of an empty day.
DayTotals day_totals_shown(i16 day) noexcept;

}  // namespace tavernook
