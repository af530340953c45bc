// Painting that can be measured.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tavernook {

// Paints at once what has changed in the widget's window. By itself a window would wait for the
// display's next frame, and a measurement would often be over before.
inline void paint_changes(QWidget& widget) {
    QApplication::processEvents();
    QEvent due(QEvent::UpdateRequest);
    QApplication::sendEvent(widget.window(), &due);
}

}  // namespace tavernook
