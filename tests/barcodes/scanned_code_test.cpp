#include "barcodes/scanned_code.h"

#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/program_state_reset.h"

namespace tavernook {
namespace {

class ScannedCodes : public testing::Test {
  protected:
    ScannedCodes() {
        reset_program_state();
        put_item(5, "4006381333931");
        put_item(6, "4006381333931");
        put_item(9999, "Ab-1");
        items[8].barcode = "gone";
        meals[7].in_use = 1;
    }

    static void put_item(i16 slot, const char* barcode) {
        items[slot].in_use = 1;
        items[slot].barcode = barcode;
    }

    static void expect_recipe(const char* code, i16 recipe) {
        EXPECT_EQ(meaning_of_code(code).recipe, recipe) << code;
        EXPECT_EQ(meaning_of_code(code).item, 0) << code;
    }
};

TEST_F(ScannedCodes, ARecipeIsNamedByItsSlotInThreeSpellings) {
    for (const char* code : {"tvk7", "TVK7", "Tvk7", " tvk7 ", "tvk007"}) {
        expect_recipe(code, 7);
    }
}

TEST_F(ScannedCodes, TheFirstAndTheLastSlotHaveCodesToo) {
    meals[1].in_use = 1;
    meals[1000].in_use = 1;
    expect_recipe("tvk1", 1);
    expect_recipe("tvk1000", 1000);
}

TEST_F(ScannedCodes, ARecipeThatIsNotThereIsUnknown) {
    for (const char* code :
         {"tvk8", "tvk", "tvk0", "tvk-7", "tvk1001", "tvk99999999999", "tvkx", "tVK7", "7"}) {
        EXPECT_FALSE(meaning_of_code(code).known()) << code;
    }
}

TEST_F(ScannedCodes, OnlyDigitsNameARecipe) {
    put_item(13, "tvk7x");
    for (const char* code : {"tvk7.9", "tvk7.", "tvk 7", "tvk+7", "tvk7x", "tvk7 x", "tvk7e0",
                             "tvk0x7", "tvk7,0", "tvk\t7"}) {
        EXPECT_FALSE(meaning_of_code(code).known()) << code;
    }
}

TEST_F(ScannedCodes, TheFirstLiveItemOfABarcodeCounts) {
    EXPECT_EQ(meaning_of_code("4006381333931").item, 5);
    EXPECT_EQ(meaning_of_code("  4006381333931 ").item, 5);
    items[5].in_use = 0;
    EXPECT_EQ(meaning_of_code("4006381333931").item, 6);
}

TEST_F(ScannedCodes, CapitalsOfABarcodeCount) {
    EXPECT_EQ(find_scanned_item("Ab-1"), 9999);
    EXPECT_EQ(find_scanned_item("ab-1"), 0);
}

TEST_F(ScannedCodes, NobodyBearsABlankCodeOrTheWordForNone) {
    put_item(10, "");
    put_item(11, no_barcode);
    EXPECT_EQ(find_scanned_item(""), 0);
    EXPECT_EQ(find_scanned_item("   "), 0);
    EXPECT_EQ(find_scanned_item("empty"), 0);
    EXPECT_EQ(find_scanned_item("gone"), 0);
}

TEST_F(ScannedCodes, OfALongCodeTheBytesCountThatAnItemBears) {
    const std::string code(40, '8');
    put_item(12, code.c_str());
    EXPECT_EQ(find_scanned_item(code), 12);
    EXPECT_EQ(find_scanned_item(std::string(31, '8')), 0);
}

}  // namespace
}  // namespace tavernook
