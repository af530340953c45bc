// What the report list shows, and how it sorts.
#include "reports/report_list.h"

#include <cmath>
#include <random>
#include <set>

#include "basics/number_text.h"
#include "basics/text.h"
#include "reports/reports_fixture.h"
#include "support/damaged_household.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

class ReportLists : public ReportsTest {
  protected:
    void check_only(const std::vector<int>& rows) {
        filter.row_checked.fill(0);
        for (const int row : rows) checked(row) = -1;
    }
    void show() {
        search_engine(filter);
        ASSERT_TRUE(populate_list(filter, list));
    }
    void show_only(const std::vector<int>& rows) {
        check_only(rows);
        show();
    }
    Texts column(int number) const {
        Texts cells;
        for (int row = 0; row < list.rows(); ++row) cells.emplace_back(list.cell(row, number));
        return cells;
    }
    Texts titles() const {
        Texts found;
        for (int number = 0; number < list.columns(); ++number) {
            found.emplace_back(list.title(number));
        }
        return found;
    }
    Texts first_row() const {
        Texts cells;
        for (int number = 0; number < list.columns(); ++number) {
            cells.emplace_back(list.cell(0, number));
        }
        return cells;
    }
    std::vector<i16> order() const {
        std::vector<i16> numbers;
        for (int row = 0; row < list.rows(); ++row) numbers.push_back(list.item(row));
        return numbers;
    }
    // Clicks on a title until the order is ascending.
    std::vector<i16> ascending(int number) {
        do {
            EXPECT_TRUE(sort_report(list, number));
        } while (list.sort.order != 0);
        return order();
    }
    // The only cell of the column behind the name.
    std::string cell(int row) {
        show_only({row});
        return std::string(list.cell(0, 1));
    }

    ReportList list;
};

// --- rows, titles, cells

TEST_F(ReportLists, ShowThe22FirstFieldsToBeginWith) {
    add_soup();
    show();
    ASSERT_EQ(list.rows(), 1);
    EXPECT_EQ(list.item(0), soup);
    EXPECT_EQ(titles(), (Texts{"Item",
                               "Category",
                               "Store",
                               "Store Order (SO)",
                               "Quantity",
                               "Cost/Unit",
                               "QTY Units",
                               "Manufacturer",
                               "Brand",
                               "Description",
                               "Notes",
                               "Location 1",
                               "Location 2",
                               "Location 3",
                               "Storage Time",
                               "Last Restock Date",
                               "Stock Quantity",
                               "Restock Quantity",
                               "Barcode",
                               "Serving Size",
                               "Serving Size Units",
                               "Servings/Qty Unit",
                               "Fat",
                               "Calories"}));
    EXPECT_EQ(first_row(), (Texts{"Tomato Soup",
                                  "Canned Food",
                                  "Corner Shop",
                                  "12",
                                  "6.5",
                                  "$1.25",
                                  "tin(s)",
                                  "Brenner & Sons",
                                  "Red Pot",
                                  "Thick and smooth",
                                  "Shake well",
                                  "Cellar",
                                  "Shelf 2",
                                  "Left",
                                  "400",
                                  "05/15/2024",
                                  "8",
                                  "2.75",
                                  "5012345678                      ",
                                  "0.5",
                                  "bowl(s)     ",
                                  "2.5",
                                  "21.5",
                                  "220"}));
}

TEST_F(ReportLists, AllRowsCheckedGive79Columns) {
    add_soup();
    view_none_or_all(filter);
    view_none_or_all(filter);
    show();
    EXPECT_EQ(list.columns(), 79);
    const Texts shown = titles();
    EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()).size(), 79u);
    EXPECT_EQ(shown[22], "Fat");
    EXPECT_EQ(shown[31], "Lot A QTY");
    EXPECT_EQ(shown[78], "Lot P Creation Date");
    EXPECT_EQ(list.cell(0, 31), "100.5");
    EXPECT_EQ(list.cell(0, 32), "12/01/2025");
    EXPECT_EQ(list.cell(0, 33), "06/01/2024");
    EXPECT_EQ(list.cell(0, 78), "06/16/2024");
}

