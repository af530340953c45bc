// What comes from a drag, of this program or another one.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>

namespace tavernook {

// As long as it lives, whatever is dropped on the program is refused: a drop reaches its window
// even behind a modal one, and would begin work within the work that goes on.
class DropsRefused : public QObject {
  public:
    DropsRefused() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::DragEnter:
            case QEvent::DragMove:
            case QEvent::Drop:
                event->ignore();
                return true;
            default:
                return QObject::eventFilter(watched, event);
        }
    }
};

}  // namespace tavernook
