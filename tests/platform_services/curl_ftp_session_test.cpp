// The session with real servers on loopback.
#include "platform_services/curl_ftp_session.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

#include "basics/fault.h"
#include "fakes/test_platform.h"
#include "platform_services/child_server.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

const std::string password = "p\xE4ss word";

class FtpTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!python_has("pyftpdlib")) GTEST_SKIP() << "python3-pyftpdlib is not installed";
        platform.disk.make_folder(platform.path("web/pantry"));
        platform.disk.make_folder(
            platform.path("web/K\xC3\xBC"
                          "che 1"));
        write_whole_file(page, "<p>Flour</p>");
    }
    void serve(const Texts& faults = {}) {
        Texts words = {TAVERNOOK_SOURCE_FOLDER "/tests/platform_services/ftp_server.py",
                       platform.path("web")};
        words.insert(words.end(), faults.begin(), faults.end());
        server.emplace(words);
        ASSERT_NE(server->port(), 0);
    }
    FtpAccount account() const {
        return {.server = "127.0.0.1:" + std::to_string(server->port()),
                .name = "ann",
                .password = password};
    }
    FtpSettings settings() {
        return {.pump = [this] {
            if (on_pump) on_pump();
        }};
    }
    FtpEvents events() {
        return {.status =
                    [this](std::string_view line) {
                        lines.emplace_back(line);
                        if (on_line) on_line(lines.back());
                    },
                .progress =
                    [this](i64 sent, i64 size) {
                        progress = {sent, size};
                    }};
    }
    void open() { session.open(account(), events()); }

    // What a household does; the Fault that ended it, or 0.
    int publish(const std::string& directory = "pantry") {
        try {
            open();
            session.change_directory(directory);
            session.put_file("list.htm", page);
            session.put_file("main.htm", page);
            session.close();
        } catch (const Fault& fault) {
            description = fault.description;
            session.close();
            return fault.number;
        }
        return 0;
    }
    std::string sent(const std::string& name) {
        const std::string path = platform.path("web/" + name);
        return platform.disk.exists(path) ? read_whole_file(path) : "(missing)";
    }
    bool said(const std::string& beginning) const {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const std::string& line) { return line.starts_with(beginning); });
    }

    TestPlatform platform;
    std::string page = platform.path("page.htm");
    std::optional<ChildServer> server;
    Texts lines;
    std::pair<i64, i64> progress;
    std::string description;
    std::function<void()> on_pump;
    std::function<void(const std::string&)> on_line;
    CurlFtpSession session{settings()};
};

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

class SilentServer : public FtpTest, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        FtpTest::SetUp();
        if (!IsSkipped()) serve({std::string("silent=") + GetParam()});
    }
};

TEST_P(SilentServer, IsTold) {
    FtpSettings impatient = settings();
    impatient.longest_silence = std::chrono::seconds(1);
    CurlFtpSession one(impatient);
    try {
        one.open(account(), events());
        one.change_directory("pantry");
        one.put_file("list.htm", page);
        ADD_FAILURE() << "nobody was silent";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, ftp_fault::silence);
        EXPECT_EQ(fault.description, "The server has said nothing for 1 seconds");
    }
    one.close();
}

TEST_P(SilentServer, IsCancelledFromThePump) {
    int pumped = 0;
    on_pump = [&] {
        if (++pumped == 20) session.cancel();
    };
    EXPECT_EQ(publish(), fault_number::cancel_was_selected);
}

TEST_P(SilentServer, IsCancelledFromAnotherThread) {
    std::atomic<int> pumped = 0;
    on_pump = [&] {
        ++pumped;
        pumped.notify_all();
    };
    std::thread user([&] {
        for (int seen = 0; seen < 10; seen = pumped) pumped.wait(seen);
        session.cancel();
    });
    EXPECT_EQ(publish(), fault_number::cancel_was_selected);
    user.join();
}
INSTANTIATE_TEST_SUITE_P(At, SilentServer,
                         testing::Values("greeting", "USER", "PASS", "CWD", "STOR", "data"));

TEST_F(FtpTest, ASilentGoodbyeCanBeCancelled) {
    serve({"silent=QUIT"});
    int pumped = 0;
    on_pump = [&] {
        if (said("QUIT") && ++pumped == 5) session.cancel();
    };
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_EQ(sent("pantry/main.htm"), "<p>Flour</p>");
}

// --- Cancel --------------------------------------------------------------------------------------

class CancelAt : public FtpTest, public testing::WithParamInterface<const char*> {};

