// The command "Back-up Project".
#include "support/generated_projects.h"
#include "support/plain_run_coder.h"
#include "transfer/backup_fixture.h"

namespace tavernook {
namespace {

std::string of(std::size_t count, char byte) {
    return std::string(count, byte);
}

class BackUp : public BackupTest {
  protected:
    void expect_nothing_backed_up() {
        EXPECT_EQ(files_there(), (Steps{"home.tvk"}));
        EXPECT_TRUE(platform.progress.events().empty());
    }
    // An exact copy stands for a back-up that cannot hold the project.
    void expect_exact_copy(const std::string& bytes) {
        project_file_holds(bytes);
        write_whole_file(backup, "an older one");
        user_backs_up(backup);
        EXPECT_TRUE(bytes_of(copy) == bytes);
        EXPECT_EQ(bytes_of(home), bytes);
        EXPECT_TRUE(message().starts_with("Backed up as home.vzk.tvk, an exact copy of "));
        EXPECT_TRUE(message().ends_with(", as home.vzk cannot hold all of this project."));
        EXPECT_EQ(files_there(), (Steps{"home.tvk", "home.vzk", "home.vzk.tvk"}));
    }
    void expect_backup_of(const std::string& bytes) {
        EXPECT_TRUE(bytes_of(backup) == plainly_encoded(bytes));
    }
};

TEST_F(BackUp, AsksForTheFileAndTellsBothSizes) {
    platform.dialogs.expect_save("Back-up Project", backup)
        .filter("Tavernook Backup (*.vzk)|*.vzk")
        .initial_file(in_program("*.vzk"));
    mnuFile_Backup();
    const std::string bytes = read_whole_file(home);
    expect_backup_of(bytes);
    EXPECT_TRUE(decoded(read_whole_file(backup)).bytes == bytes);
    EXPECT_LT(read_whole_file(backup).size(), 1000u);
    EXPECT_EQ(message(), "Backed up as home.vzk, 1 KB of 1.7 MB.");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "home.vzk"}));
    expect_open(home, "home.tvk");
}

TEST_F(BackUp, ShowsHowFarItIs) {
    project_file_holds(of(32000, 'A') + of(9, 'B'));
    user_backs_up(backup);
    EXPECT_EQ(steps(),
              (Steps{"dialog Back-up Project",
                     "progress load Project Back-up|Compressing Project....Please Wait",
                     "progress offer cancel", "progress show", "progress bar 0", "progress bar 49",
                     "progress bar 99", "progress hide", "progress unload",
                     "window status 1 Backed up as home.vzk, 1 KB of 32 KB."}));
    EXPECT_EQ(platform.clock.waited, 1);
}

TEST_F(BackUp, CancelEndsItWithoutAWord) {
    platform.dialogs.expect_save("Back-up Project", cancelled);
    mnuFile_Backup();
    EXPECT_EQ(steps(), (Steps{"dialog Back-up Project"}));
    expect_nothing_backed_up();
}

TEST_F(BackUp, CancelledInTheMiddleItLeavesTheOlderOne) {
    write_whole_file(backup, "an older one");
    platform.progress.cancelled = true;
    user_backs_up(backup);
    EXPECT_EQ(bytes_of(backup), "an older one");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "home.vzk"}));
    EXPECT_EQ(message(), "The back-up as home.vzk was cancelled.");
    EXPECT_EQ(platform.progress.events().back(), "unload");
}

TEST_F(BackUp, WithoutAProjectNothingIsAsked) {
    mnuFile_Close();
    forget_steps();
    mnuFile_Backup();
    EXPECT_EQ(steps(), Steps{});
}

TEST_F(BackUp, IsOfTheFileAndSaysThatChangesAreMissing) {
    user_renames_store("Market");
    user_backs_up(backup);
    expect_backup_of(read_whole_file(home));
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(store(), "Market");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(message(), "Backed up as home.vzk, 1 KB of 1.7 MB, without your unsaved changes.");
}

TEST_F(BackUp, ReplacesAnOlderOne) {
    write_whole_file(backup, of(100'000, 'x'));
    user_backs_up(backup);
    expect_backup_of(read_whole_file(home));
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "home.vzk"}));
}

