#include "screens/planner/other_screens.h"

#include <QObject>

#include "core/project_data.h"
#include "core/rows.h"
#include "planning/day_keys.h"
#include "planning/recommendations.h"
#include "platform/platform.h"
#include "reports/preview.h"
#include "screens/parts/screen.h"
#include "screens/parts/screen_switch.h"
#include "screens/planner/day_commands.h"

namespace tavernook {

namespace {

// Nothing where this version has none, after saying so.
ports::Mealbuilder* recipe_manager() {
    const bool shown = show_screen(QStringLiteral("Mealbuilder")) != nullptr;
    if (shown && mealbuilder() != nullptr) return mealbuilder();
    say(QObject::tr("The recipe manager is not available in this version."));
    return nullptr;
}

ports::FoodInventory* inventory() {
    return show_screen(QStringLiteral("FoodInventory")) != nullptr ? food_inventory() : nullptr;
}

void show_item(i16 item) {
    if (!is_live_row(items, item)) return say_gone(Planned::item);
    if (ports::FoodInventory* screen = inventory()) screen->view_item(item, i16_true);
}

void show_recipe(i16 recipe) {
    if (!is_live_row(meals, recipe)) return say_gone(Planned::recipe);
    if (ports::Mealbuilder* screen = recipe_manager()) screen->set_meal(recipe);
}

}  // namespace

void choose_recipe() {
    if (!may_plan()) return;
    if (ports::Mealbuilder* screen = recipe_manager()) {
        screen->set_return(ports::Mealbuilder::returns_to_planner);
    }
}

void choose_item() {
    if (!may_plan()) return;
    if (ports::FoodInventory* screen = inventory()) {
        screen->set_return(ports::FoodInventory::adds_to_day);
    }
}

void show_entry(const std::string& key) {
    if (get_item_index(key) != 0) return show_item(get_item_index(key));
    if (get_meal_index(key) != 0) show_recipe(get_meal_index(key));
}

void show_recommended_item(const std::string& key) {
    show_item(recommended_item(key));
}

void show_recommended_recipe(const std::string& key) {
    show_recipe(recommended_recipe(key));
}

void show_page(bool of_the_month) {
    of_the_month ? preview_month() : preview_week();
}

}  // namespace tavernook
