#include "screens/reports/column_widths.h"

#include <string>

#include "basics/number_text.h"
#include "platform/platform.h"
#include "screens/parts/guard.h"

namespace tavernook {

namespace {

constexpr const char* section = "Screens";
constexpr int narrowest = 8;
constexpr int widest = 4000;

std::string key_of(const ReportColumn& column) {
    return "Reports.Width." + std::to_string(column.row) + "." + std::to_string(column.part);
}

}  // namespace

std::optional<int> remembered_width(const ReportColumn& column) {
    f64 width = 0;
    quietly([&] { width = leading_number(settings_store().get(section, key_of(column))); });
    if (width < narrowest || width > widest) return std::nullopt;
    return static_cast<int>(width);
}

void remember_width(const ReportColumn& column, int width) {
    quietly([&] { settings_store().set(section, key_of(column), std::to_string(width)); });
}

}  // namespace tavernook
