// A recipe comes in.
#include <algorithm>
#include <cmath>

#include "transfer/recipe_import_fixture.h"

namespace tavernook {
namespace {

// --- a whole one --------------------------------------------------------------------------------

TEST_F(RecipeImport, BringsTheRecipeIn) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar, named("Salt")};
    const i16 slot = import_bytes(recipe.bytes());
    ASSERT_EQ(slot, 1);
    EXPECT_EQ(name_of_recipe(1), "Soup");
    EXPECT_EQ(meals[1].in_use, 1);
    EXPECT_EQ(meals[1].category, soups);
    EXPECT_EQ(meal_serving_size[1], 4);
    EXPECT_EQ(units[meals[1].serving_size_units].name, "bowl");
    EXPECT_EQ(ingredient(1, 1), 1);
    EXPECT_EQ(ingredient(1, 2), 2);
    EXPECT_EQ(ingredient(1, 3), 0);
    EXPECT_EQ(meals[1].ingredient_qty[1], 2.5);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(meal_documents[1], "*vk14home000001.rtf");
    EXPECT_EQ(read_whole_file(recipes_folder + "home000001.rtf"), "{\\rtf1 Stir.}");
    EXPECT_EQ(message(),
              "Imported the recipe \"Soup\" with 2 ingredients: 2 new items, 0 of yours.  New "
              "units: 2.");
}

TEST_F(RecipeImport, BringsTheItemsInWhole) {
    import(sugar);
    const ItemRecord& item = items[1];
    const ItemDetailRecord& detail = item_details[1];
    EXPECT_EQ(name_of_item(1), "Sugar");
    EXPECT_EQ(item.in_use, 1);
    EXPECT_EQ(item.category, 1);
    EXPECT_EQ(item.locations, 0);
    EXPECT_EQ(item.cost, 1.25);
    EXPECT_EQ(item.storage_time, 30);
    EXPECT_EQ(item.qty_units, 1);
    EXPECT_EQ(item.store, bakery);
    EXPECT_EQ(units[item.serving_size_units].name, "spoon");
    EXPECT_EQ(item.barcode, "4006381333931");
    EXPECT_EQ(pooled_text(detail.manufacturer), "Mill");
    EXPECT_EQ(pooled_text(detail.brand), "Sweet");
    EXPECT_EQ(pooled_text(detail.description), "white");
    EXPECT_EQ(pooled_text(detail.notes), "keep dry");
    EXPECT_EQ(detail.fat, 0.5);
    for (const NutrientFields& nutrient : nutrient_fields) EXPECT_EQ(detail.*nutrient.unit, 2);
    EXPECT_EQ(item.quantity, 12);
    EXPECT_EQ(lot_total(1), 12);
    EXPECT_EQ(lots[1].expiration_date[0], 45030);
}

TEST_F(RecipeImport, AUnitComesIntoBeingOnce) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar, named("Salt"), named("Honey")};
    recipe.serving_unit = "SPOON";
    import_bytes(recipe.bytes());
    EXPECT_EQ(std::count_if(units.begin(), units.end(),
                            [](const UnitRecord& unit) { return unit.in_use == 1; }),
              3);
    EXPECT_EQ(items[1].serving_size_units, meals[1].serving_size_units);
    EXPECT_EQ(items[3].serving_size_units, meals[1].serving_size_units);
}

TEST_F(RecipeImport, AnEmptyDescriptionMakesNoRowOfThePool) {
    IngredientBytes plain = sugar;
    plain.description = plain.notes = plain.manufacturer = plain.brand = "";
    import(plain);
    EXPECT_EQ(item_details[1].description, 0);
    EXPECT_EQ(item_details[1].notes, 0);
    EXPECT_TRUE(std::all_of(pooled_strings.begin(), pooled_strings.end(),
                            [](const std::string& text) { return text.empty(); }));
}

TEST_F(RecipeImport, ALongDescriptionIsCutAndTheBlockGoesOnBehindIt) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar, named("Salt")};
    recipe.ingredients[0].description = std::string(70'000, 'd');
    EXPECT_EQ(import_bytes(recipe.bytes()), 1);
    EXPECT_EQ(pooled_text(item_details[1].description).size(), 65535u);
    EXPECT_EQ(pooled_text(item_details[1].notes), "keep dry");
    EXPECT_EQ(name_of_item(2), "Salt");
}

TEST_F(RecipeImport, ABrandIsReadTwelveWide) {
    IngredientBytes branded = sugar;
    branded.brand = "Grandmother's Finest";
    import(branded);
    EXPECT_EQ(pooled_text(item_details[1].brand), "Grandmother'");
}

TEST_F(RecipeImport, NulsBehindATextAreNoPartOfIt) {
    make_item(8, "Sugar");
    IngredientBytes padded_with_nuls = sugar;
    padded_with_nuls.name = std::string("Sugar\0\0\0", 8) + std::string(24, '\0');
    padded_with_nuls.unit = std::string("kg") + std::string(10, '\0');
    user_is_asked_about_item("Sugar", Answer::no);
    import(padded_with_nuls);
    EXPECT_EQ(items[1].name, "Sugar");
    EXPECT_EQ(items[1].qty_units, 1);
    EXPECT_EQ(meals[1].name.stored(), padded("Soup", 32));
}

