#include "core/string_storage.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "platform/platform.h"

namespace tavernook {
namespace {

const std::string over_storage =
    "String Over Storage Error.  Please Contact Brenwyk Support at support@tavernook.example";

// In place of the script while it lives.
class CountingBoxes : public Boxes {
  public:
    explicit CountingBoxes(TestPlatform& platform) : platform_(platform) {
        set_platform({.boxes = this});
    }
    ~CountingBoxes() override { set_platform({.boxes = &platform_.boxes}); }
    CountingBoxes(const CountingBoxes&) = delete;
    CountingBoxes& operator=(const CountingBoxes&) = delete;

    Answer message(std::string_view, Buttons, std::string_view, DefaultButton) override {
        ++shown;
        return Answer::ok;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return {};
    }

    int shown = 0;

  private:
    TestPlatform& platform_;
};

class StringStorageTest : public testing::Test {
  protected:
    // Rows 1 to `last`, each with a text of its own.
    static void fill_rows(i16 last) {
        for (i16 row = 1; row <= last; ++row) pooled_strings[row] = "text " + std::to_string(row);
    }

    TestPlatform platform;
};

TEST_F(StringStorageTest, TheLowestEmptyRowIsFree) {
    EXPECT_EQ(find_free_string(), 1);
    fill_rows(5);
    EXPECT_EQ(find_free_string(), 6);
    pooled_strings[3].clear();
    EXPECT_EQ(find_free_string(), 3);
}

TEST_F(StringStorageTest, TheLastRowButOneIsGivenWithoutABox) {
    fill_rows(29998);
    EXPECT_EQ(add_string("one more"), 29999);
    EXPECT_EQ(pooled_strings[29999], "one more");
}

TEST_F(StringStorageTest, TheLastRowIsGivenWithTheBoxAlthoughItIsFree) {
    fill_rows(29999);
    platform.boxes.expect_message(over_storage).buttons(Buttons::ok);
    EXPECT_EQ(add_string("the last"), 30000);
    EXPECT_EQ(pooled_strings[30000], "the last");
}

TEST_F(StringStorageTest, AFullPoolOverwritesTheLastRowWithTheBoxAtEveryAdd) {
    fill_rows(30000);
    platform.boxes.expect_message(over_storage);
    EXPECT_EQ(add_string("first too many"), 30000);
    platform.boxes.expect_message(over_storage);
    EXPECT_EQ(add_string("second too many"), 30000);
    EXPECT_EQ(pooled_strings[30000], "second too many");
    EXPECT_EQ(pooled_strings[29999], "text 29999");
    EXPECT_EQ(find_string("first too many"), 0);
}

TEST_F(StringStorageTest, AFullPoolStillSharesATextThatItHolds) {
    fill_rows(30000);
    EXPECT_EQ(add_string("text 17"), 17);
    EXPECT_EQ(add_string("text 30000"), 30000);
}

TEST_F(StringStorageTest, FindingGivesTheFirstOfEqualRows) {
    pooled_strings[4] = "Kellner";
    pooled_strings[9] = "Kellner";
    EXPECT_EQ(find_string("Kellner"), 4);
}

TEST_F(StringStorageTest, FindingReachesTheLastRow) {
    pooled_strings[30000] = "Kellner";
    EXPECT_EQ(find_string("Kellner"), 30000);
}

TEST_F(StringStorageTest, FindingTrimsBothSides) {
    pooled_strings[4] = "  Kellner & Sons ";
    EXPECT_EQ(find_string(" Kellner & Sons   "), 4);
    EXPECT_EQ(find_string("Kellner  & Sons"), 0) << "blanks inside count";
    EXPECT_EQ(find_string("\tKellner & Sons"), 0) << "a tab is no blank";
}

TEST_F(StringStorageTest, UpperAndLowerCaseTakeTwoRows) {
    EXPECT_EQ(add_string("Kellner"), 1);
    EXPECT_EQ(find_string("KELLNER"), 0);
    EXPECT_EQ(add_string("KELLNER"), 2);
    EXPECT_EQ(pooled_strings[1], "Kellner");
    EXPECT_EQ(pooled_strings[2], "KELLNER");
}

TEST_F(StringStorageTest, BlankTextIsRowZeroAndTakesNoRow) {
    EXPECT_EQ(find_string(""), 0);
    EXPECT_EQ(find_string("   "), 0);
    EXPECT_EQ(add_string(""), 0);
    EXPECT_EQ(add_string("   "), 0);
    EXPECT_TRUE(pooled_strings[0].empty());
    EXPECT_TRUE(pooled_strings[1].empty());
}

TEST_F(StringStorageTest, BlanksAroundATextNeverEnterThePool) {
    EXPECT_EQ(add_string("  lower shelf  "), 1);
    EXPECT_EQ(pooled_strings[1], "lower shelf");
    EXPECT_EQ(add_string("lower shelf "), 1);
    EXPECT_EQ(change_string("lower shelf", "  upper shelf "), 1);
    EXPECT_EQ(pooled_strings[1], "upper shelf");
}

TEST_F(StringStorageTest, ATextIsSharedFromTwoReferencesOn) {
    const i16 row = add_string("Kellner");
    EXPECT_FALSE(is_string_shared("Kellner"));
    item_details[1].brand = row;
    EXPECT_FALSE(is_string_shared("Kellner"));
    item_details[10000].brand = row;
    EXPECT_TRUE(is_string_shared("Kellner"));
    EXPECT_TRUE(is_string_shared("  Kellner "));
    EXPECT_FALSE(is_string_shared("KELLNER"));
}

TEST_F(StringStorageTest, OneItemWithTheTextInTwoFieldsCountsTwice) {
    const i16 row = add_string("Kellner");
    item_details[7].brand = row;
    item_details[7].manufacturer = row;
    EXPECT_TRUE(is_string_shared("Kellner"));
}

TEST_F(StringStorageTest, EachOfTheFiveTextFieldsCounts) {
    const i16 row = add_string("Kellner");
    items[1].locations = row;
    i16* const fields[] = {&items[2].locations, &item_details[2].brand,
                           &item_details[2].manufacturer, &item_details[2].description,
                           &item_details[2].notes};
    for (i16* field : fields) {
        EXPECT_FALSE(is_string_shared("Kellner"));
        *field = row;
        EXPECT_TRUE(is_string_shared("Kellner"));
        *field = 0;
    }
}

TEST_F(StringStorageTest, ItemsThatAreNotLiveCount) {
    const i16 row = add_string("Kellner");
    items[1].in_use = 1;
    items[1].locations = row;
    items[2].in_use = 0;
    items[2].locations = row;
    EXPECT_TRUE(is_string_shared("Kellner"));
}

TEST_F(StringStorageTest, EntryZeroOfTheItemsDoesNotCount) {
    const i16 row = add_string("Kellner");
    items[0].locations = row;
    item_details[0].notes = row;
    EXPECT_FALSE(is_string_shared("Kellner"));
}

TEST_F(StringStorageTest, TwoRowsOfTheSameTextCountTogether) {
    pooled_strings[3] = "Kellner";
    pooled_strings[8] = "Kellner";
    items[1].locations = 3;
    items[2].locations = 8;
    EXPECT_TRUE(is_string_shared("Kellner"));
}

TEST_F(StringStorageTest, AReferenceOutsideThePoolHoldsNoText) {
    const i16 row = add_string("Kellner");
    items[1].locations = row;
    items[2].locations = 30001;
    item_details[2].notes = -1;
    EXPECT_FALSE(is_string_shared("Kellner"));
    EXPECT_EQ(change_string("Kellner", "Baker"), row);
}

TEST_F(StringStorageTest, ReleasingTheOnlyHoldersTextFreesItsRowForReuse) {
    fill_rows(4);
    item_details[1].notes = 2;
    EXPECT_TRUE(release_string(" text 2 "));
    EXPECT_TRUE(pooled_strings[2].empty());
    EXPECT_EQ(add_string("new"), 2);
}

TEST_F(StringStorageTest, ReleasingASharedTextKeepsIt) {
    const i16 row = add_string("Kellner");
    item_details[1].brand = row;
    item_details[2].brand = row;
    EXPECT_FALSE(release_string("Kellner"));
    EXPECT_EQ(pooled_strings[row], "Kellner");
}

TEST_F(StringStorageTest, ReleasingAnUnknownTextChangesNothing) {
    fill_rows(3);
    EXPECT_TRUE(release_string("nobody's"));
    EXPECT_EQ(find_free_string(), 4);
}

// Every text field without a text refers to row 0, so no text is shared by all of them.
TEST_F(StringStorageTest, ReleasingNoTextFreesNothing) {
    fill_rows(2);
    EXPECT_TRUE(is_string_shared("  "));
    EXPECT_FALSE(release_string("  "));
    EXPECT_EQ(find_free_string(), 3);
}

TEST_F(StringStorageTest, ChangingToTheSameTextKeepsTheRow) {
    pooled_strings[5] = "Kellner";
    EXPECT_EQ(change_string("Kellner", "  Kellner "), 5);
    EXPECT_EQ(change_string("", "  "), 0);
    EXPECT_EQ(change_string("absent", "absent"), 0);
    EXPECT_EQ(pooled_strings[5], "Kellner");
    EXPECT_TRUE(pooled_strings[1].empty());
}

TEST_F(StringStorageTest, ChangingFromNoTextAddsOrSharesTheNewOne) {
    EXPECT_EQ(change_string("", "Kellner"), 1);
    EXPECT_EQ(change_string("   ", "Baker"), 2);
    EXPECT_EQ(change_string("", "Kellner"), 1);
}

TEST_F(StringStorageTest, ClearingTheOnlyHoldersTextFreesTheRow) {
    item_details[1].brand = add_string("Kellner");
    EXPECT_EQ(change_string("Kellner", "  "), 0);
    EXPECT_TRUE(pooled_strings[1].empty());
}

TEST_F(StringStorageTest, ClearingASharedTextKeepsTheRowForTheOthers) {
    const i16 row = add_string("Kellner");
    item_details[1].brand = row;
    item_details[2].brand = row;
    EXPECT_EQ(change_string("Kellner", ""), 0);
    EXPECT_EQ(pooled_strings[row], "Kellner");
}

TEST_F(StringStorageTest, ChangingTheOnlyHoldersTextOverwritesTheRowInPlace) {
    fill_rows(4);
    item_details[1].brand = 2;
    EXPECT_EQ(change_string("text 2", "Kellner"), 2);
    EXPECT_EQ(pooled_strings[2], "Kellner");
    EXPECT_TRUE(pooled_strings[5].empty());
}

TEST_F(StringStorageTest, OverwritingInPlaceCanLeaveTheTextInTwoRows) {
    fill_rows(4);
    item_details[1].brand = 3;
    EXPECT_EQ(change_string("text 3", "text 1"), 3);
    EXPECT_EQ(pooled_strings[1], "text 1");
    EXPECT_EQ(pooled_strings[3], "text 1");
}

TEST_F(StringStorageTest, ChangingASharedTextAddsANewRowAndTheOldStays) {
    const i16 row = add_string("Kellner");
    item_details[1].brand = row;
    item_details[2].brand = row;
    EXPECT_EQ(change_string("Kellner", "Baker"), 2);
    EXPECT_EQ(pooled_strings[row], "Kellner");
    EXPECT_EQ(pooled_strings[2], "Baker");
}

TEST_F(StringStorageTest, ChangingASharedTextToOneOfThePoolSharesThat) {
    fill_rows(3);
    item_details[1].brand = 1;
    item_details[2].brand = 1;
    EXPECT_EQ(change_string("text 1", "text 3"), 3);
    EXPECT_TRUE(pooled_strings[4].empty());
}

TEST_F(StringStorageTest, ChangingATextThatThePoolLostKeepsTheNewOne) {
    fill_rows(2);
    EXPECT_EQ(change_string("lost", "found"), 3);
    EXPECT_EQ(pooled_strings[3], "found");
    EXPECT_TRUE(pooled_strings[0].empty());
}

TEST_F(StringStorageTest, TheOldTextMayBeTheRowItself) {
    const i16 row = add_string("a text that is too long to lie in the string object itself");
    items[1].locations = row;
    EXPECT_EQ(change_string(pooled_strings[row], "short"), row);
    EXPECT_EQ(pooled_strings[row], "short");
    EXPECT_EQ(change_string(pooled_strings[row], ""), 0);
    EXPECT_TRUE(pooled_strings[row].empty());
}

TEST_F(StringStorageTest, TheCountLeavesEmptyRowsOut) {
    platform.boxes.expect_message("There are currently 0 Strings names");
    show_string_count();
    fill_rows(4);
    pooled_strings[2].clear();
    pooled_strings[30000] = "last";
    platform.boxes.expect_message("There are currently 4 Strings names").buttons(Buttons::ok);
    show_string_count();
}

// --- with an index ------------------------------------------------------------------------------

TEST_F(StringStorageTest, ThereIsRoomInFrontOfTheLastRowAndForWhatIsThere) {
    fill_rows(29998);
    EXPECT_TRUE(has_room_for_string("one more"));
    pooled_strings[29999] = "one more";
    EXPECT_FALSE(has_room_for_string("the last"));
    EXPECT_TRUE(has_room_for_string(" text 17 "));
    EXPECT_TRUE(has_room_for_string("  "));
    const IndexedStrings indexed;
    EXPECT_FALSE(has_room_for_string("the last"));
    EXPECT_TRUE(has_room_for_string(" text 17 "));
}

// Few different texts, some with blanks around them, long ones and blank ones.
std::string random_text(std::mt19937& random) {
    const unsigned number = random() % 400;
    std::string text = std::to_string(number);
    if (number % 7 == 0) text = " " + text;
    if (number % 11 == 0) text += "  ";
    if (number % 13 == 0) text.insert(0, 20 + number % 100, 'x');
    if (number % 17 == 0) text = std::string(number % 3, ' ');
    if (number % 19 == 0) text.append(65530, 'y');
    return text;
}

TEST_F(StringStorageTest, AnIndexGivesTheAnswersOfASearch) {
    std::mt19937 random(20261122);
    for (const i16 gaps : {0, 3, 300}) {
        reset_project_tables();
        fill_rows(pooled_string_capacity);
        pooled_strings[40] = "text 30";  // a second time
        pooled_strings[41] = " ";        // neither free nor a text
        for (i16 gap = 0; gap < gaps; ++gap) {
            pooled_strings[1 + static_cast<i16>(random() % 29999)].clear();
        }
        if (gaps == 3) pooled_strings[pooled_string_capacity].clear();
        std::vector<std::string> texts = {"text 30", "text 30000"};
        for (int turn = 0; turn < 400; ++turn) texts.push_back(random_text(random));
        texts.insert(texts.end(), {"text 30000", "text 40"});
        const std::vector<std::string> before(pooled_strings.begin(), pooled_strings.end());
        const auto add_all = [&] {
            std::vector<i16> rows;
            CountingBoxes boxes(platform);
            for (const std::string& text : texts) {
                rows.push_back(find_string(text));
                rows.push_back(add_string(text));
                rows.push_back(truth(has_room_for_string(text)));
            }
            rows.push_back(find_free_string());
            rows.push_back(to_i16(boxes.shown));
            return rows;
        };
        const std::vector<i16> searched = add_all();
        const std::vector<std::string> after(pooled_strings.begin(), pooled_strings.end());
        std::copy(before.begin(), before.end(), pooled_strings.begin());
        {
            const IndexedStrings indexed;
            EXPECT_EQ(add_all(), searched) << gaps;
        }
        EXPECT_TRUE(std::equal(after.begin(), after.end(), pooled_strings.begin())) << gaps;
    }
}

}  // namespace
}  // namespace tavernook
