#include "reports/report_columns.h"

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/trap.h"

namespace tavernook {

namespace {

constexpr int servings_row = 20;
constexpr int barcode_row = 17;
constexpr int serving_units_row = 19;
constexpr int category_row = 2;
constexpr int store_row = 3;
constexpr int units_row = 7;
constexpr int location_parts = 3;

std::string shown_date(Date date) {
    std::string text;
    tried([&] { text = format_date(date, "mm/dd/yyyy"); });  // no day of a calendar: nothing
    return text;
}

std::string shown_cost(f64 cost) {
    const std::string mask = static_cast<char>(currency_symbol) + std::string("#.00");
    return std::string(trim_right(format_number(cost, mask)));
}

std::string_view shown_text(const ReportColumn& column, std::string_view stored) {
    switch (column.row) {
        case category_row:
        case store_row:
        case units_row:
            return trim_right(stored);
        case barcode_row:
        case serving_units_row:
            return stored;
        case location_row:
            return location_part(trim(stored), column.part);
        default:
            return trim(stored);
    }
}

}  // namespace

std::vector<ReportColumn> report_columns(const ReportFilter& filter) noexcept {
    std::vector<ReportColumn> columns = {{item_row, 0}};
    for (int row = item_row + 1; row <= report_rows; ++row) {
        if (filter.row_checked[static_cast<std::size_t>(row)] == i16_false) continue;
        const int parts = row == location_row ? location_parts : 1;
        for (int part = 0; part < parts; ++part) columns.push_back({row, part});
    }
    return columns;
}

std::string column_title(const ReportColumn& column) noexcept {
    if (column.row == servings_row) return "Servings/Qty Unit";
    std::string title(field_name(column.row));
    if (column.row == location_row) title += " " + std::to_string(column.part + 1);
    return title;
}

SortKind sort_kind(const ReportColumn& column) noexcept {
    switch (field_kind(column.row)) {
        case ValueKind::date:
            return SortKind::date;
        case ValueKind::number:
            return column.row < first_lot_row ? SortKind::number : SortKind::text;
        default:
            return SortKind::text;
    }
}

std::string column_text(const ReportColumn& column, const ReportItem& of) noexcept {
    const ReportValue value = field_value(column.row, of);
    switch (value.kind) {
        case ValueKind::number:
            return column.row == cost_row ? shown_cost(value.number) : number_text(value.number);
        case ValueKind::date:
            return column.row >= first_lot_row && value.number == 0 ? "na"
                                                                    : shown_date(value.number);
        default:
            return std::string(shown_text(column, value.text));
    }
}

std::string_view location_part(std::string_view location, int part) noexcept {
    const std::size_t first = location.find(',');
    if (first == std::string_view::npos) return {};
    if (part == 0) return location.substr(0, first);
    const std::size_t second = location.find(',', first + 1);
    if (second == std::string_view::npos) return {};
    return part == 1 ? location.substr(first + 1, second - first - 1) : location.substr(second + 1);
}

}  // namespace tavernook
