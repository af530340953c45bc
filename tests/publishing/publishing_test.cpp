// The export step by step, over a session that records.
#include "reports/publishing.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

#include "basics/fault.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/project_settings.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

const std::string error_text =
    "There has been an error.  Please notify Brenwyk Software that an error occured while doing an "
    "FTP export with the error code ";
const std::string warning =
    "The password goes to the server unencrypted.  An address that begins with \"ftps://\" or "
    "\"sftp://\" encrypts it.";

class PublishingTest : public testing::Test {
  protected:
    PublishingTest() {
        project_open = i16_true;
        project_path = platform.path("home.tvk");
        ftp_server = "ftp.example.com";
        ftp_account = "ann";
        ftp_password = "secret";
        ftp_directory = "pantry";
        platform.disk.make_folder(dat(""));
        platform.transcript.clear();
    }
    std::string dat(const std::string& name) { return platform.system.program + "/dat/" + name; }

    PageBuilders pages() {
        return {
            .build_main_report = [this] { built("main"); },
            .Build_HTMLlist = [this](i16 size) { built("list " + std::to_string(size)); },
            .Build_HTMLCal_Month = [this](i16 size) { built("month " + std::to_string(size)); }};
    }
    void built(const std::string& page) {
        platform.transcript.push_back("built " + page);
        if (on_page) on_page(page);
    }
    void publish() { send_reports(platform.ftp_export, pages()); }

    // The steps without what the session says of itself and without questions to the disk.
    Texts steps() const {
        Texts found;
        for (const std::string& step : platform.transcript) {
            const bool counts = !step.starts_with("window FtpExport text status of") &&
                                !step.starts_with("file is_taken");
            if (counts) found.push_back(step);
        }
        return found;
    }
    bool has(const std::string& step) const {
        return std::count(platform.transcript.begin(), platform.transcript.end(), step) > 0;
    }
    int count(const std::string& beginning) const {
        return static_cast<int>(
            std::count_if(platform.transcript.begin(), platform.transcript.end(),
                          [&](const std::string& step) { return step.starts_with(beginning); }));
    }
    std::string told() { return platform.main.status[message_panel]; }
    void expect_error(int number, const std::string& description) {
        platform.boxes.expect_message(error_text + std::to_string(number) + " and description of " +
                                      description);
    }

    TestPlatform platform;
    std::function<void(const std::string&)> on_page;
};

// --- the way through ---------------------------------------------------------------------------

TEST_F(PublishingTest, TheStepsInTheirOrder) {
    const std::string program = platform.system.program;
    publish();
    EXPECT_EQ(steps(), (Texts{"window FtpExport text Building Main Report",
                              "window FtpExport bar 1",
                              "built main",
                              "window FtpExport text Building Grocery List",
                              "window FtpExport bar 5",
                              "built list 1",
                              "window FtpExport text Building Month View",
                              "window FtpExport bar 8",
                              "built month 1",
                              "window FtpExport text " + warning,
                              "ftp open ftp.example.com ann secret 21",
                              "window FtpExport bar 10",
                              "ftp directory pantry",
                              "ftp put calm.htm " + program + "/dat/calm.htm",
                              "window FtpExport bar 20",
                              "ftp put month.jpg " + program + "/dat/month.jpg",
                              "window FtpExport bar 30",
                              "ftp put list.htm " + program + "/dat/list.htm",
                              "window FtpExport bar 40",
                              "ftp put main.htm " + program + "/reports/main.htm",
                              "window FtpExport bar 75",
                              "ftp put tvkr.jpg " + program + "/reports/tvkr.jpg",
                              "window FtpExport bar 76",
                              "ftp put point.gif " + program + "/reports/point.gif",
                              "window FtpExport bar 77",
                              "ftp put list.jpg " + program + "/reports/list.jpg",
                              "window FtpExport bar 78",
                              "ftp put mv.jpg " + program + "/reports/mv.jpg",
                              "window FtpExport bar 90",
                              "ftp close",
                              "window FtpExport bar 100",
                              "window FtpExport enable_close",
                              "ftp close",
                              "window status 1 8 of 8 files were sent to ftp.example.com."}));
}

TEST_F(PublishingTest, WhatTheSessionSaysComesIntoTheList) {
    publish();
    EXPECT_TRUE(has("window FtpExport text status of open"));
    EXPECT_TRUE(has("window FtpExport text status of directory"));
    EXPECT_EQ(count("window FtpExport text status of put"), 8);
}

TEST_F(PublishingTest, OldPagesGoBeforeTheyAreMadeAnew) {
    write_whole_file(dat("list.htm"), "old");
    write_whole_file(dat("calm.htm"), "old");
    std::map<std::string, int> was_there;
    on_page = [&](const std::string& page) {
        was_there[page] =
            platform.disk.exists(dat("list.htm")) + 2 * platform.disk.exists(dat("calm.htm"));
    };
    publish();
    EXPECT_EQ(was_there, (std::map<std::string, int>{{"main", 3}, {"list 1", 2}, {"month 1", 0}}));
}

