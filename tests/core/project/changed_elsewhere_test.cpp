// Another program writes the project's file while it is open here.
#include "core/project/session_testing.h"

namespace tavernook {

namespace {

class ChangedElsewhere : public SessionTest {
  protected:
    ChangedElsewhere() {
        make_project(home, "Corner shop");
        start();
        user_opens(home);
        user_renames_store("Bakery");
    }
    // As a program does that brings a file from another computer: another file takes the name.
    void other_program_writes() { arrives(home, theirs); }
    void arrives(const std::string& path, const std::string& bytes) {
        write_whole_file(path + ".part", bytes);
        std::filesystem::rename(path + ".part", path);
    }
    ExpectedBox& user_is_asked(Answer answer, const std::string& aside = "home.other.tvk") {
        return platform.boxes
            .expect_message(
                "The file home.tvk has changed since it was opened or saved here: "
                "another program or another computer has written it.  Press YES to "
                "save your project all the same (the other content stays beside it "
                "as " +
                    aside + ") or press NO to save nothing and leave the file as it is.",
                answer)
            .title("Project File Changed")
            .buttons(Buttons::yes_no)
            .default_button(DefaultButton::no);
    }

    void user_opens_home_again() {
        std::filesystem::remove(home);
        make_project(home, "Corner shop");
        start();
        user_opens(home);
    }

    const std::string theirs = "their own content of this file";
    const std::string other = platform.path("home.other.tvk");
};

TEST_F(ChangedElsewhere, YesSavesAndTheOtherContentStaysBesideIt) {
    other_program_writes();
    user_is_asked(Answer::yes);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(read_whole_file(other), theirs);
    EXPECT_FALSE(exists(platform.path("home.previous.tvk")));
    EXPECT_EQ(project_modified, 0);
    // From here on the file is ours again.
    user_renames_store("Market");
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Market");
}

TEST_F(ChangedElsewhere, NoSavesNothingAndSaysNothingMore) {
    other_program_writes();
    user_is_asked(Answer::no);
    forget_steps();
    mnuFile_Save();
    EXPECT_EQ(read_whole_file(home), theirs);
    EXPECT_FALSE(exists(other));
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(window_steps(), Steps{});
    // And asks again.
    user_is_asked(Answer::yes);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(ChangedElsewhere, AContentPutAsideBeforeStays) {
    write_whole_file(other, "from yesterday");
    other_program_writes();
    user_is_asked(Answer::yes, "home.other 2.tvk");
    mnuFile_Save();
    EXPECT_EQ(read_whole_file(other), "from yesterday");
    EXPECT_EQ(read_whole_file(platform.path("home.other 2.tvk")), theirs);
}

TEST_F(ChangedElsewhere, ANameThatIsTakenWhileTheBoxStandsOpenIsNotWrittenOver) {
    other_program_writes();
    user_is_asked(Answer::yes).during([&] { write_whole_file(other, "came meanwhile"); });
    mnuFile_Save();
    EXPECT_EQ(read_whole_file(other), "came meanwhile");
    EXPECT_EQ(read_whole_file(platform.path("home.other 2.tvk")), theirs);
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(ChangedElsewhere, AFileWrittenInPlaceIsNoticed) {
    write_whole_file(home, theirs);
    user_is_asked(Answer::no);
    mnuFile_Save();
    EXPECT_EQ(read_whole_file(home), theirs);
}

TEST_F(ChangedElsewhere, AFileThatHasGoneIsWrittenAgain) {
    std::filesystem::remove(home);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(project_modified, 0);
}

TEST_F(ChangedElsewhere, AFileThatGoesWhileTheBoxStandsOpenIsWrittenAgain) {
    other_program_writes();
    user_is_asked(Answer::yes).during([&] { std::filesystem::remove(home); });
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_FALSE(exists(other));
}

TEST_F(ChangedElsewhere, AFileThatIsOursIsNotAskedAbout) {
    for (const char* name : {"Market", "Harbour shop"}) {
        user_renames_store(name);
        mnuFile_Save();
        EXPECT_EQ(store_on_disk(home), name);
    }
}

TEST_F(ChangedElsewhere, WhatOurOwnFailedSaveLeftIsNotAskedAbout) {
    const int write = first_write_of_a_save();
    disk_is_full_at(write + 10);
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    platform.files.work_normally();
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_FALSE(exists(other));
}

TEST_F(ChangedElsewhere, WhatComesBehindAFailedSaveIsAskedAbout) {
    for (const int step : {0, 10}) {
        other_program_writes();
        user_opens_home_again();
        const int write = first_write_of_a_save();
        user_renames_store("Bakery");
        disk_is_full_at(write + step);
        platform.boxes.expect_message(save_error(61));
        mnuFile_Save();
        platform.files.work_normally();
        other_program_writes();
        user_is_asked(Answer::yes);
        mnuFile_Save();
        EXPECT_EQ(store_on_disk(home), "Bakery");
        EXPECT_EQ(read_whole_file(other), theirs);
        std::filesystem::remove(other);
    }
}

TEST_F(ChangedElsewhere, ASaveThatFailsOverItLeavesItAsThePreviousVersion) {
    const int write = first_write_of_a_save();
    user_renames_store("Market");
    other_program_writes();
    platform.files.start_over();
    disk_is_full_at(write + 10);
    user_is_asked(Answer::yes);
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    platform.files.work_normally();
    EXPECT_EQ(read_whole_file(platform.path("home.previous.tvk")), theirs);
    EXPECT_EQ(read_whole_file(other), theirs);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Market");
    EXPECT_EQ(read_whole_file(other), theirs);
}

TEST_F(ChangedElsewhere, ACopyUnderAnotherNameAsksNothing) {
    make_project(cabin, "Market");
    start();
    user_opens(cabin);
    user_opens(home);
    arrives(cabin, theirs);
    other_program_writes();
    user_saves_as(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(store_on_disk(cabin), "Corner shop");
    EXPECT_EQ(read_whole_file(home), theirs);
}

TEST_F(ChangedElsewhere, ANewProjectInItsPlaceAsksNothing) {
    other_program_writes();
    user_is_asked_to_save(Answer::no);
    user_creates(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "");
}

TEST_F(ChangedElsewhere, ANoKeepsTheProjectOpenThatWasToBeSavedFirst) {
    other_program_writes();
    user_is_asked_to_save(Answer::yes);
    user_is_asked(Answer::no);
    mnuFile_Close();
    expect_open(home, "home.tvk");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ChangedElsewhere, TheFileOpenedAgainIsTheOneToSaveOver) {
    arrives(home, [&] {
        make_project(cabin, "Market");
        return read_whole_file(cabin);
    }());
    start();
    user_opens(home);
    EXPECT_EQ(store(), "Market");
    user_renames_store("Bakery");
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

}  // namespace

}  // namespace tavernook
