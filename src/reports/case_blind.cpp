#include "reports/case_blind.h"

#include <algorithm>
#include <array>

#include "basics/text.h"

namespace tavernook {

namespace {

using Letters = std::array<unsigned char, 256>;

const Letters lower_letters = [] {
    Letters letters{};
    for (std::size_t code = 0; code < letters.size(); ++code) {
        letters[code] = static_cast<unsigned char>(lower_case(static_cast<char>(code)));
    }
    return letters;
}();

unsigned char folded(char letter) {
    return lower_letters[static_cast<unsigned char>(letter)];
}

bool is_same_letter(char a, char b) {
    return folded(a) == folded(b);
}

}  // namespace

bool is_same_case_blind(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), is_same_letter);
}

bool contains_case_blind(std::string_view text, std::string_view part) noexcept {
    return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(),
                                       is_same_letter) != text.end();
}

}  // namespace tavernook
