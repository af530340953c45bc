// The files of the usage history, as they go with a save and with a project that is let go.
#include "inventory/usage_files.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

#include "basics/fault_expectation.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {

namespace {

using Content = std::map<std::string, std::string>;

class UsageFiles : public testing::Test {
  protected:
    UsageFiles() {
        platform.disk.make_folder(reports);
        set_project_path(platform.path("home.tvk"));
        items[3].in_use = 1;
        items[4].in_use = 1;
    }
    void put(const std::string& name, const std::string& bytes) {
        write_whole_file(reports + "/" + name, bytes);
    }
    Content content() {
        Content found;
        for (const auto& entry : std::filesystem::directory_iterator(reports)) {
            found[entry.path().filename().string()] = read_whole_file(entry.path().string());
        }
        return found;
    }

    TestPlatform platform;
    const std::string reports = platform.system.program + "/reports";
};

TEST_F(UsageFiles, TheItemIsTheNumberInFrontOfTheExtension) {
    EXPECT_EQ(usage_file_item("home000003.dat"), 3);
    EXPECT_EQ(usage_file_item("home010000.tmp"), 10000);
    EXPECT_EQ(usage_file_item("home999999.dat"), 999999);
    EXPECT_EQ(usage_file_item("000007.dat"), 7);
    EXPECT_EQ(usage_file_item("home12345678.dat"), 345678);
    for (const char* name : {"item.dat", "labeldat.dat", "general.dat", "calm.dat", "home00003.dat",
                             "home-00003.dat", "home 00003.dat", "home00003a.dat", ".dat", ""}) {
        EXPECT_EQ(usage_file_item(name), 0) << name;
    }
}

TEST_F(UsageFiles, ASaveCopiesTheWorkingCopiesAndKeepsThem) {
    put("home000003.tmp", "old and new moves");
    put("home000003.dat", "old moves");
    put("home000004.tmp", "first move");
    commit_usage_files();
    EXPECT_EQ(content(), (Content{{"home000003.dat", "old and new moves"},
                                  {"home000003.tmp", "old and new moves"},
                                  {"home000004.dat", "first move"},
                                  {"home000004.tmp", "first move"}}));
}

TEST_F(UsageFiles, AShorterWorkingCopyReplacesTheWholeHistory) {
    put("home000003.tmp", "short");
    put("home000003.dat", "a much longer history");
    commit_usage_files();
    EXPECT_EQ(content()["home000003.dat"], "short");
}

TEST_F(UsageFiles, ASaveWithoutMovesChangesNothing) {
    put("home000003.dat", "moves");
    commit_usage_files();
    EXPECT_EQ(content(), (Content{{"home000003.dat", "moves"}}));
}

TEST_F(UsageFiles, WorkingCopiesOfAnotherStemAreCommittedToo) {
    put("cabin000003.tmp", "moves");
    commit_usage_files();
    EXPECT_EQ(content()["cabin000003.dat"], "moves");
}

TEST_F(UsageFiles, AFileThatIsNoWorkingCopyIsNotCopiedOverATemplate) {
    put("item.tmp", "somebody's notes");
    put("item.dat", "page template");
    commit_usage_files();
    EXPECT_EQ(content()["item.dat"], "page template");
}

TEST_F(UsageFiles, TheHistoryOfADeletedItemGoesWithTheNextSave) {
    put("home000003.dat", "of an item that is there");
    put("home000005.dat", "of a deleted item");
    put("home000005.tmp", "of a deleted item, with its last move");
    commit_usage_files();
    EXPECT_EQ(content(), (Content{{"home000003.dat", "of an item that is there"},
                                  {"home000005.tmp", "of a deleted item, with its last move"}}));
}

TEST_F(UsageFiles, OnlyTheOpenProjectsOrphansGo) {
    put("home000005.dat", "ours");
    put("cabin000005.dat", "theirs");
    put("homestead000005.dat", "theirs");
    put("Home000005.dat", "theirs");
    put("000005.dat", "nobody's");
    remove_orphan_usage_files();
    EXPECT_EQ(content(), (Content{{"cabin000005.dat", "theirs"},
                                  {"homestead000005.dat", "theirs"},
                                  {"Home000005.dat", "theirs"},
                                  {"000005.dat", "nobody's"}}));
}

TEST_F(UsageFiles, NumbersBeyondTheItemsStay) {
    put("home010000.dat", "free item");
    put("home010001.dat", "no item");
    put("home999999.dat", "no item");
    remove_orphan_usage_files();
    EXPECT_EQ(content(), (Content{{"home010001.dat", "no item"}, {"home999999.dat", "no item"}}));
}

TEST_F(UsageFiles, AnItemMarkedWithAnyNumberButZeroKeepsItsHistory) {
    items[5].in_use = -1;
    put("home000005.dat", "moves");
    remove_orphan_usage_files();
    EXPECT_EQ(content(), (Content{{"home000005.dat", "moves"}}));
}

TEST_F(UsageFiles, PageTemplatesStayWhateverTheProjectIsCalled) {
    const Content templates = {{"item.dat", "1"},     {"main.dat", "2"}, {"general.dat", "3"},
                               {"labeldat.dat", "4"}, {"cal.dat", "5"},  {"calm.dat", "6"}};
    for (const auto& [name, bytes] : templates) put(name, bytes);
    // Less its last ten characters "general.dat" is "g", and "labeldat.dat" is "la".
    for (const char* project : {"g.tvk", "la.tvk", ".tvk", "item.tvk", "home.tvk"}) {
        set_project_path(platform.path(project));
        commit_usage_files();
        EXPECT_EQ(content(), templates) << project;
    }
}

TEST_F(UsageFiles, DiscardDeletesEveryWorkingCopyAndNoHistory) {
    put("home000003.dat", "moves");
    put("home000003.tmp", "moves");
    put("home000005.tmp", "moves");
    put("cabin000003.tmp", "moves");
    discard_usage_files();
    EXPECT_EQ(content(), (Content{{"home000003.dat", "moves"}}));
}

TEST_F(UsageFiles, WithoutTheirFolderThereIsNothingToDo) {
    std::filesystem::remove_all(reports);
    commit_usage_files();
    discard_usage_files();
    remove_orphan_usage_files();
    EXPECT_FALSE(std::filesystem::exists(reports));
}

TEST_F(UsageFiles, ACopyThatFailsLeavesTheOldHistoryWhole) {
    put("home000003.tmp", "old and new moves");
    put("home000003.dat", "old moves");
    platform.files.fail_at(2, fault_number::disk_full);  // behind the list of files
    EXPECT_EQ(fault_of([] { commit_usage_files(); }), fault_number::disk_full);
    EXPECT_EQ(content(),
              (Content{{"home000003.dat", "old moves"}, {"home000003.tmp", "old and new moves"}}));
    // The next save brings it.
    commit_usage_files();
    EXPECT_EQ(content()["home000003.dat"], "old and new moves");
}

TEST_F(UsageFiles, ADeletionThatFailsIsHandedOn) {
    put("home000003.tmp", "moves");
    platform.files.fail_at(2, fault_number::permission_denied);
    EXPECT_EQ(fault_of([] { discard_usage_files(); }), fault_number::permission_denied);
    EXPECT_EQ(content()["home000003.tmp"], "moves");
}

}  // namespace

}  // namespace tavernook
