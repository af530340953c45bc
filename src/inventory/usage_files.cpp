#include "inventory/usage_files.h"

#include <algorithm>
#include <string>

#include "core/program_folders.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::size_t digits = 6;
constexpr std::size_t extension_size = 4;

std::string reports_folder() {
    return in_program_folder("reports");
}

std::string in_reports(std::string_view name) {
    return reports_folder() + "/" + std::string(name);
}

std::string saved_name(std::string_view working_name) {
    return std::string(working_name.substr(0, working_name.size() - 3)) + "dat";
}

bool is_usage_file(std::string_view name) {
    if (name.size() < digits + extension_size) return false;
    const std::string_view number = name.substr(name.size() - extension_size - digits, digits);
    return std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool is_orphan(std::string_view name) {
    const int item = usage_file_item(name);
    if (!is_usage_file(name) || item > item_capacity || items[item].in_use != 0) return false;
    return name.substr(0, name.size() - digits - extension_size) == project_stem();
}

}  // namespace

int usage_file_item(std::string_view name) noexcept {
    if (!is_usage_file(name)) return 0;
    return std::stoi(std::string(name.substr(name.size() - extension_size - digits, digits)));
}

void commit_usage_files() {
    for (const std::string& name : files().list(reports_folder(), ".tmp")) {
        if (is_usage_file(name)) files().copy(in_reports(name), in_reports(saved_name(name)));
    }
    remove_orphan_usage_files();
}

void discard_usage_files() {
    for (const std::string& name : files().list(reports_folder(), ".tmp")) {
        files().remove(in_reports(name));
    }
}

void remove_orphan_usage_files() {
    for (const std::string& name : files().list(reports_folder(), ".dat")) {
        if (is_orphan(name)) files().remove(in_reports(name));
    }
}

}  // namespace tavernook
