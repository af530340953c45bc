// Text inside the logic: windows-1252 bytes. Trimming removes blanks (0x20) and nothing else.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// The results of the three trims are views into the argument.
std::string_view trim_left(std::string_view text);
std::string_view trim_right(std::string_view text);
std::string_view trim(std::string_view text);

// Folds A-Z and the accented letters of windows-1252; every other byte stays.
std::string lower_case(std::string_view text);
char lower_case(char letter);

// The part behind the last "/" or "\"; the whole text where there is none.
std::string_view file_name_part(std::string_view path);

// The folder of one of the file system's own paths, where only "/" separates: "/" for a name right
// under it, "." for a bare name.
std::string folder_of(std::string_view path);

}  // namespace tavernook
