// Columns, sort and the user's place in the list, and lists that are long or damaged.
#include <QScrollBar>

#include "core/changes.h"
#include "screens/grocery/shopping_list_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {
namespace {

class ShoppingListOrder : public ShoppingListScreen {
  protected:
    void close_list() {
        screen->parentWidget()->close();
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void fill_all_items() {
        for (i16 item = 1; item <= item_capacity; ++item) {
            const std::string name = "Food " + std::to_string(item * 7919 % 10007);
            put_food(item, name.c_str(), static_cast<i16>(1 + item % 2),
                     static_cast<i16>(item % 21), 1, "empty");
            want(item, 1);
        }
    }
};

TEST_F(ShoppingListOrder, AClickOnAHeaderSortsItsTexts) {
    open_list();
    click_header(0);
    EXPECT_EQ(names(), (Texts{"Apples", "Bread", "Milk"}));
    EXPECT_EQ(sort_mark(), 0);
    click_header(0);
    EXPECT_EQ(names(), (Texts{"Milk", "Bread", "Apples"}));
    click_header(4);  // as texts: "1.00" before "10.00" before "2.00"
    EXPECT_EQ(column(list(), 4), (Texts{"1.00", "10.00", "2.00"}));
}

TEST_F(ShoppingListOrder, ByStoreOrderAndThenByStoreTheListIsAWalkThroughTheStores) {
    want(salt, 1);
    open_list();
    click_header(3);
    EXPECT_EQ(column(list(), 3), (Texts{"03", "05", "07", "12"}));
    click_header(2);
    EXPECT_EQ(names(), (Texts{"Bread", "Milk", "Salt", "Apples"}));
    items[milk].store_order = 6;
    shopping_list()->populate_list();
    EXPECT_EQ(names(), (Texts{"Bread", "Salt", "Milk", "Apples"}));
}

TEST_F(ShoppingListOrder, ByStoreAndThenByStoreOrderEqualOrdersStandByStore) {
    items[milk].store_order = 12;
    open_list();
    click_header(2);
    click_header(3);
    EXPECT_EQ(names(), (Texts{"Apples", "Bread", "Milk"}));  // 07; 12 at the Baker, at the Market
}

TEST_F(ShoppingListOrder, AThirdClickBringsBackTheOrderByNumber) {
    open_list();
    for (int i = 0; i < 3; ++i) click_header(0);
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread"}));
    EXPECT_EQ(sort_mark(), -1);
}

TEST_F(ShoppingListOrder, TheSortsComeBackWithTheScreen) {
    want(salt, 1);
    open_list();
    click_header(3);
    click_header(2);
    close_list();
    open_list();
    EXPECT_EQ(names(), (Texts{"Bread", "Milk", "Salt", "Apples"}));
    EXPECT_EQ(sort_mark(), 2);
}

TEST_F(ShoppingListOrder, ADamagedMemoryOfSortsIsPassedOver) {
    platform.settings.set("Screens", "ShoppingList.Sort", "x,-3,99,,0-");
    open_list();
    EXPECT_EQ(names(), (Texts{"Milk", "Bread", "Apples"}));
}

TEST_F(ShoppingListOrder, TheViewMenuSwitchesColumns) {
    open_list();
    Texts captions;
    for (const QAction* one : part<QMenu>("viewmenu").actions()) {
        captions.push_back(plain(one->text()));
        EXPECT_TRUE(one->isChecked());
    }
    EXPECT_EQ(captions, (Texts{"Catagory", "Store", "Store Order", "Quantity", "Cost/Unit", "Units",
                               "Sub Total"}));
    items[milk].name = "Oat milk";  // comes with the refresh
    press_letter("Alt+N");
    ASSERT_EQ(QApplication::activePopupWidget(), &part<QMenu>("viewmenu"));
    press("S");
    EXPECT_TRUE(list().isColumnHidden(2));
    EXPECT_FALSE(part<QAction>("view_store").isChecked());
    EXPECT_FALSE(list().isColumnHidden(3));
    EXPECT_EQ(names()[1], "Oat milk");
    part<QAction>("view_store").trigger();
    EXPECT_FALSE(list().isColumnHidden(2));
}

TEST_F(ShoppingListOrder, TheChosenColumnsComeBackWithTheScreen) {
    open_list();
    part<QAction>("view_cat").trigger();
    part<QAction>("view_sub").trigger();
    close_list();
    open_list();
    EXPECT_TRUE(list().isColumnHidden(1));
    EXPECT_TRUE(list().isColumnHidden(7));
    EXPECT_FALSE(part<QAction>("view_cat").isChecked());
    EXPECT_TRUE(part<QAction>("view_qty").isChecked());
}

TEST_F(ShoppingListOrder, AClickOnTheHeaderWithTheRightButtonOffersTheColumns) {
    open_list();
    QHeaderView* header = list().header();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            header->viewport()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(header->viewport(), &event);
    EXPECT_EQ(QApplication::activePopupWidget(), &part<QMenu>("viewmenu"));
    press("Escape");
}

TEST_F(ShoppingListOrder, SelectionSurvivesARefresh) {
    open_list();
    click_header(0);
    choose_row(0);
    click_row(list(), 2, Qt::ControlModifier);
    want(salt, 1);
    shopping_list()->populate_list();
    EXPECT_EQ(names(), (Texts{"Apples", "Bread", "Milk", "Salt"}));
    EXPECT_EQ(selected_names(list()), (Texts{"Apples", "Milk"}));
    EXPECT_EQ(list().currentIndex().data(), "Milk");
    EXPECT_EQ(selected_list_item, milk);
}

TEST_F(ShoppingListOrder, AnItemDeletedWhileItsRowIsSelectedIsLetGo) {
    open_list();
    choose_row(1);
    items[milk] = ItemRecord{};
    list().viewport()->repaint();
    press("Return");
    press("F2");
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
    EXPECT_EQ(selected_list_item, 0);
    press("Delete");
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
}

TEST_F(ShoppingListOrder, ComingBackToTheScreenBringsItUpToDate) {
    open_list();
    click_row(picks(), 0);
    open("FoodInventory");
    items[salt].name = "Sea salt";
    want(salt, 3);
    items[bread] = ItemRecord{};
    end_of_step();
    open_list();
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Sea salt"}));
    EXPECT_EQ(column(picks()), (Texts{"Apples", "Milk", "Sea salt"}));
}

TEST_F(ShoppingListOrder, WhatOthersChangeIsFollowedAtTheEndOfTheirStep) {
    open_list();
    end_of_step();
    choose_row(2);
    stores[1].name = "Corner";
    items[milk].shopping_quantity = 4;
    sales_tax = 0;
    end_of_step();
    EXPECT_EQ(column(list(), 2), (Texts{"Corner", "Corner", "Baker"}));
    EXPECT_EQ(column(list(), 4), (Texts{"10.00", "4.00", "1.00"}));
    EXPECT_EQ(label("total_label"), "$12.50");  // 2.50 + 6.00 + 4.00
    EXPECT_EQ(selected_names(list()), Texts{"Bread"});
}

TEST_F(ShoppingListOrder, WhatWasBegunInTheFindBoxStaysWhenItemsChange) {
    open_list();
    find_box().setText("sal");
    put_food(4, "Salsa", 1, 1, 1, "5555");
    end_of_step();
    EXPECT_EQ(find_box().text(), "sal");
    EXPECT_EQ(column(picks()), (Texts{"Salsa", "Salt"}));
}

TEST_F(ShoppingListOrder, AnotherItemInTheSlotOfADeletedOneIsNotTakenForIt) {
    open_list();
    end_of_step();
    choose_row(1);
    items[milk] = ItemRecord{};
    items[milk].quantity = 0;
    look_for_changes();
    put_food(milk, "Cream", 1, 1, 1, "6666");
    want(milk, 1);
    press("F2");  // no question
    EXPECT_EQ(status(), "This item is not there any more.");
    EXPECT_EQ(names(), (Texts{"Apples", "Cream", "Bread"}));
}

TEST_F(ShoppingListOrder, TheAuditByCommandBringsItUpToDate) {
    items[milk].stock_quantity = 8;
    items[milk].restock_quantity = 1;
    open_list();
    action("toolbar_2_6").trigger();
    EXPECT_EQ(names(), Texts{"Milk"});  // what was added by hand goes off
    expect_on_list(milk, 8);
}

TEST_F(ShoppingListOrder, NumbersOutsideTheirTablesShowNothingAndBreakNothing) {
    items[milk].store = 2000;
    items[milk].category = -4;
    items[milk].qty_units = 32767;
    items[milk].cost = std::numeric_limits<f64>::infinity();
    items[bread].shopping_quantity = std::numeric_limits<f64>::quiet_NaN();
    open_list();
    EXPECT_EQ(column(list(), 1), (Texts{"General", "", "General"}));
    EXPECT_EQ(column(list(), 2), (Texts{"Market", "", "Baker"}));
    EXPECT_EQ(column(list(), 6), (Texts{"each", "", "each"}));
    for (int number = 0; number < 8; ++number) click_header(number);
    list().viewport()->repaint();
    EXPECT_EQ(list().model()->rowCount(), 3);
}

TEST_F(ShoppingListOrder, TenThousandRowsKeepTheirPlace) {
    fill_all_items();
    open_list();
    ASSERT_EQ(list().model()->rowCount(), 10000);
    click_header(3);
    click_header(2);
    list().setCurrentIndex(list().model()->index(5000, 0));
    list().scrollTo(list().model()->index(5000, 0));
    const int scrolled = list().verticalScrollBar()->value();
    shopping_list()->populate_list();
    items[7].on_shopping_list = 0;
    shopping_list()->populate_list();
    EXPECT_EQ(list().model()->rowCount(), 9999);
    EXPECT_EQ(list().verticalScrollBar()->value(), scrolled);
    find_box().setText("food 99");
    click_header(0);
    shopping_list()->populate_list();
    EXPECT_EQ(names().front(), "Food 1");
}

}  // namespace
}  // namespace tavernook
