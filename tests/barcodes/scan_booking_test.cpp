#include "barcodes/scan_booking.h"

#include <numeric>

#include "barcodes/scan_list_fixture.h"

namespace tavernook {
namespace {

const std::string question =
    " is not currently an item in your inventory.  Would you like to add this item to your "
    "inventory?";

class ScanBookings : public ScanListTest {
  protected:
    static std::vector<i32> all() {
        std::vector<i32> ids;
        for (const ScanRow& row : scan_rows) ids.push_back(row.id);
        return ids;
    }

    ExpectedBox& expect_question(const std::string& code, Answer answer) {
        return platform.boxes.expect_message(code + question, answer)
            .buttons(Buttons::yes_no)
            .title("Tavernook");
    }
    ExpectedBox& expect_name_box(std::optional<std::string> name) {
        return platform.boxes.expect_input("Please enter the name of the item.", "New Item", "",
                                           std::move(name));
    }
    ExpectedBox& expect_added(const std::string& code, const std::string& name) {
        return platform.boxes.expect_message(
            "The barcode " + code + " has been added to your inventory as " + name +
            " in the General category.  The quantity has been placed in Auto Lot mode.");
    }
    ExpectedBox& expect_added_untitled(const std::string& code) {
        return platform.boxes.expect_message(
            "The barcode " + code +
            " has been added to your inventory as <Untitled> in the General category");
    }
    void expect_ignored(const std::string& code) {
        expect_question(code, Answer::no);
        platform.boxes.expect_message("Ignoring Barcode " + code).title("Tavernook");
    }
    void expect_no_lot_named(const std::string& name) {
        platform.boxes.expect_message("Did not find a Lot named: " + name +
                                      ". Please try typing in the lot name again.");
    }
    void expect_more_than_lot(const std::string& name) {
        platform.boxes.expect_message(
            "The quantity to remove from LOT " + name +
            " is more than that LOT contains.  Cannot Update.  Please Change the quantity to be "
            "removed.");
    }

    static void expect_counts(const ScanBooking& booking, int booked, int ignored,
                              const Texts& kept) {
        EXPECT_EQ(booking.booked, booked);
        EXPECT_EQ(booking.ignored, ignored);
        EXPECT_EQ(booking.kept, kept);
    }

