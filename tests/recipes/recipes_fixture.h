// An open project with short ways to write recipes and plan them.
#pragma once

#include "inventory/pantry_fixture.h"
#include "recipes/meal_plans.h"
#include "recipes/meals.h"
#include "recipes/roll_up.h"

namespace tavernook {

inline constexpr const char* full_table_warning =
    "You have reached the limitation of meals allowed in Tavernook.  It is recommended that you "
    "delete some meals to allow for some more room.";
inline constexpr const char* stock_question =
    "Do you want these changes to the Meal Planner to effect the Inventory?";
inline constexpr const char* audited_day_question =
    "You have chosen to edit an audited day.  Do you want the inventory for the items used by "
    "this Meal to be adjusted as a result?";

class RecipesTest : public PantryTest {
  protected:
    static i16 add_meal(i16 slot, std::string_view name = "Bread") {
        meals[slot].name = name;
        meals[slot].in_use = 1;
        meal_serving_size[slot] = 1;
        return slot;
    }

    static void put(i16 slot, std::size_t place, i16 item, f64 quantity) {
        meals[slot].ingredient_item[place] = item;
        meals[slot].ingredient_qty[place] = quantity;
    }

    // Items 101, 102 ... in all places up to that one, one serving of each.
    static void fill_places(i16 slot, std::size_t last) {
        for (std::size_t place = 1; place <= last; ++place) {
            put(slot, place, static_cast<i16>(100 + place), 1);
        }
    }

    static void fill_meals(i16 last) {
        for (i16 slot = 1; slot <= last; ++slot) add_meal(slot);
    }

    static void add_day(i16 slot, i16 month, i16 day, i16 year) {
        days[slot].in_use = 1;
        days[slot].month = month;
        days[slot].day = day;
        days[slot].year = year;
    }

    static void plan(i16 day, std::size_t place, i16 meal, f64 servings) {
        days[day].planned_meal[place] = meal;
        day_quantities[day].meal_servings[place] = servings;
    }
};

}  // namespace tavernook
