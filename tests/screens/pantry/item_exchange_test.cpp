// The buttons that bring items in and pass them on.
#include "screens/pantry/food_inventory_fixture.h"

namespace tavernook {
namespace {

constexpr const char* export_question =
    "Press YES if you want to Export the entire inventory, Or Press NO if you just want to export "
    "the current selected category.";

class ItemExchange : public FoodInventoryTest {
  protected:
    void SetUp() override {
        FoodInventoryTest::SetUp();
        items[1].in_use = 1;
        items[1].category = 1;
        items[1].name = "Rice";
        open();
        screen().view_item(1, 1);
        settle();
        const std::string commas(37, ',');
        write_whole_file(
            foods, "2\r\nHead\r\nMilk" + commas + "\r\n" + "Fish" + commas.substr(1) + "Cold,\r\n");
    }
    const std::string foods = platform.path("foods.csv");
};

TEST_F(ItemExchange, WhatComesInStandsInTheListAtOnce) {
    platform.dialogs.expect_open("Inventory Import", foods);
    command("item_toolbar_1_8");
    EXPECT_TRUE(model().index_of("c2").isValid());
    EXPECT_EQ(items[2].name, "Milk");
    EXPECT_EQ(items[3].name, "Fish");
    EXPECT_TRUE(model().index_of("r2").isValid());
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ItemExchange, ACancelledImportLeavesTheListAsItWas) {
    platform.import_form.cancel_at = "Imported item: Milk";
    platform.dialogs.expect_open("Inventory Import", foods);
    command("item_toolbar_1_8");
    EXPECT_FALSE(model().index_of("c2").isValid());
    EXPECT_FALSE(model().index_of("r2").isValid());
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ItemExchange, EditsAreAskedAboutBefore) {
    for (const char* name : {"item_toolbar_1_8", "item_toolbar_1_9"}) {
        enter("item_name", "Long rice");
        platform.boxes.expect_message("Save the changes to \"Long rice\"?", Answer::cancel);
        command(name);
        EXPECT_EQ(text("item_name"), "Long rice");
        EXPECT_EQ(items[1].name, "Rice");
    }
    platform.boxes.expect_message("Save the changes to \"Long rice\"?", Answer::yes);
    platform.dialogs.expect_save("Inventory Export", platform.path("pantry.ipf"));
    platform.boxes.expect_message(export_question, Answer::yes);
    command("item_toolbar_1_9");
    EXPECT_NE(read_whole_file(platform.path("pantry.ipf")).find("Long rice"), std::string::npos);
}

}  // namespace
}  // namespace tavernook