TEST_F(PublishingTest, StyleOneClosesTheWindow) {
    setstyle(1);
    publish();
    EXPECT_EQ(platform.transcript.back(), "window FtpExport unload");
    setstyle(0);
    platform.transcript.clear();
    publish();
    EXPECT_FALSE(has("window FtpExport unload"));
}

// --- the account -------------------------------------------------------------------------------

TEST_F(PublishingTest, TheHostIsTrimmedOnTheRight) {
    ftp_server = "  ftp.example.com  ";
    ftp_account = " ann ";
    ftp_password = " secret ";
    publish();
    EXPECT_TRUE(has("ftp open   ftp.example.com  ann  secret 21"));
}

TEST_F(PublishingTest, BehindHttpTheHostKeepsItsBlanks) {
    ftp_server = "http://ftp.example.com";
    publish();
    EXPECT_TRUE(
        has("ftp open ftp.example.com" + std::string(128 - 7 - 15, ' ') + " ann secret 21"));
    EXPECT_EQ(told(), "8 of 8 files were sent to ftp.example.com.");
}

TEST_F(PublishingTest, OnlySmallLettersInFrontAreCutOff) {
    ftp_server = "HTTP://ftp.example.com";
    publish();
    EXPECT_TRUE(has("ftp open HTTP://ftp.example.com ann secret 21"));
}

TEST_F(PublishingTest, ADirectoryCalledRootIsADirectory) {
    ftp_directory = "root";
    publish();
    EXPECT_TRUE(has("ftp directory root"));
}

TEST_F(PublishingTest, AnEmptyDirectoryIsTheEmptyText) {
    ftp_directory = "";
    publish();
    EXPECT_TRUE(has("ftp directory "));
}

TEST_F(PublishingTest, ADirectoryKeepsItsBlanksInFront) {
    ftp_directory = " a b ";
    publish();
    EXPECT_TRUE(has("ftp directory  a b"));
}

TEST_F(PublishingTest, AnEncryptedServerNeedsNoWarning) {
    for (const char* server : {"ftps://ftp.example.com", "sftp://ftp.example.com"}) {
        ftp_server = server;
        publish();
        EXPECT_TRUE(has("ftp open " + std::string(server) + " ann secret 21"));
    }
    EXPECT_FALSE(has("window FtpExport text " + warning));
}

TEST_F(PublishingTest, TheAccountIsThatOfTheBeginning) {
    on_page = [](const std::string&) {
        ftp_server = "elsewhere.example";
        ftp_directory = "cellar";
    };
    publish();
    EXPECT_TRUE(has("ftp open ftp.example.com ann secret 21"));
    EXPECT_TRUE(has("ftp directory pantry"));
}

// --- failures ------------------------------------------------------------------------------------

struct FailingStep {
    const char* step;
    int files_sent;
};

class FailureAt : public PublishingTest, public testing::WithParamInterface<FailingStep> {
  protected:
    FailureAt() { platform.ftp.failures.emplace(GetParam().step, Fault(1007, "It is gone")); }
};

TEST_P(FailureAt, IsToldToTheLetterAndClosesTheWindow) {
    expect_error(1007, "It is gone");
    publish();
    EXPECT_EQ(count("ftp put"), GetParam().files_sent);
    EXPECT_EQ(platform.transcript.back(), "window FtpExport unload");
    EXPECT_FALSE(has("window FtpExport bar 100"));
    EXPECT_LT(std::find(platform.transcript.begin(), platform.transcript.end(), "ftp close"),
              std::find(platform.transcript.begin(), platform.transcript.end(),
                        "box " + error_text + "1007 and description of It is gone"))
        << "the connection waits below no box";
    EXPECT_FALSE(export_runs());
}

TEST_P(FailureAt, WithoutAUserIsNoBox) {
    setstyle(1);
    publish();
    EXPECT_EQ(told(), error_text + "1007 and description of It is gone");
    EXPECT_EQ(platform.transcript.back(), "window FtpExport unload");
    EXPECT_TRUE(has("ftp close"));
}
INSTANTIATE_TEST_SUITE_P(
    Step, FailureAt,
    testing::Values(FailingStep{"open", 0}, FailingStep{"directory", 0},
                    FailingStep{"put calm.htm", 1}, FailingStep{"put month.jpg", 2},
                    FailingStep{"put list.htm", 3}, FailingStep{"put main.htm", 4},
                    FailingStep{"put tvkr.jpg", 5}, FailingStep{"put point.gif", 6},
                    FailingStep{"put list.jpg", 7}, FailingStep{"put mv.jpg", 8}));

TEST_F(PublishingTest, APageThatFailsEndsTheExport) {
    for (const char* page : {"main", "list 1", "month 1"}) {
        on_page = [page](const std::string& built) {
            if (built == page) throw Fault(fault_number::disk_full);
        };
        expect_error(61, "Disk full");
        publish();
    }
    EXPECT_EQ(count("ftp open"), 0);
    EXPECT_EQ(count("window FtpExport unload"), 3);
}

