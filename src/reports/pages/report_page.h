// The list of a report as a page, "reports/rlist.htm" under the program's folder.
#pragma once

#include <string>
#include <string_view>

#include "basics/date.h"
#include "basics/values.h"
#include "reports/pages/text_table.h"

namespace tavernook {

// There are as many titles as the first row has cells; a report without rows has an empty row of
// titles and says that nothing was found.
std::string report_page_text(const TextTable& report, i16 size, bool border, std::string_view name,
                             Date today) noexcept;

// Writes the page, whole, under today's date. False, without a box, when that failed: an older page
// is as it was then.
[[nodiscard]] bool Build_HTML_Report_list(const TextTable& report, i16 size, bool border,
                                          std::string_view name) noexcept;

}  // namespace tavernook
