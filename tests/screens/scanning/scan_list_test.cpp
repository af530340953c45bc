// The scan list: what comes on it and what is done with its rows.
#include "core/program_state.h"
#include "core/replace_file.h"
#include "inventory/items.h"
#include "screens/scanning/scan_list_fixture.h"

namespace tavernook {
namespace {

using ScanList = ScanListScreen;

// --- codes that come by keys ---------------------------------------------------------------------

TEST_F(ScanList, ACodeIsWaitedForAndComesOnTheListMarked) {
    open_list();
    EXPECT_EQ(caption(), "Scan List");
    EXPECT_EQ(focused(), "Text1");
    scan("1111");
    EXPECT_EQ(row(0), (Texts{"1111", "Apples", "1", "Bag(s)", "Auto"}));
    EXPECT_EQ(status(), "Apples is on the list.");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(entry().text(), "");
    scan("999");
    EXPECT_EQ(row(1), (Texts{"999", "unknown item", "1", "", "Auto"}));
    EXPECT_EQ(status(), "No item has the barcode \"999\".");
    EXPECT_EQ(marked(), (Texts{"1111", "999"}));
    EXPECT_EQ(count(), "2 codes, 2 marked");
}

TEST_F(ScanList, ACodeScannedTwiceStandsThereTwice) {
    open_list();
    scan("1111");
    scan("1111");
    EXPECT_EQ(codes(), (Texts{"1111", "1111"}));
}

// Whatever has the focus, the first key too.
TEST_F(ScanList, LettersAndDigitsOfACodeCountWhereverTheFocusIs) {
    open_list();
    scan("1111");
    std::size_t rows = 1;
    for (QWidget* where : screen->findChildren<QWidget*>()) {
        const bool takes_focus = where->focusPolicy() != Qt::NoFocus && where->isVisible() &&
                                 where->isEnabled() && where->focusProxy() == nullptr;
        if (!takes_focus) continue;
        where->setFocus();
        scan("AB-12");
        EXPECT_EQ(codes().size(), ++rows) << where->objectName().toStdString();
        EXPECT_EQ(codes().back(), "AB-12");
    }
    EXPECT_GE(rows, 6u);
}

TEST_F(ScanList, AFullStopTypedInTheListGoesToTheBoxForCodes) {
    open_list();
    list().setFocus();
    press(".");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(part<QLineEdit>("Text2").text(), ".");
}

// "444" XOR 67 is "www", in groups of six bits 29 55 29 55: the letters D3D3. No item is named so.
TEST_F(ScanList, ACueCatLineTypedInTheListIsDecoded) {
    scanner_type = 2;
    items[salt].barcode = "444";
    open_list();
    list().setFocus();
    scan(".C3nX.cGf2.D3D3.");
    EXPECT_EQ(row(0), (Texts{"444", "Salt", "1", "each", "Auto"}));
}

TEST_F(ScanList, ACueCatLineWithoutACodeIsARowThatNobodyKnows) {
    scanner_type = 2;
    open_list();
    scan(".C3nX.");
    EXPECT_EQ(row(0), (Texts{"", "unknown item", "1", "", "Auto"}));
    EXPECT_EQ(status(), "No barcode could be read. Please scan again.");
    press("Return");
    EXPECT_EQ(codes().size(), 1u);
}

TEST_F(ScanList, TheProgramsOwnLabelMeansTheItemOfItsNumber) {
    items[bread].barcode = "empty";
    open_list();
    for (const char* label : {"TVK5", "tvk5", "Tvk5"}) scan(label);
    EXPECT_EQ(column(list(), 1), (Texts{"Bread", "Bread", "Bread"}));
    click_command(3);
    EXPECT_EQ(lot_total(bread), 3);
}

TEST_F(ScanList, WithoutAScannerEnterAsksInTheBoxAndInTheList) {
    scanner_type = 3;
    open_list();
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", "1111");
    press("Return");
    EXPECT_EQ(codes(), Texts{"1111"});
    list().setFocus();
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", "2222");
    press("Return");
    EXPECT_EQ(codes(), (Texts{"1111", "2222"}));
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", std::nullopt);
    list().setFocus();
    press("Return");
    EXPECT_EQ(codes().size(), 2u);
}

TEST_F(ScanList, WithTheBatchScannerEnterInTheBoxDoesNothing) {
    scanner_type = 1;
    open_list();
    EXPECT_EQ(focused(), "scan_toolbar_1_button");
    entry().setFocus();
    scan("1111");
    EXPECT_EQ(codes(), Texts{});
}

// --- rows ----------------------------------------------------------------------------------------

TEST_F(ScanList, TheRowsStayWhenTheScreenIsClosed) {
    open_list();
    scan("1111");
    press_letter("Alt+C");
    EXPECT_FALSE(is_open("CS1504GETUPC"));
    open_list();
    EXPECT_EQ(codes(), Texts{"1111"});
    EXPECT_EQ(marked(), Texts{"1111"});
}

TEST_F(ScanList, ARowIsKnownAsItsItemIsNow) {
    open_list();
    scan("1111");
    scan("999");
    items[apples].name = "Red Apples";
    items[milk].barcode = "999";
    end_of_step();
    EXPECT_EQ(column(list(), 1), (Texts{"Red Apples", "Milk"}));
    clear_item_record(apples);
    items[apples].in_use = 0;
    end_of_step();
    EXPECT_EQ(row(0), (Texts{"1111", "unknown item", "1", "", "Auto"}));
}

TEST_F(ScanList, F2AndThePopupChangeQuantityAndLotOfTheCurrentRow) {
    open_list();
    scan("1111");
    scan("2222");
    click_row(list(), 0);
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1", "2,5");
    press("F2");
    platform.boxes.expect_input("Enter Lot Name", "Modify Lot", "Auto", "Lot C");
    part<QAction>("change_lot").trigger();
    EXPECT_EQ(row(0), (Texts{"1111", "Apples", "2.5", "Bag(s)", "Lot C"}));
    EXPECT_EQ(row(1), (Texts{"2222", "Milk", "1", "each", "Auto"}));
    press("Shift+F10");
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    Texts entries;
    for (const QAction* entry : popup->actions()) entries.push_back(plain(entry->text()));
    EXPECT_EQ(entries, (Texts{"Modify Quantity", "Change Lot"}));
    press("Escape");
}

// The one with the frame, whichever are marked.
TEST_F(ScanList, KeysAreForTheCurrentRowMarkedOrNot) {
    open_list();
    for (const char* code : {"1111", "2222", "3333"}) scan(code);
    click_row(list(), 1, Qt::ControlModifier);
    EXPECT_EQ(marked(), (Texts{"1111", "3333"}));
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1", "7");
    press("F2");
    EXPECT_EQ(row(1)[2], "7");
    press("Delete");
    EXPECT_EQ(codes(), (Texts{"1111", "3333"}));
}

TEST_F(ScanList, MarksOutliveTheScreen) {
    open_list();
    for (const char* code : {"1111", "2222", "3333"}) scan(code);
    click_row(list(), 1, Qt::ControlModifier);
    press_letter("Alt+C");
    open_list();
    EXPECT_EQ(marked(), (Texts{"1111", "3333"}));
    scan("4444");
    EXPECT_EQ(marked(), (Texts{"1111", "3333", "4444"}));
}

// The question is about the row that was there, not about the one that now has its place.
TEST_F(ScanList, ARowThatGoesWhileItsBoxStandsOpenIsNotChanged) {
    open_list();
    scan("1111");
    scan("2222");
    click_row(list(), 0);
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1", "7").during([] {
        delete_barcode("1111");
    });
    press("F2");
    EXPECT_EQ(row(0), (Texts{"2222", "Milk", "1", "each", "Auto"}));
}

