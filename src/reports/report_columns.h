// What the report list shows of an item: one column for each checked row of the filter, three for
// the location. The name comes first and is always shown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reports/report_fields.h"
#include "reports/report_filter.h"

namespace tavernook {

enum class SortKind { text, number, date };

struct ReportColumn {
    int row = item_row;
    int part = 0;  // 0 to 2, of a location
};

std::vector<ReportColumn> report_columns(const ReportFilter& filter) noexcept;

// "Servings/Qty Unit" where the filter says "Serving/Qty Unit", "Location 1".
std::string column_title(const ReportColumn& column) noexcept;

// Quantities of lots sort as text; kept.
SortKind sort_kind(const ReportColumn& column) noexcept;

// Texts of the item and of its lot rows as the columns show them. "na" is a lot's date that is 0; a
// day that no calendar has is blank.
std::string column_text(const ReportColumn& column, const ReportItem& of) noexcept;

// The part of a location: what stands before the first comma, before the second, behind it. A
// location without a comma has no parts; what is behind the only comma is not shown.
std::string_view location_part(std::string_view location, int part) noexcept;

}  // namespace tavernook
