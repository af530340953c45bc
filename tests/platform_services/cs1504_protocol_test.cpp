// The expected bytes were worked out by a program of its own from the protocol's description.
#include "platform_services/cs1504_protocol.h"

#include <gtest/gtest.h>

#include "support/simulated_scanner.h"

namespace tavernook::cs1504 {
namespace {

using State = ReplyFramer::State;

std::string hex_of(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        char two[4];
        std::snprintf(two, sizeof two, "%02X ", static_cast<unsigned char>(byte));
        text += two;
    }
    if (!text.empty()) text.pop_back();
    return text;
}

const std::string interrogation =
    text_of_hex("06 02 01 16 00 00 00 00 01 23 45 67 4E 42 4A 57 43 45 31 33 00 16 58");
const std::string two_codes = text_of_hex(
    "06 02 00 00 00 00 01 23 45 67 "
    "11 08 30 31 32 33 34 35 36 37 38 39 30 35 78 F4 D6 DA "
    "09 01 54 56 4B 37 78 F4 D6 DA 00 82 21");
const std::string no_codes = text_of_hex("06 02 00 00 00 00 01 23 45 67 00 F8 4B");
const std::string done = text_of_hex("06 02 00 5E 6F");

// --- commands ----------------------------------------------------------------------------------

TEST(Cs1504Crc, GivesThePublishedValues) {
    EXPECT_EQ(crc_of(text_of_hex("01 02 00")), 0x9FDE);
    EXPECT_EQ(crc_of(text_of_hex("07 02 00")), 0x9E3E);
    EXPECT_EQ(crc_of("123456789"), 0xB4C8);  // the check of this kind of CRC
    EXPECT_EQ(crc_of(""), 0);
}

TEST(Cs1504Commands, AreTheseBytes) {
    EXPECT_EQ(hex_of(command_bytes(Command::interrogate)), "01 02 00 9F DE");
    EXPECT_EQ(hex_of(command_bytes(Command::clear_barcodes)), "02 02 00 9F 2E");
    EXPECT_EQ(hex_of(command_bytes(Command::power_down)), "05 02 00 5E 9F");
    EXPECT_EQ(hex_of(command_bytes(Command::upload)), "07 02 00 9E 3E");
    EXPECT_EQ(hex_of(read_parameter_bytes(Parameter::send_code_type)), "08 02 01 10 00 86 67");
    EXPECT_EQ(hex_of(read_parameter_bytes(Parameter::store_time)), "08 02 01 23 00 76 73");
}

// --- replies -----------------------------------------------------------------------------------

TEST(ReplyFramer, FindsTheEndByTheLengths) {
    for (const auto& [command, reply] : {std::pair{Command::interrogate, interrogation},
                                         {Command::upload, two_codes},
                                         {Command::upload, no_codes},
                                         {Command::clear_barcodes, done}}) {
        ReplyFramer byte_by_byte(command);
        for (std::size_t at = 0; at + 1 < reply.size(); ++at) {
            ASSERT_EQ(byte_by_byte.take(reply.substr(at, 1)), State::unfinished) << at;
        }
        EXPECT_EQ(byte_by_byte.take(reply.substr(reply.size() - 1)), State::whole);
        EXPECT_EQ(ReplyFramer(command).take(reply + "behind it"), State::whole);
    }
}

TEST(ReplyFramer, GivesTheStrings) {
    ReplyFramer framer(Command::upload);
    EXPECT_TRUE(framer.strings().empty());
    framer.take(two_codes.substr(0, 40));
    EXPECT_TRUE(framer.strings().empty()) << "half a reply has none";
    framer.take(two_codes.substr(40));
    EXPECT_EQ(framer.strings(), (std::vector<std::string>{"\x08"
                                                          "012345678905\x78\xF4\xD6\xDA",
                                                          "\x01TVK7\x78\xF4\xD6\xDA"}));
    ReplyFramer empty(Command::upload);
    empty.take(no_codes);
    EXPECT_TRUE(empty.strings().empty());
}

TEST(ReplyFramer, KnowsRefusalsByTheirOneByte) {
    for (const char byte : {5, 7, 8, 9}) {
        ReplyFramer framer(Command::upload);
        EXPECT_FALSE(framer.has_begun());
        EXPECT_EQ(framer.take(std::string(1, byte)), State::refused);
        EXPECT_TRUE(framer.has_begun());
        EXPECT_EQ(framer.first_byte(), static_cast<FirstByte>(byte));
    }
    EXPECT_TRUE(is_worth_another_try(FirstByte::wrong_crc));
    EXPECT_TRUE(is_worth_another_try(FirstByte::wrong_character));
    EXPECT_FALSE(is_worth_another_try(FirstByte::unsupported));
    EXPECT_FALSE(is_worth_another_try(FirstByte::general_error));
}

TEST(ReplyFramer, TakesNothingElse) {
    for (int byte = 0; byte < 256; ++byte) {
        if (byte >= 5 && byte <= 9) continue;
        EXPECT_EQ(ReplyFramer(Command::upload).take(std::string(1, static_cast<char>(byte))),
                  State::garbage);
    }
    EXPECT_EQ(ReplyFramer(Command::upload).take("\x06\x03"), State::garbage);
}

TEST(ReplyFramer, EndsWhereNoReplyIsSoLong) {
    // 10 bytes in front, 24 strings of 255 and one of 11, 3 bytes behind.
    std::string longest = no_codes.substr(0, 10);
    for (int i = 0; i < 24; ++i) longest += '\xFE' + std::string(254, 'x');
    longest += '\x0A' + std::string(10, 'x');
    longest = ended(longest);
    ASSERT_EQ(longest.size(), 6144u);
    EXPECT_EQ(ReplyFramer(Command::upload).take(longest), State::whole);

    std::string longer = longest.substr(0, longest.size() - 14);
    longer += '\x0B' + std::string(11, 'x');
    EXPECT_EQ(ReplyFramer(Command::upload).take(ended(longer)), State::garbage);
    EXPECT_EQ(ReplyFramer(Command::clear_barcodes).take("\x06\x02" + std::string(6143, '\x01')),
              State::garbage);
}

TEST(ReplyFramer, ADamagedByteIsAlwaysSeen) {
    for (std::size_t at = 0; at < two_codes.size(); ++at) {
        for (int change = 1; change < 256; ++change) {
            std::string damaged = two_codes;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            EXPECT_NE(ReplyFramer(Command::upload).take(damaged), State::whole) << at;
        }
    }
}

// --- parameters and codes ----------------------------------------------------------------------

TEST(ParameterIn, ReadsNumberAndValueOrTheValueAlone) {
    const Parameter type = Parameter::send_code_type;
    EXPECT_EQ(parameter_in({text_of_hex("10 01")}, type), true);
    EXPECT_EQ(parameter_in({text_of_hex("10 00")}, type), false);
    EXPECT_EQ(parameter_in({text_of_hex("23 00")}, Parameter::store_time), false);
    EXPECT_EQ(parameter_in({text_of_hex("01")}, type), true);
    EXPECT_EQ(parameter_in({text_of_hex("00")}, type), false);
    for (const std::vector<std::string>& other :
         std::vector<std::vector<std::string>>{{},
                                               {""},
                                               {text_of_hex("23 01")},
                                               {text_of_hex("10 01 01")},
                                               {text_of_hex("10 01"), text_of_hex("23 01")}}) {
        EXPECT_EQ(parameter_in(other, type), std::nullopt);
    }
}

TEST(PacketsOf, HonourEachLayout) {
    const std::string time = "\x78\xF4\xD6\xDA";
    const std::string none(4, '\0');
    EXPECT_EQ(packets_of({"\x08" + ("0123" + time)}, {true, true})->at(0),
              std::string("\x09\x08") + "0123" + time);
    EXPECT_EQ(packets_of({"0123" + time}, {false, true})->at(0),
              std::string("\x09\0", 2) + "0123" + time);
    EXPECT_EQ(packets_of({"\x08" + std::string("0123")}, {true, false})->at(0),
              std::string("\x09\x08") + "0123" + none);
    EXPECT_EQ(packets_of({"0123"}, {false, false})->at(0),
              std::string("\x09\0", 2) + "0123" + none);
}

TEST(PacketsOf, AStringWithoutACodeGivesNone) {
    EXPECT_TRUE(packets_of({"\x08time"}, {})->empty());
    EXPECT_EQ(packets_of({"\x08time", "\x08XYtime"}, {})->size(), 1u);
}

TEST(PacketsOf, AStringThatIsTooShortOrTooLongIsNoCode) {
    EXPECT_EQ(packets_of({"\x08"}, {}), std::nullopt);
    EXPECT_EQ(packets_of({"time"}, {true, true}), std::nullopt);
    EXPECT_EQ(packets_of({std::string(251, '1')}, {false, false}), std::nullopt);
    EXPECT_EQ(packets_of({std::string(250, '1')}, {false, false})->at(0)[0], '\xFF');
}

}  // namespace
}  // namespace tavernook::cs1504
