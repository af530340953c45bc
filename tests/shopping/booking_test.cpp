// The whole list goes into stock.
#include <cmath>

#include "inventory/usage_history.h"
#include "shopping/shopping_fixture.h"

namespace tavernook {
namespace {

using Items = std::vector<i16>;
class BookingTest : public ShoppingTest {};
constexpr Date today = 45427;

TEST_F(BookingTest, EachEntryBecomesALotOfItsOwn) {
    items[milk].storage_time = 14;
    put_on_list(milk, 2.5);
    put_on_list(bread, 3);
    const Booking booking = book_list_into_stock();
    EXPECT_EQ(booking.placed, (Items{milk, bread}));
    EXPECT_EQ(booking.without_lot, Items{});
    EXPECT_EQ(booking.failed, Items{});
    EXPECT_EQ(items[milk].quantity, 8.5);
    expect_lot(milk, 0, 6, 45000, 45030);
    expect_lot(milk, 1, 2.5, now, now + 14);
    EXPECT_EQ(items[bread].quantity, 4);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(BookingTest, TheEntryGoesOffTheListAndKeepsItsQuantity) {
    put_on_list(milk, 2.5);
    book_list_into_stock();
    expect_off_list(milk, 2.5);
    EXPECT_EQ(items[milk].last_restock_date, today);
    // The next addition by hand adds to it.
    add_to_list(milk);
    expect_on_list(milk, 3.5);
}

TEST_F(BookingTest, WhatIsNotOnTheListStaysAsItIs) {
    items[milk].shopping_quantity = 2.5;
    items[milk].last_restock_date = 45400;
    book_list_into_stock();
    EXPECT_EQ(items[milk].quantity, 6);
    EXPECT_EQ(items[milk].last_restock_date, 45400);
    expect_off_list(milk, 2.5);
}

TEST_F(BookingTest, AnEmptyListIsAChangeAllTheSame) {
    book_list_into_stock();
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(BookingTest, WritesTheHistory) {
    put_on_list(milk, 2.5);
    book_list_into_stock();
    EXPECT_EQ(decode_usage(report_bytes("pantry000004.tmp")),
              (std::vector<UsageEntry>{{2.5, now, usage_added, 1}}));
    EXPECT_EQ(moves_written(), 1);
}

TEST_F(BookingTest, AQuantityOf0RestocksWithoutStock) {
    put_on_list(milk, 0);
    EXPECT_EQ(book_list_into_stock().placed, Items{});
    EXPECT_EQ(items[milk].quantity, 6);
    EXPECT_EQ(items[milk].last_restock_date, today);
    expect_off_list(milk, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(BookingTest, ANegativeQuantityMakesANegativeLot) {
    put_on_list(milk, -2);
    book_list_into_stock();
    EXPECT_EQ(lots[milk].lot_quantity[1], -2);
    EXPECT_EQ(items[milk].quantity, 4);
    EXPECT_EQ(moves_written(), 0);
    expect_off_list(milk, -2);
}

TEST_F(BookingTest, WithoutAnEmptyLotTheStockStays) {
    for (std::size_t place = 0; place < lot_places; ++place) set_lot(milk, place, 1);
    items[milk].quantity = 16;
    put_on_list(milk, 2.5);
    const Booking booking = book_list_into_stock();
    EXPECT_EQ(booking.placed, Items{});
    EXPECT_EQ(booking.without_lot, Items{milk});
    EXPECT_EQ(items[milk].quantity, 16);
    EXPECT_EQ(lot_total(milk), 16);
    expect_off_list(milk, 2.5);
}

TEST_F(BookingTest, AnEntryWhoseQuantityIsNoNumberStaysOnTheList) {
    put_on_list(milk, std::nan(""));
    put_on_list(bread, 3);
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    const Booking booking = book_list_into_stock();
    EXPECT_EQ(booking.placed, Items{bread});
    EXPECT_EQ(booking.failed, Items{milk});
    EXPECT_EQ(items[milk].on_shopping_list, i16_true);
    EXPECT_EQ(items[milk].quantity, 6);
}

TEST_F(BookingTest, AnItemFromBeforeLotsKeepsWhatItHas) {
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

TEST_F(BookingTest, AnEntryWithoutLotsIsToldAndTheOthersAreBooked) {
    items[20].shopping_quantity = 1;
    items[20].on_shopping_list = i16_true;  // neither live nor with a lot record
    put_on_list(milk, 2);
    add_food(21, "Rice", 1);
    lots.clear();
    lots.grow(bread);
    first_lot_from_item(milk);
    put_on_list(21, 2);
    platform.boxes.expect_message("Tavernook error: rt6:9. Contact Brenwyk Software.");
    const Booking booking = book_list_into_stock();
    EXPECT_EQ(booking.placed, (Items{milk, 21}));
    EXPECT_EQ(booking.failed, Items{20});
    EXPECT_EQ(items[milk].quantity, 8);
    expect_off_list(milk, 2);
    expect_on_list(20, 1);
    expect_off_list(21, 2);
    EXPECT_EQ(items[21].quantity, 3);
}

}  // namespace
}  // namespace tavernook
