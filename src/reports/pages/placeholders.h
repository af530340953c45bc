// Filling templates. A template is a text of any layout that holds placeholders: a name between two
// "%", as "%1%" or "%ct42%".
//
// It is filled in one walk: what is put in is not looked at again. So a value may hold anything, a
// placeholder too, and stands in the page as it is.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// The name of a placeholder, without its "%", and what takes its place.
using PageValues = std::map<std::string, std::string, std::less<>>;

// The first occurrence of each placeholder gives way to its value; others of the same name stay,
// and so do those without a value.
std::string with_first_replaced(std::string_view page, PageValues values) noexcept;

// The same for every occurrence.
std::string with_all_replaced(std::string_view page, const PageValues& values) noexcept;

// The values of "%1%" to "%count%": entry n is that of "%n%", entry 0 is that of none. What is
// behind the last entry is replaced by nothing.
PageValues numbered_values(const std::vector<std::string>& values, i16 count) noexcept;

}  // namespace tavernook
