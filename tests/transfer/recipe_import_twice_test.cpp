// A recipe comes in where its items, or it itself, are already.
#include "transfer/recipe_import_fixture.h"

namespace tavernook {
namespace {

// --- items that are here already ----------------------------------------------------------------

TEST_F(RecipeImport, YesUsesTheItemThatIsHere) {
    make_item(8, "sugar  ");
    const ItemRecord before = items[8];
    user_is_asked_about_item("Sugar", Answer::yes);
    import(sugar);
    EXPECT_EQ(ingredient(1, 1), 8);
    EXPECT_EQ(meals[1].ingredient_qty[1], 2.5);
    EXPECT_EQ(items[8], before);
    EXPECT_EQ(live_items(), 1);
    EXPECT_EQ(message(),
              "Imported the recipe \"Soup\" with 1 ingredient: 0 new items, 1 of yours.  New "
              "units: 1.");
}

TEST_F(RecipeImport, NoAddsAnotherItem) {
    make_item(8, "Sugar");
    user_is_asked_about_item("Sugar", Answer::no);
    import(sugar);
    EXPECT_EQ(ingredient(1, 1), 1);
    EXPECT_EQ(name_of_item(1), "Sugar");
    EXPECT_EQ(live_items(), 2);
}

TEST_F(RecipeImport, EachItemIsAskedAbout) {
    make_item(8, "Sugar");
    make_item(9, "Salt");
    RecipeBytes recipe;
    recipe.ingredients = {sugar, named("Honey"), named("Salt")};
    user_is_asked_about_item("Sugar", Answer::yes);
    user_is_asked_about_item("Salt", Answer::no);
    import_bytes(recipe.bytes());
    EXPECT_EQ(ingredient(1, 1), 8);
    EXPECT_EQ(ingredient(1, 2), 1);
    EXPECT_EQ(ingredient(1, 3), 2);
    EXPECT_EQ(message(),
              "Imported the recipe \"Soup\" with 3 ingredients: 2 new items, 1 of yours.  New "
              "units: 2.");
}

TEST_F(RecipeImport, AnItemThatGoesMeanwhileComesInAnew) {
    make_item(8, "Sugar");
    lies_there(with(sugar));
    platform.boxes
        .expect_message(
            "The item Sugar already exists in your inventory.  Press YES to use "
            "existing inventory Item or NO to add the item to inventory as new item",
            Answer::yes)
        .during([] {
            items[8] = {};
            look_for_changes();
        });
    import_soup();
    EXPECT_EQ(ingredient(1, 1), 1);
    EXPECT_EQ(name_of_item(1), "Sugar");
}

// --- a recipe that is here already --------------------------------------------------------------

TEST_F(RecipeImport, YesOverwritesTheRecipe) {
    make_recipe(6, "SOUP ");
    meals[6].category = 2;
    meals[6].ingredient_item[1] = make_item(20, "Water");
    meals[6].ingredient_item[2] = 20;
    meals[6].ingredient_qty[2] = 9;
    store_document(6, "{\\rtf1 old}");
    user_is_asked_about_recipe(Answer::yes);
    EXPECT_EQ(import(sugar), 6);
    EXPECT_EQ(meals[1], MealRecord{});
    EXPECT_EQ(name_of_recipe(6), "SOUP");
    EXPECT_EQ(ingredient(6, 1), 1);
    EXPECT_EQ(ingredient(6, 2), 20);  // above the incoming ones they stay
    EXPECT_EQ(meals[6].ingredient_qty[2], 9);
    EXPECT_EQ(meals[6].category, soups);
    EXPECT_EQ(read_whole_file(document_path(6)), "{\\rtf1 Stir.}");
}

// The recipe manager shows the recipe, with a text that cannot be written.
class UnwritableText : public FakeMealbuilder {
  public:
    using FakeMealbuilder::FakeMealbuilder;
    bool save_document() override { return false; }
};

TEST_F(RecipeImport, ATextOnTheScreenThatCannotBeSavedIsNotOverwritten) {
    make_recipe(6, "Soup");
    UnwritableText screen(platform.calls);
    screen.recipe = 6;
    user_is_asked_about_recipe(Answer::yes);
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(ingredient(6, 1), 0);
    EXPECT_EQ(live_items(), 0);
    EXPECT_EQ(message(), "soup.rpf was not imported: the text on the screen could not be saved.");
}

// The recipe that has such a text stays on show.
TEST_F(RecipeImport, ARecipeThatCannotBeLeftStaysOnShow) {
    make_recipe(6, "Bread");
    UnwritableText screen(platform.calls);
    screen.recipe = 6;
    EXPECT_EQ(import(sugar), 1);
    EXPECT_EQ(screen.recipe, 6);
}

TEST_F(RecipeImport, NoImportsUnderAnotherName) {
    make_recipe(6, "Soup");
    const MealRecord before = meals[6];
    user_is_asked_about_recipe(Answer::no);
    platform.boxes.expect_input("Please enter new Recipe Name:", "Recipe Import Name", "",
                                " Soup of mine ");
    EXPECT_EQ(import(sugar), 1);
    EXPECT_EQ(name_of_recipe(1), "Soup of mine");
    EXPECT_EQ(meals[6], before);
}

TEST_F(RecipeImport, TheNewNameNeedNotBeUnique) {
    make_recipe(6, "Soup");
    user_is_asked_about_recipe(Answer::no);
    platform.boxes.expect_input("Please enter new Recipe Name:", "Recipe Import Name", "", "Soup");
    EXPECT_EQ(import(sugar), 1);
    EXPECT_EQ(name_of_recipe(1), "Soup");
}

// Marked as changed, and the text of a free slot: nothing else.
TEST_F(RecipeImport, CancelLeavesTheNameInAFreeSlot) {
    make_recipe(6, "Soup");
    lies_there(with(sugar));
    user_is_asked_about_recipe(Answer::cancel);
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(name_of_recipe(1), "Soup");
    EXPECT_EQ(meals[1].in_use, 0);
    EXPECT_EQ(live_items(), 0);
    EXPECT_EQ(units[3].in_use, 0);
    EXPECT_EQ(message(), "soup.rpf was not imported: it was cancelled.");

    for (const auto& answer : {std::optional<std::string>(), std::optional<std::string>("  ")}) {
        user_is_asked_about_recipe(Answer::no);
        platform.boxes.expect_input("Please enter new Recipe Name:", "Recipe Import Name", "",
                                    answer);
        EXPECT_EQ(import_soup(), 0);
        EXPECT_EQ(meals[1].in_use, 0);
        EXPECT_EQ(live_items(), 0);
    }
}

TEST_F(RecipeImport, ARecipeThatGoesMeanwhileIsNotOverwritten) {
    make_recipe(6, "Soup");
    lies_there(with(sugar));
    user_is_asked_about_recipe(Answer::yes).during([] {
        meals[6] = {};
        look_for_changes();
    });
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(live_items(), 0);
    EXPECT_EQ(message(),
              "soup.rpf was not imported: the recipe to overwrite is not there any more.");
}

TEST_F(RecipeImport, ASlotThatIsTakenMeanwhileIsNotOverwritten) {
    make_recipe(6, "Soup");
    lies_there(with(sugar));
    user_is_asked_about_recipe(Answer::no).during([&] { make_recipe(1, "Bread"); });
    platform.boxes.expect_input("Please enter new Recipe Name:", "Recipe Import Name", "", "Broth");
    EXPECT_EQ(import_soup(), 2);
    EXPECT_EQ(name_of_recipe(1), "Bread");
    EXPECT_EQ(name_of_recipe(2), "Broth");
}

TEST_F(RecipeImport, TheImportEndsWhenItsRecipeGoes) {
    make_item(8, "Sugar");
    RecipeBytes recipe;
    recipe.ingredients = {named("Salt"), sugar, named("Honey")};
    lies_there(recipe.bytes());
    platform.boxes
        .expect_message(
            "The item Sugar already exists in your inventory.  Press YES to use "
            "existing inventory Item or NO to add the item to inventory as new item",
            Answer::yes)
        .during([] {
            look_for_changes();
            meals[1] = {};
            look_for_changes();
        });
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(meals[1], MealRecord{});
    EXPECT_EQ(live_items(), 2);
    EXPECT_EQ(message(),
              "soup.rpf was not imported: the recipe is not there any more; 1 new item is in.");
}

}  // namespace
}  // namespace tavernook
