// The published Code 39 symbology, drawn one pixel a module: a narrow element is one module, a wide
// one three, and a character sixteen with the white gap at its right.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "barcodes/picture.h"
#include "basics/values.h"
#include "core/records.h"

namespace tavernook {

// What is drawn for an item, without the blanks around it, and for a recipe: "tvk" and its slot.
std::string item_code(const ItemRecord& item) noexcept;
std::string recipe_code(i16 recipe) noexcept;

// Bit 15 is the leftmost module; 1 is black. A character that Code 39 does not have is a blank.
std::uint16_t code39_mask(char character) noexcept;

// The characters that are drawn for a text: without trailing blanks, in upper case, between stars.
// A text that begins with a star loses its first and its last character before.
std::string code39_symbol(std::string_view text) noexcept;

// A scanner reads the drawn text as it stands. It does not where the text has small letters, which
// come as capitals, stars, or characters that Code 39 does not have.
bool is_read_back(std::string_view text) noexcept;

// Draws the text centred over the upper half of the picture. False when it is too wide: the user
// was told, and nothing is drawn.
[[nodiscard]] bool draw_code39(std::string_view text, Picture& picture) noexcept;

// The text in a white picture that has room for it, 300 pixels wide at least.
Picture barcode_picture(std::string_view text) noexcept;

// Draws the barcode of an item, or of a recipe ("tvk" and its slot), into "barcode/<number>.bmp" or
// "barcode/m<number>.bmp" under the program's folder and returns that path. Empty when it failed:
// the user was told, and an older picture stays as it was.
[[nodiscard]] std::string save_barcode_picture(i16 number, bool is_meal) noexcept;

}  // namespace tavernook
