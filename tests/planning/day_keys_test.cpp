#include "planning/day_keys.h"

#include <gtest/gtest.h>

#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

TEST(DayKeys, NameARecipeOrAnItemAndItsPlace) {
    EXPECT_EQ(meal_key(17, 3), "m17:3");
    EXPECT_EQ(item_key(10000, 30), "i10000:30");
}

TEST(DayKeys, IndexIsTheNumberBeforeTheColonWhateverTheLetter) {
    EXPECT_EQ(get_index("m17:3"), 17);
    EXPECT_EQ(get_index("i10000:30"), 10000);
    EXPECT_EQ(get_index("x4:1"), 4);
    EXPECT_EQ(get_index("m:1"), 0);
    EXPECT_EQ(get_index("mbread:1"), 0);
}

TEST(DayKeys, WithoutAColonThereIsNoIndex) {
    EXPECT_EQ(get_index("m17"), std::nullopt);
    EXPECT_EQ(get_index(""), std::nullopt);
    EXPECT_EQ(get_index(":"), std::nullopt);
    EXPECT_EQ(get_meal_index("m17"), 0);
    EXPECT_EQ(get_item_index("i17"), 0);
    EXPECT_EQ(get_day_meal_index("m17"), 0);
    EXPECT_EQ(get_day_item_index("i17"), 0);
}

TEST(DayKeys, RecipeAndItemNumbersNeedTheirOwnLetter) {
    EXPECT_EQ(get_meal_index("m17:3"), 17);
    EXPECT_EQ(get_meal_index("i17:3"), 0);
    EXPECT_EQ(get_item_index("i17:3"), 17);
    EXPECT_EQ(get_item_index("m17:3"), 0);
    EXPECT_EQ(get_item_index("x17:3"), 0);
    EXPECT_EQ(get_item_index("I17:3"), 0);
}

TEST(DayKeys, PlacesNeedTheirOwnLetterToo) {
    EXPECT_EQ(get_day_meal_index("m17:3"), 3);
    EXPECT_EQ(get_day_meal_index("i17:3"), 0);
    EXPECT_EQ(get_day_item_index("i17:30"), 30);
    EXPECT_EQ(get_day_item_index("m17:30"), 0);
    EXPECT_EQ(get_day_item_index("i17:"), 0);
    EXPECT_EQ(number_behind_colon("x17:4"), 4);
    EXPECT_EQ(number_behind_colon("x17"), std::nullopt);
}

TEST(DayKeys, ANumberBeyondSixteenBitsIsNone) {
    EXPECT_EQ(get_index("m32767:1"), 32767);
    EXPECT_EQ(get_index("m-32768:1"), -32768);
    EXPECT_EQ(get_index("m32768:1"), std::nullopt);
    EXPECT_EQ(get_index("m-32769:1"), std::nullopt);
    EXPECT_EQ(get_meal_index("m32768:1"), 0);
    EXPECT_EQ(number_behind_colon("m1:99999"), std::nullopt);
    EXPECT_EQ(get_day_meal_index("m1:99999"), 0);
}

}  // namespace
}  // namespace tavernook
