// Ends a program as soon as a window of it has painted for the first time.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace tavernook {

class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QObject& window) : QObject(&window) { window.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [] { QCoreApplication::exit(0); },
                Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace tavernook
