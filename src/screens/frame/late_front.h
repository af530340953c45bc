// Child windows that come in front while the keyboard is elsewhere. An area can make a child window
// the active one only while its own window is active. One that is shown from a dialog, as the
// welcome dialog does, is made so as soon as the window is active again.
#pragma once

#include <QObject>
#include <QPointer>

class QMdiArea;
class QMdiSubWindow;

namespace tavernook {

class LateFront : public QObject {
  public:
    explicit LateFront(QMdiArea& area);

    // In front now; active now or later. The keyboard goes with it only when it is now.
    void bring(QMdiSubWindow& child);

    // Behind a part of the window that came up behind the child, as the reader of a lesson does:
    // the keyboard stays with that, whatever the child does with it as it becomes active.
    void note_keyboard();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void catch_up();

    QMdiArea& area_;
    QPointer<QMdiSubWindow> late_;
    QPointer<QWidget> focus_;  // noted; none for where the keyboard happens to be
};

}  // namespace tavernook
