// Waiting for what is about to come: a window to be active, a button to come up again. How long it
// takes is nobody's business; the limit is only there so that what never comes fails one test
// instead of holding up all.
#pragma once

#include <QTest>

namespace tavernook {

inline constexpr int never_ms = 600'000;

template <typename Condition>
bool comes_true(Condition condition) {
    return QTest::qWaitFor(condition, never_ms);
}

inline bool becomes_active(QWidget& window) {
    return QTest::qWaitForWindowActive(&window, never_ms);
}

}  // namespace tavernook
