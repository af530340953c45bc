#include "recipes/recipe_names.h"

#include "core/program_state.h"
#include "recipes/recipes_fixture.h"

namespace tavernook {
namespace {

class RecipeNames : public RecipesTest {
  protected:
    RecipeNames() {
        catagories[2].in_use = 1;
        catagories[2].type = recipe_category_type;
        catagories[2].name = "Soups";
        catagories[3].in_use = 1;
        catagories[3].type = -1;
        add_meal(1, "Stew");
        project_modified = i16_false;
    }
};

TEST_F(RecipeNames, OnlyLiveRowsOfTheirKindAreRecipeCategories) {
    EXPECT_TRUE(is_recipe_catagory(2));
    for (const i16 row : {-1, 0, 1, 3, 4, 101, 32000}) EXPECT_FALSE(is_recipe_catagory(row)) << row;
}

TEST_F(RecipeNames, SlotsOutsideTheTableAreNoRecipes) {
    EXPECT_TRUE(is_live_meal(1));
    for (const i16 slot : {-1, 0, 2, 1001}) EXPECT_FALSE(is_live_meal(slot)) << slot;
}

TEST_F(RecipeNames, RecipesAreRenamedWithoutBlanksAroundAndCut) {
    EXPECT_TRUE(rename_meal(1, "  Goulash "));
    EXPECT_EQ(meals[1].name.trimmed(), "Goulash");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_TRUE(rename_meal(1, std::string(32, 'x') + "y"));
    EXPECT_EQ(meals[1].name.trimmed(), std::string(32, 'x'));
}

TEST_F(RecipeNames, EmptyAndUnchangedNamesAreNoChange) {
    EXPECT_FALSE(rename_meal(1, "  "));
    EXPECT_FALSE(rename_meal(1, "Stew"));
    EXPECT_FALSE(rename_meal(2, "Ghost"));
    EXPECT_FALSE(rename_recipe_catagory(3, "Dairy"));
    EXPECT_FALSE(rename_recipe_catagory(0, "Home"));
    EXPECT_EQ(meals[1].name.trimmed(), "Stew");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeNames, CategoriesAreRenamed) {
    EXPECT_TRUE(rename_recipe_catagory(2, "Broths"));
    EXPECT_EQ(catagories[2].name.trimmed(), "Broths");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeNames, RecipesMoveToRecipeCategoriesAndTheRootOnly) {
    EXPECT_TRUE(move_meal(1, 2));
    EXPECT_EQ(home_recipe_catagory(1), 2);
    for (const i16 other : {1, 3, 50, -1, 200}) EXPECT_FALSE(move_meal(1, other)) << other;
    EXPECT_FALSE(move_meal(9, 2));
    EXPECT_EQ(meals[1].category, 2);
    EXPECT_TRUE(move_meal(1, 0));
    EXPECT_EQ(meals[1].category, 0);
}

TEST_F(RecipeNames, AStrangeCategoryCountsAsTheRoot) {
    meals[1].category = 3;
    EXPECT_EQ(home_recipe_catagory(1), 0);
    meals[1].category = -7;
    EXPECT_EQ(home_recipe_catagory(1), 0);
}

TEST_F(RecipeNames, UnitsAreFoundWithoutCapitalsAndBlanks) {
    EXPECT_EQ(unit_named("  CUP(S) "), 2);
    EXPECT_EQ(unit_named("each"), 1);
    EXPECT_EQ(unit_named("dozen"), 0);
    EXPECT_EQ(unit_named(" "), 0);
    units[2].in_use = 0;
    EXPECT_EQ(unit_named("Cup(s)"), 0);
}

}  // namespace
}  // namespace tavernook
