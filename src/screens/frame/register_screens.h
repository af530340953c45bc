// The child screens of the program, and the way from one to another.
#pragma once

#include <QString>

class QWidget;

namespace tavernook {

class Main;

// Tells the main window how each child screen is made; its commands are enabled by that.
void register_screens(Main& main);

// Brings up a child screen by its object name, loading it first. Nothing, and no screen, when the
// program's screens are not there or the name is not known.
QWidget* show_screen(const QString& name);

// The same, but a screen that is not loaded yet stays unseen until it is shown.
QWidget* load_screen(const QString& name);

}  // namespace tavernook
