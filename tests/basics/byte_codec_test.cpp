#include "basics/byte_codec.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

using namespace std::string_literals;

TEST(ByteReader, ReadsTheLowByteFirst) {
    const std::string bytes =
        "\x34\x12"
        "\xFE\xFF"
        "\xFE\xFF"
        "\x78\x56\x34\x12"
        "\x00\x00\x00\x80"s;
    ByteReader reader(bytes);
    EXPECT_EQ(reader.read_i16(), 0x1234);
    EXPECT_EQ(reader.read_i16(), -2);
    EXPECT_EQ(reader.read_u16(), 65534);
    EXPECT_EQ(reader.read_i32(), 0x12345678);
    EXPECT_EQ(reader.read_i32(), std::numeric_limits<i32>::min());
    EXPECT_EQ(reader.left(), 0u);
}

TEST(ByteReader, ReadsDoubles) {
    // 1.5 is sign 0, exponent 3FF, fraction 8000000000000; -2 is C000000000000000.
    const std::string bytes =
        "\x00\x00\x00\x00\x00\x00\xF8\x3F"
        "\x00\x00\x00\x00\x00\x00\x00\xC0"s;
    ByteReader reader(bytes);
    EXPECT_EQ(reader.read_f64(), 1.5);
    EXPECT_EQ(reader.read_f64(), -2.0);
}

TEST(ByteReader, ReadsFromAnyAddress) {
    const std::string bytes = "x\x00\x00\x00\x00\x00\x00\xF8\x3F"s;
    ByteReader reader(bytes);
    reader.skip(1);
    EXPECT_EQ(reader.read_f64(), 1.5);
}

TEST(ByteReader, ReadsFixedTextsWithTheirPadding) {
    const std::string bytes = "ab\0 cd  "s;
    ByteReader reader(bytes);
    FixedString<4> first;
    FixedString<4> second;
    reader.read_fixed(first);
    reader.read_fixed(second);
    EXPECT_EQ(first.stored(), "ab\0 "s);
    EXPECT_EQ(second.stored(), "cd  ");
}

TEST(ByteReader, TakenBytesLieInTheSource) {
    const std::string bytes = "abcdef";
    ByteReader reader(bytes);
    reader.skip(2);
    const std::string_view part = reader.take(3);
    EXPECT_EQ(part, "cde");
    EXPECT_EQ(part.data(), bytes.data() + 2);
    EXPECT_EQ(reader.offset(), 5u);
    EXPECT_EQ(reader.left(), 1u);
    EXPECT_EQ(reader.take(0), "");
}

TEST(ByteReader, FaultsAtTheEndAndKeepsItsPlace) {
    const std::string bytes = "abc";
    ByteReader reader(bytes);
    reader.skip(2);
    FixedString<2> text("zz");
    EXPECT_EQ(fault_of([&] { reader.read_i16(); }), 62);
    EXPECT_EQ(fault_of([&] { reader.read_u16(); }), 62);
    EXPECT_EQ(fault_of([&] { reader.read_i32(); }), 62);
    EXPECT_EQ(fault_of([&] { reader.read_f64(); }), 62);
    EXPECT_EQ(fault_of([&] { reader.read_fixed(text); }), 62);
    EXPECT_EQ(fault_of([&] { reader.take(2); }), 62);
    EXPECT_EQ(fault_of([&] { reader.skip(2); }), 62);
    EXPECT_EQ(reader.offset(), 2u);
    EXPECT_EQ(text.stored(), "zz");
    EXPECT_EQ(reader.take(1), "c");
}

TEST(ByteReader, HugeCountsFaultToo) {
    ByteReader reader("abc");
    reader.skip(1);
    EXPECT_EQ(fault_of([&] { reader.take(std::numeric_limits<std::size_t>::max()); }), 62);
    EXPECT_EQ(fault_of([&] { reader.skip(std::numeric_limits<std::size_t>::max() - 1); }), 62);
    EXPECT_EQ(reader.left(), 2u);
}

TEST(ByteReader, EveryNumberFaultsAtEveryShorterLength) {
    const std::string zeros(8, '\0');
    for (std::size_t length = 0; length <= 8; ++length) {
        const std::string_view bytes(zeros.data(), length);
        EXPECT_EQ(fault_of([&] { ByteReader(bytes).read_i16(); }), length < 2 ? 62 : 0);
        EXPECT_EQ(fault_of([&] { ByteReader(bytes).read_i32(); }), length < 4 ? 62 : 0);
        EXPECT_EQ(fault_of([&] { ByteReader(bytes).read_f64(); }), length < 8 ? 62 : 0);
    }
}

TEST(ByteWriter, WritesTheLowByteFirst) {
    ByteWriter writer;
    writer.write_i16(0x1234);
    writer.write_i16(-2);
    writer.write_u16(0xABCD);
    writer.write_i32(0x12345678);
    writer.write_f64(1.5);
    EXPECT_EQ(writer.bytes(),
              "\x34\x12"
              "\xFE\xFF"
              "\xCD\xAB"
              "\x78\x56\x34\x12"
              "\x00\x00\x00\x00\x00\x00\xF8\x3F"s);
}

TEST(ByteWriter, WritesTextsAndZeros) {
    ByteWriter writer;
    writer.write_fixed(FixedString<5>("abc"));
    writer.write_zeros(2);
    writer.write_bytes("x\0y"s);
    EXPECT_EQ(writer.bytes(), "abc  \0\0x\0y"s);
    EXPECT_EQ(writer.size(), 10u);
}

TEST(ByteWriter, ClearsToNothing) {
    ByteWriter writer;
    writer.reserve(100);
    writer.write_i32(1);
    writer.clear();
    EXPECT_EQ(writer.size(), 0u);
    writer.write_i16(258);
    EXPECT_EQ(writer.bytes(), "\x02\x01"s);
}

TEST(ByteCodec, EverySixteenBitNumberComesBack) {
    for (int value = -32768; value <= 32767; ++value) {
        ByteWriter writer;
        writer.write_i16(static_cast<i16>(value));
        ASSERT_EQ(ByteReader(writer.bytes()).read_i16(), value);
        ASSERT_EQ(static_cast<unsigned char>(writer.bytes()[0]), value & 0xFF);
    }
}

TEST(ByteCodec, EveryBitOfADoubleComesBack) {
    constexpr std::uint64_t patterns[] = {0x8000000000000000, 0x7FF8000000000001,
                                          0x7FF0000000000000, 1, 0xFFFFFFFFFFFFFFFF};
    for (const std::uint64_t bits : patterns) {
        ByteWriter writer;
        writer.write_f64(std::bit_cast<f64>(bits));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(ByteReader(writer.bytes()).read_f64()), bits);
    }
}

}  // namespace
}  // namespace tavernook
