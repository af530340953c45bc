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

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void catch_up();

    QMdiArea& area_;
    QPointer<QMdiSubWindow> late_;
};

}  // namespace tavernook
