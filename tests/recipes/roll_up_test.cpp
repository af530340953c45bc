// Amounts, calories, fat and cost of a recipe.
#include "recipes/roll_up.h"

#include "recipes/recipes_fixture.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;
constexpr i16 bread = 4;
constexpr i16 flour = 7;
constexpr i16 salt = 8;
constexpr i16 cups = 2;
constexpr i16 teaspoons = 3;
constexpr i16 each = 1;

// 3 servings of flour: 1.5 cups, 330 calories, 6 fat, 2 / 4 x 3 = 1.5 money.
// Half a serving of salt: 1 teaspoon, 0.5 calories, 0 fat, 0.5 / 8 x 0.5 = 0.03125 money.
// Together: 330.5 calories, 6 fat, 1.53125 money.
class RecipeRollUp : public RecipesTest {
  protected:
    RecipeRollUp() {
        reset_project_tables();
        add_item(flour);
        describe(flour, 110, 2, 0.5, cups, 2.0, 4);
        add_item(salt, "Salt");
        describe(salt, 1, 0, 2, teaspoons, 0.5, 8);
        add_meal(bread);
        put(bread, 1, flour, 3);
        put(bread, 50, salt, 0.5);
        meals[bread].serving_size_units = each;
    }

    static void describe(i16 item, i16 calories, i16 fat, f64 serving_size, i16 unit, f64 cost,
                         f64 servings) {
        items[item].calories = calories;
        items[item].fat = fat;
        items[item].serving_size = serving_size;
        items[item].serving_size_units = unit;
        items[item].cost = cost;
        items[item].servings_per_qty_unit = servings;
    }

    static RollUp of_bread(f64 serving_size) { return roll_up(meals[bread], serving_size); }
};

TEST_F(RecipeRollUp, AddsUpAllFiftyPlaces) {
    const RollUp figures = of_bread(1);
    EXPECT_EQ(figures.calories, 330.5);
    EXPECT_EQ(figures.fat, 6);
    EXPECT_EQ(figures.cost, 1.53125);
    EXPECT_EQ(figures.total_calories, "330.5");
    EXPECT_EQ(figures.total_fat, "6");
    EXPECT_EQ(figures.total_cost, "$1.53");
}

TEST_F(RecipeRollUp, ShowsEachIngredientInItsServingUnit) {
    const RollUp figures = of_bread(1);
    ASSERT_EQ(figures.ingredients.size(), 2U);
    EXPECT_EQ(figures.ingredients[0].item, flour);
    EXPECT_EQ(figures.ingredients[0].name, "Flour");
    EXPECT_EQ(figures.ingredients[0].amount, "1.5 Cup(s)");
    EXPECT_EQ(figures.ingredients[1].item, salt);
    EXPECT_EQ(figures.ingredients[1].amount, "1 tsp(s)");
}

TEST_F(RecipeRollUp, DividesTheFiguresOfAServing) {
    const RollUp figures = of_bread(4);
    EXPECT_EQ(figures.calories_per_serving, "82.63");  // 82.625
    EXPECT_EQ(figures.fat_per_serving, "1.50");
    EXPECT_EQ(figures.cost_per_serving, "$0.38");  // 0.3828125
    EXPECT_EQ(figures.total_calories, "330.5");
    EXPECT_EQ(figures.serving_size, "4");
}

TEST_F(RecipeRollUp, CaptionsNameTheServingUnit) {
    const RollUp figures = of_bread(1);
    EXPECT_EQ(figures.unit, "each");
    EXPECT_EQ(figures.calories_caption, "Calories/each:");
    EXPECT_EQ(figures.fat_caption, "Fat/each:");
    EXPECT_EQ(figures.cost_caption, "Cost/each:");
}

TEST_F(RecipeRollUp, WithoutAUnitTheCaptionsEndAtOnce) {
    meals[bread].serving_size_units = 0;
    EXPECT_EQ(of_bread(1).calories_caption, "Calories/:");
}

TEST_F(RecipeRollUp, OfAnEmptyRecipeIsNothing) {
    const RollUp figures = roll_up(MealRecord{}, 1);
    EXPECT_TRUE(figures.ingredients.empty());
    EXPECT_EQ(figures.total_calories, "0");
    EXPECT_EQ(figures.total_cost, "$0.00");
    EXPECT_EQ(figures.calories_per_serving, ".00");
    EXPECT_EQ(figures.fat_per_serving, ".00");
    EXPECT_EQ(figures.cost_per_serving, "$0.00");
}

TEST_F(RecipeRollUp, BearsTheCurrencyOfTheProject) {
    currency_symbol = 163;
    const RollUp figures = of_bread(1);
    EXPECT_EQ(figures.total_cost,
              "\xA3"
              "1.53");
    EXPECT_EQ(figures.cost_per_serving,
              "\xA3"
              "1.53");
}

TEST_F(RecipeRollUp, AnItemWithoutServingsInAUnitCostsItsUnit) {
    items[flour].servings_per_qty_unit = 0;
    put(bread, 50, 0, 0);
    EXPECT_EQ(of_bread(1).cost, 6);  // 2 / 1 x 3
}

