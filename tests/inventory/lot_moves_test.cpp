#include "inventory/lots_fixture.h"

namespace tavernook {
namespace {

using LotAddition = LotsTest;
using LotRemoval = LotsTest;

TEST_F(LotAddition, FillsTheCurrentPlaceWhenItIsEmpty) {
    EXPECT_EQ(add_to_lots(flour, 2.5), -1);
    expect_lot(flour, 0, 2.5, 45427.5, 45457.5);
    EXPECT_EQ(record.current_lot, 0);
    EXPECT_EQ(items[flour].quantity, 2.5);
    EXPECT_EQ(last_move(), (UsageEntry{2.5, 45427.5, 2, 0}));
}

TEST_F(LotAddition, LooksForwardFromTheCurrentPlaceAndRoundTheRing) {
    set_lot(flour, 14, 1);
    set_lot(flour, 15, 1);
    set_lot(flour, 0, 1);
    record.current_lot = 14;
    EXPECT_EQ(add_to_lots(flour, 4), -1);
    expect_lot(flour, 1, 4, 45427.5, 45457.5);
    EXPECT_EQ(record.current_lot, 14);
    EXPECT_EQ(items[flour].quantity, 7);
    EXPECT_EQ(last_move(), (UsageEntry{4, 45427.5, 2, 1}));
}

TEST_F(LotAddition, TwoAdditionsNeverMerge) {
    add_to_lots(flour, 1);
    platform.clock.time = 45428.25;
    add_to_lots(flour, 1);
    expect_lot(flour, 0, 1, 45427.5, 45457.5);
    expect_lot(flour, 1, 1, 45428.25, 45458.25);
    EXPECT_EQ(items[flour].quantity, 2);
}

TEST_F(LotAddition, KeepsTheNameOfTheRefilledPlace) {
    record.lot_name[0] = "cellar";
    add_to_lots(flour, 1);
    EXPECT_EQ(record.lot_name[0], "cellar");
}

TEST_F(LotAddition, OfNothingStampsAnEmptyCurrentPlace) {
    EXPECT_EQ(add_to_lots(flour, 0), -1);
    expect_lot(flour, 0, 0, 45427.5, 45457.5);
    EXPECT_EQ(record.current_lot, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotAddition, OfNothingLeavesAFilledCurrentPlace) {
    fill_lots(flour, 3, 4);
    const LotRecord before = record;
    EXPECT_EQ(add_to_lots(flour, 0), -1);
    EXPECT_EQ(record, before);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotAddition, FindsTheLastEmptyPlaceBehindTheCurrentOne) {
    fill_all(1);
    record.lot_quantity[4] = 0;
    record.current_lot = 5;
    EXPECT_EQ(add_to_lots(flour, 2), -1);
    EXPECT_EQ(record.lot_quantity[4], 2);
    EXPECT_EQ(record.current_lot, 5);
    EXPECT_EQ(items[flour].quantity, 17);
}

TEST_F(LotAddition, WithSixteenFilledLotsOnlyTheRingMoves) {
    fill_all(2);
    record.current_lot = 5;
    LotRecord expected = record;
    expected.current_lot = 6;  // 17 steps from 5
    EXPECT_EQ(add_to_lots(flour, 1), 0);
    EXPECT_EQ(record, expected);
    EXPECT_EQ(items[flour].quantity, 32);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotAddition, WithSixteenFilledLotsTheRingMovesFromFifteenToZero) {
    fill_all(2);
    record.current_lot = 15;
    EXPECT_EQ(add_to_lots(flour, 1), 0);
    EXPECT_EQ(record.current_lot, 0);
}

TEST_F(LotRemoval, TakesPartOfTheCurrentLot) {
    fill_lots(flour, 5, 7);
    EXPECT_EQ(remove_from_lots(flour, 1.25), -1);
    expect_lot(flour, 0, 3.75, 45000, 45030);
    EXPECT_EQ(record.current_lot, 0);
    EXPECT_EQ(items[flour].quantity, 10.75);
    EXPECT_EQ(last_move(), (UsageEntry{1.25, 45427.5, 1, 0}));
}

TEST_F(LotRemoval, OfTheWholeCurrentLotMovesOn) {
    fill_lots(flour, 5, 7);
    record.lot_name[0] = "jar";
    EXPECT_EQ(remove_from_lots(flour, 5), -1);
    expect_lot(flour, 0, 0, 0, 0);
    EXPECT_EQ(record.lot_name[0], "jar");
    EXPECT_EQ(record.current_lot, 1);
    EXPECT_EQ(items[flour].quantity, 7);
    EXPECT_EQ(last_move(), (UsageEntry{5, 45427.5, 1, 0}));
}

TEST_F(LotRemoval, GoesRoundTheRingWhateverExpiresFirst) {
    set_lot(flour, 15, 2);
    set_lot(flour, 0, 3);
    set_lot(flour, 1, 4);
    record.expiration_date[1] = 40000;  // long past, and still the last in the ring
    record.current_lot = 15;
    items[flour].quantity = 9;
    EXPECT_EQ(remove_from_lots(flour, 4), -1);
    expect_lot(flour, 15, 0, 0, 0);
    expect_lot(flour, 0, 1, 45000, 45030);
    EXPECT_EQ(record.lot_quantity[1], 4);
    EXPECT_EQ(record.current_lot, 0);
    EXPECT_EQ(items[flour].quantity, 5);
    EXPECT_EQ(moves_written(), 2);
    EXPECT_EQ(last_move(), (UsageEntry{2, 45427.5, 1, 0}));
}

TEST_F(LotRemoval, PassesEmptyPlacesWithoutAnEntryAndClearsTheirDates) {
    set_lot(flour, 2, 6);
    set_lot(flour, 0, 0);  // empty, dated
    set_lot(flour, 1, 0);
    EXPECT_EQ(remove_from_lots(flour, 1), -1);
    expect_lot(flour, 0, 0, 0, 0);
    expect_lot(flour, 1, 0, 0, 0);
    expect_lot(flour, 2, 5, 45002, 45032);
    EXPECT_EQ(record.current_lot, 2);
    EXPECT_EQ(moves_written(), 1);
}

TEST_F(LotRemoval, OfExactlyTheTotalEmptiesEveryLot) {
    set_lot(flour, 6, 1.5);
    set_lot(flour, 9, 2);
    record.current_lot = 5;
    EXPECT_EQ(remove_from_lots(flour, 3.5), -1);
    for (std::size_t place = 0; place < lot_places; ++place)
        EXPECT_EQ(record.lot_quantity[place], 0);
    EXPECT_EQ(record.current_lot, 10);
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(moves_written(), 2);
}

// 0.1 + 0.1 + 0.5 is a little less than what the walk 0.1, 0.5, 0.1 takes together.
TEST_F(LotRemoval, OfTheTotalLeavesNoCrumbOfDecimalFractions) {
    fill_lots(flour, 0.1, 0.1, 0.5);
    record.current_lot = 1;
    EXPECT_EQ(remove_from_lots(flour, lot_total(flour)), -1);
    for (std::size_t place = 0; place < lot_places; ++place)
        EXPECT_EQ(record.lot_quantity[place], 0);
    EXPECT_EQ(record.current_lot, 1);  // behind place 0, the last used
    EXPECT_EQ(items[flour].quantity, 0);
    EXPECT_EQ(last_move(), (UsageEntry{0.1, 45427.5, 1, 0}));
}

// 0.1 + 0.1 + 0.1 is a little more than the three lots give one by one.
TEST_F(LotRemoval, OfTheTotalEndsThoughARestRemains) {
    fill_lots(flour, 0.1, 0.1, 0.1);
    EXPECT_EQ(remove_from_lots(flour, lot_total(flour)), -1);
    EXPECT_EQ(lot_total(flour), 0);
    EXPECT_EQ(record.current_lot, 3);
    EXPECT_EQ(moves_written(), 3);
}

TEST_F(LotRemoval, OfMoreThanTheTotalIsRefusedWithABox) {
    fill_lots(flour, 5, 7);
    record.current_lot = 1;
    const LotRecord before = record;
    platform.boxes.expect_message(
        "The quantity that you provided is more than is currently in the inventory for item "
        "Flour                            .  Cannot update Inventory.  Please adjust the quantity "
        "to adjust.");
    EXPECT_EQ(remove_from_lots(flour, 12.000001), 0);
    EXPECT_EQ(record, before);
    EXPECT_EQ(items[flour].quantity, 12);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotRemoval, OfNothingLeavesAFilledCurrentLot) {
    fill_lots(flour, 5);
    const LotRecord before = record;
    EXPECT_EQ(remove_from_lots(flour, 0), -1);
    EXPECT_EQ(record, before);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotRemoval, OfNothingMovesOnFromAnEmptyCurrentLot) {
    fill_lots(flour, 0, 0, 5);
    EXPECT_EQ(remove_from_lots(flour, 0), -1);
    EXPECT_EQ(record.current_lot, 1);
    expect_lot(flour, 0, 0, 0, 0);
    expect_lot(flour, 1, 0, 45001, 45031);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotRemoval, OfNothingMovesOnWhenAllIsEmpty) {
    EXPECT_EQ(remove_from_lots(flour, 0), -1);
    EXPECT_EQ(record.current_lot, 1);
    EXPECT_EQ(items[flour].quantity, 0);
}

TEST_F(LotRemoval, IsRefusedBeforeAnythingMovesWhenTheCurrentLotIsBeyondSixteenBits) {
    for (const f64 quantity : {32768.0, 32767.5, 40000.0, 1e300}) {
        fill_lots(flour, quantity, 7);
        const LotRecord before = record;
        EXPECT_FALSE(current_lot_is_readable(flour));
        expect_trapped(
            6, [&] { return remove_from_lots(flour, 1); }, 0);
        EXPECT_EQ(record, before);
    }
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotRemoval, TakesFromTheLargestLotThatSixteenBitsHold) {
    fill_lots(flour, 32767.25);
    EXPECT_EQ(remove_from_lots(flour, 0.25), -1);
    EXPECT_EQ(record.lot_quantity[0], 32767);
}

TEST_F(LotRemoval, OnlyTheCurrentLotMustFitIntoSixteenBits) {
    fill_lots(flour, 5, 40000);
    EXPECT_EQ(remove_from_lots(flour, 6), -1);
    EXPECT_EQ(record.lot_quantity[1], 39999);
    EXPECT_EQ(record.current_lot, 1);
    expect_trapped(
        6, [&] { return remove_from_lots(flour, 1); }, 0);
}

TEST_F(LotRemoval, MoreThanTheTotalIsToldBeforeALotThatCannotBeRead) {
    fill_lots(flour, 40000);
    platform.boxes.expect_message(
        "The quantity that you provided is more than is currently in the inventory for item "
        "Flour                            .  Cannot update Inventory.  Please adjust the quantity "
        "to adjust.");
    EXPECT_EQ(remove_from_lots(flour, 40001), 0);
}

TEST_F(LotRemoval, StockLeavesInTheOrderInWhichItArrived) {
    for (int day = 0; day < 20; ++day) {
        platform.clock.time = 45427.5 + day;
        ASSERT_EQ(add_to_lots(flour, 2), -1);
        if (day < 10) continue;
        const auto oldest = static_cast<std::size_t>(record.current_lot);
        EXPECT_EQ(record.creation_date[oldest], 45427.5 + day - 10);
        ASSERT_EQ(remove_from_lots(flour, 2), -1);
    }
    EXPECT_EQ(items[flour].quantity, 20);
}

// --- damaged records ----------------------------------------------------------------------------

class DamagedLots : public LotsTest {};

TEST_F(DamagedLots, ACurrentLotThatIsNoneReadsAsTheFirst) {
    for (const i16 wrong : {i16{-1}, i16{16}, i16{32767}, i16{-32768}}) {
        fill_lots(flour, 5, 7);
        record.current_lot = wrong;
        EXPECT_EQ(current_lot_of(flour), 0);
        EXPECT_TRUE(current_lot_is_readable(flour));
        EXPECT_EQ(remove_from_lots(flour, 5), -1);
        EXPECT_EQ(record.lot_quantity[0], 0);
        EXPECT_EQ(record.current_lot, 1);
        record.current_lot = wrong;
        EXPECT_EQ(add_to_lots(flour, 3), -1);
        EXPECT_EQ(record.lot_quantity[0], 3);
        EXPECT_EQ(record.current_lot, 0);
    }
}

TEST_F(DamagedLots, ItemsWithoutARecordHoldNothing) {
    for (const i16 none : {i16{-1}, i16{5}, i16{10001}, i16{32767}}) {
        EXPECT_EQ(lot_total(none), 0);
        EXPECT_EQ(current_lot_of(none), 0);
        EXPECT_EQ(expiring_quantity(none), 0);
        expect_trapped(
            9, [none] { return add_to_lots(none, 1); }, 0);
        expect_trapped(
            9, [none] { return remove_from_lots(none, 1); }, 0);
        expect_trapped(
            9, [none] { return find_lot_by_name(none, "Lot A"); }, -1);
    }
}

TEST_F(DamagedLots, WhatIsNoNumberIsNeitherAddedNorTaken) {
    const f64 nan = std::numeric_limits<f64>::quiet_NaN();
    const f64 infinite = std::numeric_limits<f64>::infinity();
    fill_lots(flour, 5, 7);
    const LotRecord before = record;
    for (const f64 wrong : {nan, infinite, -infinite}) {
        expect_trapped(
            6, [&] { return add_to_lots(flour, wrong); }, 0);
        expect_trapped(
            6, [&] { return set_lot_quantity(flour, wrong, 1); }, false);
    }
    expect_trapped(
        6, [&] { return remove_from_lots(flour, nan); }, 0);
    EXPECT_EQ(record, before);
    EXPECT_EQ(items[flour].quantity, 12);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(DamagedLots, ALotThatIsNoNumberKeepsAllStockUntilItIsSet) {
    fill_lots(flour, 5, 7);
    record.lot_quantity[1] = std::numeric_limits<f64>::quiet_NaN();
    EXPECT_FALSE(current_lot_is_readable(flour));
    expect_trapped(
        6, [&] { return remove_from_lots(flour, 1); }, 0);
    EXPECT_EQ(record.lot_quantity[0], 5);
    EXPECT_TRUE(set_lot_quantity(flour, 7, 1));
    EXPECT_EQ(remove_from_lots(flour, 1), -1);
    EXPECT_EQ(record.lot_quantity[0], 4);
}

TEST_F(DamagedLots, TheRingGoesOnFromAnyPlace) {
    EXPECT_EQ(next_lot(14), 15);
    for (const i16 place : {i16{15}, i16{16}, i16{32767}, i16{-1}, i16{-32768}}) {
        EXPECT_EQ(next_lot(place), 0) << place;
    }
}

}  // namespace
}  // namespace tavernook
