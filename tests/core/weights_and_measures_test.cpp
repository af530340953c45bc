#include "core/weights_and_measures.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

const std::string limit =
    "You have reached the limitation of User Defined 'Weights and Measures' allowed in Tavernook.  "
    "It is recommended that you delete some to allow for some more room.";

class WeightsAndMeasuresTest : public testing::Test {
  protected:
    static void set_line(i16 slot, const std::string& text) {
        wams[slot].in_use = -1;
        wams[slot].text = text;
    }

    static void fill_lines(i16 last) {
        for (i16 slot = 1; slot <= last; ++slot) set_line(slot, std::to_string(slot) + " = x");
    }

    static std::string accept_unchanged(const std::string& line) {
        const MeasureParts parts = split_measure(line);
        return join_measure(parts.left, parts.right);
    }

    TestPlatform platform;
};

TEST_F(WeightsAndMeasuresTest, TheFixedLinesStandInTheirOrderWithTheirSpacing) {
    const std::vector<std::string_view> expected{
        "3 Tsp = 1 Tbsp",     "4 Tbsp = 0.25 Cups",     "5 1/3 Tbsp = 1/3 Cup",
        "8 Tbsp =  1/2 Cup",  "10 2/3 Tbsp = 2/3 Cup",  "12 Tbsp = 3/4 Cup",
        "16 Tbsp = 1 Cup",    "1 Tbsp = 1/2 Fluid Oz.", "1 Cup = 8 Fluid Oz.",
        "2 Cups = 1 Pint",    "1 Cup = 1/2 Pint",       "4 Cups = 1 Quart",
        "2 Pints = 1 Quart",  "4 Quarts = 1 Gallon",    "1Tbsp = 14.79 mL",
        "1 Cup = 236.6 mL",   "1.06 Quarts = 1 Liter",  "1 lb. = 453.59 grams",
        "1 oz = 28.35 grams",
    };
    EXPECT_EQ(std::vector<std::string_view>(fixed_measures.begin(), fixed_measures.end()),
              expected);
}

TEST_F(WeightsAndMeasuresTest, LiveLinesAreListedInSlotOrder) {
    EXPECT_EQ(live_wams(), std::vector<i16>{});
    set_line(200, "last");
    set_line(1, "first");
    set_line(17, "");
    wams[18].text = "free";
    wams[30].in_use = 1;  // any mark but 0 is live
    wams[0].in_use = -1;
    EXPECT_EQ(live_wams(), (std::vector<i16>{1, 17, 30, 200}));
}

TEST_F(WeightsAndMeasuresTest, TheLowestFreeSlotIsTaken) {
    EXPECT_EQ(GetFreeWam(), 1);
    fill_lines(9);
    EXPECT_EQ(GetFreeWam(), 10);
    wams[4].in_use = 0;
    EXPECT_EQ(GetFreeWam(), 4) << "the mark decides, not the text";
    wams[4].in_use = 1;
    EXPECT_EQ(GetFreeWam(), 10) << "any mark but 0 is live";
}

TEST_F(WeightsAndMeasuresTest, The199thLineComesWithoutABox) {
    fill_lines(198);
    EXPECT_EQ(GetFreeWam(), 199);
}

TEST_F(WeightsAndMeasuresTest, The200thLineComesWithTheBox) {
    fill_lines(199);
    platform.boxes.expect_message(limit).buttons(Buttons::ok);
    EXPECT_EQ(GetFreeWam(), 200);
}

TEST_F(WeightsAndMeasuresTest, The201stLineIsRefusedWithTheBox) {
    fill_lines(200);
    platform.boxes.expect_message(limit).buttons(Buttons::ok);
    EXPECT_EQ(GetFreeWam(), 0);
    EXPECT_EQ(wams[200].text, "200 = x");
}

TEST_F(WeightsAndMeasuresTest, CheckingGivesTheFirstLineOfThatText) {
    set_line(3, "1 = 2");
    set_line(5, "1 = 2");
    set_line(200, "3 = 4");
    EXPECT_EQ(CheckWams("1 = 2"), 3);
    EXPECT_EQ(CheckWams("3 = 4"), 200);
    EXPECT_EQ(CheckWams("5 = 6"), 0);
}