TEST_F(RecipeRollUp, NumbersBelowOneAreNoItems) {
    put(bread, 2, 0, 100);
    put(bread, 3, -5, 100);
    put(bread, 0, flour, 100);
    EXPECT_EQ(of_bread(1).calories, 330.5);
}

TEST_F(RecipeRollUp, ANegativeServingSizeShowsDashesAndStays) {
    meal_serving_size[bread] = -2;
    const RollUp figures = roll_up_shown(bread);
    EXPECT_EQ(figures.calories_per_serving, "-");
    EXPECT_EQ(figures.fat_per_serving, "-");
    EXPECT_EQ(figures.cost_per_serving, "-");
    EXPECT_EQ(figures.total_cost, "$1.53");
    EXPECT_EQ(figures.serving_size, "-2");
    EXPECT_EQ(meal_serving_size[bread], -2);
}

TEST_F(RecipeRollUp, AServingSizeOfZeroBecomesOneWhenShown) {
    meal_serving_size[bread] = 0;
    const RollUp figures = roll_up_shown(bread);
    EXPECT_EQ(meal_serving_size[bread], 1);
    EXPECT_EQ(figures.serving_size, "1");
    EXPECT_EQ(figures.calories_per_serving, "330.50");
    EXPECT_EQ(figures.fat_per_serving, "6.00");
    EXPECT_EQ(figures.cost_per_serving, "$1.53");
}

TEST_F(RecipeRollUp, ASmallServingSizeStaysWhenShown) {
    meal_serving_size[bread] = 0.5;
    EXPECT_EQ(roll_up_shown(bread).fat_per_serving, "12.00");
    EXPECT_EQ(meal_serving_size[bread], 0.5);
}

TEST_F(RecipeRollUp, ReferencesOutsideTheTablesAreLeftOutOrBlank) {
    const RollUp whole = roll_up_shown(bread);
    for (const i16 wrong : {i16{10001}, i16{-1}, i16{32767}}) {
        put(bread, 9, wrong, 1);
        const RollUp figures = roll_up_shown(bread);
        EXPECT_EQ(figures.ingredients.size(), whole.ingredients.size());
        EXPECT_EQ(figures.calories, whole.calories);
        EXPECT_EQ(figures.cost, whole.cost);
    }
    put(bread, 9, 0, 0);
    for (const i16 wrong : {i16{1001}, i16{-1}}) {
        meals[bread].serving_size_units = wrong;
        items[whole.ingredients[0].item].serving_size_units = wrong;
        const RollUp figures = roll_up_shown(bread);
        EXPECT_EQ(figures.unit, "");
        EXPECT_EQ(figures.calories_caption, "Calories/:");
        EXPECT_EQ(figures.ingredients[0].amount.back(), ' ');
        EXPECT_EQ(figures.calories, whole.calories);
    }
}

TEST_F(RecipeRollUp, AnIngredientBeyondTheItemsIsLeftOut) {
    put(bread, 9, 10001, 1);
    EXPECT_EQ(of_bread(1).ingredients.size(), 2U);
    EXPECT_EQ(of_bread(1).calories, 330.5);
}

TEST_F(RecipeRollUp, TheUnitOfARecipeMayBeNone) {
    for (const i16 wrong : {i16{1001}, i16{-1}}) {
        meals[bread].serving_size_units = wrong;
        EXPECT_EQ(of_bread(1).unit, "") << wrong;
    }
}

TEST_F(RecipeRollUp, TheUnitOfAnIngredientMayBeNone) {
    for (const i16 wrong : {i16{1001}, i16{-1}}) {
        items[flour].serving_size_units = wrong;
        EXPECT_EQ(of_bread(1).ingredients[0].amount, "1.5 ") << wrong;
    }
}

TEST_F(RecipeRollUp, ASlotThatIsNoneRollsUpToAnEmptyRecipe) {
    for (const i16 wrong : {i16{-1}, i16{0}, i16{1001}}) {
        const RollUp figures = roll_up_shown(wrong);
        EXPECT_TRUE(figures.ingredients.empty());
        EXPECT_EQ(figures.total_calories, "0");
        EXPECT_EQ(figures.serving_size, "1");
    }
    EXPECT_EQ(meal_serving_size[0], 0);
}

TEST_F(RecipeRollUp, WritesTheBlockForTheDocument) {
    const std::string rule = "___________________________________________";
    ASSERT_EQ(rule.size(), 43U);
    EXPECT_EQ(information_lines(of_bread(4)),
              (Texts{"Ingredients", rule, "1.5 Cup(s) Flour", "1 tsp(s) Salt", rule,
                     "Serving Size = 4 each", "Nutritional and Cost Information", rule,
                     "Calories/each: 82.63", "Fat/each: 1.50", "Cost/each: $0.38",
                     "Total Calories: 330.5", "Total Fat: 6", "Total Cost: $1.53", rule}));
}

}  // namespace
}  // namespace tavernook
