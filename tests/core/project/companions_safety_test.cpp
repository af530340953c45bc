// Whatever fails at whatever moment of a save, project and histories are both the old or both the
// new ones after the next opening, and every text is whole. "The process ends" is tested by ending
// a copy of it.
#include "core/project/companions_fixture.h"
#include "core/project_file/project_file_testing.h"
#include "fakes/child_process.h"

namespace tavernook {

namespace {

class CompanionsSafety : public Companions {
  protected:
    // Boxes are noted and answered, not scripted.
    void note_boxes(Answer answer) {
        notes.texts.clear();
        notes.answer = answer;
        set_platform({.clock = &platform.clock,
                      .boxes = &notes,
                      .file_dialogs = &platform.dialogs,
                      .files = &platform.files,
                      .settings_store = &platform.settings,
                      .file_associations = &platform.associations,
                      .project_lock = &platform.lock,
                      .system_info = &platform.system,
                      .help_viewer = &platform.help,
                      .save_progress = &platform.progress,
                      .main = &platform.main,
                      .screens = &platform.screens,
                      .replace_item = &platform.replace_item});
    }
    void start_over(bool with_cabin) {
        note_boxes(Answer::no);
        prepare_disk();
        if (with_cabin) put_cabin();
        begin_run();
    }
    int operations_of(void (*command)(), bool with_cabin) {
        start_over(with_cabin);
        command();
        return platform.files.operations();
    }
    void save_as() {
        platform.dialogs.expect_save("Save As", cabin);
        mnuFile_SaveAs();
    }

    // Opens it in a new program and tells which project came, and what came with it.
    std::string opened(const std::string& path, Answer answer) {
        end_and_start_again();
        note_boxes(answer);
        open_recent_project(path);
        if (project_load_failed != 0 || project_open == 0) return "none";
        return store() == "Bakery" ? "new" : store() == "Market" ? "cabin" : "old";
    }
    std::string text_of_bread() {
        const std::string text = stored_document(bread).bytes;
        return text == new_text     ? "new"
               : text == old_text   ? "old"
               : text == cabin_text ? "cabin"
                                    : text;
    }
    void expect_home(Answer answer) {
        std::string state = opened(home, answer);
        if (state == "none") state = opened(home, Answer::yes);
        EXPECT_TRUE(state == "old" || state == "new") << state;
        EXPECT_EQ(histories_of("home"), state);
        // A text is on the disk at once: an unsaved one outlives the end of the program.
        const std::string text = text_of_bread();
        EXPECT_TRUE(text == "new" || text == state) << text;
        EXPECT_EQ(reports_ending_in(".tmp"), Steps{});
    }
    // Without a previous version beside it a file that was only begun reads like an old project.
    bool is_only_begun(const std::string& path) {
        return exists(path) && read_whole_file(path) != saved_as &&
               !exists(platform.path("cabin.previous.tvk"));
    }
    void expect_cabin(Answer answer, bool was_there) {
        if (!was_there && is_only_begun(cabin)) return;
        std::string state = opened(cabin, answer);
        if (state == "none" && was_there) state = opened(cabin, Answer::yes);
        EXPECT_TRUE(state == "new" || state == (was_there ? "cabin" : "none")) << state;
        if (state == "none") return;
        EXPECT_EQ(histories_of("cabin"), state);
        EXPECT_EQ(text_of_bread(), state);
    }
    Steps reports_ending_in(const char* extension) {
        return platform.disk.list(in_program("reports"), extension);
    }

    NotingBoxes notes;
    std::string saved_as;  // the bytes of a whole cabin.tvk
};

TEST_F(CompanionsSafety, AProcessThatEndsAtAnyOperationOfASave) {
    const int operations = operations_of(mnuFile_Save, false);
    ASSERT_GT(operations, 40);
    Answer answer = Answer::no;
    for (int n = 1; n <= operations; n += case_stride) {
        SCOPED_TRACE(n);
        start_over(false);
        const int status = exit_status_in_child([&] {
            platform.files.kill_at(n, Torn::yes);
            mnuFile_Save();
        });
        ASSERT_EQ(status, FaultyFiles::kill_status);
        answer = answer == Answer::yes ? Answer::no : Answer::yes;
        expect_home(answer);
    }
}

TEST_F(CompanionsSafety, AFailureAtAnyOperationOfASave) {
    const int operations = operations_of(mnuFile_Save, false);
    for (const Repeat repeat : {Repeat::once, Repeat::persistently}) {
        for (int n = repeat == Repeat::once ? 1 : 2; n <= operations; n += 2 * case_stride) {
            SCOPED_TRACE(n);
            start_over(false);
            platform.files.fail_at(n, 61, repeat, Torn::yes);
            mnuFile_Save();
            platform.files.start_over();
            EXPECT_EQ(project_modified == 0, notes.texts.empty());
            // With room on the disk again.
            mnuFile_Save();
            EXPECT_EQ(histories_of("home"), "new");
            EXPECT_EQ(text_of_bread(), "new");
            expect_home(Answer::yes);
        }
    }
}

TEST_F(CompanionsSafety, AProcessThatEndsAtAnyOperationOfASaveAs) {
    for (const bool with_cabin : {false, true}) {
        start_over(with_cabin);
        save_as();
        EXPECT_EQ(histories_of("cabin"), "new");
        saved_as = read_whole_file(cabin);
        const int operations = platform.files.operations();
        Answer answer = Answer::no;
        for (int n = 1; n <= operations; n += case_stride) {
            SCOPED_TRACE(std::to_string(n) + (with_cabin ? " over another" : ""));
            start_over(with_cabin);
            const int status = exit_status_in_child([&] {
                platform.files.kill_at(n, Torn::yes);
                save_as();
            });
            ASSERT_EQ(status, FaultyFiles::kill_status);
            answer = answer == Answer::yes ? Answer::no : Answer::yes;
            expect_cabin(answer, with_cabin);
            EXPECT_EQ(opened(home, Answer::yes), "old");
            EXPECT_EQ(histories_of("home"), "old");
            EXPECT_NE(text_of_bread(), cabin_text);
        }
    }
}

TEST_F(CompanionsSafety, AFailureAtAnyOperationOfASaveAs) {
    for (const Repeat repeat : {Repeat::once, Repeat::persistently}) {
        start_over(true);
        save_as();
        const int operations = platform.files.operations();
        for (int n = repeat == Repeat::once ? 1 : 2; n <= operations; n += 2 * case_stride) {
            SCOPED_TRACE(n);
            start_over(true);
            platform.files.fail_at(n, 61, repeat, Torn::yes);
            save_as();
            platform.files.start_over();
            if (project_path == home) {
                EXPECT_EQ(meal_documents[bread], "*vk14home000007.rtf");
                EXPECT_EQ(histories_of("cabin"), "cabin");
                EXPECT_EQ(bytes_of(text_path("cabin")), cabin_text);
                EXPECT_EQ(project_modified, i16_true);
                mnuFile_Save();
                expect_home(Answer::yes);
                expect_cabin(Answer::yes, true);
            } else {
                const bool was_told = !message().empty();
                // "No": a previous version that could not be removed is still there.
                EXPECT_EQ(opened(cabin, Answer::no), "new");
                EXPECT_EQ(text_of_bread(), "new");
                EXPECT_TRUE(was_told || histories_of("cabin") == "new");
                EXPECT_EQ(opened(home, Answer::yes), "old");
                EXPECT_EQ(histories_of("home"), "old");
            }
        }
    }
}

}  // namespace

}  // namespace tavernook
