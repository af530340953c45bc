// The commands of the main window as the user sees them: menus, toolbars and the recent projects.
// Each is enabled when it can be had, and otherwise says in its tip what is missing. What a command
// does is not known here.
#pragma once

#include <QObject>
#include <string>
#include <vector>

class QAction;
class QMainWindow;
class QToolBar;

namespace tavernook {

class ScreenRegistry;
struct MainCommand;

class MainActions : public QObject {
    Q_OBJECT

  public:
    // The actions and the two toolbars are found in the window by their names.
    MainActions(QMainWindow& window, const ScreenRegistry& registry);

    void set_captions(bool shown);

    // Puts away those toolbars that the user has in sight, and brings back the same ones.
    void set_toolbars_shown(bool shown);

    // Paths, newest first; blank ones and those behind the last place are left out.
    void set_recent_files(const std::vector<std::string>& paths);
    const std::vector<std::string>& recent_files() const { return recent_paths_; }

    void allow_project_menus(bool allowed) { project_menus_ = allowed; }
    void allow_project_buttons(bool allowed) { project_buttons_ = allowed; }
    bool are_project_menus_allowed() const { return project_menus_; }

    // Fits every command to what is there.
    void refresh(bool child_window_is_open);

    // From the focus of the window to the next toolbar; false behind the last one.
    bool focus_next_toolbar();

  Q_SIGNALS:
    void command_wanted(const MainCommand& command);
    void recent_wanted(int index);  // from 0

  private:
    void find_commands();
    void find_recent_places();
    void dress_toolbar(QToolBar& bar);
    void show_recent(std::size_t place);
    void refresh_command(std::size_t place, bool child_window_is_open);

    QMainWindow& window_;
    const ScreenRegistry& registry_;
    QToolBar* first_;
    QToolBar* second_;
    std::vector<QToolBar*> put_away_;
    QAction* close_project_;
    std::vector<QAction*> commands_;  // in the order of main_commands()
    std::vector<QAction*> recent_places_;
    std::vector<std::string> recent_paths_;
    bool project_menus_ = false;
    bool project_buttons_ = false;
};

}  // namespace tavernook
