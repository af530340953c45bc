#include "basics/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "basics/fault.h"
#include "basics/text.h"

namespace tavernook {

namespace {

constexpr std::string_view placeholders = "#0";
constexpr std::string_view digit_characters = "0123456789";

bool is_placeholder(char character) {
    return character == '#' || character == '0';
}

// The value 0.DIGITS times ten to the power of `point`. No zeros at the end; none at all for 0.
struct Decimal {
    bool negative;
    std::string digits;
    int point;
};

void drop_zeros_at_the_end(std::string& digits) {
    digits.erase(digits.find_last_not_of('0') + 1);
}

// The fewest digits that read back the same double, taken from a text like "-1.25e+22". `value`
// is finite.
Decimal shortest_decimal(double value) {
    char buffer[32];
    const std::to_chars_result end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
    std::string_view text(buffer, static_cast<std::size_t>(end.ptr - buffer));

    Decimal decimal{text.front() == '-', {}, 0};
    if (decimal.negative) text.remove_prefix(1);
    const std::size_t mark = text.find('e');
    decimal.digits = text.front();
    if (mark > 1) decimal.digits += text.substr(2, mark - 2);
    std::string_view exponent = text.substr(mark + 1);
    if (exponent.front() == '+') exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.point);
    ++decimal.point;
    drop_zeros_at_the_end(decimal.digits);
    return decimal;
}

// In between, the digits of std::to_chars without an exponent are the shortest ones, and few.
constexpr double plain_from = 1e-5;
constexpr double plain_below = 1e15;

std::string plain_text(double value) {
    char buffer[32];
    const std::to_chars_result end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return std::string(buffer, end.ptr);
}

// Half away from zero.
void round_to_places(Decimal& decimal, int places) {
    std::string& digits = decimal.digits;
    const int kept = decimal.point + places;
    if (kept >= static_cast<int>(digits.size())) return;
    if (kept < 0) {
        digits.clear();
        return;
    }
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    if (up) {
        // What is cut here are nines that become zeros.
        digits.erase(digits.find_last_not_of('9') + 1);
        if (digits.empty()) {
            digits.push_back('1');
            ++decimal.point;
        } else {
            ++digits.back();
        }
    }
    drop_zeros_at_the_end(digits);
}

// Nothing for a value below 1.
std::string integer_digits(const Decimal& decimal) {
    if (decimal.digits.empty() || decimal.point <= 0) return {};
    const auto count = static_cast<std::size_t>(decimal.point);
    std::string digits = decimal.digits.substr(0, count);
    digits.append(count - digits.size(), '0');
    return digits;
}

std::string fraction_digits(const Decimal& decimal) {
    if (decimal.digits.empty()) return {};
    if (decimal.point < 0) {
        return std::string(static_cast<std::size_t>(-decimal.point), '0') + decimal.digits;
    }
    const auto point = static_cast<std::size_t>(decimal.point);
    return point < decimal.digits.size() ? decimal.digits.substr(point) : std::string();
}

// `integer` and `fraction` begin at the first and end at the last placeholder.
struct Mask {
    std::string_view front;
    std::string_view integer;
    bool has_point = false;
    std::string_view fraction;
    std::string_view behind;
    bool grouped = false;
};

// The mask has a placeholder; `first` is where.
Mask split_mask(std::string_view text, std::size_t first) {
    const std::size_t end = text.find_last_of(placeholders) + 1;
    Mask mask;
    mask.front = text.substr(0, first);
    mask.integer = text.substr(first, end - first);
    mask.behind = text.substr(end);
    mask.grouped = mask.integer.find(',') != std::string_view::npos;

    const std::size_t point = mask.integer.find('.');
    if (point != std::string_view::npos) {
        mask.has_point = true;
        mask.fraction = mask.integer.substr(point + 1);
        mask.integer = mask.integer.substr(0, point);
    } else if (!mask.front.empty() && mask.front.back() == '.') {
        mask.has_point = true;
        mask.fraction = mask.integer;
        mask.integer = {};
        mask.front.remove_suffix(1);
    }
    return mask;
}

std::string integer_text(const Mask& mask, std::string digits) {
    const std::string_view pattern = mask.integer;
    // Every placeholder from the first "0" on shows a digit.
    const auto forced_from = std::find(pattern.begin(), pattern.end(), '0');
    const auto forced =
        static_cast<std::size_t>(std::count_if(forced_from, pattern.end(), is_placeholder));
    if (digits.size() < forced) digits.insert(0, forced - digits.size(), '0');

    std::string backward;
    std::size_t shown = 0;
    const auto show_digit = [&] {
        if (mask.grouped && shown > 0 && shown % 3 == 0) backward += ',';
        backward += digits[digits.size() - 1 - shown];
        ++shown;
    };
    for (auto place = pattern.rbegin(); place != pattern.rend(); ++place) {
        if (!is_placeholder(*place)) {
            if (*place != ',') backward += *place;
        } else if (shown < digits.size()) {
            show_digit();
        }
    }
    while (shown < digits.size()) show_digit();
    std::reverse(backward.begin(), backward.end());
    return backward;
}

std::string fraction_text(const Mask& mask, std::string digits) {
    const std::string_view pattern = mask.fraction;
    // Every placeholder up to the last "0" shows a digit.
    const std::string_view forced_part = pattern.substr(0, pattern.find_last_of('0') + 1);
    const auto forced = static_cast<std::size_t>(
        std::count_if(forced_part.begin(), forced_part.end(), is_placeholder));
    if (digits.size() < forced) digits.resize(forced, '0');

    std::string text;
    std::size_t shown = 0;
    for (const char place : pattern) {
        if (!is_placeholder(place)) {
            if (place != ',') text += place;
        } else if (shown < digits.size()) {
            text += digits[shown++];
        }
    }
    return text;
}

// The length of the number at the start of the text: a sign, digits and one point. 0 when there
// is no digit.
std::size_t number_length(std::string_view text) {
    const auto skip_digits = [&](std::size_t from) {
        return std::min(text.find_first_not_of(digit_characters, from), text.size());
    };
    const std::size_t start = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const std::size_t point = skip_digits(start);
    const bool has_integer = point > start;
    if (point == text.size() || text[point] != '.') return has_integer ? point : 0;
    const std::size_t end = skip_digits(point + 1);
    return has_integer || end > point + 1 ? end : 0;
}

// The text is exactly a number. Infinity beyond the largest double.
double parse_number(std::string_view text) {
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    double value = 0.0;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        const bool too_small = text.find_first_not_of('0') == text.find('.');
        value = too_small ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

}  // namespace

std::string number_text(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
    const double size = std::fabs(value);
    if (size >= plain_from && size < plain_below) return plain_text(value);
    const Decimal decimal = shortest_decimal(value);
    if (decimal.digits.empty()) return "0";
    std::string text = decimal.negative ? "-" : "";
    const std::string integer = integer_digits(decimal);
    text += integer.empty() ? "0" : integer;
    const std::string fraction = fraction_digits(decimal);
    if (!fraction.empty()) text.append(".").append(fraction);
    return text;
}

std::string format_number(double value, std::string_view mask_text) {
    const std::size_t first = mask_text.find_first_of(placeholders);
    if (first == std::string_view::npos) return std::string(mask_text);
    if (!std::isfinite(value)) return number_text(value);

    const Mask mask = split_mask(mask_text, first);
    Decimal decimal = shortest_decimal(value);
    const auto places = std::count_if(mask.fraction.begin(), mask.fraction.end(), is_placeholder);
    round_to_places(decimal, static_cast<int>(places));

    std::string text = decimal.negative && !decimal.digits.empty() ? "-" : "";
    text += mask.front;
    text += integer_text(mask, integer_digits(decimal));
    if (mask.has_point) text += '.';
    text += fraction_text(mask, fraction_digits(decimal));
    text += mask.behind;
    return text;
}

double leading_number(std::string_view text) {
    const std::string_view rest = trim_left(text);
    const std::size_t length = number_length(rest);
    return length == 0 ? 0.0 : parse_number(rest.substr(0, length));
}

double whole_number_text(std::string_view text) {
    const std::string_view rest = trim(text);
    const std::size_t length = number_length(rest);
    if (length == 0 || length != rest.size()) throw Fault(fault_number::type_mismatch);
    const double value = parse_number(rest);
    if (std::isinf(value)) throw Fault(fault_number::overflow);
    return value;
}

}  // namespace tavernook
