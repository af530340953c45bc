// The first lots of items.
#include "inventory/lots.h"

#include <gtest/gtest.h>

#include "basics/fault_expectation.h"
#include "core/project_data.h"
#include "fakes/program_state_reset.h"

namespace tavernook {

namespace {

class Lots : public testing::Test {
  protected:
    Lots() { reset_program_state(); }
    ~Lots() override { reset_program_state(); }

    // In use, restocked on 1 January 2024 at noon.
    void put_item(i16 item, f64 quantity, i16 storage_time) {
        items[item].in_use = 1;
        items[item].quantity = quantity;
        items[item].storage_time = storage_time;
        items[item].last_restock_date = 45292.5;
    }
};

TEST_F(Lots, ANewRecordHasSixteenNamedEmptyPlaces) {
    init_lot_record(3);
    const char* const names[] = {"Lot A", "Lot B", "Lot C", "Lot D", "Lot E", "Lot F",
                                 "Lot G", "Lot H", "Lot I", "Lot J", "Lot K", "Lot L",
                                 "Lot M", "Lot N", "Lot O", "Lot P"};
    for (std::size_t place = 0; place < 16; ++place) {
        EXPECT_EQ(lots[3].lot_name[place].stored(), std::string(names[place]) + "   ");
        EXPECT_EQ(lots[3].creation_date[place], 0);
        EXPECT_EQ(lots[3].expiration_date[place], 0);
        EXPECT_EQ(lots[3].lot_quantity[place], 0);
    }
    EXPECT_EQ(lots[3].active, -1);
    EXPECT_EQ(lots[3].current_lot, 0);
}

TEST_F(Lots, ARecordThatWasUsedBecomesNew) {
    init_lot_record(3);
    lots[3].lot_name[15] = "Cellar";
    lots[3].creation_date[15] = 45000;
    lots[3].expiration_date[15] = 45100;
    lots[3].lot_quantity[15] = 7;
    lots[3].active = 0;
    lots[3].current_lot = 15;
    init_lot_record(3);
    EXPECT_EQ(lots[3].lot_name[15], "Lot P");
    EXPECT_EQ(lots[3].creation_date[15], 0);
    EXPECT_EQ(lots[3].expiration_date[15], 0);
    EXPECT_EQ(lots[3].lot_quantity[15], 0);
    EXPECT_EQ(lots[3].active, -1);
    EXPECT_EQ(lots[3].current_lot, 0);
}

TEST_F(Lots, ARecordBeyondTheTopGrowsTheTableAndKeepsTheOthers) {
    init_lot_record(3);
    lots[3].lot_quantity[2] = 4.5;
    init_lot_record(70);
    EXPECT_EQ(lot_table_top, 70);
    EXPECT_EQ(lots[3].lot_quantity[2], 4.5);
    EXPECT_EQ(lots[69].active, 0);
    EXPECT_TRUE(lots[69].lot_name[0].blank());
    init_lot_record(5);
    EXPECT_EQ(lot_table_top, 70);
    EXPECT_EQ(lots[70].active, -1);
}

TEST_F(Lots, OnlyItemsHaveRecords) {
    EXPECT_EQ(fault_of([] { lots.grow(10001); }), fault_number::subscript_out_of_range);
    EXPECT_EQ(fault_of([] { lots.grow(-1); }), fault_number::subscript_out_of_range);
    EXPECT_EQ(lot_table_top, 0);
    init_lot_record(10000);
    EXPECT_EQ(lot_table_top, 10000);
    EXPECT_EQ(lots[10000].lot_name[0], "Lot A");
}

TEST_F(Lots, TheFirstLotTakesTheWholeQuantityAndTheDatesOfTheRestock) {
    put_item(3, 2.75, 10);
    first_lot_from_item(3);
    EXPECT_EQ(lots[3].lot_quantity[0], 2.75);
    EXPECT_EQ(lots[3].creation_date[0], 45292.5);
    EXPECT_EQ(lots[3].expiration_date[0], 45302.5);
    EXPECT_EQ(lots[3].active, -1);
    EXPECT_EQ(lots[3].current_lot, 0);
    EXPECT_EQ(lots[3].lot_name[0], "Lot A");
    for (std::size_t place = 1; place < 16; ++place) EXPECT_EQ(lots[3].lot_quantity[place], 0);
}

TEST_F(Lots, AnItemThatDoesNotExpireHasItsRestockAsTheLastDay) {
    put_item(3, 1, 0);
    first_lot_from_item(3);
    EXPECT_EQ(lots[3].expiration_date[0], 45292.5);
}

TEST_F(Lots, AllLiveItemsWithoutARecordGetTheirFirstLot) {
    put_item(2, 5, 1);
    put_item(4, 6, 2);
    put_item(10000, 7, 3);
    items[3].quantity = 9;  // free
    first_lots_of_all_items();
    EXPECT_EQ(lot_table_top, 10000);
    EXPECT_EQ(lots[2].lot_quantity[0], 5);
    EXPECT_EQ(lots[4].lot_quantity[0], 6);
    EXPECT_EQ(lots[10000].lot_quantity[0], 7);
    EXPECT_EQ(lots[10000].expiration_date[0], 45295.5);
    EXPECT_TRUE(lots[1] == LotRecord{});
    EXPECT_TRUE(lots[3] == LotRecord{});
    EXPECT_TRUE(lots[9999] == LotRecord{});
}

TEST_F(Lots, ItemsWithARecordKeepIt) {
    put_item(2, 5, 1);
    put_item(4, 6, 2);
    init_lot_record(3);
    lots[2].lot_quantity[1] = 5;
    first_lots_of_all_items();
    EXPECT_EQ(lots[2].lot_quantity[0], 0);
    EXPECT_EQ(lots[2].lot_quantity[1], 5);
    EXPECT_EQ(lots[4].lot_quantity[0], 6);
}

TEST_F(Lots, AnItemThatIsMarkedWithAnotherNumberThanOneIsNotLive) {
    put_item(4, 6, 2);
    items[4].in_use = -1;
    first_lots_of_all_items();
    EXPECT_EQ(lot_table_top, 0);
}

TEST_F(Lots, WithoutItemsThereAreNoRecords) {
    first_lots_of_all_items();
    EXPECT_EQ(lot_table_top, 0);
}

}  // namespace

}  // namespace tavernook
