// Recipes, which the planner calls meals: the slots of the table `meals` and each one's
// ingredients. A recipe's slot is its identity in plans, keys and file names. Routines that write
// throw Fault 9 for slots outside 1..1000 and items outside 1..10000; nothing has changed then.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// The first free slot. A box warns when the search comes to slot 1000, free or not; that slot is
// then the result and the next recipe overwrites it.
i16 find_free_meal();

// A category of 0 or less leaves the field of the slot as it was and hangs the recipe on the root
// of the tree. The recipe becomes the one that the recipe manager shows, with an empty document.
// Kept: ingredients that an overwritten slot holds stay in it.
void new_meal(std::string_view name, i16 category);

// The lowest live recipe of that name, blanks around it and capitals apart; 0 when there is none.
i16 find_meal_by_name(std::string_view name);

inline constexpr i16 meal_kept_because_planned = 0;
inline constexpr i16 meal_kept_by_user = 1;
inline constexpr i16 meal_deleted = 2;

// One of the three results above. A planned recipe is kept in silence or asked about; with Yes it
// leaves all plans first. Document, serving size and serving unit of the slot stay.
i16 delete_meal(i16 slot, bool keep_if_planned);

// "DAY:" + date + "," for each place of a live day that holds the recipe, in slot order; empty when
// it is not planned.
std::string meal_use_dates(i16 slot);

// Adds to the quantity of an item that the recipe holds already. Fault 9 for a 51st ingredient.
void add_ingredient(i16 item, f64 quantity, i16 slot);

// In every place that holds the item.
void set_ingredient_qty(i16 item, f64 quantity, i16 slot);

// The key is a letter, the item's number and a letter, as in "i17t". An empty one shows a box.
void remove_ingredient(i16 slot, std::string_view key);

// The item's place, 0 when there is none. Kept: only places 1 to 30 are looked at, so that an item
// above them can be entered a second time, as files hold it.
i16 find_ingredient(i16 item, i16 slot);

// The first place without an item. Fault 9 when all 50 are taken.
i16 find_free_ingredient(i16 slot);

// Of live recipes only, in any of the 50 places.
bool meal_uses_item(i16 item, i16 slot);

}  // namespace tavernook