TEST_F(ScanList, DeleteTakesTheMarkedRowsOff) {
    open_list();
    for (const char* code : {"1111", "2222", "3333"}) scan(code);
    click_row(list(), 1);
    press("Delete");
    EXPECT_EQ(codes(), (Texts{"1111", "3333"}));
    EXPECT_EQ(status(), "1 code taken off the list.");
    press("Ctrl+A");
    const char* question = "Do you want to take all 2 codes that are marked off the list?";
    platform.boxes.expect_message(question, Answer::no)
        .buttons(Buttons::yes_no)
        .default_button(DefaultButton::no);
    press("Delete");
    EXPECT_EQ(codes().size(), 2u);
    platform.boxes.expect_message(question, Answer::yes);
    press("Delete");
    EXPECT_EQ(codes(), Texts{});
    press("Delete");
}

TEST_F(ScanList, ADoubleClickOpensAKnownItem) {
    open_list();
    scan("2222");
    double_click_row(list(), 0);
    ASSERT_NE(food_inventory(), nullptr);
    EXPECT_EQ(food_inventory()->getindex(), milk);
}

TEST_F(ScanList, ADoubleClickOnAnUnknownCodeAddsIt) {
    open_list();
    scan("999");
    expect_new_item("999", "Tea");
    double_click_row(list(), 0);
    const i16 tea = find_barcode("999");
    ASSERT_NE(tea, 0);
    EXPECT_EQ(lot_total(tea), 1);
    EXPECT_EQ(codes(), Texts{});
}

