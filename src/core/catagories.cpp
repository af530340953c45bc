#include "core/catagories.h"

#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/platform.h"

namespace tavernook {

i16 current_catagory = 1;
i16 category_edit_mode = 0;

namespace {

void show_in_tree(i16 type) {
    if (type == recipe_category_type) {
        if (ports::Mealbuilder* screen = mealbuilder()) screen->populate_tree();
    } else if (ports::FoodInventory* screen = food_inventory()) {
        screen->populate_tree();
    }
}

}  // namespace

i16 find_free_catagory() noexcept {
    i16 slot = 1;
    while (slot < catagory_capacity && catagories[slot].in_use != 0) ++slot;
    return slot;
}

i16 new_catagory(std::string_view name, i16 type, i16 parent) noexcept {
    const i16 slot = find_free_catagory();
    CatagoryRecord& row = catagories[slot];
    row.name = name;
    row.in_use = 1;
    row.type = type;
    row.parent = parent;
    show_in_tree(type);
    return slot;
}

bool is_item_catagory(i16 row) noexcept {
    return is_live_row(catagories, row) && catagories[row].type != recipe_category_type;
}

bool is_recipe_catagory(i16 row) noexcept {
    return is_live_row(catagories, row) && catagories[row].type == recipe_category_type;
}

i16 home_catagory(i16 row) noexcept {
    return is_item_catagory(row) ? row : i16{1};
}

bool rename_catagory(i16 row, std::string_view name) noexcept {
    if (!is_item_catagory(row) || trim(name).empty()) return false;
    catagories[row].name = trim(name);
    project_modified = i16_true;
    return true;
}

bool rename_recipe_catagory(i16 row, std::string_view name) noexcept {
    if (!is_recipe_catagory(row) || trim(name).empty()) return false;
    const FixedString<32> cut(trim(name));
    if (catagories[row].name == cut) return false;
    catagories[row].name = cut;
    project_modified = i16_true;
    return true;
}

}  // namespace tavernook
