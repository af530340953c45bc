// The lots of an item on their screen: how they are shown and what is done to them.
#include <QLineEdit>

#include "screens/pantry/lot_view_fixture.h"
#include "screens/parts/house_colours.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

// The fakes' clock stands at 15 May 2024, 12:00: day 45427.5.
constexpr Date now = 45427.5;

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

}  // namespace
}  // namespace tavernook
