// The lots of an item on their screen.
#include <QCalendarWidget>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTableView>
#include <limits>

#include "inventory/lots.h"
#include "screens/child_screen_fixture.h"
#include "screens/pantry/LotView.h"
#include "screens/parts/house_colours.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

// The fakes' clock stands at 15 May 2024, 12:00: day 45427.5.
constexpr Date now = 45427.5;

class LotViewScreen : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        items[3].in_use = 1;
        items[3].name = "Milk";
        items[3].qty_units = 2;
        items[3].storage_time = 10;
        units[2].name = "quart(s)";
        units[2].in_use = 1;
        init_lot_record(3);
        fill(0, 2.5, 45420, 45426);  // 8 and 14 May: past its date
        fill(2, 4, 45426, 45427);    // until today
        items[3].quantity = 6.5;
        lots[3].current_lot = 2;
        look_for_changes();
    }

    static void fill(std::size_t place, f64 quantity, Date created, Date expires) {
        lots[3].lot_quantity[place] = quantity;
        lots[3].creation_date[place] = created;
        lots[3].expiration_date[place] = expires;
    }

    void open_lots(i16 item = 3) {
        show_lot_view(item);
        open("LotView");
    }
    LotView& view() { return static_cast<LotView&>(*screen); }
    QTreeView& list() { return part<QTreeView>("lot_list"); }
    QCalendarWidget& calendar() { return part<QCalendarWidget>("calendar"); }

    std::string key(int row) {
        return list().model()->index(row, 0).data(Qt::UserRole).toString().toStdString();
    }
    int selected() {
        const QModelIndexList rows = list().selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }

    // Opens the popup menu of the selected row by its key and walks to the entry.
    void choose_in_popup(const char* name) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                list().viewport()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(list().viewport(), &event);
        auto& popup = part<QMenu>("LotviewpOP");
        ASSERT_EQ(QApplication::activePopupWidget(), &popup);
        for (qsizetype step = 0; step <= popup.actions().size(); ++step) {
            if (popup.activeAction() == &part<QAction>(name)) break;
            press("Down");
        }
        ASSERT_EQ(popup.activeAction(), &part<QAction>(name));
        press("Return");
    }

    void expect_quantity_box(const char* initial, std::optional<std::string> answer) {
        platform.boxes.expect_input("Type new Quantity", "Modify Quantity", initial,
                                    std::move(answer));
    }

    // Clicks on the day of the month shown.
    void click_day(int day) {
        auto* days_shown = calendar().findChild<QTableView*>("qt_calendar_calendarview");
        for (int row = 1; row <= 6; ++row) {
            for (int cell = 0; cell < 8; ++cell) {
                const QModelIndex index = days_shown->model()->index(row, cell);
                const bool first_week = day < 8 ? row < 3 : row > 1;
                if (index.data().toInt() != day || !first_week) continue;
                QTest::mouseClick(days_shown->viewport(), Qt::LeftButton, {},
                                  days_shown->visualRect(index).center());
                return;
            }
        }
        FAIL() << "no day " << day;
    }
    void press_in_calendar(Qt::Key key) {
        QTest::keyClick(calendar().findChild<QTableView*>("qt_calendar_calendarview"), key);
    }
};

TEST_F(LotViewScreen, ShowsSixteenLotsInTheOrderOfTheirPlaces) {
    open_lots();
    EXPECT_EQ(screen->windowTitle(), "Lot View - Milk");
    EXPECT_EQ(screen->parentWidget()->windowTitle(), "Lot View - Milk");
    EXPECT_EQ(column(list()),
              (Texts{"Lot A", "Lot B", "Lot C", "Lot D", "Lot E", "Lot F", "Lot G", "Lot H",
                     "Lot I", "Lot J", "Lot K", "Lot L", "Lot M", "Lot N", "Lot O", "Lot P"}));
    EXPECT_EQ(key(0), "l0");
    EXPECT_EQ(key(15), "l15");
}

