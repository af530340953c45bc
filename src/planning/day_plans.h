// The calendar of planned days, as the planner uses it. A day stands in the table only when
// something was done to it; opening a date takes a free slot and leaves no trace in it.
//
// The screen is told through its port and may be missing: then the tables change all the same.
// Every routine that changes a plan marks the project as modified. Plans raise no messages of their
// own: what a number outside the tables or a date outside the calendar stops is told by the command
// of the screen, and the headers name the Fault.
#pragma once

#include "basics/values.h"
#include "planning/day_keys.h"
#include "planning/day_places.h"
#include "planning/day_ranges.h"
#include "planning/day_settlement.h"
#include "planning/planner_state.h"

namespace tavernook {

// Makes the selected date's day the current one, true; a date without a day gets a free slot as
// current_day, false, and nothing is written into it. A box warns when that is the last slot, which
// another date may hold. Where a damaged file holds a date twice, the last slot counts.
bool open_day() noexcept;

// The slot that open_day would choose, without a box.
i16 slot_of_selected_date() noexcept;

// Plan on current_day, which becomes the day of the selected date. An entry that is there already
// gets more of it. `servings` times the item's serving size is stored; a recipe's quantity counts
// its servings and is stored as it is. Kept: the 31st entry of a day replaces place 30. Where the
// date would take the last slot, the box of open_day comes first, unless it was shown when the date
// was opened. False, and nothing has changed, for what is no live item or recipe: it may have been
// deleted since it was chosen. Fault 9 for a current_day outside the table; nothing has changed
// then.
bool Add_Item(i16 item, f64 servings);
bool add_meal(i16 recipe, f64 quantity);

// Sets the quantity of the row that is selected in the day list and has the list redrawn. Nothing
// happens without a selected row; the stock is not touched. Fault 9 for a current_day or a place
// outside the tables; nothing has changed then.
void modify_mealplan_qty(f64 quantity);

// Kept: these redraw the list and do nothing else.
void modify_item_qty(i16 item, i16 unused, f64 new_quantity, f64 old_quantity) noexcept;
void modify_meal_qty(i16 unused, i16 unused_too, f64 new_quantity, f64 old_quantity) noexcept;

// Takes the entry of that key off current_day, from all its places, and has the list redrawn. A day
// left empty is deleted. Nothing happens for a key that is none. Fault 9 for a current_day outside
// the table, 6 for a selected date outside the years 1..9999; nothing has changed then.
void remove_day_entry(std::string_view key);

}  // namespace tavernook
