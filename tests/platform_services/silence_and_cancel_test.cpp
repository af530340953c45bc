// Servers that say nothing more, and users who have enough.
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "platform_services/ftp_fixture.h"

namespace tavernook {
namespace {

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

}  // namespace
}  // namespace tavernook
