// Numbers as text and back, the same on every system and for every locale.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// The shortest decimal text that reads back the same double: no exponent, no trailing point, no
// grouping. The digits are the fewest that do, so that 1e23 is a 1 and 23 zeros. Minus zero is
// "0". Infinities and NaN give "inf", "-inf", "nan".
std::string number_text(double value);

// A number under a mask: "#" optional digit, "0" forced digit, "," grouping by threes, "."
// the point; everything else stands as it is, "%" too. Rounds half away from zero on the decimal
// text. A minus stands in front of the whole text and only when a digit other than 0 is shown.
//   0 under "##.00" is ".00"; 7.5 under "%##.00" is "%7.50".
// The first "." between placeholders is the point, else one right in front of the first. A mask
// without placeholders is shown as it is; infinities and NaN are shown as by number_text.
std::string format_number(double value, std::string_view mask);

// The longest prefix that is a number: blanks, a sign, digits and one point; 0 when there is
// none. No exponent. Never faults: digits beyond the range of a double give infinity.
double leading_number(std::string_view text);

// A text that must be a number as a whole (blanks around it allowed). Fault 13 otherwise,
// Fault 6 beyond the range of a double.
double whole_number_text(std::string_view text);

}  // namespace tavernook
