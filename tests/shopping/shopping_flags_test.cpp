#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "shopping/shopping_list.h"

namespace tavernook {

namespace {

constexpr i16 milk = 4;

class ShoppingFlag : public testing::Test {
  protected:
    ShoppingFlag() {
        expiration_warning_days = 10;
        ItemRecord& item = items[milk];
        item.in_use = 1;
        item.quantity = 6;
        item.stock_quantity = 8;
        item.restock_quantity = 2;
        item.last_restock_date = platform.clock.time - 5;
    }

    void accept(i16 on_list = 0) {
        items[milk].on_shopping_list = on_list;
        items[milk].shopping_quantity = 1.5;
        update_shopping_flag(milk);
    }

    void expect_on_list(f64 quantity) {
        EXPECT_EQ(items[milk].on_shopping_list, -1);
        EXPECT_EQ(items[milk].shopping_quantity, quantity);
    }

    void expect_off_list() {
        EXPECT_EQ(items[milk].on_shopping_list, 0);
        EXPECT_EQ(items[milk].shopping_quantity, 1.5);
    }

    TestPlatform platform;
};

TEST_F(ShoppingFlag, AnItemWithEnoughStaysOff) {
    accept();
    expect_off_list();
}

TEST_F(ShoppingFlag, AtTheRestockLevelTheMissingAmountIsBought) {
    items[milk].quantity = 2;
    accept();
    expect_on_list(6);
}

TEST_F(ShoppingFlag, JustAboveTheRestockLevelNothingIsBought) {
    items[milk].quantity = 2.001;
    accept();
    expect_off_list();
}

TEST_F(ShoppingFlag, WithoutALevelToKeepNothingIsEverBought) {
    items[milk].quantity = 0;
    items[milk].stock_quantity = 0;
    accept();
    expect_off_list();
}

TEST_F(ShoppingFlag, AFreeSlotIsNeverBought) {
    items[milk].in_use = 0;
    items[milk].quantity = 0;
    accept();
    expect_off_list();
}

// 5 days old and 10 days of warning: storage times up to 15 days count as ending.
TEST_F(ShoppingFlag, AtTheEndOfItsShelfLifeTheMissingAmountIsBought) {
    items[milk].storage_time = 15;
    accept();
    expect_on_list(2);
    items[milk].storage_time = 16;
    accept();
    expect_off_list();
}

TEST_F(ShoppingFlag, TheShelfLifeCountsOnlyForAnItemThatIsNotOnTheListYet) {
    items[milk].storage_time = 15;
    accept(-1);
    expect_off_list();
}

TEST_F(ShoppingFlag, AnItemAddedByHandGoesOffWhenNothingIsMissing) {
    accept(-1);
    expect_off_list();
}

TEST_F(ShoppingFlag, ANegativeStockIsTakenAsItStands) {
    items[milk].quantity = -1;
    accept();
    expect_on_list(9);
}

}  // namespace

}  // namespace tavernook