TEST_F(PublishingTest, AnOldPageThatCannotGoEndsTheExport) {
    platform.disk.make_folder(dat("calm.htm/full"));
    platform.boxes.expect_message(error_text + "75 and description of " + fault_description(75));
    publish();
    EXPECT_EQ(count("ftp open"), 0);
}

TEST_F(PublishingTest, AnotherExportMayFollowAFailure) {
    platform.ftp.failures.emplace("open", Fault(1003, "Nobody"));
    expect_error(1003, "Nobody");
    publish();
    platform.ftp.failures.clear();
    publish();
    EXPECT_EQ(told(), "8 of 8 files were sent to ftp.example.com.");
}

// --- Cancel --------------------------------------------------------------------------------------

class CancelIn : public PublishingTest, public testing::WithParamInterface<FailingStep> {
  protected:
    void SetUp() override {
        platform.ftp.meanwhile = [](const std::string& operation) {
            if (operation.starts_with(GetParam().step)) cancel_export();
        };
    }
    std::string expected() const {
        return "Publishing was cancelled.  " + std::to_string(GetParam().files_sent) +
               " of 8 files were sent to ftp.example.com.";
    }
};

TEST_P(CancelIn, EndsWithoutABoxAndTellsWhatWasSent) {
    publish();
    EXPECT_EQ(told(), expected());
    EXPECT_TRUE(has("window FtpExport text " + expected()));
    EXPECT_EQ(platform.transcript.back(), "window FtpExport enable_close");
    EXPECT_TRUE(has("ftp close"));
    EXPECT_FALSE(export_runs());
}

TEST_P(CancelIn, StyleOneClosesTheWindow) {
    setstyle(1);
    publish();
    EXPECT_EQ(told(), expected());
    EXPECT_EQ(platform.transcript.back(), "window FtpExport unload");
}
INSTANTIATE_TEST_SUITE_P(Step, CancelIn,
                         testing::Values(FailingStep{"open", 0}, FailingStep{"directory", 0},
                                         FailingStep{"put calm.htm", 0},
                                         FailingStep{"put main.htm", 3},
                                         FailingStep{"put mv.jpg", 7}));

TEST_F(PublishingTest, ACancelWhilePagesAreMadeOpensNothing) {
    for (const std::string text : {"Building Main Report", "Building Grocery List",
                                   "Building Month View", warning.c_str()}) {
        platform.ftp_export.on_text = [&](const std::string& shown) {
            if (shown == text) cancel_export();
        };
        publish();
        EXPECT_EQ(told(), "Publishing was cancelled.  0 of 8 files were sent to ftp.example.com.");
    }
    EXPECT_EQ(count("ftp open"), 0);
    EXPECT_EQ(count("built main"), 3);
}

TEST_F(PublishingTest, ACancelWhileNothingRunsDoesNothing) {
    cancel_export();
    EXPECT_TRUE(platform.transcript.empty());
    publish();
    EXPECT_EQ(told(), "8 of 8 files were sent to ftp.example.com.");
}

TEST_F(PublishingTest, AProjectThatGoesBeforeItsPagesAreMadeEndsTheExport) {
    on_page = [](const std::string&) { project_open = i16_false; };
    publish();
    EXPECT_EQ(count("built"), 1);
    on_page = [](const std::string&) { project_path = "/elsewhere.tvk"; };
    project_open = i16_true;
    publish();
    EXPECT_EQ(count("built"), 2);
    EXPECT_EQ(count("ftp open"), 0);
    EXPECT_EQ(told(), "Publishing was cancelled.  0 of 8 files were sent to ftp.example.com.");
}

TEST_F(PublishingTest, OneExportAtATime) {
    platform.ftp.meanwhile = [&](const std::string& operation) {
        EXPECT_TRUE(export_runs());
        if (operation.starts_with("put list.htm")) publish();
    };
    publish();
    EXPECT_EQ(count("built main"), 1);
    EXPECT_EQ(count("ftp open"), 1);
    EXPECT_FALSE(export_runs());
}

// --- the command ---------------------------------------------------------------------------------

TEST_F(PublishingTest, TheCommandShowsTheWindow) {
    Project_SendtoWeb();
    EXPECT_EQ(platform.transcript, (Texts{"window FtpExport setstyle 0", "window FtpExport show"}));
}

TEST_F(PublishingTest, AnIncompleteAccountNeverOpensTheWindow) {
    for (int missing = 0; missing < 3; ++missing) {
        ftp_server = missing == 0 ? "   " : "ftp.example.com";
        ftp_account = missing == 1 ? "" : "ann";
        ftp_password = missing == 2 ? "" : "secret";
        platform.boxes.expect_message(
            "The FTP account information has not been entered completely in the PROJECT SETUP.  "
            "Please check PROJECT SETUP and verify that all information has been entered.");
        Project_SendtoWeb();
    }
    EXPECT_EQ(count("window"), 0);
}

TEST_F(PublishingTest, ABlankDirectoryIsComplete) {
    ftp_directory = "";
    EXPECT_TRUE(ftp_account_is_complete());
}

}  // namespace
}  // namespace tavernook
