// Open Project and the recent entries, as a user goes through them.
#include "core/project/session_testing.h"

namespace tavernook {

namespace {

constexpr const char* bad_record =
    "FileManagement.Project_Open - File Load Error.  Bad Record Number";

std::string taken_box(const std::string& name) {
    return "The project " + name +
           " is already open in another Tavernook window.  Close it there first, then open it "
           "here.";
}

class OpenProject : public SessionTest {
  protected:
    // Two projects on the disk, and the program just started.
    OpenProject() {
        make_project(home, "Corner shop");
        make_project(cabin, "Market");
        start();
    }
    std::string recent(int place) {
        return platform.settings.get("Recent Files", "RecentFile" + std::to_string(place));
    }
    // The first of the four in "TVK.dat".
    std::string first_recent_project() {
        const std::string bytes = read_whole_file(settings_file).substr(0, 128);
        return bytes.substr(0, bytes.find_last_not_of(std::string(" \0", 2)) + 1);
    }
};

TEST_F(OpenProject, ShowsTheProjectInThisOrder) {
    platform.dialogs.expect_open("Open Project", home)
        .filter(project_filter)
        .initial_file(in_program("*.tvk"));
    main_open();
    EXPECT_EQ(steps(), (Steps{"dialog Open Project",
                              "window unload all",
                              "progress load Opening Project|Opening Project...Please Wait",
                              "window status 3 Opening Project...",
                              "progress show",
                              "progress bar 0",
                              "progress bar 10",
                              "progress bar 20",
                              "progress bar 30",
                              "progress bar 40",
                              "progress bar 50",
                              "progress bar 60",
                              "progress bar 70",
                              "progress bar 80",
                              "progress bar 100",
                              "window toolbar 2",
                              "window status 2 Audit Time: 11:59 PM",
                              "progress unload",
                              "window captions off",
                              "window title Tavernook - home.tvk",
                              "window menus on",
                              "window show meal plan",
                              "window timer on",
                              "window toolbar 2",
                              "window recent " + home}));
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Corner shop");
    EXPECT_EQ(project_load_failed, 0);
}

TEST_F(OpenProject, TheMenuEntryIsTheSame) {
    platform.dialogs.expect_open("Open Project", home);
    mnuFile_Open();
    expect_open(home, "home.tvk");
}

TEST_F(OpenProject, ReplacesAProjectThatIsOpen) {
    user_opens(home);
    user_opens(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store(), "Market");
}

TEST_F(OpenProject, ResetsTheTablesFirst) {
    items[77].name = "left over";
    pooled_strings[9] = "left over";
    user_opens(home);
    EXPECT_TRUE(items[77].name.blank());
    EXPECT_EQ(items[77].barcode, "empty");
    EXPECT_EQ(pooled_strings[9], "");
}

TEST_F(OpenProject, CancelInTheDialogKeepsWhatIsOpen) {
    user_opens(home);
    forget_steps();
    platform.dialogs.expect_open("Open Project", cancelled);
    main_open();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Corner shop");
    EXPECT_EQ(steps(), Steps{"dialog Open Project"});
}

TEST_F(OpenProject, CancelInTheQuestionKeepsWhatIsOpen) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::cancel);
    main_open();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(OpenProject, YesSavesWhatIsOpen) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::yes);
    user_opens(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(OpenProject, NoDropsTheChanges) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no);
    user_opens(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store_on_disk(home), "Corner shop");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(OpenProject, NoAndThenCancelLeavesTheOpenProjectModified) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no);
    platform.dialogs.expect_open("Open Project", cancelled);
    main_open();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(OpenProject, CancelWithoutAQuestionDoesNotMakeItModified) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no);
    user_opens(cabin);
    platform.dialogs.expect_open("Open Project", cancelled);
    main_open();
    EXPECT_EQ(project_modified, 0);
}

TEST_F(OpenProject, WhenYesCannotSaveNothingIsOpened) {
    user_opens(home);
    const int write = first_write_of_a_save();
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::yes).during([&] { disk_is_full_at(write); });
    platform.boxes.expect_message(save_error(61));
    main_open();
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(OpenProject, OpeningTheSameProjectAgainReadsItFromTheDisk) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no);
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Corner shop");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(OpenProject, AProjectThatAnotherProgramHasIsToldAndTheOpenOneStays) {
    user_opens(home);
    user_renames_store("Bakery");
    platform.lock.taken_elsewhere.insert(cabin);
    user_is_asked_to_save(Answer::no);
    platform.boxes.expect_message(taken_box("cabin.tvk"));
    user_opens(cabin);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(project_load_failed, 0);
}

TEST_F(OpenProject, ADamagedFileLeavesTheProgramIdleAndTheFileAlone) {
    make_damaged(platform.path("damaged.tvk"));
    const std::string before = read_whole_file(platform.path("damaged.tvk"));
    user_opens(home);
    platform.boxes.expect_message(bad_record);
    user_opens(platform.path("damaged.tvk"));
    expect_idle();
    EXPECT_EQ(project_load_failed, i16_true);
    EXPECT_EQ(recent(1), home);
    EXPECT_EQ(recent(2), "");
    // Not even a Save that comes all the same can write over it.
    mnuFile_Save();
    EXPECT_TRUE(read_whole_file(platform.path("damaged.tvk")) == before);
    EXPECT_EQ(store_on_disk(home), "Corner shop");
}

