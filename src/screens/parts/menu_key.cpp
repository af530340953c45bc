#include "screens/parts/menu_key.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>

namespace tavernook {

namespace {

void send_menu_event(QWidget& part, const QPoint& place, const QPoint& on_screen) {
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, on_screen);
    QCoreApplication::sendEvent(&part, &menu);
}

void ask_at_row(QAbstractItemView& list) {
    QModelIndex row = list.currentIndex();
    if (!row.isValid()) row = list.selectionModel()->selectedRows().value(0);
    if (row.isValid()) list.scrollTo(row);
    const QPoint place = list.visualRect(row).bottomLeft();
    send_menu_event(list, place, list.viewport()->mapToGlobal(place));
}

}  // namespace

bool are_menu_keys(const QKeyEvent& key) {
    return key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier;
}

void ask_for_menu(QWidget& part) {
    auto* list = qobject_cast<QAbstractItemView*>(&part);
    if (list != nullptr && list->selectionModel() != nullptr) return ask_at_row(*list);
    const QPoint place = part.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    send_menu_event(part, place, part.mapToGlobal(place));
}

void ask_for_menu_by_keys(QObject& receiver, const QEvent& event) {
    if (event.type() != QEvent::KeyPress || event.isAccepted()) return;
    auto* part = qobject_cast<QWidget*>(&receiver);
    if (part == nullptr || part != QApplication::focusWidget()) return;
    if (are_menu_keys(static_cast<const QKeyEvent&>(event))) ask_for_menu(*part);
}

}  // namespace tavernook
