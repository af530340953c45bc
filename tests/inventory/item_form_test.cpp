#include "inventory/item_form.h"

#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"
#include "inventory/shelf_life.h"

namespace tavernook {
namespace {

TEST(ItemLocations, HaveUpToThreeParts) {
    EXPECT_EQ(split_locations(""), (Locations{"", "", ""}));
    EXPECT_EQ(split_locations("Fridge"), (Locations{"Fridge", "", ""}));
    EXPECT_EQ(split_locations("Fridge , Door"), (Locations{"Fridge", "Door", ""}));
    EXPECT_EQ(split_locations("A,B,C,D"), (Locations{"A", "B", "C,D"}));
    EXPECT_EQ(split_locations(",B"), (Locations{"", "B", ""}));
    EXPECT_EQ(join_locations({"", "", ""}), "");
    EXPECT_EQ(join_locations({"Fridge", " Door ", ""}), "Fridge,Door");
    EXPECT_EQ(join_locations({"", "B", ""}), ",B");
    EXPECT_EQ(join_locations({"A", "", "C"}), "A,,C");
    EXPECT_EQ(join_locations(split_locations("A,B,C,D")), "A,B,C,D");
}

class ItemForm : public testing::Test {
  protected:
    void put_item(f64 quantity, i16 storage_time, Date restocked) {
        items[1].in_use = 1;
        items[1].storage_time = storage_time;
        items[1].last_restock_date = restocked;
        init_lot_record(1);
        lots[1].lot_quantity[2] = quantity;
        lots[1].expiration_date[2] = restocked + storage_time;
    }
    std::string attention() { return attention_text(attention_of(1)); }

    TestPlatform platform;  // 15 May 2024, 12:00, day 45427.5
};

TEST_F(ItemForm, TheDistanceOfADayCountsBothWays) {
    EXPECT_EQ(storage_days_until(45427), 0);
    EXPECT_EQ(storage_days_until(45446), 19);
    EXPECT_EQ(storage_days_until(45417), 10);
}

TEST_F(ItemForm, AnItemExpiresOnTheDayAfterItsLast) {
    expiration_warning_days = 3;
    put_item(1, 10, 45416.5);  // until 14 May
    EXPECT_EQ(attention(), "Expired");
    put_item(1, 10, 45417.1);  // until today
    EXPECT_EQ(attention(), "Expires soon");
    put_item(1, 10, 45420.5);  // 7 days old, 3 of warning
    EXPECT_EQ(attention(), "Expires soon");
    put_item(1, 10, 45420.75);
    EXPECT_EQ(attention(), "");
    put_item(0, 10, 45400);  // nothing in stock
    EXPECT_EQ(attention(), "");
    put_item(1, 0, 45400);  // does not expire
    EXPECT_EQ(attention(), "");
}

TEST_F(ItemForm, ALotHasExpiredByOneRuleForListsAndScreens) {
    const Date now = platform.clock.time;
    const auto expired = [now](Date when) { return lot_has_expired(items[1], lots[1], 2, when); };
    put_item(1, 10, 45416.5);  // until 14 May
    EXPECT_TRUE(expired(now));
    EXPECT_TRUE(expired(45427));
    EXPECT_FALSE(expired(45426.9));  // good on its day
    items[1].storage_time = 0;
    EXPECT_FALSE(expired(now));
    items[1].storage_time = 10;
    lots[1].lot_quantity[2] = 0;
    EXPECT_FALSE(expired(now));
    lots[1].lot_quantity[2] = 1;
    lots[1].expiration_date[2] = 0;
    EXPECT_FALSE(expired(now));
}

TEST_F(ItemForm, AnItemThatIsKeptInStockIsLowAtItsLevel) {
    put_item(2, 0, 45427);
    items[1].restock_quantity = 2;
    EXPECT_EQ(attention(), "");
    items[1].stock_quantity = 5;
    EXPECT_EQ(attention(), "Low");
    items[1].restock_quantity = 1.99;
    EXPECT_EQ(attention(), "");
    put_item(1, 10, 45400);
    EXPECT_EQ(attention(), "Expired, low");
}

TEST_F(ItemForm, TheWholeNumbersOfANewItemRoundHalfToEvenAndAreCheckedFirst) {
    ItemValues values;
    values.name = "Nuts";
    values.fat = 2.5;
    values.calories = 171.5;
    EXPECT_EQ(create_item_from_form(values), 1);
    EXPECT_EQ(items[1].fat, 2);
    EXPECT_EQ(items[1].calories, 172);
    values.calories = 40000;
    EXPECT_THROW(create_item_from_form(values), Fault);
    EXPECT_EQ(items[2].in_use, 0);
}

}  // namespace
}  // namespace tavernook
