// What the shopping list's screen shows, and its commands.
#include <QToolBar>
#include <cmath>

#include "screens/grocery/shopping_list_fixture.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/parts/house_colours.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/list_font.h"

namespace tavernook {
namespace {

TEST_F(ShoppingListScreen, IsCalledGroceryListAndOpensFromTheMenuAndTheToolbar) {
    choose("Alt+P", "Project_ShoppingList");
    EXPECT_TRUE(is_open("ShoppingList"));
    open_list();
    EXPECT_EQ(screen->windowTitle(), "Grocery List");
    screen->parentWidget()->close();
    settle();
    EXPECT_FALSE(is_open("ShoppingList"));
    action("toolbar_2_3").trigger();
    EXPECT_TRUE(is_open("ShoppingList"));
}

TEST_F(ShoppingListScreen, AnswersForItsPortWhileItIsLoaded) {
    EXPECT_EQ(shopping_list(), nullptr);
    open_list();
    EXPECT_EQ(shopping_list(), dynamic_cast<ports::ShoppingList*>(screen));
    screen->parentWidget()->close();
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(shopping_list(), nullptr);
}

TEST_F(ShoppingListScreen, ShowsWhatIsOnTheListByNumberWithAllColumns) {
    open_list();
    Texts titles;
    for (int i = 0; i < list().model()->columnCount(); ++i) {
        titles.push_back(list().model()->headerData(i, Qt::Horizontal).toString().toStdString());
    }
    EXPECT_EQ(titles, (Texts{"Item", "Category", "Store", "SO", "Quantity", "Cost/Unit", "Units",
                             "Sub Total"}));
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread"}));
    EXPECT_EQ(column(list(), 2), (Texts{"Market", "Market", "Baker"}));
    EXPECT_EQ(column(list(), 3), (Texts{"07", "03", "12"}));
    EXPECT_EQ(column(list(), 4), (Texts{"10.00", "2.00", "1.00"}));
    EXPECT_EQ(column(list(), 5), (Texts{"$0.25", "$1.50", "$4.00"}));
    EXPECT_EQ(column(list(), 7), (Texts{"$2.50", "$3.00", "$4.00"}));
    EXPECT_EQ(list().model()->index(2, 0).data(Qt::UserRole), "5t");
    const auto alignment = [this](int column) {
        return list().model()->index(0, column).data(Qt::TextAlignmentRole).toInt();
    };
    for (const int amount : {3, 4, 5, 7}) EXPECT_TRUE(alignment(amount) & Qt::AlignRight);
    for (const int text : {0, 1, 2, 6}) EXPECT_TRUE(alignment(text) & Qt::AlignLeft);
}

TEST_F(ShoppingListScreen, TellsWhatIsLowOrPastItsDateByIconColourAndWord) {
    items[apples].stock_quantity = 5;
    items[milk].storage_time = 7;
    lots[milk].lot_quantity[0] = 1;
    lots[milk].expiration_date[0] = 45420;
    open_list();
    const auto amount = [this](int row, int role) {
        return list().model()->index(row, 4).data(role);
    };
    EXPECT_EQ(amount(0, Qt::AccessibleDescriptionRole), "Low");
    EXPECT_EQ(amount(0, Qt::ToolTipRole), "Low");
    EXPECT_EQ(amount(0, Qt::ForegroundRole).value<QColor>(),
              house_colour(HouseColour::low, list().palette()));
    EXPECT_EQ(amount(1, Qt::AccessibleDescriptionRole), "Expired");
    EXPECT_EQ(amount(1, Qt::ForegroundRole).value<QColor>(),
              house_colour(HouseColour::past_date, list().palette()));
    for (const int row : {0, 1}) {
        EXPECT_FALSE(amount(row, Qt::DecorationRole).value<QIcon>().isNull());
    }
    EXPECT_EQ(amount(2, Qt::AccessibleDescriptionRole), "");
    EXPECT_FALSE(amount(2, Qt::DecorationRole).isValid());
    EXPECT_FALSE(amount(2, Qt::ForegroundRole).isValid());
    EXPECT_EQ(amount(1, RowsModel::sign_words_role), "Expired");
}

TEST_F(ShoppingListScreen, TheQuickPickListTellsIt) {
    items[apples].stock_quantity = 5;
    open_list();
    auto& list = part<QTreeView>("quick_pick_list");
    const auto cell_of = [&list](const char* name, int role) {
        const auto found = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, name, 1);
        return found.isEmpty() ? QVariant("no such row") : found.first().data(role);
    };
    EXPECT_EQ(cell_of("Apples", Qt::AccessibleDescriptionRole), "Low");
    EXPECT_EQ(cell_of("Apples", RowsModel::sign_words_role), "Low");
    EXPECT_FALSE(cell_of("Apples", Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(cell_of("Milk", RowsModel::sign_words_role), "");
    EXPECT_FALSE(cell_of("Milk", Qt::DecorationRole).isValid());
    items[milk].storage_time = 7;
    lots[milk].lot_quantity[0] = 1;
    lots[milk].expiration_date[0] = 45420;
    end_of_step();
    EXPECT_EQ(cell_of("Milk", RowsModel::sign_words_role), "Expired");
}

// 2.50 + 3.00 + 4.00 = 9.50; with 7.5 % on top 10.2125.
TEST_F(ShoppingListScreen, TheTotalHasTheTaxInItAndIsTheBiggest) {
    open_list();
    EXPECT_EQ(label("total_label"), "$10.21");
    EXPECT_EQ(label("tax_label"), "7.50%");
    EXPECT_EQ(label("count_label"), "3 items");
    EXPECT_GT(part("total_label").font().pointSizeF(), part("tax_label").font().pointSizeF());
    EXPECT_TRUE(part("total_label").font().bold());
}

TEST_F(ShoppingListScreen, AnEmptyListSaysSoInOneLine) {
    for (const i16 item : {apples, milk, bread}) items[item].on_shopping_list = 0;
    open_list();
    auto& hint = part<QLabel>("shopping_list_hint");
    EXPECT_TRUE(hint.isVisible());
    EXPECT_TRUE(hint.text().startsWith("Nothing to buy."));
    EXPECT_EQ(label("total_label"), "$.00");
    EXPECT_EQ(label("count_label"), "0 items");
}

TEST_F(ShoppingListScreen, WithoutAnyItemThePickListSaysWhatToDoFirst) {
    for (const i16 item : {apples, milk, bread, salt}) items[item] = ItemRecord{};
    open_list();
    EXPECT_TRUE(part<QLabel>("quick_pick_list_hint").isVisible());
    EXPECT_TRUE(label("quick_pick_list_hint").starts_with("No items yet."));
}

TEST_F(ShoppingListScreen, DeleteTakesTheSelectedRowOffAndMarksTheNext) {
    open_list();
    choose_row(1);
    press("Delete");
    expect_off_list(milk, 0);
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
    EXPECT_EQ(selected_names(list()), Texts{"Bread"});
    EXPECT_EQ(selected_list_item, bread);
    EXPECT_EQ(status(), "Milk is off the list.");
    EXPECT_EQ(project_modified, -1);
}

TEST_F(ShoppingListScreen, SeveralRowsAreRemovedAtOnce) {
    open_list();
    choose_row(0);
    click_row(list(), 2, Qt::ControlModifier);
    press("Delete");
    EXPECT_EQ(names(), Texts{"Milk"});
    EXPECT_EQ(status(), "2 items are off the list.");
}

TEST_F(ShoppingListScreen, TheLastRowRemovedLeavesNothingSelected) {
    open_list();
    choose_row(0);
    press("Ctrl+A");
    press("Delete");
    EXPECT_EQ(names(), Texts{});
    EXPECT_EQ(selected_list_item, 0);
    press("Delete");  // nothing to remove, nothing happens
    press("F2");
}

TEST_F(ShoppingListScreen, F2ChangesTheQuantity) {
    items[milk].quantity = 0.5;
    open_list();
    choose_row(1);
    platform.boxes.expect_input("Current Quantity = 0.5\nEnter new quantity:", "Change Quantity",
                                "2", "3.5");
    press("F2");
    EXPECT_EQ(items[milk].shopping_quantity, 3.5);
    EXPECT_EQ(column(list(), 4), (Texts{"10.00", "3.50", "1.00"}));
    // 2.50 + 5.25 + 4.00 = 11.75; with tax 12.63125.
    EXPECT_EQ(label("total_label"), "$12.63");
    EXPECT_EQ(selected_names(list()), Texts{"Milk"});
}

TEST_F(ShoppingListScreen, AQuantityThatIsNoNumberTakesTheRowFromSight) {
    open_list();
    choose_row(1);
    platform.boxes.expect_input("Current Quantity = 0\nEnter new quantity:", "Change Quantity", "2",
                                "a few");
    press("F2");
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
    EXPECT_EQ(items[milk].on_shopping_list, -1);
    EXPECT_EQ(selected_list_item, 0);
}

TEST_F(ShoppingListScreen, ThePopupHasItsFourCommands) {
    open_list();
    Texts captions;
    for (const QAction* one : part<QMenu>("popmenu2").actions()) {
        captions.push_back(plain(one->text()));
    }
    EXPECT_EQ(captions,
              (Texts{"Add Item", "Remove Item", "Adjust Quantity", "Adjust Store Order"}));
    list().setFocus();
    press("Shift+F10");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);  // no row is selected
    choose_row(1);
    press("Shift+F10");
    ASSERT_EQ(QApplication::activePopupWidget(), &part<QMenu>("popmenu2"));
    press("R");
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
}

TEST_F(ShoppingListScreen, TheStoreOrderIsTheItemsOwn) {
    open_list();
    choose_row(0);
    press("Shift+F10");
    platform.boxes.expect_input(
        "Current store order = 7\nEnter new store order:", "Change Store Order", "7", "11");
    press("S");
    EXPECT_EQ(items[apples].store_order, 11);
    EXPECT_EQ(column(list(), 3), (Texts{"11", "03", "12"}));
}

TEST_F(ShoppingListScreen, AStoreOrderBeyondItsRangeTellsOfAnError) {
    open_list();
    choose_row(0);
    press("Shift+F10");
    platform.boxes.expect_input(
        "Current store order = 7\nEnter new store order:", "Change Store Order", "7", "99999");
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    press("S");
    EXPECT_EQ(items[apples].store_order, 7);
}

TEST_F(ShoppingListScreen, AddItemOpensTheInventoryThatHandsItsItemsHere) {
    open_list();
    QTest::mouseClick(&part("list_toolbar_1_button"), Qt::LeftButton);
    ASSERT_TRUE(is_open("FoodInventory"));
    EXPECT_EQ(window.registry().loaded("FoodInventory")->parentWidget()->isVisible(), true);
    auto* inventory = window.registry().loaded("FoodInventory");
    items[salt].shopping_quantity = 1;
    food_inventory()->view_item(salt, i16_true);
    auto* add = inventory->findChild<QAbstractButton*>("add_item");
    EXPECT_TRUE(add->isVisible());
    EXPECT_FALSE(inventory->findChild<QWidget*>("quantity_to_add")->isVisible());
    EXPECT_FALSE(inventory->findChild<QWidget*>("quantity_to_add_label")->isVisible());
    add->click();
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread", "Salt"}));
    EXPECT_EQ(status(), "Salt: 1 on the list.");
}

TEST_F(ShoppingListScreen, AnItemWithoutAQuantityIsMarkedAndToldOf) {
    open_list();
    click("list_toolbar_1_button");
    auto* inventory = window.registry().loaded("FoodInventory");
    food_inventory()->view_item(salt, i16_true);
    inventory->findChild<QAbstractButton*>("add_item")->click();
    expect_on_list(salt, 0);
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread"}));
    EXPECT_EQ(status(),
              "Salt is marked for the shopping list; it shows there once it has a quantity.");
}

TEST_F(ShoppingListScreen, ADoubleClickAndEnterShowTheItem) {
    open_list();
    double_click_row(list(), 2);
    ASSERT_NE(food_inventory(), nullptr);
    EXPECT_EQ(food_inventory()->getindex(), bread);
    open_list();
    choose_row(0);
    press("Return");
    EXPECT_EQ(food_inventory()->getindex(), apples);
}

TEST_F(ShoppingListScreen, OneClickPutsTheListInStock) {
    open_list();
    EXPECT_EQ(plain(part<QAction>("list_toolbar_5").text()), "Put in Stock");
    QTest::mouseClick(&part("list_toolbar_5_button"), Qt::LeftButton);
    EXPECT_EQ(names(), Texts{});
    expect_off_list(apples, 10);  // the quantity stays for the next time
    EXPECT_EQ(lot_total(apples), 10);
    EXPECT_EQ(lot_total(bread), 1);
    EXPECT_EQ(lot_total(salt), 0);
    EXPECT_EQ(items[milk].last_restock_date, 45427);  // 15 May 2024
    EXPECT_EQ(label("total_label"), "$.00");
    EXPECT_EQ(status(), "3 items were put in stock: Apples, Milk and Bread.");
    EXPECT_EQ(focused(), "Text1");
    part<QAction>("list_toolbar_5").trigger();
    EXPECT_EQ(status(), "Nothing was on the list.");
}

TEST_F(ShoppingListScreen, PuttingInStockTellsWhatFoundNoLotAndWhatFailed) {
    for (f64& quantity : lots[milk].lot_quantity) quantity = 1;
    items[bread].shopping_quantity = std::nan("");
    want(salt, 1);
    open_list();
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    part<QAction>("list_toolbar_5").trigger();
    EXPECT_EQ(
        status(),
        "Failed, still on the list: Bread. No empty lot, off the list: Milk. 2 items were put "
        "in stock: Apples and Salt.");
    EXPECT_EQ(names(), Texts{"Bread"});
    EXPECT_EQ(lot_total(milk), 16);
    EXPECT_EQ(items[milk].on_shopping_list, 0);
}

TEST_F(ShoppingListScreen, PuttingInStockTellsWhenNothingWasPlaced) {
    for (const i16 item : {apples, milk, bread}) {
        for (f64& quantity : lots[item].lot_quantity) quantity = 1;
    }
    open_list();
    part<QAction>("list_toolbar_5").trigger();
    EXPECT_EQ(status(),
              "No empty lot, off the list: Apples, Milk and Bread. Nothing was put in stock.");
}

TEST_F(ShoppingListScreen, OfManyTheFirstNamesAreTold) {
    want(salt, 1);
    put_food(20, "Tea", 1, 1, 1, "5555");
    want(20, 1);
    open_list();
    part<QAction>("list_toolbar_5").trigger();
    EXPECT_EQ(status(), "5 items were put in stock: Apples, Milk, Bread and 2 more.");
}

TEST_F(ShoppingListScreen, TheTotalFollowsACostThatIsChangedOnTheItemsForm) {
    open_list();
    EXPECT_EQ(label("total_label"), "$10.21");
    double_click_row(list(), 1);
    QWidget* form = window.registry().loaded("FoodInventory");
    form->findChild<QLineEdit*>("cost")->setText("2.50");
    form->findChild<QLineEdit*>("cost")->setModified(true);
    form->findChild<QAction*>("item_toolbar_2_1")->trigger();
    EXPECT_EQ(items[milk].cost, 2.5);
    // 2.50 + 5.00 + 4.00 = 11.50; with tax 12.3625.
    EXPECT_EQ(label("total_label"), "$12.36");
}

TEST_F(ShoppingListScreen, AnItemThatGoesWhileItsBoxIsOpenIsNotWritten) {
    open_list();
    choose_row(1);
    platform.boxes
        .expect_input("Current Quantity = 0\nEnter new quantity:", "Change Quantity", "2", "5")
        .during([] {
            items[milk] = ItemRecord{};
            end_of_step();
        });
    press("F2");
    EXPECT_EQ(items[milk], ItemRecord{});
    EXPECT_EQ(status(), "This item is not there any more.");
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
}

TEST_F(ShoppingListScreen, PutInStockIsTheBiggestButton) {
    open_list();
    const QWidget& stock = part("list_toolbar_5_button");
    for (const char* other : {"list_toolbar_1_button", "list_toolbar_2_button"}) {
        EXPECT_GT(stock.width(), part(other).width());
        EXPECT_GT(stock.font().pointSizeF(), part(other).font().pointSizeF());
    }
}

TEST_F(ShoppingListScreen, TheToolbarStandsInItsOrder) {
    open_list();
    Texts captions;
    for (const QAction* one : part<QToolBar>("list_toolbar").actions()) {
        captions.push_back(plain(one->text()));
    }
    EXPECT_EQ(captions, (Texts{"Add Items", "Print", "Save List", "Load List", "Put in Stock"}));
}

TEST_F(ShoppingListScreen, BothListsFollowTheFontSizeOfTheProject) {
    font_size = 17;
    open_list();
    EXPECT_EQ(list().font().pointSize(), 17);
    EXPECT_EQ(picks().font().pointSize(), 17);
    apply_font_size(9);
    EXPECT_EQ(list().font().pointSize(), 9);
    EXPECT_EQ(picks().font().pointSize(), 9);
    font_size = 0;
}

TEST_F(ShoppingListScreen, AnItemAcceptedOnItsFormComesOnTheListWhenItIsLow) {
    items[salt].stock_quantity = 4;
    items[salt].restock_quantity = 1;
    open_list();
    double_click_row(list(), 0);
    food_inventory()->view_item(salt, i16_true);
    food_inventory()->accept_item(false);
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread", "Salt"}));
    expect_on_list(salt, 4);
}

TEST_F(ShoppingListScreen, FindingTakesNoNoticeOfCapitalsAndAccents) {
    put_food(4,
             "Cr\xE8me fra\xEE"
             "che",
             1, 1, 1, "5555");
    open_list();
    const int all = picks().model()->rowCount();
    find_box().setText("CREME fraiche");
    ASSERT_EQ(picks().model()->rowCount(), 1);
    EXPECT_EQ(picks().model()->index(0, 0).data().toString(), QString::fromUtf8("Crème fraîche"));
    find_box().clear();
    EXPECT_EQ(picks().model()->rowCount(), all);
}

TEST_F(ShoppingListScreen, CloseLeavesTheScreen) {
    open_list();
    click("close_button");
    settle();
    EXPECT_FALSE(is_open("ShoppingList"));
}

TEST_F(ShoppingListScreen, EscapeGoesBackStepByStep) {
    open_list();
    press("Ctrl+F");
    type("x");
    entry().setFocus();
    type("12");
    press("Escape");
    EXPECT_EQ(entry().text(), "");
    EXPECT_EQ(find_box().text(), "x");
    press("Escape");
    EXPECT_EQ(find_box().text(), "");
    EXPECT_TRUE(is_open("ShoppingList"));
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("ShoppingList"));
}

}  // namespace
}  // namespace tavernook
