#include "platform/platform.h"

#include <gtest/gtest.h>

#include "fakes/fake_clock.h"
#include "fakes/fake_help_viewer.h"

namespace tavernook {
namespace {

class PlatformTest : public testing::Test {
  protected:
    ~PlatformTest() override { clear_platform(); }
};

TEST_F(PlatformTest, GivesWhatWasHandedOver) {
    FakeClock clock;
    FakeHelpViewer help;
    set_platform({.clock = &clock, .help_viewer = &help});
    EXPECT_EQ(&platform_clock(), &clock);
    EXPECT_EQ(&help_viewer(), &help);
}

TEST_F(PlatformTest, AnotherHandOverReplacesTheFirstAsAWhole) {
    FakeClock first;
    FakeClock second;
    FakeHelpViewer help;
    set_platform({.clock = &first, .help_viewer = &help});
    set_platform({.clock = &second});
    EXPECT_EQ(&platform_clock(), &second);
    EXPECT_DEATH(help_viewer(), "The platform has no help viewer");
}

TEST_F(PlatformTest, WhatWasNeverHandedOverEndsTheProcess) {
    EXPECT_DEATH(platform_clock(), "The platform has no clock");
    EXPECT_DEATH(boxes(), "The platform has no boxes");
    EXPECT_DEATH(file_dialogs(), "The platform has no file dialogs");
    EXPECT_DEATH(files(), "The platform has no files");
    EXPECT_DEATH(settings_store(), "The platform has no settings store");
    EXPECT_DEATH(file_associations(), "The platform has no file associations");
    EXPECT_DEATH(project_lock(), "The platform has no project lock");
    EXPECT_DEATH(system_info(), "The platform has no system info");
    EXPECT_DEATH(help_viewer(), "The platform has no help viewer");
    EXPECT_DEATH(save_progress(), "The platform has no progress window");
    EXPECT_DEATH(main_window(), "The platform has no main window");
    EXPECT_DEATH(screens(), "The platform has no screens");
    EXPECT_DEATH(ftp_session(), "The platform has no FTP session");
    EXPECT_DEATH(speech(), "The platform has no voice");
}

TEST_F(PlatformTest, AWindowThatPublishesNeedNotBeThere) {
    FakeClock clock;
    set_platform({.clock = &clock});
    EXPECT_EQ(ftp_export(), nullptr);
}

TEST_F(PlatformTest, ClearingTakesEverythingBack) {
    FakeClock clock;
    set_platform({.clock = &clock});
    clear_platform();
    EXPECT_DEATH(platform_clock(), "The platform has no clock");
}

}  // namespace
}  // namespace tavernook
