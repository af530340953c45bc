// Names of files that are made of another file's name. No name grows longer than file systems take
// (255 bytes): a long stem is cut between two characters, and a number of its own tells it from
// others that start alike. Names are the file system's own bytes (UTF-8).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavernook {

inline constexpr std::size_t longest_file_name = 255;

// Behind such a stem there is room for six digits and an extension of seven bytes with its point.
inline constexpr std::size_t longest_stem = longest_file_name - 13;

// A number in decimal digits, ten at most: the same for a name at all times and on all systems.
std::string name_number(std::string_view name);

// The stem as it is where it has at most `room` bytes, else cut to that many, number included.
std::string shortened_stem(std::string_view stem, std::size_t room);

// The path with the ending behind its last part, which is shortened where the name would not leave
// `reserve` bytes for what others put behind it.
std::string path_with_ending(std::string_view path, std::string_view ending,
                             std::size_t reserve = 0);

}  // namespace tavernook