TEST_F(ScanList, EnterOnAnUnknownCodeAddsItAlone) {
    open_list();
    scan("1111");
    scan("999");
    list().setFocus();
    expect_new_item("999", "Tea");
    press("Return");
    EXPECT_EQ(codes(), Texts{"1111"});
    EXPECT_EQ(lot_total(apples), 0);
}

TEST_F(ScanList, AnAcceptedItemGivesItsRowsItsName) {
    open_list();
    scan("2222");
    double_click_row(list(), 0);
    screen = window.registry().loaded(QStringLiteral("FoodInventory"));
    part<QLineEdit>("item_name").setText(QStringLiteral("Oat milk"));
    part<QAction>("item_toolbar_2_1").trigger();
    open_list();
    EXPECT_EQ(row(0)[1], "Oat milk");
}

// --- the buttons ---------------------------------------------------------------------------------

TEST_F(ScanList, TheBatchScannersButtonsAreThereForItAlone) {
    open_list();
    for (const int button : {1, 2}) EXPECT_FALSE(has_button(button));
    for (const int button : {3, 4, 5, 6}) EXPECT_TRUE(has_button(button));
    scanner_type = 1;
    end_of_step();
    settle();
    for (const int button : {1, 2, 3, 4, 5, 6}) EXPECT_TRUE(has_button(button));
}

TEST_F(ScanList, AnEmptyListHasNothingToBook) {
    open_list();
    for (const int button : {3, 4, 5}) EXPECT_FALSE(command(button).isEnabled());
    EXPECT_TRUE(command(6).isEnabled());
    scan("1111");
    for (const int button : {3, 4, 5}) EXPECT_TRUE(command(button).isEnabled());
}

TEST_F(ScanList, OnlyMarkedRowsAreBookedAndNoneIsSaidSo) {
    open_list();
    for (const char* code : {"1111", "2222", "3333"}) scan(code);
    list().clearSelection();
    click_command(3);
    EXPECT_EQ(status(), "Mark the codes first, all of them by Ctrl+A.");
    EXPECT_EQ(caption(), "Scan List");
    click_row(list(), 0);
    click_row(list(), 2, Qt::ControlModifier);
    click_command(3);
    EXPECT_EQ(caption(), "Update Complete");
    EXPECT_EQ(status(), "2 codes booked as new stock.");
    EXPECT_EQ(codes(), Texts{"2222"});
    EXPECT_EQ(lot_total(apples), 1);
    EXPECT_EQ(lot_total(milk), 0);
    EXPECT_EQ(lot_total(bread), 1);
    scan("4444");
    EXPECT_EQ(caption(), "Scan List");
}

TEST_F(ScanList, TheCaptionTellsWhatIsGoingOn) {
    open_list();
    stock(apples, 5);
    Texts captions;
    const char* told[] = {"Ignoring Barcode 999"};
    for (const int button : {3, 4, 5}) {
        scan("999");
        expect_question("999", Answer::no);
        platform.boxes.expect_message(told[0]).during([&] { captions.push_back(caption()); });
        click_command(button);
        EXPECT_EQ(caption(), "Update Complete");
    }
    EXPECT_EQ(captions, (Texts{"Updating barcodes to Item Inventory as New/Update",
                               "Updating barcodes to Item Inventory as Used",
                               "Updating barcodes to Item Inventory as Used"}));
    EXPECT_EQ(status(), "1 code ignored. Nothing was booked.");
}

