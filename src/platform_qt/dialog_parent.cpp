#include "platform_qt/dialog_parent.h"

#include <QApplication>
#include <QWidget>

namespace tavernook {

QWidget* dialog_parent() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowType() == Qt::Window && window->isVisible()) return window;
    }
    return nullptr;
}

}  // namespace tavernook
