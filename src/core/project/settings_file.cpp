#include "core/project/settings_file.h"

#include <algorithm>

#include "core/program_state.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// Bytes behind the last field are kept up to this size.
constexpr std::size_t most_settings_bytes = 65536;

std::string read_settings_bytes() {
    if (!files().exists(settings_file)) return {};
    const auto file = files().open(settings_file, OpenMode::read);
    std::string bytes(most_settings_bytes, '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

template <typename Change>
void change_settings(Change&& change) {
    if (settings_file.empty()) return;  // the main window has not been loaded
    const std::string bytes = read_settings_bytes();
    SettingsRecord record = decode_settings(bytes);
    if (change(record)) replace_file(settings_file, encode_settings(record, bytes));
}

bool belongs_in_the_list(const std::string& path) {
    return !path.empty() && path.find("restored") == std::string::npos && path.ends_with("tvk") &&
           path.size() <= recent_path_size;
}

bool put_on_top(SettingsRecord& record, const std::string& path) {
    auto& recent = record.recent_projects;
    const FixedString<recent_path_size> entry = path;
    if (std::find(recent.begin(), recent.end(), entry) != recent.end()) return false;
    std::move_backward(recent.begin(), recent.end() - 1, recent.end());
    recent.front() = entry;
    record.recent_count = std::min<i16>(to_i16(record.recent_count + 1), recent_project_places);
    return true;
}

}  // namespace

SettingsRecord read_settings_file() {
    return decode_settings(read_settings_bytes());
}

void save_window_state() noexcept {
    trap_in_main("save_window_state", [] {
        change_settings([](SettingsRecord& record) {
            record.hide_welcome_dialog = hide_welcome_dialog;
            record.geometry = window_geometry;
            return true;
        });
    });
}

void load_window_state() noexcept {
    trap_in_main("load_window_state", [] {
        const SettingsRecord record = read_settings_file();
        hide_welcome_dialog = record.hide_welcome_dialog;
        window_geometry = record.geometry;
    });
}

void add_recent_project(const std::string& path) noexcept {
    if (!belongs_in_the_list(path)) return;
    trap_in_main("add_recent_project", [&] {
        change_settings([&](SettingsRecord& record) { return put_on_top(record, path); });
    });
}

}  // namespace tavernook
