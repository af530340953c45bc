#include "shots/shots_planner.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QTreeView>

#include "core/project_data.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "planning/day_plans.h"
#include "platform/platform.h"
#include "recipes/meals.h"
#include "screens/frame/Main.h"
#include "screens/frame/register_screens.h"
#include "screens/parts/screen_switch.h"
#include "screens/planner/calendar_grid.h"

namespace tavernook {

namespace {

struct Food {
    const char* name;
    f64 quantity;
    f64 cost;
    f64 serving_size;
    f64 servings;
    f64 calories;
    f64 fat;
    f64 days_past;  // how long ago its lot has run out
};

// Nutrition and serving weights come from the USDA National Nutrient Database for Standard
// Reference, release 28 (public domain); quantities and prices are synthetic.
const Food foods[] = {
    {"Milk, whole", 1.5, 1.29, 244, 4, 148.8, 7.93, 0},
    {"Egg, whole, raw", 9, 2.49, 50, 10, 71.5, 4.755, 0},
    {"Lentils, raw", 1.25, 3.1, 192, 5, 675.8, 2.035, 15},
    {"Tomatoes, red, ripe", 0.75, 2.24, 149, 6, 26.82, 0.298, 12},
    {"Apples, raw, with skin", 2.5, 4.97, 125, 8, 65, 0.2125, 0},
    {"Bread, cracked-wheat", 1, 2.95, 28.35, 18, 73.71, 1.106, 0},
};

struct Recipe {
    const char* name;
    std::array<i16, 3> ingredients;
    f64 yield;
};

const Recipe recipes[] = {
    {"Tomato Soup", {4, 1, 0}, 4},
    {"Lentil Stew", {3, 4, 0}, 6},
    {"Pancakes", {1, 2, 0}, 4},
    {"Apple Pie", {5, 2, 1}, 8},
    {"French Toast", {6, 2, 1}, 2},
    {"Omelette", {2, 1, 4}, 2},
    {"Baked Apples with Oats", {5, 1, 0}, 4},
};

i16 add_food(const Food& food) {
    ItemValues values;
    values.name = food.name;
    values.quantity = std::to_string(food.quantity);
    values.qty_units = "kg(s)";
    values.cost = food.cost;
    values.serving_size = food.serving_size;
    values.serving_size_units = "gram(s)";
    values.servings_per_qty_unit = food.servings;
    values.category = 1;
    values.last_restock_date = platform_clock().now() - 30;
    values.storage_time = 30 - food.days_past;
    values.barcode = "2000000010014";
    values.nutrients[0].value = food.fat;
    values.nutrients[1].value = food.calories;
    values.fat = food.fat;
    values.calories = food.calories;
    const i16 item = create_item_from_form(values);
    lots[item].expiration_date[0] = platform_clock().now() - food.days_past;
    return item;
}

void add_recipe(const Recipe& recipe) {
    new_meal(recipe.name, 0);
    const i16 slot = find_meal_by_name(recipe.name);
    meal_serving_size[slot] = recipe.yield;
    meals[slot].serving_size_units = 1;
    for (const i16 item : recipe.ingredients) {
        if (item != 0) add_ingredient(item, 2, slot);
    }
}

// Three weeks around today: the past ones are audited, and every third day is left free.
void fill_days() {
    const Date today = date_alone(platform_clock().now());
    for (int n = -12; n <= 9; ++n) {
        if (n % 3 == 2) continue;
        const CivilDate date = civil_from_date(today + n);
        const i16 slot = lowest_free_day();
        DayRecord& day = days[slot];
        day.day = to_i16(date.day);
        day.month = to_i16(date.month);
        day.year = to_i16(date.year);
        day.in_use = 1;
        day.audited = n < 0 ? i16_true : i16_false;
        for (int entry = 0; entry < 1 + (n + 12) % 4; ++entry) {
            const auto place = static_cast<std::size_t>(entry + 1);
            day.planned_meal[place] = to_i16(1 + (n + 12 + entry) % 7);
            day_quantities[slot].meal_servings[place] = 2;
        }
        day.planned_item[1] = to_i16(1 + (n + 12) % 6);
        day_quantities[slot].item_quantity[1] = 1;
    }
}

void fill_plans() {
    expiration_warning_days = 10;
    for (const Food& food : foods) add_food(food);
    for (const Recipe& recipe : recipes) add_recipe(recipe);
    fill_days();
}

void take_cell_menu(const TakePicture& take, Main& window, QWidget& screen) {
    auto* grid = screen.findChild<CalendarGrid*>(QStringLiteral("calendar_grid"));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(grid, &event);
    auto* menu = screen.findChild<QMenu*>(QStringLiteral("popmenu"));
    QApplication::processEvents();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    painter.drawPixmap(window.mapFromGlobal(menu->pos()), menu->grab());
    painter.end();
    menu->close();
    QLabel shown;
    shown.setPixmap(picture);
    shown.resize(window.size());
    take(QStringLiteral("MealPlan_menu"), shown);
}

void take_with_large_text(const TakePicture& take, Main& window) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(large.pointSizeF() * 2);
    QApplication::setFont(large);
    window.resize(1600, 1000);
    QWidget& screen = *show_screen(QStringLiteral("MealPlan"));
    take(QStringLiteral("MealPlan_large_text"), window);
    screen.parentWidget()->close();
    QApplication::setFont(before);
}

}  // namespace

void take_planner_screens(Main& window, const TakePicture& take) {
    const QSize size = window.size();
    reset_project_tables();
    lots.clear();
    window.resize(1200, 800);
    QWidget& screen = *show_screen(QStringLiteral("MealPlan"));
    take(QStringLiteral("MealPlan_empty"), window);
    fill_plans();
    meal_plan()->set_firstcall();
    screen.hide();
    screen.show();
    take(QStringLiteral("MealPlan_month"), window);
    auto* grid = screen.findChild<CalendarGrid*>(QStringLiteral("calendar_grid"));
    grid->setFocus();
    grid->choose(grid->selected_cell() - 4);
    take(QStringLiteral("MealPlan_audited"), window);
    take_cell_menu(take, window, screen);
    window.resize(900, 600);
    take(QStringLiteral("MealPlan_small"), window);
    screen.parentWidget()->close();
    take_with_large_text(take, window);
    reset_project_tables();
    lots.clear();
    window.resize(size);
}

}  // namespace tavernook
