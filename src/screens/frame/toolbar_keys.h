// The keys while a button of a toolbar has the focus.
//
// Left and Right (Up and Down do the same) go along the toolbar and stop at its ends; Enter presses
// the button, as Space does; Escape leads back to the screen in front. Ctrl+Tab changes the screen
// as it does inside one. Letters, digits and the full stop are the screen's, as a scanner may be
// typing: they go there, and the focus with them. Where no screen is open nobody takes a code; then
// the Enter that ends it presses nothing.
#pragma once

#include <QObject>
#include <vector>

class QKeyEvent;
class QToolBar;
class QToolButton;

namespace tavernook {

class ChildArea;

// Those that can take the focus, from the toolbar's beginning; at its end the one that shows what
// has no room.
std::vector<QToolButton*> buttons_in_reach(const QToolBar& bar);

class ToolbarKeys : public QObject {
  public:
    // The toolbars are filled, and all of them live as long as the parent.
    ToolbarKeys(const std::vector<QToolBar*>& bars, ChildArea& children, QObject* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool take_press(QToolButton& button, QKeyEvent& key);
    void press(QToolButton& button, const QKeyEvent& key);

    ChildArea& children_;
    bool code_has_begun_ = false;  // that nobody takes
};

}  // namespace tavernook
