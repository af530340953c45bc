// The bytes of a saved report, written out by hand.
#include "reports/report_file_format.h"

#include "reports/reports_fixture.h"

namespace tavernook {
namespace {

std::string word(int value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF)};
}

class ReportFile : public ReportsTest {
  protected:
    ReportFile() {
        search_string(1) = "*milk*";
        search_string(77) = "\xE9";
        search_string(100) = "";
        look.column_positions[1] = 2;
        look.column_positions[2] = 1;
        look.column_positions[77] = 0x0102;
        look.sort = {4, 1, -1};
    }

    // The file of that, put together by its offsets.
    static std::string bytes_by_hand() {
        std::string bytes(202, '\0');
        for (std::size_t row = 1; row <= 22; ++row) bytes.replace(row * 2, 2, "\xFF\xFF");
        bytes.resize(499, '\0');
        bytes += "Milk / Week                     ";
        bytes.resize(551, '\0');
        bytes += word(2) + word(1);
        for (int column = 3; column <= 76; ++column) bytes += word(column);
        bytes += "\x02\x01";
        bytes.resize(724, '\0');
        bytes += word(4);
        bytes.resize(727, '\0');
        bytes += "\xFF\xFF";
        bytes.resize(731, '\0');
        bytes += word(1);
        bytes.resize(999, '\0');
        bytes += word(0);  // entry 0
        bytes += word(6) + "*milk*";
        for (int row = 2; row <= 76; ++row) bytes += word(1) + "*";
        bytes += word(1) + "\xE9";
        for (int row = 78; row <= 99; ++row) bytes += word(1) + "*";
        bytes += word(0);
        return bytes;
    }

    std::string encoded(std::string_view older = {}) const {
        return encode_report(ReportName("Milk / Week"), filter, look, older);
    }

    ReportLook look;
};

TEST_F(ReportFile, HasTheseBytes) {
    const std::string expected = bytes_by_hand();
    const std::string bytes = encoded();
    ASSERT_EQ(bytes.size(), expected.size());
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        ASSERT_EQ(bytes[offset], expected[offset]) << "offset " << offset;
    }
}

TEST_F(ReportFile, ReadsThoseBytes) {
    ReportFilter read;
    ReportLook seen;
    seen.column_positions[77] = 60;
    decode_report(bytes_by_hand(), read, seen);
    EXPECT_EQ(read.search_strings, filter.search_strings);
    EXPECT_EQ(read.row_checked, filter.row_checked);
    EXPECT_EQ(seen.column_positions[1], 2);
    EXPECT_EQ(seen.column_positions[2], 1);
    EXPECT_EQ(seen.column_positions[76], 76);
    EXPECT_EQ(seen.column_positions[77], 60);  // 258 is no place for a column
    EXPECT_EQ(seen.sort.key, 4);
    EXPECT_EQ(seen.sort.order, 1);
    ASSERT_TRUE(report_name_in(bytes_by_hand()).has_value());
    EXPECT_EQ(report_name_in(bytes_by_hand())->stored(), "Milk / Week                     ");
}

TEST_F(ReportFile, SortedIsReadAndPassedOver) {
    for (const i16 sorted : {i16_true, i16_false}) {
        ReportFilter read;
        ReportLook seen;
        seen.sort.sorted = sorted;
        decode_report(bytes_by_hand(), read, seen);
        EXPECT_EQ(seen.sort.sorted, sorted);
    }
}

TEST_F(ReportFile, LogicStringsAreNotSaved) {
    logic_string(5) = "XOR";
    EXPECT_EQ(encoded(), bytes_by_hand());
    decode_report(bytes_by_hand(), filter, look);
    EXPECT_EQ(logic_string(5), "XOR");
}

TEST_F(ReportFile, AnOlderLongerFileKeepsItsBytes) {
    const std::string fresh = encoded();
    const std::string older(fresh.size() + 100, '#');
    const std::string bytes = encoded(older);
    ASSERT_EQ(bytes.size(), older.size());
    EXPECT_EQ(bytes.substr(0, 202), fresh.substr(0, 202));
    EXPECT_EQ(bytes.substr(202, 297), std::string(297, '#'));
    EXPECT_EQ(bytes.substr(499, 32), fresh.substr(499, 32));
    EXPECT_EQ(bytes.substr(531, 20), std::string(20, '#'));
    EXPECT_EQ(bytes.substr(551, 154), fresh.substr(551, 154));
    EXPECT_EQ(bytes.substr(705, 19), std::string(19, '#'));
    EXPECT_EQ(bytes.substr(726, 1), "#");
    EXPECT_EQ(bytes.substr(729, 2), "##");
    EXPECT_EQ(bytes.substr(733, 266), std::string(266, '#'));
    EXPECT_EQ(bytes.substr(999, fresh.size() - 999), fresh.substr(999));
    EXPECT_EQ(bytes.substr(fresh.size()), std::string(100, '#'));
}

