// A recipe comes in.
#include <algorithm>
#include <cmath>

#include "transfer/recipe_exchange_fixture.h"

namespace tavernook {
namespace {

const IngredientBytes sugar{};

IngredientBytes named(const std::string& name) {
    IngredientBytes one;
    one.name = name;
    return one;
}

std::string with(const IngredientBytes& ingredient) {
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

// --- full tables --------------------------------------------------------------------------------

TEST_F(RecipeImport, WithoutRoomForARecipeNothingChanges) {
    for (i16 slot = 1; slot <= meal_capacity; ++slot) meals[slot] = {"Soup", {}, {}, 1, 0, 0};
    const MealRecord last = meals[meal_capacity];
    platform.boxes.expect_message(
        "You have reached the limitation of meals allowed in Tavernook.  It is recommended that "
        "you delete some meals to allow for some more room.");
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(meals[meal_capacity], last);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(message(), "soup.rpf was not imported: there is no room for another recipe.");
}

TEST_F(RecipeImport, TheLastFreeRecipeIsUsedBehindItsWarning) {
    for (i16 slot = 1; slot < meal_capacity; ++slot) meals[slot] = {"Tea", {}, {}, 1, 0, 0};
    platform.boxes.expect_message(
        "You have reached the limitation of meals allowed in Tavernook.  It is recommended that "
        "you delete some meals to allow for some more room.");
    EXPECT_EQ(import(sugar), meal_capacity);
}

TEST_F(RecipeImport, WithoutRoomForAnItemTheImportEndsThere) {
    for (i16 slot = 1; slot <= item_capacity; ++slot) items[slot].in_use = 1;
    items[77].in_use = 0;
    RecipeBytes recipe;
    recipe.ingredients = {sugar, named("Salt")};
    const ItemRecord last = items[item_capacity];
    platform.boxes.expect_message(
        "You have reached the limitation of items allowed in Tavernook.  It is recommended that "
        "you delete some items to allow for some more room.");
    EXPECT_EQ(import_bytes(recipe.bytes()), 0);
    EXPECT_EQ(items[item_capacity], last);
    EXPECT_EQ(ingredient(1, 1), 77);
    EXPECT_EQ(message(),
              "Only a part of soup.rpf is in: the recipe \"Soup\" with 1 of 2 ingredients (1 new "
              "item) and not its text: there is no room for another item.  New units: 2.");
}

TEST_F(RecipeImport, UnitsThatFindNoRoomAreTold) {
    for (i16 row = 1; row <= unit_capacity; ++row) units[row] = {"u" + std::to_string(row), 1};
    units[1].name = "kg";
    units[2].name = "g";
    platform.boxes.expect_message(
        "You have reached the limitation of Units allowed in Tavernook.  It is recommended that "
        "you delete some units to allow for some more room.");
    EXPECT_EQ(import(sugar), 1);
    EXPECT_EQ(meals[1].serving_size_units, 0);
    EXPECT_TRUE(message().ends_with("  Units, stores or texts that found no room: 3."));
}

// --- the unpacking ------------------------------------------------------------------------------

TEST_F(RecipeImport, CancellingTheUnpackingChangesNothing) {
    platform.cabinets.meanwhile = [&](int) { platform.progress.cancelled = true; };
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(meals[1], MealRecord{});
    EXPECT_EQ(message(), "soup.rpf was not imported: it was cancelled.");
}

TEST_F(RecipeImport, AFileThatIsNotThereIsTold) {
    platform.boxes.expect_message("Import_RPF53");
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(message(), "soup.rpf was not imported: it is not there.");
}

TEST_F(RecipeImport, WhatIsNoCabinetIsRefused) {
    write_whole_file(soup_file, "a letter");
    platform.boxes.expect_message("Import_RPF63");
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(project_modified, i16_false);
    expect_nothing_in();
}

TEST_F(RecipeImport, AFullDiskIsTold) {
    platform.cabinets.failure = Fault(fault_number::disk_full);
    platform.boxes.expect_message("Import_RPF61");
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(message(), "soup.rpf was not imported: Disk full.");
}

// --- hostile ones -------------------------------------------------------------------------------

TEST_F(RecipeImport, CountsThatNoRecipeHasAreRefused) {
    for (const int count : {32767, -1, -32768, 0, 52}) {
        ByPosition file;
        file.bytes = with(sugar);
        file.put_i16(85, count);
        expect_refused(file.bytes, 63);
    }
}

TEST_F(RecipeImport, AFileThatEndsInItsHeadIsRefused) {
    for (const std::size_t length : {0, 1, 31, 32, 51, 74, 82, 85}) {
        expect_refused(with(sugar).substr(0, length), 63);
    }
}

// What was read until then stays, and is told.
TEST_F(RecipeImport, AFileThatEndsInABlockIsTold) {
    const std::string whole = with(sugar);
    const std::size_t ends[] = {100, 150, 249, 257, 363, 395, 427, 431, 433, 440, 447, 500, 610};
    for (const std::size_t end : ends) {
        SCOPED_TRACE(end);
        open_project("home.tvk");
        platform.boxes.expect_message("Import_RPF63");
        EXPECT_EQ(import_bytes(whole.substr(0, end)), 0);
        EXPECT_EQ(live_items(), 0);
        EXPECT_EQ(meals[1].in_use, 1);
        EXPECT_EQ(message(),
                  "Only a part of soup.rpf is in: the recipe \"Soup\" with 0 of 1 ingredient (0 "
                  "new items) and not its text: it is no recipe file, or a damaged one.  New "
                  "units: 1.");
    }
}

TEST_F(RecipeImport, AFileThatEndsInItsTailIsTold) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar};
    const std::string whole = recipe.bytes();
    for (std::size_t end = recipe.tail(); end < whole.size(); ++end) {
        SCOPED_TRACE(end);
        open_project("home.tvk");
        platform.boxes.expect_message("Import_RPF63");
        EXPECT_EQ(import_bytes(whole.substr(0, end)), 0);
        EXPECT_EQ(ingredient(1, 1), 1);
        EXPECT_TRUE(recipe_files().empty());
    }
}

TEST_F(RecipeImport, LengthsThatNoTextHasAreRefused) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar};
    const std::size_t q = 100 + 264;
    const std::size_t places[] = {q + 64, q + 68 + 5, recipe.tail() + 10};
    for (const std::size_t place : places) {
        for (const long long length : {-1ll, -2147483648ll, 2147483647ll, 10'000ll}) {
            SCOPED_TRACE(std::to_string(place) + ": " + std::to_string(length));
            open_project("home.tvk");
            ByPosition file;
            file.bytes = recipe.bytes();
            file.put_i32(place, length);
            platform.boxes.expect_message("Import_RPF63");
            EXPECT_EQ(import_bytes(file.bytes), 0);
            EXPECT_TRUE(recipe_files().empty());
        }
    }
}

// Only the project's name and the slot make the name of the text's file.
TEST_F(RecipeImport, NamesWithPathsLeadNowhere) {
    RecipeBytes recipe;
    recipe.name = "../../etc/passwd";
    recipe.ingredients = {named("..\\..\\x")};
    EXPECT_EQ(import_bytes(recipe.bytes()), 1);
    EXPECT_EQ(recipe_files(), std::vector<std::string>{"home000001.rtf"});
    EXPECT_EQ(platform.disk.list(platform.temp.path(), ""), std::vector<std::string>{"soup.rpf"});
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
