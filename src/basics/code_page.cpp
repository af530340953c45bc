#include "basics/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tavernook {

namespace {

// Bytes 80 to 9F hex; every other byte is the code point of the same number.
constexpr unsigned first_special = 0x80;
constexpr std::array<char32_t, 32> special = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

// The code page has no character beyond three bytes of UTF-8.
void append_utf8(std::string& utf8, char32_t character) {
    const auto append = [&](char32_t byte) { utf8 += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        append(0x80 | (character & 0x3F));
    } else {
        append(0xE0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

struct Sequence {
    std::size_t length;  // 0 when no character can be read
    char32_t character;
};

// How many bytes a sequence with this first byte has; 0 for a byte that can begin none.
std::size_t sequence_length(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// Overlong forms, surrogates and what lies beyond 10FFFF hex are no characters.
bool allowed(char32_t character, std::size_t length) {
    constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    return character >= least[length] && character <= 0x10FFFF && !surrogate;
}

// `utf8` is not empty.
Sequence first_character(std::string_view utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = sequence_length(lead);
    if (length <= 1) return {length, lead};
    if (length > utf8.size()) return {0, 0};
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if ((byte & 0xC0) != 0x80) return {0, 0};
        character = character << 6 | (byte & 0x3FU);
    }
    return {allowed(character, length) ? length : 0, character};
}

}  // namespace

char32_t unicode_from_byte(unsigned char byte) {
    const unsigned place = byte - first_special;  // wraps to a big number below 80 hex
    return place < special.size() ? special[place] : byte;
}

bool byte_from_unicode(char32_t character, char& byte) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        byte = static_cast<char>(character);
        return true;
    }
    const auto place = std::find(special.begin(), special.end(), character);
    if (place == special.end()) {
        byte = '?';
        return false;
    }
    byte = static_cast<char>(first_special + static_cast<unsigned>(place - special.begin()));
    return true;
}

std::string utf8_from_text(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (const char byte : text) {
        append_utf8(utf8, unicode_from_byte(static_cast<unsigned char>(byte)));
    }
    return utf8;
}

bool reads_as_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = first_character(text).length;
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string text_from_utf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const Sequence next = first_character(utf8);
        char byte = '?';
        if (next.length > 0) byte_from_unicode(next.character, byte);
        text += byte;
        utf8.remove_prefix(std::max<std::size_t>(next.length, 1));
    }
    return text;
}

}  // namespace tavernook
