// What the program asks of its main window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// In pixels; all zero means "as designed".
struct WindowGeometry {
    i16 height = 0;
    i16 width = 0;
    i16 left = 0;
    i16 top = 0;
    bool operator==(const WindowGeometry&) const = default;
};

// Panels of the status bar.
inline constexpr int message_panel = 1;
inline constexpr int audit_time_panel = 2;
inline constexpr int activity_panel = 3;

namespace ports {

class Main {
  public:
    virtual ~Main() = default;

    virtual void set_title(std::string_view title) = 0;
    virtual void set_status(int panel, std::string_view text) = 0;

    // Mode 1 disables the project buttons of the toolbars, mode 2 enables them.
    virtual void set_toolbar_state(int mode) = 0;
    virtual void enable_project_menus(bool enabled) = 0;
    virtual void set_toolbar_captions(bool shown) = 0;

    // Paths for the recent entries of the File menu, newest first.
    virtual void set_recent_files(const std::vector<std::string>& paths) = 0;

    virtual WindowGeometry geometry() = 0;
    virtual void set_geometry(const WindowGeometry& geometry) = 0;

    virtual void start_timer_pair() = 0;
    virtual void enable_timer(bool enabled) = 0;
    virtual void show_welcome_dialog() = 0;

    // Asks the window to close; what unloading asks and stores comes before it goes.
    virtual void unload() = 0;

    // Ends the program at once, without asking and without saving.
    virtual void end_program() = 0;
};

// The child screens as a whole.
class Screens {
  public:
    virtual ~Screens() = default;

    virtual void unload_all() = 0;
    virtual void hide_all() = 0;
    virtual void show_meal_plan() = 0;
    virtual void load_food_inventory() = 0;

    // The print preview, in front, with the page that was set last.
    virtual void show_preview() = 0;
};

}  // namespace ports
}  // namespace tavernook
