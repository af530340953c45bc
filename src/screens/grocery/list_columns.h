// The columns of the shopping list, as `shopping/list_rows` has them.
#pragma once

#include <vector>

#include "screens/parts/rows_model.h"

namespace tavernook {

// All of them are sorted as texts. The amount tells what wants attention.
std::vector<RowsColumn> shopping_list_columns();

}  // namespace tavernook
