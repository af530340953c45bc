#include "platform_services/ftp_lines.h"

#include <algorithm>

#include "basics/code_page.h"
#include "basics/text.h"

namespace tavernook {

namespace {

constexpr std::size_t longest_line = 500;
constexpr std::string_view mask = "****";

bool is_of_word(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= 'a' && byte <= 'z');
}

bool stands_alone(const std::string& line, std::size_t at, std::size_t length) {
    const bool joined_before = at > 0 && is_of_word(line[at - 1]) && is_of_word(line[at]);
    const std::size_t end = at + length;
    const bool joined_behind =
        end < line.size() && is_of_word(line[end]) && is_of_word(line[end - 1]);
    return !joined_before && !joined_behind;
}

void mask_word(std::string& line, std::string_view password) {
    if (password.empty()) return;
    for (std::size_t at = line.find(password); at != std::string::npos;
         at = line.find(password, at + 1)) {
        if (!stands_alone(line, at, password.size())) continue;
        line.replace(at, password.size(), mask);
        at += mask.size() - 1;
    }
}

}  // namespace

std::string shown_line(std::string_view line, std::string_view password) {
    std::string shown = text_from_utf8(line);
    std::replace_if(
        shown.begin(), shown.end(),
        [](char letter) { return static_cast<unsigned char>(letter) < ' ' || letter == 0x7F; },
        ' ');
    shown.resize(trim_right(shown).size());
    if (lower_case(shown.substr(0, 5)) == "pass ") return "PASS " + std::string(mask);
    mask_word(shown, password);
    if (shown.size() > longest_line) shown.resize(longest_line);
    return shown;
}

}  // namespace tavernook
