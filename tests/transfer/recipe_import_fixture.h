// Recipe files that are put together for an import, and what is in when one was refused.
#pragma once

#include <algorithm>

#include "transfer/recipe_exchange_fixture.h"

namespace tavernook {

inline const IngredientBytes sugar{};

inline IngredientBytes named(const std::string& name) {
    IngredientBytes one;
    one.name = name;
    return one;
}

inline std::string with(const IngredientBytes& ingredient) {
    RecipeBytes recipe;
    recipe.ingredients = {ingredient};
    return recipe.bytes();
}

class RecipeImport : public RecipeExchangeTest {
  protected:
    i16 import(const IngredientBytes& ingredient) { return import_bytes(with(ingredient)); }

    // What is refused, and what is in then: nothing at all, but for the mark and a free name.
    void expect_refused(const std::string& plain, int number) {
        platform.boxes.expect_message("Import_RPF" + std::to_string(number));
        EXPECT_EQ(import_bytes(plain), 0);
        expect_nothing_in();
    }
    void expect_nothing_in() {
        EXPECT_EQ(live_items(), 0);
        EXPECT_TRUE(std::none_of(meals.begin(), meals.end(),
                                 [](const MealRecord& meal) { return meal.in_use != 0; }));
        EXPECT_TRUE(recipe_files().empty());
        EXPECT_EQ(message(), "soup.rpf was not imported: it is no recipe file, or a damaged one.");
    }
};

}  // namespace tavernook
