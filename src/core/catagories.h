// The categories of items and recipes: one table for both, told apart by the type.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

extern i16 current_catagory;    // selected in the tree; 1 after a reset
extern i16 category_edit_mode;  // 0 after a delete

// The first free slot, or the last slot when none is free: the next record then overwrites it.
i16 find_free_catagory() noexcept;

// Type 32 makes a recipe category. Shows it in the tree of its screen. Returns the slot.
i16 new_catagory(std::string_view name, i16 type, i16 parent) noexcept;

// Live, and of items; live, and of recipes.
bool is_item_catagory(i16 row) noexcept;
bool is_recipe_catagory(i16 row) noexcept;

// Where an item of this category is shown: there, or under the first one when it is none.
i16 home_catagory(i16 row) noexcept;

// Blanks around the name go, and what is behind the 32nd letter. A blank name is refused, and so is
// a row that is not live and of that kind. Marks the project as modified where it tells true.
bool rename_catagory(i16 row, std::string_view name) noexcept;
bool rename_recipe_catagory(i16 row, std::string_view name) noexcept;

}  // namespace tavernook
