#include "inventory/items.h"

#include "core/string_storage.h"
#include "inventory/item_slots.h"
#include "inventory/items_fixture.h"

namespace tavernook {
namespace {

constexpr const char* too_many_items =
    "You have reached the limitation of items allowed in Tavernook.  It is recommended that you "
    "delete some items to allow for some more room.";
constexpr const char* too_many_units =
    "You have reached the limitation of Units allowed in Tavernook.  It is recommended that you "
    "delete some units to allow for some more room.";

class NewItemsTest : public ItemsTest {
  protected:
    static void take_all_slots() {
        for (i16 slot = 1; slot <= item_capacity; ++slot) items[slot].in_use = 1;
    }
    static void take_all_units() {
        for (i16 row = 14; row <= unit_capacity; ++row) {
            units[row].name = "u" + std::to_string(row);
            units[row].in_use = 1;
        }
    }
    static i16 unit_named(const std::string& name) {
        ItemValues values = flour_values();
        values.qty_units = name;
        return items[create_item(values)].qty_units;
    }
};

using ItemSlots = NewItemsTest;
using ItemCreation = NewItemsTest;
using ItemUnits = NewItemsTest;

TEST_F(ItemSlots, TheLowestFreeOneIsTaken) {
    take_all_slots();
    items[9999].in_use = 0;
    items[17].in_use = 0;
    EXPECT_EQ(find_free_item_slot(), 17);
}

TEST_F(ItemSlots, TheLastOneComesWithABoxEvenWhenItIsFree) {
    take_all_slots();
    items[10000].in_use = 0;
    platform.boxes.expect_message(too_many_items);
    EXPECT_EQ(find_free_item_slot(), 10000);
}

TEST_F(ItemSlots, AFullTableOverwritesTheLastItemEachTime) {
    take_all_slots();
    platform.boxes.expect_message(too_many_items);
    EXPECT_EQ(create_item(flour_values()), 10000);
    EXPECT_EQ(items[10000].name, "Flour");
    ItemValues rice = flour_values();
    rice.name = "Rice";
    platform.boxes.expect_message(too_many_items);
    EXPECT_EQ(create_item(rice), 10000);
    EXPECT_EQ(items[10000].name, "Rice");
    EXPECT_EQ(items[9999].name, "");
}

TEST_F(ItemCreation, StoresEveryField) {
    EXPECT_EQ(create_item(flour_values()), 1);
    const ItemRecord& item = items[1];
    EXPECT_EQ(item.name, "Flour");
    EXPECT_EQ(item.name.stored(), "Flour                           ");
    EXPECT_EQ(item.quantity, 2.5);
    EXPECT_EQ(item.stock_quantity, 4);
    EXPECT_EQ(item.storage_time, 60);
    EXPECT_EQ(item.restock_quantity, 1);
    EXPECT_EQ(item.cost, 1.25);
    EXPECT_EQ(item.qty_units, 10);
    EXPECT_EQ(item.serving_size, 0.5);
    EXPECT_EQ(item.serving_size_units, 2);
    EXPECT_EQ(item.servings_per_qty_unit, 16);
    EXPECT_EQ(item.store, 1);
    EXPECT_EQ(stores[1].name, "Mill");
    EXPECT_EQ(stores[1].in_use, 1);
    EXPECT_EQ(item.store_order, 3);
    EXPECT_EQ(item.category, 2);
    EXPECT_EQ(item.last_restock_date, 45420);
    EXPECT_EQ(item.barcode, "40123455");
    EXPECT_EQ(item.in_use, 1);
    EXPECT_EQ(item.on_shopping_list, 0);
    EXPECT_EQ(pooled_strings[item.locations], "cellar,shelf 2");
}

TEST_F(ItemCreation, StoresTextsAndNutrients) {
    create_item(flour_values());
    const ItemDetailRecord& detail = item_details[1];
    EXPECT_EQ(pooled_strings[detail.manufacturer], "Miller & Son");
    EXPECT_EQ(pooled_strings[detail.brand], "Snow");
    EXPECT_EQ(pooled_strings[detail.description], "Wheat, fine");
    EXPECT_EQ(pooled_strings[detail.notes], "for bread");
    EXPECT_EQ(detail.created_date, 45427.5);
    EXPECT_EQ(detail.fat, 0.5);
    EXPECT_EQ(detail.calories, 1.5);
    EXPECT_EQ(detail.cholestorol, 2.5);
    EXPECT_EQ(detail.sodium, 3.5);
    EXPECT_EQ(detail.potassium, 4.5);
    EXPECT_EQ(detail.carbohydrates, 5.5);
    EXPECT_EQ(detail.fiber, 6.5);
    EXPECT_EQ(detail.sugars, 7.5);
    EXPECT_EQ(detail.protien, 8.5);
    for (const i16 unit : {detail.fat_units, detail.calories_units, detail.cholestorol_units,
                           detail.sodium_units, detail.potassium_units, detail.carbohydrates_units,
                           detail.fiber_units, detail.sugars_units, detail.protien_units}) {
        EXPECT_EQ(unit, 11);
    }
}

TEST_F(ItemCreation, PutsTheQuantityIntoTheFirstLotWithoutAnEntry) {
    create_item(flour_values());
    expect_lot(1, 0, 2.5, 45427.5, 45487.5);
    for (std::size_t place = 1; place < lot_places; ++place) expect_lot(1, place, 0, 0, 0);
    EXPECT_EQ(lots[1].active, -1);
    EXPECT_EQ(lots[1].current_lot, 0);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(ItemCreation, WithoutAQuantityDatesTheFirstLotAllTheSame) {
    ItemValues values = flour_values();
    values.quantity = "none";
    create_item(values);
    expect_lot(1, 0, 0, 45427.5, 45487.5);
    EXPECT_EQ(items[1].quantity, 0);
}

TEST_F(ItemCreation, LeavesTheWholeNumberFatAndCalories) {
    items[1].fat = 7;
    items[1].calories = 8;
    create_item(flour_values());
    EXPECT_EQ(items[1].fat, 7);
    EXPECT_EQ(items[1].calories, 8);
}

TEST_F(ItemCreation, NamesTheNamelessUntitled) {
    for (const char* name : {"", "   "}) {
        ItemValues values = flour_values();
        values.name = name;
        EXPECT_EQ(items[create_item(values)].name, "<<UNTITLED>>");
    }
}

TEST_F(ItemCreation, CutsANameAtThirtyTwoCharacters) {
    ItemValues values = flour_values();
    values.name = "A name of thirty-three characters";
    EXPECT_EQ(items[create_item(values)].name.stored(), "A name of thirty-three character");
}

TEST_F(ItemCreation, ServingFiguresAreAtLeastOneWhenNotPositive) {
    ItemValues values = flour_values();
    values.serving_size = 0;
    values.servings_per_qty_unit = -3;
    create_item(values);
    EXPECT_EQ(items[1].serving_size, 1);
    EXPECT_EQ(items[1].servings_per_qty_unit, 1);
}

TEST_F(ItemCreation, RoundsTheStorageTimeHalfToEven) {
    for (const auto& [days, stored] : {std::pair{2.5, 2}, {3.5, 4}, {2.51, 3}}) {
        ItemValues values = flour_values();
        values.storage_time = days;
        EXPECT_EQ(items[create_item(values)].storage_time, stored);
    }
}

TEST_F(ItemCreation, AStorageTimeBeyondSixteenBitsMakesNothing) {
    ItemValues values = flour_values();
    values.storage_time = 32768;
    EXPECT_EQ(fault_of([&] { create_item(values); }), 6);
    EXPECT_EQ(items[1].in_use, 0);
    EXPECT_EQ(lot_table_top, 0);
    EXPECT_EQ(find_string("Snow"), 0);
}

TEST_F(ItemCreation, BlankUnitsAndStoreLeaveTheFieldsAsTheyWere) {
    ItemValues values = flour_values();
    values.qty_units = "  ";
    values.store = "";
    values.nutrients[8].unit = "";
    items[1].qty_units = 5;
    create_item(values);
    EXPECT_EQ(items[1].qty_units, 5);
    EXPECT_EQ(items[1].store, 0);
    EXPECT_EQ(item_details[1].protien_units, 0);
    EXPECT_EQ(stores[1].in_use, 0);
}

TEST_F(ItemCreation, EqualTextsShareARow) {
    create_item(flour_values());
    create_item(flour_values());
    EXPECT_EQ(item_details[2].brand, item_details[1].brand);
    EXPECT_EQ(items[2].locations, items[1].locations);
}

TEST_F(ItemUnits, AreFoundWithoutRegardToCapitalsAndBlanks) {
    units[4].name = "  TBSP(S)";
    EXPECT_EQ(unit_named(" tbsp(S) "), 4);
    EXPECT_EQ(units[4].name.stored(), "TBSP(S)     ");
}

TEST_F(ItemUnits, ComeIntoBeingByBeingUsed) {
    EXPECT_EQ(unit_named("  Jar "), 14);
    EXPECT_EQ(units[14].name.stored(), "Jar         ");
    EXPECT_EQ(units[14].in_use, 1);
    EXPECT_EQ(unit_named("jAR"), 14);
}

TEST_F(ItemUnits, OfOneNewNameAreMadeOnce) {
    ItemValues values = flour_values();
    values.qty_units = "Tin";
    values.serving_size_units = "tin";
    values.nutrients[0].unit = "TIN";
    create_item(values);
    EXPECT_EQ(items[1].qty_units, 14);
    EXPECT_EQ(items[1].serving_size_units, 14);
    EXPECT_EQ(item_details[1].fat_units, 14);
    EXPECT_EQ(units[14].name, "Tin");
    EXPECT_EQ(units[15].in_use, 0);
}

TEST_F(ItemUnits, InRowNineHundredNinetyEightAreFound) {
    take_all_units();
    EXPECT_EQ(unit_named("U998"), 998);
}

TEST_F(ItemUnits, InRowNineHundredNinetyNineAreMadeASecondTime) {
    take_all_units();
    units[500].in_use = 0;
    units[500].name = "";
    EXPECT_EQ(unit_named("u999"), 500);
    EXPECT_EQ(units[500].name, "u999");
    EXPECT_EQ(units[999].name, "u999");
    EXPECT_EQ(unit_named("u999"), 500);
}

TEST_F(ItemUnits, InTheLastRowAreNeverFound) {
    take_all_units();
    units[20].in_use = 0;
    units[20].name = "";
    EXPECT_EQ(unit_named("u1000"), 20);
}

TEST_F(ItemUnits, OfAFullTableOverwriteTheLastRow) {
    take_all_units();
    platform.boxes.expect_message(too_many_units);
    EXPECT_EQ(unit_named("Tin"), 1000);
    EXPECT_EQ(units[1000].name, "Tin");
    EXPECT_EQ(units[999].name, "u999");
}

TEST_F(ItemUnits, StoresInRowNineHundredNinetyNineAreMadeASecondTime) {
    for (i16 row = 1; row < 1000; ++row) {
        if (row == 7) continue;
        stores[row].name = "s" + std::to_string(row);
        stores[row].in_use = 1;
    }
    ItemValues values = flour_values();
    values.store = "S999";
    EXPECT_EQ(items[create_item(values)].store, 7);
    EXPECT_EQ(stores[7].name, "S999");
}

TEST_F(ItemsTest, WhileItemsAreOnlyAddedTheFreeSlotsAreTheSame) {
    const auto slots_taken = [this] {
        for (i16 item = 1; item <= item_capacity; ++item) {
            items[item].in_use = item % 3 == 0 && item < 9990 ? i16{0} : i16{1};
        }
        std::vector<i16> taken;
        for (int turn = 0; turn < 3335; ++turn) {
            const i16 slot = find_free_item_slot();
            items[slot].in_use = 1;
            taken.push_back(slot);
            if (slot == item_capacity) break;
        }
        return taken;
    };
    const std::string limit =
        "You have reached the limitation of items allowed in Tavernook.  It is recommended that "
        "you delete some items to allow for some more room.";
    platform.boxes.expect_message(limit);
    const std::vector<i16> searched = slots_taken();
    {
        for (i16 item = 1; item <= item_capacity; ++item) items[item].in_use = 0;
        const OnlyAddingItems adding;
        platform.boxes.expect_message(limit);
        EXPECT_EQ(slots_taken(), searched);
    }
    items[2].in_use = 0;
    EXPECT_EQ(find_free_item_slot(), 2);
}

}  // namespace
}  // namespace tavernook
