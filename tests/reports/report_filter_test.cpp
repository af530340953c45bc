// The filter over all items, and what the user does to it.
#include "reports/report_filter.h"

#include <functional>
#include <random>

#include "basics/text.h"
#include "reports/report_joins.h"
#include "reports/reports_fixture.h"
#include "support/damaged_household.h"

namespace tavernook {
namespace {

class ReportFilters : public ReportsTest {
  protected:
    ReportFilters() {
        add_item(1, "Milk Chocolate");
        add_item(2, "Whole milk");
        add_item(3, "Bread");
        items[1].quantity = 1;
        items[2].quantity = 2;
        items[3].quantity = 3;
        items[1].cost = items[2].cost = 5;
    }
    using Numbers = std::vector<i16>;
};

TEST_F(ReportFilters, AllItemsInUseMatchAtFirst) {
    items[4].name = "Gone";
    add_item(item_capacity, "The last");
    EXPECT_EQ(found(), (Numbers{1, 2, 3, item_capacity}));
}

TEST_F(ReportFilters, OnlyInUse1Counts) {
    items[2].in_use = -1;
    items[3].in_use = 2;
    search_engine(filter);
    EXPECT_EQ(filter.result_flags[1], -1);
    EXPECT_EQ(filter.result_flags[2], 0);
    EXPECT_EQ(filter.result_flags[3], 0);
}

TEST_F(ReportFilters, ItemsNotInUseKeepAStaleFlag) {
    filter.result_flags[4] = -1;
    filter.result_flags[0] = -1;
    search_engine(filter);
    EXPECT_EQ(filter.result_flags[4], -1);
    EXPECT_EQ(filter.result_flags[0], -1);
}

TEST_F(ReportFilters, TheNameIsTheFirstRow) {
    search_string(1) = "milk*";
    EXPECT_EQ(found(), Numbers{1});
    search_string(1) = "*MILK*";
    EXPECT_EQ(found(), (Numbers{1, 2}));
    search_string(1) = "milk";
    EXPECT_EQ(found(), Numbers{});
}

TEST_F(ReportFilters, AnEarlierResultIsDropped) {
    search_string(1) = "bread";
    EXPECT_EQ(found(), Numbers{3});
    search_string(1) = "milk*";
    EXPECT_EQ(found(), Numbers{1});
}

TEST_F(ReportFilters, RowsAreJoinedByAnd) {
    search_string(1) = "*milk*";
    search_string(5) = ">1";
    EXPECT_EQ(found(), Numbers{2});
}

TEST_F(ReportFilters, TheLogicStringOfARowJoinsTheNextOne) {
    search_string(5) = "=1";
    search_string(6) = "=0";
    logic_string(5) = "OR";  // of quantity: cost joins by it
    EXPECT_EQ(found(), (Numbers{1, 3}));
    logic_string(5) = "AND";
    logic_string(6) = "OR";  // cost joins by AND, the unit by OR, and its "*" always matches
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
}

TEST_F(ReportFilters, ThereIsNoPrecedence) {
    // (bread or quantity 2) and cost 5, not bread or (quantity 2 and cost 5).
    search_string(1) = "bread";
    for (int row = 1; row <= 4; ++row) logic_string(row) = "?";
    logic_string(4) = "or";
    search_string(5) = "=2";
    search_string(6) = "=5";
    EXPECT_EQ(found(), Numbers{2});
}

TEST_F(ReportFilters, AStarJoinedByOrForcesTrue) {
    search_string(1) = "bread";
    EXPECT_EQ(found(), Numbers{3});
    logic_string(1) = "or";
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
}

TEST_F(ReportFilters, OneXorAndNothingElseSelectsNothing) {
    for (const int row : {1, 10, 28, 30, 33, 75}) {
        begin_report_filter(filter);
        logic_string(row) = "XOR";
        EXPECT_EQ(found(), Numbers{}) << row;
    }
}

TEST_F(ReportFilters, OneXorThatNoRowJoinsByChangesNothing) {
    for (const int row : {29, 31, 32, 76, 77}) {
        begin_report_filter(filter);
        logic_string(row) = "XOR";
        EXPECT_EQ(found(), (Numbers{1, 2, 3})) << row;
    }
}

TEST_F(ReportFilters, AnUnknownWordPassesTheRowOver) {
    search_string(5) = "=1";
    logic_string(4) = "nor";
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
}

TEST_F(ReportFilters, WordsCountInAnyCase) {
    search_string(5) = "=1";
    logic_string(4) = "aNd";
    EXPECT_EQ(found(), Numbers{1});
}

TEST_F(ReportFilters, LotsOfNothingArePartOfIt) {
    search_string(30) = "=0";
    search_string(75) = "=0";
    search_string(77) = "12:00:00 AM";
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
}

TEST_F(ReportFilters, AnOrAtRow31PassesTheCreationDateOver) {
    search_string(32) = "no such date";
    EXPECT_EQ(found(), Numbers{});
    logic_string(31) = "OR";
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
    search_string(33) = "=1";
    EXPECT_EQ(found(), Numbers{});
}

TEST_F(ReportFilters, AnOrAtRow30JoinsItOnlyWhereRow29SaysNoAnd) {
    search_string(1) = "bread";
    search_string(30) = "=0";
    logic_string(30) = "OR";
    search_string(31) = "none";
    EXPECT_EQ(found(), Numbers{3});  // and for row 30, or for row 31
    logic_string(29) = "OR";
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
}

TEST_F(ReportFilters, ACreationDateJoinedByOrIsAnd) {
    for (const char* word : {"or", "xor"}) {
        begin_report_filter(filter);
        logic_string(30) = word;
        logic_string(31) = "?";
        search_string(31) = "none";
        search_string(32) = "none";
        EXPECT_EQ(found(), Numbers{}) << word;
        search_string(32) = "12*";
        EXPECT_EQ(found(), (Numbers{1, 2, 3})) << word;
    }
}

TEST_F(ReportFilters, RowsBehindThe77thPlayNoPart) {
    search_string(78) = search_string(100) = search_string(0) = "nothing";
    logic_string(77) = "XOR";
    EXPECT_EQ(found(), (Numbers{1, 2, 3}));
}

TEST_F(ReportFilters, ADamagedHouseholdIsSearchedWithoutABox) {
    fill_damaged_household();
    for (int row = 1; row <= report_rows; ++row) {
        search_string(row) = row % 2 == 0 ? "=12" : "*a*";
        logic_string(row) = row % 3 == 0 ? "or" : "xor";
    }
    search_engine(filter);
}

// --- each row with each kind of pattern

class EachRow : public ReportsTest {
  protected:
    EachRow() { add_soup(); }

