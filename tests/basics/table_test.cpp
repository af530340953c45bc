#include "basics/table.h"

#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <string>
#include <type_traits>

#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

struct Entry {
    i16 amount;
    f64 price;
};

using Entries = Table<Entry, 10>;

TEST(Table, HasOneEntryMoreThanItsCapacity) {
    EXPECT_EQ(Entries::capacity, 10);
    EXPECT_EQ(Entries::entries, 11);
    Entries table;
    EXPECT_EQ(std::distance(table.begin(), table.end()), 11);
}

TEST(Table, StartsWithZeros) {
    static Entries table;
    for (const Entry& entry : table) {
        EXPECT_EQ(entry.amount, 0);
        EXPECT_EQ(entry.price, 0.0);
    }
}

TEST(Table, SlotsFromZeroToTheCapacityAreInside) {
    Entries table;
    for (int slot = 0; slot <= 10; ++slot) table[slot].amount = to_i16(slot * 3);
    const Entries& constant = table;
    for (int slot = 0; slot <= 10; ++slot) EXPECT_EQ(constant[slot].amount, slot * 3);
}

TEST(Table, SlotsOutsideFault) {
    Entries table;
    const Entries& constant = table;
    for (const i64 slot : {i64{-1}, i64{11}, i64{-32768}, i64{32767}, (i64{1} << 32) + 1,
                           std::numeric_limits<i64>::min(), std::numeric_limits<i64>::max()}) {
        EXPECT_EQ(fault_of([&] { table[slot].amount = 1; }), 9) << slot;
        EXPECT_EQ(fault_of([&] { (void)constant[slot]; }), 9) << slot;
    }
    EXPECT_EQ(fault_of([&] { (void)table[0]; }), 0);
    EXPECT_EQ(fault_of([&] { (void)table[10]; }), 0);
}

TEST(Table, NegativeSixteenBitSlotFaults) {
    Entries table;
    const i16 slot = -1;
    EXPECT_EQ(fault_of([&] { (void)table[slot]; }), 9);
}

TEST(Table, WalkBeginsAtEntryZeroAndEndsAtTheCapacity) {
    Entries table;
    table[0].amount = 7;
    table[10].amount = 9;
    EXPECT_EQ(table.begin()->amount, 7);
    EXPECT_EQ(std::prev(table.end())->amount, 9);
    EXPECT_EQ(&*table.begin(), &table[0]);
}

TEST(Table, CanNeitherBeCopiedNorMoved) {
    EXPECT_FALSE(std::is_copy_constructible_v<Entries>);
    EXPECT_FALSE(std::is_move_constructible_v<Entries>);
    EXPECT_FALSE(std::is_copy_assignable_v<Entries>);
    EXPECT_FALSE(std::is_move_assignable_v<Entries>);
}

TEST(Table, HoldsItsRecordsInPlace) {
    EXPECT_EQ(sizeof(Entries), 11 * sizeof(Entry) + alignof(Entry));  // and the mark of first use
    EXPECT_EQ(sizeof(Table<i16, 32767>), 32768 * sizeof(i16) + alignof(i16));
}

TEST(Table, HoldsRecordsThatBuildThemselves) {
    static Table<std::string, 3> names;
    names[3] = "a name that is longer than the place inside a string object";
    EXPECT_EQ(names[1], "");
    EXPECT_EQ(names[3].size(), 59u);
}

}  // namespace
}  // namespace tavernook
