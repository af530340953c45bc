#include "core/project/recent_files.h"

#include <algorithm>
#include <vector>

#include "core/project/settings_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::size_t most_recent_entries = 6;  // places in the File menu
constexpr const char* section = "Recent Files";
constexpr const char* last_key = "LastProject";
constexpr const char* keys[] = {"RecentFile1", "RecentFile2", "RecentFile3"};

std::string stored_path(const char* key) {
    return settings_store().get(section, key);
}

using Paths = std::vector<std::string>;

void append_new(Paths& paths, const std::string& path) {
    const bool is_there = std::find(paths.begin(), paths.end(), path) != paths.end();
    if (!path.empty() && !is_there) paths.push_back(path);
}

Paths paths_of_store() {
    Paths paths;
    for (const char* key : keys) append_new(paths, stored_path(key));
    return paths;
}

// None when it cannot be read: the start has told so already, and the store has most of them.
Paths paths_of_settings_file() {
    Paths paths;
    const auto read = [&] {
        const SettingsRecord record = read_settings_file();
        for (std::size_t place = 0; place < static_cast<std::size_t>(record.recent_count);
             ++place) {
            append_new(paths, std::string(record.recent_projects[place].right_trimmed()));
        }
    };
    tried(read);
    return paths;
}

// Both lists are in order, and what stands in both tells how the rest lie to each other: in front
// of such a path comes all that stands in front of it in either list. The store knows a project
// from its opening, the file from its end, so that the store's come first.
Paths merged(const Paths& store, const Paths& file) {
    Paths paths;
    auto next = file.begin();
    for (const std::string& path : store) {
        const auto found = std::find(next, file.end(), path);
        if (found != file.end()) {
            for (; next != found; ++next) append_new(paths, *next);
        }
        append_new(paths, path);
    }
    for (; next != file.end(); ++next) append_new(paths, *next);
    return paths;
}

void copy_key(const char* from, const char* to) {
    const std::string path = stored_path(from);
    if (!path.empty()) settings_store().set(section, to, path);
}

}  // namespace

void load_recent_menu() noexcept {
    trap_in_main("load_recent_menu", [] {
        Paths paths;
        append_new(paths, stored_path(last_key));
        for (const std::string& path : merged(paths_of_store(), paths_of_settings_file())) {
            append_new(paths, path);
        }
        if (paths.size() > most_recent_entries) paths.resize(most_recent_entries);
        main_window().set_recent_files(paths);
    });
}

void note_last_project(const std::string& path) noexcept {
    tried([&] {
        if (!path.empty()) settings_store().set(section, last_key, path);
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
