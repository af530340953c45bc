// What leaves the planned days together with a recipe: its places, and on wish the stock that its
// servings took.
#pragma once

#include "basics/values.h"
#include "platform/boxes.h"

namespace tavernook {

// Empties every place of a live day that holds the recipe, audited or not; with Yes the stock of
// each place is given back first. The servings of the places stay. False, with a box and nothing
// changed, where an amount cannot be worked out.
bool remove_meal_from_plans(i16 slot, Answer adjust_stock) noexcept;

// Asks; with Yes it does the work of the quiet one, unless recipe or day have gone by then. Asks
// nothing for a recipe that is none.
bool restore_day_meal_stock(i16 slot, i16 day, i16 place) noexcept;

// Gives each ingredient's share of the place's servings back to the item's lots. False, with a box
// and nothing changed, for a serving size of 0, an item without servings in a quantity unit, and a
// day or place outside the tables. A recipe or an ingredient that names none gives nothing back.
// Stock that finds no empty lot is lost in silence.
bool restore_day_meal_stock_quietly(i16 slot, i16 day, i16 place) noexcept;

}  // namespace tavernook
