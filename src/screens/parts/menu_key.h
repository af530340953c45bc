// Shift+F10 asks for the context menu of the part that has the focus, as the menu key does by
// itself. What a part makes of the keys goes first. A list or a tree is asked beneath its current
// row, or else the first selected one, which comes in sight; the place is one of its viewport, as
// that of a right click is.
#pragma once

class QEvent;
class QKeyEvent;
class QObject;
class QWidget;

namespace tavernook {

// Behind the delivery of each event.
void ask_for_menu_by_keys(QObject& receiver, const QEvent& event);

// For a part that opens the menu of another one.
bool are_menu_keys(const QKeyEvent& key);
void ask_for_menu(QWidget& part);

}  // namespace tavernook
