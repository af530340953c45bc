// The command "Restore Project".
#include "core/project/settings_file.h"
#include "support/plain_run_coder.h"
#include "transfer/backup_fixture.h"

namespace tavernook {
namespace {

constexpr const char* told = "Restored from home.vzk.  Use Save Project As to give it a name.";

std::string restore_error(int number, const std::string& description) {
    return "Error in Module MAIN.mnuFile_Restore_Click.  Error Number " + std::to_string(number) +
           " Err Description=" + description;
}

// home.vzk is a back-up of home.tvk, which calls its store "Market" since.
class RestoreProject : public BackupTest {
  protected:
    RestoreProject() {
        user_backs_up(backup);
        stores[1].name = "Market";
        mnuFile_Save();
        mnuFile_Close();
        begin();
        EXPECT_EQ(store(), "Market");
    }
    void make_project_at(const std::string& path, const std::string& name) {
        mnuFile_Close();
        make_project(path, name);
        begin();
    }
    void expect_restored(const std::string& name = "Bakery") {
        EXPECT_EQ(store(), name);
        EXPECT_EQ(project_modified, i16_false);
        expect_open(restored, "Restored.gif");
    }
    void expect_home_open() {
        expect_open(home, "home.tvk");
        EXPECT_EQ(store(), "Market");
    }
    ExpectedBox& user_is_asked_which(Answer answer) {
        return platform.boxes
            .expect_message(
                "Beside home.vzk lies home.vzk.tvk, an exact copy of the project of " +
                    date_text(platform.disk.modified(copy)) +
                    ", made because the back-up could not hold all of it.  Press YES to restore "
                    "the exact copy or press NO to restore the back-up of " +
                    date_text(platform.disk.modified(backup)) + ".",
                answer)
            .title("Restore Project")
            .buttons(Buttons::yes_no_cancel);
    }
};

TEST_F(RestoreProject, AsksForTheFileAndOpensWhatWasInIt) {
    platform.dialogs.expect_open("Restore Project", backup)
        .filter("Tavernook Files (*.vzk)|*.vzk")
        .initial_file(in_program("*.vzk"));
    mnuFile_Restore();
    expect_restored();
    EXPECT_EQ(project_stem(), "restored");
    EXPECT_EQ(message(), told);
    EXPECT_EQ(files_in_program(), (Steps{"restored.tvk"}));
    EXPECT_EQ(store_on_disk(home), "Market");
}

TEST_F(RestoreProject, GoesInThisOrder) {
    user_restores(backup);
    Steps expected = {"dialog Restore Project",
                      "progress load Project Restore|Decompressing Project....Please Wait",
                      "progress offer cancel", "progress show", "progress bar 0"};
    Steps begun = steps();
    begun.resize(expected.size());
    EXPECT_EQ(begun, expected);
    EXPECT_EQ(platform.clock.waited, 2);  // the back-up, too
    Steps behind = steps();
    behind.erase(behind.begin(), std::find(behind.begin(), behind.end(), "progress bar 99"));
    behind.resize(7);
    EXPECT_EQ(behind, (Steps{"progress bar 99", "progress hide", "progress unload",
                             "window hide all", "window unload all",
                             "progress load Opening Project|Opening Project...Please Wait",
                             "window status 3 Opening Project..."}));
}

TEST_F(RestoreProject, CancelEndsItWithoutAWord) {
    platform.dialogs.expect_open("Restore Project", cancelled);
    mnuFile_Restore();
    EXPECT_EQ(steps(), (Steps{"dialog Restore Project"}));
    expect_home_open();
}

TEST_F(RestoreProject, CancelledInTheMiddleItChangesNothing) {
    std::filesystem::copy_file(home, copy);
    write_whole_file(restored, "an earlier one");
    user_renames_store("Kiosk");
    platform.progress.cancelled = true;
    for (const Answer answer : {Answer::yes, Answer::no}) {
        user_is_asked_which(answer);
        user_restores(backup);
        expect_open(home, "home.tvk");
        EXPECT_EQ(store(), "Kiosk");
        EXPECT_EQ(project_modified, i16_true);
        EXPECT_EQ(bytes_of(restored), "an earlier one");
        EXPECT_EQ(files_in_program(), (Steps{"restored.tvk"}));
        EXPECT_EQ(message(), "Cancelled; nothing has changed.");
        EXPECT_EQ(platform.progress.events().back(), "unload");
    }
}

TEST_F(RestoreProject, NeedsNoOpenProject) {
    mnuFile_Close();
    user_restores(backup);
    expect_restored();
}

TEST_F(RestoreProject, TheNameIsTheTitlesUntilTheProjectIsSavedUnderOne) {
    user_restores(backup);
    user_renames_store("Corner shop");
    mnuFile_Save();
    expect_open(restored, "Restored.gif");
    EXPECT_EQ(store_on_disk(restored), "Corner shop");
    user_saves_as(cabin);
    expect_open(cabin, "cabin.tvk");
}

TEST_F(RestoreProject, TheSettingsFileDoesNotRememberIt) {
    user_restores(backup);
    user_opens(home);
    user_restores(backup);
    const SettingsRecord settings = read_settings_file();
    ASSERT_EQ(settings.recent_count, 1);
    EXPECT_EQ(settings.recent_projects[0].right_trimmed(), home);
}

TEST_F(RestoreProject, UnsavedChangesAreAskedAboutAndSaved) {
    user_renames_store("Kiosk");
    user_is_asked_to_save(Answer::yes);
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(store_on_disk(home), "Kiosk");
}

TEST_F(RestoreProject, UnsavedChangesAreAskedAboutAndDropped) {
    user_renames_store("Kiosk");
    user_is_asked_to_save(Answer::no);
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(store_on_disk(home), "Market");
}

TEST_F(RestoreProject, UnsavedChangesAreAskedAboutAndKept) {
    user_renames_store("Kiosk");
    write_whole_file(restored, "an earlier one");
    user_is_asked_to_save(Answer::cancel);
    user_restores(backup);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Kiosk");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(message(), "home.vzk was not restored.");
    EXPECT_EQ(bytes_of(restored), "an earlier one");
    EXPECT_EQ(files_in_program(), (Steps{"restored.tvk"}));
}

TEST_F(RestoreProject, AnEarlierOneIsMovedAside) {
    write_whole_file(restored, "an earlier one");
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(bytes_of(in_program("restored 2.tvk")), "an earlier one");
    EXPECT_EQ(message(), std::string(told) +
                             "  The restored.tvk that was there before is now restored 2.tvk.");
    user_renames_store("Kiosk");
    mnuFile_Save();
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(store_on_disk(in_program("restored 3.tvk")), "Kiosk");
    EXPECT_EQ(files_in_program(), (Steps{"restored 2.tvk", "restored 3.tvk", "restored.tvk"}));
}

// What an interrupted save has left belongs to the project that was there.
TEST_F(RestoreProject, APreviousVersionGoesAsideWithItsProject) {
    write_whole_file(restored, "half written");
    write_whole_file(in_program("restored.previous.tvk"), "whole");
    write_whole_file(in_program("restored 2.previous.tvk"), "of another");
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(bytes_of(in_program("restored 3.tvk")), "half written");
    EXPECT_EQ(bytes_of(in_program("restored 3.previous.tvk")), "whole");
    EXPECT_EQ(bytes_of(in_program("restored 2.previous.tvk")), "of another");
}

TEST_F(RestoreProject, APreviousVersionAloneIsToldByItsName) {
    write_whole_file(in_program("restored.previous.tvk"), "whole");
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(message(),
              std::string(told) +
                  "  The restored.tvk that was there before is now restored 2.previous.tvk.");
}

TEST_F(RestoreProject, AnotherWindowMayHaveARestoredProjectOpen) {
    platform.lock.taken_elsewhere.insert(restored);
    platform.boxes.expect_message(
        "The project restored.tvk is already open in another Tavernook window.  Close it there "
        "first, then open it here.");
    user_restores(backup);
    expect_home_open();
    EXPECT_EQ(files_in_program(), Steps{});
}

TEST_F(RestoreProject, ADamagedBackupChangesNothing) {
    const std::string whole = read_whole_file(backup);
    const std::string no_end = whole.substr(0, whole.size() - 1);
    const std::string all_runs = whole.substr(0, whole.size() - 2) + "\xFF\xFF";
    const std::string no_runs = "This is a letter." + std::string(2, '\0');
    for (const std::string& damaged : {no_end, all_runs, no_runs, std::string()}) {
        write_whole_file(backup, damaged);
        write_whole_file(restored, "an earlier one");
        user_renames_store("Kiosk");
        platform.boxes.expect_message(restore_error(63, "Bad record number"));
        user_restores(backup);
        expect_open(home, "home.tvk");
        EXPECT_EQ(store(), "Kiosk");
        EXPECT_EQ(project_modified, i16_true);
        EXPECT_EQ(message(), "home.vzk could not be restored; nothing has changed.");
        EXPECT_EQ(bytes_of(restored), "an earlier one");
        EXPECT_EQ(files_in_program(), (Steps{"restored.tvk"}));
        EXPECT_EQ(platform.progress.events().back(), "unload");
    }
}

TEST_F(RestoreProject, IsNoMoreOpenToOthersThanTheBackupAndCanBeSaved) {
    using std::filesystem::perms;
    write_whole_file(in_program("restored.tvk.new"), "left by a program that was killed");
    std::filesystem::permissions(backup, perms::owner_read);
    user_restores(backup);
    expect_restored();
    EXPECT_EQ(std::filesystem::status(restored).permissions(),
              perms::owner_read | perms::owner_write);
    EXPECT_EQ(files_in_program(), (Steps{"restored.tvk"}));
    user_renames_store("Corner shop");
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(restored), "Corner shop");
}

TEST_F(RestoreProject, ABackupThatHasGoneIsTold) {
    platform.boxes.expect_message(restore_error(53, "File not found"));
    user_restores(platform.path("gone.vzk"));
    expect_home_open();
}

// It decodes, and what comes out is no project: as with any file that cannot be opened.
TEST_F(RestoreProject, ABackupOfSomethingElseIsNoProject) {
    write_whole_file(backup, encoded(std::string(400, 'x')).bytes);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    user_restores(backup);
    expect_idle();
    EXPECT_EQ(message(), "home.vzk was not restored.");
}

TEST_F(RestoreProject, TheExactCopyIsOfferedFirst) {
    std::filesystem::copy_file(home, copy);
    user_is_asked_which(Answer::yes);
    user_restores(backup);
    expect_restored("Market");
    EXPECT_TRUE(bytes_of(copy) == bytes_of(home));
    EXPECT_TRUE(bytes_of(restored) == bytes_of(home));
    EXPECT_EQ(message(), "Restored from home.vzk.tvk.  Use Save Project As to give it a name.");
}

TEST_F(RestoreProject, TheBackupBesideTheExactCopyIsTakenWhenWanted) {
    std::filesystem::copy_file(home, copy);
    user_is_asked_which(Answer::no);
    user_restores(backup);
    expect_restored("Bakery");
}

TEST_F(RestoreProject, NeitherIsTakenWhenNotWanted) {
    std::filesystem::copy_file(home, copy);
    user_is_asked_which(Answer::cancel);
    user_restores(backup);
    expect_home_open();
    EXPECT_EQ(files_in_program(), Steps{});
}

TEST_F(RestoreProject, AnExactCopyAloneIsRestored) {
    std::filesystem::rename(home, copy);
    user_restores(copy);
    expect_restored("Market");
}

TEST_F(RestoreProject, AProjectThatCouldNotBeCodedComesBack) {
    make_project_at(home, "Kiosk");
    const std::string bytes = read_whole_file(home);
    const std::string longer = bytes + std::string(8'160'000, '\0');
    write_whole_file(home, longer);
    platform.boxes.expect_message("Error in compression routine.");
    user_backs_up(backup);
    write_whole_file(home, "lost");
    user_is_asked_which(Answer::yes);
    user_restores(backup);
    expect_restored("Kiosk");
    EXPECT_TRUE(read_whole_file(restored) == longer);
}

// Whatever fails: the open project is open, or the restored one; nothing that was there is lost.
TEST_F(RestoreProject, WhereTheDiskIsFullNothingIsLost) {
    const std::string earlier = read_whole_file(home);
    const std::string whole = decoded(read_whole_file(backup)).bytes;
    const auto prepare = [&] {
        platform.files.start_over();
        for (const std::string& name : files_in_program()) {
            platform.disk.remove(in_program(name));
        }
        write_whole_file(restored, earlier);
        reset_program_state();
        start();
        user_opens(home);
        forget_steps();
    };
    prepare();
    user_restores(backup);
    const auto& log = platform.files.log();
    const auto renamed =
        std::find(log.begin(), log.end(), "rename restored.tvk.new -> restored.tvk");
    const int operations = static_cast<int>(renamed - log.begin()) + 2;
    ASSERT_GT(operations, 10);
    for (int n = 1; n <= operations; ++n) {
        prepare();
        RecordingBoxes boxes(platform);
        platform.files.fail_at(n, fault_number::disk_full);
        user_restores(backup);
        platform.files.work_normally();
        const std::string aside = bytes_of(in_program("restored 2.tvk"));
        ASSERT_TRUE(bytes_of(restored) == earlier || aside == earlier) << "operation " << n;
        ASSERT_TRUE(bytes_of(restored) == earlier || bytes_of(restored) == whole ||
                    bytes_of(restored) == "none")
            << "operation " << n;
        ASSERT_EQ(project_open, i16_true) << "operation " << n;
        ASSERT_EQ(store(), project_path == restored ? "Bakery" : "Market") << "operation " << n;
        ASSERT_EQ(platform.lock.held, std::set<std::string>{project_path}) << "operation " << n;
        ASSERT_LE(boxes.texts.size(), 1u) << "operation " << n;
        if (aside == earlier) {
            ASSERT_TRUE(message().ends_with(
                "  The restored.tvk that was there before is now restored 2.tvk."))
                << "operation " << n;
        }
    }
}

TEST_F(RestoreProject, DroppedChangesAreUnsavedAgainWhenItFails) {
    write_whole_file(restored, "an earlier one");
    user_renames_store("Kiosk");
    user_is_asked_to_save(Answer::no).during([this] {
        platform.files.start_over();
        platform.files.fail_at(5, fault_number::disk_full, Repeat::persistently);  // moving aside
    });
    platform.boxes.expect_message(restore_error(61, "Disk full"));
    user_restores(backup);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Kiosk");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(bytes_of(restored), "an earlier one");
}

// Any damage ends in a box or in some project; nothing is written but in the program's folder.
TEST_F(RestoreProject, ATruncatedOrDamagedBackupDoesNoHarm) {
    const std::string whole = read_whole_file(backup);
    const Steps beside = files_there();
    RecordingBoxes boxes(platform, Answer::no);
    for (std::size_t place = 0; place < whole.size(); place += 17) {
        std::string damaged = place % 2 == 0 ? whole.substr(0, place) : whole;
        if (place % 2 != 0) damaged[place] = static_cast<char>(~damaged[place]);
        write_whole_file(backup, damaged);
        user_restores(backup);
        ASSERT_TRUE(message().starts_with("Restored from home.vzk.") ||
                    message().starts_with("home.vzk "))
            << message();
    }
    EXPECT_EQ(files_there(), beside);
    for (const std::string& name : files_in_program()) {
        EXPECT_TRUE(name.starts_with("restored")) << name;
    }
}

}  // namespace
}  // namespace tavernook
