// The keys between the parts of the main window: F6 goes from the first toolbar to the second, to
// what is docked beneath them, to the screen in front and around again; F10 opens the first menu.
#pragma once

#include <QObject>

class QMainWindow;

namespace tavernook {

class ChildArea;
class MainActions;

class PaneKeys : public QObject {
  public:
    // All live as long as the window, whose child this is.
    PaneKeys(QMainWindow& window, MainActions& actions, ChildArea& children);

  private:
    void focus_next();
    void open_menus();

    QMainWindow& window_;
    MainActions& actions_;
    ChildArea& children_;
};

}  // namespace tavernook
