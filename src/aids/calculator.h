// A pocket calculator of four functions and percent, apart from its window: what is pressed changes
// the record, and the window shows `Readout`.
//
// It works on the text of its display and from left to right. What is being typed bears a point
// ("12."), a result only where it has one. Its habits are deliberate: 200 + 10 percent is 20; a
// third operand, which Percent alone can bring, ends the reckoning until Cancel.
//
// An operand is the number that the display begins with. A lone "-" is none yet, and leaves the
// operand as it was.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// What a key has to tell beside the display. Where there is something, `Op1` is as it was.
enum class CalculatorNews { none, divided_by_zero, too_large, no_room };

struct CalculatorState {
    f64 Op1 = 0;  // also the result
    f64 Op2 = 0;
    bool DecimalFlag = false;
    i16 NumOps = 0;                  // operands held
    std::string LastInput = "NONE";  // "NUMS", "OPS", "Ops", "NEG", "CE"
    std::string OpFlag = " ";        // the pending one of + - X / = %
    std::string TempReadout;         // the display when an operator was pressed
    std::string Readout = "0.";

    // The keys. Digits are '0' to '9', operators '+', '-', 'X', '/', '='; others do nothing.
    CalculatorNews Number(char digit) noexcept;  // no_room: the display is full
    CalculatorNews Operator(char caption) noexcept;
    void Decimal() noexcept;
    void Percent() noexcept;
    void CancelEntry() noexcept;
    void Cancel() noexcept;

    // Nothing has been pressed since the last Cancel.
    bool is_reset() const noexcept;

    // The number as if typed in place of what stands there, with a decimal point or comma. False,
    // and nothing happens, for what is no number.
    bool type_number(std::string_view typed) noexcept;

    bool operator==(const CalculatorState&) const = default;

  private:
    void reset() noexcept;
    CalculatorNews work_out() noexcept;
};

}  // namespace tavernook
