// The words of a sign, seen in the cell that bears it: between its icon and its figure, or behind
// its name, as far as the column leaves room for them. The cell's own text stays what it is, also
// where it is copied; in a narrow column icon and colour are left, and the tip.
#pragma once

class QAbstractItemView;

namespace tavernook {

// For a list whose rows are a RowsModel: every column with a sign and a description.
void show_sign_words(QAbstractItemView& list);

}  // namespace tavernook
