// How the rows of a filter are joined; the table stands at the head of report_filter.h.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "reports/report_filter.h"

namespace tavernook {

enum class Join { none, with_and, with_or, with_xor };

using RowJoins = std::array<Join, report_rows + 1>;  // rows 2 to 77

RowJoins row_joins(const std::array<std::string, filter_entries>& logic_strings) noexcept;

// The logic string is this word, in any case.
bool joins_by(std::string_view logic_string, std::string_view word) noexcept;

bool joined(Join join, bool result, bool matches) noexcept;

}  // namespace tavernook
