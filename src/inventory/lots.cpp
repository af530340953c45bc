#include "inventory/lots.h"

#include <cmath>
#include <limits>
#include <numeric>

#include "basics/text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/usage_history.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

std::size_t index_of(i16 place) {
    if (place < 0 || place >= lot_places) throw Fault(fault_number::subscript_out_of_range);
    return static_cast<std::size_t>(place);
}

f64& quantity_at(LotRecord& record, i16 place) {
    return record.lot_quantity[index_of(place)];
}

void stamp_dates(LotRecord& record, i16 place, i16 item) {
    const Date now = platform_clock().now();
    record.creation_date[index_of(place)] = now;
    record.expiration_date[index_of(place)] = now + items[item].storage_time;
}

void clear_dates(LotRecord& record, i16 place) {
    record.creation_date[index_of(place)] = 0;
    record.expiration_date[index_of(place)] = 0;
}

void blank_places(LotRecord& record) {
    for (i16 place = 0; place < lot_places; ++place) {
        clear_dates(record, place);
        record.lot_name[index_of(place)] = default_lot_name(place);
        quantity_at(record, place) = 0;
    }
    record.current_lot = 0;
}

bool all_empty(const LotRecord& record) {
    for (const f64 quantity : record.lot_quantity) {
        if (quantity != 0) return false;
    }
    return true;
}

// What is read of a record; a damaged file may name a place that is none.
i16 current_place(const LotRecord& record) {
    const bool known = record.current_lot >= 0 && record.current_lot < lot_places;
    return known ? record.current_lot : i16{0};
}

void require_number(f64 quantity) {
    if (!std::isfinite(quantity)) throw Fault(fault_number::overflow);
}

bool fits_16_bits(f64 quantity) {
    return tried([quantity] { round_to_i16(quantity); });
}

void make_blank_record(i16 item, bool active) {
    lots.grow(item);
    blank_places(lots[item]);
    lots[item].active = truth(active);
}

void make_first_lot(i16 item) {
    const ItemRecord& source = items[item];
    make_blank_record(item, true);
    LotRecord& record = lots[item];
    record.creation_date[0] = source.last_restock_date;
    record.expiration_date[0] = source.last_restock_date + source.storage_time;
    record.lot_quantity[0] = source.quantity;
}

// One step of a removal at the current lot; what is left to take.
f64 take_from_current_lot(LotRecord& record, i16 item, f64 quantity) {
    f64& held = quantity_at(record, record.current_lot);
    const f64 rest = quantity - held;
    if (rest < 0) {
        if (quantity != 0) record_item_usage(item, quantity, usage_removed, record.current_lot);
        held = std::fabs(rest);
        return 0;
    }
    if (held != 0) record_item_usage(item, held, usage_removed, record.current_lot);
    held = 0;
    clear_dates(record, record.current_lot);
    record.current_lot = next_lot(record.current_lot);
    return rest;
}

bool place_in_next_empty(i16 item, f64 quantity) {
    LotRecord& record = lots[item];
    require_number(quantity);
    record.current_lot = current_place(record);
    const i16 start = record.current_lot;
    // Nothing to place looks at the current lot only.
    const int steps = quantity == 0 ? 1 : lot_places + 1;
    bool placed = quantity == 0;
    for (int step = 0; step < steps; ++step) {
        if (quantity_at(record, record.current_lot) == 0) {
            quantity_at(record, record.current_lot) = quantity;
            stamp_dates(record, record.current_lot, item);
            placed = true;
            break;
        }
        record.current_lot = next_lot(record.current_lot);
    }
    if (!placed) return false;
    if (quantity > 0) record_item_usage(item, quantity, usage_added, record.current_lot);
    record.current_lot = start;
    items[item].quantity = lot_total(item);
    return true;
}

bool refuse_more_than_there_is(i16 item) {
    boxes().message(
        "The quantity that you provided is more than is currently in the inventory for item " +
        std::string(items[item].name.stored()) +
        " .  Cannot update Inventory.  Please adjust the quantity to adjust.");
    return false;
}

bool take(i16 item, f64 quantity) {
    LotRecord& record = lots[item];
    const f64 total = lot_total(item);
    if (total < quantity) return refuse_more_than_there_is(item);
    if (std::isnan(quantity) || std::isnan(total)) throw Fault(fault_number::overflow);
    record.current_lot = current_place(record);
    round_to_i16(quantity_at(record, record.current_lot));  // faults before anything moves
    // The sum is rounded in another order than the walk. Taking all of it leaves no crumb in the
    // last lot, and a rest that no lot can cover does not keep the walk going.
    if (quantity > 0 && quantity == total) quantity = std::numeric_limits<f64>::infinity();
    do {
        quantity = take_from_current_lot(record, item, quantity);
    } while (quantity > 0 && !all_empty(record));
    items[item].quantity = lot_total(item);
    return true;
}