TEST_F(ReportLists, EachCheckedRowShowsItsField) {
    add_soup();
    const Texts texts = soup_texts();
    for (int row = 2; row <= report_rows; ++row) {
        if (row == location_row || row == cost_row) continue;
        const std::string shown(trim_right(cell(row)));
        const std::string expected =
            field_kind(row) == ValueKind::date
                ? format_date(field_value(row, report_item(soup)).number, "mm/dd/yyyy")
                : texts[static_cast<std::size_t>(row - 1)];
        EXPECT_EQ(shown, expected) << field_name(row);
        EXPECT_EQ(list.columns(), 2);
        EXPECT_EQ(list.title(1), row == 20 ? "Servings/Qty Unit" : field_name(row));
    }
}

TEST_F(ReportLists, TheNameIsShownWhateverItsMark) {
    add_soup();
    items[soup].name = "  Tomato Soup";
    show_only({});
    EXPECT_EQ(first_row(), Texts{"Tomato Soup"});
    EXPECT_EQ(titles(), Texts{"Item"});
}

TEST_F(ReportLists, OnlyItemsOfTheResultThatAreInUseAreShown) {
    add_item(1, "One");
    add_item(2, "Two");
    add_item(item_capacity, "Last");
    items[3].name = "Gone";
    filter.result_flags.fill(-1);
    filter.result_flags[2] = 0;
    populate_list(filter, list);
    EXPECT_EQ(order(), (std::vector<i16>{1, item_capacity}));
}

TEST_F(ReportLists, AnEmptyResultIsBlank) {
    add_soup();
    show();
    search_string(1) = "nothing";
    show();
    EXPECT_EQ(list.rows(), 0);
    EXPECT_EQ(list.columns(), 0);
    for (int number = 0; number < report_column_slots; ++number) {
        EXPECT_EQ(list.title(number), "") << number;
    }
}

TEST_F(ReportLists, Titles78And79StayFromAnEarlierList) {
    add_soup();
    filter.row_checked.fill(-1);
    show();
    search_string(1) = "nothing";
    show();
    EXPECT_EQ(list.title(0), "");
    EXPECT_EQ(list.title(76), "");
    EXPECT_EQ(list.title(77), "Lot P Expiration Date");
    EXPECT_EQ(list.title(78), "Lot P Creation Date");
}

TEST_F(ReportLists, WhatThereIsNotIsBlank) {
    add_soup();
    show();
    for (const int none : {-1, 24, 1000}) EXPECT_EQ(list.cell(0, none), "") << none;
    for (const int none : {-1, 1, 1000}) {
        EXPECT_EQ(list.cell(none, 0), "") << none;
        EXPECT_EQ(list.item(none), 0) << none;
    }
    for (const int none : {-1, 24, 100, 1000}) EXPECT_EQ(list.title(none), "") << none;
}

TEST_F(ReportLists, ShowTheirProgress) {
    show();
    const Texts& events = platform.progress.events();
    ASSERT_EQ(events.size(), 103u);
    EXPECT_EQ(events[0], "load Building Report|Adding Items to list. Please Wait....");
    EXPECT_EQ(events[1], "show");
    EXPECT_EQ(events[2], "bar 1");
    EXPECT_EQ(events[101], "bar 100");
    EXPECT_EQ(events[102], "unload");
}

TEST_F(ReportLists, AreSnapshots) {
    add_soup();
    show();
    items[soup].name = "Other";
    EXPECT_EQ(list.cell(0, 0), "Tomato Soup");
    EXPECT_EQ(list.item(0), soup);
}

TEST_F(ReportLists, AnItemThatIsGoneIsNotTheOneInItsPlace) {
    add_soup();
    look_for_changes();
    show();
    items[soup].in_use = 0;
    EXPECT_EQ(list.item(0), 0);
    look_for_changes();
    add_item(soup, "Another");
    look_for_changes();
    EXPECT_EQ(list.item(0), 0);
    EXPECT_EQ(list.cell(0, 0), "Tomato Soup");
}

