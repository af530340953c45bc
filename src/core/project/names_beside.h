// Names of the files that may lie beside a project "home.tvk": "home.previous.tvk" and others.
// Names that would be too long have their stem shortened (basics/file_names.h).
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

inline constexpr std::string_view project_extension = ".tvk";

// `path` ends so, in capitals or not, and in front of it stands something.
bool has_ending(std::string_view path, std::string_view ending) noexcept;
std::string without_ending(std::string_view path, std::string_view ending) noexcept;

// "home" + `kind` + ".tvk", as ".previous".
std::string path_beside(std::string_view project_path, std::string_view kind) noexcept;

// The same with a number behind the kind where the name is taken ("home.other 2.tvk"). Throws what
// the file layer throws.
std::string free_path_beside(std::string_view project_path, std::string_view kind);

// The last part of a path, as text for the user.
std::string shown_file_name(std::string_view path) noexcept;

}  // namespace tavernook
