// Comparing texts without regard to upper and lower case, without copies of them.
#pragma once

#include <string_view>

namespace tavernook {

bool is_same_case_blind(std::string_view a, std::string_view b) noexcept;

// An empty part is in every text.
bool contains_case_blind(std::string_view text, std::string_view part) noexcept;

}  // namespace tavernook
