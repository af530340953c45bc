// The 77 fields of an item that a report can filter by and show, numbered 1 to 77 as the rows of
// the filter. Behind the fields of the item (1 to 29) stand those of its 16 lots, three each.
#pragma once

#include <string>
#include <string_view>

#include "core/records.h"

namespace tavernook {

inline constexpr int report_rows = 77;
inline constexpr int first_lot_row = 30;

// Report rows that are spoken of elsewhere.
inline constexpr int item_row = 1;
inline constexpr int cost_row = 6;
inline constexpr int location_row = 12;

enum class ValueKind { text, number, date };

// What a field holds: `text` as stored, with the blanks at its end, or `number`, which is a day
// count for dates. The text lives as long as the record.
struct ReportValue {
    ValueKind kind = ValueKind::text;
    std::string_view text;
    f64 number = 0;
};

// The records of an item; blank ones where a number names none.
struct ReportItem {
    const ItemRecord& item;
    const ItemDetailRecord& details;
    const LotRecord& lots;
};
ReportItem report_item(i16 item) noexcept;

// "Store Order (SO)", "Lot C Creation Date"; empty for what is no row.
std::string_view field_name(int row) noexcept;

// What the field holds in each item; text for what is no row.
ValueKind field_kind(int row) noexcept;

// Blank for what is no row; a reference that names no record reads as blank, too.
ReportValue field_value(int row, const ReportItem& of) noexcept;

// The value as plain text, which is what patterns are held against: numbers without grouping,
// dates as "m/d/yyyy" whatever their time, "12:00:00 AM" for date 0, nothing for a day that no
// calendar has. Texts as stored.
std::string value_text(const ReportValue& value) noexcept;

}  // namespace tavernook
