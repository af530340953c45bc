// windows-1252 and Unicode. The five bytes that the code page leaves undefined (81, 8D, 8F, 90,
// 9D hex) map to the code points of the same number; a character outside the code page becomes "?".
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

char32_t unicode_from_byte(unsigned char byte);

// False when the code page has no such character; `byte` is then '?'.
bool byte_from_unicode(char32_t character, char& byte);

std::string utf8_from_text(std::string_view text);

// All of it is well-formed; so is plain ASCII.
bool reads_as_utf8(std::string_view text);

// Malformed UTF-8 gives one "?" for each byte that cannot be read.
std::string text_from_utf8(std::string_view utf8);

}  // namespace tavernook
