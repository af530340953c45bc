// Recipes, which the planner calls meals: the slots of the table `meals` and each one's
// ingredients. A recipe's slot is its identity in plans, keys and file names. Routines that write
// show a box for slots outside 1..1000 and items outside 1..10000; nothing has changed then.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// The first free slot. A box warns when the search comes to slot 1000, free or not; that slot is
// then the result and the next recipe overwrites it.
i16 find_free_meal() noexcept;

// A category of 0 or less leaves the field of the slot as it was and hangs the recipe on the root
// of the tree. The recipe becomes the one that the recipe manager shows, with an empty document.
// Kept: ingredients that an overwritten slot holds stay in it.
void new_meal(std::string_view name, i16 category) noexcept;

// The lowest live recipe of that name, blanks around it and capitals apart; 0 when there is none.
i16 find_meal_by_name(std::string_view name) noexcept;

inline constexpr i16 meal_kept_because_planned = 0;
inline constexpr i16 meal_kept_by_user = 1;
inline constexpr i16 meal_deleted = 2;

// One of the three results above. A planned recipe is kept in silence or asked about; with Yes it
// leaves all plans first. Document, serving size and serving unit of the slot stay. A slot that is
// none, and stock whose amount cannot be worked out, show a box; the recipe counts as kept by the
// user then, and nothing has changed.
i16 delete_meal(i16 slot, bool keep_if_planned) noexcept;

// "DAY:" + date + "," for each place of a live day that holds the recipe, in slot order; empty when
// it is not planned.
std::string meal_use_dates(i16 slot) noexcept;

// Adds to the quantity of an item that the recipe holds already. False, with a box, for a 51st
// ingredient as well.
bool add_ingredient(i16 item, f64 quantity, i16 slot) noexcept;

// In every place that holds the item. False when a box was shown.
bool set_ingredient_qty(i16 item, f64 quantity, i16 slot) noexcept;

// The key is a letter, the item's number and a letter, as in "i17t". False when a box was shown: an
// empty key asks for a selection.
bool remove_ingredient(i16 slot, std::string_view key) noexcept;

// The item's place, 0 when there is none. Kept: only places 1 to 30 are looked at, so that an item
// above them can be entered a second time, as files hold it.
i16 find_ingredient(i16 item, i16 slot) noexcept;

// The first place without an item; 0 when all 50 are taken.
i16 find_free_ingredient(i16 slot) noexcept;

// Of live recipes only, in any of the 50 places.
bool meal_uses_item(i16 item, i16 slot) noexcept;

}  // namespace tavernook