TEST_F(ReportLists, CostsFollowTheirMask) {
    add_soup();
    EXPECT_EQ(cell(6), "$1.25");
    items[soup].cost = 0;
    EXPECT_EQ(cell(6), "$.00");
    items[soup].cost = 1234.5;
    EXPECT_EQ(cell(6), "$1234.50");
    items[soup].cost = -1.5;
    EXPECT_EQ(cell(6), "-$1.50");
    currency_symbol = 163;
    EXPECT_EQ(cell(6),
              "-\xA3"
              "1.50");
}

TEST_F(ReportLists, DatesOf0AreNaForLotsOnly) {
    add_soup();
    lots[soup].expiration_date[0] = lots[soup].creation_date[0] = 0;
    items[soup].last_restock_date = 0;
    EXPECT_EQ(cell(31), "na");
    EXPECT_EQ(cell(32), "na");
    EXPECT_EQ(cell(14), "12/30/1899");
    lots[soup].expiration_date[0] = 1e15;
    EXPECT_EQ(cell(31), "");
}

TEST_F(ReportLists, NamesAreTrimmedAtTheRightAndTextsOnBothSides) {
    add_soup();
    catagories[3].name = "  Canned";
    pooled_strings[22] = "  Red Pot ";
    items[soup].barcode = " 50";
    EXPECT_EQ(cell(2), "  Canned");
    EXPECT_EQ(cell(9), "Red Pot");
    EXPECT_EQ(cell(17), " 50" + std::string(29, ' '));
}

TEST_F(ReportLists, LocationsAreSplitAtTwoCommas) {
    const std::vector<std::pair<std::string, Texts>> cases = {
        {"Cellar", {"", "", ""}},
        {"", {"", "", ""}},
        {"Cellar,Shelf", {"Cellar", "", ""}},
        {"Cellar,", {"Cellar", "", ""}},
        {",Shelf", {"", "", ""}},
        {"Cellar,Shelf,Left", {"Cellar", "Shelf", "Left"}},
        {" Cellar , Shelf , Left ", {"Cellar ", " Shelf ", " Left"}},
        {"a,b,c,d", {"a", "b", "c,d"}},
        {",,", {"", "", ""}},
        {"a,,", {"a", "", ""}},
        {",,c", {"", "", "c"}}};
    add_soup();
    for (const auto& [location, parts] : cases) {
        pooled_strings[25] = location;
        show_only({12});
        EXPECT_EQ(first_row(), (Texts{"Tomato Soup", parts[0], parts[1], parts[2]})) << location;
        EXPECT_EQ(titles(), (Texts{"Item", "Location 1", "Location 2", "Location 3"}));
    }
}

TEST_F(ReportLists, ADamagedHouseholdIsShownWithoutABox) {
    fill_damaged_household();
    filter.row_checked.fill(-1);
    show();
    EXPECT_GT(list.rows(), 100);
    for (int number = 0; number < list.columns(); ++number) {
        EXPECT_TRUE(sort_report(list, number));
    }
}

// --- sorting

class ReportSorts : public ReportLists {
  protected:
    void add_quantities(const std::vector<f64>& quantities) {
        i16 item = 0;
        for (const f64 quantity : quantities) {
            ++item;
            add_item(item, "Item " + std::to_string(item));
            items[item].quantity = quantity;
        }
        show_only({5});
    }
};

TEST_F(ReportSorts, KindsAreTheseOfTheTitles) {
    std::set<std::string> dates = {"last restock date"};
    for (char lot = 'a'; lot <= 'p'; ++lot) {
        dates.insert(std::string("lot ") + lot + " expiration date");
        dates.insert(std::string("lot ") + lot + " creation date");
    }
    const std::set<std::string> numbers = {
        "store order (so)", "quantity",     "cost/unit",         "storage time",  "stock quantity",
        "restock quantity", "serving size", "servings/qty unit", "fat",           "calories",
        "cholestorol",      "sodium",       "potassium",         "carbohydrates", "fiber",
        "sugars",           "protien"};
    filter.row_checked.fill(-1);
    std::size_t found_dates = 0;
    std::size_t found_numbers = 0;
    for (const ReportColumn& column : report_columns(filter)) {
        const std::string title = lower_case(column_title(column));
        const SortKind expected = dates.count(title) > 0     ? SortKind::date
                                  : numbers.count(title) > 0 ? SortKind::number
                                                             : SortKind::text;
        EXPECT_EQ(sort_kind(column), expected) << title;
        found_dates += dates.count(title);
        found_numbers += numbers.count(title);
    }
    EXPECT_EQ(found_dates, dates.size());
    EXPECT_EQ(found_numbers, numbers.size());
}

