#include "planning/day_keys.h"

#include "basics/number_text.h"

namespace tavernook {

namespace {

constexpr char meal_letter = 'm';
constexpr char item_letter = 'i';

std::string key_of(char letter, i16 number, i16 place) {
    return letter + std::to_string(number) + ":" + std::to_string(place);
}

std::size_t colon_of(std::string_view key) {
    return key.find(':', 1);
}

std::optional<i16> number_in(std::string_view text) {
    const f64 number = leading_number(text);
    if (!(number > -32768.5 && number < 32767.5)) return std::nullopt;
    return round_to_i16(number);
}

}  // namespace

std::string meal_key(i16 recipe, i16 place) noexcept {
    return key_of(meal_letter, recipe, place);
}

std::string item_key(i16 item, i16 place) noexcept {
    return key_of(item_letter, item, place);
}

std::optional<i16> get_index(std::string_view key) noexcept {
    const std::size_t colon = colon_of(key);
    if (colon == std::string_view::npos) return std::nullopt;
    return number_in(key.substr(1, colon - 1));
}

std::optional<i16> number_behind_colon(std::string_view key) noexcept {
    const std::size_t colon = colon_of(key);
    if (colon == std::string_view::npos) return std::nullopt;
    return number_in(key.substr(colon + 1));
}

i16 get_meal_index(std::string_view key) noexcept {
    return key.starts_with(meal_letter) ? get_index(key).value_or(0) : i16{0};
}

i16 get_item_index(std::string_view key) noexcept {
    return key.starts_with(item_letter) ? get_index(key).value_or(0) : i16{0};
}

i16 get_day_meal_index(std::string_view key) noexcept {
    return key.starts_with(meal_letter) ? number_behind_colon(key).value_or(0) : i16{0};
}

i16 get_day_item_index(std::string_view key) noexcept {
    return key.starts_with(item_letter) ? number_behind_colon(key).value_or(0) : i16{0};
}

}  // namespace tavernook
