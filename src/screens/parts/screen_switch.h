// The way from one child screen to another. Screens never include each other: they ask for one by
// its object name, and talk to it through its port.
#pragma once

#include <QString>

class QWidget;

namespace tavernook {

// Brings up a child screen, loading it first. Nothing, and no screen, when the program's screens
// are not there or the name is not known.
QWidget* show_screen(const QString& name);

// The same, but a screen that is not loaded yet stays unseen until it is shown.
QWidget* load_screen(const QString& name);

// Who can do that: the registry of the main window.
class ScreenSwitch {
  public:
    virtual ~ScreenSwitch() = default;

    // False for a screen that is not known.
    virtual bool show(const QString& name) = 0;
    virtual bool load(const QString& name) = 0;

    // Nothing while the screen is not loaded.
    virtual QWidget* loaded(const QString& name) const = 0;
};

}  // namespace tavernook
