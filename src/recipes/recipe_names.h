// What the tree of recipes changes besides making and deleting: names, and where a recipe hangs.
// Each tells whether it changed something, and marks the project as modified then.
#pragma once

#include <string_view>

#include "basics/values.h"
#include "core/catagories.h"

namespace tavernook {

bool is_live_meal(i16 slot) noexcept;

// The recipe's category; 0, the root, where that is no recipe category.
i16 home_recipe_catagory(i16 slot) noexcept;

// Blanks around the name go, and what is behind the 32nd letter. An empty name is refused, and so
// is a slot that is not live.
bool rename_meal(i16 slot, std::string_view name) noexcept;

// Category 0 is the root.
bool move_meal(i16 slot, i16 catagory) noexcept;

// The row of a live unit of that name, blanks around it and capitals apart; 0 when there is none.
i16 unit_named(std::string_view name) noexcept;

}  // namespace tavernook
