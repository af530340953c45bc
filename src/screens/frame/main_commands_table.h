// Every command of the main window: what it does, and what must be there for it.
#pragma once

#include <span>

namespace tavernook {

class Main;

enum class Needs {
    nothing,
    project,         // as `enable_project_menus` says
    project_button,  // as `set_toolbar_state` says
    child_window,
    another_place  // never met here; the tip tells where the command is
};

struct MainCommand {
    const char* name;    // object name of its action
    void (*run)(Main&);  // nothing for a command that shows a screen
    const char* screen;  // object name of the screen that it shows, or nothing
    Needs needs;
    const char* icon;  // or nothing
    const char* tip;   // one plain sentence
};

// A command with neither a routine nor a known screen is disabled.
std::span<const MainCommand> main_commands();

}  // namespace tavernook
