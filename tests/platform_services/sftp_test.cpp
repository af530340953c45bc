// The session over SSH, with a real server on loopback.
#include <algorithm>
#include <gtest/gtest.h>
#include <optional>

#include "basics/fault.h"
#include "fakes/test_platform.h"
#include "platform_services/child_server.h"
#include "platform_services/curl_ftp_session.h"

namespace tavernook {
namespace {

class SftpTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!python_has("asyncssh")) GTEST_SKIP() << "python3-asyncssh is not installed";
        platform.disk.make_folder(
            platform.path("web/pantry/K\xC3\xBC"
                          "che 1"));
        write_whole_file(page, "<p>Flour</p>");
        serve("first.key");
    }
    void serve(const std::string& key) {
        server.emplace(std::vector<std::string>{TAVERNOOK_SOURCE_FOLDER
                                                "/tests/platform_services/sftp_server.py",
                                                platform.path("web"), platform.path(key)});
        ASSERT_NE(server->port(), 0);
    }
    // The Fault that ended it, or 0.
    int publish(const std::string& directory, const std::string& password = "p\xE4ss word") {
        CurlFtpSession session({.known_hosts = known_hosts});
        const FtpAccount account = {.server = "sftp://127.0.0.1:" + std::to_string(server->port()),
                                    .name = "ann",
                                    .password = password};
        try {
            session.open(account,
                         {.status = [this](std::string_view line) { lines.emplace_back(line); }});
            session.change_directory(directory);
            session.put_file("list 1.htm", page);
            session.put_file("main.htm", page);
            session.close();
        } catch (const Fault& fault) {
            description = fault.description;
            return fault.number;
        }
        return 0;
    }
    std::string sent(const std::string& name) {
        const std::string path = platform.path("web/" + name);
        return platform.disk.exists(path) ? read_whole_file(path) : "(missing)";
    }

    TestPlatform platform;
    std::string page = platform.path("page.htm");
    std::string known_hosts = platform.path("keys/known_hosts");
    std::optional<ChildServer> server;
    std::vector<std::string> lines;
    std::string description;
};

TEST_F(SftpTest, FilesArriveWholeInTheDirectory) {
    EXPECT_EQ(publish("pantry/K\xFC"
                      "che 1"),
              0)
        << description;
    EXPECT_EQ(sent("pantry/K\xC3\xBC"
                   "che 1/list 1.htm"),
              "<p>Flour</p>");
    EXPECT_EQ(sent("pantry/K\xC3\xBC"
                   "che 1/main.htm"),
              "<p>Flour</p>");
    EXPECT_EQ(lines, (std::vector<std::string>{"Connected",
                                               "In directory pantry/K\xFC"
                                               "che 1",
                                               "Sent list 1.htm", "Sent main.htm"}));
}

TEST_F(SftpTest, DirectoriesFromTheRootAndOfTheLogin) {
    EXPECT_EQ(publish("/pantry/"), 0) << description;
    EXPECT_EQ(sent("pantry/main.htm"), "<p>Flour</p>");
    EXPECT_EQ(publish(""), 0) << description;
    EXPECT_EQ(sent("main.htm"), "<p>Flour</p>");
}

TEST_F(SftpTest, TheKeyIsRememberedAndAnotherOneRefused) {
    EXPECT_EQ(publish(""), 0) << description;
    const std::string known = read_whole_file(known_hosts);
    EXPECT_EQ(publish(""), 0) << description;
    EXPECT_EQ(read_whole_file(known_hosts), known);
    serve("second.key");
    lines.clear();
    EXPECT_EQ(publish(""), ftp_fault::not_trusted);
    EXPECT_EQ(description,
              "The server is not the one that it says it is: its host key is not the one that was "
              "remembered");
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(read_whole_file(known_hosts), known);
}

TEST_F(SftpTest, AWrongPassword) {
    EXPECT_EQ(publish("", "guess"), ftp_fault::login_refused) << description;
    EXPECT_EQ(description, "The server refuses the account name or the password");
}

TEST_F(SftpTest, AMissingDirectory) {
    EXPECT_EQ(publish("cellar"), ftp_fault::no_directory) << description;
    EXPECT_EQ(sent("main.htm"), "(missing)");
}

TEST_F(SftpTest, AServerThatHasGone) {
    server->kill();
    EXPECT_EQ(publish(""), ftp_fault::no_server) << description;
}

TEST_F(SftpTest, WithoutAPlaceForKeysNobodyIsTrusted) {
    known_hosts.clear();
    EXPECT_EQ(publish(""), ftp_fault::not_trusted);
}

}  // namespace
}  // namespace tavernook
