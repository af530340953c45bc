// Where the program's own files live, and the parts of paths. Paths are the file system's bytes.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// The program's folder + separator + name; ends in a separator where the name does.
std::string in_program_folder(std::string_view name) noexcept;

// The project file's name less its last four characters: it prefixes the names of the project's
// own files in the folders of the program, and is shortened where those would be too long to make.
std::string project_stem() noexcept;

// Sets project_path and, from its last part, project_name.
void set_project_path(const std::string& path) noexcept;

}  // namespace tavernook
