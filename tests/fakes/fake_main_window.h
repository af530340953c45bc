// The main window and the child screens as records: the last value of each setting, and every call
// in a log that both share ("title X", "status 3 Ready", "toolbar 2", "menus on", "unload all"
// ...).
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/call_log.h"
#include "platform/main_window.h"

namespace tavernook {

class FakeMain : public ports::Main {
  public:
    explicit FakeMain(CallLog& calls) : calls_(calls) {}

    std::string title;
    std::array<std::string, 5> status;  // by panel
    int toolbar_state = 0;              // 0 = never set
    bool project_menus = false;
    bool captions = false;
    std::vector<std::string> recent_files;
    WindowGeometry window;
    bool timer_enabled = false;
    int timer_pair_starts = 0;
    int welcome_dialogs = 0;
    int unloads = 0;
    int program_ends = 0;
    std::function<void()> on_unload;  // runs inside `unload`

    void set_title(std::string_view text) override;
    void set_status(int panel, std::string_view text) override;
    void set_toolbar_state(int mode) override;
    void enable_project_menus(bool enabled) override;
    void set_toolbar_captions(bool shown) override;
    void set_recent_files(const std::vector<std::string>& paths) override;
    WindowGeometry geometry() override { return window; }
    void set_geometry(const WindowGeometry& geometry) override;
    void start_timer_pair() override;
    void enable_timer(bool enabled) override;
    void show_welcome_dialog() override;
    void unload() override;
    void end_program() override;

  private:
    CallLog& calls_;
};

class FakeScreens : public ports::Screens {
  public:
    explicit FakeScreens(CallLog& calls) : calls_(calls) {}

    void unload_all() override { calls_.add("unload all"); }
    void hide_all() override { calls_.add("hide all"); }
    void show_meal_plan() override { calls_.add("show meal plan"); }
    void load_food_inventory() override { calls_.add("load food inventory"); }
    void show_preview() override { calls_.add("show preview"); }

  private:
    CallLog& calls_;
};

}  // namespace tavernook
