#include "shopping/shopping_flags.h"

#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// The lots' own dates play no part: an item keeps for storage_time days behind its last restock.
bool is_expiring(const ItemRecord& item) {
    if (item.storage_time == 0) return false;
    const f64 age = platform_clock().now() - item.last_restock_date;
    return age + expiration_warning_days >= item.storage_time;
}

}  // namespace

void update_shopping_flag(i16 item) {
    ItemRecord& record = items[item];
    const bool active = record.stock_quantity != 0 && record.in_use != 0;
    const bool low = record.quantity <= record.restock_quantity;
    const bool expiring = record.on_shopping_list == 0 && is_expiring(record);
    const bool wanted = active && (low || expiring);
    record.on_shopping_list = truth(wanted);
    if (wanted) record.shopping_quantity = record.stock_quantity - record.quantity;
}

}  // namespace tavernook
