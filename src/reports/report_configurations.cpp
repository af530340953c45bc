#include "reports/report_configurations.h"

#include <algorithm>
#include <utility>

#include "basics/code_page.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::string_view extension = ".rcg";

std::string reports_folder() {
    return in_program_folder("reports");
}

std::string path_of(std::string_view file_name) {
    return reports_folder() + "/" + std::string(file_name);
}

// At most `most` bytes from the start of the file. Throws what the file layer throws.
std::string read_start(const std::string& path, std::size_t most) {
    const auto file = files().open(path, OpenMode::read);
    const auto length = static_cast<std::size_t>(file->length());
    std::string bytes(std::min(length, most), '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

std::string display_name_of(const std::string& file_name) {
    std::string name;
    tried([&] {
        const auto found =
            report_name_in(read_start(path_of(file_name), report_name_offset + ReportName::size));
        if (found) name = found->stored();
    });
    return name;
}

// The oldest first, so that the one just saved is the last.
std::vector<std::string> files_by_age() {
    std::vector<std::string> names = files().list(reports_folder(), extension);
    if (names.size() > most_configurations) names.resize(most_configurations);
    std::vector<std::pair<i64, std::string>> dated;
    for (std::string& name : names) {
        const i64 changed = files().stamp(path_of(name)).changed;
        dated.emplace_back(changed, std::move(name));
    }
    std::sort(dated.begin(), dated.end());
    std::vector<std::string> sorted;
    for (auto& [changed, name] : dated) sorted.push_back(std::move(name));
    return sorted;
}

// As typed; a name of blanks only would be a file without one, so it counts as none.
std::string asked_name(bool is_first) {
    const auto reply = is_first ? boxes().input("Configuration Name", "Configuration Save", "")
                                : boxes().input("Report Name", "Report Save", "");
    const std::string name = reply.value_or("");
    return trim(name).empty() ? std::string() : name;
}

bool may_overwrite() {
    return boxes().message("Do you want to overwrite this saved report?", Buttons::yes_no) ==
           Answer::yes;
}

bool may_delete() {
    return boxes().message("Are you sure that you want to delete this configuration?",
                           Buttons::yes_no) == Answer::yes;
}

}  // namespace

ConfigFile Configurations::numbered(int number) const noexcept {
    const bool known = number >= 1 && number <= static_cast<int>(config_files.size());
    return known ? config_files[static_cast<std::size_t>(number - 1)] : ConfigFile{};
}

std::vector<i16> Configurations::listed() const noexcept {
    std::vector<i16> numbers;
    for (std::size_t place = 0; place < config_files.size(); ++place) {
        if (config_files[place].display_name.empty()) continue;
        numbers.push_back(static_cast<i16>(place + 1));
    }
    return numbers;
}

std::string report_file_name(std::string_view name) noexcept {
    constexpr std::string_view forbidden = "/\\:*?\"<>|";
    std::string stem;
    for (const char letter : trim(name)) {
        const std::size_t place = forbidden.find(letter);
        if (place == std::string_view::npos) {
            stem += letter;
        } else {
            stem.append("_").append(std::to_string(place + 1));
        }
    }
    return shortened_stem(utf8_from_text(stem), longest_stem) + std::string(extension);
}

bool save_report(std::string_view name, const ReportFilter& filter,
                 const ReportLook& look) noexcept {
    return trap_in_screen([&] {
        const std::string path = path_of(report_file_name(name));
        const std::string older =
            files().exists(path) ? read_start(path, longest_report_file) : std::string();
        replace_file(path, encode_report(ReportName(name), filter, look, older));
    });
}

bool load_report(std::string_view file_name, ReportFilter& filter, ReportLook& look) noexcept {
    return tried(
        [&] { decode_report(read_start(path_of(file_name), longest_report_file), filter, look); });
}

void get_configs(Configurations& configurations) noexcept {
    configurations = {};
    tried([&] {
        for (const std::string& file_name : files_by_age()) {
            configurations.config_files.push_back({file_name, display_name_of(file_name)});
        }
    });
}

SavedAs ask_and_save_report(std::string_view shown, const ReportFilter& filter,
                            const ReportLook& look, Configurations& configurations) noexcept {
    SavedAs saved;
    trap_in_screen([&] {
        if (!shown.empty() && may_overwrite()) {
            if (save_report(shown, filter, look)) saved = {std::string(shown), false};
            return;
        }
        const std::string name = asked_name(shown.empty());
        if (name.empty() || !save_report(name, filter, look)) return;
        get_configs(configurations);
        saved = {name, true};
    });
    return saved;
}

bool ask_and_delete_configuration(Configurations& configurations) noexcept {
    bool deleted = false;
    trap_in_screen([&] {
        const ConfigFile chosen = configurations.numbered(configurations.current_config);
        if (chosen.file_name.empty()) {
            boxes().message("No current configuration loaded.");
            return;
        }
        if (!may_delete()) return;
        remove_if_there(path_of(chosen.file_name));
        get_configs(configurations);
        deleted = true;
    });
    return deleted;
}

}  // namespace tavernook
