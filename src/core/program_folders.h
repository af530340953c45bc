// Where the program's own files live, and the parts of paths. Paths are the file system's bytes.
#pragma once

#include <string>
#include <string_view>

#include "basics/file_names.h"

namespace tavernook {

// The program's folder + separator + name; ends in a separator where the name does.
std::string in_program_folder(std::string_view name) noexcept;

// The project file's name less its last four characters: it prefixes the names of the project's
// own files in the folders of the program, and is shortened where those would be too long to make.
std::string project_stem() noexcept;

// Behind it stand six digits and an extension of up to seven letters, the point included.
inline constexpr std::size_t longest_project_stem = longest_file_name - 13;

// Sets project_path and, from its last part, project_name.
void set_project_path(const std::string& path) noexcept;

}  // namespace tavernook
