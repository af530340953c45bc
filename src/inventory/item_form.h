// What a form and a list of items need beside the records: the three parts of a location, which
// items want attention, and the keeping of what was entered.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "basics/date.h"
#include "basics/typed_numbers.h"
#include "basics/values.h"
#include "core/catagories.h"
#include "inventory/items.h"

namespace tavernook {

using Locations = std::array<std::string, 3>;

// Parts without the blanks around them; commas beyond the second stay in the third part.
Locations split_locations(std::string_view text) noexcept;
std::string join_locations(const Locations& parts) noexcept;

// 0 for an item that does not expire.
Date expiry_date(const ItemRecord& item) noexcept;

// Whole days between that day and today, whichever is first; 0 for what is no date.
int storage_days_until(Date day) noexcept;

// The sum of the lots, or the stored quantity of an item that has none yet.
f64 stock_of(i16 item) noexcept;

struct Attention {
    bool expired = false;       // a lot in stock is past its day
    bool expires_soon = false;  // in stock, and its time is up within the days of warning
    bool low = false;           // kept in stock, and down to the level for restocking
};
Attention attention_of(i16 item) noexcept;

// "Expired", "Expires soon", "Low", "Expired, low" ...; empty when all is well.
std::string attention_text(const Attention& attention) noexcept;

// create_item, and the whole-number fat and calories that it leaves alone. Returns the number.
// Fault 6, which the form tells, for a figure beyond 16 bits; nothing has changed then.
i16 create_item_from_form(const ItemValues& values);

}  // namespace tavernook
