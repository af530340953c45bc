// How the rows are joined.
#include "reports/report_joins.h"

#include <map>

#include "reports/reports_fixture.h"

namespace tavernook {
namespace {

using LogicStrings = std::array<std::string, filter_entries>;

LogicStrings all(const char* word) {
    LogicStrings strings;
    strings.fill(word);
    return strings;
}

Join join_of(const LogicStrings& strings, int row) {
    return row_joins(strings)[static_cast<std::size_t>(row)];
}

TEST(RowJoins, AreAndToBeginWith) {
    for (int row = 2; row <= report_rows; ++row) {
        EXPECT_EQ(join_of(all("AND"), row), Join::with_and) << row;
    }
}

TEST(RowJoins, OfAnItemsFieldFollowTheRowBefore) {
    const std::map<std::string, Join> words = {
        {"and", Join::with_and}, {"And", Join::with_and}, {"OR", Join::with_or},
        {"oR", Join::with_or},   {"Xor", Join::with_xor}, {"XOR", Join::with_xor},
        {"", Join::none},        {"and ", Join::none},    {"nor", Join::none}};
    for (int row = 2; row < first_lot_row; ++row) {
        for (const auto& [word, join] : words) {
            LogicStrings strings = all("?");
            strings[static_cast<std::size_t>(row - 1)] = word;
            EXPECT_EQ(join_of(strings, row), join) << row << " " << word;
            strings = all(word.c_str());
            strings[static_cast<std::size_t>(row - 1)] = "?";
            EXPECT_EQ(join_of(strings, row), Join::none) << row << " " << word;
        }
    }
}

// --- the rows of the lots, for each combination of what the rows around say

constexpr std::array<const char*, 4> words = {"and", "or", "xor", "?"};

// Letters: what a row that says "and", "or", "xor" or neither makes of it. A, O, X join; a point
// passes over.
Join join_named(char letter) {
    switch (letter) {
        case 'A':
            return Join::with_and;
        case 'O':
            return Join::with_or;
        case 'X':
            return Join::with_xor;
        default:
            return Join::none;
    }
}

// Each line: what row k - 1 says; in it, what the row beside that counts says (and, or, xor, ?).
void expect_table(int offset, int beside, const std::array<const char*, 4>& table) {
    for (int row = first_lot_row + offset; row <= report_rows; row += 3) {
        for (std::size_t before = 0; before < words.size(); ++before) {
            for (std::size_t next = 0; next < words.size(); ++next) {
                LogicStrings strings = all("?");
                strings[static_cast<std::size_t>(row - 1)] = words[before];
                strings[static_cast<std::size_t>(row - beside)] = words[next];
                EXPECT_EQ(join_of(strings, row), join_named(table[before][next]))
                    << "row " << row << ", before it " << words[before] << ", beside it "
                    << words[next];
            }
        }
    }
}

TEST(RowJoins, OfALotsQuantityReadOrAtItself) {
    expect_table(0, 0,
                 {"AAAA",    // k - 1 says and
                  ".OX.",    // or, which does not count there
                  ".OX.",    // xor
                  ".OX."});  // neither
}

TEST(RowJoins, OfAnExpirationDateReadAllAtTheRowBefore) {
    // The row beside is the row before itself: what it says last counts.
    for (int row = first_lot_row + 1; row <= report_rows; row += 3) {
        const std::string expected = "AOX.";
        for (std::size_t word = 0; word < words.size(); ++word) {
            for (const char* others : words) {
                LogicStrings strings = all(others);
                strings[static_cast<std::size_t>(row - 1)] = words[word];
                EXPECT_EQ(join_of(strings, row), join_named(expected[word])) << row;
            }
        }
    }
}

TEST(RowJoins, OfACreationDateReadOrTwoRowsBeforeAndJoinByAnd) {
    expect_table(2, 2,
                 {"AAAA",    // k - 1 says and
                  ".AA.",    // or
                  ".AA.",    // xor
                  ".AA."});  // neither
}

TEST(RowJoins, OneOrAtRow31) {
    LogicStrings strings = all("AND");
    strings[31] = "OR";
    EXPECT_EQ(join_of(strings, 31), Join::with_and);
    EXPECT_EQ(join_of(strings, 32), Join::none);
    EXPECT_EQ(join_of(strings, 33), Join::with_and);
}

TEST(RowJoins, OneOrAtRow30) {
    LogicStrings strings = all("AND");
    strings[30] = "OR";
    EXPECT_EQ(join_of(strings, 30), Join::with_and);
    EXPECT_EQ(join_of(strings, 31), Join::with_or);
    EXPECT_EQ(join_of(strings, 32), Join::with_and);
    strings[29] = "";
    EXPECT_EQ(join_of(strings, 30), Join::with_or);
}

TEST(RowJoins, TheLastLogicStringIsNotRead) {
    LogicStrings strings = all("AND");
    strings[77] = "XOR";
    EXPECT_EQ(row_joins(strings), row_joins(all("AND")));
}

TEST(Joined, FollowsTheWord) {
    for (const bool result : {false, true}) {
        for (const bool matches : {false, true}) {
            EXPECT_EQ(joined(Join::with_and, result, matches), result && matches);
            EXPECT_EQ(joined(Join::with_or, result, matches), result || matches);
            EXPECT_EQ(joined(Join::with_xor, result, matches), result != matches);
            EXPECT_EQ(joined(Join::none, result, matches), result);
        }
    }
}

}  // namespace
}  // namespace tavernook