TEST_F(BackUp, HoldsGeneratedProjects) {
    mnuFile_Close();
    make_project(home, "Bakery", fill_typical_project);
    begin();
    user_backs_up(backup);
    const std::string bytes = read_whole_file(home);
    const bool holds = decoded(read_whole_file(backup)).bytes == bytes;
    EXPECT_TRUE(holds || bytes_of(copy) == bytes);
    EXPECT_EQ(exists(copy), !holds);
}

TEST_F(BackUp, BytesBehindTheLastRunNeedACopy) {
    expect_exact_copy(of(100, 'A') + "tail");
    EXPECT_EQ(bytes_of(backup), plainly_encoded(of(100, 'A') + "tail"));
}

TEST_F(BackUp, ABlockThatEndsInABlankNeedsACopy) {
    expect_exact_copy(of(31999, 'A') + " x" + of(9, 'B'));
}

TEST_F(BackUp, AFileOfWholeBlocksNeedsACopy) {
    expect_exact_copy(of(64000, 'A'));
}

TEST_F(BackUp, AFileOfMoreThan255BlocksCannotBeMade) {
    platform.boxes.expect_message("Error in compression routine.");
    expect_exact_copy(of(8'160'001, '\0'));
    EXPECT_EQ(bytes_of(backup), "an older one");
    EXPECT_EQ(message(),
              "Backed up as home.vzk.tvk, an exact copy of 8.2 MB, as home.vzk cannot hold all of "
              "this project.");
}

TEST_F(BackUp, AFileOfTooManyRunsCannotBeMade) {
    std::string bytes;
    for (int run = 0; run < 65536; ++run) bytes.append(8, run % 2 == 0 ? 'a' : 'b');
    platform.boxes.expect_message("Error in compression routine.");
    expect_exact_copy(bytes);
    EXPECT_EQ(bytes_of(backup), "an older one");
}

TEST_F(BackUp, ACopyOfAnEarlierOneGoesWithIt) {
    expect_exact_copy(of(100, 'A') + "tail");
    project_file_holds(of(100, 'A'));
    user_backs_up(backup);
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "home.vzk"}));
    EXPECT_EQ(message(), "Backed up as home.vzk, 1 KB of 1 KB.");
}

TEST_F(BackUp, ANameWithAFullStopGetsTheEnding) {
    user_backs_up(platform.path("home 22.11.2026"));
    EXPECT_EQ(files_there(), (Steps{"home 22.11.2026.vzk", "home.tvk"}));
    EXPECT_EQ(message(), "Backed up as home 22.11.2026.vzk, 1 KB of 1.7 MB.");
}

TEST_F(BackUp, WhatNobodyAgreedToReplaceStays) {
    const std::string dated = platform.path("home 22.11.2026.vzk");
    write_whole_file(dated, "older");
    user_backs_up(platform.path("home 22.11.2026"));
    EXPECT_EQ(bytes_of(dated), "older");
    EXPECT_EQ(message(),
              "home 22.11.2026.vzk is there already; nothing was backed up.  Choose another name.");
}

TEST_F(BackUp, NoProjectsOwnFileIsReplaced) {
    const std::string bytes = read_whole_file(home);
    for (const char* name : {"home.tvk", "home.previous.tvk", "cabin.TVK", ".home.tvk.lock"}) {
        user_backs_up(platform.path(name));
        EXPECT_EQ(message(), std::string(name) +
                                 " is a project's own file; nothing was backed up.  Choose another "
                                 "name.");
        expect_nothing_backed_up();
        EXPECT_TRUE(read_whole_file(home) == bytes);
    }
}

TEST_F(BackUp, TheProjectIsNotReplacedUnderAnotherName) {
    const std::string odd = platform.path("odd.vzk");
    std::filesystem::rename(home, odd);
    mnuFile_Close();
    user_opens(odd);
    const std::string bytes = read_whole_file(odd);
    const std::string link = platform.path("link.vzk");
    const std::string twin = platform.path("twin.vzk");
    std::filesystem::create_symlink(odd, link);
    std::filesystem::create_hard_link(odd, twin);
    for (const std::string& path : {odd, link, twin}) {
        user_backs_up(path);
        EXPECT_TRUE(
            message().ends_with("is a project's own file; nothing was backed up.  Choose "
                                "another name."));
        EXPECT_TRUE(read_whole_file(odd) == bytes);
    }
}

