// What the user does with the ingredients of a recipe: entered by hand, weighed anew, or picked and
// looked up on the item screen.
#pragma once

#include "basics/values.h"
#include "core/changes.h"

namespace tavernook {

// Into any recipe, with the box of the screens where it cannot be. Where there is no such recipe
// they say so and do nothing.
void enter_ingredient(i16 item, f64 quantity, i16 recipe);
void enter_ingredient_quantity(i16 item, f64 quantity, i16 recipe);

// Asks how many servings of the item the recipe takes. Item 0 asks nothing; item or recipe may go
// while the box stands open.
void ask_ingredient_quantity(i16 item, RowRef recipe);

// The item screen comes up and hands over to the recipe manager.
void choose_ingredient();
void open_ingredient(i16 item);  // nothing for item 0

}  // namespace tavernook
