#include "screens/pantry/hand_over.h"

#include "core/program_state.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

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
        items[item].on_shopping_list = i16_true;
        if (ports::ShoppingList* list = shopping_list()) list->populate_list();
    } else {
        return;
    }
    project_modified = i16_true;
}

}  // namespace tavernook
