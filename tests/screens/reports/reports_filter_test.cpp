// The filter of the reports' screen: its rows, its commands, and what a search finds.
#include <QMenu>

#include "screens/reports/reports_screen_fixture.h"

namespace tavernook {
namespace {

std::vector<int> rows_up_to(int last) {
    std::vector<int> rows;
    for (int row = 1; row <= last; ++row) rows.push_back(row);
    return rows;
}

TEST_F(ReportsScreen, OpensFromTheToolbarUnderItsTitle) {
    action("toolbar_2_1").trigger();
    ASSERT_TRUE(is_open("Reports"));
    open_reports();
    EXPECT_EQ(screen->windowTitle(), "Tavernook Reports");
    EXPECT_EQ(reports(), dynamic_cast<ports::Reports*>(screen));
    close_reports();
    EXPECT_EQ(reports(), nullptr);
}

TEST_F(ReportsScreen, The77RowsSearchForEverythingAndJoinByAnd) {
    open_reports();
    ASSERT_EQ(rows().model()->rowCount(), 77);
    const auto title = [this](int number) {
        return rows().model()->headerData(number, Qt::Horizontal).toString();
    };
    EXPECT_EQ(title(0), "Field Name");
    EXPECT_EQ(title(1), "Search String");
    EXPECT_EQ(title(2), "Logic String");
    EXPECT_EQ(filter_cell(1, 0), "Item");
    EXPECT_EQ(filter_cell(20, 0), "Serving/Qty Unit");
    EXPECT_EQ(filter_cell(77, 0), "Lot P Creation Date");
    for (int row = 1; row <= 77; ++row) {
        EXPECT_EQ(search_string(row), "*") << row;
        EXPECT_EQ(logic_string(row), "AND") << row;
        EXPECT_EQ(rows().model()->index(row - 1, 0).data(Qt::UserRole),
                  QStringLiteral("s%1").arg(row));
    }
    EXPECT_EQ(checked_rows(), rows_up_to(22));
}

TEST_F(ReportsScreen, Row1IsBlueAndSelectedAtFirst) {
    open_reports();
    EXPECT_EQ(rows().currentIndex().row(), 0);
    EXPECT_EQ(focused(), "row_list");
    const auto colour = [this](int row) {
        return rows().model()->index(row, 0).data(Qt::ForegroundRole);
    };
    EXPECT_EQ(colour(0).value<QColor>(), QColor(0, 0, 255));
    EXPECT_FALSE(colour(1).isValid());
}

TEST_F(ReportsScreen, OnADarkGroundRow1IsSeenAsWell) {
    open_reports();
    const QPalette before = QGuiApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Link, QColor(120, 170, 255));
    QGuiApplication::setPalette(dark);
    const QVariant colour = rows().model()->index(0, 0).data(Qt::ForegroundRole);
    QGuiApplication::setPalette(before);
    EXPECT_EQ(colour.value<QColor>(), QColor(120, 170, 255));
}

TEST_F(ReportsScreen, EveryDoorToTheSearchStringAsksForTheMarkedRow) {
    open_reports();
    const auto ask = [this](const char* answer) {
        platform.boxes.expect_input("Enter the Search String", "Search String", search_string(10),
                                    answer);
    };
    choose_filter_row(10);
    ask("a");
    press("Return");
    EXPECT_EQ(search_string(10), "a");
    ask("b");
    press("F2");
    EXPECT_EQ(search_string(10), "b");
    ask("c");
    press_letter("Alt+T");
    EXPECT_EQ(search_string(10), "c");
    ask("d");
    command("row_search").trigger();
    EXPECT_EQ(search_string(10), "d");
    ask("e");
    const QModelIndex cell = rows().model()->index(9, 1);
    const QPoint place = rows().visualRect(cell).center();
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(search_string(10), "e");
    EXPECT_EQ(rows().currentIndex().row(), 9);
}

TEST_F(ReportsScreen, RowsThatSearchForSomethingAreBold) {
    open_reports();
    const auto is_bold = [this](int row) {
        return rows().model()->index(row - 1, 1).data(Qt::FontRole).value<QFont>().bold();
    };
    EXPECT_FALSE(is_bold(31));
    type_search(31, "*/*");
    EXPECT_TRUE(is_bold(31));
    EXPECT_FALSE(is_bold(30));
    type_search(31, "*");
    EXPECT_FALSE(is_bold(31));
}

TEST_F(ReportsScreen, AnEmptyAnswerAndCancelLeaveTheSearchString) {
    open_reports();
    type_search(1, "milk*");
    type_search(1, "");
    EXPECT_EQ(search_string(1), "milk*");
    platform.boxes.expect_input("Enter the Search String", "Search String", "milk*", std::nullopt);
    press("F2");
    EXPECT_EQ(search_string(1), "milk*");
}

TEST_F(ReportsScreen, AWrongLogicStringIsToldAndAskedAgainAndARightOneStaysAsTyped) {
    open_reports();
    choose_filter_row(5);
    platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String", "AND",
                                "nor");
    platform.boxes.expect_message("nor is not a valid logic string.  Please use AND, OR, XOR");
    platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String", "AND",
                                "Or");
    press_letter("Alt+L");
    EXPECT_EQ(logic_string(5), "Or");
    platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String", "Or", "");
    command("row_logic").trigger();
    EXPECT_EQ(logic_string(5), "Or");
}

