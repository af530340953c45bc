// Lines, rows and fields of the text that brings items in.
#include "transfer/csv_lines.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tavernook {
namespace {

using Fields = std::vector<std::string>;

// `first` as the first fields of a row of 38, the others empty.
std::string padded(const std::string& first, std::size_t fields) {
    return first + std::string(csv_fields - fields, ',');
}

// The first fields of each row behind the two lines at the head.
std::vector<Fields> rows_of(const std::string& text, std::size_t shown) {
    CsvLines lines(text);
    std::vector<Fields> rows;
    while (const auto row = lines.next()) {
        rows.emplace_back(row->fields.begin(),
                          row->fields.begin() + static_cast<std::ptrdiff_t>(shown));
    }
    return rows;
}

std::vector<Fields> rows_behind_head(const std::string& rows, std::size_t shown) {
    return rows_of("9\r\nHead\r\n" + rows, shown);
}

Fields fields_of(const std::string& first, std::size_t fields, std::size_t shown) {
    const auto rows = rows_behind_head(padded(first, fields) + "\r\n", shown);
    return rows.size() == 1 ? rows[0] : Fields{"not one row"};
}

TEST(CsvLines, TheFirstLineSaysHowManyAndTheSecondIsPassedOver) {
    const std::string text =
        "2\r\nName,Manufacturer\r\n" + padded("Milk", 1) + "\r\n" + padded("Eggs,Farm", 2) + "\r\n";
    EXPECT_EQ(CsvLines(text).count(), 2);
    EXPECT_EQ(rows_of(text, 2), (std::vector<Fields>{{"Milk", ""}, {"Eggs", "Farm"}}));
}

TEST(CsvLines, TheCountIsTheLeadingNumberOfTheFirstLine) {
    const auto count = [](const std::string& line) {
        const std::string text = line + "\r\nName\r\n";
        return CsvLines(text).count();
    };
    EXPECT_EQ(count("4394"), 4394);
    EXPECT_EQ(count(" 12 items"), 12);
    EXPECT_EQ(count("4394,,,,,"), 4394);
    EXPECT_EQ(count("\"17\",\"\","), 17);
    EXPECT_EQ(count("2.5"), 2);
    EXPECT_EQ(count("-3"), 0);
    EXPECT_EQ(count("Name,Manufacturer"), 0);
    EXPECT_EQ(count(""), 0);
    EXPECT_EQ(count("99999999999999999999"), 2147483647);
    EXPECT_EQ(CsvLines("12").count(), 0);
    EXPECT_EQ(CsvLines("").count(), 0);
}

TEST(CsvLines, AFieldMayBeEmptyAndTheLastOneToo) {
    const std::string row = "Milk,,Cow," + std::string(34, ',') + "Cellar";
    const auto rows = rows_behind_head(row + "\r\n", csv_fields);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0], "Milk");
    EXPECT_EQ(rows[0][1], "");
    EXPECT_EQ(rows[0][2], "Cow");
    EXPECT_EQ(rows[0][36], "");
    EXPECT_EQ(rows[0][37], "Cellar");
}

TEST(CsvLines, AQuotedFieldRunsToTheNextQuoteWithACommaBehind) {
    EXPECT_EQ(fields_of("\"Butter, salted\",Dairy", 2, 3), (Fields{"Butter, salted", "Dairy", ""}));
    EXPECT_EQ(fields_of("\"\",b", 2, 2), (Fields{"", "b"}));
    EXPECT_EQ(fields_of("\"a \" b\",c", 2, 2), (Fields{"a \" b", "c"}));
    EXPECT_EQ(fields_of("5\" pipe,c", 2, 2), (Fields{"5\" pipe", "c"}));
    EXPECT_EQ(fields_of(" \"a\",c", 2, 2), (Fields{" \"a\"", "c"}));
}

TEST(CsvLines, ADoubledQuoteStaysAsItIs) {
    EXPECT_EQ(fields_of("\"a \"\"b\"\" c\",d", 2, 2), (Fields{"a \"\"b\"\" c", "d"}));
    EXPECT_EQ(fields_of("\"say \"\"hi\"\"\",d", 2, 2), (Fields{"say \"\"hi\"\"", "d"}));
}

TEST(CsvLines, ADoubledQuoteBeforeACommaEndsTheFieldOnlyWhereTheRowComesOutSo) {
    // As the rule has it: the field is `12"`.
    EXPECT_EQ(fields_of("\"12\"\",frozen", 2, 3), (Fields{"12\"", "frozen", ""}));
    // That would make 39 fields.
    EXPECT_EQ(fields_of("\"12\"\", frozen\",d", 2, 3), (Fields{"12\"\", frozen", "d", ""}));
}

TEST(CsvLines, The38thFieldIsTheRestOfItsLineUnlessItIsQuoted) {
    const auto last = [](const std::string& field) {
        const auto rows =
            rows_behind_head("Milk" + std::string(37, ',') + field + "\r\n", csv_fields);
        return rows.size() == 1 ? rows[0][37] : "not one row";
    };
    EXPECT_EQ(last("Pantry,Shelf 1,Left"), "Pantry,Shelf 1,Left");
    EXPECT_EQ(last("\"Pantry,Shelf 1,Left\""), "Pantry,Shelf 1,Left");
    EXPECT_EQ(last("\"Pantry\",more"), "Pantry");
    EXPECT_EQ(last("Pantry,\"Shelf 1\""), "Pantry,\"Shelf 1\"");
    EXPECT_EQ(last("\"never closed"), "never closed");
}

