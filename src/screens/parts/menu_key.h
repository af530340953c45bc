// Shift+F10 asks for the context menu of the part that has the focus, as the menu key does by
// itself. What a part makes of the keys goes first.
#pragma once

class QEvent;
class QObject;

namespace tavernook {

// Behind the delivery of each event.
void ask_for_menu_by_keys(QObject& receiver, const QEvent& event);

}  // namespace tavernook
