// Nothing is lost: whatever fails at whatever moment of a save, the user ends with one whole
// version of the project. "The process ends" is tested by ending a copy of it.
#include "core/project/save_safety_testing.h"
#include "core/project/settings_file.h"
#include "fakes/child_process.h"

namespace tavernook {

namespace {

struct Failure {
    int fault;
    Repeat repeat;
    Torn torn;
};
constexpr Failure failures[] = {
    {61, Repeat::once, Torn::no},  {61, Repeat::persistently, Torn::no},
    {61, Repeat::once, Torn::yes}, {57, Repeat::persistently, Torn::yes},
    {70, Repeat::once, Torn::no},  {70, Repeat::persistently, Torn::no}};

TEST_F(SaveSafety, AFailureAtAnyOperationLosesNothing) {
    const int operations = operations_of(save_silently);
    ASSERT_GT(operations, 40);
    int first = 1;
    for (const Failure& failure : failures) {
        for (int n = first; n <= operations; n += case_stride) {
            SCOPED_TRACE("fault " + std::to_string(failure.fault) + " at " + std::to_string(n));
            start_over();
            save_failing_at(n, failure.fault, failure.repeat, failure.torn);
            expect_nothing_lost();
        }
        first = first % case_stride + 1;
    }
}

TEST_F(SaveSafety, AProcessThatEndsAtAnyOperationLosesNothing) {
    const int operations = operations_of(save_silently);
    for (const Torn torn : {Torn::no, Torn::yes}) {
        for (int n = 1; n <= operations; n += case_stride) {
            SCOPED_TRACE(std::string(torn == Torn::yes ? "torn" : "ended") + " at " +
                         std::to_string(n));
            start_over();
            const int status = exit_status_in_child([&] {
                platform.files.kill_at(n, torn);
                save_silently();
            });
            ASSERT_EQ(status, FaultyFiles::kill_status);
            expect_nothing_lost();
        }
    }
}

TEST_F(SaveSafety, AFailedSaveAndThenAGoodOneLeaveTheNewProjectAlone) {
    const int operations = operations_of(save_silently);
    for (int n = 1; n <= operations; n += case_stride) {
        SCOPED_TRACE(n);
        start_over();
        save_failing_at(n, 61, Repeat::once, Torn::yes);
        ASSERT_TRUE(Project_Save(1));
        EXPECT_EQ(read_whole_file(home), new_bytes);
        EXPECT_EQ(platform.disk.list(platform.temp.path(), ""),
                  std::vector<std::string>{"home.tvk"});
    }
}

TEST_F(SaveSafety, SavesThatFailAgainAndAgainLoseNothing) {
    const int operations = operations_of(save_silently);
    for (int n = 1; n <= operations; n += case_stride) {
        SCOPED_TRACE(n);
        start_over();
        save_failing_at(n, 61, Repeat::once, Torn::yes);
        save_failing_at(operations - n + 1, 57, Repeat::once, Torn::yes);
        save_failing_at(n, 70, Repeat::persistently, Torn::no);
        expect_nothing_lost();
    }
}

TEST_F(SaveSafety, AFailedSaveThenTheProcessEndsInTheNextOne) {
    const int operations = operations_of(save_silently);
    for (int n = 1; n <= operations; n += 3 * case_stride) {
        for (int m = 1; m <= operations; m += 7 * case_stride) {
            SCOPED_TRACE(std::to_string(n) + ", " + std::to_string(m));
            start_over();
            save_failing_at(n, 61, Repeat::once, Torn::yes);
            const int status = exit_status_in_child([&] {
                platform.files.kill_at(m, Torn::yes);
                save_silently();
            });
            ASSERT_TRUE(status == FaultyFiles::kill_status || status == 0);
            expect_nothing_lost();
        }
    }
}

TEST_F(SaveSafety, AnOpeningThatFailsAtAnyOperationLosesNothing) {
    start_over();
    save_failing_at(30, 61, Repeat::persistently, Torn::yes);
    const FolderState interrupted = disk_state();
    for (const Answer answer : {Answer::yes, Answer::no}) {
        restore(interrupted);
        project_after_opening(answer);
        const int operations = platform.files.operations();
        ASSERT_GT(operations, 5);
        for (int n = 1; n <= operations; n += case_stride) {
            SCOPED_TRACE(n);
            restore(interrupted);
            platform.files.start_over();
            platform.files.fail_at(n, 57);
            note_boxes(answer);
            open();
            platform.files.start_over();
            expect_nothing_lost();
        }
    }
}

TEST_F(SaveSafety, YesKeepsTheInterruptedFileBesideTheProject) {
    start_over();
    save_failing_at(30, 61, Repeat::persistently, Torn::yes);
    const std::string half = read_whole_file(home);
    EXPECT_EQ(project_after_opening(Answer::yes), "old");
    EXPECT_EQ(read_whole_file(platform.path("home.interrupted.tvk")), half);
    EXPECT_EQ(read_whole_file(home), old_bytes);
    EXPECT_FALSE(platform.disk.exists(platform.path("home.previous.tvk")));
}

TEST_F(SaveSafety, ThePreviousVersionItselfCanBeOpened) {
    start_over();
    save_failing_at(30, 61, Repeat::persistently, Torn::yes);
    note_boxes(Answer::yes);
    reset_program_state();
    set_project_path(platform.path("home.previous.tvk"));
    Project_Open();
    expect_opened();
    EXPECT_EQ(project_path, home);
    EXPECT_EQ(project_name, "home.tvk");
    EXPECT_EQ(read_whole_file(home), old_bytes);
}

TEST_F(SaveSafety, TheQuestionNamesTheProjectAndTheTime) {
    write_whole_file(home, Image(new_bytes).put(49, "\x01").bytes);
    write_whole_file(platform.path("home.previous.tvk"), old_bytes);
    const std::string when = date_text(platform.disk.modified(platform.path("home.previous.tvk")));
    platform.boxes
        .expect_message(
            "The last save of home.tvk was interrupted. The version from before it, of " + when +
                ", is still there.  Press YES to go back to that version (the file as "
                "it is now stays beside it) or press NO to open the file as it is.",
            Answer::no)
        .title("Previous Version")
        .buttons(Buttons::yes_no);
    open();
    expect_opened();
}

// A save that ended between the header and the last block leaves a file that reads like an old one
// without those blocks.
TEST_F(SaveSafety, AfterNoAFileWithoutItsLastBlocksIsRefusedAndNotSavedOver) {
    const auto setup = static_cast<std::size_t>(long_at(new_bytes, 39));
    Image half(new_bytes.substr(0, static_cast<std::size_t>(long_at(new_bytes, setup + 410)) - 2));
    for (const int slot : {410, 416, 422, 428}) half.position_word(setup + slot, 0);
    write_whole_file(home, half.bytes);
    write_whole_file(platform.path("home.previous.tvk"), old_bytes);
    EXPECT_EQ(project_after_opening(Answer::no), "none");
    EXPECT_EQ(notes.texts.back(), bad_record_box);
    platform.disk.remove(platform.path("home.previous.tvk"));
    EXPECT_EQ(project_after_opening(Answer::no),
              "mixed item_details[3]");  // alone it is an old file
}

// --- "TVK.dat"

class SettingsSafety : public ProjectFileTest {
  protected:
    void SetUp() override {
        settings_file = platform.path("settings/TVK.dat");
        add_recent_project("/home/me/old.tvk");
        old_bytes = read_whole_file(settings_file);
        platform.files.start_over();
        add_new_one();
        operations = platform.files.operations();
        new_bytes = read_whole_file(settings_file);
        ASSERT_NE(old_bytes, new_bytes);
        ASSERT_GE(operations, 6);
    }
    void start_from(const std::string& bytes) {
        platform.files.start_over();
        write_whole_file(settings_file, bytes);
    }
    static void add_new_one() { add_recent_project("/home/me/new.tvk"); }