    static void stock(i16 item, std::vector<f64> quantities) {
        for (std::size_t place = 0; place < quantities.size(); ++place) {
            lots[item].lot_quantity[place] = quantities[place];
        }
        items[item].quantity = lot_total(item);
    }
    static f64 held(i16 item, std::size_t place) { return lots[item].lot_quantity[place]; }
};

// --- new stock ---------------------------------------------------------------------------------

TEST_F(ScanBookings, NewStockGoesIntoTheNextEmptyLotAndItsRowLeaves) {
    stock(milk, {4});
    scan("0123", 2.5);
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(held(milk, 0), 4);
    EXPECT_EQ(held(milk, 1), 2.5);
    EXPECT_EQ(items[milk].quantity, 6.5);
    EXPECT_TRUE(scan_rows.empty());
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ScanBookings, OnlyTheRowsNamedAreBooked) {
    scan("0123", 2);
    const i32 second = scan("4567", 3);
    scan("0123", 5);
    expect_counts(Add_New({second, second, -4, 99999999}), 1, 0, {});
    EXPECT_EQ(items[flour].quantity, 3);
    EXPECT_EQ(items[milk].quantity, 0);
    EXPECT_EQ(codes(), (Texts{"0123", "0123"}));
}

TEST_F(ScanBookings, RowsAreBookedInTheOrderOfTheList) {
    const i32 first = scan("0123", 2);
    const i32 second = scan("0123", 5);
    expect_counts(Add_New({second, first}), 2, 0, {});
    EXPECT_EQ(held(milk, 0), 2);
    EXPECT_EQ(held(milk, 1), 5);
}

TEST_F(ScanBookings, NothingIsBookedOfAnEmptyList) {
    for (const auto book : {Add_New, Used_Update, Add_Shopping_List})
        expect_counts(book({}), 0, 0, {});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ScanBookings, ANamedLotTakesTheQuantityInPlaceOfWhatItHeld) {
    stock(milk, {4, 8});
    scan("0123", 3, "lot b");
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(held(milk, 0), 4);
    EXPECT_EQ(held(milk, 1), 3);
    EXPECT_EQ(items[milk].quantity, 7);
}

TEST_F(ScanBookings, AnUnknownLotKeepsTheRow) {
    scan("0123", 3, "Cellar");
    scan("4567", 3);
    expect_no_lot_named("Cellar");
    expect_counts(Add_New(all()), 1, 0, {"Milk (0123): it has no lot named Cellar"});
    EXPECT_EQ(codes(), Texts{"0123"});
    EXPECT_EQ(items[milk].quantity, 0);
}

TEST_F(ScanBookings, AutoInSmallLettersIsTheNameOfALot) {
    scan("0123", 3, "auto");
    expect_no_lot_named("auto");
    expect_counts(Add_New(all()), 0, 0, {"Milk (0123): it has no lot named auto"});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ScanBookings, WithAllLotsFilledTheRowIsKept) {
    stock(milk, std::vector<f64>(16, 1));
    scan("0123", 3);
    scan("4567", 3);
    expect_counts(Add_New(all()), 1, 0, {"Milk (0123): all 16 of its lots are filled"});
    EXPECT_EQ(items[milk].quantity, 16);
    EXPECT_EQ(codes(), Texts{"0123"});
}

TEST_F(ScanBookings, AnItemWithoutALotRecordGetsOneFirst) {
    items[500].in_use = 1;
    items[500].barcode = "500";
    items[500].quantity = 6;
    scan("500", 2);
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(held(500, 0), 6);
    EXPECT_EQ(held(500, 1), 2);
    EXPECT_EQ(items[500].quantity, 8);
}

TEST_F(ScanBookings, TheDateOfRestockingStays) {
    items[milk].last_restock_date = 45000;
    scan("0123", 2);
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(items[milk].last_restock_date, 45000);
    EXPECT_EQ(lots[milk].creation_date[0], platform.clock.time);
}

TEST_F(ScanBookings, AnUnknownCodeBecomesAnItem) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("Rice");
    expect_added("999", "Rice");
    expect_counts(Add_New(all()), 1, 0, {});
    const i16 rice = find_barcode("999");
    ASSERT_EQ(rice, 1);
    const ItemRecord& item = items[rice];
    EXPECT_EQ(item.in_use, 1);
    EXPECT_EQ(item.name, "Rice");
    EXPECT_EQ(item.category, 1);
    EXPECT_EQ(item.quantity, 2);
    EXPECT_EQ(held(rice, 0), 2);
    EXPECT_EQ(units[item.qty_units].name, "each");
    EXPECT_EQ(units[item.serving_size_units].name, "each");
    EXPECT_EQ(item.serving_size, 1);
    EXPECT_EQ(item.servings_per_qty_unit, 1);
    EXPECT_EQ(item.last_restock_date, platform.clock.time);
    EXPECT_EQ(item.stock_quantity, 0);
    EXPECT_EQ(item.restock_quantity, 0);
    EXPECT_EQ(item.storage_time, 0);
    EXPECT_EQ(item.cost, 0);
    EXPECT_EQ(item_details[rice].fat, 0);
    EXPECT_EQ(pooled_strings[item.locations], "");
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ScanBookings, ACodeScannedTwiceIsAskedAboutOnce) {
    scan("999", 2);
    scan("999", 3);
    expect_question("999", Answer::yes);
    expect_name_box("Rice");
    expect_added("999", "Rice");
    expect_counts(Add_New(all()), 2, 0, {});
    EXPECT_EQ(items[1].quantity, 5);
}

TEST_F(ScanBookings, ACodeLongerThanAnItemBearsIsAskedAboutOnce) {
    const std::string code(40, '8');
    scan(code.c_str(), 2);
    scan(code.c_str(), 3);
    expect_question(code, Answer::yes);
    expect_name_box("Rice");
    expect_added(code, "Rice");
    expect_counts(Add_New(all()), 2, 0, {});
    EXPECT_EQ(items[1].quantity, 5);
}

TEST_F(ScanBookings, WhatTheUserDoesNotWantIsIgnoredAndLeaves) {
    scan("999", 2);
    scan("0123", 2);
    expect_ignored("999");
    expect_counts(Add_New(all()), 1, 1, {});
    EXPECT_EQ(items[1].in_use, 0);
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ScanBookings, WithoutANameNoItemIsMadeAndTheRowStays) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box(std::nullopt);
    expect_counts(Add_New(all()), 0, 0, {"unknown item (999): no name was given"});
    EXPECT_EQ(items[1].in_use, 0);
    EXPECT_EQ(codes(), Texts{"999"});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ScanBookings, AnEmptyNameIsUntitled) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("");
    expect_added("999", "<<UNTITLED>>");
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(items[1].name, "<<UNTITLED>>");
}

