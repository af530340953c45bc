// What a recipe amounts to: its ingredients, calories, fat and cost, in total and for one serving.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"

namespace tavernook {

struct IngredientLine {
    i16 item = 0;
    std::string name;
    std::string amount;  // "1.5 Cup(s)"
};

// Totals, of the items' whole-number figures.
struct RecipeFigures {
    f64 calories = 0;
    f64 fat = 0;
    f64 cost = 0;
};

struct RollUp : RecipeFigures {
    std::vector<IngredientLine> ingredients;  // in the order of their places

    std::string serving_size;  // of the recipe, a plain number
    std::string unit;          // of the serving size, trimmed
    std::string total_calories, total_fat, total_cost;
    std::string calories_caption, fat_caption, cost_caption;              // "Calories/Cup(s):"
    std::string calories_per_serving, fat_per_serving, cost_per_serving;  // "-" below size 0
};

// The totals alone. An ingredient outside the table is left out.
RecipeFigures recipe_figures(const MealRecord& meal) noexcept;

// Reads the tables and changes nothing; a serving size of exactly 0 counts as 1. An ingredient
// outside the table is left out, a unit outside the table is blank.
RollUp roll_up(const MealRecord& meal, f64 serving_size) noexcept;

// The same for what is shown: a serving size of exactly 0 becomes 1 in the table. A slot that is
// none rolls up to an empty recipe.
RollUp roll_up_shown(i16 slot) noexcept;

// The block that goes into the recipe's document, line by line.
std::vector<std::string> information_lines(const RollUp& figures) noexcept;

}  // namespace tavernook
