// An open project with milk and bread on the shelf, and short ways to look at their places on the
// list.
#pragma once

#include "core/program_state.h"
#include "inventory/pantry_fixture.h"
#include "shopping/shopping_list.h"

namespace tavernook {

class ShoppingTest : public PantryTest {
  protected:
    static constexpr i16 milk = 4;
    static constexpr i16 bread = 9;

    // Of milk 8 are kept and 2 left is low; bread is not kept. It is 15 May 2024, 12:00.
    ShoppingTest() {
        expiration_warning_days = 10;
        add_food(milk, "Milk", 6);
        items[milk].stock_quantity = 8;
        items[milk].restock_quantity = 2;
        add_food(bread, "Bread", 1);
    }

    static void add_food(i16 item, std::string_view name, f64 quantity) {
        add_item(item, name);
        items[item].storage_time = 0;
        fill_lots(item, quantity);
    }

    static void put_on_list(i16 item, f64 quantity) {
        items[item].on_shopping_list = i16_true;
        items[item].shopping_quantity = quantity;
    }

    static void expect_on_list(i16 item, f64 quantity) {
        EXPECT_EQ(items[item].on_shopping_list, -1) << item;
        EXPECT_EQ(items[item].shopping_quantity, quantity) << item;
    }
    static void expect_off_list(i16 item, f64 quantity) {
        EXPECT_EQ(items[item].on_shopping_list, 0) << item;
        EXPECT_EQ(items[item].shopping_quantity, quantity) << item;
    }
};

}  // namespace tavernook
