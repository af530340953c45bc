// The copy that a save moves aside: its names, when it is kept, and how it is offered again.
#include "core/project/previous_version.h"

#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

#include "core/project/known_files.h"
#include "core/project/session_testing.h"

namespace tavernook {

namespace {

constexpr const char* question =
    "The last save of home.tvk was interrupted. The version from before it, of 5/14/2024 6:30:00 "
    "PM, is still there.  Press YES to go back to that version (the file as it is now stays "
    "beside it) or press NO to open the file as it is.";

class PreviousVersion : public SessionTest {
  protected:
    // The file's time becomes 14 May 2024, 18:30 by the clock on the wall.
    void date(const std::string& path) {
        std::tm local{};
        local.tm_year = 124;
        local.tm_mon = 4;
        local.tm_mday = 14;
        local.tm_hour = 18;
        local.tm_min = 30;
        local.tm_isdst = -1;
        const timespec moment = {std::mktime(&local), 0};
        const timespec times[2] = {moment, moment};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
    // As after a crash: a new file whose writing was cut short, the old one aside.
    void interrupt_save() {
        make_project(home, "New shop");
        make_project(previous, "Old shop");
        std::filesystem::resize_file(home, 1000000);
        date(previous);
        start();
    }
    ExpectedBox& user_is_offered_the_previous(Answer answer) {
        return platform.boxes.expect_message(question, answer)
            .title("Previous Version")
            .buttons(Buttons::yes_no);
    }

    const std::string previous = platform.path("home.previous.tvk");
    const std::string interrupted = platform.path("home.interrupted.tvk");
};

TEST_F(PreviousVersion, LiesBesideTheProject) {
    EXPECT_EQ(previous_version_path("/a/home.tvk"), "/a/home.previous.tvk");
    EXPECT_EQ(previous_version_path("/a/HOME.TVK"), "/a/HOME.previous.tvk");
    EXPECT_EQ(previous_version_path("/a/home"), "/a/home.previous.tvk");
    EXPECT_EQ(previous_version_path("/a.tvk/home"), "/a.tvk/home.previous.tvk");
}

TEST_F(PreviousVersion, BelongsToAProject) {
    EXPECT_EQ(project_of_previous_version("/a/home.previous.tvk"), "/a/home.tvk");
    EXPECT_EQ(project_of_previous_version("/a/home.tvk"), "/a/home.tvk");
    EXPECT_EQ(project_of_previous_version("/a/previous.tvk"), "/a/previous.tvk");
    EXPECT_EQ(project_of_previous_version(""), "");
}

TEST_F(PreviousVersion, YesGoesBackAndKeepsTheInterruptedFile) {
    interrupt_save();
    const std::string cut_short = read_whole_file(home);
    user_is_offered_the_previous(Answer::yes);
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Old shop");
    EXPECT_EQ(store_on_disk(home), "Old shop");
    EXPECT_FALSE(exists(previous));
    EXPECT_TRUE(read_whole_file(interrupted) == cut_short);
}

TEST_F(PreviousVersion, NoLeavesBothFilesAndTheUnfinishedOneIsRefused) {
    interrupt_save();
    const std::string cut_short = read_whole_file(home);
    const std::string old = read_whole_file(previous);
    user_is_offered_the_previous(Answer::no);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    user_opens(home);
    expect_idle();
    EXPECT_TRUE(read_whole_file(home) == cut_short);
    EXPECT_TRUE(read_whole_file(previous) == old);
    EXPECT_FALSE(exists(interrupted));
}

TEST_F(PreviousVersion, BesideANewFileThatIsWholeItGoesUnasked) {
    make_project(home, "New shop");
    make_project(previous, "Old shop");
    start();
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "New shop");
    EXPECT_FALSE(exists(previous));
}

TEST_F(PreviousVersion, ThatStillCannotBeDeletedIsNoHindrance) {
    make_project(home, "New shop");
    make_project(previous, "Old shop");
    start();
    user_opens(home);
    const auto& log = platform.files.log();
    const auto removal = std::find(log.begin(), log.end(), "remove home.previous.tvk");
    ASSERT_NE(removal, log.end());
    const int n = static_cast<int>(removal - log.begin()) + 1;
    mnuFile_Close();
    make_project(previous, "Old shop");
    start();
    platform.files.fail_at(n, fault_number::permission_denied);
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store_on_disk(previous), "Old shop");
}

// It was never said to be finished: after a loss of power its bytes may be missing all the same.
TEST_F(PreviousVersion, IsOfferedBesideAFileThatStillBearsItsMark) {
    make_project(home, "New shop");
    make_project(previous, "Old shop");
    date(previous);
    std::string bytes = read_whole_file(home);
    bytes[48] = '\x01';
    write_whole_file(home, bytes);
    start();
    user_is_offered_the_previous(Answer::no);
    user_opens(home);
    EXPECT_EQ(store(), "New shop");
    EXPECT_TRUE(exists(previous));
    mnuFile_Save();
    EXPECT_FALSE(exists(previous));
}

// Of the right length, and not to be read: what had been written never came to the disk.
TEST_F(PreviousVersion, IsOfferedBesideAFileThatCannotBeReadToItsEnd) {
    make_project(home, "New shop");
    make_project(previous, "Old shop");
    date(previous);
    std::string bytes = read_whole_file(home);
    bytes.replace(1100000, 560000, std::string(560000, '\xFF'));  // with the lengths of texts
    write_whole_file(home, bytes);
    start();
    user_is_offered_the_previous(Answer::yes);
    user_opens(home);
    EXPECT_EQ(store(), "Old shop");
    EXPECT_TRUE(read_whole_file(interrupted) == bytes);
}

TEST_F(PreviousVersion, OpeningItByItsOwnNameOpensTheProject) {
    interrupt_save();
    user_is_offered_the_previous(Answer::yes);
    user_opens(previous);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Old shop");
    EXPECT_EQ(platform.settings.get("Recent Files", "RecentFile1"), home);
}

TEST_F(PreviousVersion, OpeningItFromTheCommandLineOpensTheProject) {
    interrupt_save();
    user_is_offered_the_previous(Answer::yes);
    main_load(previous);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Old shop");
}

TEST_F(PreviousVersion, AloneItIsOfferedToo) {
    interrupt_save();
    std::filesystem::remove(home);
    user_is_offered_the_previous(Answer::yes);
    user_opens(previous);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Old shop");
    EXPECT_FALSE(exists(interrupted));
}

TEST_F(PreviousVersion, AloneAndRefusedItStaysWhereItIs) {
    interrupt_save();
    std::filesystem::remove(home);
    user_is_offered_the_previous(Answer::no);
    user_opens(previous);
    expect_idle();
    EXPECT_EQ(store_on_disk(previous), "Old shop");
    EXPECT_FALSE(exists(home));
}

TEST_F(PreviousVersion, IsNotOfferedToAProgramThatMayNotHaveTheProject) {
    interrupt_save();
    platform.lock.taken_elsewhere.insert(home);
    platform.boxes.expect_message(
        "The project home.tvk is already open in another Tavernook window.  Close it there first, "
        "then open it here.");
    user_opens(previous);
    EXPECT_EQ(project_open, 0);
    EXPECT_TRUE(exists(previous));
}

TEST_F(PreviousVersion, ItsNameIsNotForNewProjects) {
    start();
    platform.boxes.expect_message(
        "The name home.previous.tvk is kept for what an interrupted save leaves behind.  Please "
        "choose another name.");
    user_creates(previous);
    EXPECT_FALSE(exists(previous));
    EXPECT_EQ(project_open, 0);
    EXPECT_TRUE(platform.lock.held.empty());
}

TEST_F(PreviousVersion, ItsNameIsNotForCopies) {
    make_project(home, "Corner shop");
    start();
    user_opens(home);
    platform.boxes.expect_message(
        "The name home.previous.tvk is kept for what an interrupted save leaves behind.  Please "
        "choose another name.");
    user_saves_as(previous);
    expect_open(home, "home.tvk");
    EXPECT_FALSE(exists(previous));
}

TEST_F(PreviousVersion, TheOnlyCopyOfAProjectIsNotWrittenOver) {
    interrupt_save();
    std::filesystem::remove(home);
    const char* const box =
        "The last save of home.tvk was interrupted and only home.previous.tvk is there.  Open that "
        "file to get the project back, or choose another name.";
    platform.boxes.expect_message(box);
    user_creates(home);
    EXPECT_EQ(project_open, 0);
    user_creates(cabin);
    platform.boxes.expect_message(box);
    user_saves_as(home);
    expect_open(cabin, "cabin.tvk");
    EXPECT_FALSE(exists(home));
    EXPECT_EQ(store_on_disk(previous), "Old shop");
}

TEST_F(PreviousVersion, TheOpenProjectMayBeSavedUnderItsOwnNameAfterAFailedSave) {
    make_project(home, "Corner shop");
    start();
    user_opens(home);
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    disk_is_full_at(write - 3);  // right behind the moving aside: not even an empty file is made
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    ASSERT_FALSE(exists(home));
    ASSERT_TRUE(exists(previous));
    user_saves_as(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_FALSE(exists(previous));
}

TEST_F(PreviousVersion, ASecondSaveThatFailsDoesNotPushTheGoodVersionOut) {
    make_project(home, "Corner shop");
    start();
    user_opens(home);
    const int write = first_write_of_a_save();
    for (const char* name : {"First try", "Second try"}) {
        user_renames_store(name);
        disk_is_full_at(write);
        platform.boxes.expect_message(save_error(61));
        mnuFile_Save();
        EXPECT_EQ(store_on_disk(previous), "Corner shop") << name;
    }
    platform.files.work_normally();
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Second try");
    EXPECT_FALSE(exists(previous));
}

TEST_F(PreviousVersion, StaysWhenACopyOverTheUnfinishedFileFails) {
    interrupt_save();  // of a file that this very program has known to be whole
    user_is_offered_the_previous(Answer::no);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    user_opens(home);
    user_creates(cabin);
    // Looking for the file and for what lies beside it comes before the steps of a plain save.
    const int write = first_write_of_a_save() + 2;
    platform.dialogs.expect_save("Save As", home).during([&] { disk_is_full_at(write); });
    platform.boxes.expect_message(save_error(61));
    mnuFile_SaveAs();
    EXPECT_EQ(store_on_disk(previous), "Old shop");
}

TEST_F(PreviousVersion, ThatCannotBeDeletedDoesNotFailTheSave) {
    make_project(home, "Corner shop");
    start();
    user_opens(home);
    platform.files.start_over();
    mnuFile_Save();
    const auto& log = platform.files.log();
    const auto removal = std::find(log.begin(), log.end(), "remove home.previous.tvk");
    ASSERT_NE(removal, log.end());
    const int n = static_cast<int>(removal - log.begin()) + 1;
    user_renames_store("Bakery");
    platform.files.start_over();
    platform.files.fail_at(n, fault_number::permission_denied);
    mnuFile_Save();
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(store_on_disk(previous), "Corner shop");
    platform.files.work_normally();
    mnuFile_Close();
    user_opens(home);
    EXPECT_EQ(store(), "Bakery");
    EXPECT_FALSE(exists(previous));
}

TEST_F(PreviousVersion, OnlyAFileKnownToBeWholeTakesItsPlace) {
    set_previous_version_aside(home);  // nothing is there: nothing happens
    EXPECT_FALSE(previous_version_exists(home));
    write_whole_file(home, "half");
    write_whole_file(previous, "old");
    set_previous_version_aside(home);
    EXPECT_FALSE(exists(home));
    EXPECT_EQ(read_whole_file(previous), "old");
    write_whole_file(home, "whole");
    project_file_is_known(home, platform.disk.stamp(home));
    set_previous_version_aside(home);
    EXPECT_FALSE(exists(home));
    EXPECT_EQ(read_whole_file(previous), "whole");
}

}  // namespace

}  // namespace tavernook
