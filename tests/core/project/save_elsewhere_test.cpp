// Saves onto other files, and what a program knows about the files it has seen: no order of failed
// saves, answers and new names may end without a whole version.
#include <algorithm>

#include "core/project/main_commands.h"
#include "core/project/save_safety_testing.h"
#include "fakes/child_process.h"

namespace tavernook {

namespace {

class SaveElsewhere : public SaveSafety {
  protected:
    // Another whole project of the user's, which the save dialog has agreed to replace.
    void put_other_project() {
        write_whole_file(other, Image(old_bytes).fixed(104, "Other flour", 32).bytes);
        other_bytes = read_whole_file(other);
    }

    // The mark of a file in writing, which says nothing beside a whole content, may have stayed.
    static std::string without_mark(const std::string& bytes) {
        return Image(bytes).put(49, std::string(1, '\0')).bytes;
    }

    // The version of `other` that the user can get back is the whole one from before or the new.
    void expect_one_whole_version(const std::vector<std::string>& new_versions) {
        reset_program_state();
        note_boxes(Answer::yes);
        set_project_path(other);
        Project_Open();
        EXPECT_EQ(project_load_failed, 0);
        const std::string now = without_mark(read_whole_file(other));
        EXPECT_TRUE(now == other_bytes ||
                    std::find(new_versions.begin(), new_versions.end(), now) != new_versions.end());
    }

    // What lies at the path, as a user sees it who opens it: "old", "new", "fresh" (a new project),
    // "half" (opened, and told that it ends too early), "none" (refused or not there).
    std::string opened_at(const std::string& path, const std::string& fresh) {
        platform.files.start_over();
        reset_program_state();
        note_boxes(Answer::no);
        set_project_path(path);
        Project_Open();
        if (project_load_failed != 0) return "none";
        if (notes.texts.size() == 1 && notes.texts[0].find(" ends too early: ") != npos) {
            return "half";
        }
        EXPECT_TRUE(notes.texts.empty()) << notes.texts[0];
        const std::string bytes = without_mark(read_whole_file(path));
        if (bytes == fresh) return "fresh";
        const TableSnapshot now;
        if (now.difference(*old_tables).empty()) return "old";
        return now.difference(*new_tables).empty() ? "new" : "mixed " + now.difference(*new_tables);
    }
    // A half file is put aside before it is saved over.
    void expect_half_file_to_stay() {
        const std::string half = read_whole_file(other);
        EXPECT_TRUE(Project_Save(1));
        EXPECT_TRUE(read_whole_file(platform.path("other.interrupted.tvk")) == half);
    }
    // `command` writes `other`, where nothing was, and is cut short at each of its operations.
    void expect_whole_or_told(const std::function<void()>& command, const std::string& written) {
        const int operations = operations_of(command);
        int halves = 0;
        for (const Torn torn : {Torn::no, Torn::yes}) {
            for (int n = 1; n <= operations; n += case_stride) {
                SCOPED_TRACE(n);
                start_over();
                const int status = exit_status_in_child([&] {
                    note_boxes();
                    platform.files.kill_at(n, torn);
                    command();
                });
                ASSERT_EQ(status, FaultyFiles::kill_status);
                EXPECT_EQ(opened_at(home, {}), "old");
                const std::string left = opened_at(other, written);
                EXPECT_TRUE(left == "new" || left == "fresh" || left == "half" || left == "none")
                    << left;
                if (left == "half") expect_half_file_to_stay();
                halves += left == "half" ? 1 : 0;
            }
        }
        EXPECT_GT(halves, 5);
    }

