// A form filled for an item "Flour", and the item made from it.
#pragma once

#include "inventory/items.h"
#include "inventory/pantry_fixture.h"

namespace tavernook {

inline ItemValues flour_values() {
    ItemValues values;
    values.name = " Flour ";
    values.quantity = "2.5";
    values.stock_quantity = 4;
    values.storage_time = 60;
    values.restock_quantity = 1;
    values.cost = 1.25;
    values.qty_units = "kg(s)";
    values.serving_size = 0.5;
    values.serving_size_units = "Cup(s)";
    values.servings_per_qty_unit = 16;
    values.store = "Mill";
    values.store_order = 3;
    values.category = 2;
    values.last_restock_date = 45420;
    values.barcode = "40123455";
    values.manufacturer = "Miller & Son";
    values.brand = "Snow";
    values.description = "Wheat, fine";
    values.notes = "for bread";
    values.locations = "cellar,shelf 2";
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        values.nutrients[nutrient] = {static_cast<f64>(nutrient) + 0.5, "gram(s)"};
    }
    values.fat = 1.5;
    values.calories = 110.5;
    return values;
}

class ItemsTest : public PantryTest {
  protected:
    // The clock stands later and nothing is logged when it returns.
    i16 create_flour() {
        const i16 item = create_item(flour_values());
        platform.files.start_over();
        platform.clock.time = 45430.25;
        return item;
    }
    static void update_quantity(i16 item, const std::string& quantity) {
        ItemValues values = flour_values();
        values.quantity = quantity;
        EXPECT_TRUE(update_item(item, values));
    }
};

}  // namespace tavernook
