#include "transfer/import_references.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "transfer/item_block.h"
#include "transfer/kept_tables.h"

namespace tavernook {
namespace {

constexpr const char* full_units =
    "You have reached the limitation of Units allowed in Tavernook.  It is recommended that you "
    "delete some units to allow for some more room.";

class References : public testing::Test {
  protected:
    void fill_units(int up_to) {
        for (int row = 1; row <= up_to; ++row) {
            if (units[row].in_use == 0) {
                units[row].name = "u" + std::to_string(row);
                units[row].in_use = 1;
            }
        }
    }

    TestPlatform platform;
};

TEST_F(References, AKnownNameIsItsRowWhateverItsCapitals) {
    units[20].name = "Handful";
    units[20].in_use = 1;
    stores[3].name = "Market";
    stores[3].in_use = 1;
    pooled_strings[500] = "From the Mill";
    ImportReferences references;
    EXPECT_EQ(references.unit("  HANDFUL "), 20);
    EXPECT_EQ(references.store("market"), 3);
    EXPECT_EQ(references.text("from the mill"), 500);
    EXPECT_EQ(references.lost(), 0);
}

TEST_F(References, ANewNameIsMadeOnce) {
    ImportReferences references;
    const i16 row = references.unit("Pinch");
    EXPECT_EQ(units[row].name, "Pinch");
    EXPECT_EQ(units[row].in_use, 1);
    EXPECT_EQ(references.unit("pinch"), row);
    const i16 text = references.text(" Sour ");
    EXPECT_EQ(pooled_strings[text], "Sour");
    EXPECT_EQ(references.text("SOUR"), text);
    EXPECT_NE(references.text("Sweet"), text);
}

TEST_F(References, NamesAlikeInTheTwelveLettersOfATableAreOne) {
    ImportReferences references;
    EXPECT_EQ(references.unit("tablespoonful of oil"), references.unit("tablespoonfu"));
}

TEST_F(References, NoNameIsNoRow) {
    ImportReferences references;
    EXPECT_EQ(references.unit("  "), 0);
    EXPECT_EQ(references.store(""), 0);
    EXPECT_EQ(references.text(" "), 0);
    EXPECT_EQ(references.catagory(" "), 1);
}

TEST_F(References, ARowThatIsNotInUseIsNotFound) {
    units[600].name = "ghost";
    ImportReferences references;
    EXPECT_NE(references.unit("ghost"), 600);
}

TEST_F(References, TheLastRowsAreNotFound) {
    units[1000].name = "last";
    units[1000].in_use = 1;
    pooled_strings[30000] = "last";
    ImportReferences references;
    EXPECT_LT(references.unit("last"), 1000);
    EXPECT_LT(references.text("last"), 30000);
}

TEST_F(References, AFullTableIsToldOnceAndLosesNoRow) {
    fill_units(1000);
    platform.boxes.expect_message(full_units);
    ImportReferences references;
    EXPECT_EQ(references.unit("one"), 0);
    EXPECT_EQ(references.unit("two"), 0);
    EXPECT_EQ(references.unit("one"), 0);
    EXPECT_EQ(references.lost(), 3);
    EXPECT_EQ(units[1000].name, "u1000");
}

TEST_F(References, TheLastFreeRowIsTakenBehindItsBox) {
    fill_units(999);
    platform.boxes.expect_message(full_units);
    ImportReferences references;
    EXPECT_EQ(references.unit("one"), 1000);
    platform.boxes.expect_message(full_units);
    EXPECT_EQ(references.unit("two"), 0);
    EXPECT_EQ(units[1000].name, "one");
}

TEST_F(References, AFullPoolIsToldOnceAndLosesNoText) {
    for (i16 row = 1; row <= 30000; ++row) pooled_strings[row] = "t" + std::to_string(row);
    platform.boxes.expect_message(
        "String Over Storage Error.  Please Contact Brenwyk Support at support@tavernook.example");
    ImportReferences references;
    EXPECT_EQ(references.text("one"), 0);
    EXPECT_EQ(references.text("two"), 0);
    EXPECT_EQ(pooled_strings[30000], "t30000");
    EXPECT_EQ(references.text("T17"), 17);
}

TEST_F(References, ACategoryIsALiveOneOfItemsAndItsCapitalsCount) {
    catagories[5] = {.name = "Sweets", .in_use = 1, .type = 32};
    catagories[6] = {.name = "Sweets", .in_use = 0, .type = -1};
    catagories[7] = {.name = "Sweets", .in_use = 1, .type = -1};
    catagories[8] = {.name = "sweets", .in_use = 1, .type = -1};
    ImportReferences references;
    EXPECT_EQ(references.catagory(" Sweets "), 7);
    const i16 made = references.catagory("SWEETS");
    EXPECT_EQ(catagories[made].name, "SWEETS");
    EXPECT_EQ(catagories[made].type, -1);
    EXPECT_EQ(catagories[made].parent, 0);
}

TEST_F(References, AFullTableOfCategoriesGivesTheFirst) {
    for (i16 row = 1; row <= 100; ++row) {
        catagories[row] = {.name = "c" + std::to_string(row), .in_use = 1, .type = -1};
    }
    ImportReferences references;
    EXPECT_EQ(references.catagory("new"), 1);
    EXPECT_EQ(catagories[100].name, "c100");
    EXPECT_EQ(references.lost(), 1);
}

TEST_F(References, ABlockGetsThisProjectsRows) {
    ItemBlock block;
    block.item.name = "Jam";
    block.item.locations = 77;
    block.item.qty_units = 900;
    block.item.store = 900;
    block.item.store_order = 300;
    block.item.shopping_quantity = std::numeric_limits<f64>::quiet_NaN();
    block.item.on_shopping_list = 1;
    block.item.in_use = 4;
    block.item.category = 12;
    block.qty_units = "jar";
    block.nutrient_units[2] = "mg";
    block.brand = "Ours";
    ImportReferences references;
    references.settle(block);
    EXPECT_EQ(units[block.item.qty_units].name, "jar");
    EXPECT_EQ(units[block.detail.cholestorol_units].name, "mg");
    EXPECT_EQ(pooled_strings[block.detail.brand], "Ours");
    EXPECT_EQ(block.detail.fat_units, 0);
    EXPECT_EQ(block.item.store, 0);
    EXPECT_EQ(block.item.locations, 0);
    EXPECT_EQ(block.item.store_order, 0);
    EXPECT_EQ(block.item.shopping_quantity, 0);
    EXPECT_EQ(block.item.on_shopping_list, 0);
    EXPECT_EQ(block.item.in_use, 1);
    EXPECT_EQ(block.item.category, 12);
}

TEST_F(References, TablesThatWereKeptComeBack) {
    items[5].name = "Old";
    items[5].in_use = 1;
    lots.grow(5);
    lots[5].lot_quantity[3] = 8;
    pooled_strings[4] = "kept";
    meal_documents[9] = "*vk14a.rtf";
    const KeptTables kept;
    items[5].name = "New";
    items[9999].in_use = 1;
    lots.grow(9999);
    lots[5].lot_quantity[3] = 1;
    pooled_strings[4] = "changed";
    pooled_strings[30000] = "new";
    meal_documents[9].clear();
    units[500].in_use = 1;
    wams[7].text = "a line";
    kept.put_back();
    EXPECT_EQ(items[5].name, "Old");
    EXPECT_EQ(items[9999].in_use, 0);
    EXPECT_EQ(lot_table_top, 5);
    EXPECT_EQ(lots[5].lot_quantity[3], 8);
    EXPECT_EQ(pooled_strings[4], "kept");
    EXPECT_EQ(pooled_strings[30000], "");
    EXPECT_EQ(meal_documents[9], "*vk14a.rtf");
    EXPECT_EQ(units[500].in_use, 0);
    EXPECT_EQ(wams[7].text, "");
}

}  // namespace
}  // namespace tavernook
