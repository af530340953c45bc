#include "barcodes/scan_list.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "barcodes/scan_index.h"
#include "barcodes/scan_rows.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "basics/typed_numbers.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/platform.h"

namespace tavernook {

std::vector<ScanRow> scan_rows;

namespace {

i32 last_id = 0;

// The end where the row has gone.
std::vector<ScanRow>::iterator place_of(i32 id) {
    const auto row = std::lower_bound(scan_rows.begin(), scan_rows.end(), id,
                                      [](const ScanRow& at, i32 wanted) { return at.id < wanted; });
    return row != scan_rows.end() && row->id == id ? row : scan_rows.end();
}

std::vector<ScanRow>::iterator first_of(std::string_view barcode) {
    return std::find_if(scan_rows.begin(), scan_rows.end(), [barcode](const ScanRow& row) {
        return row.barcode == trim_right(barcode);
    });
}

std::string_view unit_of(const ItemRecord& item) {
    return row_or_none(units, item.qty_units).name.trimmed();
}

void tell_of_item(ScanRow& row, i16 item) {
    row.is_known = item != 0;
    row.name = row.is_known ? items[item].name.trimmed() : "unknown item";
    row.units = row.is_known ? unit_of(items[item]) : "";
}

void write_into_rows(std::string_view barcode, std::string_view name, i16 item) {
    const ItemRecord& record = items[item];
    for (ScanRow& row : scan_rows) {
        if (row.barcode != trim_right(barcode)) continue;
        row.is_known = is_live_row(items, item);
        row.name = trim(name);
        row.units = unit_of(record);
    }
}

// The row that a box was about; says so where it has gone.
ScanRow* still_there(i32 id) {
    const auto row = place_of(id);
    if (row != scan_rows.end()) return &*row;
    main_window().set_status(message_panel, "This code is not on the list any more.");
    return nullptr;
}

// The box gets a copy: the row may go while it stands open.
void ask_quantity(const ScanRow& asked) {
    const i32 id = asked.id;
    const std::optional<std::string> typed =
        boxes().input("Type new Quantity", "Modify Quantity", std::string(asked.quantity));
    ScanRow* const row = typed ? still_there(id) : nullptr;
    if (row == nullptr) return;
    const std::optional<f64> quantity = typed_number(*typed);
    if (quantity) {
        row->quantity = number_text(*quantity);
    } else {
        boxes().message("Not a valid quantity");
    }
}

void ask_lot(const ScanRow& asked) {
    const i32 id = asked.id;
    const std::optional<std::string> typed =
        boxes().input("Enter Lot Name", "Modify Lot", std::string(asked.lot));
    if (!typed || trim(*typed).empty()) return;
    if (ScanRow* const row = still_there(id)) row->lot = *typed;
}

}  // namespace

const ScanRow* scan_row(i32 id) noexcept {
    const auto row = place_of(id);
    return row != scan_rows.end() ? &*row : nullptr;
}

void append_scan_row(std::string_view barcode, f64 quantity, std::string_view lot, i16 item) {
    if (!std::isfinite(quantity)) throw Fault(fault_number::type_mismatch);
    if (scan_rows.size() >= most_scan_rows) throw Fault(fault_number::overflow);
    ScanRow row;
    row.id = ++last_id;
    row.barcode = trim_right(barcode);
    row.quantity = quantity == 0 ? "1" : number_text(quantity);
    row.lot = trim(lot).empty() ? auto_lot : lot;
    tell_of_item(row, item);
    scan_rows.push_back(std::move(row));
}

void populate_item(std::string_view barcode, f64 quantity, std::string_view lot) {
    append_scan_row(barcode, quantity, lot, item_of_scan(trim_right(barcode)));
}

void refresh_item(std::string_view barcode, std::string_view name, i16 item) noexcept {
    trap([&] { write_into_rows(barcode, name, item); },
         [](const Fault& fault) {
             show_fault("Error in routine Refresh_Item, In ScanList module, ERROR = " +
                        std::to_string(fault.number) + "DESC = " + fault.description);
         });
}

void refresh_scan_rows() noexcept {
    trap_in_scan_list([] {
        if (scan_rows.empty()) return;
        const ScanIndex index;
        for (ScanRow& row : scan_rows) tell_of_item(row, index.item_of(row.barcode));
    });
}

i16 GetQTY(std::string_view barcode) noexcept {
    i16 quantity = 0;
    trap_in_scan_list([&] {
        const auto row = first_of(barcode);
        if (row != scan_rows.end()) quantity = round_to_i16(whole_number_text(row->quantity));
    });
    return quantity;
}

void delete_barcode(std::string_view barcode) noexcept {
    const auto row = first_of(barcode);
    if (row != scan_rows.end()) scan_rows.erase(row);
}

void delete_scan_rows(std::vector<i32> ids) noexcept {
    std::sort(ids.begin(), ids.end());
    std::erase_if(scan_rows, [&ids](const ScanRow& row) {
        return std::binary_search(ids.begin(), ids.end(), row.id);
    });
}

void mark_scan_rows(std::vector<i32> ids) noexcept {
    std::sort(ids.begin(), ids.end());
    for (ScanRow& row : scan_rows) {
        row.is_marked = std::binary_search(ids.begin(), ids.end(), row.id);
    }
}

void clear_scan_list() noexcept {
    scan_rows.clear();
}

void ModQuantity(i32 id) noexcept {
    const ScanRow* const row = scan_row(id);
    if (row != nullptr) trap_in_scan_list([row] { ask_quantity(*row); });
}

void ModLot(i32 id) noexcept {
    const ScanRow* const row = scan_row(id);
    if (row != nullptr) trap_in_scan_list([row] { ask_lot(*row); });
}

std::string scan_list_message(i32 number, std::string_view description) noexcept {
    return "ERROR " + std::to_string(number) + " ERROR DESCRIPTION" + std::string(description);
}

}  // namespace tavernook