    void expect_each(const std::function<std::string(const std::string&)>& found_by,
                     const std::function<std::string(const std::string&)>& not_found_by) {
        const std::vector<std::string> texts = soup_texts();
        for (int row = 1; row <= report_rows; ++row) {
            const std::string& text = texts[static_cast<std::size_t>(row - 1)];
            EXPECT_TRUE(finds_soup(row, found_by(text))) << row << " " << found_by(text);
            EXPECT_FALSE(finds_soup(row, not_found_by(text))) << row << " " << not_found_by(text);
        }
    }
    static std::string number_in(const std::string& text) {
        const std::size_t length = text.find_first_not_of("0123456789.");
        return length == 0 ? "0" : text.substr(0, length);
    }
};

TEST_F(EachRow, MatchesAStar) {
    for (int row = 1; row <= report_rows; ++row) EXPECT_TRUE(finds_soup(row, "*")) << row;
}

TEST_F(EachRow, MatchesItsWholeText) {
    expect_each([](const std::string& text) { return lower_case(text); },
                [](const std::string& text) { return text + "x"; });
    expect_each([](const std::string& text) { return text; },
                [](const std::string& text) { return text.substr(1); });
}

TEST_F(EachRow, MatchesItsStart) {
    expect_each([](const std::string& text) { return text.substr(0, 1) + "*"; },
                [](const std::string& text) { return "#" + text + "*"; });
}

TEST_F(EachRow, MatchesItsEnd) {
    expect_each([](const std::string& text) { return "*" + text.substr(text.size() - 1); },
                [](const std::string& text) { return "*" + text + "#"; });
}

TEST_F(EachRow, MatchesAPartOfIt) {
    expect_each([](const std::string& text) { return "*" + text.substr(text.size() / 2, 1) + "*"; },
                [](const std::string& text) { return "*" + text + "#*"; });
}

TEST_F(EachRow, ComparesItsLeadingNumber) {
    expect_each([](const std::string& text) { return "=" + number_in(text); },
                [](const std::string& text) { return "!" + number_in(text); });
    expect_each([](const std::string&) { return std::string("<100000000000"); },
                [](const std::string&) { return std::string(">100000000000"); });
    expect_each([](const std::string&) { return std::string(">-1"); },
                [](const std::string&) { return std::string("<-1"); });
}

// --- against the plain walk over all rows, without anything spared

bool plain_walk(const ReportFilter& filter, i16 item) {
    const ReportItem of = report_item(item);
    const RowJoins joins = row_joins(filter.logic_strings);
    bool result = IS_Match(filter, item, field_value(1, of), 1);
    for (int row = 2; row <= report_rows; ++row) {
        const bool matches = IS_Match(filter, item, field_value(row, of), row);
        result = joined(joins[static_cast<std::size_t>(row)], result, matches);
    }
    return result;
}

TEST_F(EachRow, OfAnyFilterGivesWhatThePlainWalkGives) {
    fill_damaged_household();
    std::mt19937 random(20240515);
    const auto one_of = [&](const std::vector<std::string>& texts) {
        return texts[random() % texts.size()];
    };
    int selected = 0;
    for (int turn = 0; turn < 60; ++turn) {
        for (int row = 1; row <= report_rows; ++row) {
            search_string(row) = one_of({"*", "*", "*a*", "=0", ">1", "*0", "1*", "!12", "item 1"});
            logic_string(row) = one_of({"AND", "and", "or", "Xor", "?"});
        }
        search_engine(filter);
        for (i16 item = 1; item <= 40; ++item) {
            const bool flag = filter.result_flags[static_cast<std::size_t>(item)] != 0;
            EXPECT_EQ(flag, plain_walk(filter, item)) << "turn " << turn << ", item " << item;
            selected += flag ? 1 : 0;
        }
    }
    EXPECT_GT(selected, 0);
}

// --- commands

TEST_F(ReportFilters, BeginsWithThe22FirstRows) {
    for (int row = 1; row <= 100; ++row) {
        EXPECT_EQ(search_string(row), "*") << row;
        EXPECT_EQ(logic_string(row), "AND") << row;
        EXPECT_EQ(checked(row), row <= 22 ? -1 : 0) << row;
    }
    EXPECT_EQ(view_button_caption(filter), "View None");
}

TEST_F(ReportFilters, ResetLeavesWhatIsBehindTheRows) {
    for (int row = 0; row <= 100; ++row) {
        search_string(row) = "x";
        logic_string(row) = "or";
        checked(row) = static_cast<i16>(row % 2 == 0 ? 0 : 5);
    }
    filter.view_all_next = -1;
    reset_report_filter(filter);
    EXPECT_EQ(search_string(1), "*");
    EXPECT_EQ(search_string(77), "*");
    EXPECT_EQ(logic_string(77), "AND");
    EXPECT_EQ(search_string(78), "x");
    EXPECT_EQ(logic_string(0), "or");
    EXPECT_EQ(checked(22), -1);
    EXPECT_EQ(checked(23), 0);
    EXPECT_EQ(checked(99), 5);
    EXPECT_EQ(view_button_caption(filter), "View All");
}

TEST_F(ReportFilters, ViewNoneAndViewAllTakeTurns) {
    view_none_or_all(filter);
    EXPECT_EQ(checked(1), -1);
    for (int row = 2; row <= 77; ++row) EXPECT_EQ(checked(row), 0) << row;
    EXPECT_EQ(view_button_caption(filter), "View All");
    checked(1) = 0;
    view_none_or_all(filter);
    EXPECT_EQ(checked(1), 0);
    for (int row = 2; row <= 77; ++row) EXPECT_EQ(checked(row), -1) << row;
    EXPECT_EQ(checked(78), 0);
    EXPECT_EQ(view_button_caption(filter), "View None");
}

TEST_F(ReportFilters, TheItemCannotBeSwitchedOff) {
    check_row(filter, 1, false);
    EXPECT_EQ(checked(1), -1);
    check_row(filter, 5, false);
    EXPECT_EQ(checked(5), 0);
    check_row(filter, 77, true);
    EXPECT_EQ(checked(77), -1);
    for (const int none : {-1, 0, 78, 101}) check_row(filter, none, true);
    EXPECT_EQ(checked(0), 0);
    EXPECT_EQ(checked(78), 0);
}

TEST_F(ReportFilters, ASearchStringIsAskedFor) {
    search_string(9) = "old";
    platform.boxes.expect_input("Enter the Search String", "Search String", "old", " *new ");
    EXPECT_TRUE(ask_search_string(filter, 9));
    EXPECT_EQ(search_string(9), " *new ");
}

TEST_F(ReportFilters, AnEmptySearchStringIsNotStored) {
    for (const auto& answer : {std::optional<std::string>(""), std::optional<std::string>()}) {
        platform.boxes.expect_input("Enter the Search String", "Search String", "*", answer);
        EXPECT_FALSE(ask_search_string(filter, 9));
        EXPECT_EQ(search_string(9), "*");
    }
}

TEST_F(ReportFilters, NothingIsAskedForWhatIsNoRow) {
    for (const int none : {-1, 0, 78, 101}) {
        EXPECT_FALSE(ask_search_string(filter, none));
        EXPECT_FALSE(ask_logic_string(filter, none));
    }
}

TEST_F(ReportFilters, ALogicStringIsStoredAsTyped) {
    for (const char* word : {"or", "XOR", "aNd"}) {
        platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String",
                                    logic_string(9), word);
        EXPECT_TRUE(ask_logic_string(filter, 9));
        EXPECT_EQ(logic_string(9), word);
    }
}

TEST_F(ReportFilters, AnotherWordIsToldAndAskedAgain) {
    const char* prompt = "Enter the Logic String (AND, OR, XOR)";
    platform.boxes.expect_input(prompt, "Logic String", "AND", "nor");
    platform.boxes.expect_message("nor is not a valid logic string.  Please use AND, OR, XOR");
    platform.boxes.expect_input(prompt, "Logic String", "AND", "or ");
    platform.boxes.expect_message("or  is not a valid logic string.  Please use AND, OR, XOR");
    platform.boxes.expect_input(prompt, "Logic String", "AND", "or");
    EXPECT_TRUE(ask_logic_string(filter, 9));
    EXPECT_EQ(logic_string(9), "or");
}

TEST_F(ReportFilters, AnEmptyLogicStringEndsTheCommand) {
    const char* prompt = "Enter the Logic String (AND, OR, XOR)";
    platform.boxes.expect_input(prompt, "Logic String", "AND", "nor");
    platform.boxes.expect_message("nor is not a valid logic string.  Please use AND, OR, XOR");
    platform.boxes.expect_input(prompt, "Logic String", "AND", std::nullopt);
    EXPECT_FALSE(ask_logic_string(filter, 9));
    EXPECT_EQ(logic_string(9), "AND");
}

}  // namespace
}  // namespace tavernook