    static constexpr auto npos = std::string::npos;
    const std::string other = platform.path("other.tvk");
    std::string other_bytes;
};

TEST_F(SaveElsewhere, ASaveAsToANewNameThatIsCutShortIsWholeOrToldAndTheOldFileStays) {
    expect_whole_or_told(
        [&] {
            platform.dialogs.expect_save("Save As", other);
            mnuFile_SaveAs();
        },
        {});
}

// Its first file is of the older form, in which a block may be missing rightly.
TEST_F(SaveElsewhere, ANewProjectThatIsCutShortIsWholeOrToldAndTheOldFileStays) {
    const auto start_new = [&] {
        file_version = 0;
        platform.dialogs.expect_save("New Project", other);
        mnuFile_NewProject();
    };
    start_over();
    note_boxes();
    start_new();
    const std::string fresh = read_whole_file(other);
    EXPECT_EQ(word_at(fresh, 47), 0);
    expect_whole_or_told(start_new, fresh);
}

TEST_F(SaveElsewhere, AContentFromElsewhereIsNotLostWhateverFails) {
    const std::string theirs = "their own content of this file";
    const auto change_and_save = [&] {
        write_whole_file(platform.path("arriving"), theirs);
        platform.disk.rename(platform.path("arriving"), home);
        note_boxes(Answer::yes);
        save_silently();
    };
    const auto theirs_lies_there = [&] {
        const FolderState state = disk_state();
        return std::any_of(state.begin(), state.end(),
                           [&](const auto& entry) { return entry.second == theirs; });
    };
    const int operations = operations_of(change_and_save);
    for (int n = 1; n <= operations; n += case_stride) {
        SCOPED_TRACE(n);
        start_over();
        platform.files.fail_at(n, 61, Repeat::persistently, Torn::yes);
        change_and_save();
        EXPECT_TRUE(theirs_lies_there());
        start_over();
        EXPECT_EQ(exit_status_in_child([&] {
                      platform.files.kill_at(n, Torn::yes);
                      change_and_save();
                  }),
                  FaultyFiles::kill_status);
        EXPECT_TRUE(theirs_lies_there());
    }
}

TEST_F(SaveElsewhere, SaveAsOntoAnExistingFileKeepsOneWholeVersionOfIt) {
    const auto save_as = [&] {
        platform.dialogs.expect_save("Save As", other);
        mnuFile_SaveAs();
    };
    start_over();
    put_other_project();
    note_boxes();
    save_as();
    EXPECT_EQ(read_whole_file(other), new_bytes);
    const int operations = platform.files.operations();
    for (const Repeat repeat : {Repeat::once, Repeat::persistently}) {
        for (int n = 1; n <= operations; n += case_stride) {
            SCOPED_TRACE(n);
            start_over();
            put_other_project();
            project_modified = i16_true;
            note_boxes();
            platform.files.fail_at(n, 61, repeat, Torn::yes);
            save_as();
            platform.files.start_over();
            EXPECT_EQ(read_whole_file(home), old_bytes);
            EXPECT_EQ(project_path, project_modified == 0 ? other : home);
            EXPECT_EQ(project_open, i16_true);
            expect_one_whole_version({new_bytes});
        }
    }
}

TEST_F(SaveElsewhere, ANewProjectOntoAnExistingFileKeepsOneWholeVersionOfIt) {
    const auto start_new = [&] {
        platform.dialogs.expect_save("New Project", other);
        mnuFile_NewProject();
    };
    start_over();
    put_other_project();
    note_boxes();
    start_new();
    EXPECT_EQ(project_open, i16_true);
    const std::string fresh = read_whole_file(other);
    EXPECT_EQ(word_at(fresh, 1), 0);
    const int operations = platform.files.operations();
    for (const Repeat repeat : {Repeat::once, Repeat::persistently}) {
        for (int n = 1; n <= operations; n += case_stride) {
            SCOPED_TRACE(n);
            start_over();
            put_other_project();
            note_boxes();
            platform.files.fail_at(n, 61, repeat, Torn::yes);
            start_new();
            platform.files.start_over();
            EXPECT_EQ(read_whole_file(home), old_bytes);
            expect_one_whole_version({fresh});
        }
    }
}

TEST_F(SaveElsewhere, AFailedSaveAsDoesNotForgetThatTheOpenFileIsWhole) {
    // A previous version that could not be deleted lies beside the open file.
    write_whole_file(home, new_bytes);
    EXPECT_EQ(project_after_opening(Answer::no), "new");
    write_whole_file(platform.path("home.previous.tvk"), old_bytes);
    put_other_project();
    platform.files.fail_at(20, 61, Repeat::persistently);
    platform.dialogs.expect_save("Save As", other);
    mnuFile_SaveAs();
    items[3].name = "Changed once more";
    save_failing_at(20, 61, Repeat::persistently, Torn::yes);
    EXPECT_EQ(project_after_opening(Answer::yes), "new");
}

TEST_F(SaveElsewhere, AFileThatVanishedIsNoLongerKnownToBeWhole) {
    write_whole_file(home, new_bytes);
    EXPECT_EQ(project_after_opening(Answer::no), "new");
    write_whole_file(platform.path("home.previous.tvk"), old_bytes);
    platform.disk.remove(home);
    save_failing_at(20, 61, Repeat::persistently, Torn::yes);
    save_failing_at(20, 61, Repeat::persistently, Torn::yes);
    EXPECT_EQ(project_after_opening(Answer::yes), "old");
}

TEST_F(SaveElsewhere, AFileThatIsDamagedSinceItWasReadDoesNotPushTheGoodOneOut) {
    start_over();
    write_whole_file(home, "damaged");
    write_whole_file(platform.path("home.previous.tvk"), old_bytes);
    EXPECT_EQ(project_after_opening(Answer::no), "none");
    project_close();
    platform.files.fail_at(20, 61, Repeat::persistently);
    platform.dialogs.expect_save("New Project", home);
    mnuFile_NewProject();
    EXPECT_EQ(project_after_opening(Answer::yes), "old");
}

TEST_F(SaveElsewhere, AMoveAsideThatFailsLeavesTheFileKnownToBeWhole) {
    write_whole_file(home, new_bytes);
    EXPECT_EQ(project_after_opening(Answer::no), "new");
    write_whole_file(platform.path("home.previous.tvk"), old_bytes);
    items[3].name = "Changed once more";
    platform.files.start_over();
    platform.files.fail_at(5, 70);  // the renaming
    EXPECT_FALSE(Project_Save(1));
    EXPECT_TRUE(platform.files.log().back().starts_with("rename home.tvk -> home.previous.tvk"));
    save_failing_at(20, 61, Repeat::persistently, Torn::yes);
    EXPECT_EQ(project_after_opening(Answer::yes), "new");
}

// The process ended right after the file was moved aside: only the previous version is there.
TEST_F(SaveElsewhere, ANameWhoseOnlyPreviousVersionIsLeftIsRefused) {
    const std::string box =
        "The last save of other.tvk was interrupted and only other.previous.tvk is there.  Open "
        "that file to get the project back, or choose another name.";
    start_over();
    write_whole_file(platform.path("other.previous.tvk"), old_bytes);
    const FolderState before = disk_state();
    for (const bool is_new : {true, false}) {
        platform.boxes.expect_message(box);
        platform.dialogs.expect_save(is_new ? "New Project" : "Save As", other);
        is_new ? static_cast<void>(mnuFile_NewProject()) : mnuFile_SaveAs();
        EXPECT_EQ(disk_state(), before);
        EXPECT_EQ(project_path, home);
        EXPECT_EQ(project_open, i16_true);
        EXPECT_EQ(items[3].name, "Rye flour");
    }
}

TEST_F(SaveElsewhere, SaveAsOntoItsOwnNameWorksAfterAFailedSave) {
    start_over();
    save_failing_at(6, 61, Repeat::once, Torn::no);  // right behind the moving aside
    ASSERT_FALSE(platform.disk.exists(home));
    ASSERT_TRUE(platform.disk.exists(platform.path("home.previous.tvk")));
    platform.dialogs.expect_save("Save As", home);
    mnuFile_SaveAs();
    EXPECT_EQ(read_whole_file(home), new_bytes);
}

TEST_F(SaveElsewhere, NamesOfPreviousVersionsAreRefused) {
    start_over();
    const FolderState before = disk_state();
    for (const bool is_new : {true, false}) {
        for (const char* name : {"fresh.previous.tvk", "HOME.Previous.TVK"}) {
            platform.boxes.expect_message(
                "The name " + std::string(name) +
                " is kept for what an interrupted save leaves behind.  Please choose another "
                "name.");
            platform.dialogs.expect_save(is_new ? "New Project" : "Save As", platform.path(name));
            is_new ? static_cast<void>(mnuFile_NewProject()) : mnuFile_SaveAs();
            EXPECT_EQ(disk_state(), before);
            EXPECT_EQ(project_path, home);
        }
    }
}

TEST_F(SaveElsewhere, WhatAnotherProgramHasOpenIsNeitherOpenedNorReplaced) {
    const std::string box =
        "The project other.tvk is already open in another Tavernook window.  Close it there "
        "first, then open it here.";
    start_over();
    put_other_project();
    platform.lock.taken_elsewhere.insert(other);
    const FolderState before = disk_state();
    const TableSnapshot tables;
    const std::pair<const char*, void (*)()> commands[] = {
        {"New Project", [] { mnuFile_NewProject(); }},
        {"Save As", [] { mnuFile_SaveAs(); }},
        {"Open Project", [] { main_open(); }}};
    for (const auto& [title, command] : commands) {
        SCOPED_TRACE(title);
        platform.boxes.expect_message(box);
        if (title == std::string_view("Open Project")) {
            platform.dialogs.expect_open(title, other);
        } else {
            platform.dialogs.expect_save(title, other);
        }
        settings_file = platform.path("TVK.dat");
        command();
        if (platform.disk.exists(settings_file)) platform.disk.remove(settings_file);
        EXPECT_EQ(disk_state(), before);
        EXPECT_EQ(project_path, home);
        EXPECT_EQ(project_open, i16_true);
        EXPECT_EQ(tables.difference(TableSnapshot()), "");
        EXPECT_EQ(platform.lock.held, std::set<std::string>{home});
    }
}

}  // namespace

}  // namespace tavernook
