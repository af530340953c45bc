// Ends a program as soon as a window of it has painted for the first time, without the time that
// taking it all down again would need.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <cstdlib>

namespace tavernook {

class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QObject& window) : QObject(&window) { window.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [] { std::_Exit(0); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace tavernook
