// What an import asks of the outside besides files and boxes: a clock that stands still, folders,
// and windows that nobody looks at.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace tavernook {

class SilentMain : public ports::Main {
  public:
    void set_title(std::string_view) override {}
    void set_status(int, std::string_view) override {}
    void set_toolbar_state(int) override {}
    void enable_project_menus(bool) override {}
    void set_toolbar_captions(bool) override {}
    void set_recent_files(const std::vector<std::string>&) override {}
    WindowGeometry geometry() override { return {}; }
    void set_geometry(const WindowGeometry&) override {}
    void start_timer_pair() override {}
    void enable_timer(bool) override {}
    void show_welcome_dialog() override {}
    void unload() override {}
    void end_program() override {}
};

class SilentProgress : public ports::SaveProgress {
  public:
    void load(std::string_view, std::string_view) override {}
    void show() override {}
    void set_label(std::string_view) override {}
    void workbar(int) override {}
    void hide() override {}
    void unload() override {}
};

class StillClock : public Clock {
  public:
    Date now() override { return 45427.5; }
    void wait_seconds(double) override {}
};

class FixedFolders : public SystemInfo {
  public:
    std::string program_folder() override { return "/program"; }
    std::string settings_folder() override { return "/settings"; }
    std::string short_date_format() override { return "MM/dd/yyyy"; }
};

struct SilentPlatform {
    Platform platform() {
        return {
            .clock = &clock, .system_info = &folders, .save_progress = &progress, .main = &main};
    }

    StillClock clock;
    FixedFolders folders;
    SilentProgress progress;
    SilentMain main;
};

}  // namespace tavernook
