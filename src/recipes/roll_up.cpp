#include "recipes/roll_up.h"

#include "basics/number_text.h"
#include "core/money_text.h"
#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

namespace {

constexpr int rule_length = 43;

std::string unit_name(i16 unit) {
    return std::string(row_or_none(units, unit).name.trimmed());
}

std::string money(f64 amount) {
    return money_text(amount, "#0.00");
}

f64 cost_of_serving(const ItemRecord& item) {
    return item.cost / (item.servings_per_qty_unit == 0 ? 1.0 : item.servings_per_qty_unit);
}

// Calls `take` with the item and the quantity of each ingredient, in the order of their places.
template <typename Take>
void for_each_ingredient(const MealRecord& meal, Take take) {
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        const i16 number = meal.ingredient_item[place];
        if (number >= 1 && number <= item_capacity) take(number, meal.ingredient_qty[place]);
    }
}

void add_ingredients(RollUp& figures, const MealRecord& meal) {
    for_each_ingredient(meal, [&](i16 number, f64 quantity) {
        const ItemRecord& item = items[number];
        figures.ingredients.push_back(
            {number, std::string(item.name.trimmed()),
             number_text(quantity * item.serving_size) + " " + unit_name(item.serving_size_units)});
    });
}

void write_captions(RollUp& figures) {
    figures.calories_caption = "Calories/" + figures.unit + ":";
    figures.fat_caption = "Fat/" + figures.unit + ":";
    figures.cost_caption = "Cost/" + figures.unit + ":";
}

void write_totals(RollUp& figures) {
    figures.total_calories = number_text(figures.calories);
    figures.total_fat = number_text(figures.fat);
    figures.total_cost = money(figures.cost);
}

void write_figures_per_serving(RollUp& figures, f64 serving_size) {
    if (serving_size < 0) {
        figures.calories_per_serving = figures.fat_per_serving = figures.cost_per_serving = "-";
        return;
    }
    figures.calories_per_serving = format_number(figures.calories / serving_size, "####.00");
    figures.fat_per_serving = format_number(figures.fat / serving_size, "####.00");
    figures.cost_per_serving = money(figures.cost / serving_size);
}

}  // namespace

RecipeFigures recipe_figures(const MealRecord& meal) noexcept {
    RecipeFigures figures;
    for_each_ingredient(meal, [&](i16 number, f64 quantity) {
        const ItemRecord& item = items[number];
        figures.calories += item.calories * quantity;
        figures.fat += item.fat * quantity;
        figures.cost += cost_of_serving(item) * quantity;
    });
    return figures;
}

RollUp roll_up(const MealRecord& meal, f64 serving_size) noexcept {
    const f64 size = serving_size == 0 ? 1.0 : serving_size;
    RollUp figures;
    static_cast<RecipeFigures&>(figures) = recipe_figures(meal);
    figures.serving_size = number_text(size);
    figures.unit = unit_name(meal.serving_size_units);
    add_ingredients(figures, meal);
    write_captions(figures);
    write_totals(figures);
    write_figures_per_serving(figures, size);
    return figures;
}

RollUp roll_up_shown(i16 slot) noexcept {
    if (slot < 1 || slot > meal_capacity) return roll_up(MealRecord{}, 1);
    f64& serving_size = meal_serving_size[slot];
    if (serving_size == 0) serving_size = 1;
    return roll_up(meals[slot], serving_size);
}

std::vector<std::string> information_lines(const RollUp& figures) noexcept {
    const std::string rule(rule_length, '_');
    std::vector<std::string> lines{"Ingredients", rule};
    for (const IngredientLine& ingredient : figures.ingredients) {
        lines.push_back(ingredient.amount + " " + ingredient.name);
    }
    lines.insert(lines.end(),
                 {rule, "Serving Size = " + figures.serving_size + " " + figures.unit,
                  "Nutritional and Cost Information", rule,
                  figures.calories_caption + " " + figures.calories_per_serving,
                  figures.fat_caption + " " + figures.fat_per_serving,
                  figures.cost_caption + " " + figures.cost_per_serving,
                  "Total Calories: " + figures.total_calories, "Total Fat: " + figures.total_fat,
                  "Total Cost: " + figures.total_cost, rule});
    return lines;
}

}  // namespace tavernook
