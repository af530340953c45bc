// The three recent projects of the File menu.
#include "core/project/recent_files.h"

#include <gtest/gtest.h>

#include "fakes/test_platform.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

using Paths = std::vector<std::string>;

class RecentFiles : public testing::Test {
  protected:
    void store(const std::string& first, const std::string& second, const std::string& third) {
        platform.settings.set("Recent Files", "RecentFile1", first);
        platform.settings.set("Recent Files", "RecentFile2", second);
        platform.settings.set("Recent Files", "RecentFile3", third);
    }
    Paths stored() {
        Paths paths;
        for (const char* key : {"RecentFile1", "RecentFile2", "RecentFile3"}) {
            paths.push_back(platform.settings.get("Recent Files", key));
        }
        return paths;
    }

    TestPlatform platform;
};

// A settings store on a disk that is full.
class FullSettingsStore : public FakeSettingsStore {
  public:
    void set(const std::string&, const std::string&, const std::string&) override {
        throw Fault(fault_number::disk_full);
    }
};

TEST_F(RecentFiles, TheFirstPathStandsAlone) {
    save_recent_project("/a/one.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/one.tvk", "", ""}));
    EXPECT_EQ(platform.settings.values.size(), 1U);
}

TEST_F(RecentFiles, ANewPathMovesTheOthersDown) {
    save_recent_project("/a/one.tvk");
    save_recent_project("/a/two.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/two.tvk", "/a/one.tvk", ""}));
    save_recent_project("/a/three.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/three.tvk", "/a/two.tvk", "/a/one.tvk"}));
}

TEST_F(RecentFiles, TheFourthPathPushesTheOldestOut) {
    store("/a/three.tvk", "/a/two.tvk", "/a/one.tvk");
    save_recent_project("/a/four.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/four.tvk", "/a/three.tvk", "/a/two.tvk"}));
}

TEST_F(RecentFiles, APathThatIsThereStaysInItsPlace) {
    const Paths before = {"/a/three.tvk", "/a/two.tvk", "/a/one.tvk"};
    store(before[0], before[1], before[2]);
    for (const std::string& path : before) {
        save_recent_project(path);
        EXPECT_EQ(stored(), before) << path;
    }
}

TEST_F(RecentFiles, PathsDifferInCapitals) {
    store("/a/one.tvk", "", "");
    save_recent_project("/a/One.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/One.tvk", "/a/one.tvk", ""}));
}

TEST_F(RecentFiles, AnEmptyKeyIsNotCopiedOverAFilledOne) {
    store("/a/one.tvk", "", "/a/three.tvk");
    save_recent_project("/a/new.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/new.tvk", "/a/one.tvk", "/a/three.tvk"}));
    store("", "/a/two.tvk", "/a/three.tvk");
    save_recent_project("/a/new.tvk");
    EXPECT_EQ(stored(), (Paths{"/a/new.tvk", "/a/two.tvk", "/a/two.tvk"}));
}

TEST_F(RecentFiles, TheMenuShowsTheFilledKeysNewestFirst) {
    store("/a/one.tvk", "", "/a/three.tvk");
    load_recent_menu();
    EXPECT_EQ(platform.main.recent_files, (Paths{"/a/one.tvk", "/a/three.tvk"}));
    store("", "", "");
    load_recent_menu();
    EXPECT_EQ(platform.main.recent_files, Paths{});
}

TEST_F(RecentFiles, LongPathsAreKeptWhole) {
    const std::string path = "/" + std::string(300, 'a') + "/home.tvk";
    save_recent_project(path);
    EXPECT_EQ(stored()[0], path);
}

TEST_F(RecentFiles, AStoreThatFailsIsTold) {
    FullSettingsStore full;
    set_platform({.boxes = &platform.boxes, .settings_store = &full});
    platform.boxes.expect_message("Tavernook error: rt6:61. Contact Brenwyk Software.");
    save_recent_project("/a/one.tvk");
}

}  // namespace

}  // namespace tavernook
