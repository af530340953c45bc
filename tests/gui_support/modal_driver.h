// Answers a modal window from outside, while the code under test waits in it.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>

namespace tavernook {

// A window that nobody answers ends the test by a failure, not by waiting for ever.
inline void close_when_forgotten(QWidget& window) {
    constexpr int patience_ms = 600'000;
    QTimer::singleShot(patience_ms, &window, [] {
        ADD_FAILURE() << "A modal window was left open.";
        for (QWidget* open : QApplication::topLevelWidgets()) {
            if (open->isModal() && open->isVisible()) open->close();
        }
    });
}

// Calls `act` with the next modal window; another kind of window fails the test and is closed.
template <typename Window, typename Act>
void when_modal(Act act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        QWidget* shown = QApplication::activeModalWidget();
        if (auto* window = qobject_cast<Window*>(shown)) {
            close_when_forgotten(*window);
            act(*window);
            return;
        }
        ADD_FAILURE() << "Expected a " << Window::staticMetaObject.className() << ", found "
                      << (shown == nullptr ? "no window" : shown->metaObject()->className());
        if (shown != nullptr) shown->close();
    });
}

inline void press_key(QWidget& receiver, int key, const QString& text = QString()) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(&receiver, &event);
    }
}

// The child of that name and type; the test fails, with an exception, where there is none.
template <typename Child>
Child& child(const QWidget& window, const char* name) {
    auto* found = window.findChild<Child*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no child ") + name);
    return *found;
}

}  // namespace tavernook
