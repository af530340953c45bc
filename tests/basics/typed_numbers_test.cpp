#include "basics/typed_numbers.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tavernook {
namespace {

TEST(TypedNumbers, ALoneCommaBeforeADigitIsTheDecimalPoint) {
    EXPECT_EQ(with_decimal_point("1,5"), "1.5");
    EXPECT_EQ(with_decimal_point(" 1,5 kg"), " 1.5 kg");
    EXPECT_EQ(with_decimal_point(",5"), ".5");
    EXPECT_EQ(with_decimal_point("1.5"), "1.5");
    EXPECT_EQ(with_decimal_point("1,234.5"), "1,234.5");
    EXPECT_EQ(with_decimal_point("1,2,3"), "1,2,3");
    EXPECT_EQ(with_decimal_point("5,"), "5,");
    EXPECT_EQ(with_decimal_point("2, or 3"), "2, or 3");
    EXPECT_EQ(with_decimal_point(""), "");
}

TEST(TypedNumbers, ReadAsOneNumberWithOrWithoutAUnit) {
    for (const char* fine :
         {"", "  ", "0", "12", "-1", "+2", "1.5", "1,5", ".5", "3 kg", "3kg", "2 cup(s)", "7."}) {
        EXPECT_TRUE(reads_as_number(fine)) << fine;
    }
    for (const char* odd : {"abc", "kg 3", "1/2", "2 1/2", "1.2.3", "1,2,3", "1,234.5", "-", ".",
                            "$5", "5%", "3 x 4"}) {
        EXPECT_FALSE(reads_as_number(odd)) << odd;
    }
}

TEST(TypedNumbers, IsTheWholeTextWithPointOrComma) {
    EXPECT_EQ(typed_number(" 2,5 "), 2.5);
    EXPECT_EQ(typed_number("-2.5"), -2.5);
    EXPECT_EQ(typed_number("4x"), std::nullopt);
    EXPECT_EQ(typed_number("1,2,3"), std::nullopt);
    EXPECT_EQ(typed_number(""), std::nullopt);
}

TEST(TypedNumbers, AreFinite) {
    EXPECT_EQ(typed_number(std::string(400, '9')), std::nullopt);
    EXPECT_EQ(typed_number("-" + std::string(400, '9')), std::nullopt);
    EXPECT_EQ(typed_number("inf"), std::nullopt);
    EXPECT_EQ(typed_number("nan"), std::nullopt);
    EXPECT_EQ(typed_number(std::string("4\0", 2)), std::nullopt);
}

}  // namespace
}  // namespace tavernook
