// The categories of items and recipes: one table for both, told apart by the type.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

extern i16 current_catagory;    // selected in the tree; 1 after a reset
extern i16 category_edit_mode;  // 0 after a delete

// The first free slot, or the last slot when none is free: the next record then overwrites it.
i16 find_free_catagory();

// Type 32 makes a recipe category. Shows it in the tree of its screen. Returns the slot.
i16 new_catagory(std::string_view name, i16 type, i16 parent);

// -1 deleted; 0 refused, with a box that says why, or kept by the user. The name and the rows
// beneath stay. The live recipes of a category of any type but 0 go with it, after a question;
// their documents stay. Nothing has changed after 0.
i16 delete_catagory(i16 slot);

}  // namespace tavernook
