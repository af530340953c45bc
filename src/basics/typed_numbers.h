// How a number reads that a person has typed: with a point or a comma, with or without a word
// behind it. None of these faults.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavernook {

// The only comma of a text, with a digit behind it, becomes the decimal point. A text with a
// point or a second comma stays as it is.
std::string with_decimal_point(std::string_view typed) noexcept;

// A typed text that is a number as a whole, with a decimal point or comma, and within the range of
// a double; nothing otherwise.
std::optional<double> typed_number(std::string_view typed) noexcept;

// True for a blank text, and for a number with or without a word behind it ("2", "1,5 lb"); false
// where the leading number is not all that was meant ("abc", "1/2", "1.2.3").
bool reads_as_number(std::string_view typed) noexcept;

}  // namespace tavernook
