// How long an item keeps. The lots' own dates play no part: an item keeps for storage_time days
// behind its last restock.
#pragma once

#include "core/project_data.h"

namespace tavernook {

// True from expiration_warning_days before the end on; never for an item that does not expire.
inline bool nears_end_of_shelf_life(const ItemRecord& item, Date now) noexcept {
    if (item.storage_time == 0) return false;
    return now - item.last_restock_date + expiration_warning_days >= item.storage_time;
}

}  // namespace tavernook
