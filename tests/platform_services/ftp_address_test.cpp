#include "platform_services/ftp_address.h"

#include <gtest/gtest.h>

#include "basics/fault.h"
#include "platform/ftp_session.h"

namespace tavernook {
namespace {

std::string read(const std::string& server) {
    return url_of(ftp_address(server, 21));
}

TEST(FtpAddressTest, ABareNameIsPlain) {
    EXPECT_EQ(read("ftp.example.com"), "ftp://ftp.example.com:21");
    EXPECT_EQ(read("  ftp.example.com   "), "ftp://ftp.example.com:21");
    EXPECT_EQ(ftp_address("ftp.example.com", 21).protocol, FtpProtocol::plain);
}

TEST(FtpAddressTest, WhatIsPutInFrontOfPlainNames) {
    EXPECT_EQ(read("http://www.example.com/"), "ftp://www.example.com:21");
    EXPECT_EQ(read("FTP://www.example.com/pantry"), "ftp://www.example.com:21");
}

TEST(FtpAddressTest, AnotherPort) {
    EXPECT_EQ(read("localhost:2121"), "ftp://localhost:2121");
    EXPECT_EQ(read("http://localhost:2121   "), "ftp://localhost:2121");
    EXPECT_EQ(read("[::1]:2121"), "ftp://[::1]:2121");
    EXPECT_EQ(read("[::1]"), "ftp://[::1]:21");
}

TEST(FtpAddressTest, EncryptedOnes) {
    EXPECT_EQ(read("ftps://example.com"), "ftp://example.com:21");
    EXPECT_EQ(ftp_address("ftps://example.com", 21).protocol, FtpProtocol::encrypted);
    EXPECT_EQ(read("ftps://example.com:990"), "ftps://example.com:990");
    EXPECT_EQ(ftp_address("ftps://example.com:990", 21).protocol,
              FtpProtocol::encrypted_from_start);
    EXPECT_EQ(read("sftp://example.com"), "sftp://example.com:22");
    EXPECT_EQ(read("sftp://example.com:2222"), "sftp://example.com:2222");
}

TEST(FtpAddressTest, LettersBeyondAscii) {
    EXPECT_EQ(read("k\xFC"
                   "che.example"),
              "ftp://k\xC3\xBC"
              "che.example:21");
}

TEST(FtpAddressTest, WhatIsNoAddressIsAFault) {
    for (const char* server :
         {"", "   ", "http://", "gopher://example.com", "two words", "host:", "host:0", "host:x",
          "host:21x", "host:65536", "host:-1", "ann@example.com", "a\r\nb", "a\tb", "::1", "a%20b",
          "[a b]", "a#b", "a?b"}) {
        try {
            ADD_FAILURE() << "\"" << server << "\" became " << read(server);
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number, ftp_fault::bad_address) << server;
            EXPECT_NE(fault.description.find("is not the address of a server"), std::string::npos);
        }
    }
}

TEST(EscapedPath, KeepsWhatIsPlain) {
    EXPECT_EQ(escaped_path("/~/a-b_c.d/E9"), "/~/a-b_c.d/E9");
    EXPECT_EQ(escaped_path("a b;c%\xC3\xBC?#"), "a%20b%3Bc%25%C3%BC%3F%23");
}

}  // namespace
}  // namespace tavernook