    int operations = 0;
    std::string old_bytes, new_bytes;
};

TEST_F(SettingsSafety, AProcessThatEndsAtAnyOperationLeavesTheOldOrTheNewBytes) {
    for (const Torn torn : {Torn::no, Torn::yes}) {
        for (int n = 1; n <= operations; ++n) {
            SCOPED_TRACE(n);
            start_from(old_bytes);
            const int status = exit_status_in_child([&] {
                platform.files.kill_at(n, torn);
                add_new_one();
            });
            ASSERT_EQ(status, FaultyFiles::kill_status);
            EXPECT_EQ(read_whole_file(settings_file), old_bytes);  // replacing it comes last
            add_new_one();
            EXPECT_EQ(read_whole_file(settings_file), new_bytes);
        }
    }
}

TEST_F(SettingsSafety, AFailureAtAnyOperationIsToldAndLeavesTheOldBytes) {
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        start_from(old_bytes);
        platform.files.fail_at(n, 61, Repeat::persistently, Torn::yes);
        platform.boxes.expect_message(
            "Error in Module MAIN.add_recent_project.  Error Number 61 Err Description=Disk full");
        add_new_one();
        platform.boxes.check_used_up();
        EXPECT_EQ(read_whole_file(settings_file), old_bytes);
        platform.files.start_over();
        add_new_one();
        EXPECT_EQ(read_whole_file(settings_file), new_bytes);
    }
}

TEST_F(SettingsSafety, ADamagedOrCutFileIsReadAndReplaced) {
    for (const std::size_t length : {0U, 1U, 128U, 999U, 1001U, 3000U, 3030U}) {
        start_from(std::string(length, '\xFF'));
        add_new_one();
        EXPECT_EQ(read_settings_file().recent_projects[0], "/home/me/new.tvk") << length;
        EXPECT_EQ(read_whole_file(settings_file).size(), 3031U);
    }
}

}  // namespace

}  // namespace tavernook
