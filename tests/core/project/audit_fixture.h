// A shelf with flour, salt and a recipe for bread, planned days, and the audit over them.
#pragma once

#include "core/program_state.h"
#include "core/project/audit.h"
#include "inventory/usage_history.h"
#include "recipes/recipes_fixture.h"

namespace tavernook {

using Texts = std::vector<std::string>;

// `name` as stored, 32 characters.
inline std::string not_enough_of(std::string name) {
    name.resize(32, ' ');
    return "The quantity that you provided is more than is currently in the inventory for item " +
           name + " .  Cannot update Inventory.  Please adjust the quantity to adjust.";
}

// It is 15 May 2024, 12:00. A bag of flour gives 4 servings of 0.5 cups, a tin of salt 8 of 2 tsps.
// Bread is for 2 and takes 3 servings of flour and 1 of salt.
class AuditTest : public RecipesTest {
  protected:
    static constexpr i16 flour = 7;
    static constexpr i16 salt = 8;
    static constexpr i16 bread = 4;

    AuditTest() {
        add_food(flour, "Flour", 0.5, 4, 10);
        add_food(salt, "Salt", 2, 8, 20);
        add_meal(bread);
        meal_serving_size[bread] = 2;
        put(bread, 1, flour, 3);
        put(bread, 50, salt, 1);
    }

    static void add_food(i16 item, std::string_view name, f64 serving_size, f64 servings,
                         f64 quantity) {
        add_item(item, name);
        items[item].storage_time = 0;
        items[item].serving_size = serving_size;
        items[item].servings_per_qty_unit = servings;
        fill_lots(item, quantity);
    }

    static void plan_item(i16 day, std::size_t place, i16 item, f64 quantity) {
        days[day].planned_item[place] = item;
        day_quantities[day].item_quantity[place] = quantity;
    }

    // Slot 12 is 14 May 2024, yesterday.
    static constexpr i16 yesterday = 12;
    static void plan_yesterday() { add_day(yesterday, 5, 14, 2024); }

    int progress_count(const std::string& event) const {
        const auto& events = platform.progress.events();
        return static_cast<int>(std::count(events.begin(), events.end(), event));
    }
};

}  // namespace tavernook
