// Numbers: 16-bit integers that fault instead of wrapping, and checked division.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "basics/fault.h"

namespace tavernook {

using i16 = std::int16_t;
using u16 = std::uint16_t;
using i32 = std::int32_t;
using i64 = std::int64_t;
using f64 = double;

// Truth values of settings and flags as the tables and files hold them.
inline constexpr i16 i16_true = -1;
inline constexpr i16 i16_false = 0;
constexpr i16 truth(bool value) {
    return value ? i16_true : i16_false;
}

// Stores a wider whole number into an i16. Fault 6 outside -32768..32767.
inline i16 to_i16(i64 value) {
    if (value < std::numeric_limits<i16>::min() || value > std::numeric_limits<i16>::max()) {
        throw Fault(fault_number::overflow);
    }
    return static_cast<i16>(value);
}

// Rounds a real number half to even and stores it. Fault 6 outside the range and for NaN.
inline i16 round_to_i16(f64 value) {
    // Coarse, so that the conversion to i32 is safe; to_i16 draws the exact border. Fails for NaN.
    if (!(value > -40000.0 && value < 40000.0)) throw Fault(fault_number::overflow);
    const f64 below = std::floor(value);
    const f64 rest = value - below;
    const i32 whole = static_cast<i32>(below);
    const bool up = rest > 0.5 || (rest == 0.5 && whole % 2 != 0);
    return to_i16(up ? whole + 1 : whole);
}

// Division of doubles. Fault 11 when the divisor is 0.
inline f64 divide(f64 dividend, f64 divisor) {
    if (divisor == 0.0) throw Fault(fault_number::division_by_zero);
    return dividend / divisor;
}

}  // namespace tavernook
