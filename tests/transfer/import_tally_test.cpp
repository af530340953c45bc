// What is told of an import.
#include "transfer/import_tally.h"

#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class Tally : public testing::Test {
  protected:
    // Without the units and the category of every project.
    Tally() {
        for (UnitRecord& unit : units) unit.in_use = 0;
        catagories[1].in_use = 0;
    }
    TestPlatform platform;
};

TEST_F(Tally, CountsWhatIsLiveAndNothingElse) {
    items[1].in_use = 1;
    items[2].name = "Gone";
    items[item_capacity].in_use = 1;
    meals[7].in_use = 1;
    units[1].in_use = units[2].in_use = units[3].in_use = 1;
    stores[4].in_use = 1;
    catagories[1].in_use = catagories[2].in_use = 1;
    catagories[2].type = recipe_category_type;
    wams[1].in_use = i16_true;
    EXPECT_EQ(live_counts(), (LiveCounts{2, 1, 3, 1, 2, 1}));
}

TEST_F(Tally, TellsOnlyWhatHasCome) {
    items[1].in_use = stores[1].in_use = 1;
    const ImportTally tally;
    EXPECT_EQ(tally.words(), "nothing");
    items[2].in_use = 1;
    EXPECT_EQ(tally.words(), "1 item");
    items[3].in_use = units[1].in_use = 1;
    EXPECT_EQ(tally.words(), "2 items and 1 new unit");
    units[2].in_use = stores[2].in_use = stores[3].in_use = 1;
    catagories[1].in_use = meals[1].in_use = 1;
    EXPECT_EQ(tally.words(), "2 items, 1 recipe, 2 new units, 2 new stores and 1 new category");
    EXPECT_EQ(tally.gained(), (LiveCounts{2, 1, 2, 2, 1, 0}));
    wams[1].in_use = wams[2].in_use = i16_true;
    catagories[2].in_use = meals[2].in_use = 1;
    EXPECT_EQ(tally.words(),
              "2 items, 2 recipes, 2 new units, 2 new stores, 2 new categories and 2 lines of "
              "weights and measures");
}

TEST_F(Tally, WhatWentIsNone) {
    items[1].in_use = units[1].in_use = 1;
    const ImportTally tally;
    items[1].in_use = 0;
    units[2].in_use = 1;
    EXPECT_EQ(tally.words(), "1 new unit");
}

TEST(RowsLeftOut, TheFirstStandsForAll) {
    LeftOut left_out;
    EXPECT_EQ(left_out.words(), "");
    left_out.add("line 12", "the storage time is too large");
    EXPECT_EQ(left_out.words(), "; 1 row was left out, line 12: the storage time is too large");
    left_out.add("line 14", "no room");
    EXPECT_EQ(left_out.count(), 2);
    EXPECT_EQ(left_out.words(),
              "; 2 rows were left out, the first is line 12: the storage time is too large");
}

}  // namespace
}  // namespace tavernook
