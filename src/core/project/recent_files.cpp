#include "core/project/recent_files.h"

#include <vector>

#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr const char* section = "Recent Files";
constexpr const char* keys[] = {"RecentFile1", "RecentFile2", "RecentFile3"};

std::string stored_path(const char* key) {
    return settings_store().get(section, key);
}

void copy_key(const char* from, const char* to) {
    const std::string path = stored_path(from);
    if (!path.empty()) settings_store().set(section, to, path);
}

}  // namespace

void load_recent_menu() noexcept {
    trap_in_main("load_recent_menu", [] {
        std::vector<std::string> paths;
        for (const char* key : keys) {
            const std::string path = stored_path(key);
            if (!path.empty()) paths.push_back(path);
        }
        main_window().set_recent_files(paths);
    });
}

void save_recent_project(const std::string& path) noexcept {
    trap_in_module([&] {
        for (const char* key : keys) {
            if (stored_path(key) == path) return;
        }
        copy_key(keys[1], keys[2]);
        copy_key(keys[0], keys[1]);
        settings_store().set(section, keys[0], path);
    });
}

}  // namespace tavernook
