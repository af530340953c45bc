#include "basics/values.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

constexpr f64 infinity = std::numeric_limits<f64>::infinity();
constexpr f64 not_a_number = std::numeric_limits<f64>::quiet_NaN();

TEST(Truth, IsMinusOneAndZero) {
    EXPECT_EQ(truth(true), -1);
    EXPECT_EQ(truth(false), 0);
    EXPECT_EQ(i16_true, -1);
    EXPECT_EQ(i16_false, 0);
}

TEST(ToI16, KeepsTheWholeRange) {
    for (i64 value = -32768; value <= 32767; ++value) EXPECT_EQ(to_i16(value), value);
}

TEST(ToI16, FaultsJustOutsideTheRangeAndFarFromIt) {
    for (const i64 value : {i64{-32769}, i64{32768}, i64{65536}, i64{-65536}, i64{1} << 32,
                            std::numeric_limits<i64>::max(), std::numeric_limits<i64>::min()}) {
        EXPECT_EQ(fault_of([&] { to_i16(value); }), 6) << value;
    }
}

TEST(RoundToI16, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(round_to_i16(0.5), 0);
    EXPECT_EQ(round_to_i16(1.5), 2);
    EXPECT_EQ(round_to_i16(2.5), 2);
    EXPECT_EQ(round_to_i16(3.5), 4);
    EXPECT_EQ(round_to_i16(-0.5), 0);
    EXPECT_EQ(round_to_i16(-1.5), -2);
    EXPECT_EQ(round_to_i16(-2.5), -2);
    EXPECT_EQ(round_to_i16(-3.5), -4);
    EXPECT_EQ(round_to_i16(32766.5), 32766);
    EXPECT_EQ(round_to_i16(-32767.5), -32768);
}

TEST(RoundToI16, EveryHalfOfTheRangeGoesToTheEvenNeighbour) {
    for (int below = -32768; below < 32767; ++below) {
        const int expected = below % 2 == 0 ? below : below + 1;
        ASSERT_EQ(round_to_i16(below + 0.5), expected) << below;
    }
}

TEST(RoundToI16, AllElseGoesToTheNearest) {
    EXPECT_EQ(round_to_i16(0.0), 0);
    EXPECT_EQ(round_to_i16(-0.0), 0);
    EXPECT_EQ(round_to_i16(7.0), 7);
    EXPECT_EQ(round_to_i16(std::nextafter(0.5, 0.0)), 0);
    EXPECT_EQ(round_to_i16(std::nextafter(0.5, 1.0)), 1);
    EXPECT_EQ(round_to_i16(std::nextafter(1.5, 0.0)), 1);
    EXPECT_EQ(round_to_i16(std::nextafter(-2.5, -3.0)), -3);
    EXPECT_EQ(round_to_i16(-0.4), 0);
    EXPECT_EQ(round_to_i16(-0.6), -1);
    EXPECT_EQ(round_to_i16(5e-324), 0);
    EXPECT_EQ(round_to_i16(-5e-324), 0);
}

TEST(RoundToI16, BordersAreJudgedAfterRounding) {
    EXPECT_EQ(round_to_i16(32767.0), 32767);
    EXPECT_EQ(round_to_i16(32767.4999), 32767);
    EXPECT_EQ(fault_of([] { round_to_i16(32767.5); }), 6);  // the even neighbour is 32768
    EXPECT_EQ(fault_of([] { round_to_i16(32768.0); }), 6);
    EXPECT_EQ(round_to_i16(-32768.5), -32768);  // here the even neighbour is inside
    EXPECT_EQ(fault_of([] { round_to_i16(std::nextafter(-32768.5, -infinity)); }), 6);
    EXPECT_EQ(fault_of([] { round_to_i16(-32769.0); }), 6);
}

TEST(RoundToI16, FaultsForWhatNoIntegerHolds) {
    for (const f64 value : {1e5, -1e5, 1e10, 1e300, -1e300, infinity, -infinity, not_a_number}) {
        EXPECT_EQ(fault_of([&] { round_to_i16(value); }), 6) << value;
    }
}

TEST(Divide, DividesDoubles) {
    EXPECT_EQ(divide(7.0, 2.0), 3.5);
    EXPECT_EQ(divide(-1.0, 4.0), -0.25);
    EXPECT_EQ(divide(0.0, 3.0), 0.0);
}

TEST(Divide, ByZeroIsAFaultAndNotInfinity) {
    EXPECT_EQ(fault_of([] { divide(1.0, 0.0); }), 11);
    EXPECT_EQ(fault_of([] { divide(1.0, -0.0); }), 11);
    EXPECT_EQ(fault_of([] { divide(0.0, 0.0); }), 11);
}

}  // namespace
}  // namespace tavernook
