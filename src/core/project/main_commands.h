// What the main window's commands and its start and end do. Each traps its own errors: a cancelled
// file dialog is passed over in silence, anything else shows one box. The window only dispatches
// here and shows what comes back through its port.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// The main window's load, once, with the window not yet shown. `command_line` is the path of a
// project or empty.
void main_load(const std::string& command_line) noexcept;

// New Project: asks to save, asks for the file, writes the first file. Cancel changes nothing
// but what saving the old project changed. True when the new project is open.
bool mnuFile_NewProject() noexcept;

void mnuFile_Open() noexcept;

// Open: asks to save, asks for the file, opens it. After a file that cannot be opened the program
// is idle. True when another project is open, which may be the same one read again.
bool main_open() noexcept;

void open_recent_project(const std::string& path) noexcept;

// For a room that brings a project along: asks to save what is open, lets `bring` put the file at
// `path`, which the caller has claimed, and opens it with `name` in the title. Throws nothing:
// what `bring` throws ends in the box of `procedure`, and what is open stays. True when it has
// given way, whether or not the new one could be opened.
bool open_brought_project(std::string_view procedure, const std::string& path,
                          const std::string& name, const std::function<void()>& bring) noexcept;

// Save and Save As do nothing without a project.
void mnuFile_Save() noexcept;

// On failure the project keeps its old path.
void mnuFile_SaveAs() noexcept;

// Asks to save, then closes the project; idle windows stay as they are.
void mnuFile_Close() noexcept;

// Stores the geometry and asks the main window to go.
void mnuFile_Exit() noexcept;

// Everything that must happen before the main window goes; false when the user declined.
[[nodiscard]] bool main_unload() noexcept;

// Asks to save. `may_go_on` and the result are true when the caller may go on. When a wanted save
// fails the result is false and the project stays modified.
bool Project_Modified(bool& may_go_on) noexcept;

// Back to the idle window: tables reset, screens unloaded, menus off. Does not ask.
void project_close() noexcept;

// After a project that could not be opened or made: closed, and not the last one that was open.
void give_up_project() noexcept;

// Loads the item inventory screen.
void init_forms() noexcept;

// Help contents, the help's search, and the page of a screen by its object name; a box when there
// is no help.
void load_help() noexcept;
void load_search() noexcept;
void load_help_on(const std::string& screen) noexcept;

}  // namespace tavernook
