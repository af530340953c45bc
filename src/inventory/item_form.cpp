#include "inventory/item_form.h"

#include <cmath>
#include <limits>

#include "basics/text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/lots.h"
#include "inventory/shelf_life.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

bool holds_expired_lot(i16 item) {
    const ItemRecord& record = row_or_none(items, item);
    if (record.storage_time == 0 || item > lot_table_top) return false;
    const Date now = platform_clock().now();
    for (std::size_t place = 0; place < lot_places; ++place) {
        if (lot_has_expired(record, lots[item], place, now)) return true;
    }
    return false;
}

}  // namespace

Locations split_locations(std::string_view text) noexcept {
    Locations parts;
    for (std::size_t place = 0; place < parts.size(); ++place) {
        const bool last = place + 1 == parts.size();
        const std::size_t comma = last ? std::string_view::npos : text.find(',');
        parts[place] = trim(text.substr(0, comma));
        if (comma == std::string_view::npos) break;
        text.remove_prefix(comma + 1);
    }
    return parts;
}

std::string join_locations(const Locations& parts) noexcept {
    std::size_t used = parts.size();
    while (used > 0 && trim(parts[used - 1]).empty()) --used;
    std::string text;
    for (std::size_t place = 0; place < used; ++place) {
        if (place > 0) text += ',';
        text += trim(parts[place]);
    }
    return text;
}

Date expiry_date(const ItemRecord& item) noexcept {
    return item.storage_time == 0 ? 0 : item.last_restock_date + item.storage_time;
}

int storage_days_until(Date day) noexcept {
    const f64 days = std::fabs(std::floor(day) - std::floor(platform_clock().now()));
    return days < std::numeric_limits<int>::max() ? static_cast<int>(days) : 0;
}

f64 stock_of(i16 item) noexcept {
    return item <= lot_table_top ? lot_total(item) : row_or_none(items, item).quantity;
}

Attention attention_of(i16 item) noexcept {
    const ItemRecord& record = row_or_none(items, item);
    const f64 stock = stock_of(item);
    Attention attention;
    attention.expired = holds_expired_lot(item);
    attention.expires_soon =
        !attention.expired && stock > 0 && nears_end_of_shelf_life(record, platform_clock().now());
    attention.low = record.stock_quantity != 0 && stock <= record.restock_quantity;
    return attention;
}

std::string attention_text(const Attention& attention) noexcept {
    std::string text;
    if (attention.expired) text = "Expired";
    if (attention.expires_soon) text = "Expires soon";
    if (attention.low) text += text.empty() ? "Low" : ", low";
    return text;
}

i16 create_item_from_form(const ItemValues& values) {
    const i16 fat = round_to_i16(values.fat);
    const i16 calories = round_to_i16(values.calories);
    const i16 item = create_item(values);
    items[item].fat = fat;
    items[item].calories = calories;
    return item;
}

}  // namespace tavernook
