// Save and Save As, as a user goes through them.
#include <filesystem>

#include "core/project/session_testing.h"

namespace tavernook {

namespace {

class SaveProject : public SessionTest {
  protected:
    SaveProject() {
        make_project(home, "Corner shop");
        start();
        user_opens(home);
        forget_steps();
    }
};

TEST_F(SaveProject, WritesTheProjectAndClearsTheMark) {
    user_renames_store("Bakery");
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(project_modified, 0);
    expect_open(home, "home.tvk");
}

TEST_F(SaveProject, ShowsItsProgressAndLeavesTheWindowAsItIs) {
    mnuFile_Save();
    const Steps told = steps();
    ASSERT_GE(told.size(), 3U);
    EXPECT_EQ(told[0], "progress load Saving Project|Saving Project....");
    EXPECT_EQ(told[1], "progress show");
    EXPECT_EQ(told[2], "progress bar 0");
    EXPECT_EQ(window_steps(), Steps{"window status 3 Saving Project..."});
}

TEST_F(SaveProject, IsNotModifiedAlreadyWhileItIsWritten) {
    // Whatever looks during the save sees a project without unsaved changes.
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    disk_is_full_at(write);
    i16 seen = -7;
    platform.boxes.expect_message(save_error(61)).during([&] { seen = project_modified; });
    mnuFile_Save();
    EXPECT_EQ(seen, 0);
}

TEST_F(SaveProject, ASaveThatFailsIsToldAndTheProjectStaysModified) {
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    disk_is_full_at(write);
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    EXPECT_EQ(project_modified, i16_true);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(store_on_disk(platform.path("home.previous.tvk")), "Corner shop");
    // With room on the disk again.
    mnuFile_Save();
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_FALSE(exists(platform.path("home.previous.tvk")));
}

TEST_F(SaveProject, ASaveThatFailsWithoutChangesLeavesNoMark) {
    disk_is_full_at(first_write_of_a_save());
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    EXPECT_EQ(project_modified, 0);
}

TEST_F(SaveProject, SaveAsGoesOnUnderTheNewName) {
    user_renames_store("Bakery");
    platform.dialogs.expect_save("Save As", cabin)
        .filter(project_filter)
        .initial_file(in_program("*.tvk"));
    mnuFile_SaveAs();
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store_on_disk(cabin), "Bakery");
    EXPECT_EQ(store_on_disk(home), "Corner shop");
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(steps().back(), "window title Tavernook - cabin.tvk");
}

TEST_F(SaveProject, SaveAfterSaveAsWritesTheNewFile) {
    user_saves_as(cabin);
    user_renames_store("Bakery");
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(cabin), "Bakery");
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(SaveProject, SaveAsReplacesAFileThatIsThere) {
    write_whole_file(cabin, "something else");
    user_saves_as(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store_on_disk(cabin), "Corner shop");
    EXPECT_FALSE(exists(platform.path("cabin.previous.tvk")));
}

TEST_F(SaveProject, SaveAsUnderItsOwnNameIsASave) {
    user_renames_store("Bakery");
    user_saves_as(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(SaveProject, CancelInSaveAsChangesNothing) {
    user_renames_store("Bakery");
    platform.dialogs.expect_save("Save As", cancelled);
    mnuFile_SaveAs();
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(steps(), Steps{"dialog Save As"});
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(SaveProject, ASaveAsThatFailsKeepsTheOldNameAndTheMark) {
    user_renames_store("Bakery");
    platform.boxes.expect_message(save_error(76));
    user_saves_as(platform.path("no such folder/cabin.tvk"));
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_modified, i16_true);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(SaveProject, ASaveAsThatFailsDoesNotHarmTheFileOfThatName) {
    make_project(cabin, "Market");
    start();
    user_opens(home);
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    // Before the save comes a look whether the file is there, what lies beside it, and whether
    // there are histories to take along.
    platform.dialogs.expect_save("Save As", cabin).during([&] { disk_is_full_at(write + 3); });
    platform.boxes.expect_message(save_error(61));
    mnuFile_SaveAs();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store_on_disk(platform.path("cabin.previous.tvk")), "Market");
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(SaveProject, SaveAsToAProjectThatAnotherProgramHasIsRefused) {
    write_whole_file(cabin, "theirs");
    platform.lock.taken_elsewhere.insert(cabin);
    user_renames_store("Bakery");
    platform.boxes.expect_message(
        "The project cabin.tvk is already open in another Tavernook window.  Close it there "
        "first, then open it here.");
    user_saves_as(cabin);
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(read_whole_file(cabin), "theirs");
}

TEST_F(SaveProject, SaveAsDoesNotEnterTheRecentMenu) {
    user_saves_as(cabin);
    EXPECT_EQ(platform.settings.get("Recent Files", "RecentFile1"), home);
    EXPECT_EQ(platform.settings.get("Recent Files", "RecentFile2"), "");
}

TEST_F(SaveProject, WithoutAProjectNothingIsWritten) {
    mnuFile_Close();
    forget_steps();
    mnuFile_Save();
    mnuFile_SaveAs();
    EXPECT_EQ(steps(), Steps{});
    EXPECT_TRUE(platform.files.log().empty());
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(SaveProject, BehindALinkTheFileIsSavedAndTheLinkStays) {
    mnuFile_Close();
    const std::string link = platform.path("link.tvk");
    std::filesystem::create_symlink(home, link);
    open_recent_project(link);
    stores[1].name = "Harbour shop";
    mnuFile_Save();
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_FALSE(std::filesystem::is_symlink(home));
    EXPECT_EQ(store_on_disk(home), "Harbour shop");
    EXPECT_EQ(project_path, home);
}

}  // namespace

}  // namespace tavernook
