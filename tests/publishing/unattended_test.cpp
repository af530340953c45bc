// Publishing behind the audit of the clock, when nobody need be there.
#include <algorithm>
#include <gtest/gtest.h>

#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project_data.h"
#include "core/project_settings.h"
#include "fakes/test_platform.h"
#include "platform/platform.h"
#include "reports/publishing.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

class Unattended : public testing::Test {
  protected:
    Unattended() {
        project_open = i16_true;
        audit_hour = 14;
        audit_minute = 30;
        ftp_send_after_audit = i16_true;
        ftp_server = "ftp.example.com";
        ftp_account = "ann";
        ftp_password = "secret";
    }
    // The timer ticks on that day at the time of the audit, and a minute later.
    void tick(int day) {
        platform.clock.time = date_from_moment({2024, 5, day}, {14, 30, 0});
        daily_audit_check();
    }
    void tick_after(int day) {
        platform.clock.time = date_from_moment({2024, 5, day}, {14, 31, 0});
        daily_audit_check();
    }
    int count(const std::string& step) const {
        return static_cast<int>(
            std::count(platform.transcript.begin(), platform.transcript.end(), step));
    }
    int audits() const {
        return count("progress load Auditing Inventory|Auditing Inventory...Please Wait");
    }
    Texts windows() const {
        Texts found;
        for (const std::string& step : platform.transcript) {
            if (step.starts_with("window FtpExport")) found.push_back(step);
        }
        return found;
    }
    PageBuilders no_pages() {
        return {.build_main_report = [] {},
                .Build_HTMLlist = [](i16) {},
                .Build_HTMLCal_Month = [](i16) {}};
    }

    TestPlatform platform;
};

TEST_F(Unattended, TheWindowIsShownBehindTheAuditAndClosesItself) {
    tick(15);
    EXPECT_EQ(windows(), (Texts{"window FtpExport setstyle 1", "window FtpExport show"}));
    const auto place = [&](const std::string& step) {
        return std::find(platform.transcript.begin(), platform.transcript.end(), step);
    };
    EXPECT_LT(place("progress hide"), place("window FtpExport show"));
    EXPECT_EQ(platform.main.status[activity_panel], "Ready");
}

TEST_F(Unattended, OnceAnAudit) {
    tick(15);
    tick(15);
    tick_after(15);
    EXPECT_EQ(count("window FtpExport show"), 1);
    tick(16);
    EXPECT_EQ(count("window FtpExport show"), 2);
}

TEST_F(Unattended, OnlyWhereTheProjectWantsIt) {
    ftp_send_after_audit = 0;
    tick(15);
    EXPECT_EQ(audits(), 1);
    EXPECT_TRUE(windows().empty());
}

TEST_F(Unattended, AnyMarkButZeroCounts) {
    ftp_send_after_audit = 1;
    tick(15);
    EXPECT_EQ(count("window FtpExport show"), 1);
}

TEST_F(Unattended, AnIncompleteAccountIsToldWithoutABoxAndOpensNothing) {
    ftp_password = "";
    tick(15);
    EXPECT_TRUE(windows().empty());
    EXPECT_EQ(platform.main.status[message_panel], incomplete_ftp_account);
}

TEST_F(Unattended, TheCommandAuditNowPublishesNothing) {
    audit_now();
    EXPECT_EQ(audits(), 1);
    EXPECT_TRUE(windows().empty());
}

TEST_F(Unattended, NothingIsSentBelowABox) {
    platform.boxes.expect_message("Here?").during([&] { tick(15); });
    boxes().message("Here?");
    EXPECT_TRUE(windows().empty());
    tick_after(15);
    EXPECT_EQ(count("window FtpExport show"), 1);
}

TEST_F(Unattended, AnExportThatFailedDoesNotHoldUpTheNextAudit) {
    platform.ftp.failures.emplace("open", Fault(1003, "Nobody"));
    tick(15);
    setstyle(1);
    send_reports(platform.ftp_export, no_pages());  // as the window does at its first tick
    EXPECT_EQ(platform.transcript.back(), "window FtpExport unload");
    tick_after(15);
    tick(16);
    EXPECT_EQ(audits(), 2);
}

TEST_F(Unattended, AnAuditMayComeWhileAnExportRuns) {
    setstyle(1);
    platform.ftp.meanwhile = [&](const std::string& operation) {
        if (operation.starts_with("put main.htm")) tick(15);
    };
    send_reports(platform.ftp_export, no_pages());
    EXPECT_EQ(audits(), 1);
    EXPECT_EQ(count("window FtpExport bar 100"), 1);
    EXPECT_EQ(platform.transcript.back(), "window FtpExport unload");
}

TEST_F(Unattended, AProgramWithoutTheWindowAuditsAllTheSame) {
    set_platform({.clock = &platform.clock,
                  .boxes = &platform.boxes,
                  .files = &platform.files,
                  .save_progress = &platform.progress,
                  .main = &platform.main,
                  .screens = &platform.screens});
    tick(15);
    Project_SendtoWeb();
    EXPECT_EQ(audits(), 1);
}

}  // namespace
}  // namespace tavernook
