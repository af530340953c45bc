// The scan that decides what must be bought.
#include "shopping/shopping_fixture.h"

namespace tavernook {
namespace {

using BuildShoppingList = ShoppingTest;

TEST_F(BuildShoppingList, AnItemWithEnoughStaysOff) {
    items[milk].shopping_quantity = 1.5;
    build_shopping_list();
    expect_off_list(milk, 1.5);
}

TEST_F(BuildShoppingList, AtTheRestockLevelTheMissingAmountIsBought) {
    fill_lots(milk, 2);
    build_shopping_list();
    expect_on_list(milk, 6);
}

TEST_F(BuildShoppingList, JustAboveTheRestockLevelNothingIsBought) {
    fill_lots(milk, 2.0625);
    build_shopping_list();
    expect_off_list(milk, 0);
}

TEST_F(BuildShoppingList, TheQuantityIsTakenFromTheLots) {
    fill_lots(milk, 0.5, 0.25, 1);
    items[milk].quantity = 100;
    build_shopping_list();
    EXPECT_EQ(items[milk].quantity, 1.75);
    expect_on_list(milk, 6.25);
}

TEST_F(BuildShoppingList, WithoutALevelToKeepAnItemIsNeverOnIt) {
    items[milk].stock_quantity = 0;
    fill_lots(milk, 0);
    put_on_list(milk, 3);
    build_shopping_list();
    expect_off_list(milk, 3);
}

TEST_F(BuildShoppingList, AnItemAddedByHandGoesOffWhenNothingIsMissing) {
    put_on_list(milk, 3);
    build_shopping_list();
    expect_off_list(milk, 3);
}

TEST_F(BuildShoppingList, AQuantityByHandIsOverwritten) {
    fill_lots(milk, 1);
    put_on_list(milk, 3);
    build_shopping_list();
    expect_on_list(milk, 7);
}

TEST_F(BuildShoppingList, AFreeSlotIsNeverOnIt) {
    items[milk].in_use = 0;
    fill_lots(milk, 0);
    put_on_list(milk, 3);
    build_shopping_list();
    expect_off_list(milk, 3);
}

// 20 days old and 10 days of warning: what keeps for up to 30 days is at its end.
TEST_F(BuildShoppingList, AtTheEndOfItsShelfLifeTheWholeStockIsBoughtThoughTheShelfIsFull) {
    items[milk].last_restock_date = now - 20;
    items[milk].storage_time = 30;
    fill_lots(milk, 8);
    build_shopping_list();
    expect_on_list(milk, 8);
}

TEST_F(BuildShoppingList, AnHourEarlierItIsNot) {
    items[milk].last_restock_date = now - 20 + 1.0 / 24;
    items[milk].storage_time = 30;
    build_shopping_list();
    expect_off_list(milk, 0);
}

TEST_F(BuildShoppingList, AnItemThatIsLowAsWellIsBoughtWhole) {
    items[milk].last_restock_date = now - 20;
    items[milk].storage_time = 30;
    fill_lots(milk, 1);
    build_shopping_list();
    expect_on_list(milk, 8);
}

TEST_F(BuildShoppingList, TheLotsOwnDatesPlayNoPart) {
    lots[milk].expiration_date[0] = 1;
    build_shopping_list();
    expect_off_list(milk, 0);
}

TEST_F(BuildShoppingList, ANegativeSumCountsAsNothing) {
    fill_lots(milk, 1, -3);
    build_shopping_list();
    EXPECT_EQ(items[milk].quantity, 0);
    expect_on_list(milk, 8);
}

TEST_F(BuildShoppingList, OfAFreeSlotItStaysNegative) {
    fill_lots(milk, -3);
    items[milk].in_use = 0;
    build_shopping_list();
    EXPECT_EQ(items[milk].quantity, -3);
}

TEST_F(BuildShoppingList, AnItemFromBeforeLotsGetsItsFirstOne) {
    items[20].in_use = 1;
    items[20].quantity = 3;
    items[20].stock_quantity = 5;
    items[20].restock_quantity = 3;
    items[20].last_restock_date = 45400;
    build_shopping_list();
    EXPECT_EQ(lot_table_top, 20);
    expect_lot(20, 0, 3, 45400, 45400);
    expect_on_list(20, 2);
}

TEST_F(BuildShoppingList, FreeSlotsGetNoLots) {
    build_shopping_list();
    EXPECT_EQ(lot_table_top, bread);
}

TEST_F(BuildShoppingList, TheLastItemIsSeen) {
    add_food(item_capacity, "Salt", 0);
    items[item_capacity].stock_quantity = 1;
    build_shopping_list();
    expect_on_list(item_capacity, 1);
}

TEST_F(BuildShoppingList, ItIsNoChangeOfTheProjectAndWritesNoHistory) {
    fill_lots(milk, 0);
    build_shopping_list();
    EXPECT_EQ(project_modified, 0);
    EXPECT_TRUE(platform.files.log().empty());
}

}  // namespace
}  // namespace tavernook
