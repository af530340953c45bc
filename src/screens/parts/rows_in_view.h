// A list of numbered rows as the user sees it: what is selected in it, and new rows without the
// user losing his place.
#pragma once

#include <functional>
#include <vector>

#include "screens/parts/rows_model.h"

class QAbstractItemView;

namespace tavernook {

// Around `refill`, which gives the view's model other rows: `row_at` says which row stands at a
// place, before and behind it; one that has gone is no_row. What is still there stays selected and
// current, and the view stays scrolled as it was; the place of a current row that has gone is that
// of the next one. Where `refill` answers false nothing has changed, and so does this.
bool keep_place(QAbstractItemView& view, const std::function<RowId(int place)>& row_at,
                const std::function<bool()>& refill);

// The rows, in the owner's order, with the user's place kept. False when the same rows stand in the
// same order as before.
bool refill_in_place(QAbstractItemView& view, RowsModel& model, std::vector<RowId> rows);

// As the selection holds them, which is not the order in which they stand.
std::vector<RowId> selected_rows(const QAbstractItemView& view, const RowsModel& model);

// Marks these rows beside those that are marked already.
void mark_rows(QAbstractItemView& view, const RowsModel& model,
               const std::function<bool(RowId)>& wanted);

// no_row without one.
RowId current_row(const QAbstractItemView& view, const RowsModel& model);

// Makes the row the current and selected one and brings it into sight. Does nothing, and answers
// so, when it is not in the list.
bool select_row(QAbstractItemView& view, const RowsModel& model, RowId row);

}  // namespace tavernook
