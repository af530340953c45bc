// The window that publishes, in the real main window over a session that records.
#include "screens/reports/ftpexport.h"

#include <QListWidget>
#include <QProgressBar>

#include "basics/fault.h"
#include "core/project/daily_audit.h"
#include "core/project_settings.h"
#include "platform/ftp_session.h"
#include "platform_qt/shipped_page_files.h"
#include "reports/pages/shipped_pages.h"
#include "screens/child_screen_fixture.h"

namespace tavernook {
namespace {

class FtpExportWindow : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        project_path = platform.path("home.tvk");
        ftp_server = "ftp.example.com";
        ftp_account = "ann";
        ftp_password = "secret";
        ftp_directory = "pantry";
        ASSERT_TRUE(lay_out_pages(shipped_page_file));
    }
    void TearDown() override { setstyle(0); }

    void publish() {
        action("Project_SendtoWeb").trigger();
        settle();
    }
    void publish_as_the_audit_does() {
        publishing.setstyle(1);
        publishing.show();
        settle();
    }

    // What a user does while a file is being sent.
    void while_sending(const std::string& name, std::function<void()> what) {
        platform.ftp.meanwhile = [=, this](const std::string& operation) {
            if (operation.starts_with("put " + name))
                std::exchange(platform.ftp.meanwhile, {}), what();
        };
    }

    QPointer<ftpexport> shown() {
        for (auto* found : window.findChildren<ftpexport*>()) {
            if (found->isVisible()) return found;
        }
        return nullptr;
    }
    template <typename Widget>
    Widget& of_window(const char* name) {
        return *shown()->findChild<Widget*>(QLatin1String(name));
    }
    QPushButton& button(const char* name) { return of_window<QPushButton>(name); }
    bool says(const char* line) {
        return !of_window<QListWidget>("steps").findItems(line, Qt::MatchExactly).isEmpty();
    }
    int files_sent() {
        const auto& steps = platform.ftp.log.entries;
        return static_cast<int>(std::count_if(
            steps.begin(), steps.end(), [](const auto& step) { return step.starts_with("put "); }));
    }
};

TEST_F(FtpExportWindow, TellsEachStepAndWaitsForTheUser) {
    publish();
    ASSERT_TRUE(shown());
    EXPECT_EQ(shown()->windowTitle(), "FTP Export");
    EXPECT_TRUE(says("Preparing Files...."));
    EXPECT_TRUE(says("Building Main Report"));
    EXPECT_TRUE(says("Building Month View"));
    EXPECT_EQ(files_sent(), 8);
    EXPECT_EQ(of_window<QProgressBar>("bar").value(), 100);
    EXPECT_TRUE(button("Close").isEnabled());
    EXPECT_FALSE(button("Cancel").isEnabled());
    EXPECT_EQ(of_window<QListWidget>("steps").currentRow(),
              of_window<QListWidget>("steps").count() - 1);
    QTest::mouseClick(&button("Close"), Qt::LeftButton);
    settle();
    EXPECT_FALSE(shown());
}

TEST_F(FtpExportWindow, SendsThePagesOfTheProject) {
    platform.ftp.meanwhile = [this](const std::string& operation) {
        if (!operation.starts_with("put ")) return;
        const std::string path = operation.substr(operation.rfind(' ') + 1);
        EXPECT_TRUE(platform.disk.exists(path)) << path;
    };
    publish();
    EXPECT_EQ(files_sent(), 8);
}

TEST_F(FtpExportWindow, DoesNotComeWithoutAnAccount) {
    ftp_password = "";
    platform.boxes.expect_message(std::string(incomplete_ftp_account));
    publish();
    EXPECT_FALSE(shown());
}

TEST_F(FtpExportWindow, CanBeCancelledWhileItSends) {
    while_sending("list.htm", [this] {
        EXPECT_FALSE(button("Close").isEnabled());
        EXPECT_TRUE(button("Cancel").isEnabled());
        QTest::mouseClick(&button("Cancel"), Qt::LeftButton);
    });
    publish();
    ASSERT_TRUE(shown());
    EXPECT_TRUE(button("Close").isEnabled());
    EXPECT_EQ(panel(1), "Publishing was cancelled.  2 of 8 files were sent to ftp.example.com.");
}

TEST_F(FtpExportWindow, EscapeCancelsFirstAndClosesThen) {
    while_sending("month.jpg", [this] { QTest::keyClick(shown(), Qt::Key_Escape); });
    publish();
    EXPECT_EQ(panel(1), "Publishing was cancelled.  1 of 8 files were sent to ftp.example.com.");
    ASSERT_TRUE(shown());
    QTest::keyClick(shown(), Qt::Key_Escape);
    EXPECT_FALSE(shown());
}

TEST_F(FtpExportWindow, MayBeClosedWhileItSends) {
    while_sending("list.htm", [this] { shown()->close(); });
    publish();
    EXPECT_FALSE(shown());
    EXPECT_FALSE(export_runs());
    EXPECT_EQ(panel(1), "Publishing was cancelled.  2 of 8 files were sent to ftp.example.com.");
    settle();
    publish();
    EXPECT_EQ(panel(1), "8 of 8 files were sent to ftp.example.com.");
}