i16 place_named(i16 item, std::string_view name) {
    LotRecord& record = lots[item];
    const std::string wanted = lower_case(name);
    for (i16 place = 0; place < lot_places; ++place) {
        auto& lot_name = record.lot_name[index_of(place)];
        lot_name = lot_name.trimmed();
        if (lower_case(lot_name.right_trimmed()) == wanted) return place;
    }
    boxes().message("Did not find a Lot named: " + std::string(name) +
                    ". Please try typing in the lot name again.");
    return -1;
}

void write_quantity(i16 item, f64 quantity, i16 place) {
    LotRecord& record = lots[item];
    f64& held = quantity_at(record, place);
    require_number(quantity);
    if (held == quantity) return;
    if (quantity < held) {
        record_item_usage(item, held - quantity, usage_removed, place);
    } else {
        record_item_usage(item, quantity - held, usage_added, place);
    }
    held = quantity;
    if (record.creation_date[index_of(place)] == 0) stamp_dates(record, place, item);
}

void blank_lot(i16 item, i16 place) {
    LotRecord& record = lots[item];
    clear_dates(record, place);
    record.lot_name[index_of(place)] = default_lot_name(place);
    quantity_at(record, place) = 0;
    items[item].quantity = lot_total(item);
    if (record.current_lot == place) record.current_lot = next_lot(place);
}

}  // namespace

const LotRecord& lot_record_or_none(i16 item) noexcept {
    static const LotRecord none{};
    return item >= 0 && item < lots.entries() ? lots[item] : none;
}

std::string default_lot_name(i16 place) noexcept {
    return std::string("Lot ") + static_cast<char>('A' + place);
}

void init_lot_record(i16 item) noexcept {
    trap_in_module([item] { make_blank_record(item, true); });
}

void clear_lot_record(i16 item) noexcept {
    trap_in_module([item] { make_blank_record(item, false); });
}

void first_lot_from_item(i16 item) noexcept {
    trap_in_module([item] { make_first_lot(item); });
}

void ensure_lot_record(i16 item) noexcept {
    if (item > lot_table_top) first_lot_from_item(item);
}

void first_lots_of_all_items() noexcept {
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use == 1) ensure_lot_record(item);
    }
}

f64 lot_total(i16 item) noexcept {
    const auto& quantities = lot_record_or_none(item).lot_quantity;
    return std::accumulate(quantities.begin(), quantities.end(), 0.0);
}

i16 current_lot_of(i16 item) noexcept {
    return current_place(lot_record_or_none(item));
}

i16 add_to_lots(i16 item, f64 quantity) noexcept {
    i16 placed = i16_false;
    trap_in_module([&] { placed = truth(place_in_next_empty(item, quantity)); });
    return placed;
}

i16 remove_from_lots(i16 item, f64 quantity) noexcept {
    i16 taken = i16_false;
    trap_in_module([&] { taken = truth(take(item, quantity)); });
    return taken;
}

bool current_lot_is_readable(i16 item) noexcept {
    const LotRecord& record = lot_record_or_none(item);
    return !std::isnan(lot_total(item)) &&
           fits_16_bits(record.lot_quantity[index_of(current_place(record))]);
}

i16 next_lot(i16 place) noexcept {
    return place < 0 || place >= lot_places - 1 ? i16{0} : static_cast<i16>(place + 1);
}

i16 find_lot_by_name(i16 item, std::string_view name) noexcept {
    i16 place = -1;
    trap_in_module([&] { place = place_named(item, name); });
    return place;
}

bool set_lot_quantity(i16 item, f64 quantity, i16 place) noexcept {
    return trap_in_module([&] { write_quantity(item, quantity, place); });
}

f64 expiring_quantity(i16 item) noexcept {
    if (!(row_or_none(items, item).quantity > 0)) return 0;
    const Date limit = platform_clock().now() - civil_from_date(expiration_warning_days).day;
    const LotRecord& record = lot_record_or_none(item);
    f64 total = 0;
    for (std::size_t place = 0; place < lot_places; ++place) {
        if (record.expiration_date[place] <= limit) total += record.lot_quantity[place];
    }
    return total;
}

bool delete_lot(i16 item, i16 place) noexcept {
    return trap_in_module([=] { blank_lot(item, place); });
}

bool set_current_lot(i16 item, i16 place) noexcept {
    return trap_in_module([=] {
        LotRecord& record = lots[item];
        if (quantity_at(record, place) == 0) stamp_dates(record, place, item);
        record.current_lot = place;
    });
}

}  // namespace tavernook
