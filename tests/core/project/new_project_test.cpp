// New Project, as a user goes through it.
#include <cmath>

#include "core/project/session_testing.h"

namespace tavernook {

namespace {

class NewProject : public SessionTest {
  protected:
    NewProject() { start(); }
};

TEST_F(NewProject, MakesTheFileAndShowsAnEmptyProject) {
    platform.dialogs.expect_save("New Project", home)
        .filter(project_filter)
        .initial_file(in_program("*.tvk"));
    mnuFile_NewProject();
    expect_open(home, "home.tvk");
    EXPECT_EQ(std::floor(project_created), 45427);  // today
    EXPECT_EQ(scanner_type, 0);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(catagories[1].name, "General");
    // As an empty project is: header, seeded rows, and every table of fixed length behind them.
    EXPECT_EQ(std::filesystem::file_size(home), 1677155U);
    EXPECT_FALSE(exists(platform.path("home.previous.tvk")));
}

TEST_F(NewProject, GoesInThisOrder) {
    forget_steps();
    user_creates(home);
    EXPECT_EQ(steps(), (Steps{"dialog New Project",
                              "window unload all",
                              "progress load Saving Project|Saving Project....",
                              "progress bar 0",
                              "window status 3 Saving Project...",
                              "progress label Saving Items to File",
                              "progress bar 25",
                              "progress label Saving Catagories to file.",
                              "progress bar 50",
                              "progress label Saving Meals to file.",
                              "progress bar 60",
                              "progress label Saving Units to file.",
                              "progress bar 70",
                              "progress label Saving Stores to file.",
                              "progress bar 80",
                              "progress label Saving day plans to file.",
                              "progress label Saving project setup to file.",
                              "progress bar 95",
                              "progress label Saving Project Information to File.",
                              "progress label Saving project Recipes to file.",
                              "progress bar 97",
                              "progress label Saving Project Information to File.",
                              "progress bar 100",
                              "progress hide",
                              "progress unload",
                              "window toolbar 2",
                              "window menus on",
                              "window title Tavernook - home.tvk"}));
}

TEST_F(NewProject, TheFirstFileCarriesTheVersionThatMemoryHadAndTheNextSaveTheCurrentOne) {
    file_version = 0;
    user_creates(home);
    EXPECT_EQ(file_version, 1);
    EXPECT_EQ(read_whole_file(home).substr(46, 2), std::string("\0\0", 2));
    mnuFile_Save();
    EXPECT_EQ(read_whole_file(home).substr(46, 2), std::string("\1\0", 2));
}

TEST_F(NewProject, StartsWithTheDefaultsOfTheProgram) {
    user_creates(home);
    EXPECT_EQ(audit_hour, 23);
    EXPECT_EQ(audit_minute, 59);
    EXPECT_EQ(expiration_warning_days, 10);
    EXPECT_EQ(sales_tax, 0);
}

TEST_F(NewProject, KeepsTheSettingsOfTheProjectBeforeButNotItsAccount) {
    user_creates(cabin);
    ftp_server = "ftp.example.org";
    ftp_account = "cook";
    ftp_password = "secret";
    ftp_directory = "/pages";
    expiration_warning_days = 4;
    audit_hour = 7;
    audit_minute = 15;
    sales_tax = 7.5;
    user_creates(home);
    EXPECT_TRUE(ftp_server.blank());
    EXPECT_TRUE(ftp_account.blank());
    EXPECT_TRUE(ftp_password.blank());
    EXPECT_TRUE(ftp_directory.blank());
    EXPECT_EQ(read_whole_file(home).find("secret"), std::string::npos);
    EXPECT_EQ(expiration_warning_days, 4);
    EXPECT_EQ(audit_hour, 7);
    EXPECT_EQ(audit_minute, 15);
    EXPECT_EQ(sales_tax, 7.5);
}

TEST_F(NewProject, CancelInTheDialogChangesNothing) {
    project_created = 40000;
    platform.dialogs.expect_save("New Project", cancelled);
    mnuFile_NewProject();
    EXPECT_EQ(project_open, 0);
    EXPECT_EQ(project_created, 40000);
    EXPECT_EQ(steps(), Steps{"dialog New Project"});
}

TEST_F(NewProject, ReplacesAnOpenProjectWithoutChangesUnasked) {
    user_creates(cabin);
    user_creates(home);
    expect_open(home, "home.tvk");
    EXPECT_TRUE(exists(cabin));
}

TEST_F(NewProject, YesSavesTheOpenProjectFirst) {
    user_creates(cabin);
    user_renames_store("Market");
    user_is_asked_to_save(Answer::yes);
    user_creates(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store_on_disk(cabin), "Market");
    EXPECT_EQ(store(), "");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(NewProject, NoDropsTheChanges) {
    user_creates(cabin);
    const std::string before = read_whole_file(cabin);
    user_renames_store("Market");
    user_is_asked_to_save(Answer::no);
    user_creates(home);
    expect_open(home, "home.tvk");
    EXPECT_TRUE(read_whole_file(cabin) == before);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(NewProject, CancelInTheQuestionKeepsTheOpenProject) {
    user_creates(cabin);
    user_renames_store("Market");
    project_created = 40000;
    user_is_asked_to_save(Answer::cancel);
    mnuFile_NewProject();
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store(), "Market");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(project_created, 40000);
}

TEST_F(NewProject, NoAndThenCancelLeavesTheOpenProjectModified) {
    user_creates(cabin);
    user_renames_store("Market");
    project_created = 40000;
    user_is_asked_to_save(Answer::no);
    platform.dialogs.expect_save("New Project", cancelled);
    mnuFile_NewProject();
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store(), "Market");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(project_created, 40000);
    // So the next command asks again.
    user_is_asked_to_save(Answer::cancel);
    mnuFile_Close();
}

TEST_F(NewProject, YesAndThenCancelLeavesTheOpenProjectSaved) {
    user_creates(cabin);
    user_renames_store("Market");
    user_is_asked_to_save(Answer::yes);
    platform.dialogs.expect_save("New Project", cancelled);
    mnuFile_NewProject();
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(store_on_disk(cabin), "Market");
}

TEST_F(NewProject, WhenYesCannotSaveNothingIsReplaced) {
    user_creates(cabin);
    const int write = first_write_of_a_save();
    user_renames_store("Market");
    user_is_asked_to_save(Answer::yes).during([&] { disk_is_full_at(write); });
    platform.boxes.expect_message(save_error(61));
    mnuFile_NewProject();
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store(), "Market");
    EXPECT_EQ(project_modified, i16_true);
    // With room on the disk again the same changes are saved.
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(cabin), "Market");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(NewProject, AFileThatCannotBeWrittenLeavesTheProgramIdle) {
    platform.boxes.expect_message(save_error(76));
    user_creates(platform.path("no such folder/home.tvk"));
    expect_idle();
}

TEST_F(NewProject, AnAuditCannotRunWhileTheFailureIsTold) {
    user_creates(cabin);
    audit_hour = 12;
    audit_minute = 0;
    platform.boxes.expect_message(save_error(76)).during([] { daily_audit_check(); });
    user_creates(platform.path("no such folder/home.tvk"));
    EXPECT_EQ(audits(), 0);
    expect_idle();
}

TEST_F(NewProject, AFileThatAnotherProgramHasIsToldAndTheOpenProjectStays) {
    user_creates(cabin);
    user_renames_store("Market");
    const Date created = project_created;
    platform.clock.time += 3;
    platform.lock.taken_elsewhere.insert(home);
    user_is_asked_to_save(Answer::no);
    platform.boxes.expect_message(
        "The project home.tvk is already open in another Tavernook window.  Close it there first, "
        "then open it here.");
    user_creates(home);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store(), "Market");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(project_created, created);
    EXPECT_FALSE(exists(home));
}

TEST_F(NewProject, OverTheOpenProjectItselfStartsItAfresh) {
    user_creates(home);
    user_renames_store("Market");
    user_is_asked_to_save(Answer::no);
    user_creates(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "");
}

TEST_F(NewProject, IsNotInTheRecentListsBeforeItIsOpenedOrLeft) {
    user_creates(home);
    EXPECT_TRUE(platform.settings.values.empty());
}

TEST_F(NewProject, ANameOutsideTheCodePageIsShownAsFarAsItGoes) {
    // "Küche" in the file system's UTF-8 is windows-1252 in the title.
    user_creates(
        platform.path("K\xC3\xBC"
                      "che.tvk"));
    EXPECT_EQ(platform.main.title,
              "Tavernook - K\xFC"
              "che.tvk");
    EXPECT_TRUE(
        exists(platform.path("K\xC3\xBC"
                             "che.tvk")));
}

}  // namespace

}  // namespace tavernook
