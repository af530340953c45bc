#include "inventory/shown_quantity.h"

#include "platform/platform.h"

namespace tavernook {

void refresh_shown_quantity(i16 item) noexcept {
    ports::FoodInventory* screen = food_inventory();
    if (screen != nullptr && screen->getindex() == item) screen->refresh_quantity();
}

}  // namespace tavernook