TEST_F(LotViewScreen, ShowsDatesAndQuantities) {
    open_lots();
    const auto row = [this](int number) {
        Texts cells;
        for (int cell = 1; cell < 5; ++cell) cells.push_back(column(list(), cell)[number]);
        return cells;
    };
    EXPECT_EQ(row(0), (Texts{"05/08/24", "2.5 quart(s)", "05/14/24", "Expired"}));
    EXPECT_EQ(row(1), (Texts{"-", "0 quart(s)", "-", ""}));
    EXPECT_EQ(row(2), (Texts{"05/14/24", "4 quart(s)", "05/15/24", "Current lot"}));
    EXPECT_EQ(part<QLabel>("total_label").text(), "In stock: 6.5 quart(s), in 2 lots");
    const QVariant alignment = list().model()->index(0, 2).data(Qt::TextAlignmentRole);
    EXPECT_TRUE(alignment.toInt() & Qt::AlignRight);
}

TEST_F(LotViewScreen, ALotPastItsDateIsToldByIconColourAndWord) {
    open_lots();
    const auto note = [this](int row, int role) {
        return list().model()->index(row, 4).data(role);
    };
    EXPECT_EQ(note(0, Qt::DisplayRole), "Expired");
    EXPECT_FALSE(note(0, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(note(0, Qt::ForegroundRole).value<QColor>(),
              house_colour(HouseColour::past_date, list().palette()));
    EXPECT_EQ(note(2, Qt::DisplayRole), "Current lot");
    EXPECT_FALSE(note(2, Qt::DecorationRole).isValid());
    EXPECT_FALSE(note(2, Qt::ForegroundRole).isValid());
}

TEST_F(LotViewScreen, TheCurrentLotHasItsOwnMarkAndIsSelected) {
    open_lots();
    const auto mark = [this](int row) {
        const auto drawn = list().model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        return drawn.pixmap(QSize(32, 32)).toImage();
    };
    EXPECT_EQ(mark(0), mark(1));
    EXPECT_NE(mark(0), mark(2));
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(focused(), "lot_list");
}

TEST_F(LotViewScreen, AnItemWithoutARecordGetsOneFromItsQuantity) {
    items[40].in_use = 1;
    items[40].name = "Flour";
    items[40].quantity = 3;
    items[40].last_restock_date = 45427;
    open_lots(40);
    EXPECT_EQ(column(list(), 1)[0], "05/15/24");
    EXPECT_EQ(column(list(), 2)[0], "3");
    EXPECT_EQ(part<QLabel>("total_label").text(), "In stock: 3, in one lot");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(LotViewScreen, ThePopupHasItsEntriesInOrder) {
    open_lots();
    Texts captions;
    for (const QAction* one : part<QMenu>("LotviewpOP").actions()) {
        captions.push_back(plain(one->text()));
    }
    EXPECT_EQ(captions, (Texts{"Delete Lot", "Modify Quantity", "Modify Creation Date",
                               "Modify Expiration Date", "Set as Current Lot"}));
    for (const QAction* one : part<QMenu>("LotviewpOP").actions()) {
        bool on_a_button = false;
        for (const auto* button : screen->findChildren<QPushButton*>()) {
            on_a_button = on_a_button || button->text() == one->text();
        }
        EXPECT_TRUE(on_a_button) << one->text().toStdString();
    }
}

TEST_F(LotViewScreen, EverythingHasANameAndALetter) {
    open_lots();
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
}

TEST_F(LotViewScreen, AQuantityIsChangedInEveryWay) {
    open_lots();
    const auto expect_change = [this](const char* from, const char* to, f64 quantity) {
        EXPECT_EQ(lots[3].lot_quantity[2], quantity) << from << " to " << to;
        EXPECT_EQ(items[3].quantity, 2.5 + quantity);
        EXPECT_EQ(column(list(), 2)[2], std::string(to) + " quart(s)");
        EXPECT_EQ(project_modified, i16_true);
        EXPECT_EQ(selected(), 2);
        project_modified = i16_false;
    };
    expect_quantity_box("4", "5");
    click("quantity_button");
    expect_change("4", "5", 5);
    expect_quantity_box("5", "0.125");
    list().setFocus();
    press("Return");
    expect_change("5", "0.125", 0.125);
    expect_quantity_box("0.125", " 7 ");
    press("F2");
    expect_change("0.125", "7", 7);
    expect_quantity_box("7", "8");
    double_click_row(list(), 2);
    expect_change("7", "8", 8);
    expect_quantity_box("8", "9");
    press_letter("Alt+Q");
    expect_change("8", "9", 9);
    expect_quantity_box("9", "10");
    choose_in_popup("lot_quantity");
    expect_change("9", "10", 10);
}

TEST_F(LotViewScreen, AQuantityForAnEmptyLotStampsItsDates) {
    open_lots();
    click_row(list(), 5);
    expect_quantity_box("0", "1");
    press("Return");
    EXPECT_EQ(lots[3].creation_date[5], now);
    EXPECT_EQ(lots[3].expiration_date[5], now + 10);
    EXPECT_EQ(column(list(), 3)[5], "05/25/24");
    EXPECT_EQ(items[3].quantity, 7.5);
}

TEST_F(LotViewScreen, AQuantityMayHaveADecimalComma) {
    open_lots();
    expect_quantity_box("4", "1,75");
    press("Return");
    EXPECT_EQ(lots[3].lot_quantity[0], 2.5);
    EXPECT_EQ(lots[3].lot_quantity[2], 1.75);
}

TEST_F(LotViewScreen, ACancelledBoxOrNoNumberChangesNothing) {
    open_lots();
    expect_quantity_box("4", std::nullopt);
    press("Return");
    EXPECT_EQ(panel(1), "");
    for (const char* typed : {"", "much", "4x", "1e2"}) {
        expect_quantity_box("4", typed);
        press("Return");
        EXPECT_EQ(panel(1),
                  std::string("\"") + typed + "\" is not a number; the lot keeps its quantity.");
    }
    expect_quantity_box("4", "-3");
    press("Return");
    EXPECT_EQ(panel(1), "-3 is less than 0; the lot keeps its quantity.");
    EXPECT_EQ(lots[3].lot_quantity[2], 4);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(LotViewScreen, TheSameQuantityLeavesTheProjectUnchanged) {
    open_lots();
    expect_quantity_box("4", "4");
    press("Return");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(LotViewScreen, TheItemScreenFollowsALotThatWasChanged) {
    ASSERT_NE(show_screen("FoodInventory"), nullptr);
    food_inventory()->view_item(3, 0);
    auto* shown = window.registry().loaded("FoodInventory")->findChild<QLineEdit*>("quantity");
    EXPECT_EQ(shown->text(), "6.50");
    open_lots();
    expect_quantity_box("4", "5");
    press("Return");
    ASSERT_NE(show_screen("FoodInventory"), nullptr);
    EXPECT_EQ(shown->text(), "7.50");
}

TEST_F(LotViewScreen, ALotIsDeletedByButtonKeyAndPopup) {
    lots[3].lot_name[2] = "Freezer";
    open_lots();
    EXPECT_EQ(column(list())[2], "Freezer");
    click("delete_button");
    EXPECT_EQ(column(list())[2], "Lot C");
    EXPECT_EQ(lots[3].lot_quantity[2], 0);
    EXPECT_EQ(lots[3].creation_date[2], 0);
    EXPECT_EQ(lots[3].expiration_date[2], 0);
    EXPECT_EQ(lots[3].current_lot, 3);
    EXPECT_EQ(items[3].quantity, 2.5);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(column(list(), 4)[3], "Current lot");
    click_row(list(), 0);
    press("Delete");
    EXPECT_EQ(items[3].quantity, 0);
    EXPECT_EQ(part<QLabel>("total_label").text(), "Nothing in stock.");
    fill(0, 1, 0, 0);
    choose_in_popup("lot_delete");
    EXPECT_EQ(lots[3].lot_quantity[0], 0);
}

TEST_F(LotViewScreen, AnEmptyLotMadeCurrentGetsItsDates) {
    open_lots();
    click_row(list(), 7);
    click("current_button");
    EXPECT_EQ(lots[3].current_lot, 7);
    EXPECT_EQ(lots[3].creation_date[7], now);
    EXPECT_EQ(lots[3].expiration_date[7], now + 10);
    EXPECT_EQ(column(list(), 4)[7], "Current lot");
    EXPECT_EQ(column(list(), 4)[2], "");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(LotViewScreen, AFilledLotMadeCurrentKeepsItsDates) {
    open_lots();
    click_row(list(), 0);
    list().setFocus();
    choose_in_popup("lot_current");
    EXPECT_EQ(lots[3].current_lot, 0);
    EXPECT_EQ(lots[3].creation_date[0], 45420);
    EXPECT_EQ(column(list(), 4)[0], "Current lot, Expired");
    click_row(list(), 2);
    press_letter("Alt+S");
    EXPECT_EQ(lots[3].current_lot, 2);
}

TEST_F(LotViewScreen, TheCreationDateIsPickedByTheMouse) {
    open_lots();
    click("creation_button");
    EXPECT_TRUE(part("calendar_box").isVisible());
    EXPECT_EQ(calendar().selectedDate(), QDate(2024, 5, 15));
    EXPECT_EQ(part<QLabel>("calendar_label").text(), "Creation date of Lot C");
    click_day(20);
    EXPECT_FALSE(part("calendar_box").isVisible());
    EXPECT_EQ(lots[3].creation_date[2], 45432);  // five days later
    EXPECT_EQ(lots[3].expiration_date[2], 45427);
    EXPECT_EQ(column(list(), 1)[2], "05/20/24");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(LotViewScreen, TheExpirationDateIsPickedByTheKeyboardAlone) {
    open_lots();
    press_letter("Alt+E");
    EXPECT_TRUE(part("calendar_box").isVisible());
    press_in_calendar(Qt::Key_Down);  // a week later
    press_in_calendar(Qt::Key_Right);
    press_in_calendar(Qt::Key_Return);
    EXPECT_FALSE(part("calendar_box").isVisible());
    EXPECT_EQ(lots[3].expiration_date[2], 45435);
    EXPECT_EQ(lots[3].creation_date[2], 45426);
    EXPECT_EQ(column(list(), 3)[2], "05/23/24");
}

TEST_F(LotViewScreen, DatesArePickedFromThePopup) {
    open_lots();
    choose_in_popup("lot_creation");
    press_in_calendar(Qt::Key_Return);
    EXPECT_EQ(lots[3].creation_date[2], 45427);  // today, without the time
    choose_in_popup("lot_expiration");
    click_day(31);
    EXPECT_EQ(lots[3].expiration_date[2], 45443);
}

TEST_F(LotViewScreen, EscapeClosesTheCalendarFirstAndThenTheScreen) {
    open_lots();
    press_letter("Alt+M");
    ASSERT_TRUE(part("calendar_box").isVisible());
    QTest::keyClick(&part("calendar_box"), Qt::Key_Escape);
    EXPECT_FALSE(part("calendar_box").isVisible());
    EXPECT_TRUE(is_open("LotView"));
    EXPECT_EQ(project_modified, i16_false);
    list().setFocus();
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("LotView"));
}

TEST_F(LotViewScreen, IsClosedByButtonAndLetter) {
    open_lots();
    click("close_button");
    settle();
    EXPECT_FALSE(is_open("LotView"));
    open_lots();
    press_letter("Alt+C");
    settle();
    EXPECT_FALSE(is_open("LotView"));
}

TEST_F(LotViewScreen, WithoutASelectionNothingCanBeDone) {
    open_lots();
    list().clearSelection();
    for (const char* name : {"quantity_button", "creation_button", "expiration_button",
                             "current_button", "delete_button"}) {
        EXPECT_FALSE(part(name).isEnabled()) << name;
    }
    view().ModQuantity();
    view().ModCreationDate();
    view().set_current();
    view().DeleteLot();
    EXPECT_FALSE(part("calendar_box").isVisible());
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(LotViewScreen, CommandsWorkOnTheRightLotWhenTheListIsSorted) {
    open_lots();
    list().sortByColumn(2, Qt::DescendingOrder);
    EXPECT_EQ(column(list())[0], "Lot C");
    EXPECT_EQ(column(list())[1], "Lot A");
    click_row(list(), 1);
    expect_quantity_box("2.5", "1");
    press("Return");
    EXPECT_EQ(lots[3].lot_quantity[0], 1);
}

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