TEST_F(OpenProject, AFailedOpeningIsShownInThisOrder) {
    make_damaged(platform.path("damaged.tvk"));
    user_opens(home);
    forget_steps();
    platform.boxes.expect_message(bad_record);
    user_opens(platform.path("damaged.tvk"));
    const Steps told = steps();
    const Steps end = {
        "progress hide",          "progress unload",  std::string("box ") + bad_record,
        "window title Tavernook", "window menus off", "window unload all",
        "window toolbar 1"};
    ASSERT_GE(told.size(), end.size());
    EXPECT_EQ(Steps(told.end() - static_cast<std::ptrdiff_t>(end.size()), told.end()), end);
}

TEST_F(OpenProject, AnAuditCannotRunWhileTheDamageIsTold) {
    make_damaged(platform.path("damaged.tvk"));
    user_opens(home);
    platform.boxes.expect_message(bad_record).during([] {
        audit_hour = 12;
        audit_minute = 0;
        daily_audit_check();
    });
    user_opens(platform.path("damaged.tvk"));
    EXPECT_EQ(audits(), 0);
}

TEST_F(OpenProject, ARecentFileThatIsGoneLeavesTheOpenProjectAloneWithoutAMessage) {
    user_opens(home);
    open_recent_project(platform.path("gone.tvk"));
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_load_failed, i16_true);
    EXPECT_EQ(recent(1), home);
}

TEST_F(OpenProject, AfterAFailureTheNextFileOpens) {
    make_damaged(platform.path("damaged.tvk"));
    platform.boxes.expect_message(bad_record);
    user_opens(platform.path("damaged.tvk"));
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_load_failed, 0);
}

// An item that is low, and on the list by hand for another quantity.
void put_on_list_by_hand() {
    items[3].in_use = 1;
    items[3].stock_quantity = 8;
    items[3].on_shopping_list = -1;
    items[3].shopping_quantity = 2.5;
}

TEST_F(OpenProject, AuditsWhenTheProjectWantsItBeforeTheToolbarComesOn) {
    make_project(home, "Corner shop", [] {
        audit_on_startup = 1;
        put_on_list_by_hand();
    });
    start();
    user_opens(home);
    const Steps told = steps();
    const auto audit = std::find(told.begin(), told.end(), "window status 3 Auditing...");
    ASSERT_NE(audit, told.end());
    EXPECT_EQ(*(audit - 1), "progress bar 100");
    EXPECT_EQ(std::count(audit, told.end(), "window toolbar 2"), 2);
    EXPECT_EQ(audits(), 1);
    EXPECT_EQ(items[3].shopping_quantity, 8);
}

TEST_F(OpenProject, OtherwiseThereIsNoAuditAndAListMadeByHandStays) {
    make_project(home, "Corner shop", put_on_list_by_hand);
    start();
    audit_on_startup = -1;  // of a project before; this one's file says 0
    user_opens(home);
    EXPECT_EQ(audits(), 0);
    EXPECT_EQ(items[3].on_shopping_list, -1);
    EXPECT_EQ(items[3].shopping_quantity, 2.5);
}

TEST_F(OpenProject, TheAuditAtTheStartSavesWhenTheProjectWantsIt) {
    make_project(home, "Corner shop", [] {
        audit_on_startup = 1;
        save_after_audit = 1;
        days[1].in_use = 1;
    });
    start();
    user_opens(home);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(project_modified, 0);
    mnuFile_Close();
    user_opens(home);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(audits(), 2);
}

