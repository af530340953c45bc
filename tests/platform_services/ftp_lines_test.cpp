#include "platform_services/ftp_lines.h"

#include <gtest/gtest.h>

namespace tavernook {
namespace {

TEST(ShownLine, IsWithoutItsEndAndControlCharacters) {
    EXPECT_EQ(shown_line("220 ready.\r\n", "secret"), "220 ready.");
    EXPECT_EQ(shown_line("220\tready\x1B[2J \r\n", "secret"), "220 ready [2J");
    EXPECT_EQ(shown_line("", "secret"), "");
}

TEST(ShownLine, IsTextOfTheProgram) {
    EXPECT_EQ(shown_line("250 K\xC3\xBC"
                         "che\r\n",
                         ""),
              "250 K\xFC"
              "che");
}

TEST(ShownLine, AnEndlessOneIsCut) {
    EXPECT_EQ(shown_line(std::string(5000, 'a'), "").size(), 500u);
}

TEST(ShownLine, ThePasswordIsMasked) {
    EXPECT_EQ(shown_line("PASS secret\r\n", "secret"), "PASS ****");
    EXPECT_EQ(shown_line("pass secret\r\n", "other"), "PASS ****");
    EXPECT_EQ(shown_line("PASS \r\n", ""), "PASS");
}

TEST(ShownLine, APasswordThatAServerRepeatsIsMasked) {
    EXPECT_EQ(shown_line("530 ann/secret is wrong, \"secret\" too", "secret"),
              "530 ann/**** is wrong, \"****\" too");
    EXPECT_EQ(shown_line("530 secret", "secret"), "530 ****");
}

TEST(ShownLine, APartOfAWordOrNumberIsNotThePassword) {
    EXPECT_EQ(shown_line("220 secretary of 2", "2"), "220 secretary of ****");
    EXPECT_EQ(shown_line("220 secretary", "secret"), "220 secretary");
}

TEST(ShownLine, ThePasswordOfSignsIsMaskedInsideOfWords) {
    EXPECT_EQ(shown_line("530 a$!b", "$!"), "530 a****b");
}

}  // namespace
}  // namespace tavernook