TEST_F(ReportSorts, TheFirstClickSortsDescending) {
    add_quantities({2, 10, 1});
    sort_report(list, 1);
    EXPECT_EQ(order(), (std::vector<i16>{2, 1, 3}));
    EXPECT_EQ(list.sort, (ReportSort{1, 1, -1}));
    sort_report(list, 1);
    EXPECT_EQ(order(), (std::vector<i16>{3, 1, 2}));
    EXPECT_EQ(list.sort, (ReportSort{1, 0, -1}));
}

TEST_F(ReportSorts, AClickOnAnotherColumnFlipsAsWell) {
    add_quantities({2, 10, 1});
    sort_report(list, 1);
    sort_report(list, 0);
    EXPECT_EQ(list.sort, (ReportSort{0, 0, -1}));
    EXPECT_EQ(order(), (std::vector<i16>{1, 2, 3}));
}

TEST_F(ReportSorts, AColumnThatIsNoneIsLeftAlone) {
    add_quantities({2, 10, 1});
    for (const int none : {-1, 2, 99}) {
        EXPECT_TRUE(sort_report(list, none));
        EXPECT_EQ(list.sort, ReportSort{});
    }
}

TEST_F(ReportSorts, TwiceIsTheReverseAndEqualRowsTakePart) {
    add_quantities({5, 1, 5, 1, 5});
    EXPECT_EQ(ascending(1), (std::vector<i16>{2, 4, 1, 3, 5}));
    sort_report(list, 1);
    EXPECT_EQ(order(), (std::vector<i16>{5, 3, 1, 4, 2}));
}

TEST_F(ReportSorts, NegativeNumbersComeFirst) {
    add_quantities({0, -1, 2, -20, 1.5, -0.5, 10});
    EXPECT_EQ(ascending(1), (std::vector<i16>{4, 2, 6, 1, 5, 3, 7}));
}

TEST_F(ReportSorts, WhatIsNoNumberComesBeforeAll) {
    add_quantities({3, std::nan(""), -1e20, -std::numeric_limits<f64>::infinity()});
    EXPECT_EQ(ascending(1), (std::vector<i16>{2, 4, 3, 1}));
    EXPECT_EQ(column(1), (Texts{"nan", "-inf", "-100000000000000000000", "3"}));
}

TEST_F(ReportSorts, AmountsOfMoneyAreNumbers) {
    for (const i16 sign : {i16{36}, i16{165}, i16{163}}) {
        currency_symbol = sign;
        i16 item = 0;
        for (const f64 cost : {10.0, 9.5, -2.0, 0.0, -100.0}) {
            add_item(++item, "Item");
            items[item].cost = cost;
        }
        show_only({6});
        EXPECT_EQ(ascending(1), (std::vector<i16>{5, 3, 4, 2, 1}));
    }
}

TEST_F(ReportSorts, AChangedCurrencySignIsThatOfTheCells) {
    add_item(1, "One");
    add_item(2, "Two");
    items[1].cost = 10;
    items[2].cost = 9;
    show_only({6});
    currency_symbol = 163;
    EXPECT_EQ(ascending(1), (std::vector<i16>{2, 1}));
}

TEST_F(ReportSorts, DatesSortByTheirDayAndNaComesFirst) {
    i16 item = 0;
    for (const Date date : {date_from_civil(2024, 12, 1), date_from_civil(2025, 1, 5), Date{0},
                            date_from_civil(2023, 6, 30), 1e300}) {
        add_item(++item, "Item");
        init_lot_record(item);
        lots[item].expiration_date[1] = date;
    }
    show_only({34});
    EXPECT_EQ(ascending(1), (std::vector<i16>{3, 5, 4, 1, 2}));
    EXPECT_EQ(column(1), (Texts{"na", "", "06/30/2023", "12/01/2024", "01/05/2025"}));
}

