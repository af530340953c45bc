// The main window: menus, toolbars, status bar, the timer pair and the area for the child screens.
// It owns no facts: a command calls a routine of the logic, which answers through ports::Main.
//
// A command of its menus, a tick of its timer, its start and its end are steps: one at a time, and
// at the end of each the program looks for what has changed and every screen in sight follows. Its
// parts (the commands as the user sees them, the status bar, the middle) know nothing of each
// other and are told here what has come.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "platform/main_window.h"
#include "screens/frame/main_status_bar.h"
#include "screens/frame/screen_registry.h"
#include "screens/frame/timer_pair.h"
#include "screens/parts/guard.h"

namespace tavernook {

class ChildArea;
class FrontMark;
class MainActions;
class SaveProgress;
struct MainCommand;

namespace Ui {
class Main;
}

class Main : public QMainWindow, public ports::Main {
    Q_OBJECT

  public:
    Main();
    ~Main() override;

    ScreenRegistry& registry() { return *registry_; }
    ChildArea& children() { return *children_; }

    // Asks about everything that would go with the project, edits, scanned codes and what is being
    // printed; false as soon as the user wants to stay.
    [[nodiscard]] bool may_leave_project();
    SaveProgress& progress() { return *progress_; }

    // What comes before the first show. The path of a project or empty.
    void load(const std::string& command_line);

    // As told by `set_title`; the window itself marks unsaved changes with a "*" behind it.
    const std::string& title() const { return title_; }

    void set_title(std::string_view title) override;
    void set_status(int panel, std::string_view text) override;
    void set_toolbar_state(int mode) override;
    void enable_project_menus(bool enabled) override;
    void set_toolbar_captions(bool shown) override;
    void set_recent_files(const std::vector<std::string>& paths) override;
    WindowGeometry geometry() override;
    void set_geometry(const WindowGeometry& geometry) override;
    void start_timer_pair() override { timers_.start(); }
    void enable_timer(bool enabled) override;
    void show_welcome_dialog() override;
    void unload() override;
    void end_program() override;

    // A command, one at a time; what stands in the message panel goes. Windows that belong to this
    // one run theirs so, too.
    void run(const Work& command);

    // The welcome dialog, where the load wanted it: it comes over a window that is in sight.
    void welcome();

    // The keyboard goes into the screen in front, or into the start page.
    void focus_screen();

    void show_about();

  Q_SIGNALS:
    // The window has gone for good: the program ends.
    void unloaded();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    class Busy;

    void connect_parts();

    void run_command(const MainCommand& command);
    void open_recent(int index);
    void open_path(const std::string& path);
    void tell_when_not_opened(const std::string& path);

    void refresh();
    void refresh_title();
    bool is_spoken() const;  // the spoken interface has the window to itself

    void first_tick();
    bool may_close();

    std::unique_ptr<Ui::Main> ui_;
    std::unique_ptr<ScreenRegistry> registry_;
    std::unique_ptr<FrontMark> front_mark_;
    std::unique_ptr<MainStatusBar> status_bar_;
    SaveProgress* progress_;
    MainActions* actions_;
    ChildArea* children_;
    TimerPair timers_;
    std::string title_ = "Tavernook";
    int busy_ = 0;
    bool welcome_wanted_ = false;
    bool unloading_ = false;
    bool gone_ = false;
};

}  // namespace tavernook
