#include "basics/fixed_string.h"

#include <gtest/gtest.h>
#include <string>

namespace tavernook {
namespace {

TEST(FixedString, StartsBlank) {
    const FixedString<5> text;
    EXPECT_EQ(text.stored(), "     ");
    EXPECT_TRUE(text.blank());
    EXPECT_EQ(text.trimmed(), "");
}

TEST(FixedString, TakesExactlyItsBytes) {
    EXPECT_EQ(sizeof(FixedString<25>), 25u);
    EXPECT_EQ(FixedString<25>::size, 25u);
    EXPECT_EQ(FixedString<25>("x").stored().size(), 25u);
}

TEST(FixedString, PadsShortTextWithBlanks) {
    EXPECT_EQ(FixedString<6>("abc").stored(), "abc   ");
    EXPECT_EQ(FixedString<6>("").stored(), "      ");
}

TEST(FixedString, CutsLongText) {
    EXPECT_EQ(FixedString<6>("abcdef").stored(), "abcdef");
    EXPECT_EQ(FixedString<6>("abcdefg").stored(), "abcdef");
    EXPECT_EQ(FixedString<1>(std::string(1000, 'z')).stored(), "z");
}

TEST(FixedString, AssignmentLeavesNothingOfTheOldText) {
    FixedString<6> text("abcdef");
    text = "xy";
    EXPECT_EQ(text.stored(), "xy    ");
    text = std::string("pqrstuvw");
    EXPECT_EQ(text.stored(), "pqrstu");
    text = std::string_view();
    EXPECT_EQ(text.stored(), "      ");
}

TEST(FixedString, AcceptsItsOwnTrimmedView) {
    FixedString<8> text("  abc   ");
    text = text.trimmed();
    EXPECT_EQ(text.stored(), "abc     ");
}

TEST(FixedString, AcceptsOverlappingAndWholeViewsOfItself) {
    FixedString<8> text("12345678");
    text = text.stored().substr(1);
    EXPECT_EQ(text.stored(), "2345678 ");
    text = text.stored();
    EXPECT_EQ(text.stored(), "2345678 ");
}

TEST(FixedString, TrimsBlanksOnly) {
    const FixedString<10> text(" \ta b\t ");
    EXPECT_EQ(text.right_trimmed(), " \ta b\t");
    EXPECT_EQ(text.trimmed(), "\ta b\t");
}

TEST(FixedString, ZeroBytesAreTextAndNotPadding) {
    const std::string zeros("a\0b\0", 4);
    const FixedString<6> text(zeros);
    EXPECT_EQ(text.stored(), std::string("a\0b\0  ", 6));
    EXPECT_EQ(text.right_trimmed(), zeros);
    EXPECT_FALSE(FixedString<2>(std::string(2, '\0')).blank());
}

TEST(FixedString, BlankMeansNothingButBlanks) {
    EXPECT_TRUE(FixedString<3>("   ").blank());
    EXPECT_FALSE(FixedString<3>("  x").blank());
    EXPECT_FALSE(FixedString<3>("\t").blank());
}

TEST(FixedString, ComparesWithItsKindByAllBytes) {
    EXPECT_TRUE(FixedString<4>("ab") == FixedString<4>("ab  "));
    EXPECT_FALSE(FixedString<4>("ab") == FixedString<4>(" ab"));
    EXPECT_TRUE(FixedString<4>("ab") != FixedString<4>("AB"));
}

TEST(FixedString, ComparesWithTextWithoutTheBlanksBehind) {
    const FixedString<4> text("ab");
    EXPECT_TRUE(text == "ab");
    EXPECT_TRUE("ab" == text);
    EXPECT_TRUE(text == std::string("ab      "));
    EXPECT_TRUE(text == std::string_view("ab "));
    EXPECT_TRUE(text != " ab");
    EXPECT_TRUE(FixedString<4>() == "");
}

TEST(FixedString, IsNeverEqualToATextThatDoesNotFit) {
    const FixedString<4> text("abcdef");
    EXPECT_TRUE(text == "abcd");
    EXPECT_FALSE(text == "abcdef");
}

TEST(FixedString, CopiesAreIndependent) {
    FixedString<4> first("abcd");
    const FixedString<4> second = first;
    first = "x";
    EXPECT_EQ(second.stored(), "abcd");
}

TEST(FixedString, BytesCanBeWrittenInPlace) {
    FixedString<3> text;
    text.data()[1] = 'q';
    EXPECT_EQ(text.stored(), " q ");
}

}  // namespace
}  // namespace tavernook
