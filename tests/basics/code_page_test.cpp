#include "basics/code_page.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <iconv.h>
#include <set>
#include <string>

namespace tavernook {
namespace {

using namespace std::string_literals;

constexpr unsigned undefined_bytes[] = {0x81, 0x8D, 0x8F, 0x90, 0x9D};

bool is_undefined(unsigned code) {
    for (const unsigned byte : undefined_bytes) {
        if (byte == code) return true;
    }
    return false;
}

// The C library's converter.
class SystemConverter {
  public:
    SystemConverter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~SystemConverter() { iconv_close(handle_); }
    SystemConverter(const SystemConverter&) = delete;
    SystemConverter& operator=(const SystemConverter&) = delete;

    bool usable() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    // False when the converter refuses the input.
    bool convert(std::string input, std::string& output) const {
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        char buffer[64];
        char* in = input.data();
        char* out = buffer;
        std::size_t in_left = input.size();
        std::size_t out_left = sizeof buffer;
        const std::size_t result = iconv(handle_, &in, &in_left, &out, &out_left);
        output.assign(buffer, sizeof buffer - out_left);
        return result == 0 && in_left == 0;
    }

  private:
    iconv_t handle_;
};

// UTF-8 by its definition, for any code below 110000 hex, surrogates included.
std::string encoded(char32_t code) {
    std::string utf8;
    const auto add = [&](char32_t byte) { utf8 += static_cast<char>(byte); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 + code / 64);
        add(0x80 + code % 64);
    } else if (code < 0x10000) {
        add(0xE0 + code / 4096);
        add(0x80 + code / 64 % 64);
        add(0x80 + code % 64);
    } else {
        add(0xF0 + code / 262144);
        add(0x80 + code / 4096 % 64);
        add(0x80 + code / 64 % 64);
        add(0x80 + code % 64);
    }
    return utf8;
}

TEST(CodePage, EveryByteIsWhatTheSystemSays) {
    const SystemConverter to_utf8("UTF-8", "WINDOWS-1252");
    const SystemConverter to_utf32("UTF-32LE", "WINDOWS-1252");
    ASSERT_TRUE(to_utf8.usable() && to_utf32.usable());
    int refused = 0;
    for (unsigned code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        std::string expected;
        if (!to_utf8.convert(byte, expected)) {
            ++refused;
            EXPECT_TRUE(is_undefined(code)) << code;
            EXPECT_EQ(unicode_from_byte(static_cast<unsigned char>(code)), code);
            EXPECT_EQ(utf8_from_text(byte), encoded(code));
            continue;
        }
        EXPECT_EQ(utf8_from_text(byte), expected) << code;
        std::string wide;
        ASSERT_TRUE(to_utf32.convert(byte, wide));
        ASSERT_EQ(wide.size(), 4u);
        const auto at = [&](std::size_t i) {
            return static_cast<char32_t>(static_cast<unsigned char>(wide[i]));
        };
        const char32_t character = at(0) + at(1) * 256 + at(2) * 65536;
        EXPECT_EQ(unicode_from_byte(static_cast<unsigned char>(code)), character) << code;
    }
    EXPECT_EQ(refused, 5);
}

TEST(CodePage, EveryCharacterGoesBackAsTheSystemSays) {
    const SystemConverter from_utf8("WINDOWS-1252", "UTF-8");
    ASSERT_TRUE(from_utf8.usable());
    int known = 0;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        std::string expected;
        // The system swallows the invisible tag characters; to us they are unknown like any other.
        bool expect_known = from_utf8.convert(encoded(character), expected) && !expected.empty();
        if (is_undefined(character)) {
            EXPECT_FALSE(expect_known);
            expect_known = true;
            expected = std::string(1, static_cast<char>(character));
        }
        char byte = 'x';
        const bool is_known = byte_from_unicode(character, byte);
        ASSERT_EQ(is_known, expect_known) << static_cast<unsigned>(character);
        ASSERT_EQ(std::string(1, byte), expect_known ? expected : "?")
            << static_cast<unsigned>(character);
        known += is_known;
    }
    EXPECT_EQ(known, 256);
}

TEST(CodePage, CodesBeyondUnicodeAreUnknown) {
    char byte = 'x';
    EXPECT_FALSE(byte_from_unicode(0x110000, byte));
    EXPECT_EQ(byte, '?');
    byte = 'x';
    EXPECT_FALSE(byte_from_unicode(0xFFFFFFFF, byte));
    EXPECT_EQ(byte, '?');
}

TEST(CodePage, AllBytesComeBackThroughUtf8) {
    std::string all;
    for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
    EXPECT_EQ(text_from_utf8(utf8_from_text(all)), all);
    std::set<char32_t> characters;
    for (const char byte : all) {
        characters.insert(unicode_from_byte(static_cast<unsigned char>(byte)));
    }
    EXPECT_EQ(characters.size(), 256u);
}

TEST(CodePage, ConvertsWords) {
    EXPECT_EQ(utf8_from_text("cr\xE8me \x80 2 \x96 \x99"),
              "cr\xC3\xA8me \xE2\x82\xAC 2 \xE2\x80\x93 \xE2\x84\xA2");
    EXPECT_EQ(text_from_utf8("\xC5\x92uf \xE2\x80\xA6"), "\x8Cuf \x85");
    EXPECT_EQ(utf8_from_text(""), "");
    EXPECT_EQ(text_from_utf8(""), "");
    EXPECT_EQ(text_from_utf8("a\0b"s), "a\0b"s);
}

