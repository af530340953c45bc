#include "shots/shots_sample.h"

#include <QPushButton>

#include "app/program_start.h"
#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project/main_commands.h"
#include "inventory/items.h"
#include "platform/platform.h"
#include "recipes/meals.h"
#include "screens/frame/Main.h"
#include "screens/frame/register_screens.h"
#include "screens/parts/screen_switch.h"
#include "shots/shots_aids.h"
#include "shots/shots_lessons.h"
#include "shots/shots_preview.h"
#include "shots/shots_reports.h"
#include "shots/shots_scanning.h"

namespace tavernook {

namespace {

void take_item(Main& window, const TakePicture& take, const char* item, const char* picture) {
    food_inventory()->view_item(find_item_by_name(item), i16_true);
    take(QLatin1String(picture), window);
}

}  // namespace

void take_sample_screens(Main& window, const TakePicture& take) {
    project_modified = i16_false;
    project_close();
    if (!place_program_files()) return;
    const QSize size = window.size();
    window.resize(1366, 768);  // what a small laptop has
    window.findChild<QPushButton*>(QStringLiteral("start_sample"))->click();
    window.set_status(activity_panel, "Ready");  // as the next tick of the timer does
    take(QStringLiteral("sample_open"), window);
    QWidget* screen = show_screen(QStringLiteral("FoodInventory"));
    take(QStringLiteral("sample_items"), window);
    take_item(window, take, "Baby Spinach", "sample_item_spinach");
    take_item(window, take, "All-Purpose Flour", "sample_item_flour");
    food_inventory()->populate_Alpha();
    take_item(window, take, "Whole Milk", "sample_item_list");
    screen->parentWidget()->close();
    QWidget* recipes = show_screen(QStringLiteral("Mealbuilder"));
    for (const char* recipe : {"Buttermilk Pancakes", "Tomato Soup"}) {
        mealbuilder()->set_meal(find_meal_by_name(recipe));
        take(QStringLiteral("sample_recipe_") + QLatin1String(recipe).left(4), window);
    }
    recipes->parentWidget()->close();
    show_screen(QStringLiteral("ShoppingList"));
    take(QStringLiteral("sample_shopping_list"), window);
    take_report_screens(window, take);
    audit_now();
    window.set_status(activity_panel, "Ready");
    show_screen(QStringLiteral("MealPlan"));
    take(QStringLiteral("sample_after_audit"), window);
    take_preview_screens(window, take);
    take_scanning_screens(window, take);
    take_aid_screens(window, take);
    take_lessons(window, take);
    project_modified = i16_false;
    project_close();
    window.resize(size);
}

}  // namespace tavernook
