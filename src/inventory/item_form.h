// What a form and a list of items need beside the records: how typed numbers read, the three parts
// of a location, which items want attention, and the keeping of what was entered.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "basics/date.h"
#include "basics/values.h"
#include "inventory/items.h"

namespace tavernook {

// The only comma of a text, with a digit behind it, becomes the decimal point. A text with a
// point or a second comma stays as it is.
std::string with_decimal_point(std::string_view typed);

// A typed text that is a number as a whole, with a decimal point or comma; nothing otherwise.
std::optional<f64> typed_number(std::string_view typed);

// True for a blank text, and for a number with or without a word behind it ("2", "1,5 lb"); false
// where the leading number is not all that was meant ("abc", "1/2", "1.2.3").
bool reads_as_number(std::string_view typed);

using Locations = std::array<std::string, 3>;

// Parts without the blanks around them; commas beyond the second stay in the third part.
Locations split_locations(std::string_view text);
std::string join_locations(const Locations& parts);

// Live, and of items.
bool is_item_catagory(i16 row);

// Where an item of this category is shown: there, or under the first one when it is none.
i16 home_catagory(i16 row);

// Names longer than the field are cut; a blank one is refused.
bool rename_catagory(i16 row, std::string_view name);

// 0 for an item that does not expire.
Date expiry_date(const ItemRecord& item);

// Whole days between that day and today, whichever is first.
int storage_days_until(Date day);

// The sum of the lots, or the stored quantity of an item that has none yet.
f64 stock_of(i16 item);

struct Attention {
    bool expired = false;       // a lot in stock is past its day
    bool expires_soon = false;  // in stock, and its time is up within the days of warning
    bool low = false;           // kept in stock, and down to the level for restocking
};
Attention attention_of(i16 item);

// "Expired", "Expires soon", "Low", "Expired, low" ...; empty when all is well.
std::string attention_text(const Attention& attention);

// create_item, and the whole-number fat and calories that it leaves alone. Returns the number.
i16 create_item_from_form(const ItemValues& values);

}  // namespace tavernook
