// What the report list shows.
#include "reports/report_list.h"

#include <set>

#include "basics/text.h"
#include "reports/report_list_fixture.h"
#include "support/damaged_household.h"

namespace tavernook {
namespace {

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
