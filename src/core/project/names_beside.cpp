#include "core/project/names_beside.h"

#include "basics/code_page.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "platform/platform.h"

namespace tavernook {

bool has_ending(std::string_view path, std::string_view ending) noexcept {
    return path.size() > ending.size() &&
           lower_case(path.substr(path.size() - ending.size())) == ending;
}

std::string without_ending(std::string_view path, std::string_view ending) noexcept {
    return std::string(path.substr(0, path.size() - ending.size()));
}

std::string shown_file_name(std::string_view path) noexcept {
    return text_from_utf8(file_name_part(path));
}

std::string path_beside(std::string_view project_path, std::string_view kind) noexcept {
    const std::string stem = has_ending(project_path, project_extension)
                                 ? without_ending(project_path, project_extension)
                                 : std::string(project_path);
    return path_with_ending(stem, std::string(kind).append(project_extension));
}

std::string free_path_beside(std::string_view project_path, std::string_view kind) {
    std::string free = path_beside(project_path, kind);
    for (int number = 2; files().is_taken(free); ++number) {
        free = path_beside(project_path, std::string(kind) + " " + std::to_string(number));
    }
    return free;
}

}  // namespace tavernook
