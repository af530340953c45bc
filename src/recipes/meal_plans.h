// What leaves the planned days together with a recipe: its places, and on wish the stock that its
// servings took.
#pragma once

#include "basics/values.h"
#include "platform/boxes.h"

namespace tavernook {

// Empties every place of a live day that holds the recipe, audited or not; with Yes the stock of
// each place is given back first. The servings of the places stay. Always true. A Fault in the
// figures comes before anything has changed.
bool remove_meal_from_plans(i16 slot, Answer adjust_stock);

// Asks; with Yes it does the work of the quiet one.
void restore_day_meal_stock(i16 slot, i16 day, i16 place);

// Gives each ingredient's share of the place's servings back to the item's lots. Fault 11 for a
// serving size of 0 and an item without servings in a quantity unit, Fault 9 outside the tables;
// nothing has changed then. Stock that finds no empty lot is lost in silence.
void restore_day_meal_stock_quietly(i16 slot, i16 day, i16 place);

}  // namespace tavernook
