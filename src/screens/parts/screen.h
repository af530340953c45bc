// A child screen. It owns which record is on show, its commands, and what is asked before it is
// left; its panes own the controls.
//
// A command is a step: `run` carries it out and ends with a look for changes, after which every
// screen in sight follows what has changed, this one too. A screen that comes in sight follows what
// it has missed. A command therefore changes records and says what it has done; it never tells
// another part to draw itself again.
//
//     on_command(ui_->lot_delete, [this] { delete_selected_lot(); });    // in the constructor
//
//     void LotView::follow_changes() {                                   // at the end of each step
//         if (!seen_.is_stale()) return;
//         fill_list();
//         seen_.renew();
//     }
//
// What can go wrong: a command that shows a box runs inside the box's event loop, so that records
// may go meanwhile; what it is about is held as a RowRef and taken anew behind the box. The screen
// itself may go as well: `run` notices and leaves it alone.
#pragma once

#include <QString>
#include <QWidget>
#include <string_view>

#include "screens/parts/guard.h"

class QAbstractButton;
class QAction;

namespace tavernook {

class Screen : public QWidget {
  public:
    explicit Screen(QWidget* parent = nullptr);
    ~Screen() override;

    // The way into every command of the screen, one at a time.
    void run(const Work& command) noexcept;
    bool is_running() const { return steps_.is_running(); }

    // At the end of each step and when the screen comes in sight: draws anew what is stale, then
    // fits the commands. A failure is told once, not at each step, until it works again.
    void follow() noexcept;

  protected:
    // What each screen says of itself. Neither shows a box.
    virtual void follow_changes() {}
    virtual void update_commands() {}

    // `command` runs as a step when the action is triggered or the button clicked.
    void on_command(QAction* action, Work command);
    void on_command(QAbstractButton* button, Work command);

    void showEvent(QShowEvent* event) override;

    // Tab goes round from the last part to the first.
    bool focusNextPrevChild(bool next) override;

  private:
    Steps steps_;
    bool follows_ = true;  // the last time it did
};

// Words for the user where no class of Qt's is at hand to translate them.
QString tr(const char* text);

// In the status bar's message panel. What stood there goes with the next command.
void say(const QString& text);
void say(std::string_view text);  // as the tables hold texts

}  // namespace tavernook
