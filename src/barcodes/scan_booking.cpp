#include "barcodes/scan_booking.h"

#include <algorithm>
#include <optional>

#include "barcodes/scan_list.h"
#include "barcodes/scan_rows.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// What became of a row, and why it is kept where it is.
enum class End { booked, ignored, kept, gone };
struct Outcome {
    End end = End::booked;
    std::string reason{};
};

Outcome kept(std::string reason) {
    return {End::kept, std::move(reason)};
}

// The item to book on; 0 with what became of the row without one.
struct Found {
    i16 item = 0;
    Outcome otherwise{};
};

enum class NameOfNew { is_asked_for, is_untitled };

constexpr const char* untitled = "<<UNTITLED>>";
constexpr i16 general_category = 1;

i16 create_item_for(const std::string& code, const std::string& name) {
    ItemValues values;
    values.name = name;
    values.qty_units = "each";
    values.serving_size = 1;
    values.serving_size_units = "each";
    values.servings_per_qty_unit = 1;
    values.category = general_category;
    values.last_restock_date = platform_clock().now();
    values.barcode = code;
    const i16 item = create_item(values);
    project_modified = i16_true;
    return item;
}

std::string told_of_new(const std::string& code, i16 item, NameOfNew name) {
    const std::string added = "The barcode " + code + " has been added to your inventory as ";
    if (name == NameOfNew::is_untitled) return added + "<Untitled> in the General category";
    return added + std::string(items[item].name.trimmed()) +
           " in the General category.  The quantity has been placed in Auto Lot mode.";
}

// What a box has left: a row that has gone, or a code that an item bears by now.
std::optional<Found> settled_meanwhile(i32 id, const std::string& code) {
    if (scan_row(id) == nullptr) return Found{0, {End::gone}};
    const i16 item = item_of_scan(code);
    if (item != 0) return Found{item};
    return std::nullopt;
}

// Nothing when the user gives none.
std::optional<std::string> name_of_new(NameOfNew name) {
    if (name == NameOfNew::is_untitled) return untitled;
    return boxes().input("Please enter the name of the item.", "New Item", "");
}

Found new_item_for(i32 id, const std::string& code, NameOfNew name) {
    const std::optional<std::string> given = name_of_new(name);
    if (!given) return {0, kept("no name was given")};
    if (const auto settled = settled_meanwhile(id, code)) return *settled;
    const i16 created = create_item_for(code, *given);
    const RowRef item(Subject::items, created);
    boxes().message(told_of_new(code, created, name));
    if (scan_row(id) == nullptr) return {0, {End::gone}};
    if (item.now() != 0) return {item.now()};
    const i16 other = item_of_scan(code);
    return {other, kept("the new item has been deleted")};
}

Found item_for(i32 id, NameOfNew name) {
    const std::string code = scan_row(id)->barcode;
    const i16 item = item_of_scan(code);
    if (item != 0) return {item};
    const Answer answer = boxes().message(
        code +
            " is not currently an item in your inventory.  Would you like to add this item to "
            "your inventory?",
        Buttons::yes_no);
    const auto settled = settled_meanwhile(id, code);
    if (settled && settled->item == 0) return *settled;
    if (answer != Answer::yes) {
        boxes().message("Ignoring Barcode " + code);
        return {0, {End::ignored}};
    }
    return settled ? *settled : new_item_for(id, code, name);
}

// --- what a row does to its item ---------------------------------------------------------------
// Each takes a copy of the row: boxes come in between.

constexpr const char* not_changed = "its stock could not be changed";

Outcome no_such_lot(const ScanRow& row) {
    return kept("it has no lot named " + std::string(trim(row.lot)));
}

bool has_no_empty_lot(i16 item) {
    const auto& held = lots[item].lot_quantity;
    return std::find(held.begin(), held.end(), 0.0) == held.end();
}

Outcome add_stock(ScanRow row, i16 item) {
    const f64 quantity = whole_number_text(row.quantity);
    ensure_lot_record(item);
    if (row.lot == auto_lot) {
        if (add_to_lots(item, quantity) != 0) return {};
        return kept(has_no_empty_lot(item) ? "all 16 of its lots are filled" : not_changed);
    }
    const i16 place = find_lot_by_name(item, row.lot);
    if (place < 0) return no_such_lot(row);
    if (!set_lot_quantity(item, quantity, place)) return kept(not_changed);
    items[item].quantity = lot_total(item);
    return {};
}

