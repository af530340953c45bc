#include "platform_qt/qt_system_info.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "platform_qt/helper_program.h"

namespace tavernook {
namespace {

TEST(SystemFolders, AreTheUsers) {
    const ScopedVariable data("XDG_DATA_HOME", "/d/share/");
    const ScopedVariable config("XDG_CONFIG_HOME", "/c/config");
    EXPECT_EQ(QtSystemInfo().program_folder(), "/d/share/Tavernook");
    EXPECT_EQ(QtSystemInfo().settings_folder(), "/c/config/Tavernook");
}

TEST(SystemFolders, LieBelowTheHomeWhenNothingElseIsSaid) {
    const ScopedVariable home("HOME", "/home/K\xC3\xA4the");
    for (const char* value : {"", "relative/path"}) {
        const ScopedVariable data("XDG_DATA_HOME", value);
        const ScopedVariable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(QtSystemInfo().program_folder(), "/home/K\xC3\xA4the/.local/share/Tavernook");
        EXPECT_EQ(QtSystemInfo().settings_folder(), "/home/K\xC3\xA4the/.config/Tavernook");
    }
}

TEST(SystemFolders, MoveTogether) {
    const ScopedVariable moved("TAVERNOOK_HOME", "/media/stick/Tavernook/");
    EXPECT_EQ(QtSystemInfo().program_folder(), "/media/stick/Tavernook");
    EXPECT_EQ(QtSystemInfo().settings_folder(), "/media/stick/Tavernook");
}

TEST(SystemFolders, ARelativeHomeStartsAtThePresentFolder) {
    const ScopedVariable moved("TAVERNOOK_HOME", "stick/.");
    EXPECT_EQ(QtSystemInfo().program_folder(),
              (std::filesystem::current_path() / "stick").string());
}

std::string short_date_under(const std::string& locale) {
    const ScopedVariable all("LC_ALL", "");
    const ScopedVariable language("LANG", "C.UTF-8");
    const ScopedVariable time("LC_TIME", locale);
    return output_of(helper_program(), {QStringLiteral("short-date")});
}

TEST(ShortDate, FollowsTheUsersChoice) {
    EXPECT_EQ(short_date_under("de_DE.UTF-8"), "dd.MM.yy");
    EXPECT_EQ(short_date_under("en_US.UTF-8"), "M/d/yy");
    EXPECT_EQ(short_date_under("en_GB.UTF-8"), "dd/MM/yyyy");
}

TEST(ShortDate, MarksOfDirectionAreLeftOut) {
    EXPECT_EQ(short_date_under("ar_EG.UTF-8"), "d/M/yyyy");
}

}  // namespace
}  // namespace tavernook
