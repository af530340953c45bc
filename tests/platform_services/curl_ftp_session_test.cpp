// What goes well and what goes wrong with real servers.
#include "platform_services/curl_ftp_session.h"

#include <gtest/gtest.h>

#include "platform_services/ftp_fixture.h"

namespace tavernook {
namespace {

// --- what goes well ----------------------------------------------------------------------------

TEST_F(FtpTest, FilesArriveWholeInTheDirectory) {
    serve();
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
    EXPECT_EQ(sent("pantry/main.htm"), "<p>Flour</p>");
}

TEST_F(FtpTest, AnEmptyDirectoryIsThatOfTheLogin) {
    serve();
    EXPECT_EQ(publish(""), 0) << description;
    EXPECT_EQ(sent("list.htm"), "<p>Flour</p>");
}

TEST_F(FtpTest, BigEmptyAndBinaryFilesArriveWhole) {
    serve();
    std::string bytes(3'000'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
    write_whole_file(platform.path("big.jpg"), bytes);
    write_whole_file(platform.path("empty"), "");
    open();
    session.put_file("big.jpg", platform.path("big.jpg"));
    EXPECT_EQ(progress, (std::pair<i64, i64>{3'000'000, 3'000'000}));
    session.put_file("empty", platform.path("empty"));
    session.close();
    EXPECT_TRUE(sent("big.jpg") == bytes);
    EXPECT_EQ(sent("empty"), "");
}

TEST_F(FtpTest, AFileReplacesTheOneBefore) {
    serve();
    write_whole_file(platform.path("web/pantry/list.htm"), std::string(1000, 'x'));
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
}

TEST_F(FtpTest, NamesMayHoldBlanksUmlautsAndSigns) {
    serve();
    open();
    session.change_directory(
        "K\xFC"
        "che 1");
    session.put_file("gr\xFCn & 100% #1;type=a.htm", page);
    session.close();
    EXPECT_EQ(sent("K\xC3\xBC"
                   "che 1/gr\xC3\xBCn & 100% #1;type=a.htm"),
              "<p>Flour</p>");
}

TEST_F(FtpTest, TheConversationIsHeardWithoutThePassword) {
    serve();
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_TRUE(said("220 "));
    EXPECT_TRUE(said("USER ann"));
    EXPECT_TRUE(said("PASS ****"));
    EXPECT_TRUE(said("CWD pantry"));
    EXPECT_TRUE(said("STOR list.htm"));
    EXPECT_TRUE(said("226 "));
    EXPECT_TRUE(said("221 ")) << "the goodbye";
    for (const std::string& line : lines)
        EXPECT_EQ(line.find("p\xE4ss"), std::string::npos) << line;
}

TEST_F(FtpTest, ASessionCanBeOpenedAgain) {
    serve();
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_EQ(publish(""), 0) << description;
    EXPECT_EQ(sent("list.htm"), "<p>Flour</p>");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "USER ann"), 2);
}

TEST_F(FtpTest, OneLoginServesAllFiles) {
    serve();
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "USER ann"), 1);
}

TEST_F(FtpTest, ClosingWithoutASessionDoesNothing) {
    session.close();
    session.close();
}

// --- what goes wrong -----------------------------------------------------------------------------

TEST_F(FtpTest, AWrongPassword) {
    serve();
    FtpAccount wrong = account();
    wrong.password = "guess";
    try {
        session.open(wrong, events());
        ADD_FAILURE() << "let in";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, ftp_fault::login_refused);
        EXPECT_TRUE(fault.description.starts_with(
            "The server refuses the account name or the password: 530 "))
            << fault.description;
    }
}

TEST_F(FtpTest, AMissingDirectory) {
    serve();
    EXPECT_EQ(publish("cellar"), ftp_fault::no_directory);
    EXPECT_TRUE(description.starts_with(
        "There is no directory \"cellar\" on the server, or it must not be entered: 550 "))
        << description;
    EXPECT_EQ(sent("list.htm"), "(missing)");
}

TEST_F(FtpTest, NobodyListens) {
    serve();
    const std::string port = std::to_string(server->port());
    server->kill();
    EXPECT_EQ(publish(), ftp_fault::no_server);
    EXPECT_EQ(description, "Nothing answers at 127.0.0.1, port " + port);
}