TEST_F(ReportsScreen, ShiftF10OffersWhatCanBeDoneWithTheRow) {
    open_reports();
    choose_filter_row(3);
    press("Shift+F10");
    ASSERT_EQ(QApplication::activePopupWidget(), &part<QMenu>("row_menu"));
    press("R");
    EXPECT_FALSE(is_checked(3));
}

TEST_F(ReportsScreen, SpaceAndAClickOnTheMarkCheckARow) {
    open_reports();
    toggle(30);
    EXPECT_TRUE(is_checked(30));
    press("Space");
    EXPECT_FALSE(is_checked(30));
    const QModelIndex cell = rows().model()->index(29, 0);
    const QRect row = rows().visualRect(cell);
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 9, row.center().y()));
    EXPECT_TRUE(is_checked(30));
    EXPECT_EQ(titles().size(), std::size_t{first_columns});  // until it is run
    press("F5");
    EXPECT_EQ(titles().size(), std::size_t{first_columns + 1});
    EXPECT_EQ(titles().back(), "Lot A QTY");
}

// The list shows the row that was checked again, not the one that had been chosen before.
TEST_F(ReportsScreen, ACheckFarDownLeavesTheListWhereItIs) {
    open_reports();
    for (int turn = 0; turn < 3; ++turn) settle();  // the toolbars find their rows
    rows().scrollToBottom();
    settle();
    const QModelIndex cell = rows().model()->index(74, 0);
    const QRect row = rows().visualRect(cell);
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 9, row.center().y()));
    EXPECT_TRUE(is_checked(75));
    EXPECT_EQ(rows().visualRect(cell), row);
    EXPECT_EQ(rows().currentIndex().row(), 74);
}

TEST_F(ReportsScreen, SaysThatTheStockHasChangedSince) {
    open_reports();
    end_of_step();
    EXPECT_EQ(label("count_label"), "4");
    items[milk].quantity = 1;
    end_of_step();
    EXPECT_EQ(label("count_label"), "4 - the stock has changed since, press Run (F5)");
    press("F5");
    EXPECT_EQ(label("count_label"), "4");
    end_of_step();
    EXPECT_EQ(label("count_label"), "4");
}

// What was opened last goes first.
TEST_F(ReportsScreen, EscapeClosesAListOfABoxBeforeTheScreen) {
    open_reports();
    saved().addItem("Cheap");
    saved().showPopup();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press("Escape");
    settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(is_open("Reports"));
}

TEST_F(ReportsScreen, TheItemCannotBeSwitchedOff) {
    open_reports();
    toggle(1);
    EXPECT_TRUE(is_checked(1));
    EXPECT_EQ(status(), "The item's name is always shown.");
}

TEST_F(ReportsScreen, ViewNoneAndViewAllTakeTurns) {
    open_reports();
    EXPECT_EQ(button_text("view_none"), "View None");
    press_letter("Alt+N");
    EXPECT_EQ(checked_rows(), std::vector<int>{1});
    EXPECT_EQ(button_text("view_none"), "View All");
    press("F5");
    EXPECT_EQ(titles(), Texts{"Item"});
    press_letter("Alt+A");
    EXPECT_EQ(checked_rows(), rows_up_to(77));
    EXPECT_EQ(button_text("view_none"), "View None");
    press("F5");
    EXPECT_EQ(titles().size(), 79u);
    EXPECT_EQ(titles().back(), "Lot P Creation Date");
}

TEST_F(ReportsScreen, EditingTheFilterSearchesOnlyWhenItIsRun) {
    open_reports();
    type_search(1, "*milk*");
    EXPECT_EQ(names().size(), 4u);
    EXPECT_TRUE(label("count_label").starts_with("4 - columns or filter have been changed"));
    press("F5");
    EXPECT_EQ(names(), (Texts{"Milk Chocolate", "Whole milk"}));
    EXPECT_EQ(label("count_label"), "2");
    EXPECT_EQ(status(), "2 items found.");
    type_search(1, "milk*");
    command("report_toolbar_1").trigger();
    EXPECT_EQ(names(), Texts{"Milk Chocolate"});
    EXPECT_EQ(status(), "1 item found.");
}

TEST_F(ReportsScreen, TheLogicStringOfARowJoinsTheNextOne) {
    open_reports();
    type_search(1, "bread");
    type_search(2, "nothing of the kind");
    press("F5");
    EXPECT_EQ(names(), Texts{});
    type_logic(1, "or");
    press("F5");
    EXPECT_EQ(names(), Texts{"Bread"});
    // Behind an "xor" a row that finds everything turns the result round.
    type_logic(5, "xor");
    press("F5");
    EXPECT_EQ(names(), (Texts{"Apples", "Milk Chocolate", "Whole milk"}));
}

