// What comes from a drag, of this program or another one.
#pragma once

#include <QEvent>

namespace tavernook {

inline bool is_drop(const QEvent& event) {
    return event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove ||
           event.type() == QEvent::Drop;
}

}  // namespace tavernook
