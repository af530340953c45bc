#include "screens/frame/window_place.h"

#include <algorithm>
#include <limits>

namespace tavernook {

namespace {

constexpr int title_height = 24;   // what can be gripped of a window
constexpr int least_visible = 96;  // so much of its title must be on a screen
constexpr int roomy_width = 1600;  // of a screen

i16 cut_to_i16(int value) {
    using Limits = std::numeric_limits<i16>;
    return static_cast<i16>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

int area(const QRect& rect) {
    return rect.width() * rect.height();
}

bool title_is_on(const QRect& window, const QRect& screen) {
    const QRect title(window.left(), window.top(), window.width(), title_height);
    const QRect seen = title.intersected(screen);
    return seen.height() == title_height && seen.width() >= std::min(least_visible, window.width());
}

// The screen that shows most of the window; the first when none shows any of it.
QRect screen_of(const QRect& window, const QList<QRect>& screens) {
    return *std::max_element(screens.begin(), screens.end(), [&](const QRect& a, const QRect& b) {
        return area(a.intersected(window)) < area(b.intersected(window));
    });
}

QRect moved_into(QRect window, const QRect& screen) {
    window.moveLeft(
        std::clamp(window.left(), screen.left(), screen.left() + screen.width() - window.width()));
    window.moveTop(
        std::clamp(window.top(), screen.top(), screen.top() + screen.height() - window.height()));
    return window;
}

}  // namespace

WindowGeometry geometry_from_rect(const QRect& window) {
    return {.height = cut_to_i16(window.height()),
            .width = cut_to_i16(window.width()),
            .left = cut_to_i16(window.left()),
            .top = cut_to_i16(window.top())};
}

QRect rect_from_geometry(const WindowGeometry& geometry) {
    return {geometry.left, geometry.top, geometry.width, geometry.height};
}

QRect designed_place(const QRect& screen) {
    QRect place(0, 0, screen.width() * 7 / 10, screen.height() * 7 / 10);
    place.moveCenter(screen.center());
    return place;
}

bool is_small(const QRect& screen) {
    return screen.width() < roomy_width;
}

QRect reachable_place(const QRect& wanted, const QList<QRect>& screens) {
    QRect place = wanted;
    if (place.width() <= 0 || place.height() <= 0) {
        place.setSize(designed_place(screens.first()).size());
    }
    const QRect screen = screen_of(place, screens);
    place.setSize(place.size().boundedTo(screen.size()));
    const bool reachable = std::any_of(screens.begin(), screens.end(),
                                       [&](const QRect& one) { return title_is_on(place, one); });
    return reachable ? place : moved_into(place, screen);
}

}  // namespace tavernook
