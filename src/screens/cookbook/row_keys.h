// The numbers in the keys of the recipe manager's rows: a category's row + "r", a recipe's slot +
// "c", an ingredient's item + "t". 0 for "root" and for keys of another kind.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

i16 catagory_in_key(std::string_view key);
i16 recipe_in_key(std::string_view key);
i16 item_in_key(std::string_view key);

}  // namespace tavernook
