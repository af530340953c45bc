#include "inventory/replacement.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/name_rows.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

const std::string completed = "All replacements completed successfully.";

class ReplacementTest : public testing::Test {
  protected:
    static void add_item(i16 item, const char* name) {
        items[item].in_use = 1;
        items[item].name = name;
    }

    static void add_store(i16 slot, const char* name) {
        stores[slot].in_use = 1;
        stores[slot].name = name;
    }

    void replace(i16 row, i16 replacement, ReplacementType type) {
        platform.boxes.expect_message(completed).buttons(Buttons::ok);
        replace_row(row, replacement, type);
    }

    TestPlatform platform;
};

TEST_F(ReplacementTest, TheItemsOfferedAreTheLiveOnesButTheOneToGo) {
    add_item(10000, "Butter");
    add_item(1, "Milk");
    add_item(5, "Bread");
    items[6].name = "Freed";
    items[0].in_use = 1;
    EXPECT_EQ(replacement_rows(5, ReplacementType::item), (std::vector<i16>{1, 10000}));
}

TEST_F(ReplacementTest, WithOneLiveItemThereIsNothingToOffer) {
    add_item(5, "Bread");
    EXPECT_EQ(replacement_rows(5, ReplacementType::item), std::vector<i16>{});
}

TEST_F(ReplacementTest, TheStoresOfferedAreTheLiveOnesButTheOneToGo) {
    add_store(1, "Market");
    add_store(2, "Bakery");
    add_store(1000, "Mill");
    stores[3].name = "Freed";
    EXPECT_EQ(replacement_rows(2, ReplacementType::store), (std::vector<i16>{1, 1000}));
}