TEST_F(RecipeImport, WithoutIngredientsTheTailIsAt100) {
    EXPECT_EQ(import_bytes(RecipeBytes{}.bytes()), 1);
    EXPECT_EQ(read_whole_file(document_path(1)), "{\\rtf1 Stir.}");
    EXPECT_EQ(message(),
              "Imported the recipe \"Soup\" with 0 ingredients: 0 new items, 0 of yours.  New "
              "units: 1.");
}

TEST_F(RecipeImport, WithoutATextThereIsNoFile) {
    meal_documents[1] = "*vk14home000001.rtf";
    RecipeBytes recipe;
    recipe.document = "";
    EXPECT_EQ(import_bytes(recipe.bytes()), 1);
    EXPECT_EQ(meal_documents[1], "");
    EXPECT_TRUE(recipe_files().empty());
}

TEST_F(RecipeImport, OverwritingWithoutATextLeavesTheOldFileToTheSavedProject) {
    make_recipe(6, "Soup");
    store_document(6, "{\\rtf1 old}");
    user_is_asked_about_recipe(Answer::yes);
    RecipeBytes recipe;
    recipe.document = "";
    EXPECT_EQ(import_bytes(recipe.bytes()), 6);
    EXPECT_EQ(meal_documents[6], "");
    EXPECT_EQ(read_whole_file(recipes_folder + "home000006.rtf"), "{\\rtf1 old}");
}

TEST_F(RecipeImport, TakesTheFirstFreeSlotAndNothingOfWhatStoodThere) {
    make_recipe(1, "Bread");
    meals[2].ingredient_item[4] = 17;
    meals[2].serving_size_units = 2;
    RecipeBytes recipe;
    recipe.serving_unit = "";
    EXPECT_EQ(import_bytes(recipe.bytes()), 2);
    EXPECT_EQ(ingredient(2, 4), 0);
    EXPECT_EQ(meals[2].serving_size_units, 0);
}

TEST_F(RecipeImport, TheTextOfADeletedRecipeIsNotThatOfTheNextOne) {
    meal_documents[1] = "*vk14home000001.rtf";
    RecipeBytes recipe;
    platform.boxes.expect_message("Import_RPF63");
    EXPECT_EQ(import_bytes(recipe.bytes().substr(0, recipe.tail())), 0);
    EXPECT_EQ(meals[1].in_use, 1);
    EXPECT_EQ(meal_documents[1], "");
}

TEST_F(RecipeImport, FiguresThatAreNoNumbersCountAsNone) {
    RecipeBytes recipe;
    recipe.serving_size = std::nan("");
    recipe.ingredients = {sugar};
    recipe.ingredients[0].quantity_in_recipe = HUGE_VAL;
    EXPECT_EQ(import_bytes(recipe.bytes()), 1);
    EXPECT_EQ(meal_serving_size[1], 0);
    EXPECT_EQ(meals[1].ingredient_qty[1], 0);
}

TEST_F(RecipeImport, AFreshItemHasNoHistoryOfAnOlderOne) {
    lots.grow(1);
    lots[1].lot_quantity[3] = 99;
    lots[1].current_lot = 3;
    import(sugar);
    EXPECT_EQ(lot_total(1), 12);
    EXPECT_EQ(lots[1].current_lot, 0);
}

TEST_F(RecipeImport, ShowsTheRecipe) {
    FakeMealbuilder screen(platform.calls);
    import(sugar);
    EXPECT_EQ(screen.recipe, 1);
    EXPECT_EQ(platform.calls.entries.front(), "Mealbuilder save_document");
    const auto& calls = platform.calls.entries;
    const auto shown = std::find(calls.begin(), calls.end(), "Mealbuilder setid 1");
    ASSERT_LT(shown + 2, calls.end());
    EXPECT_EQ(shown[1], "Mealbuilder populate_tree");
    EXPECT_EQ(shown[2], "Mealbuilder populate_tree_list 1");
}

// --- there and back -----------------------------------------------------------------------------

TEST_F(RecipeImport, WhatWentOutComesIn) {
    make_recipe(40, "Apple pie");
    for (i16 place = 1; place <= ingredient_places; ++place) {
        const i16 item = make_item(static_cast<i16>(place * 100), "Item " + std::to_string(place));
        items[item].qty_units = 1;
        items[item].store = bakery;
        item_details[item].notes = add_string(std::string(static_cast<std::size_t>(place), 'n'));
        meals[40].ingredient_item[static_cast<std::size_t>(place)] = item;
        meals[40].ingredient_qty[static_cast<std::size_t>(place)] = place / 4.0;
    }
    const std::string text = "{\\rtf1 " + std::string(100'000, 'x') + "}";
    store_document(40, text);
    export_soup(40);

    open_project("cabin.tvk");
    stores[bakery] = {"Other", 1};
    ASSERT_EQ(import_soup(), 1);
    EXPECT_EQ(name_of_recipe(1), "Apple pie");
    for (i16 place = 1; place <= ingredient_places; ++place) {
        EXPECT_EQ(ingredient(1, static_cast<std::size_t>(place)), place);
        EXPECT_EQ(meals[1].ingredient_qty[static_cast<std::size_t>(place)], place / 4.0);
        EXPECT_EQ(name_of_item(place), "Item " + std::to_string(place));
        EXPECT_EQ(stores[items[place].store].name, "Bakery");
        EXPECT_EQ(pooled_text(item_details[place].notes).size(), static_cast<std::size_t>(place));
    }
    EXPECT_TRUE(read_whole_file(recipes_folder + "cabin000001.rtf") == text);
}

}  // namespace
}  // namespace tavernook
