#include "planning/day_totals.h"

#include "basics/number_text.h"
#include "core/money_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "planning/day_places.h"
#include "recipes/roll_up.h"

namespace tavernook {

namespace {

void add_item(DayTotals& totals, i16 item, f64 quantity) {
    if (!is_live_row(items, item)) return;
    const ItemRecord& record = items[item];
    const f64 servings = record.servings_per_qty_unit == 0 ? 1.0 : record.servings_per_qty_unit;
    totals.calories += quantity * item_details[item].calories;
    totals.fat += quantity * item_details[item].fat;
    // An item without a serving size is planned with a quantity of 0.
    if (quantity != 0) {
        totals.cost += divide(quantity * record.cost, servings * record.serving_size);
    }
}

void add_recipe(DayTotals& totals, i16 recipe, f64 servings) {
    if (!is_live_row(meals, recipe)) return;
    const f64 size = meal_serving_size[recipe] == 0 ? 1.0 : meal_serving_size[recipe];
    if (size < 0) return;
    const RecipeFigures figures = recipe_figures(meals[recipe]);
    totals.fat += figures.fat / size * servings;
    totals.calories += figures.calories / size * servings;
    totals.cost += figures.cost / size * servings;
}

void write_texts(DayTotals& totals) {
    totals.calories_text = format_number(totals.calories, "#0.0#");
    totals.fat_text = format_number(totals.fat, "#0.0#") + "g";
    totals.cost_text = money_text(totals.cost, "##,##0.00");
}

void count_as_one(f64& figure) {
    if (figure == 0) figure = 1;
}

void write_ones(const DayRecord& day) {
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 item = day.planned_item[place];
        if (is_live_row(items, item)) count_as_one(items[item].servings_per_qty_unit);
        const i16 recipe = day.planned_meal[place];
        if (is_live_row(meals, recipe)) count_as_one(meal_serving_size[recipe]);
    }
}

}  // namespace

DayTotals day_totals(const DayRecord& day, const DayQuantityRecord& quantities) {
    DayTotals totals;
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 recipe = day.planned_meal[place];
        if (recipe != 0) add_recipe(totals, recipe, quantities.meal_servings[place]);
    }
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 item = day.planned_item[place];
        if (item != 0) add_item(totals, item, quantities.item_quantity[place]);
    }
    write_texts(totals);
    return totals;
}

DayTotals day_totals_shown(i16 day) noexcept {
    DayTotals totals;
    write_texts(totals);
    trap_in_screen([&] {
        const DayRecord& record = day_at(day);
        totals = day_totals(record, day_quantities[day]);
        write_ones(record);
    });
    return totals;
}

}  // namespace tavernook
