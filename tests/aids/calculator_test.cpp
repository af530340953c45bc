// The calculator key by key. What is expected is worked out by hand.
#include "aids/calculator.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace tavernook {
namespace {

class CalculatorKeys : public testing::Test {
  protected:
    // One letter a key: digits, "+-X/=", "." the point, "%" percent, "E" cancel entry, "C" cancel;
    // blanks between them are nothing.
    const std::string& press(std::string_view keys) {
        for (const char key : keys) press_one(key);
        return calculator.Readout;
    }
    void press_one(char key) {
        news = CalculatorNews::none;
        switch (key) {
            case ' ':
                break;
            case '.':
                calculator.Decimal();
                break;
            case '%':
                calculator.Percent();
                break;
            case 'E':
                calculator.CancelEntry();
                break;
            case 'C':
                calculator.Cancel();
                break;
            default:
                const bool is_digit = key >= '0' && key <= '9';
                news = is_digit ? calculator.Number(key) : calculator.Operator(key);
        }
    }
    // From the start.
    std::string after(std::string_view keys) {
        calculator = {};
        return press(keys);
    }

    CalculatorState calculator;
    CalculatorNews news = CalculatorNews::none;  // of the last key
};

TEST_F(CalculatorKeys, BeginsReset) {
    EXPECT_EQ(calculator.Readout, "0.");
    EXPECT_EQ(calculator.LastInput, "NONE");
    EXPECT_EQ(calculator.OpFlag, " ");
    EXPECT_EQ(calculator.NumOps, 0);
    EXPECT_FALSE(calculator.DecimalFlag);
    EXPECT_TRUE(calculator.is_reset());
}

TEST_F(CalculatorKeys, DigitsGoInFrontOfThePointUntilItIsPressed) {
    EXPECT_EQ(press("1"), "1.");
    EXPECT_EQ(press("2"), "12.");
    EXPECT_FALSE(calculator.DecimalFlag);
    EXPECT_EQ(press("."), "12.");
    EXPECT_TRUE(calculator.DecimalFlag);
    EXPECT_EQ(press("5"), "12.5");
    EXPECT_EQ(press("."), "12.5");
    EXPECT_EQ(press("05"), "12.505");
    EXPECT_EQ(calculator.LastInput, "NUMS");
}

TEST_F(CalculatorKeys, ALeadingZeroStays) {
    EXPECT_EQ(press("05"), "05.");
    EXPECT_EQ(press("+1="), "6");
}

TEST_F(CalculatorKeys, ThePointFirstHasAZeroInFront) {
    EXPECT_EQ(press("."), "0.");
    EXPECT_EQ(press("75"), "0.75");
    EXPECT_EQ(press("+.25="), "1");
}

TEST_F(CalculatorKeys, TheFourFunctions) {
    EXPECT_EQ(after("2+3="), "5");
    EXPECT_EQ(after("2-3="), "-1");
    EXPECT_EQ(after("2X3="), "6");
    EXPECT_EQ(after("2/4="), "0.5");
    EXPECT_EQ(calculator.NumOps, 1);
    EXPECT_EQ(calculator.LastInput, "OPS");
    EXPECT_EQ(calculator.OpFlag, "=");
    EXPECT_EQ(calculator.Op2, 4);
}

TEST_F(CalculatorKeys, ChainsGoFromLeftToRight) {
    EXPECT_EQ(press("2+3+"), "5");
    EXPECT_EQ(press("4"), "4.");
    EXPECT_EQ(press("X"), "9");
    EXPECT_EQ(press("2="), "18");
    EXPECT_EQ(press("-8="), "10");
}

TEST_F(CalculatorKeys, WhatIsTypedBehindAResultBeginsAnew) {
    EXPECT_EQ(after("2+3=7"), "7.");
    EXPECT_EQ(press("+1="), "8");
    EXPECT_EQ(after("2+3=.5"), "0.5");
    EXPECT_EQ(after("2+3="), "5");
    EXPECT_EQ(press("="), "5");
    EXPECT_EQ(press("="), "5");
}

TEST_F(CalculatorKeys, AnotherOperatorTakesThePlaceOfThePendingOne) {
    EXPECT_EQ(after("6+X2="), "12");
    EXPECT_EQ(after("6+/2="), "3");
    EXPECT_EQ(after("6=-2="), "4");
}

TEST_F(CalculatorKeys, AnOperatorBeforeAnyNumberIsPending) {
    EXPECT_EQ(press("+"), "0.");
    EXPECT_EQ(calculator.OpFlag, "+");
    EXPECT_EQ(calculator.NumOps, 0);
    EXPECT_EQ(press("5="), "5.");  // the first operand, not a result
    EXPECT_EQ(press("+1="), "6");
}

TEST_F(CalculatorKeys, DivisionByZeroIsToldAndTheFirstOperandStays) {
    EXPECT_EQ(press("8/0="), "8");
    EXPECT_EQ(news, CalculatorNews::divided_by_zero);
    EXPECT_EQ(calculator.Op1, 8);
    EXPECT_EQ(calculator.NumOps, 1);
    EXPECT_EQ(press("/2="), "4");
    EXPECT_EQ(news, CalculatorNews::none);
    EXPECT_EQ(after("8/-0="), "8");
    EXPECT_EQ(news, CalculatorNews::divided_by_zero);
    EXPECT_EQ(after("8/.00="), "8");
    EXPECT_EQ(news, CalculatorNews::divided_by_zero);
    EXPECT_EQ(after("0/8="), "0");
}

TEST_F(CalculatorKeys, MinusFirstGivesANegativeNumber) {
    EXPECT_EQ(press("-"), "-0.");
    EXPECT_EQ(calculator.LastInput, "NEG");
    EXPECT_EQ(calculator.OpFlag, " ");
    EXPECT_EQ(press("-"), "-0.");
    EXPECT_EQ(press("5"), "-5.");
    EXPECT_EQ(press("2"), "-52.");
    EXPECT_EQ(press("+2="), "-50");
    EXPECT_EQ(after("-.5"), "-0.5");
    EXPECT_EQ(press("X4="), "-2");
    EXPECT_EQ(after("E-3="), "-3.");
}

TEST_F(CalculatorKeys, MinusBehindAnOperatorBeginsANegativeOperand) {
    EXPECT_EQ(press("5-"), "5.");
    EXPECT_EQ(calculator.LastInput, "OPS");
    EXPECT_EQ(press("-"), "-");
    EXPECT_EQ(calculator.LastInput, "NEG");
    EXPECT_EQ(calculator.OpFlag, "-");
    EXPECT_EQ(press("3"), "-3.");
    EXPECT_EQ(press("="), "8");
    EXPECT_EQ(after("5X-.5="), "-2.5");
    EXPECT_EQ(after("6/-3="), "-2");
}

// Behind "=" it is the operator.
TEST_F(CalculatorKeys, MinusBehindAResultTakesAway) {
    EXPECT_EQ(press("5+1=-"), "6");
    EXPECT_EQ(calculator.LastInput, "OPS");
    EXPECT_EQ(press("2="), "4");
}

TEST_F(CalculatorKeys, ALoneMinusIsNoOperand) {
    EXPECT_EQ(after("5--+"), "-");
    EXPECT_EQ(calculator.Op1, 5);
    EXPECT_EQ(calculator.OpFlag, "-");  // it stays pending until a number has come
    EXPECT_EQ(press("3="), "8");
    EXPECT_EQ(after("5---="), "-");
    EXPECT_EQ(press("3="), "8");
    EXPECT_EQ(after("5--%"), "0");
    EXPECT_EQ(after("5--E"), "0.");
}

TEST_F(CalculatorKeys, PercentIsTheHundredthPart) {
    EXPECT_EQ(press("50%"), "0.5");
    EXPECT_EQ(calculator.LastInput, "Ops");
    EXPECT_EQ(calculator.OpFlag, "%");
    EXPECT_EQ(calculator.NumOps, 1);
    EXPECT_TRUE(calculator.DecimalFlag);
    EXPECT_EQ(press("X"), "0.5");
    EXPECT_EQ(press("4="), "2");
}

TEST_F(CalculatorKeys, PercentOfASecondOperandMultiplies) {
    EXPECT_EQ(press("200+10%"), "0.1");
    EXPECT_EQ(calculator.NumOps, 2);
    EXPECT_EQ(press("="), "20");
    EXPECT_EQ(after("200+10%+"), "20");
    EXPECT_EQ(press("1="), "21");
}

// No first operand has ever been taken: 0.
TEST_F(CalculatorKeys, ANumberBehindPercentMeetsNoFirstOperand) {
    EXPECT_EQ(press("50%3"), "3.");
    EXPECT_EQ(press("="), "0");
    EXPECT_EQ(after("8%%"), "0.0008");
    EXPECT_EQ(press("="), "0");
}

TEST_F(CalculatorKeys, MoreThanTwoOperandsEndTheReckoning) {
    EXPECT_EQ(press("8%%%"), "0.000008");
    EXPECT_EQ(calculator.NumOps, 3);
    EXPECT_EQ(press("+"), "0.000008");
    EXPECT_EQ(calculator.OpFlag, "+");
    EXPECT_EQ(calculator.LastInput, "OPS");
    EXPECT_EQ(press("2="), "2.");
    EXPECT_EQ(calculator.NumOps, 4);
    EXPECT_EQ(press("C2+3="), "5");
}

TEST_F(CalculatorKeys, ThePointBehindPercentBeginsANumber) {
    EXPECT_EQ(press("50%."), "0.");
    EXPECT_EQ(press("5"), "0.5");
    EXPECT_EQ(after("50%7"), "7.");
}

TEST_F(CalculatorKeys, CancelEntryTakesBackWhatIsTyped) {
    EXPECT_EQ(press("5+3E"), "0.");
    EXPECT_EQ(calculator.LastInput, "CE");
    EXPECT_EQ(calculator.OpFlag, "+");
    EXPECT_EQ(press("4="), "9");
    EXPECT_EQ(after("1.5E2"), "2.");
    EXPECT_EQ(after("1.5E.2"), "0.2");
    EXPECT_FALSE(calculator.is_reset());
}

// The display counts as the first operand then.
TEST_F(CalculatorKeys, AnOperatorBehindCancelEntryTakesTheDisplay) {
    EXPECT_EQ(press("5+3E="), "0.");
    EXPECT_EQ(calculator.Op1, 0);
    EXPECT_EQ(press("+2="), "2");
    EXPECT_EQ(after("5+E-"), "-");
    EXPECT_EQ(press("2="), "-2");
}

TEST_F(CalculatorKeys, CancelForgetsEverything) {
    press("5+3.5X");
    EXPECT_FALSE(calculator.is_reset());
    EXPECT_EQ(press("C"), "0.");
    EXPECT_TRUE(calculator.is_reset());
    calculator.TempReadout.clear();
    EXPECT_EQ(calculator, CalculatorState{});
    EXPECT_EQ(press("7="), "7.");
}

TEST_F(CalculatorKeys, DecimalFractionsAddUp) {
    EXPECT_EQ(after(".1+.2="), "0.3");
    EXPECT_EQ(after("-.1-.2="), "-0.3");
    EXPECT_EQ(after("1.1X1.1="), "1.21");
    EXPECT_EQ(after("7%"), "0.07");
    EXPECT_EQ(after("1/3="), "0.3333333333333333");
    EXPECT_EQ(press("X3="), "1");
    EXPECT_EQ(after("123456789X987654321="), "121932631112635260");
    EXPECT_EQ(after("99999999999999+1="), "100000000000000");
    EXPECT_EQ(after("999999999999999+2="), "1000000000000001");
}

TEST_F(CalculatorKeys, AResultBeyondAllNumbersIsToldAndTheOperandStays) {
    const std::string large = "1" + std::string(200, '0');
    EXPECT_EQ(press(large + "X" + large + "="), large);
    EXPECT_EQ(news, CalculatorNews::too_large);
    EXPECT_EQ(press("/" + large + "="), "1");
    EXPECT_EQ(news, CalculatorNews::none);
}

TEST_F(CalculatorKeys, AResultTooSmallForANumberIsZero) {
    const std::string small = "." + std::string(200, '0') + "1";
    EXPECT_EQ(press(small + "X" + small + "="), "0");
}

TEST_F(CalculatorKeys, AFullDisplayTakesNoMoreDigits) {
    press(std::string(299, '7'));
    EXPECT_EQ(news, CalculatorNews::none);
    EXPECT_EQ(calculator.Readout, std::string(299, '7') + ".");
    press("8");
    EXPECT_EQ(news, CalculatorNews::no_room);
    EXPECT_EQ(calculator.Readout, std::string(299, '7') + ".");
    EXPECT_EQ(press("-"), std::string(299, '7') + ".");
    EXPECT_EQ(press("1"), "1.");
}

TEST_F(CalculatorKeys, PercentForEverCountsNoFurtherThanItsNumber) {
    calculator.NumOps = 32766;
    press("%%%");
    EXPECT_EQ(calculator.NumOps, 32767);
    press("5+5+5=");
    EXPECT_EQ(calculator.NumOps, 32767);
}

TEST_F(CalculatorKeys, WhatIsNoKeyDoesNothing) {
    press("5");
    const CalculatorState before = calculator;
    for (const char key : {'a', 'x', '*', '\0', '\xE9'}) {
        EXPECT_EQ(calculator.Number(key), CalculatorNews::none);
        EXPECT_EQ(calculator.Operator(key), CalculatorNews::none);
    }
    EXPECT_EQ(calculator, before);
}

TEST_F(CalculatorKeys, ANumberFromElsewhereIsTyped) {
    EXPECT_TRUE(calculator.type_number(" 12.5 "));
    EXPECT_EQ(calculator.Readout, "12.5");
    EXPECT_EQ(press("7+"), "12.57");
    EXPECT_TRUE(calculator.type_number("-0,5"));
    EXPECT_EQ(calculator.Readout, "-0.5");
    EXPECT_EQ(press("="), "12.07");
    EXPECT_TRUE(calculator.type_number("+8"));
    EXPECT_EQ(calculator.Readout, "8.");
    EXPECT_TRUE(calculator.type_number("-.25"));
    EXPECT_EQ(calculator.Readout, "-0.25");
}

TEST_F(CalculatorKeys, WhatIsNoNumberIsNotTyped) {
    press("5+");
    const CalculatorState before = calculator;
    for (const std::string& text :
         {std::string(), std::string("abc"), std::string("1e5"), std::string("2 lb"),
          std::string("1/2"), std::string("-"), std::string("."), std::string(400, '9')}) {
        EXPECT_FALSE(calculator.type_number(text)) << text;
    }
    EXPECT_EQ(calculator, before);
}

bool shows_a_number(const std::string& display) {
    std::string_view rest = display;
    if (rest.starts_with('-')) rest.remove_prefix(1);
    const std::size_t points = static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '.'));
    const bool plain = rest.find_first_not_of("0123456789.") == std::string_view::npos;
    return plain && points <= 1 && (rest.size() > points || rest.empty());
}

TEST_F(CalculatorKeys, NoSequenceOfKeysBreaksTheDisplay) {
    std::mt19937 random(2511);
    constexpr std::string_view keys = "0123456789012345678900+-X/=+-X/=..%E";
    std::uniform_int_distribution<std::size_t> any(0, keys.size() - 1);
    for (int step = 0; step < 300'000; ++step) {
        const char key = random() % 40 == 0 ? 'C' : keys[any(random)];
        press_one(key);
        const CalculatorState& now = calculator;
        ASSERT_TRUE(shows_a_number(now.Readout)) << now.Readout << " behind " << key;
        ASSERT_TRUE(std::isfinite(now.Op1) && std::isfinite(now.Op2));
        const bool has_point = now.Readout.find('.') != std::string::npos;
        ASSERT_TRUE(now.LastInput != "NUMS" || has_point) << now.Readout;
        const bool begins = now.LastInput == "CE" || now.LastInput == "NONE";
        ASSERT_TRUE(!begins || now.Readout == "0.") << now.Readout;
        ASSERT_TRUE(now.Readout != "-" || now.LastInput == "NEG") << now.LastInput;
        ASSERT_GE(now.NumOps, 0);
    }
}

}  // namespace
}  // namespace tavernook
