#include "screens/parts/menu_key.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace tavernook {

namespace {

bool are_the_keys(const QEvent& event) {
    if (event.type() != QEvent::KeyPress || event.isAccepted()) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier;
}

}  // namespace

void ask_for_menu_by_keys(QObject& receiver, const QEvent& event) {
    if (!are_the_keys(event)) return;
    auto* part = qobject_cast<QWidget*>(&receiver);
    if (part == nullptr || part != QApplication::focusWidget()) return;
    const QPoint place = part->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, part->mapToGlobal(place));
    QCoreApplication::sendEvent(part, &menu);
}

}  // namespace tavernook
