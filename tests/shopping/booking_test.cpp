// The whole list goes into stock.
#include "inventory/usage_history.h"
#include "shopping/shopping_fixture.h"

namespace tavernook {
namespace {

using Booking = ShoppingTest;
constexpr Date today = 45427;

TEST_F(Booking, EachEntryBecomesALotOfItsOwn) {
    items[milk].storage_time = 14;
    put_on_list(milk, 2.5);
    put_on_list(bread, 3);
    book_list_into_stock();
    EXPECT_EQ(items[milk].quantity, 8.5);
    expect_lot(milk, 0, 6, 45000, 45030);
    expect_lot(milk, 1, 2.5, now, now + 14);
    EXPECT_EQ(items[bread].quantity, 4);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(Booking, TheEntryGoesOffTheListAndKeepsItsQuantity) {
    put_on_list(milk, 2.5);
    book_list_into_stock();
    expect_off_list(milk, 2.5);
    EXPECT_EQ(items[milk].last_restock_date, today);
    // The next addition by hand adds to it.
    add_to_list(milk);
    expect_on_list(milk, 3.5);
}

TEST_F(Booking, WhatIsNotOnTheListStaysAsItIs) {
    items[milk].shopping_quantity = 2.5;
    items[milk].last_restock_date = 45400;
    book_list_into_stock();
    EXPECT_EQ(items[milk].quantity, 6);
    EXPECT_EQ(items[milk].last_restock_date, 45400);
    expect_off_list(milk, 2.5);
}

TEST_F(Booking, AnEmptyListIsAChangeAllTheSame) {
    book_list_into_stock();
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(Booking, WritesTheHistory) {
    put_on_list(milk, 2.5);
    book_list_into_stock();
    EXPECT_EQ(decode_usage(report_bytes("pantry000004.tmp")),
              (std::vector<UsageEntry>{{2.5, now, usage_added, 1}}));
    EXPECT_EQ(moves_written(), 1);
}

TEST_F(Booking, AQuantityOf0RestocksWithoutStock) {
    put_on_list(milk, 0);
    book_list_into_stock();
    EXPECT_EQ(items[milk].quantity, 6);
    EXPECT_EQ(items[milk].last_restock_date, today);
    expect_off_list(milk, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(Booking, ANegativeQuantityMakesANegativeLot) {
    put_on_list(milk, -2);
    book_list_into_stock();
    EXPECT_EQ(lots[milk].lot_quantity[1], -2);
    EXPECT_EQ(items[milk].quantity, 4);
    EXPECT_EQ(moves_written(), 0);
    expect_off_list(milk, -2);
}

TEST_F(Booking, WithoutAnEmptyLotTheStockStays) {
    for (std::size_t place = 0; place < lot_places; ++place) set_lot(milk, place, 1);
    items[milk].quantity = 16;
    put_on_list(milk, 2.5);
    book_list_into_stock();
    EXPECT_EQ(items[milk].quantity, 16);
    EXPECT_EQ(lot_total(milk), 16);
    expect_off_list(milk, 2.5);
}

TEST_F(Booking, AnItemFromBeforeLotsKeepsWhatItHas) {
    items[20].in_use = 1;
    items[20].quantity = 3;
    items[20].last_restock_date = 45400;
    items[21].in_use = 1;
    items[21].quantity = 1;
    put_on_list(20, 2);
    book_list_into_stock();
    expect_lot(20, 0, 3, 45400, 45400);
    expect_lot(20, 1, 2, now, now);
    EXPECT_EQ(items[20].quantity, 5);
    EXPECT_EQ(lots[21].lot_quantity[0], 1);
}

TEST_F(Booking, AnEntryWithoutLotsIsToldAndTheOthersAreBooked) {
    items[20].shopping_quantity = 1;
    items[20].on_shopping_list = i16_true;  // neither live nor with a lot record
    put_on_list(milk, 2);
    add_food(21, "Rice", 1);
    lots.clear();
    lots.grow(bread);
    first_lot_from_item(milk);
    put_on_list(21, 2);
    platform.boxes.expect_message("Tavernook error: rt6:9. Contact Brenwyk Software.");
    book_list_into_stock();
    EXPECT_EQ(items[milk].quantity, 8);
    expect_off_list(milk, 2);
    expect_on_list(20, 1);
    expect_off_list(21, 2);
    EXPECT_EQ(items[21].quantity, 3);
}

}  // namespace
}  // namespace tavernook
