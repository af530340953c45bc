#include "inventory/item_form.h"

#include <algorithm>
#include <cmath>

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/lots.h"
#include "inventory/shelf_life.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

bool is_digit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool is_letter(char letter) {
    const char lower = lower_case(letter);
    return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(letter) >= 0xC0U;
}

// Where the leading number ends; 0 when there is none.
std::size_t number_length(std::string_view text) {
    std::size_t end = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    bool digits = false;
    bool point = false;
    for (; end < text.size(); ++end) {
        if (is_digit(text[end])) {
            digits = true;
        } else if (text[end] == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    return digits ? end : 0;
}

bool lot_is_expired(const LotRecord& record, std::size_t place, Date today) {
    return record.lot_quantity[place] > 0 && record.expiration_date[place] != 0 &&
           std::floor(record.expiration_date[place]) < today;
}

bool holds_expired_lot(i16 item) {
    if (items[item].storage_time == 0 || item > lot_table_top) return false;
    const Date today = std::floor(platform_clock().now());
    for (std::size_t place = 0; place < lot_places; ++place) {
        if (lot_is_expired(lots[item], place, today)) return true;
    }
    return false;
}

}  // namespace

std::string with_decimal_point(std::string_view typed) {
    std::string text(typed);
    const std::size_t comma = text.find(',');
    const bool alone = comma != std::string::npos && text.rfind(',') == comma &&
                       text.find('.') == std::string::npos;
    if (alone && comma + 1 < text.size() && is_digit(text[comma + 1])) text[comma] = '.';
    return text;
}

std::optional<f64> typed_number(std::string_view typed) {
    std::optional<f64> number;
    trap([&] { number = whole_number_text(with_decimal_point(typed)); }, [](const Fault&) {});
    return number;
}

bool reads_as_number(std::string_view typed) {
    const std::string normal = with_decimal_point(trim(typed));
    if (normal.empty()) return true;
    const std::size_t end = number_length(normal);
    if (end == 0) return false;
    const std::string_view rest = trim(std::string_view(normal).substr(end));
    return rest.empty() || (is_letter(rest[0]) && std::none_of(rest.begin(), rest.end(), is_digit));
}

Locations split_locations(std::string_view text) {
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

std::string join_locations(const Locations& parts) {
    std::size_t used = parts.size();
    while (used > 0 && trim(parts[used - 1]).empty()) --used;
    std::string text;
    for (std::size_t place = 0; place < used; ++place) {
        if (place > 0) text += ',';
        text += trim(parts[place]);
    }
    return text;
}

bool is_item_catagory(i16 row) {
    return row >= 1 && row <= catagory_capacity && catagories[row].in_use == 1 &&
           catagories[row].type != recipe_category_type;
}

i16 home_catagory(i16 row) {
    return is_item_catagory(row) ? row : i16{1};
}

bool rename_catagory(i16 row, std::string_view name) {
    if (!is_item_catagory(row) || trim(name).empty()) return false;
    catagories[row].name = trim(name);
    project_modified = i16_true;
    return true;
}

Date expiry_date(const ItemRecord& item) {
    return item.storage_time == 0 ? 0 : item.last_restock_date + item.storage_time;
}

int storage_days_until(Date day) {
    return static_cast<int>(std::fabs(std::floor(day) - std::floor(platform_clock().now())));
}

f64 stock_of(i16 item) {
    return item <= lot_table_top ? lot_total(item) : items[item].quantity;
}

Attention attention_of(i16 item) {
    const ItemRecord& record = items[item];
    const f64 stock = stock_of(item);
    Attention attention;
    attention.expired = holds_expired_lot(item);
    attention.expires_soon =
        !attention.expired && stock > 0 && nears_end_of_shelf_life(record, platform_clock().now());
    attention.low = record.stock_quantity != 0 && stock <= record.restock_quantity;
    return attention;
}

std::string attention_text(const Attention& attention) {
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
