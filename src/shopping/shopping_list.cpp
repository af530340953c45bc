#include "shopping/shopping_list.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "basics/number_text.h"
#include "basics/typed_numbers.h"
#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/lots.h"
#include "inventory/shelf_life.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

ItemRecord& live_number(i16 item) {
    if (item < 1) throw Fault(fault_number::subscript_out_of_range);
    return items[item];
}

bool is_kept_in_stock(const ItemRecord& item) {
    return item.stock_quantity != 0 && item.in_use != 0;
}

bool is_low(const ItemRecord& item) {
    return item.quantity <= item.restock_quantity;
}

// A free slot without a lot record has nothing to sum.
void sum_lots(ItemRecord& record, i16 item) {
    if (record.in_use == 1) ensure_lot_record(item);
    if (item <= lot_table_top) record.quantity = lot_total(item);
    if (record.quantity < 0 && record.in_use != 0) record.quantity = 0;
}

void scan_item(i16 item, Date now) {
    ItemRecord& record = items[item];
    sum_lots(record, item);
    const bool expiring = nears_end_of_shelf_life(record, now);
    const bool wanted = is_kept_in_stock(record) && (is_low(record) || expiring);
    record.on_shopping_list = truth(wanted);
    if (!wanted) return;
    record.shopping_quantity =
        expiring ? record.stock_quantity : record.stock_quantity - record.quantity;
}

bool is_lot_empty(f64 quantity) {
    return quantity == 0;
}

// All its lots are filled; false where it can have none.
bool has_no_room(i16 item) {
    if (item > lot_table_top) return false;
    const auto& filled = lots[item].lot_quantity;
    return std::none_of(filled.begin(), filled.end(), is_lot_empty);
}

void book_item(i16 item, Booking& booking) {
    ItemRecord& record = items[item];
    if (record.in_use == 1) ensure_lot_record(item);
    if (record.on_shopping_list == 0) return;
    const f64 quantity = record.shopping_quantity;
    const bool fails_in_silence = std::isfinite(quantity) && has_no_room(item);
    const bool placed = add_to_lots(item, quantity) != 0;
    if (!placed && !fails_in_silence) return booking.failed.push_back(item);
    record.on_shopping_list = i16_false;
    record.last_restock_date = date_alone(platform_clock().now());
    if (quantity != 0) (placed ? booking.placed : booking.without_lot).push_back(item);
}

// Whether the item is still the one that a box was about; says so where it is not.
bool is_still(const RowRef& asked, i16 item) {
    if (RowRef(Subject::items, item) == asked) return true;
    main_window().set_status(message_panel, "This item is not there any more.");
    return false;
}

std::optional<f64> ask_number(const std::string& prompt, const std::string& title,
                              const std::string& initial) {
    const std::optional<std::string> typed = boxes().input(prompt, title, initial);
    if (!typed) return std::nullopt;
    return leading_number(with_decimal_point(*typed));
}

void flag_item(ItemRecord& record) {
    const bool expiring =
        record.on_shopping_list == 0 && nears_end_of_shelf_life(record, platform_clock().now());
    const bool wanted = is_kept_in_stock(record) && (is_low(record) || expiring);
    record.on_shopping_list = truth(wanted);
    if (wanted) record.shopping_quantity = record.stock_quantity - record.quantity;
}

void add_ingredient_of(i16 recipe, i16 item) {
    if (item < 1 || item > item_capacity) return;
    ItemRecord& record = items[item];
    record.on_shopping_list = i16_true;
    record.shopping_quantity = items[recipe].shopping_quantity + 1.0;
    project_modified = i16_true;
}

void ask_quantity(i16 item) {
    ItemRecord& record = live_number(item);
    const RowRef asked(Subject::items, item);
    const std::optional<f64> quantity =
        ask_number("Current Quantity = " + number_text(record.quantity) + "\nEnter new quantity:",
                   "Change Quantity", number_text(record.shopping_quantity));
    if (!quantity || !is_still(asked, item)) return;
    record.shopping_quantity = *quantity;
    project_modified = i16_true;
}

void ask_store_order(i16 item) {
    ItemRecord& record = live_number(item);
    const RowRef asked(Subject::items, item);
    const std::string present = std::to_string(record.store_order);
    const std::optional<f64> order = ask_number(
        "Current store order = " + present + "\nEnter new store order:", "Change Store Order",
        present);
    if (!order || !is_still(asked, item)) return;
    record.store_order = round_to_i16(*order);
    project_modified = i16_true;
}

}  // namespace

void build_shopping_list() noexcept {
    trap_in_module([] {
        const Date now = platform_clock().now();
        for (i16 item = 1; item <= item_capacity; ++item) scan_item(item, now);
    });
}

void update_shopping_flag(i16 item) noexcept {
    trap_in_module([item] { flag_item(items[item]); });
}

bool add_to_list(i16 item) noexcept {
    return trap_in_module([item] {
        ItemRecord& record = live_number(item);
        record.on_shopping_list = i16_true;
        record.shopping_quantity += 1.0;
        project_modified = i16_true;
    });
}

bool add_recipe_to_list(i16 recipe) noexcept {
    return trap_in_module([recipe] {
        if (recipe < 1) throw Fault(fault_number::subscript_out_of_range);
        const auto& ingredients = meals[recipe].ingredient_item;
        for (std::size_t place = 1; place <= ingredient_places; ++place) {
            add_ingredient_of(recipe, ingredients[place]);
        }
    });
}

bool remove_from_list(i16 item) noexcept {
    return trap_in_module([item] {
        ItemRecord& record = live_number(item);
        record.on_shopping_list = i16_false;
        record.shopping_quantity = 0;
        project_modified = i16_true;
    });
}

void change_shopping_quantity(i16 item) noexcept {
    trap_in_module([item] { ask_quantity(item); });
}

void change_store_order(i16 item) noexcept {
    trap_in_module([item] { ask_store_order(item); });
}

Booking book_list_into_stock() noexcept {
    Booking booking;
    trap_in_module([&booking] {
        project_modified = i16_true;
        for (i16 item = 1; item <= item_capacity; ++item) book_item(item, booking);
    });
    return booking;
}

}  // namespace tavernook
