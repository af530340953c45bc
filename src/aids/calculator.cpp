#include "aids/calculator.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "basics/number_text.h"
#include "basics/text.h"
#include "basics/typed_numbers.h"

namespace tavernook {

namespace {

// Far more than anybody types, and far less than a number can be.
constexpr std::size_t full_display = 300;

constexpr std::string_view digits = "0123456789";
constexpr std::string_view operators = "+-X/=";

f64 operand(const std::string& display, f64 before) {
    const bool is_number = display.find_first_of(digits) != std::string::npos;
    return is_number ? leading_number(display) : before;
}

i16 one_more(i16 count) {
    return count < std::numeric_limits<i16>::max() ? to_i16(count + 1) : count;
}

// 0.1 + 0.2 is 0.3: a fraction that comes to twelve digits but for its last few bits is meant so.
f64 without_last_bits(f64 result) {
    if (result == std::trunc(result)) return result;
    char text[40];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, result, std::chars_format::scientific, 14);
    const std::string_view shown(text, static_cast<std::size_t>(end.ptr - text));
    const std::string_view written = shown.substr(0, shown.find('e'));
    const std::size_t sign_and_point = written.front() == '-' ? 2 : 1;
    if (written.find_last_not_of('0') >= 12 + sign_and_point) return result;
    f64 meant = result;
    const bool is_read = std::from_chars(shown.data(), end.ptr, meant).ec == std::errc{};
    return is_read ? meant : result;
}

}  // namespace

CalculatorNews CalculatorState::Number(char digit) noexcept {
    if (digits.find(digit) == std::string_view::npos) return CalculatorNews::none;
    if (LastInput != "NUMS") {
        Readout = ".";
        DecimalFlag = false;
    }
    if (Readout.size() >= full_display) return CalculatorNews::no_room;
    if (DecimalFlag) {
        Readout += digit;
    } else {
        Readout = Readout.substr(0, Readout.find('.')) + digit + '.';
    }
    if (LastInput == "NEG") Readout.insert(0, 1, '-');
    LastInput = "NUMS";
    return CalculatorNews::none;
}

CalculatorNews CalculatorState::Operator(char caption) noexcept {
    if (operators.find(caption) == std::string_view::npos) return CalculatorNews::none;
    const bool is_minus = caption == '-';
    CalculatorNews news = CalculatorNews::none;
    TempReadout = Readout;
    if (LastInput == "NUMS") NumOps = one_more(NumOps);
    if (NumOps == 0 && is_minus && LastInput != "NEG") {
        Readout.insert(0, 1, '-');
        LastInput = "NEG";
    } else if (NumOps == 1) {
        Op1 = operand(Readout, Op1);
        if (is_minus && LastInput != "NUMS" && OpFlag != "=") {
            Readout = "-";
            LastInput = "NEG";
        }
    } else if (NumOps == 2) {
        Op2 = operand(TempReadout, Op2);
        news = work_out();
        Readout = number_text(Op1);
        NumOps = 1;
    }
    if (LastInput != "NEG") {
        LastInput = "OPS";
        OpFlag = caption;
    }
    return news;
}

CalculatorNews CalculatorState::work_out() noexcept {
    f64 result = Op1;
    switch (OpFlag[0]) {
        case '+':
            result = Op1 + Op2;
            break;
        case '-':
            result = Op1 - Op2;
            break;
        case '/':
            if (Op2 == 0) return CalculatorNews::divided_by_zero;
            result = Op1 / Op2;
            break;
        case 'X':
        case '%':
            result = Op1 * Op2;
            break;
        case '=':
            result = Op2;
            break;
    }
    if (!std::isfinite(result)) return CalculatorNews::too_large;
    Op1 = without_last_bits(result);
    return CalculatorNews::none;
}

void CalculatorState::Decimal() noexcept {
    if (LastInput == "NEG") {
        Readout = "-0.";
    } else if (LastInput != "NUMS") {
        Readout = "0.";
    }
    DecimalFlag = true;
    LastInput = "NUMS";
}

void CalculatorState::Percent() noexcept {
    Readout = number_text(without_last_bits(operand(Readout, 0) / 100));
    LastInput = "Ops";
    OpFlag = "%";
    NumOps = one_more(NumOps);
    DecimalFlag = true;
}

void CalculatorState::CancelEntry() noexcept {
    Readout = "0.";
    DecimalFlag = false;
    LastInput = "CE";
}

void CalculatorState::Cancel() noexcept {
    Op1 = 0;
    Op2 = 0;
    reset();
}

void CalculatorState::reset() noexcept {
    DecimalFlag = false;
    NumOps = 0;
    LastInput = "NONE";
    OpFlag = " ";
    Readout = "0.";
}

bool CalculatorState::is_reset() const noexcept {
    return LastInput == "NONE";
}

bool CalculatorState::type_number(std::string_view typed) noexcept {
    std::string text = with_decimal_point(trim(typed));
    if (!typed_number(text) || text.size() >= full_display) return false;
    CancelEntry();
    if (text.front() == '-') LastInput = "NEG";
    for (const char sign : text) {
        if (sign == '.') {
            Decimal();
        } else {
            Number(sign);
        }
    }
    return true;
}

}  // namespace tavernook
