// The selected rows of a list as text for other programs.
#pragma once

#include <QString>

class QAbstractItemView;

namespace tavernook {

// In the order in which they stand, a tab between the visible columns, a line end between rows;
// tabs and line ends inside a text become blanks.
QString selected_rows_text(const QAbstractItemView& view);

// From now on Ctrl+C in the view puts that on the clipboard; without a selection it leaves the
// clipboard alone.
void copy_rows_by_keys(QAbstractItemView& view);

}  // namespace tavernook
