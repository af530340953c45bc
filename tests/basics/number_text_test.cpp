#include "basics/number_text.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();

TEST(NumberText, IsTheShortestDecimalText) {
    EXPECT_EQ(number_text(0.0), "0");
    EXPECT_EQ(number_text(-0.0), "0");
    EXPECT_EQ(number_text(1.0), "1");
    EXPECT_EQ(number_text(-1.0), "-1");
    EXPECT_EQ(number_text(10.0), "10");
    EXPECT_EQ(number_text(1200.0), "1200");
    EXPECT_EQ(number_text(0.1), "0.1");
    EXPECT_EQ(number_text(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(number_text(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(number_text(2.675), "2.675");
    EXPECT_EQ(number_text(-1234.5), "-1234.5");
    EXPECT_EQ(number_text(100.25), "100.25");
}

TEST(NumberText, IsPlainWhateverTheSize) {
    EXPECT_EQ(number_text(0.00001), "0.00001");
    EXPECT_EQ(number_text(0.0000099), "0.0000099");
    EXPECT_EQ(number_text(-0.000012345678901234567), "-0.000012345678901234568");
    EXPECT_EQ(number_text(999999999999999), "999999999999999");
    EXPECT_EQ(number_text(999999999999999.9), "999999999999999.9");
    EXPECT_EQ(number_text(-1e15), "-1000000000000000");
    EXPECT_EQ(number_text(0.1 + 0.2), "0.30000000000000004");
}

TEST(NumberText, HasNoExponent) {
    EXPECT_EQ(number_text(1e15), "1" + std::string(15, '0'));
    EXPECT_EQ(number_text(1e22), "1" + std::string(22, '0'));
    EXPECT_EQ(number_text(1e23), "1" + std::string(23, '0'));
    EXPECT_EQ(number_text(1e300), "1" + std::string(300, '0'));
    EXPECT_EQ(number_text(1e-5), "0.00001");
    EXPECT_EQ(number_text(1.5e-7), "0.00000015");
    EXPECT_EQ(number_text(largest), "17976931348623157" + std::string(292, '0'));
    EXPECT_EQ(number_text(smallest), "0." + std::string(323, '0') + "5");
    EXPECT_EQ(number_text(-smallest), "-0." + std::string(323, '0') + "5");
}

TEST(NumberText, NamesWhatIsNoNumber) {
    EXPECT_EQ(number_text(infinity), "inf");
    EXPECT_EQ(number_text(-infinity), "-inf");
    EXPECT_EQ(number_text(not_a_number), "nan");
    EXPECT_EQ(number_text(-not_a_number), "nan");
}

void expect_plain_round_trip(double value) {
    const std::string text = number_text(value);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)),
              std::bit_cast<std::uint64_t>(value))
        << text;
    ASSERT_EQ(text.find_first_not_of("-0123456789."), std::string::npos) << text;
    ASSERT_NE(text.back(), '.') << text;
    if (text.find('.') != std::string::npos) {
        ASSERT_NE(text.back(), '0') << text;
    }
    ASSERT_EQ(leading_number(text), value) << text;
    ASSERT_EQ(whole_number_text(text), value) << text;
}

TEST(NumberText, RandomBitPatternsReadBackTheSame) {
    std::mt19937_64 random(20240229);
    int finite = 0;
    while (finite < 100000) {
        const auto value = std::bit_cast<double>(random());
        if (!std::isfinite(value) || value == 0.0) continue;
        ++finite;
        ASSERT_NO_FATAL_FAILURE(expect_plain_round_trip(value));
    }
}

TEST(NumberText, MoneyAndAmountsReadBackTheSameAndStayShort) {
    for (int cents = 1; cents <= 200000; ++cents) {
        const double value = cents / 100.0;
        ASSERT_NO_FATAL_FAILURE(expect_plain_round_trip(value));
        ASSERT_LE(number_text(value).size(), 7u) << cents;
    }
}

struct KnownText {
    double value;
    const char* mask;
    const char* text;
};

// Computed with decimal arithmetic, rounding half up.
constexpr KnownText known_texts[] = {
    {0.0, "#", ""},
    {-0.0, "#", ""},
    {0.5, "#", "1"},
    {-0.5, "#", "-1"},
    {1.5, "#", "2"},
    {2.5, "#", "3"},
    {0.05, "#", ""},
    {0.005, "#", ""},
    {0.045, "#", ""},
    {2.675, "#", "3"},
    {1.005, "#", "1"},
    {-1.005, "#", "-1"},
    {99.995, "#", "100"},
    {999.995, "#", "1000"},
    {123.456, "#", "123"},
    {1234.5, "#", "1235"},
    {1234567.891, "#", "1234568"},
    {-0.001, "#", ""},
    {-0.005, "#", ""},
    {1e-320, "#", ""},
    {7, "#", "7"},
    {1e15, "#", "1000000000000000"},
    {1.2345678901234567e+19, "#", "12345678901234567000"},
    {0.0, "##.00", ".00"},
    {-0.0, "##.00", ".00"},
    {0.5, "##.00", ".50"},
    {-0.5, "##.00", "-.50"},
    {1.5, "##.00", "1.50"},
    {2.5, "##.00", "2.50"},
    {0.05, "##.00", ".05"},
    {0.005, "##.00", ".01"},
    {0.045, "##.00", ".05"},
    {2.675, "##.00", "2.68"},
    {1.005, "##.00", "1.01"},
    {-1.005, "##.00", "-1.01"},
    {99.995, "##.00", "100.00"},
    {999.995, "##.00", "1000.00"},
    {123.456, "##.00", "123.46"},
    {1234.5, "##.00", "1234.50"},
    {1234567.891, "##.00", "1234567.89"},
    {-0.001, "##.00", ".00"},
    {-0.005, "##.00", "-.01"},
    {1e-320, "##.00", ".00"},
    {7, "##.00", "7.00"},
    {1e15, "##.00", "1000000000000000.00"},
    {1.2345678901234567e+19, "##.00", "12345678901234567000.00"},
    {0.0, "#0.0#", "0.0"},
    {-0.0, "#0.0#", "0.0"},
    {0.5, "#0.0#", "0.5"},
    {-0.5, "#0.0#", "-0.5"},
    {1.5, "#0.0#", "1.5"},
    {2.5, "#0.0#", "2.5"},
    {0.05, "#0.0#", "0.05"},
    {0.005, "#0.0#", "0.01"},
    {0.045, "#0.0#", "0.05"},
    {2.675, "#0.0#", "2.68"},
    {1.005, "#0.0#", "1.01"},
    {-1.005, "#0.0#", "-1.01"},
    {99.995, "#0.0#", "100.0"},
    {999.995, "#0.0#", "1000.0"},
    {123.456, "#0.0#", "123.46"},
    {1234.5, "#0.0#", "1234.5"},
    {1234567.891, "#0.0#", "1234567.89"},
    {-0.001, "#0.0#", "0.0"},
    {-0.005, "#0.0#", "-0.01"},
    {1e-320, "#0.0#", "0.0"},
    {7, "#0.0#", "7.0"},
    {1e15, "#0.0#", "1000000000000000.0"},
    {1.2345678901234567e+19, "#0.0#", "12345678901234567000.0"},
    {0.0, "#,##0.00", "0.00"},
    {-0.0, "#,##0.00", "0.00"},
    {0.5, "#,##0.00", "0.50"},
    {-0.5, "#,##0.00", "-0.50"},
    {1.5, "#,##0.00", "1.50"},
    {2.5, "#,##0.00", "2.50"},
    {0.05, "#,##0.00", "0.05"},
    {0.005, "#,##0.00", "0.01"},
    {0.045, "#,##0.00", "0.05"},
    {2.675, "#,##0.00", "2.68"},
    {1.005, "#,##0.00", "1.01"},
    {-1.005, "#,##0.00", "-1.01"},
    {99.995, "#,##0.00", "100.00"},
    {999.995, "#,##0.00", "1,000.00"},
    {123.456, "#,##0.00", "123.46"},
    {1234.5, "#,##0.00", "1,234.50"},
    {1234567.891, "#,##0.00", "1,234,567.89"},
    {-0.001, "#,##0.00", "0.00"},
    {-0.005, "#,##0.00", "-0.01"},
    {1e-320, "#,##0.00", "0.00"},
    {7, "#,##0.00", "7.00"},
    {1e15, "#,##0.00", "1,000,000,000,000,000.00"},
    {1.2345678901234567e+19, "#,##0.00", "12,345,678,901,234,567,000.00"},
    {0.0, ".00", ".00"},
    {-0.0, ".00", ".00"},
    {0.5, ".00", ".50"},
    {-0.5, ".00", "-.50"},
    {1.5, ".00", "1.50"},
    {2.5, ".00", "2.50"},
    {0.05, ".00", ".05"},
    {0.005, ".00", ".01"},
    {0.045, ".00", ".05"},
    {2.675, ".00", "2.68"},
    {1.005, ".00", "1.01"},
    {-1.005, ".00", "-1.01"},
    {99.995, ".00", "100.00"},
    {999.995, ".00", "1000.00"},
    {123.456, ".00", "123.46"},
    {1234.5, ".00", "1234.50"},
    {1234567.891, ".00", "1234567.89"},
    {-0.001, ".00", ".00"},
    {-0.005, ".00", "-.01"},
    {1e-320, ".00", ".00"},
    {7, ".00", "7.00"},
    {1e15, ".00", "1000000000000000.00"},
    {1.2345678901234567e+19, ".00", "12345678901234567000.00"},
};

TEST(FormatNumber, AgreesWithDecimalArithmetic) {
    for (const auto& [value, mask, text] : known_texts) {
        EXPECT_EQ(format_number(value, mask), text) << number_text(value) << " under " << mask;
    }
}

TEST(FormatNumber, ForcedDigitsAreAlwaysShown) {
    EXPECT_EQ(format_number(0, "#0.00"), "0.00");
    EXPECT_EQ(format_number(0, "##.00"), ".00");
    EXPECT_EQ(format_number(0, "0"), "0");
    EXPECT_EQ(format_number(0, "#"), "");
    EXPECT_EQ(format_number(123, "000000"), "000123");
    EXPECT_EQ(format_number(7, "000000"), "000007");
    EXPECT_EQ(format_number(5, "0##"), "005");
    EXPECT_EQ(format_number(5, "#0#"), "05");
    EXPECT_EQ(format_number(1, "0.#0#"), "1.00");
    EXPECT_EQ(format_number(1, "0.00##"), "1.00");
    EXPECT_EQ(format_number(1.23456, "0.00##"), "1.2346");
}

TEST(FormatNumber, MoreIntegerDigitsThanPlaceholdersAllShow) {
    EXPECT_EQ(format_number(123.456, "##.00"), "123.46");
    EXPECT_EQ(format_number(123456, "#"), "123456");
    EXPECT_EQ(format_number(1234567, "000"), "1234567");
    EXPECT_EQ(format_number(1234.5, "###.00"), "1234.50");
    EXPECT_EQ(format_number(12.5, ".0"), "12.5");
}

TEST(FormatNumber, ThePointOfTheMaskStands) {
    EXPECT_EQ(format_number(5, "#.##"), "5.");
    EXPECT_EQ(format_number(0, "#.##"), ".");
    EXPECT_EQ(format_number(5.1, "#.##"), "5.1");
    EXPECT_EQ(format_number(5, "#."), "5.");
    EXPECT_EQ(format_number(0.25, "$.00"), "$.25");
}

TEST(FormatNumber, TextAroundThePlaceholdersStands) {
    EXPECT_EQ(format_number(7.5, "%##.00"), "%7.50");
    EXPECT_EQ(format_number(7.5, "##.00%"), "7.50%");
    EXPECT_EQ(format_number(3, "about # pieces, or so."), "about 3 pieces, or so.");
    EXPECT_EQ(format_number(42, "No. 0000"), "No. 0042");
    EXPECT_EQ(format_number(2.5, "\xA3#0.00"),
              "\xA3"
              "2.50");
    EXPECT_EQ(format_number(5, "abc"), "abc");
    EXPECT_EQ(format_number(-5, "abc"), "abc");
    EXPECT_EQ(format_number(5, ""), "");
}

TEST(FormatNumber, TextBetweenThePlaceholdersStandsAtItsPlace) {
    EXPECT_EQ(format_number(5551234, "000-0000"), "555-1234");
    EXPECT_EQ(format_number(1234, "00 00"), "12 34");
    EXPECT_EQ(format_number(12345, "00 00"), "123 45");
    EXPECT_EQ(format_number(1.25, "0.0 0"), "1.2 5");
}

TEST(FormatNumber, CommasGroupByThrees) {
    EXPECT_EQ(format_number(999, "#,##0"), "999");
    EXPECT_EQ(format_number(1000, "#,##0"), "1,000");
    EXPECT_EQ(format_number(999999.5, "#,##0"), "1,000,000");
    EXPECT_EQ(format_number(1234567, "#,#"), "1,234,567");
    EXPECT_EQ(format_number(0, "#,###"), "");
    EXPECT_EQ(format_number(5, "0,000"), "0,005");
    EXPECT_EQ(format_number(-1234.5, "$#,##0.00"), "-$1,234.50");
    EXPECT_EQ(format_number(1234, ",0"), ",1234");        // before the first placeholder
    EXPECT_EQ(format_number(1234, "0, eh"), "1234, eh");  // behind the last
}

TEST(FormatNumber, HalvesOfTheDecimalTextGoAwayFromZero) {
    EXPECT_EQ(format_number(2.675, "#.00"), "2.68");
    EXPECT_EQ(format_number(1.005, "#.00"), "1.01");
    EXPECT_EQ(format_number(-2.675, "#.00"), "-2.68");
    EXPECT_EQ(format_number(0.5, "#"), "1");
    EXPECT_EQ(format_number(0.49999999999999994, "#"), "");
    EXPECT_EQ(format_number(1.4999999999999998, "0"), "1");
    EXPECT_EQ(format_number(0.05, "0.0"), "0.1");
    EXPECT_EQ(format_number(0.04, "0.0"), "0.0");
    EXPECT_EQ(format_number(9.995, "0.00"), "10.00");
    EXPECT_EQ(format_number(99.5, "##"), "100");
    EXPECT_EQ(format_number(0.95, "#.#"), "1.");
    EXPECT_EQ(format_number(1.996, "#.##"), "2.");
    EXPECT_EQ(format_number(1.003, "#.##"), "1.");
}

TEST(FormatNumber, EveryHalfCentGoesUp) {
    for (int cents = 0; cents < 100000; ++cents) {
        const std::string text =
            std::to_string(cents / 100) + "." + std::to_string(100 + cents % 100).substr(1) + "5";
        const int up = cents + 1;
        const std::string expected =
            std::to_string(up / 100) + "." + std::to_string(100 + up % 100).substr(1);
        ASSERT_EQ(format_number(std::strtod(text.c_str(), nullptr), "0.00"), expected) << text;
    }
}

TEST(FormatNumber, MinusStandsInFrontOfTheWholeText) {
    EXPECT_EQ(format_number(-7.5, "%##.00"), "-%7.50");
    EXPECT_EQ(format_number(-5, "owed # coins"), "-owed 5 coins");
    EXPECT_EQ(format_number(-0.5, "##.00"), "-.50");
}

TEST(FormatNumber, ZeroShownHasNoMinus) {
    EXPECT_EQ(format_number(-0.001, "#.00"), ".00");
    EXPECT_EQ(format_number(-0.0, "0"), "0");
    EXPECT_EQ(format_number(-0.4, "#"), "");
    EXPECT_EQ(format_number(-0.4, "5# pieces"), "5 pieces");
    EXPECT_EQ(format_number(-0.005, "#.00"), "-.01");
}

TEST(FormatNumber, TakesHugeAndTinyNumbers) {
    EXPECT_EQ(format_number(1e22, "#"), "1" + std::string(22, '0'));
    EXPECT_EQ(format_number(1e300, "#0.00"), "1" + std::string(300, '0') + ".00");
    EXPECT_EQ(format_number(largest, "#"), "17976931348623157" + std::string(292, '0'));
    EXPECT_EQ(format_number(1e-320, "#0.00"), "0.00");
    EXPECT_EQ(format_number(-smallest, "#0.00"), "0.00");
    EXPECT_EQ(format_number(1e-320, "0." + std::string(320, '0')),
              "0." + std::string(319, '0') + "1");
    EXPECT_EQ(format_number(1e6, "#,##0"), "1,000,000");
}

TEST(FormatNumber, NamesWhatIsNoNumber) {
    EXPECT_EQ(format_number(infinity, "#0.00"), "inf");
    EXPECT_EQ(format_number(-infinity, "#0.00"), "-inf");
    EXPECT_EQ(format_number(not_a_number, "#0.00"), "nan");
}

TEST(LeadingNumber, TakesTheLongestPrefix) {
    EXPECT_EQ(leading_number("12"), 12.0);
    EXPECT_EQ(leading_number("12.5 cups"), 12.5);
    EXPECT_EQ(leading_number("   12"), 12.0);
    EXPECT_EQ(leading_number("-3.25x"), -3.25);
    EXPECT_EQ(leading_number("+3.25"), 3.25);
    EXPECT_EQ(leading_number(".5"), 0.5);
    EXPECT_EQ(leading_number("-.5"), -0.5);
    EXPECT_EQ(leading_number("5."), 5.0);
    EXPECT_EQ(leading_number("1.2.3"), 1.2);
    EXPECT_EQ(leading_number("1,000"), 1.0);
    EXPECT_EQ(leading_number("1/2"), 1.0);
    EXPECT_EQ(leading_number("007"), 7.0);
    EXPECT_EQ(leading_number("1 2"), 1.0);
}

TEST(LeadingNumber, KnowsNoExponentAndNoOtherNotation) {
    EXPECT_EQ(leading_number("1e5"), 1.0);
    EXPECT_EQ(leading_number("1.5E+3"), 1.5);
    EXPECT_EQ(leading_number("2d3"), 2.0);
    EXPECT_EQ(leading_number("0x10"), 0.0);
    EXPECT_EQ(leading_number("&H10"), 0.0);
    EXPECT_EQ(leading_number("inf"), 0.0);
    EXPECT_EQ(leading_number("nan"), 0.0);
}

TEST(LeadingNumber, IsZeroWhereThereIsNone) {
    for (const char* text :
         {"", " ", "-", "+", ".", "-.", "abc", "$5", "- 5", "--5", "+-5", "..5", "\t5",
          "\xA0"
          "5",
          "(5)"}) {
        EXPECT_EQ(leading_number(text), 0.0) << text;
    }
}

TEST(LeadingNumber, TakesAnyNumberOfDigits) {
    EXPECT_EQ(leading_number("1" + std::string(300, '0')), 1e300);
    EXPECT_EQ(leading_number(std::string(5000, '0') + "7"), 7.0);
    EXPECT_EQ(leading_number("0." + std::string(323, '0') + "5"), smallest);
    EXPECT_EQ(leading_number("0." + std::string(5000, '0') + "5"), 0.0);
    EXPECT_EQ(leading_number("." + std::string(5000, '0') + "5"), 0.0);
    EXPECT_EQ(leading_number("1" + std::string(400, '0')), infinity);
    EXPECT_EQ(leading_number("-1" + std::string(400, '0') + ".5"), -infinity);
}

TEST(WholeNumberText, TakesNumbersWithBlanksAround) {
    EXPECT_EQ(whole_number_text("12"), 12.0);
    EXPECT_EQ(whole_number_text("  -12.75  "), -12.75);
    EXPECT_EQ(whole_number_text("+.5"), 0.5);
    EXPECT_EQ(whole_number_text("5."), 5.0);
    EXPECT_EQ(whole_number_text("0"), 0.0);
    EXPECT_EQ(whole_number_text("0.1"), 0.1);
}

TEST(WholeNumberText, EverythingElseIsATypeMismatch) {
    for (const char* text :
         {"",    "   ", "-",   "+",   ".",  "-.",   "12 cups", "1 2", "1,000", "1e5", "1.2.3",
          "abc", "$5",  "--5", "- 5", "5-", "0x10", "inf",     "nan", "5\t",   "5\n"}) {
        EXPECT_EQ(fault_of([&] { whole_number_text(text); }), 13) << text;
    }
    EXPECT_EQ(fault_of([] { whole_number_text(std::string("5\0", 2)); }), 13);
}

TEST(WholeNumberText, DigitsBeyondTheRangeOverflow) {
    EXPECT_EQ(fault_of([] { whole_number_text("1" + std::string(400, '0')); }), 6);
    EXPECT_EQ(fault_of([] { whole_number_text("-1" + std::string(400, '0')); }), 6);
    EXPECT_EQ(whole_number_text("1" + std::string(308, '0')), 1e308);
}

}  // namespace
}  // namespace tavernook
