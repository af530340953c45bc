// What the user has arranged on a screen comes back the next time: splitters, columns with their
// widths and sort, and the size of its window. Kept in the user's settings store under the
// screen's object name; parts without an object name are passed over.
#pragma once

class QWidget;

namespace tavernook {

// Does nothing for what was never stored or no longer fits. Call it when the models stand.
void restore_screen(QWidget& screen);
void remember_screen(QWidget& screen);

// The child window of a screen that has come in sight takes the size that the user has given it, or
// else one that shows all rows of its lists, and stands in the middle of the area; never larger
// than that. Such a size of its own is not remembered, so that it can follow what there is to show.
void give_its_size(QWidget& screen);

// Whether the child window had a size of its own, not the whole area, when it was last open.
bool was_arranged(const QWidget& screen);

}  // namespace tavernook
