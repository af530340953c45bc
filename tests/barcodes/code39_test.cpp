#include "barcodes/code39.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

#include "fakes/test_platform.h"

namespace tavernook {
namespace {

const std::string too_long = "The length of the code exceeds control limits.";

// The symbology as it is published: nine elements a character, bars and spaces in turn, w wide and
// n narrow.
const std::map<char, std::string> published = {
    {'0', "nnnwwnwnn"}, {'1', "wnnwnnnnw"}, {'2', "nnwwnnnnw"}, {'3', "wnwwnnnnn"},
    {'4', "nnnwwnnnw"}, {'5', "wnnwwnnnn"}, {'6', "nnwwwnnnn"}, {'7', "nnnwnnwnw"},
    {'8', "wnnwnnwnn"}, {'9', "nnwwnnwnn"}, {'A', "wnnnnwnnw"}, {'B', "nnwnnwnnw"},
    {'C', "wnwnnwnnn"}, {'D', "nnnnwwnnw"}, {'E', "wnnnwwnnn"}, {'F', "nnwnwwnnn"},
    {'G', "nnnnnwwnw"}, {'H', "wnnnnwwnn"}, {'I', "nnwnnwwnn"}, {'J', "nnnnwwwnn"},
    {'K', "wnnnnnnww"}, {'L', "nnwnnnnww"}, {'M', "wnwnnnnwn"}, {'N', "nnnnwnnww"},
    {'O', "wnnnwnnwn"}, {'P', "nnwnwnnwn"}, {'Q', "nnnnnnwww"}, {'R', "wnnnnnwwn"},
    {'S', "nnwnnnwwn"}, {'T', "nnnnwnwwn"}, {'U', "wwnnnnnnw"}, {'V', "nwwnnnnnw"},
    {'W', "wwwnnnnnn"}, {'X', "nwnnwnnnw"}, {'Y', "wwnnwnnnn"}, {'Z', "nwwnwnnnn"},
    {'-', "nwnnnnwnw"}, {'.', "wwnnnnwnn"}, {' ', "nwwnnnwnn"}, {'$', "nwnwnwnnn"},
    {'/', "nwnwnnnwn"}, {'+', "nwnnnwnwn"}, {'%', "nnnwnwnwn"}, {'*', "nwnnwnwnn"}};

// The modules of a character, "#" black and "." white, with the gap behind it.
std::string published_modules(char character) {
    std::string modules;
    bool bar = true;
    for (const char element : published.at(character)) {
        modules.append(element == 'w' ? 3 : 1, bar ? '#' : '.');
        bar = !bar;
    }
    return modules + '.';
}

std::string published_modules(const std::string& text) {
    std::string modules;
    for (const char character : text) modules += published_modules(character);
    return modules;
}

std::string row_of(const Picture& picture, int row) {
    std::string modules;
    for (int x = 0; x < picture.width; ++x) {
        const Colour pixel = picture.pixels[static_cast<std::size_t>(row * picture.width + x)];
        EXPECT_TRUE(pixel == black || pixel == white);
        modules += pixel == black ? '#' : '.';
    }
    return modules;
}

class Code39 : public testing::Test {
  protected:
    // The upper row of a picture of this size; empty when nothing was drawn.
    static std::string drawn(const std::string& text, int width, int height = 8) {
        Picture picture = white_picture(width, height);
        return draw_code39(text, picture) ? row_of(picture, 0) : std::string();
    }
    // What stands between the white on both sides.
    static std::string bars_of(const std::string& text) {
        const std::string row = drawn(text, 1000);
        const std::size_t first = row.find('#');
        return row.substr(first, row.rfind('#') - first + 2);
    }