TEST_F(ReportsScreen, ASearchWithoutAMatchSaysSoAndShowsNoTitles) {
    open_reports();
    search(1, "saffron");
    EXPECT_EQ(names(), Texts{});
    EXPECT_EQ(titles(), Texts{});
    auto& hint = part<QLabel>("report_list_hint");
    EXPECT_TRUE(hint.isVisible());
    EXPECT_TRUE(hint.text().startsWith("No item matches."));
    EXPECT_EQ(label("count_label"), "0");
    search(1, "*");
    EXPECT_FALSE(hint.isVisible());
    EXPECT_EQ(titles().size(), std::size_t{first_columns});
}

TEST_F(ReportsScreen, ResetSearchesForEverythingAgain) {
    open_reports();
    search(1, "bread");
    type_logic(40, "or");
    press_letter("Alt+N");
    press_letter("Alt+E");
    EXPECT_EQ(search_string(1), "*");
    EXPECT_EQ(logic_string(40), "AND");
    EXPECT_EQ(checked_rows(), rows_up_to(22));
    EXPECT_EQ(names().size(), 4u);
    EXPECT_EQ(titles().size(), std::size_t{first_columns});
}

// What is in the kitchen with a date, the soonest first: by a part of the date's text, and a sort.
TEST_F(ReportsScreen, WhatIsPastItsDateComesFirstWhenSortedByIt) {
    const auto put_lot = [](i16 item, int year, int month, int day) {
        lots[item].expiration_date[0] = date_from_civil(year, month, day);
    };
    put_lot(apples, 2024, 6, 1);
    put_lot(milk, 2023, 12, 24);
    put_lot(bread, 2024, 5, 16);
    open_reports();
    toggle(31);
    search(31, "*/*");
    EXPECT_EQ(names(), (Texts{"Apples", "Milk Chocolate", "Bread"}));
    click_header(first_columns);
    EXPECT_EQ(names(), (Texts{"Apples", "Bread", "Milk Chocolate"}));
    click_header(first_columns);
    EXPECT_EQ(names(), (Texts{"Milk Chocolate", "Bread", "Apples"}));
    EXPECT_EQ(column(list(), first_columns), (Texts{"12/24/2023", "05/16/2024", "06/01/2024"}));
    search(31, "*/2023");
    EXPECT_EQ(names(), Texts{"Milk Chocolate"});
}

TEST_F(ReportsScreen, AScreenThatGoesWhileABoxIsOpenIsLeftAlone) {
    open_reports();
    choose_filter_row(1);
    platform.boxes.expect_input("Enter the Search String", "Search String", "*", "milk")
        .during([this] { delete screen; });
    press("F2");
    EXPECT_EQ(reports(), nullptr);
}

// --- access

TEST_F(ReportsScreen, EveryPartHasANameAndALetterOfItsOwn) {
    open_reports();
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
    std::set<QString> letters{"Alt+F", "Alt+P", "Alt+W", "Alt+H"};
    for (const int position : {1, 2, 3, 5}) {
        const std::string name = "report_toolbar_" + std::to_string(position);
        const QString keys = QKeySequence::mnemonic(command(name.c_str()).text()).toString();
        EXPECT_TRUE(letters.insert(keys).second) << name;
    }
    for (const char* one : {"O", "D", "I", "C", "T", "L", "N", "A", "E"}) {
        EXPECT_TRUE(letters.insert(QStringLiteral("Alt+") + one).second) << one;
    }
}

TEST_F(ReportsScreen, TabGoesThroughThePartsAsTheyStand) {
    open_reports();
    part("report_toolbar_1_button").setFocus();
    Texts found;
    for (int step = 0; step < 12; ++step) {
        found.push_back(focused());
        press("Tab");
    }
    // The usage button is off as long as no row is selected.
    EXPECT_EQ(found, (Texts{"report_toolbar_1_button", "report_toolbar_2_button",
                            "report_toolbar_3_button", "saved_reports", "delete_configuration",
                            "report_list", "row_list", "search_str", "logic", "view_none", "reset",
                            "report_toolbar_1_button"}));
}

TEST_F(ReportsScreen, EscapeClosesTheScreen) {
    open_reports();
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("Reports"));
}

TEST_F(ReportsScreen, TheRowListStaysAtTheRightWhenTheWindowGrows) {
    open_reports();
    const int width = part("filter_panel").width();
    const int list_width = list().width();
    window.resize(1600, 900);
    settle();
    EXPECT_EQ(part("filter_panel").width(), width);
    EXPECT_GT(list().width(), list_width);
    EXPECT_GT(part("filter_panel").x(), part("report_panel").x());
}

}  // namespace
}  // namespace tavernook
