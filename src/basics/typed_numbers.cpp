#include "basics/typed_numbers.h"

#include <algorithm>
#include <cmath>

#include "basics/number_text.h"
#include "basics/text.h"

namespace tavernook {

namespace {

bool is_digit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool is_letter(char letter) {
    const char lower = lower_case(letter);
    return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(letter) >= 0xC0U;
}

// Where the leading number ends; 0 when there is none.
std::size_t number_length(std::string_view text) {
    std::size_t end = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    bool digits = false;
    bool point = false;
    for (; end < text.size(); ++end) {
        if (is_digit(text[end])) {
            digits = true;
        } else if (text[end] == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    return digits ? end : 0;
}

}  // namespace

std::string with_decimal_point(std::string_view typed) noexcept {
    std::string text(typed);
    const std::size_t comma = text.find(',');
    const bool alone = comma != std::string::npos && text.rfind(',') == comma &&
                       text.find('.') == std::string::npos;
    if (alone && comma + 1 < text.size() && is_digit(text[comma + 1])) text[comma] = '.';
    return text;
}

std::optional<double> typed_number(std::string_view typed) noexcept {
    const std::string text = with_decimal_point(trim(typed));
    const std::size_t length = number_length(text);
    if (length == 0 || length != text.size()) return std::nullopt;
    const double number = leading_number(text);
    return std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

bool reads_as_number(std::string_view typed) noexcept {
    const std::string normal = with_decimal_point(trim(typed));
    if (normal.empty()) return true;
    const std::size_t end = number_length(normal);
    if (end == 0) return false;
    const std::string_view rest = trim(std::string_view(normal).substr(end));
    return rest.empty() || (is_letter(rest[0]) && std::none_of(rest.begin(), rest.end(), is_digit));
}

}  // namespace tavernook
