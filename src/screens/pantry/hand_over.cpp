#include "screens/pantry/hand_over.h"

#include <cmath>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "planning/planner_state.h"
#include "platform/platform.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/qt_dates.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

// Without the crumbs of binary fractions.
QString plain_number(f64 value) {
    constexpr f64 finest = 1e6;
    const f64 rounded = std::round(value * finest) / finest;
    return shown_text(number_text(std::isfinite(rounded) ? rounded : value));
}

void add_to_recipe(i16 item, f64 servings) {
    ports::Mealbuilder* recipes = mealbuilder();
    if (recipes == nullptr) return say(tr("The recipe manager is closed; nothing was added."));
    const i16 recipe = recipes->get_mealid();
    const MealRecord before = row_or_none(meals, recipe);
    recipes->add_ingredient(item, servings, recipe);
    if (!is_live_row(meals, recipe)) return;
    if (meals[recipe] == before)
        return say(tr("Nothing was added to %1.").arg(recipe_name(recipe)));
    say(tr("%1 is added to %2: %3.")
            .arg(item_name(item), recipe_name(recipe), servings_text(item, servings)));
}

void set_in_recipe(i16 item, f64 servings) {
    ports::Mealbuilder* recipes = mealbuilder();
    if (recipes == nullptr) return say(tr("The recipe manager is closed; nothing was changed."));
    const i16 recipe = recipes->get_mealid();
    recipes->set_ingredient_qty(item, servings, recipe);
    recipes->populate_tree_list(recipe);
    if (!is_live_row(meals, recipe)) return;
    const MealRecord& meal = meals[recipe];
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        if (meal.ingredient_item[place] != item || meal.ingredient_qty[place] != servings) continue;
        return say(tr("%1 in %2 is now %3.")
                       .arg(item_name(item), recipe_name(recipe), servings_text(item, servings)));
    }
    say(tr("%1 is not in %2; nothing was changed.").arg(item_name(item), recipe_name(recipe)));
}

QString date_of_day(const DayRecord& day) {
    return spoken_date({day.year, day.month, day.day});
}

void add_to_day(i16 item, f64 servings) {
    ports::MealPlan* planner = meal_plan();
    if (planner == nullptr) return say(tr("The planner is closed; nothing was added."));
    const i16 slot = current_day;
    const DayRecord day = row_or_none(days, slot);
    const DayQuantityRecord quantities = row_or_none(day_quantities, slot);
    planner->Add_Item(item, servings);
    const DayRecord& now = row_or_none(days, slot);
    if (now == day && row_or_none(day_quantities, slot) == quantities) return;
    say(tr("%1 is added to %2: %3.")
            .arg(item_name(item), date_of_day(now), servings_text(item, servings)));
}

// The list shows only what has a quantity to buy.
void put_on_list(i16 item) {
    ItemRecord& record = items[item];
    if (record.on_shopping_list == 0) project_modified = i16_true;
    record.on_shopping_list = i16_true;
    if (ports::ShoppingList* list = shopping_list()) list->populate_list();
    if (record.shopping_quantity == 0) {
        say(tr("%1 is marked for the shopping list; it shows there once it has a quantity.")
                .arg(item_name(item)));
    } else {
        say(tr("%1: %2 on the list.").arg(item_name(item), plain_number(record.shopping_quantity)));
    }
}

}  // namespace

QString servings_text(i16 item, f64 servings) {
    if (!is_live_row(items, item)) return {};
    const f64 size = items[item].serving_size;
    const QString unit = serving_unit(item);
    const auto amount = [&unit](f64 value) {
        return unit.isEmpty() ? plain_number(value) : plain_number(value) + QLatin1Char(' ') + unit;
    };
    return plain_number(servings) + QLatin1String(" x ") + amount(size) + QLatin1String(" = ") +
           amount(servings * size);
}

void hand_over(i16 return_mode, i16 item, f64 servings) {
    using Mode = ports::FoodInventory::ReturnMode;
    switch (return_mode) {
        case Mode::adds_to_recipe:
            return add_to_recipe(item, servings);
        case Mode::adds_to_day:
            return add_to_day(item, servings);
        case Mode::sets_quantity_in_recipe:
            return set_in_recipe(item, servings);
        case Mode::adds_to_shopping_list:
            return put_on_list(item);
        default:
            return;
    }
}

}  // namespace tavernook