TEST(CodePage, CharactersOutsideBecomeOneQuestionMarkEach) {
    EXPECT_EQ(text_from_utf8("a\xCE\xB1z"), "a?z");                   // alpha
    EXPECT_EQ(text_from_utf8("a\xE3\x81\x82z"), "a?z");               // a kana
    EXPECT_EQ(text_from_utf8("a\xF0\x9F\x8D\x8Ez"), "a?z");           // an apple
    EXPECT_EQ(text_from_utf8("\xF4\x8F\xBF\xBF"), "?");               // 10FFFF
    EXPECT_EQ(text_from_utf8("\xEF\xBF\xBD\xEF\xBF\xBF"), "??");      // FFFD, FFFF
    EXPECT_EQ(text_from_utf8("\xC2\x80\xC2\x81\xC2\x9F"), "?\x81?");  // controls 80, 81, 9F
}

TEST(CodePage, MalformedUtf8GivesOneQuestionMarkForEachByte) {
    EXPECT_EQ(text_from_utf8("a\x80z"), "a?z");  // continuation alone
    EXPECT_EQ(text_from_utf8("\xBF\xBF"), "??");
    EXPECT_EQ(text_from_utf8("\xFE\xFF"), "??");                 // bytes that never occur
    EXPECT_EQ(text_from_utf8("\xF8\x88\x80\x80\x80"), "?????");  // five bytes
    EXPECT_EQ(text_from_utf8("\xC3z"), "?z");                    // broken off by a letter
    EXPECT_EQ(text_from_utf8("\xE2\x82z"), "??z");
    EXPECT_EQ(text_from_utf8("\xF0\x9F\x8Dz"), "???z");
    EXPECT_EQ(text_from_utf8("\xE2\xC3\xA8"), "?\xE8");  // broken off by a character
}

TEST(CodePage, OverlongFormsAreMalformed) {
    EXPECT_EQ(text_from_utf8("\xC0\x80"), "??");  // 0
    EXPECT_EQ(text_from_utf8("\xC1\xBF"), "??");  // 7F
    EXPECT_EQ(text_from_utf8("\xC0\xAF"), "??");  // a slash in disguise
    EXPECT_EQ(text_from_utf8("\xE0\x80\xAF"), "???");
    EXPECT_EQ(text_from_utf8("\xE0\x9F\xBF"), "???");  // 7FF
    EXPECT_EQ(text_from_utf8("\xF0\x80\x80\xAF"), "????");
    EXPECT_EQ(text_from_utf8("\xF0\x8F\xBF\xBF"), "????");  // FFFF
    EXPECT_EQ(text_from_utf8("\xE0\x83\xA8"), "???");       // e with grave in three bytes
}

TEST(CodePage, SurrogatesAndCodesBeyondUnicodeAreMalformed) {
    EXPECT_EQ(text_from_utf8("\xED\xA0\x80"), "???");       // D800
    EXPECT_EQ(text_from_utf8("\xED\xBF\xBF"), "???");       // DFFF
    EXPECT_EQ(text_from_utf8("\xED\x9F\xBF"), "?");         // D7FF is a character
    EXPECT_EQ(text_from_utf8("\xEE\x80\x80"), "?");         // E000 is one
    EXPECT_EQ(text_from_utf8("\xF4\x90\x80\x80"), "????");  // 110000
    EXPECT_EQ(text_from_utf8("\xF5\x80\x80\x80"), "????");
}

TEST(CodePage, CharactersCutOffAtTheEndAreMalformed) {
    const std::string euro = "\xE2\x82\xAC";
    const std::string apple = "\xF0\x9F\x8D\x8E";
    EXPECT_EQ(text_from_utf8("a" + euro.substr(0, 1)), "a?");
    EXPECT_EQ(text_from_utf8("a" + euro.substr(0, 2)), "a??");
    EXPECT_EQ(text_from_utf8("a" + euro), "a\x80");
    EXPECT_EQ(text_from_utf8("a" + apple.substr(0, 1)), "a?");
    EXPECT_EQ(text_from_utf8("a" + apple.substr(0, 2)), "a??");
    EXPECT_EQ(text_from_utf8("a" + apple.substr(0, 3)), "a???");
    EXPECT_EQ(text_from_utf8("\xC3"), "?");
    // The view's end counts, not what lies behind it.
    EXPECT_EQ(text_from_utf8(std::string_view("\xC3\xA8").substr(0, 1)), "?");
    EXPECT_EQ(text_from_utf8(std::string_view("a\xE2\x82\xAC").substr(0, 3)), "a??");
}

TEST(CodePage, EveryPairOfBytesIsJudgedAsTheSystemJudgesIt) {
    const SystemConverter strict("UTF-32LE", "UTF-8");
    ASSERT_TRUE(strict.usable());
    for (int first = 0x80; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string pair = {static_cast<char>(first), static_cast<char>(second)};
            std::string ignored;
            const std::size_t characters = strict.convert(pair, ignored) ? 1 : 2;
            ASSERT_EQ(text_from_utf8(pair).size(), characters) << first << " " << second;
        }
    }
}

TEST(CodePage, WellFormedUtf8IsToldFromTheCodePage) {
    EXPECT_TRUE(reads_as_utf8(""));
    EXPECT_TRUE(reads_as_utf8("plain"));
    EXPECT_TRUE(reads_as_utf8("K\xC3\xA4se \xE2\x82\xAC \xF0\x9F\x8D\x9E"));
    EXPECT_FALSE(reads_as_utf8("K\xE4se"));
    EXPECT_FALSE(reads_as_utf8("K\xC3\xA4se, Cr\xE8me"));
    EXPECT_FALSE(reads_as_utf8("cut \xC3"));
    EXPECT_FALSE(reads_as_utf8("\xC0\xAF"));
}

}  // namespace
}  // namespace tavernook
