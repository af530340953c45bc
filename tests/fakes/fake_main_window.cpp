#include "fakes/fake_main_window.h"

#include <gtest/gtest.h>

namespace tavernook {

namespace {

const char* on_off(bool on) {
    return on ? "on" : "off";
}

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) all += (all.empty() ? "" : "|") + text;
    return all;
}

}  // namespace

void FakeMain::set_title(std::string_view text) {
    title = text;
    calls_.add("title " + title);
}

void FakeMain::set_status(int panel, std::string_view text) {
    calls_.add("status " + std::to_string(panel) + " " + std::string(text));
    if (panel < 0 || panel >= static_cast<int>(status.size())) {
        ADD_FAILURE() << "The status bar has no panel " << panel;
        return;
    }
    status[static_cast<std::size_t>(panel)] = text;
}

void FakeMain::set_toolbar_state(int mode) {
    if (mode != 1 && mode != 2) ADD_FAILURE() << "No toolbar state " << mode;
    toolbar_state = mode;
    calls_.add("toolbar " + std::to_string(mode));
}

void FakeMain::enable_project_menus(bool enabled) {
    project_menus = enabled;
    calls_.add(std::string("menus ") + on_off(enabled));
}

void FakeMain::set_toolbar_captions(bool shown) {
    captions = shown;
    calls_.add(std::string("captions ") + on_off(shown));
}

void FakeMain::set_recent_files(const std::vector<std::string>& paths) {
    recent_files = paths;
    calls_.add("recent " + joined(paths));
}

void FakeMain::set_geometry(const WindowGeometry& geometry) {
    window = geometry;
    calls_.add("geometry " + std::to_string(geometry.height) + " " +
               std::to_string(geometry.width) + " " + std::to_string(geometry.left) + " " +
               std::to_string(geometry.top));
}

void FakeMain::start_timer_pair() {
    ++timer_pair_starts;
    calls_.add("timer pair");
}

void FakeMain::enable_timer(bool enabled) {
    timer_enabled = enabled;
    calls_.add(std::string("timer ") + on_off(enabled));
}

void FakeMain::show_welcome_dialog() {
    ++welcome_dialogs;
    calls_.add("welcome");
}

void FakeMain::unload() {
    ++unloads;
    calls_.add("unload");
    if (on_unload) on_unload();
}

void FakeMain::end_program() {
    ++program_ends;
    calls_.add("end program");
}

}  // namespace tavernook