// Its copy would take the project's place.
TEST_F(BackUp, TheProjectIsNotReplacedByACopy) {
    std::filesystem::rename(home, copy);
    mnuFile_Close();
    user_opens(copy);
    user_backs_up(backup);
    EXPECT_TRUE(message().starts_with("home.vzk is a project's own file"));
    EXPECT_EQ(files_there(), (Steps{"home.vzk.tvk"}));
}

TEST_F(BackUp, AWriteProtectedFileStays) {
    write_whole_file(backup, "older");
    std::filesystem::permissions(backup, std::filesystem::perms::owner_read);
    user_backs_up(backup);
    EXPECT_EQ(bytes_of(backup), "older");
    EXPECT_EQ(message(), "home.vzk is write-protected; nothing was backed up.");
}

TEST_F(BackUp, AProjectFileThatHasGoneIsTold) {
    std::filesystem::remove(home);
    platform.boxes.expect_message("Error in compression routine.");
    user_backs_up(backup);
    EXPECT_EQ(message(), "The back-up as home.vzk failed: File not found.");
    EXPECT_EQ(files_there(), Steps{});
    EXPECT_EQ(platform.progress.events().back(), "unload");
}

TEST_F(BackUp, IsNoMoreOpenToOthersThanTheProject) {
    using std::filesystem::perms;
    std::filesystem::permissions(home, perms::owner_read | perms::owner_write);
    user_backs_up(backup);
    EXPECT_EQ(std::filesystem::status(backup).permissions(),
              perms::owner_read | perms::owner_write);
}

// Wherever the disk is full: the older back-up, or the new one, whole.
class FullDisk : public BackUp {
  protected:
    // How many operations the command takes without a fault.
    int operations_for(const std::string& bytes) {
        prepare(bytes);
        user_backs_up(backup);
        return platform.files.operations();
    }
    void prepare(const std::string& bytes) {
        platform.files.start_over();
        for (const std::string& name : files_there()) platform.disk.remove(platform.path(name));
        project_file_holds(bytes);
        write_whole_file(backup, older);
        platform.main.status = {};
    }
    std::string what_lies_there(const std::string& bytes) {
        if (bytes_of(backup) == older) return "older";
        return bytes_of(backup) == plainly_encoded(bytes) ? "new" : "broken";
    }

    const std::string older = "an older back-up";
    Steps outcomes;
};

TEST_F(FullDisk, LeavesTheOlderOrTheNewBackupWhole) {
    const std::string bytes = of(40000, 'A') + "some" + of(500, 'B');
    const int operations = operations_for(bytes);
    for (int n = 1; n <= operations; ++n) {
        for (const Torn torn : {Torn::no, Torn::yes}) {
            prepare(bytes);
            platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, torn);
            RecordingBoxes boxes(platform);
            user_backs_up(backup);
            platform.files.work_normally();
            ASSERT_NE(what_lies_there(bytes), "broken") << "operation " << n;
            ASSERT_TRUE(bytes_of(home) == bytes);
            if (message().starts_with("Backed up as")) {
                ASSERT_EQ(what_lies_there(bytes), "new") << "operation " << n;
            }
        }
    }
}

TEST_F(FullDisk, LeavesTheOlderBackupWholeOrACopyBesideTheNewOne) {
    const std::string bytes = of(40000, 'A') + "tail";
    const int operations = operations_for(bytes);
    for (int n = 1; n <= operations; ++n) {
        prepare(bytes);
        platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently);
        RecordingBoxes boxes(platform);
        user_backs_up(backup);
        platform.files.work_normally();
        const std::string outcome = what_lies_there(bytes);
        ASSERT_TRUE(outcome == "older" || (outcome == "new" && bytes_of(copy) == bytes))
            << "operation " << n << " leaves " << outcome;
        if (message().starts_with("Backed up as")) {
            ASSERT_EQ(bytes_of(copy), bytes) << "operation " << n;
        }
    }
}

TEST_F(FullDisk, IsToldInOneBox) {
    prepare(of(100, 'A'));
    platform.boxes.expect_message("Error in compression routine.");
    const auto first_write = [&] {
        platform.files.fail_at(9, fault_number::disk_full, Repeat::persistently);
    };
    first_write();
    user_backs_up(backup);
    EXPECT_EQ(message(), "The back-up as home.vzk failed: Disk full.");
}

}  // namespace
}  // namespace tavernook
