#include "inventory/lots_fixture.h"

namespace tavernook {
namespace {

using LotRecords = LotsTest;
using LotEdit = LotsTest;
using LotSearch = LotsTest;
using LotExpiry = LotsTest;

TEST_F(LotRecords, InitNamesThePlacesFromLotAToLotP) {
    init_lot_record(7);
    EXPECT_EQ(lot_table_top, 7);
    EXPECT_EQ(lots[7].active, -1);
    EXPECT_EQ(lots[7].current_lot, 0);
    const std::array<const char*, 16> names = {"Lot A", "Lot B", "Lot C", "Lot D", "Lot E", "Lot F",
                                               "Lot G", "Lot H", "Lot I", "Lot J", "Lot K", "Lot L",
                                               "Lot M", "Lot N", "Lot O", "Lot P"};
    for (std::size_t place = 0; place < names.size(); ++place) {
        EXPECT_EQ(lots[7].lot_name[place], names[place]);
        expect_lot(7, place, 0, 0, 0);
    }
}

TEST_F(LotRecords, GrowingKeepsWhatIsThere) {
    fill_lots(flour, 2, 3);
    record.lot_name[1] = "jar";
    const LotRecord before = record;
    init_lot_record(10000);
    EXPECT_EQ(lot_table_top, 10000);
    EXPECT_EQ(lots[flour], before);
    EXPECT_EQ(lots[9999], LotRecord{});
}

TEST_F(LotRecords, InitOfALowerItemLeavesTheTop) {
    init_lot_record(9);
    init_lot_record(2);
    EXPECT_EQ(lot_table_top, 9);
    EXPECT_EQ(lots[2].active, -1);
}

TEST_F(LotRecords, InitBlanksWhatTheRecordHeld) {
    const LotRecord fresh = record;
    fill_all(4);
    record.lot_name[5] = "cellar";
    record.current_lot = 9;
    record.active = 0;
    init_lot_record(flour);
    EXPECT_EQ(record, fresh);
}

TEST_F(LotRecords, ClearLeavesABlankInactiveRecord) {
    LotRecord cleared = record;
    cleared.active = 0;
    fill_all(4);
    record.lot_name[5] = "cellar";
    record.current_lot = 9;
    clear_lot_record(flour);
    EXPECT_EQ(record, cleared);
    clear_lot_record(5);
    EXPECT_EQ(lots[5], cleared);
}

TEST_F(LotRecords, ItemNumbersOutsideTheTableAreTold) {
    expect_trapped(9, [] { init_lot_record(10001); });
    expect_trapped(9, [] { init_lot_record(-1); });
    expect_trapped(9, [] { clear_lot_record(10001); });
    expect_trapped(9, [] { first_lot_from_item(10001); });
    expect_trapped(9, [] { ensure_lot_record(10001); });
    EXPECT_EQ(lot_table_top, 3);
}

TEST_F(LotRecords, FirstLotTakesTheItemsStock) {
    items[8].quantity = 6.5;
    items[8].last_restock_date = 45400.25;
    items[8].storage_time = 14;
    first_lot_from_item(8);
    EXPECT_EQ(lots[8].active, -1);
    EXPECT_EQ(lots[8].current_lot, 0);
    expect_lot(8, 0, 6.5, 45400.25, 45414.25);
    for (std::size_t place = 1; place < lot_places; ++place) expect_lot(8, place, 0, 0, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotRecords, AnExistingRecordIsNotMadeAgain) {
    items[2].quantity = 5;
    ensure_lot_record(2);  // below the top: the record is there, though never set up
    EXPECT_EQ(lots[2], LotRecord{});
    items[4].quantity = 5;
    ensure_lot_record(4);
    EXPECT_EQ(lots[4].lot_quantity[0], 5);
}

TEST_F(LotRecords, FilesFromBeforeLotsGiveEachLiveItemItsFirstLot) {
    reset_project_tables();
    for (const i16 item : {i16{2}, i16{6}, i16{10000}}) {
        items[item].in_use = 1;
        items[item].quantity = item;
        items[item].last_restock_date = 45000;
    }
    items[4].quantity = 9;  // not live
    first_lots_of_all_items();
    EXPECT_EQ(lot_table_top, 10000);
    expect_lot(2, 0, 2, 45000, 45000);
    expect_lot(6, 0, 6, 45000, 45000);
    expect_lot(10000, 0, 10000, 45000, 45000);
    EXPECT_EQ(lots[4], LotRecord{});
}

TEST_F(LotRecords, TheRingGoesOnAtZeroBehindFifteen) {
    EXPECT_EQ(next_lot(0), 1);
    EXPECT_EQ(next_lot(14), 15);
    EXPECT_EQ(next_lot(15), 0);
}

TEST_F(LotEdit, ToTheSameQuantityDoesNothing) {
    EXPECT_EQ(record.creation_date[2], 0);
    set_lot_quantity(flour, 0, 2);
    expect_lot(flour, 2, 0, 0, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotEdit, DownwardsIsARemovalOfTheDifference) {
    fill_lots(flour, 5, 7);
    set_lot_quantity(flour, 4.5, 1);
    expect_lot(flour, 1, 4.5, 45001, 45031);
    EXPECT_EQ(last_move(), (UsageEntry{2.5, 45427.5, 1, 1}));
    EXPECT_EQ(items[flour].quantity, 12);  // the caller's to set
}

TEST_F(LotEdit, UpwardsIsAnAdditionOfTheDifference) {
    fill_lots(flour, 5, 7);
    set_lot_quantity(flour, 8.5, 0);
    expect_lot(flour, 0, 8.5, 45000, 45030);
    EXPECT_EQ(last_move(), (UsageEntry{3.5, 45427.5, 2, 0}));
}

TEST_F(LotEdit, DatesALotThatHasNone) {
    set_lot_quantity(flour, 3, 15);
    expect_lot(flour, 15, 3, 45427.5, 45457.5);
    EXPECT_EQ(last_move(), (UsageEntry{3, 45427.5, 2, 15}));
}

TEST_F(LotEdit, ToZeroKeepsDatesAndName) {
    fill_lots(flour, 5);
    record.lot_name[0] = "jar";
    set_lot_quantity(flour, 0, 0);
    expect_lot(flour, 0, 0, 45000, 45030);
    EXPECT_EQ(record.lot_name[0], "jar");
    EXPECT_EQ(record.current_lot, 0);
}

TEST_F(LotEdit, OfAPlaceThatIsNoneIsTold) {
    const LotRecord before = record;
    for (const i16 wrong : {i16{16}, i16{-1}}) {
        expect_trapped(
            9, [&] { return set_lot_quantity(flour, 1, wrong); }, false);
        expect_trapped(
            9, [&] { return delete_lot(flour, wrong); }, false);
        expect_trapped(
            9, [&] { return set_current_lot(flour, wrong); }, false);
    }
    EXPECT_EQ(record, before);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotEdit, DeletingALotBringsTheDefaultNameBackAndLeavesNoTrace) {
    fill_lots(flour, 5, 7, 1, 2);
    record.lot_name[3] = "cellar";
    delete_lot(flour, 3);
    expect_lot(flour, 3, 0, 0, 0);
    EXPECT_EQ(record.lot_name[3], "Lot D");
    EXPECT_EQ(items[flour].quantity, 13);
    EXPECT_EQ(record.current_lot, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotEdit, DeletingTheCurrentLotMovesOn) {
    fill_all(1);
    record.current_lot = 15;
    delete_lot(flour, 15);
    EXPECT_EQ(record.current_lot, 0);
    EXPECT_EQ(items[flour].quantity, 15);
}

TEST_F(LotEdit, EmptiedByRemovalALotKeepsItsName) {
    set_lot(flour, 3, 2);
    record.lot_name[3] = "cellar";
    record.current_lot = 3;
    remove_from_lots(flour, 2);
    EXPECT_EQ(record.lot_name[3], "cellar");
    delete_lot(flour, 3);
    EXPECT_EQ(record.lot_name[3], "Lot D");
}

TEST_F(LotEdit, MakingAnEmptyLotTheCurrentOneDatesIt) {
    fill_lots(flour, 5);
    set_current_lot(flour, 6);
    EXPECT_EQ(record.current_lot, 6);
    expect_lot(flour, 6, 0, 45427.5, 45457.5);
    EXPECT_EQ(items[flour].quantity, 5);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(LotEdit, MakingAFilledLotTheCurrentOneKeepsItsDates) {
    fill_lots(flour, 5, 7);
    set_current_lot(flour, 1);
    EXPECT_EQ(record.current_lot, 1);
    expect_lot(flour, 1, 7, 45001, 45031);
}

TEST_F(LotSearch, FoldsCapitalsAndTrimsTheNameInThePlace) {
    record.lot_name[4] = "  Keller";
    EXPECT_EQ(find_lot_by_name(flour, "kELLER"), 4);
    EXPECT_EQ(record.lot_name[4].stored(), "Keller  ");
    EXPECT_EQ(find_lot_by_name(flour, "lot p"), 15);
}

TEST_F(LotSearch, GivesTheFirstOfTwo) {
    record.lot_name[9] = "jar";
    record.lot_name[2] = "JAR";
    EXPECT_EQ(find_lot_by_name(flour, "Jar"), 2);
}

TEST_F(LotSearch, TakesTheGivenNameWithItsBlanks) {
    platform.boxes.expect_message(
        "Did not find a Lot named: Lot A . Please try typing in the lot name again.");
    EXPECT_EQ(find_lot_by_name(flour, "Lot A "), -1);
}

TEST_F(LotSearch, TellsOfANameThatNoLotBears) {
    platform.boxes.expect_message(
        "Did not find a Lot named: attic. Please try typing in the lot name again.");
    EXPECT_EQ(find_lot_by_name(flour, "attic"), -1);
}

TEST_F(LotExpiry, WarningDaysZeroLooksThirtyDaysIntoThePast) {
    fill_lots(flour, 1, 2, 4);
    record.expiration_date[0] = now - 30;
    record.expiration_date[1] = now - 29.75;
    record.expiration_date[2] = now - 31;
    expiration_warning_days = 0;
    EXPECT_EQ(expiring_quantity(flour), 5);
}

// The day of the month of the number taken as a date: 1 is 31 December 1899, 2 is 1 January 1900.
TEST_F(LotExpiry, WarningDaysAreTheDayOfTheMonth) {
    const std::array<std::array<i16, 2>, 6> days_back = {
        {{1, 31}, {2, 1}, {3, 2}, {10, 9}, {32, 31}, {33, 1}}};
    for (const auto& [setting, back] : days_back) {
        fill_lots(flour, 1, 2);
        record.expiration_date[0] = now - back;
        record.expiration_date[1] = now - back + 0.25;
        expiration_warning_days = setting;
        EXPECT_EQ(expiring_quantity(flour), 1) << setting;
    }
}

TEST_F(LotExpiry, AnItemWithoutStockHasNothingThatExpires) {
    fill_lots(flour, 3);
    record.expiration_date[0] = 40000;
    items[flour].quantity = 0;
    EXPECT_EQ(expiring_quantity(flour), 0);
    items[flour].quantity = -1;
    EXPECT_EQ(expiring_quantity(flour), 0);
    items[flour].quantity = 3;
    EXPECT_EQ(expiring_quantity(flour), 3);
}

TEST_F(LotExpiry, ALotWithoutADateCountsAsPast) {
    fill_lots(flour, 3, 4);
    record.expiration_date[1] = 0;
    record.expiration_date[0] = now;
    EXPECT_EQ(expiring_quantity(flour), 4);
}

}  // namespace
}  // namespace tavernook
