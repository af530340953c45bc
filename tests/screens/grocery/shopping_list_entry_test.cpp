// What comes on the list: by the Quick Pick List, by a drop and by the scanner.
#include <QDropEvent>

#include "screens/grocery/shopping_list_fixture.h"

namespace tavernook {
namespace {

class ShoppingListEntry : public ShoppingListScreen {
  protected:
    // As when something that was dragged here is let go; false when the list refuses it.
    bool drop(const char* text) {
        QMimeData data;
        data.setText(text);
        const QPoint place = list().viewport()->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list().viewport(), &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list().viewport(), &move);
        if (!move.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(list().viewport(), &leave);
            return false;
        }
        QDropEvent let_go(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list().viewport(), &let_go);
        return true;
    }
    void focus_list() {
        list().setFocus();
        ASSERT_EQ(focused(), "shopping_list");
    }
};

// --- the Quick Pick List -----------------------------------------------------------------------

TEST_F(ShoppingListEntry, EveryLiveItemCanBePicked) {
    items[7].name = "Gone";
    open_list();
    EXPECT_EQ(column(picks()), (Texts{"Apples", "Milk", "Bread", "Salt"}));
    EXPECT_EQ(picks().model()->index(3, 0).data(Qt::UserRole), "9t");
}

TEST_F(ShoppingListEntry, ADoubleClickAddsOneMore) {
    open_list();
    double_click_row(picks(), 3);
    expect_on_list(salt, 1);
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread", "Salt"}));
    EXPECT_EQ(selected_names(list()), Texts{"Salt"});
    EXPECT_EQ(status(), "Salt: 1 on the list.");
    double_click_row(picks(), 0);
    expect_on_list(apples, 11);
    EXPECT_EQ(status(), "Apples: 11 on the list.");
}

TEST_F(ShoppingListEntry, EnterOnARowAddsOneMore) {
    open_list();
    click_row(picks(), 1);
    press("Return");
    press("Return");
    expect_on_list(milk, 4);
}

TEST_F(ShoppingListEntry, AfterBookingAnAdditionCountsOnFromTheOldQuantity) {
    open_list();
    part<QAction>("list_toolbar_5").trigger();
    double_click_row(picks(), 1);
    expect_on_list(milk, 3);
}

TEST_F(ShoppingListEntry, TypingAPartOfANameAndEnterAdds) {
    open_list();
    press("Ctrl+F");
    EXPECT_EQ(focused(), "find_box");
    type("AL");
    EXPECT_EQ(column(picks()), Texts{"Salt"});
    press("Return");
    expect_on_list(salt, 1);
    type("m");  // over what was found before
    EXPECT_EQ(column(picks()), Texts{"Milk"});
    press("Escape");
    EXPECT_EQ(column(picks()).size(), 4u);
}

TEST_F(ShoppingListEntry, DownInTheFindBoxMarksWhatEnterAdds) {
    open_list();
    press("Ctrl+F");
    type("a");  // Apples, Bread, Salt
    press("Down");
    press("Down");
    press("Down");
    press("Up");
    EXPECT_EQ(selected_names(picks()), Texts{"Bread"});
    press("Return");
    expect_on_list(bread, 2);
}

TEST_F(ShoppingListEntry, EnterInTheEmptyFindBoxAddsNothing) {
    open_list();
    press("Ctrl+F");
    press("Return");
    type("salt");
    press("Escape");
    press("Return");
    expect_off_list(salt, 0);
    expect_on_list(apples, 10);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(ShoppingListEntry, WhatNoNameHasIsSaidSo) {
    open_list();
    press("Ctrl+F");
    type("xyz");
    EXPECT_EQ(label("quick_pick_list_hint"), "No item has this in its name.");
    EXPECT_TRUE(part("quick_pick_list_hint").isVisible());
}

TEST_F(ShoppingListEntry, HoveringTellsOfTheItem) {
    items[salt].quantity = 0.25;
    items[salt].restock_quantity = 2;
    open_list();
    const QModelIndex row = picks().model()->index(3, 0);
    QTest::mouseMove(picks().viewport(), picks().visualRect(row).center());
    EXPECT_EQ(picks().toolTip(), "Item Title = Salt Current Qty = 0.25 Replace Qty = 2");
    QTest::mouseMove(picks().viewport(), QPoint(5, picks().viewport()->height() - 3));
    EXPECT_EQ(picks().toolTip(), "");
}

TEST_F(ShoppingListEntry, AnItemDeletedMeanwhileIsNotAdded) {
    open_list();
    click_row(picks(), 3);
    items[salt] = ItemRecord{};
    press("Return");
    expect_off_list(salt, 0);
    EXPECT_EQ(column(picks()), (Texts{"Apples", "Milk", "Bread"}));
}

// --- drops ---------------------------------------------------------------------------------------

TEST_F(ShoppingListEntry, ADraggedRowOffersItsItem) {
    open_list();
    const std::unique_ptr<QMimeData> data(
        picks().model()->mimeData({picks().model()->index(3, 0)}));
    EXPECT_EQ(data->text(), "i9");
    EXPECT_TRUE(picks().dragEnabled());
}

TEST_F(ShoppingListEntry, ADroppedItemIsAdded) {
    open_list();
    EXPECT_TRUE(drop("i9"));
    expect_on_list(salt, 1);
    EXPECT_EQ(names().back(), "Salt");
}

TEST_F(ShoppingListEntry, ADropOnTheEmptyListIsTaken) {
    open_list();
    part<QAction>("list_toolbar_5").trigger();
    EXPECT_TRUE(drop("i9"));
    EXPECT_EQ(names(), Texts{"Salt"});
}

// The item whose number is the recipe's own lends its quantity: item 2, ten apples.
TEST_F(ShoppingListEntry, ADroppedRecipePutsItsIngredientsOn) {
    meals[2].in_use = 1;
    meals[2].name = "Salad";
    meals[2].ingredient_item[1] = salt;
    meals[2].ingredient_item[50] = bread;
    open_list();
    EXPECT_TRUE(drop("m2"));
    expect_on_list(salt, 11);
    expect_on_list(bread, 11);
    EXPECT_EQ(status(), "What Salad takes is on the list.");
}

TEST_F(ShoppingListEntry, OtherTextsAreRefused) {
    open_list();
    for (const char* text : {"", "i", "i0", "i-3", "i7", "i10001", "i99999999999", "m1", "m1001",
                             "milk", "i9 and more", "x9"}) {
        EXPECT_FALSE(drop(text)) << text;
    }
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread"}));
    EXPECT_EQ(project_modified, 0);
}

// Its sound ingredients go on the list: one more than the item of the recipe's number, apples.
TEST_F(ShoppingListEntry, ADamagedIngredientOfARecipeIsPassedOver) {
    meals[2].in_use = 1;
    meals[2].ingredient_item[1] = salt;
    meals[2].ingredient_item[2] = 20000;
    open_list();
    EXPECT_TRUE(drop("m2"));
    expect_on_list(salt, 11);
}

// --- the scanner
// -----------------------------------------------------------------------------------

TEST_F(ShoppingListEntry, ACodeIsWaitedForFromTheStart) {
    open_list();
    EXPECT_EQ(focused(), "Text1");
    scan("4444");
    expect_on_list(salt, 1);
    EXPECT_EQ(status(), "Salt: 1 on the list.");
    EXPECT_EQ(entry().text(), "");
    scan("4444");
    expect_on_list(salt, 2);
}

TEST_F(ShoppingListEntry, AnUnknownCodeIsToldAndTheNextOneWorks) {
    open_list();
    scan("9999");
    EXPECT_EQ(status(), "No item has the barcode \"9999\". Nothing was added to the list.");
    EXPECT_EQ(project_modified, 0);
    scan("2222");
    expect_on_list(milk, 3);
}

TEST_F(ShoppingListEntry, TabEndsACodeAndLeavesAnEmptyBox) {
    open_list();
    type("4444");
    press("Tab");
    expect_on_list(salt, 1);
    EXPECT_EQ(focused(), "Text1");
    press("Tab");
    EXPECT_EQ(focused(), "columns_button");
}

TEST_F(ShoppingListEntry, AnEmptyLineAndTheWordForNoBarcodeFindNothing) {
    items[milk].barcode = no_barcode;
    open_list();
    press("Return");
    expect_on_list(milk, 2);
    scan("empty");
    expect_on_list(milk, 2);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(ShoppingListEntry, AFullStopInTheListGoesToTheCollectorAndTheFocusToTheBox) {
    open_list();
    choose_row(0);
    ASSERT_EQ(focused(), "shopping_list");
    press(".");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(part<QLineEdit>("Text2").text(), ".");
    EXPECT_FALSE(part("Text2").isVisible());
    EXPECT_EQ(entry().text(), "");
}

// "444" XOR 67 is "www", in groups of six bits 29 55 29 55: the letters D3D3.
TEST_F(ShoppingListEntry, ACueCatLineIsReadThoughTheListHasTheFocus) {
    scanner_type = 2;
    items[salt].barcode = "444";
    open_list();
    choose_row(0);
    type(".C3nX.cGf2.");
    scan("D3D3.");
    expect_on_list(salt, 1);
    EXPECT_EQ(part<QLineEdit>("Text2").text(), "");
}

TEST_F(ShoppingListEntry, ACueCatLineWithoutACodeIsToldAndTheNextOneWorks) {
    scanner_type = 2;
    items[salt].barcode = "444";
    open_list();
    scan(".C3nX.");
    EXPECT_EQ(status(), "No barcode could be read. Please scan again.");
    scan(".C3nX.cGf2.D3D3.");
    expect_on_list(salt, 1);
}

TEST_F(ShoppingListEntry, AFullStopWithoutACodeDoesNotSpoilTheNext) {
    open_list();
    choose_row(0);
    press(".");
    press("Tab");
    entry().setFocus();
    scan("4444");
    expect_on_list(salt, 1);
}

TEST_F(ShoppingListEntry, ADigitTypedInAListOrOnAButtonBeginsACode) {
    open_list();
    for (const char* place : {"shopping_list", "quick_pick_list", "close_button"}) {
        part(place).setFocus();
        scan("4444");
    }
    expect_on_list(salt, 3);
}

TEST_F(ShoppingListEntry, ACodeScannedIntoTheFindBoxCountsToo) {
    open_list();
    press("Ctrl+F");
    scan("4444");
    expect_on_list(salt, 1);
    EXPECT_EQ(find_box().text(), "");
}

TEST_F(ShoppingListEntry, ACodeInTheFindBoxCountsThoughANameHasItToo) {
    items[salt].barcode = "App";  // as in Apples
    open_list();
    press("Ctrl+F");
    scan("App");
    expect_on_list(salt, 1);
    expect_on_list(apples, 10);
}

// Every part that takes the focus; the find box takes codes when they are whole.
TEST_F(ShoppingListEntry, LettersOfACodeCountWhereverTheFocusIs) {
    items[salt].barcode = "AB-12";
    items[bread].barcode = "KLM";
    open_list();
    f64 expected = 0;
    for (QWidget* where : screen->findChildren<QWidget*>()) {
        const bool takes_focus = where->focusPolicy() != Qt::NoFocus && where->isVisible() &&
                                 where->isEnabled() && where->focusProxy() == nullptr;
        if (!takes_focus) continue;
        for (const std::string code : {"AB-12", "KLM"}) {
            where->setFocus();
            for (const char letter : code) QTest::keyClick(QApplication::focusWidget(), letter);
            press("Return");
        }
        ++expected;
        SCOPED_TRACE(where->objectName().toStdString());
        expect_on_list(salt, expected);
        expect_on_list(bread, expected + 1);
    }
    EXPECT_GE(expected, 7);
}

TEST_F(ShoppingListEntry, WhatWasBegunGoesWithAnotherCommand) {
    open_list();
    type("12");
    press("Alt+S");
    EXPECT_TRUE(comes_true([&] { return names().empty(); }));
    EXPECT_EQ(entry().text(), "");
    scan("4444");
    expect_on_list(salt, 1);
}

TEST_F(ShoppingListEntry, WithoutAScannerEnterAsksForTheCode) {
    scanner_type = 3;
    open_list();
    EXPECT_EQ(focused(), "find_box");
    entry().setFocus();
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", "4444");
    press("Return");
    expect_on_list(salt, 1);
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "22", std::nullopt);
    scan("22");
    expect_on_list(milk, 2);
    EXPECT_EQ(entry().text(), "22");  // a cancelled box throws nothing away
}

TEST_F(ShoppingListEntry, WithABatchScannerEnterDoesNothing) {
    scanner_type = 1;
    open_list();
    entry().setFocus();
    scan("4444");
    expect_off_list(salt, 0);
    EXPECT_EQ(entry().text(), "4444");
}

// --- the keyboard alone --------------------------------------------------------------------------

TEST_F(ShoppingListEntry, EverythingIsReachedByTabInARound) {
    const Texts round{"Text1",
                      "columns_button",
                      "shopping_list",
                      "find_box",
                      "quick_pick_list",
                      "close_button",
                      "list_toolbar_1_button",
                      "list_toolbar_2_button",
                      "list_toolbar_3_button",
                      "list_toolbar_4_button",
                      "list_toolbar_5_button"};
    for (const i16 scanner : {0, 3}) {
        scanner_type = scanner;
        open_list();
        entry().setFocus();
        for (std::size_t step = 1; step <= 2 * round.size(); ++step) {
            press("Tab");
            EXPECT_EQ(focused(), round[step % round.size()]) << scanner;
        }
    }
}

TEST_F(ShoppingListEntry, AWholeShoppingRoundGoesByKeys) {
    open_list();
    press("Ctrl+F");
    type("salt");
    press("Return");
    press("Alt+G");
    EXPECT_EQ(focused(), "shopping_list");
    platform.boxes.expect_input("Current Quantity = 0\nEnter new quantity:", "Change Quantity", "1",
                                "2");
    press("F2");
    expect_on_list(salt, 2);
    press("Home");
    press("Delete");
    expect_off_list(apples, 0);
    press("Alt+S");
    EXPECT_TRUE(comes_true([&] { return names().empty(); }));
    EXPECT_EQ(lot_total(salt), 2);
    EXPECT_EQ(lot_total(apples), 0);
    press_letter("Alt+C");
    EXPECT_FALSE(is_open("ShoppingList"));
}

TEST_F(ShoppingListEntry, NamesAndMnemonicsAreThereForEveryone) {
    open_list();
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
}

}  // namespace
}  // namespace tavernook
