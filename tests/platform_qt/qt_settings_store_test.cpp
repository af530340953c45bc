#include "platform_qt/qt_settings_store.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"

namespace tavernook {
namespace {

class SettingsStoreTest : public testing::Test {
  protected:
    // Through the file: a value that only the store remembers does not count.
    std::string after_restart(const std::string& value) {
        QtSettingsStore().set("Recent Files", "RecentFile1", value);
        return QtSettingsStore().get("Recent Files", "RecentFile1");
    }

    TempFolder folder;
    ScopedVariable home{"TAVERNOOK_HOME", folder.path("moved home")};
};

TEST_F(SettingsStoreTest, NothingStoredIsEmpty) {
    EXPECT_EQ(QtSettingsStore().get("Recent Files", "RecentFile1"), "");
}

TEST_F(SettingsStoreTest, SectionsAndKeysAreApart) {
    QtSettingsStore store;
    store.set("Recent Files", "RecentFile1", "one");
    store.set("Recent Files", "RecentFile2", "two");
    store.set("Startup", "RecentFile1", "three");
    EXPECT_EQ(store.get("Recent Files", "RecentFile1"), "one");
    EXPECT_EQ(store.get("Recent Files", "RecentFile2"), "two");
    EXPECT_EQ(store.get("Startup", "RecentFile1"), "three");
}

TEST_F(SettingsStoreTest, ValuesMayBeReplacedAndEmptied) {
    EXPECT_EQ(after_restart("first"), "first");
    EXPECT_EQ(after_restart("second"), "second");
    EXPECT_EQ(after_restart(""), "");
}

TEST_F(SettingsStoreTest, PathsOfAnyBytesSurvive) {
    for (const std::string value :
         {"/home/K\xC3\xBC"
          "che/Our home.tvk",
          "/a, b; c=d/\"quoted\"\\back.tvk", " blanks ", "@ByteArray(x)", "@at",
          "tab\tline\nreturn\r", "%20 #", "\xF0\x9F\x8D\xB2", "[x]",
          "/latin/K\xFC"
          "che.tvk",
          "\xC3", "\x80\xFF\xFE"}) {
        EXPECT_EQ(after_restart(value), value);
    }
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(after_restart(all), all);
}

TEST_F(SettingsStoreTest, TheStoreMovesWithTheHome) {
    QtSettingsStore().set("Recent Files", "RecentFile1", "/a/home.tvk");
    const std::string file = read_whole_file(folder.path("moved home/Tavernook.conf"));
    EXPECT_NE(file.find("[Recent%20Files]\nRecentFile1=/a/home.tvk\n"), std::string::npos) << file;
}

TEST(SettingsStore, LivesAmongTheUsersSettingsOtherwise) {
    QtSettingsStore().set("Recent Files", "RecentFile1", "/b/home.tvk");
    const std::string file =
        read_whole_file(std::string(std::getenv("XDG_CONFIG_HOME")) + "/Tavernook/Tavernook.conf");
    EXPECT_NE(file.find("[Recent%20Files]\nRecentFile1=/b/home.tvk\n"), std::string::npos) << file;
}

}  // namespace
}  // namespace tavernook
