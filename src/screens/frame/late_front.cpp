#include "screens/frame/late_front.h"

#include <QApplication>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMetaObject>
#include <utility>

namespace tavernook {

LateFront::LateFront(QMdiArea& area) : QObject(&area), area_(area) {
    area.installEventFilter(this);
}

void LateFront::bring(QMdiSubWindow& child) {
    area_.setActiveSubWindow(&child);
    const bool is_active = area_.isActiveWindow() && area_.activeSubWindow() == &child;
    late_ = is_active ? nullptr : &child;
    focus_ = nullptr;
    if (!is_active) child.raise();
}

void LateFront::note_keyboard() {
    if (!area_.isActiveWindow()) focus_ = area_.window()->focusWidget();
}

// Later, when the area has heard of it, too.
bool LateFront::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate && late_ != nullptr) {
        QMetaObject::invokeMethod(this, &LateFront::catch_up, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void LateFront::catch_up() {
    QMdiSubWindow* child = std::exchange(late_, nullptr);
    if (child == nullptr || child->isHidden()) return;
    QPointer<QWidget> focus = std::exchange(focus_, nullptr);
    if (focus == nullptr) focus = QApplication::focusWidget();
    area_.setActiveSubWindow(child);
    if (focus != nullptr && !area_.isAncestorOf(focus)) {
        focus->setFocus(Qt::ActiveWindowFocusReason);
    }
}

}  // namespace tavernook