TEST_F(FtpExportWindow, MayBeClosedWhileItConnects) {
    platform.ftp.meanwhile = [this](const std::string& operation) {
        if (operation.starts_with("open ")) shown()->close(), settle();
    };
    publish();
    EXPECT_FALSE(shown());
    EXPECT_EQ(files_sent(), 0);
}

TEST_F(FtpExportWindow, AFailureHasABoxAndTheWindowGoes) {
    platform.ftp.failures.emplace("put list.htm", Fault(ftp_fault::file_refused, "No room"));
    platform.boxes.expect_message(
        "There has been an error.  Please notify Brenwyk Software that an error occured while "
        "doing an FTP export with the error code 1006 and description of No room");
    publish();
    EXPECT_FALSE(shown());
}

TEST_F(FtpExportWindow, GoesByItselfBehindTheAudit) {
    while_sending("list.htm", [this] { EXPECT_TRUE(shown()); });
    publish_as_the_audit_does();
    EXPECT_FALSE(shown());
    EXPECT_EQ(panel(1), "8 of 8 files were sent to ftp.example.com.");
}

// A box would wait for a user who is not there.
TEST_F(FtpExportWindow, WithoutAUserNoPageHasABox) {
    platform.disk.remove(platform.system.program + "/reports/main.dat");
    platform.disk.remove(platform.system.program + "/dat/calm.dat");
    platform.ftp.failures.emplace("put calm.htm", Fault(fault_number::file_not_found));
    publish_as_the_audit_does();
    EXPECT_FALSE(shown());
    EXPECT_NE(panel(1).find("error code 53"), std::string::npos) << panel(1);
}

TEST_F(FtpExportWindow, WithAUserAPageThatIsNotMadeHasABox) {
    platform.disk.remove(platform.system.program + "/reports/main.dat");
    platform.boxes.expect_message("error: File not found");
    platform.boxes.expect_message(
        "There has been an error.  Please notify Brenwyk Software that an error occured while "
        "doing an FTP export with the error code 53 and description of File not found");
    platform.ftp.failures.emplace("put main.htm", Fault(fault_number::file_not_found));
    publish();
    EXPECT_FALSE(shown());
}

TEST_F(FtpExportWindow, OneThatWaitsForItsCloseGivesWayToTheAudits) {
    publish();
    ASSERT_TRUE(shown());
    platform.ftp.log.entries.clear();
    publish_as_the_audit_does();
    EXPECT_FALSE(shown());
    EXPECT_EQ(files_sent(), 8);
}

TEST_F(FtpExportWindow, TheAuditDoesNotTakeTheUsersExportAway) {
    while_sending("list.htm", [this] { publish_as_the_audit_does(); });
    publish();
    ASSERT_TRUE(shown());
    EXPECT_TRUE(button("Close").isEnabled());
    EXPECT_EQ(files_sent(), 8);
}

// What unloads the window cancels; the next export hears nothing of it.
TEST_F(FtpExportWindow, EveryWayToItsEndLeavesTheNextOneAlone) {
    publish_as_the_audit_does();
    EXPECT_EQ(panel(1), "8 of 8 files were sent to ftp.example.com.");
    publish_as_the_audit_does();
    EXPECT_EQ(panel(1), "8 of 8 files were sent to ftp.example.com.");
    platform.ftp.failures.emplace("open ", Fault(ftp_fault::no_server, "Nobody listens"));
    platform.boxes.expect_message(
        "There has been an error.  Please notify Brenwyk Software that an error occured while "
        "doing an FTP export with the error code 1003 and description of Nobody listens");
    publish();
    EXPECT_EQ(panel(1), "Publishing has failed.  0 of 8 files were sent to ftp.example.com.");
    platform.ftp.failures.clear();
    publish();
    EXPECT_EQ(panel(1), "8 of 8 files were sent to ftp.example.com.");
}

TEST_F(FtpExportWindow, ASecondCommandSendsNothingTwice) {
    while_sending("list.htm", [this] { Project_SendtoWeb(), settle(); });
    publish();
    EXPECT_EQ(files_sent(), 8);
    EXPECT_EQ(window.findChildren<ftpexport*>().size(), 1);
}

TEST_F(FtpExportWindow, ACommandWhileACancelledOneEndsIsTold) {
    while_sending("list.htm", [this] {
        shown()->close();
        settle();
        Project_SendtoWeb();
        EXPECT_EQ(panel(1), "The export that was cancelled has not ended yet.");
    });
    publish();
    EXPECT_FALSE(shown());
}

TEST_F(FtpExportWindow, EndsWithTheProgram) {
    while_sending("list.htm", [this] {
        window.end_program();
        EXPECT_EQ(platform.ftp.log.entries.back(), "cancel");
    });
    publish();
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(export_runs());
}

TEST_F(FtpExportWindow, SendsThePagesThoughTheProjectIsClosedMeanwhile) {
    while_sending("list.htm", [] { project_open = i16_false; });
    publish();
    EXPECT_EQ(files_sent(), 8);
    EXPECT_TRUE(button("Close").isEnabled());
}

TEST_F(FtpExportWindow, ItsPartsHaveNames) {
    publish();
    screen = shown();
    expect_accessible_names();
}

}  // namespace
}  // namespace tavernook
