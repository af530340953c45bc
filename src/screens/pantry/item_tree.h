// What the tree of items shows: the items under their categories with their stock and what wants
// attention, found by name, brand or barcode, dragged as "i" and their number.
#pragma once

#include "screens/parts/catagory_tree_model.h"

namespace tavernook {

enum ItemColumn { item_name_column, item_stock_column, item_attention_column };

// Reading the items has two effects on the tables: an item of category 0 moves to category 1, and
// an item that has no lots yet gets its first one.
TreeContents item_tree_contents();

}  // namespace tavernook
