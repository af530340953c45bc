#include "core/rows.h"

#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class Rows : public testing::Test {
  protected:
    TestPlatform platform;
};

TEST_F(Rows, ANumberInsideTheTableIsItsRecord) {
    units[1].name = "each";
    units[1000].name = "last";
    EXPECT_EQ(&row_or_none(units, 1), &units[1]);
    EXPECT_EQ(&row_or_none(units, 1000), &units[1000]);
}

TEST_F(Rows, AnyOtherNumberIsTheBlankRecord) {
    units[0].name = "none";
    for (const i16 row : {i16{0}, i16{-1}, i16{1001}, i16{32767}, i16{-32768}}) {
        EXPECT_EQ(row_or_none(units, row), UnitRecord{}) << row;
        EXPECT_TRUE(row_or_none(units, row).name.blank()) << row;
    }
}

TEST_F(Rows, EveryTableHasItsOwnBounds) {
    EXPECT_EQ(&row_or_none(catagories, 100), &catagories[100]);
    EXPECT_EQ(row_or_none(catagories, 101), CatagoryRecord{});
    EXPECT_EQ(&row_or_none(days, 1095), &days[1095]);
    EXPECT_EQ(row_or_none(days, 1096), DayRecord{});
    EXPECT_EQ(&row_or_none(items, 10000), &items[10000]);
    EXPECT_EQ(row_or_none(items, 10001), ItemRecord{});
}

TEST_F(Rows, OnlyARecordInUseIsLive) {
    stores[3].in_use = 1;
    stores[4].in_use = 2;
    stores[0].in_use = 1;
    EXPECT_TRUE(is_live_row(stores, 3));
    for (const i16 row : {i16{0}, i16{2}, i16{4}, i16{-1}, i16{1001}, i16{32767}}) {
        EXPECT_FALSE(is_live_row(stores, row)) << row;
    }
}

}  // namespace
}  // namespace tavernook
