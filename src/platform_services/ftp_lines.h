// The lines of a conversation with a server, fit to be shown.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// Text of a line as it came over the wire, without its end and without control characters, cut
// where it is endless. The password is "****", in the command that sends it and wherever a server
// repeats it as a word.
std::string shown_line(std::string_view line, std::string_view password);

}  // namespace tavernook
