#include "recipes/catagory_removal.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/catagories.h"
#include "core/changes.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "recipes/meals.h"

namespace tavernook {

namespace {

std::vector<i16> meals_in(i16 slot) {
    std::vector<i16> found;
    for (i16 meal = 1; meal <= meal_capacity; ++meal) {
        if (meals[meal].in_use == 1 && meals[meal].category == slot) found.push_back(meal);
    }
    return found;
}

// A category and the recipes in it: the same ones as long as these are equal.
std::vector<RowRef> contents_of(i16 slot, const std::vector<i16>& recipes) {
    std::vector<RowRef> found{RowRef(Subject::catagories, slot)};
    for (const i16 meal : recipes) found.push_back(RowRef(Subject::recipes, meal));
    return found;
}

bool any_is_planned(const std::vector<i16>& recipes) {
    return std::any_of(recipes.begin(), recipes.end(),
                       [](i16 meal) { return !meal_use_dates(meal).empty(); });
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

i16 refuse_for_planned_meals() {
    return refuse("Cannot delete Category because meals within this category are planned.");
}

bool may_delete_with(const std::vector<i16>& recipes, i16 slot) {
    if (recipes.empty()) return true;
    const bool one = recipes.size() == 1;
    const std::string what =
        one ? "the one recipe" : "all " + std::to_string(recipes.size()) + " recipes";
    const std::string name(catagories[slot].name.trimmed());
    return boxes().message("Deleting the category " + name + " also deletes " + what +
                               " in it.  Press YES to delete " + (one ? "it" : "them") +
                               " or press NO to keep everything.",
                           Buttons::yes_no, "Delete Category", DefaultButton::no) == Answer::yes;
}

i16 remove_unless_refused(i16 slot) {
    if (slot == 1) return refuse("Can't Delete General Catagory.");
    const bool of_recipes = catagories[slot].type != 0;
    const std::vector<i16> recipes = of_recipes ? meals_in(slot) : std::vector<i16>{};
    if (any_is_planned(recipes)) return refuse_for_planned_meals();
    if (holds_items(slot)) return refuse("This category has items in it.  Cannot Delete.");
    const std::vector<RowRef> asked = contents_of(slot, recipes);
    if (!may_delete_with(recipes, slot)) return 0;
    if (of_recipes && contents_of(slot, meals_in(slot)) != asked) {
        main_window().set_status(message_panel,
                                 "The category has changed meanwhile; nothing was deleted.");
        return 0;
    }
    // The plans may be others than before the question.
    if (any_is_planned(recipes)) return refuse_for_planned_meals();
    for (const i16 meal : recipes) delete_meal(meal, true);
    category_edit_mode = 0;
    catagories[slot].in_use = 0;
    return i16_true;
}

}  // namespace

i16 delete_catagory(i16 slot) noexcept {
    i16 gone = i16_false;
    trap_in_module([&] { gone = remove_unless_refused(slot); });
    return gone;
}

}  // namespace tavernook
