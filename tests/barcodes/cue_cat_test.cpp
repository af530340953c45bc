#include "barcodes/cue_cat.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace tavernook {
namespace {

// The published scheme: each byte XOR 67, the bits in groups of six from the front, the last group
// filled up with zeros, each group a letter.
std::string encoded(const std::string& text) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-";
    std::string bits;
    for (const char byte : text) {
        const int masked = static_cast<unsigned char>(byte) ^ 67;
        for (int bit = 7; bit >= 0; --bit) bits += (masked >> bit & 1) != 0 ? '1' : '0';
    }
    while (bits.size() % 6 != 0) bits += '0';
    std::string line;
    for (std::size_t i = 0; i < bits.size(); i += 6) {
        line += letters[std::stoul(bits.substr(i, 6), nullptr, 2)];
    }
    return line;
}

// A line as the device types it, with the field as it stands.
std::string line_of(const std::string& field) {
    return ".serial.type." + field + ".";
}

std::string scanned(const std::string& barcode) {
    return "." + encoded("000000002874927601") + "." + encoded("UPA") + "." + encoded(barcode) +
           ".";
}

std::string digits(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>('0' + i % 10);
    return text;
}

TEST(CueCatTest, TheEncoderOfThisTestAgreesWithLettersWorkedOutByHand) {
    // "0" is 0x30, XOR 67 is 0x73: 011100 110111 001101 110011 is 28 55 13 51.
    EXPECT_EQ(encoded("000"), "C3nZ");
    // 0x73 0x72 0x71: 011100 110111 001001 110001 is 28 55 9 49.
    EXPECT_EQ(encoded("012"), "C3jX");
}

TEST(CueCatTest, LettersWorkedOutByHandAreDecoded) {
    EXPECT_EQ(decode_cue_cat(line_of("C3nZ")), "000");
    EXPECT_EQ(decode_cue_cat(line_of("C3jX")), "012");
}

TEST(CueCatTest, ARetailBarcodeComesBack) {
    EXPECT_EQ(decode_cue_cat(scanned("012345678905")), "012345678905");
    EXPECT_EQ(decode_cue_cat(scanned("978014026")), "978014026");
}

// A code of 1, 7, 13 ... bytes leaves two letters over, and the half of a byte that they are too
// short of rounds up: zero bits, which read "C", stand behind it.
TEST(CueCatTest, RandomCodesComeBack) {
    std::mt19937 random(20240515);
    for (int turn = 0; turn < 10000; ++turn) {
        std::string code(random() % 76, ' ');
        for (char& byte : code) {
            byte = static_cast<char>(turn % 2 == 0 ? '0' + random() % 10 : random());
        }
        const std::string rounded_up = code.size() % 6 == 1 ? "C" : "";
        EXPECT_EQ(decode_cue_cat(scanned(code)), code + rounded_up) << "turn " << turn;
    }
}

