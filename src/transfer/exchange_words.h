// Words for what came in and what went out.
#pragma once

#include <string>
#include <string_view>

#include "platform/platform.h"

namespace tavernook {

// In the message panel.
inline void say(const std::string& sentence) {
    main_window().set_status(message_panel, sentence);
}

inline std::string in_quotes(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

// "1 item", "2 items".
inline std::string counted(int count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

}  // namespace tavernook
