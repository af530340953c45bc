// The three recent projects of the File menu.
#include "core/project/recent_files.h"

#include <gtest/gtest.h>

#include "basics/fault.h"
#include "core/program_state.h"
#include "core/project/settings_file.h"
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

TEST_F(RecentFiles, TheProjectThatWasOpenLastIsInFrontWhereverItStands) {
    store("/a/one.tvk", "/a/two.tvk", "/a/three.tvk");
    note_last_project("/a/two.tvk");
    load_recent_menu();
    EXPECT_EQ(platform.main.recent_files, (Paths{"/a/two.tvk", "/a/one.tvk", "/a/three.tvk"}));
    note_last_project("/a/new.tvk");
    note_last_project("");
    load_recent_menu();
    EXPECT_EQ(platform.main.recent_files,
              (Paths{"/a/new.tvk", "/a/one.tvk", "/a/two.tvk", "/a/three.tvk"}));
    EXPECT_EQ(stored(), (Paths{"/a/one.tvk", "/a/two.tvk", "/a/three.tvk"}));
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

// --- With the four of the settings file

class RecentFilesOfBoth : public RecentFiles {
  protected:
    RecentFilesOfBoth() { settings_file = platform.path("TVK.dat"); }
    // Oldest first, as they come.
    void leave(std::initializer_list<const char*> paths) {
        for (const char* path : paths) add_recent_project(path);
    }
    Paths menu() {
        load_recent_menu();
        return platform.main.recent_files;
    }
};

TEST_F(RecentFilesOfBoth, WhatOnlyTheSettingsFileKnowsIsShown) {
    leave({"/a/two.tvk", "/a/one.tvk"});
    EXPECT_EQ(menu(), (Paths{"/a/one.tvk", "/a/two.tvk"}));
}

TEST_F(RecentFilesOfBoth, TheStoresComeFirstAndNoneTwice) {
    leave({"/a/four.tvk", "/a/three.tvk", "/a/two.tvk"});
    store("/a/one.tvk", "/a/two.tvk", "/a/three.tvk");
    EXPECT_EQ(menu(), (Paths{"/a/one.tvk", "/a/two.tvk", "/a/three.tvk", "/a/four.tvk"}));
}

TEST_F(RecentFilesOfBoth, AProjectThatWasMadeAndLeftStandsBeforeThoseThatAreOlderInBoth) {
    leave({"/a/three.tvk", "/a/two.tvk", "/a/new.tvk"});
    store("/a/one.tvk", "/a/two.tvk", "/a/three.tvk");
    EXPECT_EQ(menu(), (Paths{"/a/one.tvk", "/a/new.tvk", "/a/two.tvk", "/a/three.tvk"}));
}

TEST_F(RecentFilesOfBoth, TheMenuHasSixPlaces) {
    leave({"/a/7.tvk", "/a/6.tvk", "/a/5.tvk", "/a/4.tvk"});
    store("/a/1.tvk", "/a/2.tvk", "/a/3.tvk");
    EXPECT_EQ(menu(),
              (Paths{"/a/1.tvk", "/a/2.tvk", "/a/3.tvk", "/a/4.tvk", "/a/5.tvk", "/a/6.tvk"}));
}

TEST_F(RecentFilesOfBoth, ASettingsFileThatCannotBeReadLeavesTheStores) {
    leave({"/a/two.tvk"});
    store("/a/one.tvk", "", "");
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::device_io_error, Repeat::persistently);
    EXPECT_EQ(menu(), Paths{"/a/one.tvk"});
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