TEST_F(ScanBookings, AnItemThatIsMadeButNotBookedIsAChangeAllTheSame) {
    scan("999", 2, "Cellar");
    expect_question("999", Answer::yes);
    expect_name_box("Rice");
    expect_added("999", "Rice");
    expect_no_lot_named("Cellar");
    expect_counts(Add_New(all()), 0, 0, {"Rice (999): it has no lot named Cellar"});
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(scan_rows[0].name, "Rice");
}

TEST_F(ScanBookings, OfAFullTableTheLastSlotIsTakenAfterItsBox) {
    for (i16 slot = 1; slot <= item_capacity; ++slot) items[slot].in_use = 1;
    init_lot_record(item_capacity);
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("Rice");
    platform.boxes.expect_message(
        "You have reached the limitation of items allowed in Tavernook.  It is recommended that "
        "you delete some items to allow for some more room.");
    expect_added("999", "Rice");
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(items[item_capacity].name, "Rice");
    EXPECT_EQ(items[item_capacity].quantity, 2);
}

// --- while boxes stand open --------------------------------------------------------------------

TEST_F(ScanBookings, AnItemThatComesWhileTheQuestionStandsIsBooked) {
    scan("999", 2);
    expect_question("999", Answer::yes).during([] { put_item(20, "Rice", "999"); });
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(items[20].quantity, 2);
    EXPECT_EQ(items[1].in_use, 0);
}

TEST_F(ScanBookings, AnItemThatComesWhileItsNameIsAskedForIsBooked) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("Rice").during([] { put_item(20, "Brown rice", "999"); });
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(items[20].quantity, 2);
    EXPECT_EQ(items[1].in_use, 0);
}

TEST_F(ScanBookings, ANewItemThatGoesWhileItIsToldOfIsNotBookedOn) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("Rice");
    expect_added("999", "Rice").during([] {
        look_for_changes();
        remove_item(1);
        put_item(1, "Sugar", "888");  // takes the slot
        look_for_changes();
    });
    expect_counts(Add_New(all()), 0, 0, {"unknown item (999): the new item has been deleted"});
    EXPECT_EQ(items[1].quantity, 0);
    EXPECT_EQ(codes(), Texts{"999"});
}

TEST_F(ScanBookings, ARowThatGoesWhileItsQuestionStandsIsNotBooked) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        scan("999", 2);
        expect_question("999", answer).during([] { clear_scan_list(); });
        expect_counts(Add_New(all()), 0, 0, {});
    }
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("Rice").during([] { clear_scan_list(); });
    expect_counts(Add_New(all()), 0, 0, {});
    EXPECT_EQ(items[1].in_use, 0);
}

TEST_F(ScanBookings, RowsThatGoWithTheProjectWhileABoxStandsAreNotBooked) {
    scan("0123", 3, "Cellar");
    scan("4567", 3);
    platform.boxes
        .expect_message(
            "Did not find a Lot named: Cellar. Please try typing in the lot name again.")
        .during([] {
            clear_scan_list();
            reset_project_tables();
            project_modified = i16_false;
        });
    expect_counts(Add_New(all()), 0, 0, {});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ScanBookings, WhatTheUserChangesMeanwhileIsBooked) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_name_box("Rice").during([] {
        scan_rows[0].quantity = "7";
        scan_rows[0].lot = "Lot C";
    });
    expect_added("999", "Rice");
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(held(1, 2), 7);
}

TEST_F(ScanBookings, AnItemDeletedWhileItsRowStandsIsAskedAbout) {
    scan("0123", 2);
    remove_item(milk);
    expect_ignored("0123");
    expect_counts(Add_New(all()), 0, 1, {});
    EXPECT_EQ(lot_total(milk), 0);
}