TEST_F(ReportFile, WhatIsBehindAnyFileOfTheFormatIsNotKept) {
    EXPECT_EQ(encoded(std::string(longest_report_file + 1, '#')).size(), longest_report_file);
}

TEST_F(ReportFile, TheNameIsCutTo32) {
    const std::string bytes = encode_report(ReportName(std::string(40, 'n')), filter, look, {});
    EXPECT_EQ(report_name_in(bytes)->stored(), std::string(32, 'n'));
    EXPECT_EQ(bytes[531], '\0');
}

TEST_F(ReportFile, LongSearchStringsAreWhole) {
    search_string(3) = std::string(40000, 'x');  // beyond what a signed length holds
    search_string(4) = std::string(70000, 'y');
    ReportFilter read;
    decode_report(encoded(), read, look);
    EXPECT_EQ(read.search_strings[3], std::string(40000, 'x'));
    EXPECT_EQ(read.search_strings[4], std::string(65535, 'y'));
    EXPECT_EQ(read.search_strings[77], "\xE9");
}

TEST_F(ReportFile, WhatNoListHasIsPassedOver) {
    std::string bytes = encoded();
    bytes.replace(551, 2, word(0));
    bytes.replace(553, 2, word(101));
    bytes.replace(555, 2, word(100));
    bytes.replace(557, 2, word(-1));
    bytes.replace(724, 2, word(100));
    bytes.replace(731, 2, word(2));
    ReportFilter read;
    ReportLook seen;
    decode_report(bytes, read, seen);
    EXPECT_EQ(seen.column_positions[1], 1);
    EXPECT_EQ(seen.column_positions[2], 2);
    EXPECT_EQ(seen.column_positions[3], 100);
    EXPECT_EQ(seen.column_positions[4], 4);
    EXPECT_EQ(seen.sort, ReportSort{});
}

// --- files that end early, at every length

// What each value is where the first `size` bytes are all there is; other values stay.
TEST_F(ReportFile, OfAShortFileEachWholeValueIsTaken) {
    const std::string bytes = bytes_by_hand();
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        ReportFilter read;
        read.search_strings.fill("before");
        read.row_checked.fill(7);
        ReportLook seen;
        seen.column_positions.fill(9);
        seen.sort = {8, 0, 0};
        decode_report(bytes.substr(0, size), read, seen);

        for (std::size_t row = 0; row <= 100; ++row) {
            const i16 expected = row * 2 + 2 > size ? i16{7} : filter.row_checked[row];
            ASSERT_EQ(read.row_checked[row], expected) << "size " << size << " row " << row;
        }
        for (std::size_t column = 1; column <= 76; ++column) {
            const i16 expected = 551 + column * 2 > size ? i16{9} : look.column_positions[column];
            ASSERT_EQ(seen.column_positions[column], expected) << "size " << size;
        }
        ASSERT_EQ(seen.sort.key, size < 726 ? 8 : 4) << size;
        ASSERT_EQ(seen.sort.order, size < 733 ? 0 : 1) << size;
        std::size_t end = 999;
        for (std::size_t row = 0; row <= 100; ++row) {
            end += 2 + filter.search_strings[row].size();
            ASSERT_EQ(read.search_strings[row], end > size ? "before" : filter.search_strings[row])
                << "size " << size << " row " << row;
        }
        ASSERT_EQ(report_name_in(bytes.substr(0, size)).has_value(), size >= 531) << size;
    }
}

TEST_F(ReportFile, ALengthBeyondTheEndEndsTheReading) {
    std::string bytes = encoded();
    bytes.replace(1001, 2, "\xFF\xFF");
    ReportFilter read;
    read.search_strings.fill("before");
    decode_report(bytes, read, look);
    EXPECT_EQ(read.search_strings[0], "");
    for (std::size_t row = 1; row <= 100; ++row) EXPECT_EQ(read.search_strings[row], "before");
}

TEST_F(ReportFile, EachByteMayBeWrong) {
    const std::string bytes = bytes_by_hand();
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        for (const char wrong : {'\0', '\x7F', '\xFF'}) {
            std::string damaged = bytes;
            damaged[offset] = wrong;
            ReportFilter read;
            ReportLook seen;
            decode_report(damaged, read, seen);
            ASSERT_GE(seen.sort.order, 0);
            ASSERT_LE(seen.sort.order, 1);
            ASSERT_GE(seen.sort.key, 0);
            ASSERT_LE(seen.sort.key, 99);
        }
    }
}

}  // namespace
}  // namespace tavernook