TEST_P(CancelAt, EndsWhatRunsAndWhatComes) {
    serve();
    bool cancelled = false;
    on_line = [&](const std::string& line) {
        if (line.starts_with(GetParam()) && !std::exchange(cancelled, true)) session.cancel();
    };
    EXPECT_EQ(publish(), fault_number::cancel_was_selected);
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(sent("pantry/main.htm"), "(missing)");
    EXPECT_FALSE(said("QUIT"));
    on_line = nullptr;
    EXPECT_EQ(publish(), 0) << "it can be opened again: " << description;
}
INSTANTIATE_TEST_SUITE_P(Line, CancelAt,
                         testing::Values("220", "USER", "PASS", "230", "CWD", "250", "STOR list",
                                         "226"));

TEST_F(FtpTest, ACancelBeforeTheSessionIsOpenCountsToo) {
    serve();
    session.cancel();
    EXPECT_EQ(publish(), fault_number::cancel_was_selected);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(publish(), 0) << description;
}

TEST_F(FtpTest, ACancelWhileItWaitsBetweenTwoFiles) {
    serve();
    open();
    session.put_file("list.htm", page);
    session.cancel();
    EXPECT_THROW(session.put_file("main.htm", page), Fault);
    EXPECT_THROW(session.change_directory("pantry"), Fault);
    session.close();
    EXPECT_EQ(sent("main.htm"), "(missing)");
}

TEST_F(FtpTest, ClosingInsideOfAnEventCancels) {
    serve();
    on_line = [&](const std::string& line) {
        if (line.starts_with("CWD")) session.close();
    };
    EXPECT_EQ(publish(), fault_number::cancel_was_selected);
}

TEST_F(FtpTest, AnEventThatThrowsEndsTheOperation) {
    serve();
    on_line = [](const std::string& line) {
        if (line.starts_with("230")) throw Fault(fault_number::overflow);
    };
    EXPECT_EQ(publish(), fault_number::overflow);
    on_line = nullptr;
    EXPECT_EQ(publish(), 0) << description;
}

TEST_F(FtpTest, NothingElseIsBegunInsideOfAnEvent) {
    serve();
    int refused = 0;
    on_line = [&](const std::string& line) {
        if (!line.starts_with("STOR list")) return;
        try {
            session.put_file("other.htm", page);
        } catch (const Fault&) {
            ++refused;
        }
    };
    EXPECT_EQ(publish(), 0) << description;
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
}

TEST_F(FtpTest, ASessionThatGoesInTheMiddleLeavesNothingBehind) {
    serve({"silent=QUIT"});
    CurlFtpSession one(settings());
    one.open(account(), events());
}

// --- encrypted ----------------------------------------------------------------------------------

class EncryptedFtp : public FtpTest {
  protected:
    void SetUp() override {
        FtpTest::SetUp();
        if (IsSkipped()) return;
        if (!python_has("OpenSSL")) {
            GTEST_SKIP() << "python3-openssl is not installed";
        }
        const std::string make =
            "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost"
            " -addext subjectAltName=DNS:localhost,IP:127.0.0.1 -keyout '" +
            certificate + "' -out '" + trusted + "' 2>/dev/null && cat '" + trusted + "' >>'" +
            certificate + "'";
        if (std::system(make.c_str()) != 0) GTEST_SKIP() << "openssl is not installed";
    }
    int publish_encrypted(const std::string& trust) {
        FtpSettings careful = settings();
        careful.certificates = trust;
        CurlFtpSession one(careful);
        FtpAccount encrypted = account();
        encrypted.server = "ftps://" + encrypted.server;
        try {
            one.open(encrypted, events());
            one.change_directory("pantry");
            one.put_file("list.htm", page);
            one.close();
        } catch (const Fault& fault) {
            description = fault.description;
            return fault.number;
        }
        return 0;
    }
    std::string certificate = platform.path("server.pem");
    std::string trusted = platform.path("trusted.pem");
};

TEST_F(EncryptedFtp, FilesArriveWhole) {
    serve({"certificate=" + certificate});
    EXPECT_EQ(publish_encrypted(trusted), 0) << description;
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
    EXPECT_TRUE(said("AUTH "));
}

TEST_F(EncryptedFtp, ACertificateThatNobodyVouchesForIsRefused) {
    serve({"certificate=" + certificate});
    EXPECT_EQ(publish_encrypted(""), ftp_fault::not_trusted);
    EXPECT_TRUE(description.starts_with("The server is not the one that it says it is: SSL "))
        << description;
    EXPECT_FALSE(said("PASS"));
}

TEST_F(EncryptedFtp, AServerWithoutEncryptionNeverHearsThePassword) {
    serve();
    EXPECT_EQ(publish_encrypted(trusted), ftp_fault::not_encrypted) << description;
    EXPECT_FALSE(said("USER"));
    EXPECT_FALSE(said("PASS"));
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