TEST_F(WeightsAndMeasuresTest, CheckingPassesOverTrailingBlanksOnBothSides) {
    set_line(3, "1 = 2  ");
    set_line(4, "3 = 4");
    EXPECT_EQ(CheckWams("1 = 2"), 3);
    EXPECT_EQ(CheckWams("3 = 4     "), 4);
    set_line(5, " 5 = 6");
    EXPECT_EQ(CheckWams(" 3 = 4"), 0) << "leading blanks count";
    EXPECT_EQ(CheckWams("5 = 6"), 0) << "leading blanks count";
    EXPECT_EQ(CheckWams(" 5 = 6"), 5);
}

TEST_F(WeightsAndMeasuresTest, CheckingTellsUpperFromLowerCase) {
    set_line(3, "1 Cup = 2");
    EXPECT_EQ(CheckWams("1 cup = 2"), 0);
}

TEST_F(WeightsAndMeasuresTest, CheckingLooksAtFreeSlotsToo) {
    wams[2].text = "left behind";
    EXPECT_EQ(CheckWams("left behind"), 2);
    set_line(1, "1 = 2");
    wams[2].text.clear();
    EXPECT_EQ(CheckWams(""), 2);
    EXPECT_EQ(CheckWams("   "), 2);
}

TEST_F(WeightsAndMeasuresTest, CheckingForNoTextInAFullTableFindsNothing) {
    fill_lines(200);
    EXPECT_EQ(CheckWams(""), 0);
}

TEST_F(WeightsAndMeasuresTest, CheckingDoesNotLookAtEntryZero) {
    wams[0].text = "1 = 2";
    EXPECT_EQ(CheckWams("1 = 2"), 0);
}

TEST_F(WeightsAndMeasuresTest, ALineIsSplitAtItsFirstEqualsSign) {
    const MeasureParts parts = split_measure("1 Cup = 8 oz = 236 mL");
    EXPECT_EQ(parts.left, "1 Cup ");
    EXPECT_EQ(parts.right, "8 oz = 236 mL");
}

TEST_F(WeightsAndMeasuresTest, TheCharacterBehindTheEqualsSignIsSkippedUnseen) {
    EXPECT_EQ(split_measure("a=bc").left, "a");
    EXPECT_EQ(split_measure("a=bc").right, "c");
    EXPECT_EQ(split_measure("a =  b").right, " b");
}

TEST_F(WeightsAndMeasuresTest, LinesThatEndNearTheEqualsSignHaveNoRightField) {
    for (const char* line : {"a =", "a = "}) {
        EXPECT_EQ(split_measure(line).left, "a ") << line;
        EXPECT_EQ(split_measure(line).right, "") << line;
    }
    EXPECT_EQ(split_measure("=").left, "");
    EXPECT_EQ(split_measure("=").right, "");
}

TEST_F(WeightsAndMeasuresTest, ALineWithoutEqualsSignSplitsAtPositionZero) {
    EXPECT_EQ(split_measure("a pinch").left, "");
    EXPECT_EQ(split_measure("a pinch").right, " pinch");
    EXPECT_EQ(split_measure("a").right, "");
    EXPECT_EQ(split_measure("").left, "");
    EXPECT_EQ(split_measure("").right, "");
}

TEST_F(WeightsAndMeasuresTest, FieldsAreJoinedAroundAnEqualsSign) {
    EXPECT_EQ(join_measure("1 Cup", "8 oz"), "1 Cup = 8 oz");
    EXPECT_EQ(join_measure("", ""), " = ");
}

TEST_F(WeightsAndMeasuresTest, AcceptingALineUnchangedAddsOneBlankEachTime) {
    const std::string once = accept_unchanged("1 Cup = 8 oz");
    EXPECT_EQ(once, "1 Cup  = 8 oz");
    EXPECT_EQ(accept_unchanged(once), "1 Cup   = 8 oz");
}

}  // namespace
}  // namespace tavernook
