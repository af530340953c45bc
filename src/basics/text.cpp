#include "basics/text.h"

namespace tavernook {

std::string_view trim_left(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? text.substr(text.size()) : text.substr(first);
}

std::string_view trim_right(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view trim(std::string_view text) {
    return trim_right(trim_left(text));
}

char lower_case(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    const bool ascii_capital = code >= 'A' && code <= 'Z';
    // 0xD7 is the multiplication sign, which has no lower case.
    const bool accented_capital = code >= 0xC0 && code <= 0xDE && code != 0xD7;
    if (ascii_capital || accented_capital) return static_cast<char>(code + 0x20);
    switch (code) {
        case 0x8A:  // S, Z with caron and OE
        case 0x8C:
        case 0x8E:
            return static_cast<char>(code + 0x10);
        case 0x9F:  // Y with diaeresis
            return static_cast<char>(0xFF);
        default:
            return letter;
    }
}

std::string lower_case(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) letter = lower_case(letter);
    return lower;
}

std::string_view file_name_part(std::string_view path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string folder_of(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return ".";
    return slash == 0 ? "/" : std::string(path.substr(0, slash));
}

}  // namespace tavernook