Outcome use_named_lot(const ScanRow& row, i16 item, f64 quantity) {
    const i16 place = find_lot_by_name(item, row.lot);
    if (place < 0) return no_such_lot(row);
    const std::string name(trim(row.lot));
    f64& held = lots[item].lot_quantity[static_cast<std::size_t>(place)];
    if (held > quantity) {
        held -= quantity;
        return {};
    }
    boxes().message("The quantity to remove from LOT " + name +
                    " is more than that LOT contains.  Cannot Update.  Please Change the quantity "
                    "to be removed.");
    return kept("the lot " + name + " holds no more than that");
}

Outcome use_stock(ScanRow row, i16 item) {
    const f64 quantity = whole_number_text(row.quantity);
    ensure_lot_record(item);
    if (row.lot != auto_lot) return use_named_lot(row, item, quantity);
    const bool is_short = lot_total(item) < quantity;
    if (remove_from_lots(item, quantity) != 0) return {};
    return kept(is_short ? "there is less of it in stock" : not_changed);
}

Outcome put_on_shopping_list(ScanRow row, i16 item) {
    const f64 quantity = whole_number_text(row.quantity);
    items[item].on_shopping_list = i16_true;
    items[item].shopping_quantity += quantity;
    return {};
}

void show_in_inventory(i16 item) {
    ports::FoodInventory* const screen = food_inventory();
    if (screen != nullptr && screen->getindex() == item) screen->view_item(item, i16_true);
}

// --- the run -----------------------------------------------------------------------------------

struct Way {
    NameOfNew name;
    Outcome (*book)(ScanRow row, i16 item);
    void (*show)(i16 item);
};

class Run {
  public:
    explicit Run(const Way& way) : way_(way) {}

    ScanBooking over(const std::vector<i32>& rows) {
        trap_in_scan_list([&] {
            for (const i32 id : in_their_order(rows)) {
                if (scan_row(id) != nullptr) book(id);
            }
        });
        if (scan_row(at_) != nullptr) keep(at_, "the booking stopped here");
        delete_scan_rows(leaving_);
        refresh_scan_rows();
        return result_;
    }

  private:
    // The order of the list is that of the ids.
    static std::vector<i32> in_their_order(std::vector<i32> rows) {
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
        return rows;
    }

    void book(i32 id) {
        at_ = id;
        const Found found = item_for(id, way_.name);
        const Outcome outcome =
            found.item != 0 ? way_.book(*scan_row(id), found.item) : found.otherwise;
        at_ = 0;
        settle(id, outcome);
        if (outcome.end == End::booked && way_.show != nullptr) way_.show(found.item);
    }

    void settle(i32 id, const Outcome& outcome) {
        if (outcome.end == End::kept) return keep(id, outcome.reason);
        if (outcome.end == End::gone) return;
        leaving_.push_back(id);
        if (outcome.end == End::ignored) {
            ++result_.ignored;
        } else {
            ++result_.booked;
            project_modified = i16_true;
        }
    }

    // The last box may have outlived the row.
    void keep(i32 id, const std::string& reason) {
        const ScanRow* const row = scan_row(id);
        if (row == nullptr) return;
        const i16 item = item_of_scan(row->barcode);
        const std::string name(item != 0 ? items[item].name.trimmed() : row->name);
        result_.kept.push_back(name + " (" + row->barcode + "): " + reason);
    }

    Way way_;
    ScanBooking result_;
    std::vector<i32> leaving_;
    i32 at_ = 0;  // the row that is being booked; 0 between two
};

}  // namespace

ScanBooking Add_New(const std::vector<i32>& rows) noexcept {
    return Run({NameOfNew::is_asked_for, add_stock, show_in_inventory}).over(rows);
}

ScanBooking Used_Update(const std::vector<i32>& rows) noexcept {
    return Run({NameOfNew::is_untitled, use_stock, show_in_inventory}).over(rows);
}

ScanBooking Add_Shopping_List(const std::vector<i32>& rows) noexcept {
    const ScanBooking booking =
        Run({NameOfNew::is_untitled, put_on_shopping_list, nullptr}).over(rows);
    if (booking.booked > 0 && shopping_list() != nullptr) shopping_list()->populate_list();
    return booking;
}

}  // namespace tavernook