TEST(CsvLines, MissingFieldsAreEmptyAndCounted) {
    CsvLines lines("1\r\nHead\r\nMilk,Dairy\r\n");
    const auto row = lines.next();
    ASSERT_TRUE(row);
    EXPECT_EQ(row->count, 2u);
    EXPECT_EQ(row->fields[1], "Dairy");
    EXPECT_EQ(row->fields[37], "");
    EXPECT_EQ(row->line, 3);
}

TEST(CsvLines, ALastLineWithoutALineEndIsNotRead) {
    const std::string text = "2\r\nHead\r\n" + padded("Milk", 1) + "\r\n" + padded("Eggs", 1);
    EXPECT_EQ(rows_of(text, 1), (std::vector<Fields>{{"Milk"}}));
    CsvLines lines(text);
    while (lines.next()) {
    }
    EXPECT_EQ(lines.unended_line(), 4);
    const std::string with_end = text + "\r\n  ";
    CsvLines ended(with_end);
    while (ended.next()) {
    }
    EXPECT_EQ(ended.unended_line(), 0);
}

TEST(CsvLines, LinesOfOtherSystems) {
    const std::string milk = padded("Milk", 1);
    const std::vector<Fields> expected = {{"Milk"}, {"Eggs"}};
    EXPECT_EQ(rows_of("2\nHead\n" + milk + "\n" + padded("Eggs", 1) + "\n", 1), expected);
    EXPECT_EQ(rows_of("2\rHead\r" + milk + "\r" + padded("Eggs", 1) + "\r", 1), expected);
    const auto mixed =
        rows_of("2\nHead\r\n" + milk + "\r\n" + padded("Eggs", 1) + "\n", csv_fields);
    ASSERT_EQ(mixed.size(), 2u);
    EXPECT_EQ(mixed[0][37], "");
    EXPECT_EQ(mixed[1][0], "Eggs");
}

TEST(CsvLines, WhereLinesEndWithBothALoneOneIsALetter) {
    EXPECT_EQ(fields_of("a\nb,c\rd", 2, 2), (Fields{"a\nb", "c\rd"}));
}

TEST(CsvLines, ALineEndInAQuotedFieldIsPartOfIt) {
    for (const std::string end : {"\r\n", "\n"}) {
        const std::string text = "2" + end + "Head" + end + padded("\"two" + end + "lines\",b", 2) +
                                 end + padded("Eggs", 1) + end;
        EXPECT_EQ(rows_of(text, 2),
                  (std::vector<Fields>{{"two" + end + "lines", "b"}, {"Eggs", ""}}));
        const std::string last = "2" + end + "Head" + end + "Milk" + std::string(37, ',') +
                                 "\"Pantry" + end + "left\"" + end + padded("Eggs", 1) + end;
        CsvLines lines(last);
        EXPECT_EQ(lines.next()->fields[37], "Pantry" + end + "left");
        const auto eggs = lines.next();
        EXPECT_EQ(eggs->fields[0], "Eggs");
        EXPECT_EQ(eggs->line, 4);
    }
}

TEST(CsvLines, AQuoteThatNothingClosesSpoilsItsOwnLineOnly) {
    const std::string text =
        padded("\"12 inches,b", 2) + "\r\n" + padded("\"Eggs, fresh\",c", 2) + "\r\n";
    EXPECT_EQ(rows_behind_head(text, 2),
              (std::vector<Fields>{{padded("12 inches,b", 2), ""}, {"Eggs, fresh", "c"}}));
    // Nor does it take long, whatever follows.
    std::string many;
    for (int line = 0; line < 20000; ++line) many += "\"x,\r\n";
    EXPECT_EQ(rows_behind_head(many, 1).size(), 20000u);
}

TEST(CsvLines, ARowOfMoreThanOneTextsLengthDoesNotGoOverLines) {
    const std::string text = padded("\"a\r\n" + std::string(65530, 'x') + "\",b", 2) + "\r\n" +
                             padded("Eggs", 1) + "\r\n";
    EXPECT_EQ(rows_behind_head(text, 1).size(), 3u);
}

TEST(CsvRow, IsBlankWhereNothingIsInItsFields) {
    const std::string text =
        "3\r\nHead\r\n\r\n" + std::string(37, ',') + "\r\n ,\"  \",\r\n,,x\r\n";
    CsvLines lines(text);
    EXPECT_TRUE(lines.next()->is_blank());
    EXPECT_TRUE(lines.next()->is_blank());
    EXPECT_TRUE(lines.next()->is_blank());
    EXPECT_FALSE(lines.next()->is_blank());
    EXPECT_FALSE(lines.next());
}

TEST(CsvText, IsTheCodePageWhateverTheFileHad) {
    EXPECT_EQ(csv_text("K\xE4se"), "K\xE4se");
    EXPECT_EQ(csv_text("K\xC3\xA4se"), "K\xE4se");
    EXPECT_EQ(csv_text("\xEF\xBB\xBF"
                       "5 K\xC3\xA4se"),
              "5 K\xE4se");
    EXPECT_EQ(csv_text("\xE2\x82\xAC"
                       "2"),
              "\x80"
              "2");
    EXPECT_EQ(csv_text("K\xC3\xA4se, Cr\xE8me"), "K\xC3\xA4se, Cr\xE8me");  // not UTF-8 as a whole
    EXPECT_EQ(csv_text("plain"), "plain");
    EXPECT_EQ(csv_text(""), "");
}

}  // namespace
}  // namespace tavernook
