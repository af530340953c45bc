#include "screens/pantry/hand_over.h"

#include <string>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/parts/screen.h"

namespace tavernook {

namespace {

// The list shows only what has a quantity to buy.
void put_on_shopping_list(ItemRecord& item) {
    item.on_shopping_list = i16_true;
    const std::string name(item.name.trimmed());
    say(item.shopping_quantity == 0
            ? name + " is marked for the shopping list; it shows there once it has a quantity."
            : name + ": " + number_text(item.shopping_quantity) + " on the list.");
    if (ports::ShoppingList* list = shopping_list()) list->populate_list();
}

}  // namespace

void hand_over(i16 return_mode, i16 item, f64 quantity) {
    using Mode = ports::FoodInventory::ReturnMode;
    ports::Mealbuilder* recipes = mealbuilder();
    if (return_mode == Mode::adds_to_recipe && recipes != nullptr) {
        recipes->add_ingredient(item, quantity, recipes->get_mealid());
    } else if (return_mode == Mode::adds_to_day && meal_plan() != nullptr) {
        meal_plan()->Add_Item(item, quantity);
    } else if (return_mode == Mode::sets_quantity_in_recipe && recipes != nullptr) {
        recipes->set_ingredient_qty(item, quantity, recipes->get_mealid());
        recipes->populate_tree_list(recipes->get_mealid());
    } else if (return_mode == Mode::adds_to_shopping_list) {
        put_on_shopping_list(items[item]);
    } else {
        return;
    }
    project_modified = i16_true;
}

}  // namespace tavernook
