// A list as it is shown: what a screen hands over to have a page made of it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tavernook {

struct TextTable {
    std::vector<std::string> titles;             // of the columns, in their present order
    std::vector<std::vector<std::string>> rows;  // the cells of a row, in the same order
};

// About the bytes that a page of it takes, for what reserves its memory at once.
std::size_t room_for(const TextTable& table) noexcept;

}  // namespace tavernook
