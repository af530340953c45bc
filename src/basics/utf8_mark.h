// What a file in UTF-8 may have in front, to say so.
#pragma once

#include <string_view>

namespace tavernook {

inline constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

}  // namespace tavernook