TEST_F(FtpTest, ANameThatNobodyHas) {
    try {
        session.open({.server = "nobody.invalid", .name = "ann", .password = "x"}, events());
        ADD_FAILURE() << "connected";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, ftp_fault::unknown_host);
        EXPECT_EQ(fault.description, "There is no server named nobody.invalid");
    }
}

TEST_F(FtpTest, ALocalFileThatIsMissing) {
    serve();
    open();
    try {
        session.put_file("month.jpg", platform.path("month.jpg"));
        ADD_FAILURE() << "sent";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::file_not_found);
        EXPECT_EQ(fault.description, "File not found: month.jpg");
    }
    session.close();
    EXPECT_EQ(sent("month.jpg"), "(missing)");
}

TEST_F(FtpTest, AFileThatTheServerRefuses) {
    serve();
    open();
    try {
        session.put_file("pantry", page);  // a directory of that name is there
        ADD_FAILURE() << "sent";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, ftp_fault::file_refused);
        EXPECT_TRUE(
            fault.description.starts_with("The server does not take the file \"pantry\": 5"))
            << fault.description;
    }
    session.close();
}

TEST_F(FtpTest, LineEndsAreNeverSent) {
    serve();
    EXPECT_EQ(publish("pantry\r\nDELE list.htm"), ftp_fault::bad_address);
    EXPECT_FALSE(said("CWD"));
    for (const char* text : {"ann\r\nQUIT", "ann\n"}) {
        FtpAccount crooked = account();
        crooked.name = text;
        EXPECT_THROW(session.open(crooked, events()), Fault);
        session.close();
        crooked = account();
        crooked.password = text;
        EXPECT_THROW(session.open(crooked, events()), Fault);
        session.close();
    }
    open();
    EXPECT_THROW(session.put_file("a\r\nb", page), Fault);
    session.close();
}

TEST_F(FtpTest, WithoutAConnectionNothingIsSent) {
    EXPECT_THROW(session.put_file("list.htm", page), Fault);
    EXPECT_THROW(session.change_directory("pantry"), Fault);
}

class DyingServer : public FtpTest, public testing::WithParamInterface<const char*> {};

TEST_P(DyingServer, IsTold) {
    serve({std::string("dies=") + GetParam()});
    EXPECT_EQ(publish(), ftp_fault::connection_lost) << description;
    EXPECT_TRUE(description.starts_with("The connection to the server was lost")) << description;
}
INSTANTIATE_TEST_SUITE_P(At, DyingServer, testing::Values("USER", "PASS", "CWD", "STOR", "data"));

TEST_F(FtpTest, ASessionThatTheServerEndsBetweenTwoFilesIsNotBegunAnew) {
    serve({"drops=data"});
    EXPECT_EQ(publish(), ftp_fault::connection_lost) << description;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "USER ann"), 1);
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
    EXPECT_EQ(sent("main.htm"), "(missing)") << "in the directory of the login";
}

TEST_F(FtpTest, AServerThatDiesBetweenTwoFiles) {
    serve();
    bool killed = false;
    on_line = [&](const std::string& line) {
        if (line.starts_with("226") && !std::exchange(killed, true)) server->kill();
    };
    EXPECT_EQ(publish(), ftp_fault::connection_lost) << description;
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
}

TEST_F(FtpTest, AServerThatDiesAtTheGoodbyeHasAllFiles) {
    serve({"dies=QUIT"});
    EXPECT_EQ(publish(), 0);
    EXPECT_EQ(sent("pantry/main.htm"), "<p>Flour</p>");
}

TEST_F(FtpTest, WhoCanReadWhatGoesOut) {
    EXPECT_FALSE(session.is_encrypted("ftp.example.com"));
    EXPECT_FALSE(session.is_encrypted("http://ftp.example.com"));
    EXPECT_TRUE(session.is_encrypted("ftps://ftp.example.com"));
    EXPECT_TRUE(session.is_encrypted("ftps://ftp.example.com:990"));
    EXPECT_TRUE(session.is_encrypted("SFTP://ftp.example.com"));
}

}  // namespace
}  // namespace tavernook
