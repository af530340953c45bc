// How long an item keeps, told in one place for every list and screen. An item keeps for
// storage_time days behind its last restock; the lots' own dates play no part in that. A single lot
// keeps until its own day. An item whose storage_time is 0 does not expire, whatever dates its lots
// bear.
#pragma once

#include <cmath>
#include <cstddef>

#include "core/project_data.h"

namespace tavernook {

// True from expiration_warning_days before the end on; never for an item that does not expire.
inline bool nears_end_of_shelf_life(const ItemRecord& item, Date now) noexcept {
    if (item.storage_time == 0) return false;
    return now - item.last_restock_date + expiration_warning_days >= item.storage_time;
}

// True for stock that is past its day; on the day itself it is still good. `place` is 0..15.
inline bool lot_has_expired(const ItemRecord& item, const LotRecord& lot, std::size_t place,
                            Date now) noexcept {
    const Date last_day = lot.expiration_date[place];
    return item.storage_time != 0 && lot.lot_quantity[place] > 0 && last_day != 0 &&
           std::floor(last_day) < std::floor(now);
}

}  // namespace tavernook
