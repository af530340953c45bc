// Closing the project, leaving the program, and the question that comes before both.
#include "core/project/session_testing.h"
#include "inventory/usage_history.h"

namespace tavernook {

namespace {

class CloseAndExit : public SessionTest {
  protected:
    CloseAndExit() {
        make_project(home, "Corner shop");
        start();
        user_opens(home);
        // What a window does that is asked to go.
        platform.main.on_unload = [this] { gone = main_unload(); };
        forget_steps();
    }
    std::string settings_bytes() { return read_whole_file(settings_file); }
    int settings_word(std::size_t position) {
        const std::string bytes = settings_bytes();
        return static_cast<unsigned char>(bytes.at(position - 1)) +
               256 * static_cast<unsigned char>(bytes.at(position));
    }
    // A working copy of the usage history, as a move of stock leaves it.
    std::string working_copy() { return in_program("reports/home000003.tmp"); }
    void make_working_copy() {
        platform.disk.make_folder(in_program("reports"));
        record_item_usage(3, 5, usage_added, 0);
    }

    bool gone = false;
};

TEST_F(CloseAndExit, WithoutChangesNothingIsAsked) {
    bool may_go_on = false;
    EXPECT_TRUE(Project_Modified(may_go_on));
    EXPECT_TRUE(may_go_on);
    EXPECT_EQ(steps(), Steps{});
}

TEST_F(CloseAndExit, YesSavesAndGoesOn) {
    user_renames_store("Bakery");
    make_working_copy();
    items[3].in_use = 1;
    user_is_asked_to_save(Answer::yes);
    bool may_go_on = false;
    EXPECT_TRUE(Project_Modified(may_go_on));
    EXPECT_TRUE(may_go_on);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_FALSE(exists(working_copy()));
    EXPECT_TRUE(exists(in_program("reports/home000003.dat")));
}

TEST_F(CloseAndExit, NoDropsTheChangesAndTheMovesOfThisRunWhenTheProjectGoes) {
    user_renames_store("Bakery");
    make_working_copy();
    user_is_asked_to_save(Answer::no);
    bool may_go_on = false;
    EXPECT_TRUE(Project_Modified(may_go_on));
    EXPECT_TRUE(may_go_on);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(store_on_disk(home), "Corner shop");
    EXPECT_TRUE(exists(working_copy()));
    project_close();
    EXPECT_FALSE(exists(working_copy()));
    EXPECT_FALSE(exists(in_program("reports/home000003.dat")));
}

TEST_F(CloseAndExit, CancelKeepsEverything) {
    user_renames_store("Bakery");
    make_working_copy();
    user_is_asked_to_save(Answer::cancel);
    bool may_go_on = true;
    EXPECT_FALSE(Project_Modified(may_go_on));
    EXPECT_FALSE(may_go_on);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_TRUE(exists(working_copy()));
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(CloseAndExit, YesWithASaveThatFailsIsNoLeaveToGoOn) {
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    make_working_copy();
    user_is_asked_to_save(Answer::yes).during([&] { disk_is_full_at(write); });
    platform.boxes.expect_message(save_error(61));
    bool may_go_on = true;
    EXPECT_FALSE(Project_Modified(may_go_on));
    EXPECT_FALSE(may_go_on);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_TRUE(exists(working_copy()));
}

TEST_F(CloseAndExit, ClosingGoesInThisOrder) {
    mnuFile_Close();
    EXPECT_EQ(steps(), (Steps{"window title Tavernook", "window menus off", "window unload all",
                              "window toolbar 1"}));
    expect_idle();
    EXPECT_EQ(catagories[1].name, "General");
    EXPECT_EQ(project_path, home);
}

TEST_F(CloseAndExit, ClosingWithYesSavesFirst) {
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::yes);
    mnuFile_Close();
    expect_idle();
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(CloseAndExit, ClosingWithNoDropsTheChanges) {
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    expect_idle();
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(CloseAndExit, ClosingWithCancelStaysOpen) {
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::cancel);
    mnuFile_Close();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(CloseAndExit, ClosingStaysOpenWhenYesCannotSave) {
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::yes).during([&] { disk_is_full_at(write); });
    platform.boxes.expect_message(save_error(61));
    mnuFile_Close();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(CloseAndExit, AClosedProjectOpensAgain) {
    mnuFile_Close();
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Corner shop");
}

TEST_F(CloseAndExit, ExitStoresTheWindowAndTheProject) {
    platform.main.window = {700, 1100, 40, 30};
    hide_welcome_dialog = 0;
    mnuFile_Exit();
    EXPECT_TRUE(gone);
    EXPECT_EQ(steps(), (Steps{"window unload", "window unload all"}));
    EXPECT_EQ(settings_word(3000), 700);
    EXPECT_EQ(settings_word(3010), 1100);
    EXPECT_EQ(settings_word(3020), 40);
    EXPECT_EQ(settings_word(3030), 30);
    EXPECT_EQ(settings_word(2000), 0);
    EXPECT_EQ(settings_word(1000), 1);
    EXPECT_EQ(settings_bytes().substr(0, home.size() + 1), home + " ");
    EXPECT_TRUE(platform.lock.held.empty());
    EXPECT_GT(platform.clock.waited, 0);
}

TEST_F(CloseAndExit, TheWindowIsThatOfTheMomentOfLeaving) {
    platform.main.window = {700, 1100, 40, 30};
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no).during([&] { platform.main.window = {500, 600, 1, 2}; });
    mnuFile_Exit();
    EXPECT_EQ(settings_word(3000), 500);
    EXPECT_EQ(settings_word(3030), 2);
}

TEST_F(CloseAndExit, ExitWithYesSaves) {
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::yes);
    mnuFile_Exit();
    EXPECT_TRUE(gone);
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(CloseAndExit, CancelDuringExitKeepsTheProgramRunning) {
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::cancel);
    mnuFile_Exit();
    EXPECT_FALSE(gone);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(settings_word(1000), 0);
}

TEST_F(CloseAndExit, AFailedSaveDuringExitKeepsTheProgramRunning) {
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::yes).during([&] { disk_is_full_at(write); });
    platform.boxes.expect_message(save_error(61));
    mnuFile_Exit();
    EXPECT_FALSE(gone);
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(CloseAndExit, ExitWithoutAProjectAddsNone) {
    reset_program_state();
    hide_welcome();
    main_load("");
    mnuFile_Exit();
    EXPECT_TRUE(gone);
    EXPECT_EQ(settings_word(1000), 0);
}

TEST_F(CloseAndExit, SettingsThatCannotBeWrittenAreToldAndTheProgramGoesAllTheSame) {
    const std::string before = settings_bytes();
    platform.main.window = {700, 1100, 40, 30};
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::permission_denied, Repeat::persistently);
    platform.boxes.expect_message(
        "Error in Module MAIN.save_window_state.  Error Number 70 Err Description=Permission "
        "denied");
    platform.boxes.expect_message(
        "Error in Module MAIN.add_recent_project.  Error Number 70 Err Description=Permission "
        "denied");
    EXPECT_TRUE(main_unload());
    EXPECT_TRUE(platform.lock.held.empty());
    EXPECT_EQ(settings_bytes(), before);
}

TEST_F(CloseAndExit, InitFormsLoadsTheInventoryScreen) {
    init_forms();
    EXPECT_EQ(steps(), Steps{"window load food inventory"});
}

TEST_F(CloseAndExit, HelpIsShownOrSaidToBeMissing) {
    load_help();
    load_search();
    EXPECT_EQ(platform.help.contents_shown, 1);
    EXPECT_EQ(platform.help.searches_shown, 1);
    load_help_on("MealPlan");
    EXPECT_EQ(platform.help.pages_shown, std::vector<std::string>{"MealPlan"});
    platform.help.available = false;
    const std::string no_help =
        "Unable to display Help Contents. There is no Help associated with this project.";
    for (int time = 0; time < 3; ++time) platform.boxes.expect_message(no_help);
    load_help();
    load_search();
    load_help_on("MealPlan");
}

}  // namespace

}  // namespace tavernook
