// Barcodes, dates, lots, handing items to other screens, and what assistive technology is told.
#include <QCalendarWidget>
#include <QMenu>
#include <QToolButton>
#include <set>

#include "screens/pantry/LotView.h"
#include "screens/pantry/food_inventory_fixture.h"

namespace tavernook {
namespace {

class ItemEntry : public FoodInventoryTest {
  protected:
    void show_rice() {
        put_item(1, "Rice", 1, 2);
        items[1].barcode = "111";
        open();
        choose_row("c1");
    }

    void pick(const QDate& day) {
        auto& calendar = part<QCalendarWidget>("month_view");
        Q_EMIT calendar.clicked(day);
        settle();
    }
};

// --- barcodes --------------------------------------------------------------------------------

TEST_F(ItemEntry, AKeyboardScannerTypesIntoTheEntry) {
    show_rice();
    scanner_type = 0;
    click("scan");
    EXPECT_EQ(focused(), "Text13");
    EXPECT_EQ(text("barcode"), "");
    type("012345678905");
    press("Return");
    settle();
    EXPECT_EQ(text("barcode"), "012345678905");
    EXPECT_EQ(focused(), "scan");
    EXPECT_EQ(text("Text13"), "");
    EXPECT_EQ(text("Text14"), "");
    EXPECT_FALSE(part<QWidget>("Text13").isVisible());
    accept();
    EXPECT_EQ(std::string(items[1].barcode.trimmed()), "012345678905");
}

TEST_F(ItemEntry, TabMayEndACodeToo) {
    show_rice();
    click("scan");
    type("222");
    press("Tab");
    settle();
    EXPECT_EQ(text("barcode"), "222");
}

TEST_F(ItemEntry, ACueCatLineIsDecoded) {
    show_rice();
    scanner_type = 2;
    click("scan");
    type(".C3nZC3nZ.fHmc.C3jXChD2Dxr7ENn2.");
    press("Return");
    settle();
    EXPECT_EQ(text("barcode"), "012345678905");
    EXPECT_EQ(focused(), "scan");
}

TEST_F(ItemEntry, ALineWithoutACodeLeavesTheBarcode) {
    show_rice();
    scanner_type = 2;
    click("scan");
    type("nonsense.");
    press("Return");
    settle();
    EXPECT_EQ(text("barcode"), "111");
    EXPECT_EQ(panel(1), "No barcode could be read. Please scan again.");
    choose_row("r1");  // nothing has changed
}

TEST_F(ItemEntry, EscKeepsTheBarcodeAndAnEmptyEntryTakesItAway) {
    show_rice();
    click("scan");
    type("99");
    press("Escape");
    settle();
    EXPECT_EQ(text("barcode"), "111");
    EXPECT_FALSE(part<QWidget>("Text13").isVisible());
    click("scan");
    part<QWidget>("item_name").setFocus();
    settle();
    EXPECT_EQ(text("barcode"), "111");
    click("scan");
    press("Return");
    settle();
    EXPECT_EQ(text("barcode"), "empty");
}

TEST_F(ItemEntry, WithoutAScannerTheBarcodeIsAskedFor) {
    show_rice();
    scanner_type = 3;
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", std::nullopt);
    click("scan");
    EXPECT_EQ(text("barcode"), "111");
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", "333");
    click("scan");
    EXPECT_EQ(text("barcode"), "333");
}

TEST_F(ItemEntry, ACodeThatAnotherItemBearsIsTold) {
    show_rice();
    items[2].in_use = 1;
    items[2].name = "Salt";
    items[2].barcode = "333";
    scanner_type = 3;
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", "333");
    click("scan");
    EXPECT_EQ(text("barcode"), "333");
    EXPECT_EQ(panel(message_panel), "Salt has this barcode already.");
}

TEST_F(ItemEntry, ACodeThatNobodyWaitsForChangesNothing) {
    scanner_type = 1;
    show_rice();
    screen().take_barcode("222");
    EXPECT_EQ(text("barcode"), "111");
}

TEST_F(ItemEntry, AnUnknownCodeBecomesANewItem) {
    open();
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Tea");
    screen().add_barcode("4006381333931");
    EXPECT_EQ(text("barcode"), "4006381333931");
    accept();
    EXPECT_EQ(std::string(items[1].barcode.trimmed()), "4006381333931");
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", std::nullopt);
    screen().add_barcode("5");
    EXPECT_EQ(text("barcode"), "4006381333931");
}

// --- dates and lots --------------------------------------------------------------------------

TEST_F(ItemEntry, TheExpiryDateCountsFromTheLastRestock) {
    put_item(1, "Rice", 1, 2);
    items[1].last_restock_date = 45427;  // 15 May 2024
    items[1].storage_time = 20;
    open();
    choose_row("c1");
    EXPECT_EQ(text("exp_date"), "Exp 06/04/24");
    EXPECT_EQ(text("last_restock"), "05/15/2024");
}

TEST_F(ItemEntry, APickedDayGivesTheStorageTimeAndStandsOnTheButton) {
    show_rice();
    EXPECT_EQ(text("exp_date"), "Exp Date..");
    click("exp_date");
    auto& calendar = part<QCalendarWidget>("month_view");
    EXPECT_TRUE(calendar.isVisible());
    EXPECT_EQ(calendar.selectedDate(), QDate(2024, 5, 15));
    pick(QDate(2024, 6, 3));
    EXPECT_FALSE(calendar.isVisible());
    EXPECT_EQ(text("exp_date"), "Exp 06/03/24");
    EXPECT_EQ(text("storage_time"), "19");
    click("exp_date");
    pick(QDate(2024, 5, 5));  // behind us: the distance counts
    EXPECT_EQ(text("storage_time"), "10");
    accept();
    EXPECT_EQ(items[1].storage_time, 10);
}

TEST_F(ItemEntry, WithTheDayFirstThePickedDayStandsSo) {
    date_day_first = 1;
    show_rice();
    click("exp_date");
    pick(QDate(2024, 6, 3));
    EXPECT_EQ(text("exp_date"), "Exp 03/06/24");
    EXPECT_EQ(text("storage_time"), "19");
    accept();
    EXPECT_EQ(items[1].storage_time, 19);
}

TEST_F(ItemEntry, TheMonthViewIsToggledAndClosedByEsc) {
    show_rice();
    click("exp_date");
    auto& calendar = part<QCalendarWidget>("month_view");
    EXPECT_TRUE(calendar.isVisible());
    click("exp_date");
    EXPECT_FALSE(calendar.isVisible());
    click("exp_date");
    press("Escape");
    EXPECT_FALSE(calendar.isVisible());
    EXPECT_EQ(focused(), "exp_date");
    EXPECT_EQ(text("storage_time"), "0");
}

TEST_F(ItemEntry, LotTrackOpensTheLotsOfTheItem) {
    show_rice();
    click("lot_track");
    QWidget* lots_screen = window.registry().loaded("LotView");
    ASSERT_NE(lots_screen, nullptr);
    EXPECT_TRUE(lots_screen->isVisible());
    EXPECT_EQ(lots_screen->windowTitle(), "Lot View - Rice");
}

// --- numbers ---------------------------------------------------------------------------------

TEST_F(ItemEntry, ANumberBoxMarksWhatItCannotRead) {
    show_rice();
    auto& cost = part<QuantityBox>("cost");
    EXPECT_TRUE(cost.alignment() & Qt::AlignRight);
    const QString tip = cost.toolTip();
    for (const char* fine : {"", "2", "2.5", "2,5", " 1,5 kg", "-3", ".5", "3 pounds"}) {
        cost.setText(QLatin1String(fine));
        EXPECT_TRUE(cost.readable()) << fine;
        EXPECT_TRUE(cost.actions().isEmpty()) << fine;
        EXPECT_EQ(cost.toolTip(), tip);
    }
    cost.setText("1,5 kg");
    EXPECT_EQ(cost.value(), 1.5);
    for (const char* odd : {"abc", "1/2", "1.2.3", "1,234.5", "2 1/2", "$5"}) {
        cost.setText(QLatin1String(odd));
        EXPECT_FALSE(cost.readable()) << odd;
        EXPECT_EQ(cost.actions().size(), 1) << odd;
        EXPECT_FALSE(cost.accessibleDescription().isEmpty()) << odd;
    }
    cost.setText("1/2");
    EXPECT_EQ(cost.toolTip(), "This cannot be read as one number. It would count as 1.");
    EXPECT_EQ(cost.value(), 1);
    cost.setText("0.00");
}

TEST_F(ItemEntry, ANumberIsSelectedWholeOnFocus) {
    show_rice();
    part<QWidget>("item_category").setFocus();
    press("Return");
    EXPECT_EQ(focused(), "quantity");
    EXPECT_EQ(part<QLineEdit>("quantity").selectedText(), "2.00");
}

// --- handing over ----------------------------------------------------------------------------

TEST_F(ItemEntry, WithoutAReturnModeNothingIsHandedOver) {
    show_rice();
    EXPECT_FALSE(part<QWidget>("add_item").isVisible());
    EXPECT_FALSE(part<QWidget>("quantity_to_add").isVisible());
    EXPECT_TRUE(part<QWidget>("close_screen").isVisible());
}

TEST_F(ItemEntry, ReturnMode1AddsToTheRecipe) {
    FakeMealbuilder recipes(platform.calls);
    recipes.recipe = 7;
    show_rice();
    screen().set_return(1);
    EXPECT_EQ(text("add_item"), "Add Item to Meal");
    platform.calls.clear();
    enter("quantity_to_add", "1,5");
    part<QWidget>("quantity_to_add").setFocus();
    press("Return");
    settle();
    EXPECT_EQ(platform.calls.entries,
              (std::vector<std::string>{"Mealbuilder add_ingredient 1 1.5 in 7"}));
    EXPECT_FALSE(screen().isVisible());
}

TEST_F(ItemEntry, ReturnMode2AddsToTheDayAndTheWindowMayStayOpen) {
    FakeMealPlan planner(platform.calls);
    show_rice();
    screen().set_return(2);
    EXPECT_EQ(text("add_item"), "Add Item to Day");
    platform.calls.clear();
    click("keep_window_open");
    click("add_item");
    EXPECT_EQ(text("quantity_to_add"), "0");
    enter("quantity_to_add", "3");
    click("add_item");
    EXPECT_TRUE(screen().isVisible());
    EXPECT_EQ(platform.calls.entries,
              (std::vector<std::string>{"MealPlan Add_Item 1 0", "MealPlan Add_Item 1 3"}));
    click("close_screen");
    EXPECT_FALSE(screen().isVisible());
    open();
    EXPECT_FALSE(part<QWidget>("add_item").isVisible());
}

TEST_F(ItemEntry, ReturnMode3SetsTheQuantityInTheRecipe) {
    FakeMealbuilder recipes(platform.calls);
    recipes.recipe = 4;
    show_rice();
    screen().set_return(3);
    platform.calls.clear();
    enter("quantity_to_add", "2");
    click("add_item");
    EXPECT_EQ(platform.calls.entries,
              (std::vector<std::string>{"Mealbuilder set_ingredient_qty 1 2 in 4",
                                        "Mealbuilder populate_tree_list 4"}));
    EXPECT_FALSE(screen().isVisible());
}

TEST_F(ItemEntry, ReturnMode4PutsTheItemOnTheShoppingList) {
    FakeShoppingList list(platform.calls);
    show_rice();
    screen().set_return(4);
    platform.calls.clear();
    click("add_item");
    EXPECT_EQ(items[1].on_shopping_list, i16_true);
    EXPECT_EQ(platform.calls.entries, (std::vector<std::string>{"ShoppingList populate_list"}));
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ItemEntry, ScreensThatAreNotLoadedGetNothing) {
    show_rice();
    const ItemRecord before = items[1];
    for (const i16 mode : {1, 2, 3}) {
        screen().set_return(mode);
        click("add_item");
        open();
    }
    EXPECT_EQ(items[1], before);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ItemEntry, CloseDropsANewItemOnlyAfterAQuestion) {
    open();
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Tea");
    screen().new_item();
    platform.boxes.expect_message("Save the new item \"Tea\"?", Answer::cancel);
    click("close_screen");
    EXPECT_TRUE(screen().isVisible());
    platform.boxes.expect_message("Save the new item \"Tea\"?", Answer::no);
    click("close_screen");
    EXPECT_FALSE(screen().isVisible());
    open();
    EXPECT_EQ(text("item_name"), "");
    EXPECT_EQ(items[1].in_use, 0);
}

// --- for everybody ---------------------------------------------------------------------------

TEST_F(ItemEntry, EveryControlHasAnAccessibleName) {
    show_rice();
    click("exp_date");
    int controls = 0;
    for (QWidget* widget : screen().findChildren<QWidget*>()) {
        const bool inner = widget->objectName().startsWith("qt_") &&
                           !widget->objectName().startsWith("qt_calendar");
        const bool part_of_box = qobject_cast<QLineEdit*>(widget) != nullptr &&
                                 qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr;
        const bool takes_focus = widget->focusPolicy() != Qt::NoFocus;
        if (inner || part_of_box || !takes_focus || widget->objectName() == "month_box") continue;
        if (widget->inherits("QAbstractSpinBox") || widget->inherits("QComboBoxListView") ||
            widget->inherits("QComboBoxPrivateContainer") || widget->inherits("QSplitterHandle")) {
            continue;
        }
        auto* button = qobject_cast<QAbstractButton*>(widget);
        const bool named =
            !widget->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
        EXPECT_TRUE(named) << widget->metaObject()->className() << " "
                           << widget->objectName().toStdString();
        ++controls;
    }
    EXPECT_GT(controls, 60);
}

TEST_F(ItemEntry, AScreenThatIsClosedLeadsBackToWhereOneWas) {
    show_rice();
    part<QWidget>("lot_track").setFocus(Qt::TabFocusReason);
    press("Space");
    settle();
    ASSERT_NE(window.registry().loaded("LotView"), nullptr);
    press("Escape");
    settle();
    EXPECT_EQ(window.registry().loaded("LotView"), nullptr);
    EXPECT_EQ(focused(), "lot_track");
    part<QWidget>("item_category").setFocus(Qt::TabFocusReason);
    part<QAction>("item_toolbar_1_7").trigger();
    settle();
    ASSERT_NE(window.registry().loaded("UnitsForm"), nullptr);
    press("Escape");
    settle();
    EXPECT_EQ(focused(), "item_category");
}

TEST_F(ItemEntry, TabGoesRoundFromTheLastPartToTheFirst) {
    show_rice();
    part<QWidget>("close_screen").setFocus();
    press("Tab");
    EXPECT_EQ(focused(), "item_toolbar_1_1_button");
    press("Shift+Tab");
    EXPECT_EQ(focused(), "close_screen");
}

TEST_F(ItemEntry, TabGoesThroughThePanesAsOneReads) {
    show_rice();
    screen().set_return(1);
    std::vector<std::string> way;
    part<QWidget>("item_toolbar_1_1_button").setFocus();
    for (int steps = 0; steps < 90 && focused() != "close_screen"; ++steps) {
        way.push_back(focused());
        press("Tab");
    }
    const auto stands_before = [&way](const char* first, const char* second) {
        const auto a = std::find(way.begin(), way.end(), first);
        const auto b = std::find(way.begin(), way.end(), second);
        return b != way.end() && a < b;
    };
    const char* const expected[] = {"item_toolbar_1_1_button",
                                    "item_toolbar_1_5_button",
                                    "item_toolbar_1_7_button",
                                    "filter",
                                    "toggle_view",
                                    "item_tree",
                                    "expand_tree",
                                    "collapse_tree",
                                    "item_name",
                                    "item_category",
                                    "quantity",
                                    "qty_units",
                                    "stock_quantity",
                                    "restock_quantity",
                                    "cost",
                                    "storage_time",
                                    "exp_date",
                                    "lot_track",
                                    "store",
                                    "store_order",
                                    "location_1",
                                    "location_3",
                                    "scan",
                                    "servings_per_qty_unit",
                                    "serving_size",
                                    "serving_size_units",
                                    "fat",
                                    "fat_units",
                                    "calories",
                                    "protien",
                                    "protien_units",
                                    "manufacturer",
                                    "brand",
                                    "description",
                                    "notes",
                                    "quantity_to_add",
                                    "add_item",
                                    "keep_window_open",
                                    "item_toolbar_2_1_button"};
    for (std::size_t part = 1; part < std::size(expected); ++part) {
        EXPECT_TRUE(stands_before(expected[part - 1], expected[part]))
            << expected[part - 1] << " before " << expected[part];
    }
    EXPECT_EQ(focused(), "close_screen");
}

TEST_F(ItemEntry, NoTwoControlsShareAMnemonic) {
    show_rice();
    screen().set_return(1);
    std::set<QString> seen;
    const auto add = [&seen](const QString& text) {
        const QKeySequence keys = QKeySequence::mnemonic(text);
        if (keys.isEmpty()) return;
        EXPECT_TRUE(seen.insert(keys.toString()).second)
            << keys.toString().toStdString() << " of " << text.toStdString();
    };
    for (QAction* title : window.menuBar()->actions()) add(title->text());
    for (QLabel* label : screen().findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) add(label->text());
    }
    for (QAbstractButton* button : screen().findChildren<QAbstractButton*>()) add(button->text());
    EXPECT_GE(seen.size(), 18u);
}

TEST_F(ItemEntry, ItFitsASmallWindowAndLargeText) {
    show_rice();
    EXPECT_LE(window.minimumSizeHint().width(), 900);
    EXPECT_LE(window.minimumSizeHint().height(), 600);
    QFont large = screen().font();
    large.setPointSizeF(large.pointSizeF() * 2);
    screen().setFont(large);
    settle();
    window.resize(900, 600);
    settle();
    EXPECT_EQ(window.size(), QSize(900, 600));
}

}  // namespace
}  // namespace tavernook
