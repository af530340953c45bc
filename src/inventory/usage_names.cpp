#include "inventory/usage_names.h"

#include <algorithm>

#include "basics/number_text.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::size_t digits = 6;
constexpr std::size_t number_and_extension = digits + 4;

bool is_usage_file(std::string_view name) {
    if (name.size() < number_and_extension) return false;
    const std::string_view number = name.substr(name.size() - number_and_extension, digits);
    return std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string reports_folder() {
    return in_program_folder("reports");
}

std::string in_reports(std::string_view name) {
    return reports_folder() + "/" + std::string(name);
}

std::string usage_path(std::string_view stem, i16 item, std::string_view extension) {
    return in_reports(stem) + format_number(item, "000000") + std::string(extension);
}

int usage_file_item(std::string_view name) noexcept {
    if (!is_usage_file(name)) return 0;
    return std::stoi(std::string(name.substr(name.size() - number_and_extension, digits)));
}

std::optional<i16> item_of_usage_file(std::string_view name, std::string_view stem) {
    if (!is_usage_file(name)) return {};
    const int item = usage_file_item(name);
    if (item > item_capacity || name.substr(0, name.size() - number_and_extension) != stem) {
        return {};
    }
    return static_cast<i16>(item);
}

std::string usage_bytes(const std::string& path) {
    if (!files().exists(path)) return {};
    const auto file = files().open(path, OpenMode::read);
    std::string bytes(static_cast<std::size_t>(file->length()), '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

}  // namespace tavernook