TEST_F(ReplacementTest, TheUnitsOfferedAreTheLiveOnesButTheOneToGo) {
    units[4].in_use = 0;
    EXPECT_EQ(replacement_rows(1, ReplacementType::unit),
              (std::vector<i16>{2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
}

TEST_F(ReplacementTest, AnItemIsReplacedAtEveryPlaceOfARecipeWithItsQuantityKept) {
    add_item(5, "Bread");
    add_item(6, "Toast");
    items[6].serving_size = 40;
    MealRecord& meal = meals[1000];
    meal.in_use = 1;
    meal.ingredient_item[1] = 5;
    meal.ingredient_qty[1] = 1.5;
    meal.ingredient_item[2] = 7;
    meal.ingredient_item[50] = 5;
    meal.ingredient_qty[50] = 2.25;
    replace(5, 6, ReplacementType::item);
    EXPECT_EQ(meal.ingredient_item[1], 6);
    EXPECT_EQ(meal.ingredient_qty[1], 1.5);
    EXPECT_EQ(meal.ingredient_item[2], 7);
    EXPECT_EQ(meal.ingredient_item[50], 6);
    EXPECT_EQ(meal.ingredient_qty[50], 2.25);
}

TEST_F(ReplacementTest, AnItemIsReplacedInThePlansOfDaysWithItsQuantityKept) {
    add_item(5, "Bread");
    add_item(6, "Toast");
    DayRecord& day = days[1095];
    day.in_use = 1;
    day.planned_item[1] = 5;
    day.planned_item[30] = 5;
    day.planned_meal[1] = 5;  // recipe 5, not item 5
    day_quantities[1095].item_quantity[30] = 3;
    replace(5, 6, ReplacementType::item);
    EXPECT_EQ(day.planned_item[1], 6);
    EXPECT_EQ(day.planned_item[30], 6);
    EXPECT_EQ(day.planned_meal[1], 5);
    EXPECT_EQ(day_quantities[1095].item_quantity[30], 3);
}

TEST_F(ReplacementTest, FreeRecipesFreeDaysAndPlaceZeroKeepTheOldItem) {
    add_item(5, "Bread");
    add_item(6, "Toast");
    meals[1].ingredient_item[1] = 5;
    meals[2].in_use = 1;
    meals[2].ingredient_item[0] = 5;
    days[1].planned_item[1] = 5;
    days[2].in_use = 1;
    days[2].planned_item[0] = 5;
    replace(5, 6, ReplacementType::item);
    EXPECT_EQ(meals[1].ingredient_item[1], 5);
    EXPECT_EQ(meals[2].ingredient_item[0], 5);
    EXPECT_EQ(days[1].planned_item[1], 5);
    EXPECT_EQ(days[2].planned_item[0], 5);
}

TEST_F(ReplacementTest, TheOldItemIsDeletedWithItsLots) {
    add_item(5, "Bread");
    items[5].on_shopping_list = 1;
    items[5].shopping_quantity = 2;
    items[5].quantity = 4;
    items[5].barcode = "5012345678900";
    item_details[5].created_date = 45000;
    item_details[5].fat_units = 11;
    first_lot_from_item(5);
    lots[5].lot_name[0] = "Cellar";
    lots[5].current_lot = 3;
    add_item(6, "Toast");
    replace(5, 6, ReplacementType::item);
    ItemRecord blank;
    blank.barcode = "empty";
    EXPECT_EQ(items[5], blank);
    EXPECT_EQ(item_details[5], ItemDetailRecord{});
    EXPECT_EQ(lots[5].active, 0);
    EXPECT_EQ(lots[5].lot_quantity[0], 0);
    EXPECT_EQ(lots[5].lot_name[0], "Lot A");
    EXPECT_EQ(lots[5].current_lot, 0);
}

TEST_F(ReplacementTest, TheNewItemsOwnRecordAndLotsStay) {
    add_item(5, "Bread");
    first_lot_from_item(5);
    add_item(6, "Toast");
    items[6].quantity = 9;
    first_lot_from_item(6);
    const ItemRecord before = items[6];
    const LotRecord lots_before = lots[6];
    replace(5, 6, ReplacementType::item);
    EXPECT_EQ(items[6], before);
    EXPECT_EQ(lots[6], lots_before);
}

TEST_F(ReplacementTest, AnItemWithoutALotRecordIsReplacedToo) {
    add_item(900, "Bread");
    add_item(6, "Toast");
    replace(900, 6, ReplacementType::item);
    EXPECT_EQ(items[900].in_use, 0);
    EXPECT_EQ(lots[900].active, 0);
}

TEST_F(ReplacementTest, AStoreIsReplacedInLiveItemsAndDeleted) {
    add_store(1, "Market");
    add_store(2, "Bakery");
    add_item(1, "Milk");
    add_item(10000, "Bread");
    add_item(3, "Salt");
    items[1].store = 1;
    items[10000].store = 1;
    items[3].store = 4;
    items[4].store = 1;  // freed
    replace(1, 2, ReplacementType::store);
    EXPECT_EQ(items[1].store, 2);
    EXPECT_EQ(items[10000].store, 2);
    EXPECT_EQ(items[3].store, 4);
    EXPECT_EQ(items[4].store, 1);
    EXPECT_EQ(stores[1].in_use, 0);
    EXPECT_TRUE(stores[1].name.blank());
    EXPECT_EQ(stores[2].name, "Bakery");
    EXPECT_EQ(stores[2].in_use, 1);
}

TEST_F(ReplacementTest, TheListOfStoresIsRefreshed) {
    add_store(1, "Market");
    add_store(2, "Bakery");
    refresh_store_list();
    replace(1, 2, ReplacementType::store);
    EXPECT_EQ(store_list_map[1], 2);
    EXPECT_EQ(store_list_map[2], 0);
}

TEST_F(ReplacementTest, AUnitOfTheQuantityOnlyIsReplacedThereOnly) {
    add_item(1, "Milk");
    items[1].qty_units = 6;
    items[1].serving_size_units = 2;
    replace(6, 7, ReplacementType::unit);
    EXPECT_EQ(items[1].qty_units, 7);
    EXPECT_EQ(items[1].serving_size_units, 2);
}

TEST_F(ReplacementTest, AUnitOfTheServingOnlyOverwritesTheUnitOfTheQuantityToo) {
    add_item(1, "Milk");
    items[1].qty_units = 1;
    items[1].serving_size_units = 6;
    replace(6, 7, ReplacementType::unit);
    EXPECT_EQ(items[1].qty_units, 7);
    EXPECT_EQ(items[1].serving_size_units, 7);
}

TEST_F(ReplacementTest, AUnitOfBothIsReplacedInBoth) {
    add_item(10000, "Milk");
    items[10000].qty_units = 6;
    items[10000].serving_size_units = 6;
    replace(6, 7, ReplacementType::unit);
    EXPECT_EQ(items[10000].qty_units, 7);
    EXPECT_EQ(items[10000].serving_size_units, 7);
}

TEST_F(ReplacementTest, FreedItemsAndItemsOfOtherUnitsKeepTheirs) {
    items[1].qty_units = 6;
    items[1].serving_size_units = 6;
    add_item(2, "Salt");
    items[2].qty_units = 1;
    items[2].serving_size_units = 2;
    replace(6, 7, ReplacementType::unit);
    EXPECT_EQ(items[1].qty_units, 6);
    EXPECT_EQ(items[1].serving_size_units, 6);
    EXPECT_EQ(items[2].qty_units, 1);
    EXPECT_EQ(items[2].serving_size_units, 2);
}

TEST_F(ReplacementTest, TheUnitsOfNutrientsAndOfRecipesStay) {
    add_item(1, "Milk");
    items[1].qty_units = 6;
    item_details[1].fat_units = 6;
    item_details[1].protien_units = 6;
    meals[1].in_use = 1;
    meals[1].serving_size_units = 6;
    replace(6, 7, ReplacementType::unit);
    EXPECT_EQ(item_details[1].fat_units, 6);
    EXPECT_EQ(item_details[1].protien_units, 6);
    EXPECT_EQ(meals[1].serving_size_units, 6);
}

TEST_F(ReplacementTest, TheOldUnitIsDeletedAndTheListRefreshed) {
    refresh_unit_list();
    replace(12, 13, ReplacementType::unit);
    EXPECT_EQ(units[12].in_use, 0);
    EXPECT_TRUE(units[12].name.blank());
    EXPECT_EQ(unit_list_map[12], 13);
    EXPECT_EQ(unit_list_map[13], 0);
}

// The screens see for themselves what has changed.
TEST_F(ReplacementTest, NoScreenIsToldToDrawItselfAgain) {
    FakeFoodInventory food(platform.calls);
    add_item(5, "Bread");
    add_item(6, "Toast");
    add_store(1, "Market");
    add_store(2, "Bakery");
    replace(5, 6, ReplacementType::item);
    replace(1, 2, ReplacementType::store);
    replace(6, 7, ReplacementType::unit);
    EXPECT_EQ(platform.transcript,
              (Texts{"box " + completed, "box " + completed, "box " + completed}));
}

}  // namespace
}  // namespace tavernook
