#include "core/catagories.h"

#include "core/project_data.h"
#include "core/where_used.h"
#include "platform/platform.h"

namespace tavernook {

i16 current_catagory = 1;
i16 category_edit_mode = 0;

namespace {

bool holds_planned_meals(i16 slot) {
    for (i16 meal = 1; meal <= meal_capacity; ++meal) {
        if (meals[meal].category == slot && !meal_users(meal).empty()) return true;
    }
    return false;
}

bool holds_items(i16 slot) {
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use == 1 && items[item].category == slot) return true;
    }
    return false;
}

i16 refuse(const char* reason) {
    boxes().message(reason);
    return 0;
}

void show_in_tree(i16 type) {
    if (type == recipe_category_type) {
        if (ports::Mealbuilder* screen = mealbuilder()) screen->populate_tree();
    } else if (ports::FoodInventory* screen = food_inventory()) {
        screen->populate_tree();
    }
}

}  // namespace

i16 find_free_catagory() {
    i16 slot = 1;
    while (slot < catagory_capacity && catagories[slot].in_use != 0) ++slot;
    return slot;
}

i16 new_catagory(std::string_view name, i16 type, i16 parent) {
    const i16 slot = find_free_catagory();
    CatagoryRecord& row = catagories[slot];
    row.name = name;
    row.in_use = 1;
    row.type = type;
    row.parent = parent;
    show_in_tree(type);
    return slot;
}

i16 delete_catagory(i16 slot) {
    if (slot == 1) return refuse("Can't Delete General Catagory.");
    if (catagories[slot].type != 0 && holds_planned_meals(slot)) {
        return refuse("Cannot delete Category because meals within this category are planned.");
    }
    if (holds_items(slot)) return refuse("This category has items in it.  Cannot Delete.");
    category_edit_mode = 0;
    catagories[slot].in_use = 0;
    return i16_true;
}

}  // namespace tavernook
