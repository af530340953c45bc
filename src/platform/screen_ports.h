// What the logic and other screens may ask of a screen. Each port bears its screen's name; the
// accessor gives null while the screen is not loaded.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook::ports {

class FoodInventory {
  public:
    virtual ~FoodInventory() = default;

    virtual i16 getindex() = 0;  // the item shown, 0 when none
    virtual void view_item(i16 item, i16 select) = 0;
    virtual void populate_tree() = 0;
    virtual void refresh_quantity() = 0;  // the quantity box takes the stored quantity
    virtual void refresh_stores() = 0;
    virtual void refresh_units() = 0;
};

class Mealbuilder {
  public:
    virtual ~Mealbuilder() = default;

    virtual void populate_tree() = 0;
};

// Modal, over the screen in front.
class ReplaceItem {
  public:
    virtual ~ReplaceItem() = default;

    virtual void ask_replacement(i16 row, i16 type) = 0;
};

}  // namespace tavernook::ports
