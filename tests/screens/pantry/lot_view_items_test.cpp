// The lots of an item on their screen: other items, odd records, and what changes meanwhile.
#include <QLineEdit>
#include <limits>

#include "screens/pantry/lot_view_fixture.h"

namespace tavernook {
namespace {

TEST_F(LotViewScreen, TurnsToAnotherItem) {
    items[4].in_use = 1;
    items[4].name = "Bread [*]";
    init_lot_record(4);
    open_lots();
    const QWidget* first = screen;
    open_lots(4);
    EXPECT_EQ(screen, first);
    EXPECT_EQ(view().index(), 4);
    EXPECT_EQ(screen->windowTitle(), "Lot View - Bread [*][*]");  // shown with one sign
    EXPECT_EQ(selected(), 0);
}

TEST_F(LotViewScreen, ADateThatNoCalendarHasIsShownAsNone) {
    lots[3].creation_date[9] = std::numeric_limits<f64>::infinity();
    lots[3].expiration_date[8] = 1e300;
    open_lots();
    EXPECT_EQ(list().model()->rowCount(), 16);
    EXPECT_EQ(column(list(), 1)[9], "");
    EXPECT_EQ(column(list(), 3)[8], "");
}

TEST_F(LotViewScreen, ADateThatNoCalendarHasMixesNoTwoItems) {
    items[4].in_use = 1;
    items[4].name = "Bread";
    init_lot_record(4);
    lots[4].lot_quantity[1] = 7;
    lots[4].creation_date[1] = std::numeric_limits<f64>::quiet_NaN();
    lots[4].expiration_date[3] = -1e300;
    lots[4].lot_name[2] = "Freezer";
    open_lots();
    open_lots(4);
    EXPECT_EQ(screen->windowTitle(), "Lot View - Bread");
    ASSERT_EQ(list().model()->rowCount(), 16);
    for (int row = 0; row < 16; ++row) {
        EXPECT_EQ(column(list(), 2)[row], row == 1 ? "7" : "0") << row;
        EXPECT_TRUE(column(list(), 1)[row] == "-" || row == 1) << row;
        EXPECT_TRUE(column(list(), 3)[row] == "-" || row == 3) << row;
        EXPECT_EQ(column(list(), 4)[row], row == 0 ? "Current lot" : "") << row;
    }
    EXPECT_EQ(column(list())[2], "Freezer");
}

TEST_F(LotViewScreen, WhatDoesNotExpireIsNowhereExpired) {
    items[3].storage_time = 0;
    open_lots();
    EXPECT_EQ(column(list(), 4)[0], "");
    EXPECT_TRUE(list().model()->index(0, 4).data(Qt::DecorationRole).value<QIcon>().isNull());
    items[3].storage_time = 1;
    end_of_step();
    EXPECT_EQ(column(list(), 4)[0], "Expired");
    lots[3].lot_quantity[0] = -1;  // no stock
    end_of_step();
    EXPECT_EQ(column(list(), 4)[0], "");
}

TEST_F(LotViewScreen, AnItemThatHasGoneIsLeftAlone) {
    open_lots();
    items[3].in_use = 0;
    clear_lot_record(3);
    click("current_button");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(lots[3].active, i16_false);
    EXPECT_EQ(lots[3].creation_date[2], 0);
}

TEST_F(LotViewScreen, StockThatMovedMeanwhileIsShown) {
    open_lots();
    add_to_lots(3, 12);
    end_of_step();
    EXPECT_EQ(part<QLabel>("total_label").text(), "In stock: 18.5 quart(s), in 3 lots");
    EXPECT_EQ(column(list(), 2)[3], "12 quart(s)");
    EXPECT_EQ(selected(), 2);
}

TEST_F(LotViewScreen, StockThatMovedWhileItWasOutOfSightIsShownWhenItComesBack) {
    open_lots();
    screen->parentWidget()->hide();
    add_to_lots(3, 12);
    end_of_step();
    show_screen("LotView");
    EXPECT_EQ(part<QLabel>("total_label").text(), "In stock: 18.5 quart(s), in 3 lots");
}

// --- the item that it shows ------------------------------------------------------------------

class LotViewOfAChangingItem : public LotViewScreen {
  protected:
    void delete_milk() {
        items[3] = ItemRecord{};
        clear_lot_record(3);
    }
    void put_cream_in_its_place() {
        items[3].in_use = 1;
        items[3].name = "Cream";
        items[3].quantity = 1;
        init_lot_record(3);
        fill(0, 1, 45426, 45440);
    }
    void expect_gone() {
        EXPECT_EQ(view().index(), 0);
        EXPECT_EQ(list().model()->rowCount(), 0);
        EXPECT_EQ(part<QLabel>("total_label").text(), "This item has been deleted.");
        EXPECT_EQ(screen->windowTitle(), "Lot View - ");
        EXPECT_FALSE(part("quantity_button").isEnabled());
    }
};

TEST_F(LotViewOfAChangingItem, ItIsRenamedWithIt) {
    open_lots();
    items[3].name = "Whole milk";
    units[2].name = "Quart";
    end_of_step();
    EXPECT_EQ(screen->parentWidget()->windowTitle(), "Lot View - Whole milk");
    EXPECT_EQ(column(list(), 2)[2], "4 Quart");
}

TEST_F(LotViewOfAChangingItem, ItIsRenamedOnTheItemScreen) {
    open_lots();
    show_screen("FoodInventory");
    food_inventory()->view_item(3, 0);
    QWidget& items_screen = *window.registry().loaded("FoodInventory");
    items_screen.findChild<QLineEdit*>("item_name")->setText("Skimmed milk");
    items_screen.findChild<QAction*>("item_toolbar_2_1")->trigger();
    EXPECT_EQ(screen->windowTitle(), "Lot View - Skimmed milk");
    EXPECT_EQ(screen->parentWidget()->windowTitle(), "Lot View - Skimmed milk");
}

TEST_F(LotViewOfAChangingItem, ItGoesWhenItsItemIsDeletedOnTheItemScreen) {
    open_lots();
    show_screen("FoodInventory");
    food_inventory()->view_item(3, 0);
    food_inventory()->delete_food_item();
    end_of_step();
    expect_gone();
}

TEST_F(LotViewOfAChangingItem, ItGoesWithIt) {
    open_lots();
    delete_milk();
    end_of_step();
    expect_gone();
}

TEST_F(LotViewOfAChangingItem, AnotherItemInTheSameSlotIsNotShown) {
    open_lots();
    end_of_step();
    delete_milk();
    end_of_step();
    put_cream_in_its_place();
    end_of_step();
    expect_gone();
    view().set_current();
    EXPECT_EQ(lots[3].current_lot, 0);
    open_lots();
    EXPECT_EQ(screen->windowTitle(), "Lot View - Cream");
    EXPECT_EQ(list().model()->rowCount(), 16);
}

TEST_F(LotViewOfAChangingItem, AQuantityForAnItemThatWentBehindTheBoxChangesNothing) {
    open_lots();
    end_of_step();
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "4", "5").during([this] {
        delete_milk();
        look_for_changes();
        put_cream_in_its_place();
        look_for_changes();
    });
    press("Return");
    EXPECT_EQ(lots[3].lot_quantity[2], 0);
    EXPECT_EQ(items[3].quantity, 1);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(panel(1), "The item has been deleted; nothing was changed.");
    expect_gone();
}

TEST_F(LotViewOfAChangingItem, ADateForAnItemThatWentBehindTheCalendarChangesNothing) {
    open_lots();
    click("creation_button");
    delete_milk();
    press_in_calendar(Qt::Key_Return);
    EXPECT_FALSE(part("calendar_box").isVisible());
    EXPECT_EQ(lots[3].creation_date[2], 0);
    expect_gone();
}

TEST_F(LotViewOfAChangingItem, AUnitThatIsNoRowIsShownAsNone) {
    items[3].qty_units = 32000;
    open_lots();
    EXPECT_EQ(column(list(), 2)[2], "4");
    items[3].qty_units = -7;
    end_of_step();
    EXPECT_EQ(part<QLabel>("total_label").text(), "In stock: 6.5, in 2 lots");
}

}  // namespace
}  // namespace tavernook
