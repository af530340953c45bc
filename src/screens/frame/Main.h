// The main window: menus, toolbars, status bar, the timer pair and the area for the child screens.
// It owns no facts: a command calls a routine of the logic, which answers through ports::Main.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/main_window.h"
#include "screens/frame/screen_registry.h"
#include "screens/frame/timer_pair.h"

class QAction;
class QLabel;
class QToolBar;

namespace tavernook {

class SaveProgress;
class StartPage;
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

    void show_about();
    void tile();
    void cascade();

  Q_SIGNALS:
    // The window has gone for good: the program ends.
    void unloaded();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Busy;

    void set_up_commands();
    void set_up_toolbars();
    void set_up_status_bar();
    void set_up_start_page();

    // One at a time; what stands in the first status panel goes.
    void run(const std::function<void()>& command);
    void run_command(const MainCommand& command);
    void open_recent(int index);
    void open_path(const std::string& path);
    void tell_when_not_opened(const std::string& path);

    void refresh();
    void refresh_title();
    void refresh_commands();
    void refresh_start_page();
    bool child_window_is_open() const;
    void focus_next_pane();

    void first_tick();
    void remember_window();
    void restore_window();

    std::unique_ptr<Ui::Main> ui_;
    std::unique_ptr<ScreenRegistry> registry_;
    SaveProgress* progress_;
    StartPage* start_page_;
    std::array<QLabel*, 3> panels_{};
    std::vector<QAction*> command_actions_;  // in the order of main_commands()
    std::vector<QAction*> recent_actions_;
    std::vector<std::string> recent_paths_;
    TimerPair timers_;
    std::string title_ = "Tavernook";
    bool project_menus_ = false;
    bool project_buttons_ = false;
    int busy_ = 0;
    bool unloading_ = false;
    bool gone_ = false;
};

}  // namespace tavernook
