// How wide the user has made the columns of the reports. It is remembered for each field, as a
// column shows another field in another report.
#pragma once

#include <optional>

#include "reports/report_columns.h"

namespace tavernook {

// In pixels; nothing where the user has left it alone.
std::optional<int> remembered_width(const ReportColumn& column);
void remember_width(const ReportColumn& column, int width);

}  // namespace tavernook
