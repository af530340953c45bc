// Search strings against values.
#include "reports/report_pattern.h"

#include <limits>

#include "reports/reports_fixture.h"

namespace tavernook {
namespace {

bool text_matches(const std::string& pattern, std::string_view text) {
    return ReportPattern(pattern).matches({ValueKind::text, text, 0});
}

bool number_matches(const std::string& pattern, f64 number) {
    return ReportPattern(pattern).matches({ValueKind::number, {}, number});
}

bool date_matches(const std::string& pattern, Date date) {
    return ReportPattern(pattern).matches({ValueKind::date, {}, date});
}

TEST(SpecialOps, TellWhereTheStarsAre) {
    EXPECT_EQ(special_ops(""), 0);
    EXPECT_EQ(special_ops("milk"), 0);
    EXPECT_EQ(special_ops("mi*lk"), 0);
    EXPECT_EQ(special_ops("*milk"), 1);
    EXPECT_EQ(special_ops("milk*"), 2);
    EXPECT_EQ(special_ops("*milk*"), 3);
    EXPECT_EQ(special_ops("*"), 3);
    EXPECT_EQ(special_ops("**"), 3);
    EXPECT_EQ(special_ops("* "), 1);
    EXPECT_EQ(special_ops(" *"), 2);
}

TEST(ReportPattern, AStarMatchesEverything) {
    EXPECT_TRUE(text_matches("*", ""));
    EXPECT_TRUE(text_matches("*", "anything"));
    EXPECT_TRUE(number_matches("*", std::numeric_limits<f64>::quiet_NaN()));
    EXPECT_TRUE(date_matches("*", 1e300));
    EXPECT_TRUE(ReportPattern("*").matches_everything());
    EXPECT_TRUE(text_matches("**", ""));
    EXPECT_TRUE(date_matches("**", 0));
}

TEST(ReportPattern, WithoutAStarItIsTheWholeText) {
    EXPECT_TRUE(text_matches("milk", "Milk"));
    EXPECT_TRUE(text_matches("MILK", "  milk   "));
    EXPECT_FALSE(text_matches("milk", "Milk Chocolate"));
    EXPECT_FALSE(text_matches("milk", "mil"));
    EXPECT_TRUE(text_matches("", "    "));
    EXPECT_FALSE(text_matches("", "x"));
}

TEST(ReportPattern, BlanksAroundItCount) {
    EXPECT_FALSE(text_matches(" milk", " milk"));
    EXPECT_FALSE(text_matches("milk ", "milk "));
    EXPECT_FALSE(text_matches("* milk", "Whole milk"));
    EXPECT_FALSE(text_matches("whole *", "Whole milk"));
    EXPECT_TRUE(text_matches("* milk*", "Whole milk"));
    EXPECT_FALSE(text_matches("* milk*", "milk"));
    EXPECT_FALSE(text_matches("* milk*", "  milk"));
    EXPECT_FALSE(text_matches("*milk *", "milk   "));
    EXPECT_FALSE(text_matches("* *", "milk   "));
    EXPECT_TRUE(text_matches("* *", "whole milk   "));
}

TEST(ReportPattern, BehindAStarItIsTheEnd) {
    EXPECT_TRUE(text_matches("*MILK", "Whole milk   "));
    EXPECT_TRUE(text_matches("*milk", "milk"));
    EXPECT_FALSE(text_matches("*milk", "Milk Chocolate"));
    EXPECT_FALSE(text_matches("*milk", "ilk"));
    EXPECT_FALSE(text_matches("*milk", ""));
}

TEST(ReportPattern, BeforeAStarItIsTheStart) {
    EXPECT_TRUE(text_matches("milk*", "Milk Chocolate"));
    EXPECT_TRUE(text_matches("milk*", "   milk"));
    EXPECT_FALSE(text_matches("milk*", "Whole milk"));
    EXPECT_FALSE(text_matches("milk*", "mil"));
}

TEST(ReportPattern, BetweenStarsItIsAnyPart) {
    EXPECT_TRUE(text_matches("*MILK*", "Whole milk"));
    EXPECT_TRUE(text_matches("*le mi*", "Whole milk"));
    EXPECT_FALSE(text_matches("*milk*", "Whole mil k"));
    EXPECT_TRUE(text_matches("***", "a*b"));
    EXPECT_FALSE(text_matches("***", "ab"));
    EXPECT_TRUE(text_matches("*a*b*", "xa*by"));
    EXPECT_FALSE(text_matches("*a*b*", "xaby"));
}

TEST(ReportPattern, AccentedLettersAreCaseBlind) {
    EXPECT_TRUE(text_matches("*\xC9*", "caf\xE9"));
    EXPECT_TRUE(text_matches("*\xE9", "CAF\xC9"));
    EXPECT_FALSE(text_matches("*\xD7*", "\xF7"));  // the signs of times and divided by
}

TEST(ReportPattern, OperatorsCompareLeadingNumbers) {
    EXPECT_TRUE(number_matches("<3", 2.5));
    EXPECT_FALSE(number_matches("<3", 3));
    EXPECT_TRUE(number_matches(">3", 3.5));
    EXPECT_FALSE(number_matches(">3", 3));
    EXPECT_TRUE(number_matches("=3", 3));
    EXPECT_FALSE(number_matches("=3", 3.001));
    EXPECT_TRUE(number_matches("!3", 4));
    EXPECT_FALSE(number_matches("!3", 3));
    EXPECT_TRUE(number_matches("=-0.5", -0.5));
    EXPECT_TRUE(number_matches("=  12 oz", 12));
    EXPECT_TRUE(number_matches(">beans", 1));
    EXPECT_TRUE(number_matches("=0.1", 0.1));
}

TEST(ReportPattern, AnOperatorAloneComparesWith0) {
    EXPECT_TRUE(number_matches("=", 0));
    EXPECT_FALSE(number_matches("=", 1));
    EXPECT_TRUE(number_matches("<", -1));
    EXPECT_FALSE(number_matches("<", 0));
    EXPECT_TRUE(number_matches(">", 1));
    EXPECT_TRUE(number_matches("!", 1));
    EXPECT_FALSE(number_matches("!", 0));
}

TEST(ReportPattern, OperatorsReadTextsToo) {
    EXPECT_TRUE(text_matches("=12", "12 oz"));
    EXPECT_TRUE(text_matches("=12", "   12 oz"));
    EXPECT_TRUE(text_matches("=0", "beans"));
    EXPECT_TRUE(text_matches("=0", ""));
    EXPECT_TRUE(text_matches(">0", "3 beans"));
    EXPECT_FALSE(text_matches(">0", "beans"));
    EXPECT_FALSE(text_matches(">0", "-3 beans"));
}

TEST(ReportPattern, AStarBehindAnOperatorIsNone) {
    EXPECT_TRUE(number_matches("=3*", 3));
    EXPECT_FALSE(text_matches("=*", "5"));
    EXPECT_TRUE(text_matches("*=*", "a=b"));
}

TEST(ReportPattern, OperatorsCompareTheMonthOfADate) {
    EXPECT_TRUE(date_matches("=5", may_15));
    EXPECT_FALSE(date_matches("=15", may_15));
    EXPECT_TRUE(date_matches(">4", may_15));
    EXPECT_TRUE(date_matches("<6/1/2020", may_15));
    EXPECT_TRUE(date_matches("=12", 0));     // "12:00:00 AM"
    EXPECT_TRUE(date_matches("=0", 1e300));  // no day of a calendar: blank
}

TEST(ReportPattern, NumbersMatchByTheirText) {
    EXPECT_TRUE(number_matches("12.5", 12.5));
    EXPECT_FALSE(number_matches("12.50", 12.5));
    EXPECT_TRUE(number_matches("*.5", 12.5));
    EXPECT_TRUE(number_matches("12*", 12.5));
    EXPECT_TRUE(number_matches("*2.*", 12.5));
    EXPECT_TRUE(number_matches("-*", -3));
    EXPECT_FALSE(number_matches("*a*", 12.5));
    EXPECT_FALSE(number_matches("12.5 oz", 12.5));
    EXPECT_FALSE(number_matches("*/*", 12.5));
}

TEST(ReportPattern, NumbersThatAreNoneHaveLetters) {
    EXPECT_TRUE(number_matches("*a*", std::numeric_limits<f64>::quiet_NaN()));
    EXPECT_TRUE(number_matches("INF", std::numeric_limits<f64>::infinity()));
    EXPECT_TRUE(number_matches("=0", std::numeric_limits<f64>::quiet_NaN()));
    EXPECT_TRUE(number_matches("=0", -std::numeric_limits<f64>::infinity()));
}

TEST(ReportPattern, DatesMatchByTheirText) {
    EXPECT_TRUE(date_matches("5/15/2024", may_15));
    EXPECT_TRUE(date_matches("5/15/2024", may_15 + 0.5));
    EXPECT_FALSE(date_matches("05/15/2024", may_15));
    EXPECT_TRUE(date_matches("*2024", may_15));
    EXPECT_TRUE(date_matches("5/*", may_15));
    EXPECT_TRUE(date_matches("*/15/*", may_15));
    EXPECT_FALSE(date_matches("*am*", may_15));
}

TEST(ReportPattern, Date0IsMidnight) {
    EXPECT_TRUE(date_matches("*am*", 0));
    EXPECT_TRUE(date_matches("12:00:00 am", 0));
    EXPECT_TRUE(date_matches("*00 AM", 0));
    EXPECT_TRUE(date_matches("*:*", 0));
    EXPECT_FALSE(date_matches("*p*", 0));
}

// Sparing a text must not change an answer: what is held against the text itself.
TEST(ReportPattern, AValueMatchesAsItsTextDoes) {
    std::vector<ReportValue> values;
    const f64 nan = std::numeric_limits<f64>::quiet_NaN();
    const f64 endless = std::numeric_limits<f64>::infinity();
    for (const f64 number :
         {0.0, -0.0, 1.0, -1.0, 12.5, 0.1, 1e23, 1e-9, -0.25, nan, endless, -endless, may_15, -0.75,
          may_15 + 0.5, 1e300, -700000.0, 2958465.9999999}) {
        values.push_back({ValueKind::number, {}, number});
        values.push_back({ValueKind::date, {}, number});
    }
    for (const char* pattern :
         {"*",   "**",  "",          "0",   "1",      "12*",  "*5",  "*1*", "*a*",
          "*n*", "*/*", "5/15/2024", "*AM", "*00 am", "12:*", "* *", "*.*", "-*",
          "<1",  ">1",  "=0",        "!0",  "=12",    "<=>",  "inf"}) {
        for (const ReportValue& value : values) {
            const std::string text = value_text(value);
            EXPECT_EQ(ReportPattern(pattern).matches(value),
                      ReportPattern(pattern).matches({ValueKind::text, text, 0}))
                << pattern << " against " << text;
        }
    }
}

class IsMatch : public ReportsTest {};

TEST_F(IsMatch, TestsAgainstTheSearchStringOfItsRow) {
    search_string(5) = ">3";
    search_string(100) = "milk";
    EXPECT_TRUE(IS_Match(filter, 0, {ValueKind::number, {}, 4}, 5));
    EXPECT_FALSE(IS_Match(filter, 0, {ValueKind::number, {}, 3}, 5));
    EXPECT_TRUE(IS_Match(filter, 1, {ValueKind::text, "Milk", 0}, 100));
    EXPECT_TRUE(IS_Match(filter, 1, {ValueKind::text, "Milk", 0}, 6));
}

TEST_F(IsMatch, ARowThatIsNoneIsTold) {
    for (const int row : {-1, 101}) {
        platform.boxes.expect_message(
            "Error in the IS_MATCH routine, Error = 9 Description = Subscript out of range");
        EXPECT_FALSE(IS_Match(filter, 0, {}, row));
    }
}

}  // namespace
}  // namespace tavernook
