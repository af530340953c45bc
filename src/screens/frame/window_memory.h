// Where the main window stands, and what comes back of it the next time.
#pragma once

#include "platform/main_window.h"

class QMainWindow;

namespace tavernook {

// The place of the window when it is neither maximised nor minimised.
WindowGeometry present_geometry(const QMainWindow& window);

// To a place that can be reached; all zero is the designed one.
void place_window(QMainWindow& window, const WindowGeometry& geometry);

// Its toolbars, and whether it is maximised, in the user's settings store. A box tells what fails.
// With nothing to restore it is maximised on a small screen.
void remember_window(const QMainWindow& window);
void restore_window(QMainWindow& window);

}  // namespace tavernook
