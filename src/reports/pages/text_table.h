// A list as it is shown: what a screen hands over to have a page made of it.
#pragma once

#include <string>
#include <vector>

namespace tavernook {

struct TextTable {
    std::vector<std::string> titles;             // of the columns, in their present order
    std::vector<std::vector<std::string>> rows;  // the cells of a row, in the same order
};

}  // namespace tavernook
