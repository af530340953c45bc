// A recipe goes out.
#include "transfer/recipe_exchange_fixture.h"

namespace tavernook {
namespace {

class RecipeExport : public RecipeExchangeTest {
  protected:
    void make_soup() {
        make_recipe(4, "Soup");
        units[9] = {"bowl", 1};
        units[10] = {"spoon", 1};
        meals[4].serving_size_units = 9;
        meal_serving_size[4] = 4;
        meals[4].ingredient_item[7] = make_sugar();
        meals[4].ingredient_qty[7] = 2.5;
        store_document(4, "{\\rtf1 Stir.}");
    }
    i16 make_sugar() {
        make_item(12, "Sugar");
        ItemRecord& sugar = items[12];
        sugar.category = 7;
        sugar.quantity = 12;
        sugar.qty_units = 1;
        sugar.storage_time = 30;
        sugar.cost = 1.25;
        sugar.store = bakery;
        sugar.locations = 99;
        sugar.serving_size = 10;
        sugar.serving_size_units = 10;
        sugar.last_restock_date = 45000;
        sugar.barcode = "4006381333931";
        ItemDetailRecord& detail = item_details[12];
        detail.manufacturer = add_string("Mill");
        detail.brand = add_string("Sweet");
        detail.description = add_string("white");
        detail.notes = add_string("keep dry");
        detail.fat = 0.5;
        for (const NutrientFields& nutrient : nutrient_fields) detail.*nutrient.unit = 2;
        return 12;
    }
};

TEST_F(RecipeExport, AsksForTheFile) {
    make_soup();
    platform.dialogs.expect_save("Save Recipe Portable Format", cancelled)
        .filter(recipe_filter)
        .initial_file(platform.path("*.rpf"));
    Export_RPF(4);
    platform.dialogs.expect_save("Save Recipe Portable Format", platform.path("*.rpf"));
    Export_RPF(4);
    EXPECT_EQ(message(), "");
    EXPECT_TRUE(platform.cabinets.log.entries.empty());
}

// Row numbers in the records are those at home; all else stands where the layout has it.
TEST_F(RecipeExport, EveryByteStandsAtItsPosition) {
    make_soup();
    export_soup(4);
    RecipeBytes expected;
    expected.ingredients = {IngredientBytes{}};
    ByPosition rows;
    rows.bytes = expected.bytes();
    rows.put_i16(100 + 50, 1);
    rows.put_i16(100 + 70, bakery);
    rows.put_i16(100 + 94, 10);
    const std::size_t detail = 100 + 158;
    rows.put_i16(detail, item_details[12].manufacturer);
    rows.put_i16(detail + 2, item_details[12].brand);
    rows.put_i16(detail + 4, item_details[12].description);
    rows.put_i16(detail + 6, item_details[12].notes);
    for (std::size_t nutrient = 0; nutrient < 9; ++nutrient) {
        rows.put_i16(detail + 24 + nutrient * 10, 2);
    }
    EXPECT_TRUE(exported() == rows.bytes);
    EXPECT_EQ(exported().size(), rows.bytes.size());
    EXPECT_EQ(message(), "Exported the recipe \"Soup\" with 1 ingredient as soup.rpf.");
}

TEST_F(RecipeExport, WithoutIngredientsTheTailIsAt100) {
    make_recipe(4, "Tea");
    store_document(4, "{\\rtf1 Tea}");
    export_soup(4);
    RecipeBytes expected;
    expected.name = "Tea";
    expected.serving_unit = "";
    expected.serving_size = 0;
    expected.document = "{\\rtf1 Tea}";
    EXPECT_TRUE(exported() == expected.bytes());
    EXPECT_EQ(exported().size(), 100u + 22 + 11 + 11);
    EXPECT_EQ(exported()[84], 1);
}

TEST_F(RecipeExport, PlacesArePackedTogether) {
    make_recipe(4, "Soup");
    make_item(12, "Sugar");
    make_item(13, "Salt");
    meals[4].ingredient_item[2] = 13;
    meals[4].ingredient_item[50] = 12;
    meals[4].ingredient_item[30] = 77;     // no item any more
    meals[4].ingredient_item[31] = 32000;  // nor ever
    export_soup(4);
    EXPECT_EQ(exported()[84], 3);
    EXPECT_EQ(exported().substr(101, 32), padded("Salt", 32));
    EXPECT_EQ(exported().substr(100 + 264 + 68 + 4 + 164 + 1, 32), padded("Sugar", 32));
    EXPECT_EQ(message(), "Exported the recipe \"Soup\" with 2 ingredients as soup.rpf.");
}

TEST_F(RecipeExport, ARecipeWithoutATextHasNone) {
    make_recipe(4, "Soup");
    export_soup(4);
    EXPECT_EQ(exported().substr(109, 4), std::string(4, '\0'));
    EXPECT_EQ(exported().size(), 100u + 22 + 11);
}

TEST_F(RecipeExport, ATextThatIsMissingIsTold) {
    make_soup();
    platform.disk.remove(document_path(4));
    export_soup(4);
    EXPECT_EQ(message(),
              "Exported the recipe \"Soup\" with 1 ingredient, but without its text, which is not "
              "there, as soup.rpf.");
}

TEST_F(RecipeExport, AnotherExtensionIsNoRecipeFile) {
    make_soup();
    const std::string chosen = platform.path("soup 1.5");
    platform.dialogs.expect_save("Save Recipe Portable Format", chosen);
    Export_RPF(4);
    EXPECT_FALSE(platform.disk.exists(chosen));
    EXPECT_TRUE(platform.disk.exists(chosen + ".rpf"));
}

TEST_F(RecipeExport, ARecipeThatGoesMeanwhileIsNotExported) {
    make_soup();
    platform.dialogs.expect_save("Save Recipe Portable Format", soup_file).during([] {
        meals[4] = {};
        look_for_changes();
    });
    Export_RPF(4);
    EXPECT_FALSE(platform.disk.exists(soup_file));
    EXPECT_EQ(message(), "The recipe is not there any more; nothing was exported.");
}

TEST_F(RecipeExport, CancelAndFailureLeaveTheOlderFile) {
    make_soup();
    write_whole_file(soup_file, "older");
    platform.progress.cancelled = true;
    export_soup(4);
    EXPECT_EQ(read_whole_file(soup_file), "older");
    EXPECT_EQ(message(), "The recipe was not exported: it was cancelled; soup.rpf is as it was.");
    platform.progress.cancelled = false;
    platform.cabinets.failure = Fault(fault_number::disk_full);
    platform.boxes.expect_message("Export_RPF61");
    export_soup(4);
    EXPECT_EQ(read_whole_file(soup_file), "older");
    platform.disk.remove(soup_file);
    platform.boxes.expect_message("Export_RPF61");
    export_soup(4);
    EXPECT_EQ(message(), "The recipe was not exported: Disk full; there is no soup.rpf.");
}

TEST_F(RecipeExport, WhatIsNoRecipeIsNotAskedAbout) {
    for (const i16 slot : {i16{0}, i16{-1}, i16{4}, i16{1001}}) Export_RPF(slot);
    EXPECT_EQ(message(), "");
}

}  // namespace
}  // namespace tavernook