TEST_F(ReportSorts, QuantitiesOfLotsSortAsText) {
    i16 item = 0;
    for (const f64 quantity : {9.0, 10.0, 100.0, 2.0}) {
        add_item(++item, "Item");
        init_lot_record(item);
        lots[item].lot_quantity[0] = quantity;
    }
    show_only({30});
    EXPECT_EQ(column(1), (Texts{"9", "10", "100", "2"}));
    ascending(1);
    EXPECT_EQ(column(1), (Texts{"10", "100", "2", "9"}));
}

TEST_F(ReportSorts, TextsSortWithoutRegardToCase) {
    add_item(1, "bread");
    add_item(2, "Apple");
    add_item(3, "apple pie");
    add_item(4, "APPLE");
    show_only({});
    EXPECT_EQ(ascending(0), (std::vector<i16>{2, 4, 3, 1}));
}

TEST_F(ReportSorts, CellsAndItemsStayTogether) {
    add_quantities({2, 10, 1});
    sort_report(list, 1);
    EXPECT_EQ(column(0), (Texts{"Item 2", "Item 1", "Item 3"}));
    EXPECT_EQ(column(1), (Texts{"10", "2", "1"}));
}

TEST_F(ReportSorts, ANewListKeepsTheOrder) {
    add_quantities({2, 10, 1});
    sort_report(list, 1);
    add_item(4, "Item 4");
    items[4].quantity = 5;
    show();
    EXPECT_EQ(order(), (std::vector<i16>{2, 4, 1, 3}));
}

TEST_F(ReportSorts, AKeyBehindTheColumnsLeavesTheRowsByNumber) {
    add_quantities({2, 10, 1});
    list.sort = {50, 1, -1};
    show();
    EXPECT_EQ(order(), (std::vector<i16>{1, 2, 3}));
}

TEST_F(ReportSorts, AKeyThatIsNotSortedByLeavesTheRowsByNumber) {
    add_quantities({2, 10, 1});
    list.sort = {1, 1, 0};
    show();
    EXPECT_EQ(order(), (std::vector<i16>{1, 2, 3}));
}

// The key of a number as a text: 30 digits on both sides of the point; below 0 each digit taken
// from 9 and "&" in front.
std::string text_key(f64 value) {
    const std::string mask = std::string(30, '0') + "." + std::string(30, '0');
    std::string key = format_number(std::fabs(value), mask);
    if (value >= 0) return key;
    for (char& letter : key) {
        if (letter != '.') letter = static_cast<char>('0' + ('9' - letter));
    }
    return "&" + key;
}

TEST_F(ReportSorts, NumbersStandAsTheirTextKeysDo) {
    std::mt19937 random(7);
    std::vector<f64> quantities = {0, 1e29, -1e29, 1e-9, -1e-9};
    for (int turn = 0; turn < 300; ++turn) {
        const auto whole = static_cast<f64>(static_cast<int>(random() % 4001) - 2000);
        quantities.push_back(whole / std::pow(10, random() % 6));
    }
    add_quantities(quantities);
    std::string before;
    for (const i16 item : ascending(1)) {
        const std::string key = text_key(items[item].quantity);
        EXPECT_LE(before, key);
        before = key;
    }
}

TEST(ReportKeys, BearTheNumber) {
    EXPECT_EQ(report_key(1), "t1");
    EXPECT_EQ(report_key(10000), "t10000");
    EXPECT_EQ(item_of_report_key("t1"), 1);
    EXPECT_EQ(item_of_report_key("t10000"), 10000);
    for (const char* none : {"", "t", "t0", "t-3", "t10001", "t99999999", "5", "s5"}) {
        EXPECT_EQ(item_of_report_key(none), 0) << none;
    }
}

}  // namespace
}  // namespace tavernook
