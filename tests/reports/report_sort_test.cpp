// How the report list sorts.
#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "basics/number_text.h"
#include "basics/text.h"
#include "reports/report_list_fixture.h"

namespace tavernook {
namespace {

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

}  // namespace
}  // namespace tavernook
