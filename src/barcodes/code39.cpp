#include "barcodes/code39.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "basics/text.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr int modules_a_character = 16;
constexpr int modules_of_a_wide_element = 3;
constexpr char start_and_stop = '*';

// Pictures of their own: the white in front of and behind the code is ten modules at least, as
// readers expect it.
constexpr int least_width = 300;
constexpr int quiet_modules = 12;
constexpr int picture_height = 100;

// The symbology's own order: the place in a row decides which two of the five bars are wide, the
// row which of the four spaces is wide. 1 is wide.
struct Row {
    std::string_view characters;
    std::string_view spaces;
};
constexpr Row rows[] = {
    {"1234567890", "0100"}, {"ABCDEFGHIJ", "0010"}, {"KLMNOPQRST", "0001"}, {"UVWXYZ-. *", "1000"}};
constexpr std::string_view bars_of_place[] = {"10001", "01001", "11000", "00101", "10100",
                                              "01100", "00011", "10010", "01010", "00110"};

// The four signs of the full set have narrow bars and three wide spaces.
struct Sign {
    char character;
    std::string_view spaces;
};
constexpr Sign signs[] = {{'$', "1110"}, {'/', "1101"}, {'+', "1011"}, {'%', "0111"}};
constexpr std::string_view narrow_bars = "00000";

// Bars and spaces in turn, and the gap.
constexpr std::uint16_t mask_of(std::string_view bars, std::string_view spaces) {
    unsigned mask = 0;
    const auto append = [&mask](char width, unsigned module) {
        for (int i = width == '1' ? modules_of_a_wide_element : 1; i > 0; --i) {
            mask = mask << 1U | module;
        }
    };
    for (std::size_t i = 0; i < bars.size(); ++i) {
        append(bars[i], 1);
        append(i < spaces.size() ? spaces[i] : '0', 0);
    }
    return static_cast<std::uint16_t>(mask);
}

using Masks = std::array<std::uint16_t, 256>;

constexpr Masks make_masks() {
    Masks masks{};
    for (const Row& row : rows) {
        for (std::size_t place = 0; place < row.characters.size(); ++place) {
            masks[static_cast<unsigned char>(row.characters[place])] =
                mask_of(bars_of_place[place], row.spaces);
        }
    }
    for (const Sign& sign : signs) {
        masks[static_cast<unsigned char>(sign.character)] = mask_of(narrow_bars, sign.spaces);
    }
    for (std::uint16_t& mask : masks) {
        if (mask == 0) mask = masks[' '];
    }
    return masks;
}

constexpr Masks masks = make_masks();

char upper_case(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

int code_width(std::string_view symbol) {
    return static_cast<int>(symbol.size()) * modules_a_character;
}

void draw_character(char character, int left, Picture& picture) {
    const unsigned mask = code39_mask(character);
    for (int module = 0; module < modules_a_character; ++module) {
        const bool is_black = (mask >> (modules_a_character - 1 - module) & 1U) != 0;
        if (is_black) fill_rectangle(picture, left + module, 0, 1, picture.height / 2, black);
    }
}

}  // namespace

std::uint16_t code39_mask(char character) noexcept {
    return masks[static_cast<unsigned char>(character)];
}

std::string item_code(const ItemRecord& item) noexcept {
    return std::string(item.barcode.trimmed());
}

std::string recipe_code(i16 recipe) noexcept {
    return std::string("tvk").append(std::to_string(recipe));
}

std::string code39_symbol(std::string_view text) noexcept {
    text = trim_right(text);
    if (text.starts_with(start_and_stop)) {
        text.remove_prefix(1);
        text = text.substr(0, text.empty() ? 0 : text.size() - 1);
    }
    std::string symbol(text);
    if (!text.starts_with(start_and_stop)) symbol.insert(symbol.begin(), start_and_stop);
    if (!text.ends_with(start_and_stop)) symbol += start_and_stop;
    std::transform(symbol.begin(), symbol.end(), symbol.begin(), upper_case);
    return symbol;
}

// What is no blank and is drawn as one is not of the symbology.
bool is_read_back(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char character) {
        if (character == start_and_stop) return false;
        return character == ' ' || code39_mask(character) != code39_mask(' ');
    });
}

bool draw_code39(std::string_view text, Picture& picture) noexcept {
    const std::string symbol = code39_symbol(text);
    const f64 left = (picture.width - code_width(symbol)) / 2.0 - 1;
    if (left < 0) {
        boxes().warning("The length of the code exceeds control limits.", "Large string");
        return false;
    }
    int x = static_cast<int>(left);
    for (const char character : symbol) {
        draw_character(character, x, picture);
        x += modules_a_character;
    }
    return true;
}

Picture barcode_picture(std::string_view text) noexcept {
    const int needed = code_width(code39_symbol(text)) + 2 * quiet_modules;
    Picture picture = white_picture(std::max(least_width, needed), picture_height);
    static_cast<void>(draw_code39(text, picture));
    return picture;
}

std::string save_barcode_picture(i16 number, bool is_meal) noexcept {
    std::string saved;
    trap_in_module([&] {
        const std::string text = is_meal ? recipe_code(number) : item_code(items[number]);
        std::string path = in_program_folder("barcode/");
        if (is_meal) path += 'm';
        path += std::to_string(number) + ".bmp";
        replace_file(path, windows_bitmap(barcode_picture(text)));
        saved = path;
    });
    return saved;
}

}  // namespace tavernook