TEST_F(ScanBookings, AnItemThatGotTheCodeWhileItsRowStoodIsBooked) {
    scan("0123", 2);
    items[milk].barcode = "0124";
    items[flour].barcode = "0123";
    expect_counts(Add_New(all()), 1, 0, {});
    EXPECT_EQ(items[milk].quantity, 0);
    EXPECT_EQ(items[flour].quantity, 2);
}

// --- what ends a run ---------------------------------------------------------------------------

TEST_F(ScanBookings, AQuantityThatIsNoNumberEndsTheRunAndTheRowsBeforeLeave) {
    for (const auto book : {Add_New, Add_Shopping_List}) {
        clear_scan_list();
        scan("0123", 2);
        scan("4567", 2);
        scan("0123", 2);
        scan_rows[1].quantity = "two";
        platform.boxes.expect_message("ERROR 13 ERROR DESCRIPTIONType mismatch").title("Tavernook");
        expect_counts(book(all()), 1, 0, {"Flour (4567): the booking stopped here"});
        EXPECT_EQ(codes(), (Texts{"4567", "0123"}));
    }
    EXPECT_EQ(items[milk].quantity, 2);
    EXPECT_EQ(items[milk].shopping_quantity, 2);
}

TEST_F(ScanBookings, AQuantityThatIsNoNumberEndsAUseToo) {
    stock(milk, {5});
    scan("0123", 2);
    scan_rows[0].quantity = "";
    platform.boxes.expect_message("ERROR 13 ERROR DESCRIPTIONType mismatch");
    expect_counts(Used_Update(all()), 0, 0, {"Milk (0123): the booking stopped here"});
    EXPECT_EQ(items[milk].quantity, 5);
}

// --- the inventory screen ----------------------------------------------------------------------

TEST_F(ScanBookings, TheInventoryScreenIsToldOfTheItemThatItShows) {
    FakeFoodInventory screen(platform.calls);
    screen.index = milk;
    scan("4567", 2);
    scan("0123", 2);
    expect_counts(Add_New(all()), 2, 0, {});
    EXPECT_EQ(platform.calls.entries, Texts{"FoodInventory view_item 7 -1"});
    platform.calls.clear();
    scan("0123", 1);
    scan("0123", 9);
    platform.boxes.expect_message(
        "The quantity that you provided is more than is currently in the inventory for item " +
        std::string(items[milk].name.stored()) +
        " .  Cannot update Inventory.  Please adjust the quantity to adjust.");
    expect_counts(Used_Update(all()), 1, 0, {"Milk (0123): there is less of it in stock"});
    EXPECT_EQ(platform.calls.entries, Texts{"FoodInventory view_item 7 -1"});
}

// --- used stock --------------------------------------------------------------------------------

TEST_F(ScanBookings, UsedStockLeavesTheLotsInTheirOrder) {
    stock(milk, {4, 8});
    scan("0123", 5);
    expect_counts(Used_Update(all()), 1, 0, {});
    EXPECT_EQ(held(milk, 0), 0);
    EXPECT_EQ(held(milk, 1), 7);
    EXPECT_EQ(items[milk].quantity, 7);
    EXPECT_TRUE(scan_rows.empty());
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ScanBookings, AllThatThereIsCanBeUsed) {
    stock(milk, {4, 8});
    scan("0123", 12);
    expect_counts(Used_Update(all()), 1, 0, {});
    EXPECT_EQ(items[milk].quantity, 0);
}

TEST_F(ScanBookings, OfANamedLotTheQuantityIsTakenAlone) {
    stock(milk, {4, 8});
    lots[milk].creation_date[1] = 45000;
    scan("0123", 3, "LOT B");
    expect_counts(Used_Update(all()), 1, 0, {});
    EXPECT_EQ(held(milk, 1), 5);
    EXPECT_EQ(lots[milk].creation_date[1], 45000);
    EXPECT_EQ(items[milk].quantity, 12) << "until the lots are summed";
    EXPECT_TRUE(platform.files.log().empty()) << "no usage is written";
}

