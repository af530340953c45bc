#include "reports/case_blind.h"

#include <algorithm>
#include <array>

#include "basics/text.h"

namespace tavernook {

namespace {

// For each letter its lower and its upper case; the letter itself where it has but one.
struct Cases {
    std::array<unsigned char, 256> lower{};
    std::array<char, 256> upper{};
};

const Cases cases = [] {
    Cases made;
    for (std::size_t code = 0; code < made.lower.size(); ++code) {
        made.upper[code] = static_cast<char>(code);
    }
    for (std::size_t code = 0; code < made.lower.size(); ++code) {
        const auto letter = static_cast<char>(code);
        made.lower[code] = static_cast<unsigned char>(lower_case(letter));
        if (made.lower[code] != code) made.upper[made.lower[code]] = letter;
    }
    return made;
}();

unsigned char folded(char letter) {
    return cases.lower[static_cast<unsigned char>(letter)];
}

bool is_same_letter(char a, char b) {
    return folded(a) == folded(b);
}

// The part begins with just this letter, in this case, somewhere in the text.
bool contains_from(std::string_view text, std::string_view part, char first) {
    for (std::size_t at = text.find(first); at != std::string_view::npos;
         at = text.find(first, at + 1)) {
        if (is_same_case_blind(text.substr(at, part.size()), part)) return true;
    }
    return false;
}

}  // namespace

bool is_same_case_blind(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), is_same_letter);
}

bool contains_case_blind(std::string_view text, std::string_view part) noexcept {
    if (part.empty()) return true;
    const unsigned char lower = folded(part.front());
    const char upper = cases.upper[lower];
    if (contains_from(text, part, upper)) return true;
    return static_cast<unsigned char>(upper) != lower &&
           contains_from(text, part, static_cast<char>(lower));
}

}  // namespace tavernook
