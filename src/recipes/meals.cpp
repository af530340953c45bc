#include "recipes/meals.h"

#include <algorithm>

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/changes.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "core/where_used.h"
#include "platform/platform.h"
#include "recipes/meal_plans.h"

namespace tavernook {

namespace {

constexpr i16 searched_places = 30;
constexpr const char* root_key = "r0";

// Entry 0 of the table is no recipe.
MealRecord& meal_at(i16 slot) {
    if (slot < 1) throw Fault(fault_number::subscript_out_of_range);
    return meals[slot];
}

void require_item(i16 item) {
    if (item < 1 || item > item_capacity) throw Fault(fault_number::subscript_out_of_range);
}

std::string parent_key(i16 category) {
    return category > 0 ? std::to_string(category) + "r" : root_key;
}

Answer ask(const std::string& question) {
    return boxes().message(question, Buttons::yes_no);
}

void clear_meal_record(MealRecord& meal) {
    meal.in_use = 0;
    meal.name = "";
    meal.category = 0;
    std::fill(meal.ingredient_item.begin() + 1, meal.ingredient_item.end(), i16{0});
    std::fill(meal.ingredient_qty.begin() + 1, meal.ingredient_qty.end(), 0.0);
}

// The item number between the first and the last letter of a key.
i16 item_of_key(std::string_view key) {
    if (key.size() < 3) return 0;
    return round_to_i16(leading_number(key.substr(1, key.size() - 2)));
}

i16 delete_if_wanted(i16 slot, bool keep_if_planned) {
    MealRecord& meal = meal_at(slot);
    const RowRef asked(Subject::recipes, slot);
    const std::string dates = meal_use_dates(slot);
    if (!dates.empty()) {
        if (keep_if_planned) return meal_kept_because_planned;
        const Answer go_on =
            ask("This Recipe is used in the Meal Planner on the following dates: " + dates +
                " Press YES to delete the meal plans and the recipe or Press NO to cancel delete.");
        if (go_on != Answer::yes) return meal_kept_by_user;
        const Answer adjust_stock =
            ask("Do you want these changes to the Meal Planner to effect the Inventory?");
        if (RowRef(Subject::recipes, slot) != asked) return meal_kept_by_user;
        if (!remove_meal_from_plans(slot, adjust_stock)) return meal_kept_by_user;
    }
    clear_meal_record(meal);
    return meal_deleted;
}

void put_ingredient(i16 item, f64 quantity, i16 slot) {
    require_item(item);
    MealRecord& meal = meal_at(slot);
    const i16 present = find_ingredient(item, slot);
    const i16 found = present != 0 ? present : find_free_ingredient(slot);
    if (found == 0) throw Fault(fault_number::subscript_out_of_range);
    const auto place = static_cast<std::size_t>(found);
    if (present != 0) {
        meal.ingredient_qty[place] += quantity;
    } else {
        meal.ingredient_item[place] = item;
        meal.ingredient_qty[place] = quantity;
    }
}

void take_ingredient_out(i16 slot, i16 item) {
    MealRecord& meal = meal_at(slot);
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        if (meal.ingredient_item[place] != item) continue;
        meal.ingredient_qty[place] = 0;
        meal.ingredient_item[place] = 0;
    }
}

}  // namespace

i16 find_free_meal() noexcept {
    i16 slot = 1;
    while (slot < meal_capacity && meals[slot].in_use != 0) ++slot;
    if (slot == meal_capacity) {
        boxes().message(
            "You have reached the limitation of meals allowed in Tavernook.  It is recommended "
            "that you delete some meals to allow for some more room.");
    }
    return slot;
}

void new_meal(std::string_view name, i16 category) noexcept {
    const i16 slot = find_free_meal();
    MealRecord& meal = meals[slot];
    if (category > 0) meal.category = category;
    ports::Mealbuilder* screen = mealbuilder();
    if (screen != nullptr) screen->clear_document();
    meal.name = name;
    meal.in_use = 1;
    meal_serving_size[slot] = 1;
    meal.serving_size_units = 0;
    if (screen == nullptr) return;
    const std::string key = std::to_string(slot) + "c";
    screen->add_node(parent_key(category), key, name);
    screen->setid(slot);
    screen->select_node(key);
}

i16 find_meal_by_name(std::string_view name) noexcept {
    const std::string wanted = lower_case(trim(name));
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        const MealRecord& meal = meals[slot];
        if (meal.in_use == 1 && lower_case(meal.name.trimmed()) == wanted) return slot;
    }
    return 0;
}

i16 delete_meal(i16 slot, bool keep_if_planned) noexcept {
    i16 result = meal_kept_by_user;
    trap_in_module([&] { result = delete_if_wanted(slot, keep_if_planned); });
    return result;
}

std::string meal_use_dates(i16 slot) noexcept {
    return meal_users(slot);
}

bool add_ingredient(i16 item, f64 quantity, i16 slot) noexcept {
    return trap_in_module([=] { put_ingredient(item, quantity, slot); });
}

bool set_ingredient_qty(i16 item, f64 quantity, i16 slot) noexcept {
    return trap_in_module([=] {
        require_item(item);
        MealRecord& meal = meal_at(slot);
        for (std::size_t place = 1; place <= ingredient_places; ++place) {
            if (meal.ingredient_item[place] == item) meal.ingredient_qty[place] = quantity;
        }
    });
}

bool remove_ingredient(i16 slot, std::string_view key) noexcept {
    if (key.empty()) {
        boxes().message("Please Select item to DELETE then press the Delete button.");
        return false;
    }
    return trap_in_module([&] { take_ingredient_out(slot, item_of_key(key)); });
}

i16 find_ingredient(i16 item, i16 slot) noexcept {
    const MealRecord& meal = row_or_none(meals, slot);
    for (i16 place = 1; place <= searched_places; ++place) {
        if (item != 0 && meal.ingredient_item[static_cast<std::size_t>(place)] == item)
            return place;
    }
    return 0;
}

i16 find_free_ingredient(i16 slot) noexcept {
    const MealRecord& meal = row_or_none(meals, slot);
    for (i16 place = 1; place <= ingredient_places; ++place) {
        if (meal.ingredient_item[static_cast<std::size_t>(place)] == 0) return place;
    }
    return 0;
}

bool meal_uses_item(i16 item, i16 slot) noexcept {
    const MealRecord& meal = row_or_none(meals, slot);
    const auto& held = meal.ingredient_item;
    return item != 0 && meal.in_use == 1 &&
           std::find(held.begin() + 1, held.end(), item) != held.end();
}

}  // namespace tavernook
