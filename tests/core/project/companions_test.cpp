// Texts and histories follow what becomes of their project, through every door.
#include "core/project/companions_fixture.h"
#include "inventory/items.h"

namespace tavernook {

namespace {

TEST_F(Companions, ASaveCommitsBoth) {
    mnuFile_Save();
    EXPECT_EQ(histories_of("home"), "new");
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
    EXPECT_EQ(reports(), (Steps{"home000003.dat", "home000004.dat"}));
    EXPECT_EQ(message(), "");
}

TEST_F(Companions, YesToSavingCommitsBoth) {
    user_is_asked_to_save(Answer::yes);
    mnuFile_Close();
    EXPECT_EQ(histories_of("home"), "new");
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
}

// --- "No" ----------------------------------------------------------------------------------------

TEST_F(Companions, NoAloneChangesNothingYet) {
    user_is_asked_to_save(Answer::no);
    bool may_go_on = false;
    EXPECT_TRUE(Project_Modified(may_go_on));
    project_modified = i16_true;
    expect_unsaved_changes();
}

TEST_F(Companions, NoOnClosingDropsBoth) {
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    expect_saved_state();
}

TEST_F(Companions, NoOnLeavingDropsBothBehindTheScreens) {
    user_is_asked_to_save(Answer::no);
    EXPECT_TRUE(main_unload());
    expect_saved_state();
    const Steps& told = platform.transcript;
    const auto unloaded = std::find(told.begin(), told.end(), "window unload all");
    for (const char* step :
         {"file remove home000003.tmp", "file rename home000007.before -> home000007.rtf"}) {
        EXPECT_NE(std::find(unloaded, told.end(), step), told.end()) << step;
    }
}

TEST_F(Companions, NoAndAnotherProjectDropsBoth) {
    begin_run_beside_cabin();
    user_is_asked_to_save(Answer::no);
    user_opens(cabin);
    EXPECT_EQ(histories_of("home"), "old");
    EXPECT_EQ(bytes_of(text_path("home")), old_text);
    EXPECT_EQ(reports(), (Steps{"cabin000003.dat", "home000003.dat", "home000004.dat"}));
}

TEST_F(Companions, NoAndARecentProjectDropsBoth) {
    user_is_asked_to_save(Answer::no);
    open_recent_project(home);
    expect_saved_state();
}

TEST_F(Companions, NoAndANewProjectDropsBoth) {
    user_is_asked_to_save(Answer::no);
    user_creates(cabin);
    expect_saved_state();
}

TEST_F(Companions, NoAndAFailedOpeningDropsBothAsTheProjectIsGone) {
    make_damaged(cabin);
    user_is_asked_to_save(Answer::no);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    user_opens(cabin);
    expect_idle();
    expect_saved_state();
}

TEST_F(Companions, NoAndANewProjectThatCannotBeWrittenDropsBoth) {
    user_is_asked_to_save(Answer::no);
    platform.boxes.expect_message(save_error(76));
    user_creates(platform.path("nowhere/cabin.tvk"));
    expect_idle();
    expect_saved_state();
}

TEST_F(Companions, NoAndThenCancelLeavesBothAsTheyAre) {
    user_is_asked_to_save(Answer::no);
    platform.dialogs.expect_save("New Project", cancelled);
    mnuFile_NewProject();
    expect_unsaved_changes();
    user_is_asked_to_save(Answer::no);
    platform.dialogs.expect_open("Open Project", cancelled);
    main_open();
    expect_unsaved_changes();
    user_is_asked_to_save(Answer::no);
    open_recent_project(platform.path("gone.tvk"));
    expect_unsaved_changes();
    mnuFile_Save();
    EXPECT_EQ(histories_of("home"), "new");
}

TEST_F(Companions, NoAndAProjectThatAnotherProgramHasLeavesBothAsTheyAre) {
    begin_run_beside_cabin();
    platform.lock.taken_elsewhere.insert(cabin);
    user_is_asked_to_save(Answer::no);
    platform.boxes.expect_message(
        "The project cabin.tvk is already open in another Tavernook window.  Close it there "
        "first, then open it here.");
    user_opens(cabin);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
    EXPECT_TRUE(exists(in_program("reports/home000003.tmp")));
}

TEST_F(Companions, TheCommandLineSettlesWhatAnEarlierRunLeft) {
    reset_program_state();  // that run ended without a word
    main_load(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(histories_of("home"), "old");
    EXPECT_EQ(reports(), (Steps{"home000003.dat", "home000004.dat"}));
}

TEST_F(Companions, AMoveThatMarksNothingGoesWithItsProjectToo) {
    mnuFile_Save();
    record_item_usage(flour, 7, usage_added, 0);
    mnuFile_Close();
    EXPECT_EQ(histories_of("home"), "new");
    EXPECT_EQ(reports(), (Steps{"home000003.dat", "home000004.dat"}));
}

// --- best effort ---------------------------------------------------------------------------------

TEST_F(Companions, AHistoryThatCannotBeSavedIsToldAndFailsNoSave) {
    platform.disk.remove(report("home", salt));
    platform.disk.make_folder(report("home", salt));  // in the way
    mnuFile_Save();
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(message(),
              "The usage history of some items could not be saved.  The next save tries it again.");
    EXPECT_EQ(bytes_of(report("home", flour)), saved_moves + flour_move);
    EXPECT_TRUE(exists(in_program("reports/home000004.tmp")));
}

TEST_F(Companions, AnOlderBundleOfHistoriesGoesWithASave) {
    put(in_program("reports/home.histories"), "left");
    mnuFile_Save();
    EXPECT_FALSE(exists(in_program("reports/home.histories")));
    EXPECT_EQ(histories_of("home"), "new");
}

TEST_F(Companions, ASentenceAboutThemIsTheLastOfAClosing) {
    platform.disk.remove(in_program("reports/home000003.tmp"));
    platform.disk.make_folder(in_program("reports/home000003.tmp"));
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    const Steps& told = platform.transcript;
    const auto buttons = std::find(told.rbegin(), told.rend(), "window toolbar 1");
    const auto sentence = std::find_if(told.rbegin(), told.rend(), [](const std::string& step) {
        return step.find("could not be removed") != std::string::npos;
    });
    ASSERT_NE(buttons, told.rend());
    EXPECT_LT(sentence - told.rbegin(), buttons - told.rbegin());
}

TEST_F(Companions, WorkingCopiesThatCannotBeRemovedAreToldAndKeepNoProjectOpen) {
    platform.disk.remove(in_program("reports/home000003.tmp"));
    platform.disk.make_folder(in_program("reports/home000003.tmp"));
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    expect_idle();
    EXPECT_EQ(message(),
              "Temporary files of the usage history could not be removed.  The next opening tries "
              "it again.");
    EXPECT_FALSE(exists(in_program("reports/home000004.tmp")));
}

TEST_F(Companions, AFailureAtAnyOperationOfTheHistoriesFailsNoSave) {
    mnuFile_Save();
    const auto& log = platform.files.log();
    const auto first = std::find(log.begin(), log.end(), "exists home.histories") - log.begin();
    const int operations = platform.files.operations();
    ASSERT_GT(operations, first + 8);
    for (int n = static_cast<int>(first) + 2; n <= operations; ++n) {
        SCOPED_TRACE(n);
        prepare_disk();
        begin_run();
        platform.files.fail_at(n, fault_number::permission_denied);
        mnuFile_Save();
        EXPECT_EQ(project_modified, 0);
        EXPECT_NE(message(), "");
        forget_steps();
        platform.main.status = {};
        mnuFile_Save();
        EXPECT_EQ(histories_of("home"), "new");
        EXPECT_EQ(message(), "");
    }
}

TEST_F(Companions, LeftoversThatCannotBeSettledAreToldAndFailNoOpening) {
    reset_program_state();
    platform.disk.remove(in_program("reports/home000003.tmp"));
    platform.disk.make_folder(in_program("reports/home.histories"));
    start();
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(message(), "What the last run left of the usage history could not be cleared up.");
}

TEST_F(Companions, WithoutALookAtTheProjectFileLeftoversStay) {
    mnuFile_Save();
    put(report("home", flour), saved_moves);
    put(in_program("reports/home000003.tmp"), saved_moves + flour_move);
    was_saved_long_ago(in_program("reports/home000003.tmp"));
    forget_steps();
    end_and_start_again();
    user_opens(home);
    const auto& log = platform.files.log();
    const auto looked = std::find(log.begin(), log.end(), "stamp home.tvk") - log.begin();
    EXPECT_EQ(bytes_of(report("home", flour)), saved_moves + flour_move);
    mnuFile_Close();
    put(report("home", flour), saved_moves);
    put(in_program("reports/home000003.tmp"), saved_moves + flour_move);
    was_saved_long_ago(in_program("reports/home000003.tmp"));
    end_and_start_again();
    platform.files.start_over();
    platform.files.fail_at(static_cast<int>(looked) + 1, fault_number::device_io_error);
    user_opens(home);
    EXPECT_EQ(message(), "What the last run left of the usage history could not be cleared up.");
    EXPECT_EQ(bytes_of(report("home", flour)), saved_moves);
    EXPECT_EQ(bytes_of(in_program("reports/home000003.tmp")), saved_moves + flour_move);
}

// It reads like an old project that lacks the block.
void forget_last_block(const std::string& path) {
    std::string bytes = read_whole_file(path);
    std::size_t setup = 0;
    for (std::size_t byte = 4; byte-- > 0;) {
        setup = setup * 256 + static_cast<unsigned char>(bytes.at(38 + byte));
    }
    bytes.replace(setup - 1 + 428, 4, std::string(4, '\0'));
    write_whole_file(path, bytes);
}

// --- after a previous version --------------------------------------------------------------------

TEST_F(Companions, MovesOfAnInterruptedSaveGoWhenThePreviousVersionIsPutBack) {
    const std::string before = read_whole_file(home);
    mnuFile_Save();
    forget_last_block(home);
    put(platform.path("home.previous.tvk"), before);
    put(report("home", flour), saved_moves);
    put(in_program("reports/home000003.tmp"), saved_moves + flour_move);
    const auto long_ago = std::filesystem::last_write_time(home) - std::chrono::hours(1);
    std::filesystem::last_write_time(in_program("reports/home000003.tmp"), long_ago);
    const auto box = [this](Answer answer) {
        platform.boxes.expect_message(
            "The last save of home.tvk was interrupted. The version from before it, of " +
                date_text(platform.disk.modified(platform.path("home.previous.tvk"))) +
                ", is still there.  Press YES to go back to that version (the file as it is now "
                "stays beside it) or press NO to open the file as it is.",
            answer);
    };
    end_and_start_again();
    box(Answer::yes);
    user_opens(home);
    EXPECT_EQ(store(), "Corner shop");
    EXPECT_EQ(bytes_of(report("home", flour)), saved_moves);
    EXPECT_FALSE(exists(in_program("reports/home000003.tmp")));
}

TEST_F(Companions, AFileThatIsNotWholeHasNoMoves) {
    mnuFile_Save();
    put(report("home", flour), saved_moves);
    put(in_program("reports/home000003.tmp"), saved_moves + flour_move);
    forget_last_block(home);
    end_and_start_again();
    platform.boxes.expect_message(
        "The project file home.tvk ends too early: the servings of the recipes are missing; the "
        "first save keeps the file as it is now beside the project.");
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(bytes_of(report("home", flour)), saved_moves);
    EXPECT_FALSE(exists(in_program("reports/home000003.tmp")));
}

}  // namespace

}  // namespace tavernook