TEST_F(OpenProject, TheAuditAtTheStartDoesNotSaveOverAShortenedFile) {
    make_project(home, "Corner shop", [] {
        audit_on_startup = 1;
        save_after_audit = 1;
        days[1].in_use = 1;
    });
    std::string bytes = read_whole_file(home);
    bytes.resize(bytes.size() - 8);
    write_whole_file(home, bytes);
    start();
    platform.boxes.expect_message(
        "The project file home.tvk ends too early: the servings of the last recipes are missing; "
        "the first save keeps the file as it is now beside the project.");
    user_opens(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(save_after_audit, 1);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_TRUE(read_whole_file(home) == bytes);
}

TEST_F(OpenProject, ShowsTheToolbarTextWhenTheProjectWantsIt) {
    make_project(home, "Corner shop", [] { show_toolbar_text = -1; });
    start();
    user_opens(home);
    EXPECT_TRUE(platform.main.captions);
    user_opens(cabin);
    EXPECT_FALSE(platform.main.captions);
}

TEST_F(OpenProject, ABlankRecipesFolderBecomesTheProgramsAndAnyOtherStays) {
    recipes_folder = "   ";
    user_opens(home);
    EXPECT_EQ(recipes_folder, in_program("recipes/"));
    recipes_folder = "/somewhere/else/";
    user_opens(cabin);
    EXPECT_EQ(recipes_folder, "/somewhere/else/");
}

TEST_F(OpenProject, ItemsFromBeforeLotsGetTheirFirstLot) {
    make_project(home, "Corner shop", [] {
        items[3].in_use = 1;
        items[3].quantity = 2.5;
    });
    start();
    user_opens(home);
    EXPECT_EQ(lot_table_top, 3);
    EXPECT_EQ(lots[3].lot_quantity[0], 2.5);
}

// Without lots in the file, what is on the shelf stands in the items alone.
TEST_F(OpenProject, AnAuditAtTheStartLeavesTheStockOfItemsFromBeforeLots) {
    make_project(home, "Corner shop", [] {
        file_version = 0;
        audit_on_startup = 1;
        for (const int item : {3, 7}) {
            items[item].in_use = 1;
            items[item].quantity = 10;
            items[item].serving_size = 1;
            items[item].servings_per_qty_unit = 1;
        }
        days[1].in_use = 1;
        days[1].month = 1;
        days[1].day = 2;
        days[1].year = 2024;
        days[1].planned_item[1] = 7;
        day_quantities[1].item_quantity[1] = 4;
    });
    std::string bytes = read_whole_file(home);
    bytes.replace(53, 4, std::string(4, '\0'));  // as from before there were lots
    write_whole_file(home, bytes);
    start();
    user_opens(home);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(items[3].quantity, 10);
    EXPECT_EQ(lots[3].lot_quantity[0], 10);
    EXPECT_EQ(items[7].quantity, 6);
    EXPECT_EQ(lots[7].lot_quantity[0], 6);
}

TEST_F(OpenProject, AnOlderFileKeepsItsFormWhenItIsSaved) {
    make_project(home, "Corner shop", [] {
        file_version = 0;
        items[3].in_use = 1;
        items[7].in_use = 1;
    });
    start();
    user_opens(home);
    EXPECT_EQ(older_file_format, i16_true);
    mnuFile_Save();
    EXPECT_EQ(older_file_format, i16_true);
    const std::string bytes = read_whole_file(home);
    EXPECT_EQ(bytes.substr(46, 2), std::string("\0\0", 2));
    // Two items of 164 bytes from position 100 and 2: the categories' position is 430 = 0x1AE.
    EXPECT_EQ(bytes.substr(8, 4), std::string("\xAE\x01\0\0", 4));
    user_opens(cabin);
    EXPECT_EQ(older_file_format, i16_false);
}

TEST_F(OpenProject, PutsTheOpenedFileOnTopOfTheRecentMenu) {
    user_opens(home);
    user_opens(cabin);
    EXPECT_EQ(recent(1), cabin);
    EXPECT_EQ(recent(2), home);
    EXPECT_EQ(platform.main.recent_files, (Steps{cabin, home}));
}

TEST_F(OpenProject, PutsTheProjectThatWasOpenIntoTheSettingsFileFirst) {
    user_opens(home);
    EXPECT_EQ(first_recent_project(), "");
    platform.dialogs.expect_open("Open Project", cancelled);
    main_open();
    EXPECT_EQ(first_recent_project(), home);
}

TEST_F(OpenProject, ARestoredProjectDoesNotEnterTheSettingsFile) {
    const std::string restored = platform.path("restored.tvk");
    make_project(restored, "Corner shop");
    start();
    user_opens(restored);
    user_opens(home);
    EXPECT_EQ(first_recent_project(), "");
}

TEST_F(OpenProject, ARecentEntryOpensWithoutADialog) {
    forget_steps();
    open_recent_project(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store(), "Market");
    EXPECT_EQ(steps().front(), "window unload all");
    EXPECT_EQ(steps().back(), "window recent " + cabin);
}

TEST_F(OpenProject, ARecentEntryAsksToSaveLikeOpen) {
    user_opens(home);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::cancel);
    open_recent_project(cabin);
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_modified, i16_true);
    user_is_asked_to_save(Answer::yes);
    open_recent_project(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(OpenProject, ARecentEntryThatAnotherProgramHasKeepsTheOpenProject) {
    user_opens(home);
    platform.lock.taken_elsewhere.insert(cabin);
    platform.boxes.expect_message(taken_box("cabin.tvk"));
    open_recent_project(cabin);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Corner shop");
}

TEST_F(OpenProject, WhatAKilledProgramLeftBesideItGoes) {
    write_whole_file(platform.path(".tavernook-unfinished-a1B2c3"), "half a copy");
    user_opens(home);
    EXPECT_FALSE(exists(platform.path(".tavernook-unfinished-a1B2c3")));
}

TEST_F(OpenProject, AProjectThatIsClosedOrReplacedIsFreeForOthers) {
    user_opens(home);
    EXPECT_EQ(platform.lock.held, std::set<std::string>{home});
    user_opens(cabin);
    EXPECT_EQ(platform.lock.held, std::set<std::string>{cabin});
    mnuFile_Close();
    EXPECT_TRUE(platform.lock.held.empty());
}

}  // namespace

}  // namespace tavernook
