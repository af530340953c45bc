#include "rich_text/rtf_tokens.h"

#include <gtest/gtest.h>
#include <string>

namespace tavernook::rtf {
namespace {

// One line a token, so that a whole text is compared at once.
std::string listed(std::string_view input) {
    Tokenizer tokens(input);
    std::string out;
    for (Token token = tokens.next(); token.kind != TokenKind::end; token = tokens.next()) {
        switch (token.kind) {
            case TokenKind::group_start:
                out += "{ ";
                break;
            case TokenKind::group_end:
                out += "} ";
                break;
            case TokenKind::word:
                out += "word:" + std::string(token.text);
                out += token.has_parameter ? "=" + std::to_string(token.parameter) + " " : " ";
                break;
            case TokenKind::symbol:
                out += "symbol:" + std::string(token.text) + " ";
                break;
            case TokenKind::hex_byte:
                out += "byte:" + std::to_string(static_cast<unsigned char>(token.byte)) + " ";
                break;
            case TokenKind::text:
                out += "text:[" + std::string(token.text) + "] ";
                break;
            case TokenKind::binary:
                out += "binary:[" + std::string(token.text) + "] ";
                break;
            case TokenKind::end:
                break;
        }
    }
    return out;
}

TEST(RtfTokens, GroupsWordsAndText) {
    EXPECT_EQ(listed("{\\rtf1\\b0 a  b}"), "{ word:rtf=1 word:b=0 text:[a  b] } ");
}

TEST(RtfTokens, ABlankAfterAWordBelongsToItOnlyOnce) {
    EXPECT_EQ(listed("\\par  x"), "word:par text:[ x] ");
}

TEST(RtfTokens, NegativeParametersAndALoneMinus) {
    EXPECT_EQ(listed("\\fi-360\\b-x"), "word:fi=-360 word:b text:[-x] ");
}

TEST(RtfTokens, HugeParametersAreCut) {
    EXPECT_EQ(listed("\\u99999999999999999999 "), "word:u=1000000000 ");
}

TEST(RtfTokens, LineEndsAreDroppedButEndAParagraphAfterABackslash) {
    EXPECT_EQ(listed("a\r\nb\nc"), "text:[a] text:[b] text:[c] ");
    EXPECT_EQ(listed("a\\\r\nb"), "text:[a] symbol:\r text:[b] ");
}

TEST(RtfTokens, HexBytesInEitherCase) {
    EXPECT_EQ(listed("\\'e9\\'E9z"), "byte:233 byte:233 text:[z] ");
}

TEST(RtfTokens, AWrongHexNumberIsDropped) {
    EXPECT_EQ(listed("\\'zz"), "text:[] text:[zz] ");
    EXPECT_EQ(listed("\\'e"), "text:[] text:[e] ");
}

TEST(RtfTokens, BinaryDataMayHoldBraces) {
    EXPECT_EQ(listed("\\bin4 {}\\xy"), "binary:[{}\\x] text:[y] ");
}

TEST(RtfTokens, BinaryDataBeyondTheEndIsWhatThereIs) {
    EXPECT_EQ(listed("\\bin400 ab"), "binary:[ab] ");
    EXPECT_EQ(listed("\\bin-3 ab"), "binary:[] text:[ab] ");
}

TEST(RtfTokens, ALastBackslashIsTheEnd) {
    EXPECT_EQ(listed("a\\"), "text:[a] ");
}

}  // namespace
}  // namespace tavernook::rtf
