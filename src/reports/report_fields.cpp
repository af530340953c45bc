#include "reports/report_fields.h"

#include <array>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/string_storage.h"
#include "core/trap.h"
#include "inventory/lots.h"

namespace tavernook {

namespace {

ReportValue text_value(std::string_view stored) {
    return {ValueKind::text, stored, 0};
}

template <auto Field>
ReportValue item_text(const ReportItem& of) {
    return text_value((of.item.*Field).stored());
}

template <auto Field>
ReportValue item_number(const ReportItem& of) {
    return {ValueKind::number, {}, static_cast<f64>(of.item.*Field)};
}

template <auto Field>
ReportValue item_date(const ReportItem& of) {
    return {ValueKind::date, {}, of.item.*Field};
}

template <auto Field>
ReportValue detail_number(const ReportItem& of) {
    return {ValueKind::number, {}, of.details.*Field};
}

template <auto Field>
ReportValue detail_pooled(const ReportItem& of) {
    return text_value(pooled_text(of.details.*Field));
}

template <auto Field>
ReportValue item_pooled(const ReportItem& of) {
    return text_value(pooled_text(of.item.*Field));
}

// The name of the row of another table that the field names.
template <auto Field, const auto& table>
ReportValue item_name_of(const ReportItem& of) {
    return text_value(row_or_none(table, of.item.*Field).name.stored());
}

struct ItemField {
    std::string_view name;
    ValueKind kind;
    ReportValue (*value)(const ReportItem& of);
};

using Item = ItemRecord;
using Detail = ItemDetailRecord;
constexpr ValueKind text = ValueKind::text;
constexpr ValueKind number = ValueKind::number;
constexpr ValueKind date = ValueKind::date;

// From row 1 on.
constexpr std::array<ItemField, first_lot_row - 1> item_fields = {{
    {"Item", text, item_text<&Item::name>},
    {"Category", text, item_name_of<&Item::category, catagories>},
    {"Store", text, item_name_of<&Item::store, stores>},
    {"Store Order (SO)", number, item_number<&Item::store_order>},
    {"Quantity", number, item_number<&Item::quantity>},
    {"Cost/Unit", number, item_number<&Item::cost>},
    {"QTY Units", text, item_name_of<&Item::qty_units, units>},
    {"Manufacturer", text, detail_pooled<&Detail::manufacturer>},
    {"Brand", text, detail_pooled<&Detail::brand>},
    {"Description", text, detail_pooled<&Detail::description>},
    {"Notes", text, detail_pooled<&Detail::notes>},
    {"Location", text, item_pooled<&Item::locations>},
    {"Storage Time", number, item_number<&Item::storage_time>},
    {"Last Restock Date", date, item_date<&Item::last_restock_date>},
    {"Stock Quantity", number, item_number<&Item::stock_quantity>},
    {"Restock Quantity", number, item_number<&Item::restock_quantity>},
    {"Barcode", text, item_text<&Item::barcode>},
    {"Serving Size", number, item_number<&Item::serving_size>},
    {"Serving Size Units", text, item_name_of<&Item::serving_size_units, units>},
    {"Serving/Qty Unit", number, item_number<&Item::servings_per_qty_unit>},
    {"Fat", number, detail_number<&Detail::fat>},
    {"Calories", number, detail_number<&Detail::calories>},
    {"Cholestorol", number, detail_number<&Detail::cholestorol>},
    {"Sodium", number, detail_number<&Detail::sodium>},
    {"Potassium", number, detail_number<&Detail::potassium>},
    {"Carbohydrates", number, detail_number<&Detail::carbohydrates>},
    {"Fiber", number, detail_number<&Detail::fiber>},
    {"Sugars", number, detail_number<&Detail::sugars>},
    {"Protien", number, detail_number<&Detail::protien>},
}};

constexpr int fields_a_lot = 3;  // quantity, expiration date, creation date
constexpr int lot_rows = lot_places * fields_a_lot;
static_assert(first_lot_row + lot_rows == report_rows + 1);

using LotNames = std::array<std::string, lot_rows>;

LotNames made_lot_names() {
    constexpr std::array<const char*, fields_a_lot> ends = {" QTY", " Expiration Date",
                                                            " Creation Date"};
    LotNames names;
    for (std::size_t row = 0; row < lot_rows; ++row) {
        const auto letter = static_cast<char>('A' + row / fields_a_lot);
        names[row] = std::string("Lot ") + letter + ends[row % fields_a_lot];
    }
    return names;
}

bool is_item_field(int row) {
    return row >= item_row && row < first_lot_row;
}

bool is_lot_field(int row) {
    return row >= first_lot_row && row <= report_rows;
}

const ItemField& item_field(int row) {
    return item_fields[static_cast<std::size_t>(row - item_row)];
}

ReportValue lot_value(int row, const LotRecord& lots) {
    const auto place = static_cast<std::size_t>((row - first_lot_row) / fields_a_lot);
    switch ((row - first_lot_row) % fields_a_lot) {
        case 0:
            return {ValueKind::number, {}, lots.lot_quantity[place]};
        case 1:
            return {ValueKind::date, {}, lots.expiration_date[place]};
        default:
            return {ValueKind::date, {}, lots.creation_date[place]};
    }
}

std::string short_date_text(Date date) {
    std::string shown;
    tried([&] { shown = date_text(date_alone(date)); });  // a day that no calendar has: nothing
    return shown;
}

}  // namespace

ReportItem report_item(i16 item) noexcept {
    return {row_or_none(items, item), row_or_none(item_details, item), lot_record_or_none(item)};
}

std::string_view field_name(int row) noexcept {
    static const LotNames lot_names = made_lot_names();
    if (is_item_field(row)) return item_field(row).name;
    return is_lot_field(row) ? lot_names[static_cast<std::size_t>(row - first_lot_row)]
                             : std::string_view();
}

ValueKind field_kind(int row) noexcept {
    if (is_item_field(row)) return item_field(row).kind;
    if (!is_lot_field(row)) return ValueKind::text;
    return (row - first_lot_row) % fields_a_lot == 0 ? ValueKind::number : ValueKind::date;
}

ReportValue field_value(int row, const ReportItem& of) noexcept {
    if (is_item_field(row)) return item_field(row).value(of);
    return is_lot_field(row) ? lot_value(row, of.lots) : ReportValue{};
}

std::string value_text(const ReportValue& value) noexcept {
    switch (value.kind) {
        case ValueKind::number:
            return number_text(value.number);
        case ValueKind::date:
            return short_date_text(value.number);
        default:
            return std::string(value.text);
    }
}

}  // namespace tavernook
