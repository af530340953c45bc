// The tutorial over the main window: the welcome dialog "Dialog" and the lesson reader "tut", which
// other screens bring up by these names.
//
// The reader is docked beneath the toolbars, across the whole width: the screens make room for it
// and stay whole. It belongs to no project and stays where it is when one is opened or closed, as
// lessons are about that, too.
#pragma once

#include <QObject>

class QDockWidget;
class QWidget;

namespace tavernook {

class Dialog;
class Main;
class tut;

void add_tutorial(Main& main);

// The reader of the window; nothing when it is not in sight.
QWidget* reader_in_sight(const QWidget& window);

class Tutorial : public QObject {
    Q_OBJECT

  public:
    explicit Tutorial(Main& main);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void show_welcome();
    void show_reader();
    void make_reader();

    // What comes of the command is a project of the welcome dialog.
    void bring_project(bool (*command)());

    Main& main_;
    Dialog* welcome_ = nullptr;
    QDockWidget* dock_ = nullptr;
    tut* reader_ = nullptr;
};

}  // namespace tavernook
