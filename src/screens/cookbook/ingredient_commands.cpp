#include "screens/cookbook/ingredient_commands.h"

#include <QObject>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "screens/parts/guard.h"
#include "screens/parts/screen.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

f64 quantity_in(i16 recipe, i16 item) {
    const MealRecord& meal = row_or_none(meals, recipe);
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        if (meal.ingredient_item[place] == item) return meal.ingredient_qty[place];
    }
    return 0;
}

std::string quantity_prompt(i16 item) {
    const ItemRecord& record = row_or_none(items, item);
    const std::string unit(row_or_none(units, record.serving_size_units).name.trimmed());
    return "Servings of " + std::string(record.name.trimmed()) +
           " (1 Serving = " + number_text(record.serving_size) + " " + unit + ")";
}

template <typename Entry>
void enter(i16 recipe, const Entry& entry) {
    if (!is_live_meal(recipe)) {
        return say(std::string_view("No recipe is shown in the recipe manager."));
    }
    if (entry()) project_modified = i16_true;
}

// The item screen, to pick or weigh an ingredient in.
ports::FoodInventory* item_screen() {
    show_screen(QStringLiteral("FoodInventory"));
    return food_inventory();
}

}  // namespace

void enter_ingredient(i16 item, f64 quantity, i16 recipe) {
    enter(recipe, [&] { return add_ingredient(item, quantity, recipe); });
}

void enter_ingredient_quantity(i16 item, f64 quantity, i16 recipe) {
    enter(recipe, [&] { return set_ingredient_qty(item, quantity, recipe); });
}

void ask_ingredient_quantity(i16 item, RowRef recipe) {
    const RowRef asked(Subject::items, item);
    if (asked.now() == 0) return;
    const std::string present = number_text(quantity_in(recipe.now(), item));
    const auto typed = boxes().input(quantity_prompt(item), "Ingredient Quantity", present);
    if (!typed || *typed == present) return;
    if (typed->empty() || !reads_as_number(*typed)) {
        return say("\"" + *typed + "\" is not a number; the ingredient keeps its quantity.");
    }
    if (recipe.now() == 0 || asked.now() == 0) {
        return say(QObject::tr("The recipe or the item is not there any more."));
    }
    enter_ingredient_quantity(asked.now(), leading_number(with_decimal_point(*typed)),
                              recipe.now());
}

void choose_ingredient() {
    if (auto* screen = item_screen()) screen->set_return(ports::FoodInventory::adds_to_recipe);
}

void open_ingredient(i16 item) {
    ports::FoodInventory* screen = item != 0 ? item_screen() : nullptr;
    if (screen == nullptr) return;
    screen->view_item(item, i16_true);
    screen->set_return(ports::FoodInventory::sets_quantity_in_recipe);
}

}  // namespace tavernook
