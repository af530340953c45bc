#include "screens/frame/toolbar_rows.h"

#include <QEvent>
#include <QMainWindow>
#include <QToolBar>
#include <initializer_list>
#include <utility>

namespace tavernook {

ToolbarRows::ToolbarRows(QMainWindow& window, QToolBar& first, QToolBar& second)
    : QObject(&window), window_(window), first_(first), second_(second) {
    for (QWidget* one : std::initializer_list<QWidget*>{&window, &first, &second}) {
        one->installEventFilter(this);
    }
}

bool ToolbarRows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) fit_later();
    return QObject::eventFilter(watched, event);
}

// A layout that is at work takes no change.
void ToolbarRows::fit_later() {
    if (std::exchange(will_fit_, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { fit(); }, Qt::QueuedConnection);
}

void ToolbarRows::fit() {
    will_fit_ = false;
    const auto stands_on_top = [this](QToolBar& bar) {
        return !bar.isFloating() && window_.toolBarArea(&bar) == Qt::TopToolBarArea;
    };
    if (!stands_on_top(first_) || !stands_on_top(second_)) return;
    const int needed = first_.sizeHint().width() + second_.sizeHint().width();
    const bool in_one_row = needed <= window_.width();
    if (window_.toolBarBreak(&second_) != in_one_row) return;
    if (in_one_row) {
        window_.removeToolBarBreak(&second_);
    } else {
        window_.insertToolBarBreak(&second_);
    }
}

}  // namespace tavernook
