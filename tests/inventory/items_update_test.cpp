#include "core/string_storage.h"
#include "inventory/items_fixture.h"
#include "inventory/usage_history.h"

namespace tavernook {
namespace {

using ItemUpdate = ItemsTest;

TEST_F(ItemUpdate, OfAFreeSlotDoesNothing) {
    EXPECT_TRUE(update_item(5, flour_values()));
    EXPECT_EQ(items[5].in_use, 0);
    EXPECT_EQ(items[5].name, "");
    EXPECT_EQ(find_string("Snow"), 0);
    EXPECT_EQ(lot_table_top, 0);
}

TEST_F(ItemUpdate, StoresEveryFieldAndKeepsTheDates) {
    const i16 item = create_flour();
    ItemValues values = flour_values();
    values.name = "";
    values.stock_quantity = 9;
    values.storage_time = 8.5;
    values.restock_quantity = 2;
    values.cost = 3;
    values.serving_size = 0;
    values.servings_per_qty_unit = -1;
    values.store_order = 20;
    values.category = 5;
    values.last_restock_date = 1;
    values.barcode = "empty";
    EXPECT_TRUE(update_item(item, values));
    const ItemRecord& record = items[item];
    EXPECT_EQ(record.name, "<<UNTITLED>>");
    EXPECT_EQ(record.stock_quantity, 9);
    EXPECT_EQ(record.storage_time, 8);
    EXPECT_EQ(record.restock_quantity, 2);
    EXPECT_EQ(record.cost, 3);
    EXPECT_EQ(record.serving_size, 1);
    EXPECT_EQ(record.servings_per_qty_unit, 1);
    EXPECT_EQ(record.store_order, 20);
    EXPECT_EQ(record.category, 5);
    EXPECT_EQ(record.last_restock_date, 45420);
    EXPECT_EQ(record.barcode, "empty");
    EXPECT_EQ(record.fat, 2);  // 1.5 and 110.5, half to even
    EXPECT_EQ(record.calories, 110);
    EXPECT_EQ(item_details[item].created_date, 45427.5);
}

TEST_F(ItemUpdate, BlankUnitsAndStoreBecomeNone) {
    const i16 item = create_flour();
    ItemValues values = flour_values();
    values.qty_units = " ";
    values.serving_size_units = "";
    values.store = "";
    for (NutrientValue& nutrient : values.nutrients) nutrient.unit = "";
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(items[item].qty_units, 0);
    EXPECT_EQ(items[item].serving_size_units, 0);
    EXPECT_EQ(items[item].store, 0);
    for (const NutrientFields& fields : nutrient_fields) {
        EXPECT_EQ(item_details[item].*fields.unit, 0);
    }
}

TEST_F(ItemUpdate, ReplacesTheTextsInTheirRows) {
    const i16 item = create_flour();
    const i16 brand = item_details[item].brand;
    ItemValues values = flour_values();
    values.brand = "Ice";
    values.notes = "";
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(item_details[item].brand, brand);
    EXPECT_EQ(pooled_strings[brand], "Ice");
    EXPECT_EQ(find_string("Snow"), 0);
    EXPECT_EQ(item_details[item].notes, 0);
    EXPECT_EQ(find_string("for bread"), 0);
}

TEST_F(ItemUpdate, OfASharedTextLeavesTheOtherItems) {
    const i16 item = create_flour();
    const i16 other = create_flour();
    ItemValues values = flour_values();
    values.brand = "Ice";
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(pooled_strings[item_details[item].brand], "Ice");
    EXPECT_EQ(pooled_strings[item_details[other].brand], "Snow");
}

TEST_F(ItemUpdate, RaisingTheQuantityAddsALotAndIsARestock) {
    const i16 item = create_flour();
    ItemValues values = flour_values();
    values.quantity = "4.25 kg";
    values.storage_time = 5;
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(items[item].quantity, 4.25);
    EXPECT_EQ(items[item].last_restock_date, 45430.25);
    expect_lot(item, 0, 2.5, 45427.5, 45487.5);
    expect_lot(item, 1, 1.75, 45430.25, 45490.25);  // by the storage time from before
    EXPECT_EQ(decode_usage(report_bytes("pantry000001.tmp")),
              (std::vector<UsageEntry>{{1.75, 45430.25, 2, 1}}));
}

TEST_F(ItemUpdate, LoweringTheQuantityTakesFromTheLots) {
    const i16 item = create_flour();
    update_quantity(item, "1");
    EXPECT_EQ(items[item].quantity, 1);
    EXPECT_EQ(items[item].last_restock_date, 45420);
    expect_lot(item, 0, 1, 45427.5, 45487.5);
    EXPECT_EQ(decode_usage(report_bytes("pantry000001.tmp")),
              (std::vector<UsageEntry>{{1.5, 45430.25, 1, 0}}));
}

TEST_F(ItemUpdate, AQuantityOfZeroOrNoNumberLeavesTheStock) {
    const i16 item = create_flour();
    lots[item].current_lot = 1;  // an unchanged quantity would move on from here
    const LotRecord before = lots[item];
    for (const char* text : {"0", "", "0.00", "none", "  ", "-", "-0"}) {
        update_quantity(item, text);
        EXPECT_EQ(lots[item], before) << text;
        EXPECT_EQ(items[item].quantity, 2.5) << text;
    }
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(ItemUpdate, ACopyTakesTheSumOfItsEmptyLots) {
    const i16 copy = copy_item(create_flour(), 2);
    EXPECT_EQ(items[copy].quantity, 2.5);
    update_quantity(copy, "0");
    EXPECT_EQ(items[copy].quantity, 0);
    EXPECT_EQ(lots[copy].current_lot, 0);
}

TEST_F(ItemUpdate, AnUnchangedQuantityOnAFilledLotChangesNothing) {
    const i16 item = create_flour();
    const LotRecord before = lots[item];
    update_quantity(item, "2.5");
    EXPECT_EQ(lots[item], before);
    EXPECT_EQ(items[item].last_restock_date, 45420);
}

TEST_F(ItemUpdate, AnUnchangedQuantityOnAnEmptyLotMovesOn) {
    const i16 item = create_flour();
    set_current_lot(item, 4);
    update_quantity(item, "2.5");
    EXPECT_EQ(lots[item].current_lot, 5);
    expect_lot(item, 4, 0, 0, 0);
    EXPECT_EQ(items[item].quantity, 2.5);
    EXPECT_EQ(items[item].last_restock_date, 45420);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(ItemUpdate, AskingForMoreWithSixteenFilledLotsAddsNothing) {
    const i16 item = create_flour();
    for (std::size_t place = 0; place < lot_places; ++place) set_lot(item, place, 1);
    items[item].quantity = 16;
    update_quantity(item, "20");
    EXPECT_EQ(items[item].quantity, 16);
    EXPECT_EQ(lot_total(item), 16);
    EXPECT_EQ(lots[item].current_lot, 1);
    EXPECT_EQ(items[item].last_restock_date, 45430.25);
    EXPECT_EQ(moves_written(), 0);
}

TEST_F(ItemUpdate, ANegativeQuantityIsMoreThanTheLotsHold) {
    const i16 item = create_flour();
    platform.boxes.expect_message(
        "The quantity that you provided is more than is currently in the inventory for item "
        "Flour                            .  Cannot update Inventory.  Please adjust the quantity "
        "to adjust.");
    update_quantity(item, "-1");
    EXPECT_EQ(items[item].quantity, 2.5);
}

// Its stock cannot be taken from; everything else of it can be edited.
TEST_F(ItemUpdate, AnItemWhoseCurrentLotCannotBeReadIsEdited) {
    const i16 item = create_flour();
    lots[item].lot_quantity[0] = 40000;
    items[item].quantity = 40000;
    ItemValues values = flour_values();
    values.name = "Other";
    values.quantity = "40000";
    platform.boxes.expect_none();
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(items[item].name, "Other");
    EXPECT_EQ(lots[item].lot_quantity[0], 40000);
    values.name = "Third";
    values.quantity = "10";
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(items[item].name, "Third");
    EXPECT_EQ(items[item].quantity, 40000);
    EXPECT_EQ(lots[item].lot_quantity[0], 40000);
    values.name = "Fourth";
    values.quantity = "40010";
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(items[item].name, "Fourth");
    EXPECT_EQ(items[item].quantity, 40010);
    EXPECT_EQ(lots[item].lot_quantity[1], 10);
    EXPECT_EQ(items[item].last_restock_date, 45430.25);
}

TEST_F(ItemUpdate, FiguresBeyondSixteenBitsStopItBeforeAnythingChanges) {
    const i16 item = create_flour();
    const ItemRecord before = items[item];
    for (f64 ItemValues::*figure :
         {&ItemValues::fat, &ItemValues::calories, &ItemValues::storage_time}) {
        ItemValues values = flour_values();
        values.name = "Other";
        values.quantity = "1";
        values.*figure = 40000;
        expect_trapped(
            6, [&] { return update_item(item, values); }, false);
        EXPECT_EQ(items[item], before);
    }
    EXPECT_EQ(lot_total(item), 2.5);
}

TEST_F(ItemUpdate, AnItemWithoutALotRecordGetsItsFirstLot) {
    items[9].in_use = 1;
    items[9].quantity = 8;
    items[9].storage_time = 10;
    items[9].last_restock_date = 45400;
    update_quantity(9, "6");
    EXPECT_EQ(lot_table_top, 9);
    expect_lot(9, 0, 6, 45400, 45410);
    EXPECT_EQ(items[9].quantity, 6);
}

TEST_F(ItemUpdate, ATextReferenceThatIsNoRowHoldsNoText) {
    const i16 item = create_flour();
    item_details[item].brand = -5;
    item_details[item].notes = 30001;
    update_quantity(item, "2.5");
    EXPECT_EQ(pooled_strings[item_details[item].brand], "Snow");
    EXPECT_EQ(pooled_strings[item_details[item].notes], "for bread");
    item_details[item].notes = 32767;
    ItemValues values = flour_values();
    values.notes = "";
    EXPECT_TRUE(update_item(item, values));
    EXPECT_EQ(item_details[item].notes, 0);
}

TEST_F(ItemUpdate, NumbersOutsideTheTableAreTold) {
    expect_trapped(
        9, [] { return update_item(10001, flour_values()); }, false);
    expect_trapped(
        9, [] { return update_item(-1, flour_values()); }, false);
}

}  // namespace
}  // namespace tavernook