    TestPlatform platform;
};

TEST_F(Code39, EveryMaskIsThePublishedPattern) {
    ASSERT_EQ(published.size(), 44U);
    for (const auto& [character, elements] : published) {
        const std::string modules = published_modules(character);
        ASSERT_EQ(modules.size(), 16U) << character;
        for (std::size_t i = 0; i < 16; ++i) {
            EXPECT_EQ((code39_mask(character) >> (15 - i) & 1) != 0, modules[i] == '#')
                << character << " module " << i;
        }
    }
}

TEST_F(Code39, CharactersThatTheSymbologyLacksAreBlanks) {
    EXPECT_EQ(code39_mask(' '), 36538);
    int others = 0;
    for (int code = 0; code < 256; ++code) {
        const auto character = static_cast<char>(code);
        if (published.contains(character)) continue;
        EXPECT_EQ(code39_mask(character), 36538) << code;
        ++others;
    }
    EXPECT_EQ(others, 256 - 44);
    EXPECT_EQ(bars_of("A#B"), published_modules("*A B*"));
    EXPECT_EQ(bars_of("\xE4"), published_modules("* *"));
}

TEST_F(Code39, SmallLettersStarsAndCharactersItLacksAreNotReadBack) {
    EXPECT_TRUE(is_read_back("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%"));
    for (int code = 0; code < 256; ++code) {
        const auto character = static_cast<char>(code);
        const bool is_read = published.contains(character) && character != '*';
        EXPECT_EQ(is_read_back(std::string("A") + character), is_read) << code;
    }
}

TEST_F(Code39, TheCodeStandsBetweenOneStartAndOneStop) {
    EXPECT_EQ(bars_of("tvk12"), published_modules("*TVK12*"));
    EXPECT_EQ(bars_of("*40123455*"), published_modules("*40123455*"));
    EXPECT_EQ(bars_of("**7**"), published_modules("*7*"));
}

TEST_F(Code39, AStarInFrontTakesTheLastCharacterAway) {
    EXPECT_EQ(code39_symbol("*AB"), "*A*");
    EXPECT_EQ(code39_symbol("*A"), "**");
    EXPECT_EQ(code39_symbol("*"), "**");
}

TEST_F(Code39, AStarOnOneSideIsCompletedOnTheOther) {
    EXPECT_EQ(code39_symbol("AB*"), "*AB*");
    EXPECT_EQ(code39_symbol("**AB*"), "*AB*");
}

TEST_F(Code39, LowerCaseLettersDrawAsUpperCaseOnes) {
    EXPECT_EQ(code39_symbol("abcxyz-m9"), "*ABCXYZ-M9*");
    EXPECT_EQ(drawn("abc", 300), drawn("ABC", 300));
}

TEST_F(Code39, TrailingBlanksAreCutAndLeadingOnesStay) {
    EXPECT_EQ(code39_symbol("AB   "), "*AB*");
    EXPECT_EQ(code39_symbol("*AB*  "), "*AB*");
    EXPECT_EQ(code39_symbol("  AB"), "*  AB*");
    EXPECT_EQ(code39_symbol(""), "**");
    EXPECT_EQ(code39_symbol("   "), "**");
}

TEST_F(Code39, TheCodeIsCentredOnePixelToTheLeft) {
    // Five characters are 80 modules: (300 - 80) / 2 - 1.
    EXPECT_EQ(drawn("ABC", 300).find('#'), 109U);
    // 109.5 begins in the same pixel.
    EXPECT_EQ(drawn("ABC", 301).find('#'), 109U);
    EXPECT_EQ(drawn("ABC", 302).find('#'), 110U);
}

TEST_F(Code39, BarsCoverTheUpperHalfOnly) {
    for (const int height : {8, 9}) {
        Picture picture = white_picture(100, height);
        ASSERT_TRUE(draw_code39("7", picture));
        for (int row = 0; row < height; ++row) {
            const std::string modules = row_of(picture, row);
            if (row < 4) {
                EXPECT_EQ(modules, row_of(picture, 0)) << row;
            } else {
                EXPECT_EQ(modules, std::string(100, '.')) << row;
            }
        }
    }
}

TEST_F(Code39, ACodeThatJustFitsBeginsAtTheEdge) {
    const std::string modules = published_modules("*ABC*");
    EXPECT_EQ(drawn("ABC", 82), modules + "..");
    EXPECT_EQ(drawn("ABC", 83), modules + "...");
}

TEST_F(Code39, ACodeJustTooLongGivesTheMessageAndDrawsNothing) {
    for (const int width : {81, 80, 0}) {
        platform.boxes.expect_message(too_long).title("Large string").warning();
        Picture picture = white_picture(width, 8);
        EXPECT_FALSE(draw_code39("ABC", picture));
        EXPECT_EQ(row_of(picture, 0), std::string(static_cast<std::size_t>(width), '.'));
        platform.boxes.check_used_up();
    }
}

TEST_F(Code39, StarsCountForTheLength) {
    platform.boxes.expect_message(too_long).title("Large string").warning();
    EXPECT_EQ(drawn("*ABC*", 81), "");
    EXPECT_NE(drawn("*ABC*", 82), "");
}

}  // namespace
}  // namespace tavernook