TEST_F(ScanList, WhatCannotBeBookedStaysAndIsTold) {
    open_list();
    stock(milk, 3);
    for (const char* code : {"1111", "2222"}) scan(code);
    platform.boxes.expect_message(
        "The quantity that you provided is more than is currently in the inventory for item " +
        std::string(items[apples].name.stored()) +
        " .  Cannot update Inventory.  Please adjust the quantity to adjust.");
    click_command(4);
    EXPECT_EQ(codes(), Texts{"1111"});
    EXPECT_EQ(marked(), Texts{"1111"});
    EXPECT_EQ(lot_total(milk), 2);
    EXPECT_TRUE(status().starts_with("Still on the list: Apples (1111): ")) << status();
    EXPECT_TRUE(status().ends_with(" 1 code taken out of the stock.")) << status();
}

TEST_F(ScanList, CodesGoOnTheGroceryList) {
    open_list();
    items[milk].shopping_quantity = 2;
    scan("2222");
    click_command(5);
    EXPECT_EQ(items[milk].on_shopping_list, -1);
    EXPECT_EQ(items[milk].shopping_quantity, 3);
    EXPECT_EQ(status(), "1 code put on the grocery list.");
}

// Thousands of rows are marked at once where they are one stretch, and one by one where not.
TEST_F(ScanList, RowsThatComeTogetherAreMarkedInOneStretch) {
    open_list();
    scan("1111");
    list().clearSelection();
    for (const char* code : {"2222", "3333", "4444"}) populate_item(code, 0, "");
    end_of_step();
    EXPECT_EQ(marked(), (Texts{"2222", "3333", "4444"}));
    EXPECT_EQ(list().selectionModel()->selection().size(), 1);
    EXPECT_EQ(list().currentIndex().row(), 3);
}

TEST_F(ScanList, AnImportedFileTellsHowFarItCame) {
    open_list();
    const std::string path = platform.path("codes.txt");
    replace_file(path, "1111,2,Auto\n2222,1.5,Lot B\n3333,4\n4444,1,Auto\n");
    platform.dialogs.expect_open("Import Barcode List", path);
    click_command(6);
    EXPECT_EQ(row(0), (Texts{"1111", "Apples", "2", "Bag(s)", "Auto"}));
    EXPECT_EQ(row(1), (Texts{"2222", "Milk", "1.5", "each", "Lot B"}));
    EXPECT_EQ(codes().size(), 2u);
    EXPECT_EQ(caption(), "Scan List - 2 codes imported, stopped at line 3");
    EXPECT_EQ(status(), "2 codes imported, stopped at line 3.");
    platform.dialogs.expect_open("Import Barcode List", "");
    click_command(6);
    EXPECT_EQ(caption(), "Scan List - 2 codes imported, stopped at line 3");
}

// --- the keyboard alone --------------------------------------------------------------------------

TEST_F(ScanList, EscDropsWhatWasBegunAndThenClosesTheScreen) {
    open_list();
    type("12");
    press("Escape");
    EXPECT_TRUE(is_open("CS1504GETUPC"));
    EXPECT_EQ(entry().text(), "");
    press("Escape");
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

TEST_F(ScanList, EverythingIsReachedByTabInARound) {
    open_list();
    scan("1111");
    const Texts round{"Text1",
                      "scan_list",
                      "close_button",
                      "scan_toolbar_3_button",
                      "scan_toolbar_4_button",
                      "scan_toolbar_5_button",
                      "scan_toolbar_6_button"};
    for (std::size_t step = 1; step <= 2 * round.size(); ++step) {
        press("Tab");
        EXPECT_EQ(focused(), round[step % round.size()]);
    }
}

TEST_F(ScanList, NamesAndMnemonicsAreThereForEveryone) {
    open_list();
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
}

}  // namespace
}  // namespace tavernook
