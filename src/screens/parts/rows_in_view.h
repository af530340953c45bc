// A list of numbered rows as the user sees it: what is selected in it, and new rows without the
// user losing his place.
#pragma once

#include <vector>

#include "screens/parts/rows_model.h"

class QTreeView;

namespace tavernook {

// The rows, in the owner's order. What is still there stays selected and current, and the list
// stays scrolled as it was; the place of a current row that has gone is that of the next one. False
// when the same rows stand in the same order as before.
bool refill_in_place(QTreeView& view, RowsModel& model, std::vector<RowId> rows);

// As the selection holds them, which is not the order in which they stand.
std::vector<RowId> selected_rows(const QTreeView& view, const RowsModel& model);

// no_row without one.
RowId current_row(const QTreeView& view, const RowsModel& model);

// Makes the row the current and selected one and brings it into sight. Does nothing, and answers
// so, when it is not in the list.
bool select_row(QTreeView& view, const RowsModel& model, RowId row);

}  // namespace tavernook
