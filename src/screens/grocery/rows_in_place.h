// New rows in a list, without the user losing his place in it.
#pragma once

#include <vector>

#include "basics/values.h"

class QTreeView;

namespace tavernook {

class ShoppingRowsModel;

// The items, by number. What is still there stays selected and current, and the list stays scrolled
// as it was; the place of a current row that has gone is that of the next one.
void refill_in_place(QTreeView& view, ShoppingRowsModel& model, const std::vector<i16>& items);

}  // namespace tavernook
