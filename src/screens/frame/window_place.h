// Where a window may stand. Rectangles are in pixels of the desktop.
#pragma once

#include <QList>
#include <QRect>

#include "platform/main_window.h"

namespace tavernook {

// The window as stored; numbers outside an i16 are cut to its range.
WindowGeometry geometry_from_rect(const QRect& window);
QRect rect_from_geometry(const WindowGeometry& geometry);

// About 70 % of the screen, in its middle.
QRect designed_place(const QRect& screen);

// A part of it would be too little for the window.
bool is_small(const QRect& screen);

// `wanted`, moved and shrunk as far as is needed for the user to get hold of its title on one of
// the `screens`, of which there is at least one. A wanted rectangle without a size takes the
// designed one.
QRect reachable_place(const QRect& wanted, const QList<QRect>& screens);

}  // namespace tavernook
