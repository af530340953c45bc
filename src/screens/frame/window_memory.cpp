#include "screens/frame/window_memory.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <string>

#include "core/program_state.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "screens/frame/window_place.h"
#include "screens/parts/guard.h"

namespace tavernook {

namespace {

constexpr const char* settings_section = "Window";

QList<QRect> places_on_screens() {
    QList<QRect> places{QGuiApplication::primaryScreen()->availableGeometry()};
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen != QGuiApplication::primaryScreen()) places.append(screen->availableGeometry());
    }
    return places;
}

// Nothing remembered, in neither place, is the first start.
bool opens_maximised() {
    const std::string stored = settings_store().get(settings_section, "Maximised");
    const bool first_start = stored.empty() && window_geometry == WindowGeometry{};
    return stored == "1" || (first_start && is_small(places_on_screens().first()));
}

}  // namespace

WindowGeometry present_geometry(const QMainWindow& window) {
    if (!window.isMaximized() && !window.isFullScreen() && !window.isMinimized()) {
        return geometry_from_rect(QRect(window.pos(), window.size()));
    }
    const QPoint frame = window.geometry().topLeft() - window.pos();
    const QRect normal = window.normalGeometry();
    return geometry_from_rect(QRect(normal.topLeft() - frame, normal.size()));
}

void place_window(QMainWindow& window, const WindowGeometry& geometry) {
    const QList<QRect> screens = places_on_screens();
    const QRect place = geometry == WindowGeometry{}
                            ? designed_place(screens.first())
                            : reachable_place(rect_from_geometry(geometry), screens);
    window.resize(place.size());
    window.move(place.topLeft());
}

void remember_window(const QMainWindow& window) {
    const auto remember = [&window] {
        const std::string toolbars = window.saveState().toBase64().toStdString();
        settings_store().set(settings_section, "Maximised", window.isMaximized() ? "1" : "0");
        settings_store().set(settings_section, "Toolbars", toolbars);
    };
    guarded(remember, module_message);
}

void restore_window(QMainWindow& window) {
    const auto restore = [&window] {
        const std::string toolbars = settings_store().get(settings_section, "Toolbars");
        if (!toolbars.empty()) {
            window.restoreState(QByteArray::fromBase64(QByteArray::fromStdString(toolbars)));
        }
        if (opens_maximised()) {
            window.setWindowState(window.windowState() | Qt::WindowMaximized);
        }
    };
    guarded(restore, module_message);
}

}  // namespace tavernook
