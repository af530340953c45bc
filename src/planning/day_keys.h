// The keys of the day list: "m" recipe ":" place, "i" item ":" place. What is no number reads as 0;
// a key with a number that does not fit into 16 bits is none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

std::string meal_key(i16 recipe, i16 place) noexcept;
std::string item_key(i16 item, i16 place) noexcept;

// The number between the first character, whatever it is, and the colon. Nothing without a colon
// behind the first character, and beyond 16 bits.
std::optional<i16> get_index(std::string_view key) noexcept;

// The number behind the colon, whatever the first character is; nothing without a colon, and beyond
// 16 bits.
std::optional<i16> number_behind_colon(std::string_view key) noexcept;

// 0 unless the key is that of a recipe or an item.
i16 get_meal_index(std::string_view key) noexcept;
i16 get_item_index(std::string_view key) noexcept;

// The place; 0 unless the key is that of a recipe or an item.
i16 get_day_meal_index(std::string_view key) noexcept;
i16 get_day_item_index(std::string_view key) noexcept;

}  // namespace tavernook
