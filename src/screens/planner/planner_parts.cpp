#include "screens/planner/planner_parts.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTreeView>

#include "screens/parts/list_parts.h"

namespace tavernook {

namespace {

class FirstRowMarker : public QObject {
  public:
    explicit FirstRowMarker(QTreeView& list) : QObject(&list), list_(list) {
        list.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool entered = event->type() == QEvent::FocusIn &&
                             static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason;
        if (entered && !list_.selectionModel()->hasSelection()) {
            list_.setCurrentIndex(list_.model()->index(0, 0));
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    QTreeView& list_;
};

}  // namespace

void ask_for_menu(QWidget& part) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), part.mapToGlobal(QPoint()));
    QApplication::sendEvent(&part, &event);
}

void open_menu_by_keys(QWidget& part) {
    on_keys(part, QKeySequence(Qt::SHIFT | Qt::Key_F10), [&part] { ask_for_menu(part); });
}

void mark_first_row_when_entered(QTreeView& list) {
    new FirstRowMarker(list);
}

}  // namespace tavernook
