#include "basics/file_names.h"

#include <algorithm>
#include <cstdint>

namespace tavernook {

namespace {

bool continues_a_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Bytes that are no UTF-8 are cut anywhere.
std::size_t character_border(std::string_view text, std::size_t at) {
    constexpr std::size_t longest_tail = 3;
    for (std::size_t back = 0; back <= std::min(at, longest_tail); ++back) {
        if (!continues_a_character(text[at - back])) return at - back;
    }
    return at;
}

}  // namespace

// FNV-1a.
std::string name_number(std::string_view name) {
    std::uint32_t hash = 2166136261u;
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619u;
    }
    return std::to_string(hash);
}

std::string shortened_stem(std::string_view stem, std::size_t room) {
    if (stem.size() <= room) return std::string(stem);
    const std::string mark = "~" + name_number(stem);
    const std::size_t kept = room > mark.size() ? room - mark.size() : 0;
    return std::string(stem.substr(0, character_border(stem, kept))) + mark;
}

std::string path_with_ending(std::string_view path, std::string_view ending, std::size_t reserve) {
    const std::size_t name_start = path.rfind('/') + 1;  // 0 where there is no "/"
    const std::size_t room = longest_file_name - ending.size() - reserve;
    return std::string(path.substr(0, name_start)) + shortened_stem(path.substr(name_start), room) +
           std::string(ending);
}

}  // namespace tavernook
