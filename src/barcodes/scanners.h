// The scanners that a project can have, and what comes from them.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Values of scanner_type.
enum Scanner : i16 { keyboard_wedge = 0, batch_scanner = 1, cue_cat = 2, no_scanner = 3 };

// The code in a line that the project's scanner has typed, without the blanks around it; empty when
// the line holds none.
std::string code_in_line(std::string_view line) noexcept;

}  // namespace tavernook
