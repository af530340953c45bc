// The pages of the project and of one item's usage, filled from the templates "item.dat",
// "main.dat" and "general.dat" into "item.htm", "main.htm" and "general.htm", all in the folder
// "reports" of the program.
//
//          item.dat                                  main.dat, general.dat
//   %1%    the project's name                        the same
//   %2%    the day on which the item was entered     the day on which the project was begun
//   %3%    nothing                                   items
//   %4%    the usage behind its first 15 characters  recipes
//   %5%    nothing                                   planned days
//   %6%    "This Report Created on " and now         the same
//   %7%    the first 15 characters of the usage      nothing
//   %8%    the item's name, 32 characters            stays as it is
//
// The usage is the table of `Get_Item_Usage`; it comes out whole where %7% and %4% stand side by
// side with white space between. An item without any has "No current data on usage" in both.
#pragma once

#include <string>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// Each is false when its page was not made, after a box with "error: " and what stopped it. Where
// the template is missing there is no page then; else an older one is as it was.

// The audit comes first.
[[nodiscard]] bool build_item_report(i16 item) noexcept;
[[nodiscard]] bool build_main_report() noexcept;
[[nodiscard]] bool build_general_report() noexcept;

// Replaces "%1%" to "%count%" by the entries of those numbers and writes the page beside the
// template, with "htm" for the last three characters of its path. False, after the same box, when
// that failed; an older page is as it was then.
[[nodiscard]] bool fill_template(const std::vector<std::string>& values, i16 count,
                                 const std::string& template_path) noexcept;

}  // namespace tavernook
