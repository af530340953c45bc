// The main window, the progress window, the clock and the system of a program that nobody looks at.
// Of the window only the status bar is kept.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace tavernook {

class StillClock : public Clock {
  public:
    Date now() override { return 45427.5; }
    void wait_seconds(double) override {}
};

class FixedInfo : public SystemInfo {
  public:
    std::string program_folder() override { return "/program"; }
    std::string settings_folder() override { return "/settings"; }
    std::string short_date_format() override { return "M/d/yyyy"; }
};

class QuietMain : public ports::Main {
  public:
    std::array<std::string, 5> status;  // by panel

    void set_title(std::string_view) override {}
    void set_status(int panel, std::string_view text) override {
        status.at(static_cast<std::size_t>(panel)) = text;
    }
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

class QuietProgress : public ports::SaveProgress {
  public:
    void load(std::string_view, std::string_view) override {}
    void show() override {}
    void set_label(std::string_view) override {}
    void workbar(int) override {}
    void hide() override {}
    void unload() override {}
};

class QuietLock : public ProjectLock {
  public:
    bool acquire(const std::string&) override { return true; }
    void release(const std::string&) override {}
};

struct QuietPlatform {
    Platform platform() {
        return {.clock = &clock,
                .project_lock = &lock,
                .system_info = &info,
                .save_progress = &progress,
                .main = &main};
    }

    StillClock clock;
    QuietLock lock;
    FixedInfo info;
    QuietProgress progress;
    QuietMain main;
};

}  // namespace tavernook
