#include "core/program_folders.h"

#include "basics/file_names.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

std::string in_program_folder(std::string_view name) noexcept {
    return system_info().program_folder() + "/" + std::string(name);
}

std::string project_stem() noexcept {
    const std::string name(file_name_part(project_path));
    const std::size_t kept = name.size() > 4 ? name.size() - 4 : 0;
    return shortened_stem(name.substr(0, kept), longest_stem);
}

void set_project_path(const std::string& path) noexcept {
    project_path = path;
    project_name = file_name_part(path);
}

}  // namespace tavernook
