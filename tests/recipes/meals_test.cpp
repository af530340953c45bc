// Slots, names and the making of recipes.
#include "recipes/meals.h"

#include "recipes/recipes_fixture.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;
using FreeMeal = RecipesTest;
using NewMeal = RecipesTest;
using MealByName = RecipesTest;

TEST_F(FreeMeal, IsTheLowestFreeSlot) {
    EXPECT_EQ(find_free_meal(), 1);
    fill_meals(5);
    EXPECT_EQ(find_free_meal(), 6);
    meals[3].in_use = 0;
    EXPECT_EQ(find_free_meal(), 3);
}

TEST_F(FreeMeal, Slot999ComesWithoutAWarning) {
    fill_meals(998);
    EXPECT_EQ(find_free_meal(), 999);
}

TEST_F(FreeMeal, TheThousandthWarnsAlthoughItWasFree) {
    fill_meals(999);
    platform.boxes.expect_message(full_table_warning).buttons(Buttons::ok).title("Tavernook");
    EXPECT_EQ(find_free_meal(), 1000);
}

TEST_F(FreeMeal, InAFullTableIsTheThousandth) {
    fill_meals(1000);
    platform.boxes.expect_message(full_table_warning);
    EXPECT_EQ(find_free_meal(), 1000);
}

TEST_F(NewMeal, StartsWithOneServing) {
    meal_serving_size[1] = 7;  // of a recipe that was deleted
    meals[1].serving_size_units = 4;
    new_meal("Soup", 9);
    EXPECT_EQ(meals[1].name, "Soup");
    EXPECT_EQ(meals[1].in_use, 1);
    EXPECT_EQ(meals[1].category, 9);
    EXPECT_EQ(meal_serving_size[1], 1);
    EXPECT_EQ(meals[1].serving_size_units, 0);
    EXPECT_TRUE(platform.calls.entries.empty());
}

TEST_F(NewMeal, BecomesTheRecipeOnTheScreen) {
    add_meal(1);
    FakeMealbuilder screen(platform.calls);
    new_meal("Soup", 9);
    EXPECT_EQ(platform.calls.entries,
              (Texts{"Mealbuilder clear_document", "Mealbuilder add_node 9r 2c Soup",
                     "Mealbuilder setid 2", "Mealbuilder select_node 2c"}));
    EXPECT_EQ(screen.get_mealid(), 2);
}

TEST_F(NewMeal, WithoutACategoryHangsOnTheRoot) {
    FakeMealbuilder screen(platform.calls);
    new_meal("Soup", 0);
    EXPECT_EQ(platform.calls.entries[1], "Mealbuilder add_node r0 1c Soup");
    EXPECT_EQ(meals[1].category, 0);
}

TEST_F(NewMeal, WithoutACategoryLeavesTheFieldAsItWas) {
    meals[1].category = 5;
    new_meal("Soup", 0);
    EXPECT_EQ(meals[1].category, 5);
    meals[2].category = 6;
    new_meal("Stew", -1);
    EXPECT_EQ(meals[2].category, 6);
}

TEST_F(NewMeal, NamesAreCutToTheField) {
    new_meal("A recipe of thirty-three letters!", 0);
    EXPECT_EQ(meals[1].name.stored(), "A recipe of thirty-three letters");
}

TEST_F(NewMeal, TheThousandthIsStoredAndTheNextOverwritesIt) {
    fill_meals(999);
    platform.boxes.expect_message(full_table_warning);
    new_meal("Last", 3);
    EXPECT_EQ(meals[1000].name, "Last");
    EXPECT_EQ(meals[1000].in_use, 1);
    meal_serving_size[1000] = 6;
    put(1000, 1, 7, 2);
    platform.boxes.expect_message(full_table_warning);
    new_meal("Later", 4);
    EXPECT_EQ(meals[1000].name, "Later");
    EXPECT_EQ(meals[1000].category, 4);
    EXPECT_EQ(meal_serving_size[1000], 1);
    EXPECT_EQ(meals[1000].ingredient_item[1], 7);  // the list of the slot stays
    EXPECT_EQ(meals[1000].ingredient_qty[1], 2);
    EXPECT_EQ(meals[999].name, "Bread");
}

TEST_F(MealByName, FoldsCapitalsAndOuterBlanks) {
    add_meal(12,
             "  Cr\xC8me BR\xDBL\xC9"
             "E");
    EXPECT_EQ(find_meal_by_name(" cr\xE8me br\xFBl\xE9"
                                "e  "),
              12);
    EXPECT_EQ(find_meal_by_name("cr\xE8me"), 0);
}

TEST_F(MealByName, OfTwoGivesTheLowestSlot) {
    add_meal(8, "Soup");
    add_meal(3, "soup");
    EXPECT_EQ(find_meal_by_name("SOUP"), 3);
}

TEST_F(MealByName, PassesOverSlotsThatAreNotLive) {
    add_meal(3, "Soup");
    meals[3].in_use = 0;
    add_meal(0, "Soup");  // entry 0 is no recipe
    EXPECT_EQ(find_meal_by_name("Soup"), 0);
    add_meal(1000, "Soup");
    EXPECT_EQ(find_meal_by_name("Soup"), 1000);
}

TEST_F(MealByName, ABlankNameFindsNoFreeSlot) {
    EXPECT_EQ(find_meal_by_name("  "), 0);
}

}  // namespace
}  // namespace tavernook