TEST_F(ScanBookings, OfANamedLotNeitherAllNorMoreCanBeTaken) {
    stock(milk, {4, 8});
    for (const f64 quantity : {8.0, 8.5}) {
        clear_scan_list();
        scan("0123", quantity, "Lot B");
        expect_more_than_lot("Lot B");
        expect_counts(Used_Update(all()), 0, 0,
                      {"Milk (0123): the lot Lot B holds no more than that"});
        EXPECT_EQ(held(milk, 1), 8);
        EXPECT_EQ(codes(), Texts{"0123"});
    }
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ScanBookings, AnUnknownLotKeepsTheRowOfAUseToo) {
    stock(milk, {4});
    scan("0123", 3, "Cellar");
    expect_no_lot_named("Cellar");
    expect_counts(Used_Update(all()), 0, 0, {"Milk (0123): it has no lot named Cellar"});
    EXPECT_EQ(codes(), Texts{"0123"});
}

TEST_F(ScanBookings, AnUnknownCodeThatWasUsedBecomesAnUntitledItemWithoutStock) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_added_untitled("999");
    platform.boxes.expect_message(
        "The quantity that you provided is more than is currently in the inventory for item " +
        std::string("<<UNTITLED>>") + std::string(20, ' ') +
        " .  Cannot update Inventory.  Please adjust the quantity to adjust.");
    expect_counts(Used_Update(all()), 0, 0, {"<<UNTITLED>> (999): there is less of it in stock"});
    EXPECT_EQ(items[1].name, "<<UNTITLED>>");
    EXPECT_EQ(items[1].quantity, 0);
    EXPECT_EQ(codes(), Texts{"999"});
}

TEST_F(ScanBookings, ACodeThatWasUsedCanBeIgnored) {
    scan("999", 2);
    expect_ignored("999");
    expect_counts(Used_Update(all()), 0, 1, {});
    EXPECT_TRUE(scan_rows.empty());
}

// --- the shopping list -------------------------------------------------------------------------

TEST_F(ScanBookings, TheQuantityIsAddedToWhatIsToBeBought) {
    items[milk].shopping_quantity = 1.5;
    scan("0123", 2);
    scan("0123", 3);
    scan("4567", 4);
    expect_counts(Add_Shopping_List(all()), 3, 0, {});
    EXPECT_EQ(items[milk].on_shopping_list, i16_true);
    EXPECT_EQ(items[milk].shopping_quantity, 6.5);
    EXPECT_EQ(items[flour].on_shopping_list, i16_true);
    EXPECT_EQ(items[flour].shopping_quantity, 4);
    EXPECT_EQ(lot_total(milk), 0);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ScanBookings, ANewItemGoesOnTheShoppingListToo) {
    scan("999", 2);
    expect_question("999", Answer::yes);
    expect_added_untitled("999");
    expect_counts(Add_Shopping_List(all()), 1, 0, {});
    EXPECT_EQ(items[1].name, "<<UNTITLED>>");
    EXPECT_EQ(items[1].on_shopping_list, i16_true);
    EXPECT_EQ(items[1].shopping_quantity, 2);
}

TEST_F(ScanBookings, WhatIsNotWantedStaysOffTheShoppingList) {
    scan("999", 2);
    expect_ignored("999");
    expect_counts(Add_Shopping_List(all()), 0, 1, {});
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ScanBookings, TheShoppingListsScreenIsFilledOnce) {
    FakeShoppingList screen(platform.calls);
    FakeFoodInventory inventory(platform.calls);
    inventory.index = milk;
    scan("0123", 2);
    scan("4567", 4);
    expect_counts(Add_Shopping_List(all()), 2, 0, {});
    EXPECT_EQ(platform.calls.entries, Texts{"ShoppingList populate_list"});
    platform.calls.clear();
    expect_counts(Add_Shopping_List({}), 0, 0, {});
    EXPECT_TRUE(platform.calls.entries.empty());
}

TEST_F(ScanBookings, ALotNameDoesNotMatterToTheShoppingList) {
    scan("0123", 2, "Cellar");
    expect_counts(Add_Shopping_List(all()), 1, 0, {});
    EXPECT_EQ(items[milk].shopping_quantity, 2);
}

}  // namespace
}  // namespace tavernook
