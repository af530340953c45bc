#include "core/project_settings.h"

#include <gtest/gtest.h>

#include "basics/fault_expectation.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class ProjectSettings : public testing::Test {
  protected:
    void SetUp() override { project_modified = i16_false; }

    TestPlatform platform;
};

TEST_F(ProjectSettings, AnHourOfZeroIsShownAsElevenInTheEvening) {
    audit_hour = 0;
    EXPECT_EQ(shown_audit_time().hour, 11);
    EXPECT_TRUE(shown_audit_time().afternoon);
}

TEST_F(ProjectSettings, MorningHoursStandAsTheyAre) {
    audit_hour = 7;
    audit_minute = 5;
    EXPECT_EQ(shown_audit_time().hour, 7);
    EXPECT_EQ(shown_audit_time().minute, 5);
    EXPECT_FALSE(shown_audit_time().afternoon);
}

TEST_F(ProjectSettings, TwelveIsAfternoonAndLeavesTheHourList) {
    audit_hour = 12;
    EXPECT_EQ(shown_audit_time().hour, 0);
    EXPECT_TRUE(shown_audit_time().afternoon);
}

TEST_F(ProjectSettings, AfternoonHoursAreShownLessTwelve) {
    audit_hour = 23;
    EXPECT_EQ(shown_audit_time().hour, 11);
    EXPECT_TRUE(shown_audit_time().afternoon);
    audit_hour = 24;
    EXPECT_EQ(shown_audit_time().hour, 12);
    EXPECT_TRUE(shown_audit_time().afternoon);
}

TEST_F(ProjectSettings, HoursThatNoDayHasLeaveTheList) {
    for (const i16 hour : {i16{-1}, i16{25}, i16{32767}, i16{-32768}}) {
        audit_hour = hour;
        EXPECT_EQ(shown_audit_time().hour, 0) << hour;
    }
}

TEST_F(ProjectSettings, NoonIsStoredAsTwentyFourAndMidnightAsTwelve) {
    EXPECT_EQ(stored_audit_hour(12, true), 24);
    EXPECT_EQ(stored_audit_hour(12, false), 12);
    EXPECT_EQ(stored_audit_hour(11, true), 23);
    EXPECT_EQ(stored_audit_hour(1, false), 1);
}

TEST_F(ProjectSettings, NumbersAreTheLeadingNumberOfTheirTexts) {
    SetupTexts texts = present_setup();
    texts.sales_tax = "7.5 %";
    texts.audit_days_ahead = "2.5 days";
    texts.expiration_warning_days = "about ten";
    accept_setup(texts);
    EXPECT_EQ(sales_tax, 7.5);
    EXPECT_EQ(audit_days_ahead, 2);  // half to even
    EXPECT_EQ(expiration_warning_days, 0);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ProjectSettings, TextsAreCutAtTheirFields) {
    SetupTexts texts = present_setup();
    texts.ftp_server = std::string(130, 's');
    texts.ftp_account = std::string(65, 'a');
    texts.ftp_password = std::string(33, 'p');
    texts.ftp_directory = "pages/food   ";
    accept_setup(texts);
    EXPECT_EQ(ftp_server.right_trimmed(), std::string(128, 's'));
    EXPECT_EQ(ftp_account.right_trimmed(), std::string(64, 'a'));
    EXPECT_EQ(ftp_password.right_trimmed(), std::string(32, 'p'));
    EXPECT_EQ(present_setup().ftp_directory, "pages/food");
}

TEST_F(ProjectSettings, ANumberBeyondSixteenBitsChangesNothing) {
    const SetupTexts before = present_setup();
    SetupTexts texts = before;
    texts.sales_tax = "9";
    texts.ftp_account = "cook";
    texts.expiration_warning_days = "32768";
    EXPECT_EQ(fault_of([&] { accept_setup(texts); }), fault_number::overflow);
    EXPECT_EQ(sales_tax, 0);
    EXPECT_EQ(present_setup().ftp_account, before.ftp_account);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ProjectSettings, AcceptingWhatStandsThereIsNoChange) {
    accept_setup(present_setup());
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ProjectSettings, AcceptingShowsTheTimeOfTheAudit) {
    SetupTexts texts = present_setup();
    texts.audit_hour = 17;
    texts.audit_minute = 3;
    accept_setup(texts);
    EXPECT_EQ(platform.main.status.at(audit_time_panel), "Audit Time: 5:03 PM");
}

TEST_F(ProjectSettings, WhatAnOlderProjectHoldsIsSettledBeforeItIsShown) {
    font_size = 0;
    audit_on_startup = 3;
    save_after_audit = 2;
    settle_settings();
    EXPECT_EQ(font_size, 8);
    EXPECT_EQ(audit_on_startup, 1);
    EXPECT_EQ(save_after_audit, 2);
    font_size = 14;
    settle_settings();
    EXPECT_EQ(font_size, 14);
}

TEST_F(ProjectSettings, ASettingWrittenAtOnceMarksTheProjectOnlyWhenItDiffers) {
    scanner_type = 2;
    set_setting(scanner_type, 2);
    EXPECT_EQ(project_modified, i16_false);
    set_setting(scanner_type, 3);
    EXPECT_EQ(scanner_type, 3);
    EXPECT_EQ(project_modified, i16_true);
}

}  // namespace
}  // namespace tavernook