// Weights 1 and 3 in turn from the front, or 3 and 1.
char check_digit(const std::string& digits, int first_weight) {
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        sum += (digits[i] - '0') * (i % 2 == 0 ? first_weight : 4 - first_weight);
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

// Lines that are passed around as examples of the device, held by the check digits of their codes.
TEST(CueCatTest, LinesOfTheDeviceGiveTheirCodes) {
    const std::string grocery = "04667500080";
    EXPECT_EQ(decode_cue_cat(".C3nZC3nZC3nZD3b6ChbZDxv7.fHmc.C3D1Dxr2C3nZE3n7."),
              grocery + check_digit(grocery, 3));
    const std::string book = "978068484914";
    const std::string price = "51500";
    EXPECT_EQ(decode_cue_cat(".C3nZC3nZC3n2C3j1DNnWENn2.cGf2.ENr7C3v7D3T3ENj3C3zYDNnZ."),
              book + check_digit(book, 1) + price);
}

TEST(CueCatTest, EveryByteComesBack) {
    std::string text;
    for (int byte = 0; byte < 256; ++byte) {
        text += static_cast<char>(byte);
        if (text.size() < 3) continue;
        EXPECT_EQ(decode_cue_cat(line_of(encoded(text))), text);
        text.erase(0, 1);
    }
}

TEST(CueCatTest, TheFirstAndLastLetterOfEachRangeHaveTheirValues) {
    // Four equal letters of value v are the 24 bits v v v v.
    EXPECT_EQ(decode_cue_cat(line_of("aaaa")), "CCC");           // 0: 00 00 00
    EXPECT_EQ(decode_cue_cat(line_of("zzzz")), "\x26\xD5\x1A");  // 25: 65 96 59
    EXPECT_EQ(decode_cue_cat(line_of("AAAA")), "\x2A\xE5\xD9");  // 26: 69 A6 9A
    EXPECT_EQ(decode_cue_cat(line_of("ZZZZ")), "\x8C\x7F\xB0");  // 51: CF 3C F3
    EXPECT_EQ(decode_cue_cat(line_of("0000")), "\x90\x0E\x77");  // 52: D3 4D 34
    EXPECT_EQ(decode_cue_cat(line_of("9999")), "\xB4\x9C\x3E");  // 61: F7 DF 7D
    EXPECT_EQ(decode_cue_cat(line_of("++++")), "\xB8\xAC\xFD");  // 62: FB EF BE
    EXPECT_EQ(decode_cue_cat(line_of("----")), "\xBC\xBC\xBC");  // 63: FF FF FF
}

TEST(CueCatTest, AnEmptyFieldIsAnEmptyCode) {
    EXPECT_EQ(decode_cue_cat(line_of("")), "");
}

// What is missing of the last four letters reads as zero bits.
TEST(CueCatTest, ThreeQuartersOfTheLettersAreTheLength) {
    EXPECT_EQ(decode_cue_cat(line_of("C")), "3");            // 0.75: 0x70
    EXPECT_EQ(decode_cue_cat(line_of("C3n")), "00");         // 2.25
    EXPECT_EQ(decode_cue_cat(line_of("C3nZC")), "0003");     // 3.75
    EXPECT_EQ(decode_cue_cat(line_of("C3nZC3n")), "00000");  // 5.25
}

TEST(CueCatTest, AHalfRoundsToTheEvenLength) {
    EXPECT_EQ(decode_cue_cat(line_of("C3")), "03");                      // 1.5: up to 2
    EXPECT_EQ(decode_cue_cat(line_of("C3nZC3")), "0000");                // 4.5: down to 4
    EXPECT_EQ(decode_cue_cat(line_of("C3nZC3nZC3")), "00000003");        // 7.5: up to 8
    EXPECT_EQ(decode_cue_cat(line_of("C3nZC3nZC3nZC3")), "0000000000");  // 10.5: down to 10
}

TEST(CueCatTest, EveryLengthUpToTheLimitRoundsHalfToEven) {
    for (int letters = 0; letters <= 100; ++letters) {
        const int quarters = letters * 3;
        int length = quarters / 4;
        if (quarters % 4 == 3 || (quarters % 4 == 2 && length % 2 != 0)) ++length;
        const std::string field = encoded(digits(75)).substr(0, static_cast<std::size_t>(letters));
        const std::string code = decode_cue_cat(line_of(field));
        EXPECT_EQ(code.size(), static_cast<std::size_t>(length)) << letters << " letters";
        // The characters whose bits are all there; a last one rounded up lacks some of its own.
        const auto whole = static_cast<std::size_t>(quarters / 4);
        EXPECT_EQ(code.substr(0, whole), digits(75).substr(0, whole)) << letters << " letters";
    }
}

TEST(CueCatTest, AtMostAHundredLettersCount) {
    const std::string longest = encoded(digits(75));
    ASSERT_EQ(longest.size(), 100U);
    EXPECT_EQ(decode_cue_cat(line_of(longest)), digits(75));
    EXPECT_EQ(decode_cue_cat(line_of(longest + "C")), digits(75));
    EXPECT_EQ(decode_cue_cat(line_of(encoded(digits(78)))), digits(75));
    EXPECT_EQ(decode_cue_cat(line_of(encoded(digits(30000)))), digits(75));
}

TEST(CueCatTest, CharactersOutsideTheAlphabetReadAsZero) {
    EXPECT_EQ(decode_cue_cat(line_of("\xE4 /\xFF")), "CCC");
    EXPECT_EQ(decode_cue_cat(line_of(std::string("\0\n\x80*", 4))), "CCC");
    // 28 0 13 51: 0x70 0x03 0x73.
    EXPECT_EQ(decode_cue_cat(line_of("C?nZ")), "3@0");
}

TEST(CueCatTest, AFourthFullStopEndsTheField) {
    EXPECT_EQ(decode_cue_cat(".serial.type.C3nZ.C3jX."), "000");
    EXPECT_EQ(decode_cue_cat(".serial.type.C3nZ.."), "000");
    EXPECT_EQ(decode_cue_cat(".serial.type..C3nZ."), "");
}

TEST(CueCatTest, FewerThanThreeFullStopsBesidesTheLastCharacterGiveNoCode) {
    EXPECT_EQ(decode_cue_cat("C3nZ"), "");
    EXPECT_EQ(decode_cue_cat("012345678905"), "");
    EXPECT_EQ(decode_cue_cat(".C3nZ."), "");
    EXPECT_EQ(decode_cue_cat(".serial.C3nZ."), "");
    EXPECT_EQ(decode_cue_cat("..."), "");
}

TEST(CueCatTest, FieldsInFrontMayBeEmpty) {
    EXPECT_EQ(decode_cue_cat("...C3nZ."), "000");
}

TEST(CueCatTest, WhatStandsInFrontOfTheFirstFullStopIsPassedOver) {
    EXPECT_EQ(decode_cue_cat("keys.serial.type.C3nZ."), "000");
}

TEST(CueCatTest, TheLastCharacterIsDroppedWhateverItIs) {
    EXPECT_EQ(decode_cue_cat(".serial.type.C3nZ"), "00") << "three letters are left";
    EXPECT_EQ(decode_cue_cat(".serial.type.C3nZx"), "000");
    EXPECT_EQ(decode_cue_cat(".serial.type."), "") << "the third full stop is the one dropped";
}

TEST(CueCatTest, EmptyAndShortLinesGiveNoCode) {
    EXPECT_EQ(decode_cue_cat(""), "");
    EXPECT_EQ(decode_cue_cat("."), "");
    EXPECT_EQ(decode_cue_cat("...."), "");
}

}  // namespace
}  // namespace tavernook
