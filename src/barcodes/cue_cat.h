// The scanner that types its codes in a scheme of its own: three fields, each behind a full stop,
// in six-bit letters (a-z A-Z 0-9 + -) whose bytes are the text XOR 67. The scheme has been
// published widely for this device.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// The third field of a line, decoded; empty when the line has fewer than three full stops. The last
// character of the line is dropped unseen: it is the closing full stop. At most 100 letters count.
std::string decode_cue_cat(std::string_view line) noexcept;

}  // namespace tavernook
