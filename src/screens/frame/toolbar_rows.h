// The rows of the main window's two toolbars: both stand in one where it has room for all their
// buttons, else each in its own, so that as much of the window as can be is left to the screen. A
// toolbar that the user has put elsewhere stays there.
#pragma once

#include <QObject>

class QMainWindow;
class QToolBar;

namespace tavernook {

class ToolbarRows : public QObject {
  public:
    // All three live as long as the window, whose child this is.
    ToolbarRows(QMainWindow& window, QToolBar& first, QToolBar& second);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fit_later();
    void fit();

    QMainWindow& window_;
    QToolBar& first_;
    QToolBar& second_;
    bool will_fit_ = false;
};

}  // namespace tavernook
