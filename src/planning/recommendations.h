// Recipes that would use up stock whose lots are past their dates.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"

namespace tavernook {

struct Recommendation {
    i16 item = 0;
    i16 recipe = 0;
    f64 quantity = 0;  // of the item, past its date
};

// The key of its row: "i" item ":" recipe.
std::string recommendation_key(const Recommendation& row) noexcept;

struct MealRecommendations {
    std::vector<Recommendation> rows;  // by items, then by recipes, both ascending
    std::string caption;
};

// One row for each live recipe with a live item whose expiring_quantity is above 0. An item without
// a lot record gets one. No question is asked and nothing else changes.
MealRecommendations meal_recommendations() noexcept;

// The two numbers of a row's key; 0 for a key without a colon.
i16 recommended_item(std::string_view key) noexcept;
i16 recommended_recipe(std::string_view key) noexcept;

// The popup's command: asks for a quantity and plans the recipe on current_day with whatever that
// reads as, 0 included for an empty answer; true when it was planned. Nothing happens for a key
// without a colon, and nothing changes when the box is cancelled, or when behind it the recipe is
// not live any more or the day has been audited. Fault 9, which the command of the screen tells,
// for a current_day outside the table.
bool add_recommended_meal(std::string_view key);

// The double click: the same, Fault 9 too, but a quantity that reads as 0 adds nothing.
bool add_recommended_meal_unless_zero(std::string_view key);

}  // namespace tavernook
