#include "basics/text.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace tavernook {
namespace {

TEST(Trim, TakesBlanksFromTheNamedSide) {
    EXPECT_EQ(trim_left("  a b  "), "a b  ");
    EXPECT_EQ(trim_right("  a b  "), "  a b");
    EXPECT_EQ(trim("  a b  "), "a b");
}

TEST(Trim, LeavesEverythingElse) {
    EXPECT_EQ(trim("\t a \n"), "\t a \n");
    EXPECT_EQ(trim("\xA0 a \xA0"), "\xA0 a \xA0");
    const std::string zeros(" \0 \0 ", 5);
    EXPECT_EQ(trim(zeros), std::string("\0 \0", 3));
}

TEST(Trim, NothingStaysOfBlanksAlone) {
    for (const std::string_view text : {"", " ", "      "}) {
        EXPECT_EQ(trim_left(text), "");
        EXPECT_EQ(trim_right(text), "");
        EXPECT_EQ(trim(text), "");
    }
}

TEST(Trim, ResultsLieInsideTheArgument) {
    const std::string text = "  abc  ";
    EXPECT_EQ(trim(text).data(), text.data() + 2);
    EXPECT_EQ(trim_left(text).data(), text.data() + 2);
    EXPECT_EQ(trim_right(text).data(), text.data());
    const std::string blanks = "   ";
    EXPECT_GE(trim(blanks).data(), blanks.data());
    EXPECT_LE(trim(blanks).data(), blanks.data() + blanks.size());
}

TEST(LowerCase, FoldsLettersOnly) {
    EXPECT_EQ(lower_case("ABC xyz 019 @[`{ QZ"), "abc xyz 019 @[`{ qz");
    EXPECT_EQ(lower_case(""), "");
    EXPECT_EQ(lower_case('K'), 'k');
}

TEST(LowerCase, FoldsEveryAccentedCapitalAndNoOtherByte) {
    // From the code charts: capital and small letter of windows-1252.
    const std::pair<int, int> others[] = {{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}};
    for (int code = 0; code < 256; ++code) {
        int expected = code;
        if (code >= 'A' && code <= 'Z') expected = code + 32;
        if (code >= 0xC0 && code <= 0xDE && code != 0xD7) expected = code + 32;
        for (const auto& [capital, small] : others) {
            if (code == capital) expected = small;
        }
        EXPECT_EQ(static_cast<unsigned char>(lower_case(static_cast<char>(code))), expected);
    }
}

TEST(LowerCase, FoldsAWord) {
    // "CREME BRULEE" with grave, circumflex and acute, and "OEUF" with the ligature.
    EXPECT_EQ(lower_case("CR\xC8ME BR\xDBL\xC9"
                         "E \x8CUF"),
              "cr\xE8me br\xFBl\xE9"
              "e \x9Cuf");
}

TEST(FileNamePart, IsWhatStandsBehindTheLastSlashOfEitherKind) {
    EXPECT_EQ(file_name_part("/home/anna/food.tvk"), "food.tvk");
    EXPECT_EQ(file_name_part("C:\\Food\\food.tvk"), "food.tvk");
    EXPECT_EQ(file_name_part("C:\\Food/old\\a/b.tvk"), "b.tvk");
    EXPECT_EQ(file_name_part("C:/Food\\b.tvk"), "b.tvk");
    EXPECT_EQ(file_name_part("food.tvk"), "food.tvk");
    EXPECT_EQ(file_name_part("/"), "");
    EXPECT_EQ(file_name_part("folder/"), "");
    EXPECT_EQ(file_name_part(""), "");
}

}  // namespace
}  // namespace tavernook
