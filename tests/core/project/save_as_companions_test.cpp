// Save As: the new project takes texts and histories along as they are, the old one keeps them as
// they were saved.
#include "core/project/companions_fixture.h"

namespace tavernook {

namespace {

class SaveAsCompanions : public Companions {
  protected:
    void expect_carried() {
        expect_open(cabin, "cabin.tvk");
        EXPECT_EQ(histories_of("cabin"), "new");
        EXPECT_EQ(histories_of("home"), "old");
        EXPECT_EQ(bytes_of(text_path("cabin")), new_text);
        EXPECT_EQ(bytes_of(text_path("home")), old_text);
        EXPECT_EQ(reports(), (Steps{"cabin000003.dat", "cabin000004.dat", "home000003.dat",
                                    "home000004.dat"}));
        EXPECT_EQ(platform.disk.list(in_program("recipes"), ""),
                  (Steps{"cabin000007.rtf", "home000007.rtf"}));
        EXPECT_EQ(message(), "");
    }
};

TEST_F(SaveAsCompanions, TheNewProjectHasThemAllAndTheOldOneWhatWasSaved) {
    user_saves_as(cabin);
    expect_carried();
    record_item_usage(flour, 8, usage_added, 0);
    EXPECT_EQ(bytes_of(in_program("reports/cabin000003.tmp")),
              saved_moves + flour_move + entry(8, usage_added, 0));
    mnuFile_Save();
    EXPECT_EQ(bytes_of(report("home", flour)), saved_moves);
}

TEST_F(SaveAsCompanions, TheNewProjectIsTheOneToContinueWith) {
    user_saves_as(cabin);
    EXPECT_TRUE(main_unload());
    end_and_start_again();
    EXPECT_EQ(platform.main.recent_files.front(), cabin);
}

TEST_F(SaveAsCompanions, ANewProjectIsTheOneToContinueWith) {
    user_is_asked_to_save(Answer::no);
    user_creates(cabin);
    EXPECT_TRUE(main_unload());
    end_and_start_again();
    EXPECT_EQ(platform.main.recent_files.front(), cabin);
}

TEST_F(SaveAsCompanions, WhatLayUnderTheNewNameIsNotMixedIn) {
    begin_run_beside_cabin();
    put(report("cabin", 9), cabin_moves);
    put(in_program("reports/cabin000009.tmp"), flour_move);
    user_saves_as(cabin);
    expect_carried();
}

TEST_F(SaveAsCompanions, WithoutChangesTheHistoriesAreCopiedAndTheTextsAreShared) {
    mnuFile_Save();
    user_saves_as(cabin);
    EXPECT_EQ(histories_of("cabin"), "new");
    EXPECT_EQ(histories_of("home"), "new");
    EXPECT_EQ(meal_documents[bread], "*vk14home000007.rtf");
    EXPECT_EQ(bytes_of(text_path("cabin")), "none");
}

TEST_F(SaveAsCompanions, TheSameNameElsewhereSharesTheFiles) {
    platform.disk.make_folder(platform.path("other"));
    user_saves_as(platform.path("other/home.tvk"));
    EXPECT_EQ(histories_of("home"), "new");
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
    EXPECT_EQ(reports(), (Steps{"home000003.dat", "home000004.dat"}));
}

TEST_F(SaveAsCompanions, AFailedOneLeavesEverythingAsItWas) {
    begin_run_beside_cabin();
    platform.disk.remove(cabin);
    platform.disk.make_folder(platform.path("cabin.previous.tvk/full"));  // in the way
    platform.disk.make_folder(cabin);
    platform.boxes.expect_message(save_error(75));
    user_saves_as(cabin);
    expect_open(home, "home.tvk");
    EXPECT_EQ(meal_documents[bread], "*vk14home000007.rtf");
    EXPECT_EQ(histories_of("cabin"), "cabin");
    EXPECT_EQ(bytes_of(text_path("cabin")), cabin_text);
    EXPECT_EQ(histories_of("home"), "old");
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
    EXPECT_EQ(reports(), (Steps{"cabin000003.dat", "home000003.dat", "home000003.tmp",
                                "home000004.dat", "home000004.tmp"}));
    mnuFile_Save();
    EXPECT_EQ(histories_of("home"), "new");
}

TEST_F(SaveAsCompanions, AHistoryThatCannotBeReadIsToldAndFailsNothing) {
    platform.disk.remove(report("home", salt));
    platform.disk.make_folder(report("home", salt));
    user_saves_as(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(message(),
              "The usage history of some items could not be taken along to the new name.");
    EXPECT_EQ(bytes_of(report("cabin", flour)), saved_moves + flour_move);
}

TEST_F(SaveAsCompanions, WithoutTheirFoldersThereIsNothingToTakeAlong) {
    mnuFile_Save();
    std::filesystem::remove_all(in_program("reports"));
    user_saves_as(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_FALSE(exists(in_program("reports")));
    EXPECT_EQ(message(), "");
}

// A deleted project of the name has left a moved item behind.
TEST_F(SaveAsCompanions, ANewProjectBeginsWithNothingOfItsName) {
    mnuFile_Save();
    put(report("cabin", flour), cabin_moves);
    put(in_program("reports/cabin000003.tmp"), flour_move);
    put(in_program("reports/cabin.histories"), "left");
    put(in_program("recipes/cabin000007.ready"), "left");
    user_creates(cabin);
    EXPECT_EQ(reports(), (Steps{"home000003.dat", "home000004.dat"}));
    EXPECT_FALSE(exists(in_program("recipes/cabin000007.ready")));
}

// --- what a Save As that was interrupted left of a text
// --------------------------------------------

TEST_F(SaveAsCompanions, ATextThatWasStoredSinceIsNewerThanTheCopyThatWaited) {
    mnuFile_Save();
    const std::string ready = in_program("recipes/home000007.ready");
    put(ready, old_text);
    was_saved_long_ago(ready);
    end_and_start_again();
    user_opens(home);
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
    EXPECT_FALSE(exists(ready));
}

TEST_F(SaveAsCompanions, ACopyThatWaitedIsBetterThanAMissingText) {
    mnuFile_Save();
    const std::string ready = in_program("recipes/home000007.ready");
    platform.disk.rename(text_path("home"), ready);
    put(home, read_whole_file(home) + "x");  // no save wrote this
    was_saved_long_ago(home);
    end_and_start_again();
    user_opens(home);
    EXPECT_EQ(bytes_of(text_path("home")), new_text);
    EXPECT_FALSE(exists(ready));
}

TEST_F(SaveAsCompanions, ACopyOfAnotherProjectOrOfNoneStays) {
    for (const char* name : {"cabin000007.ready", "home000001000007.ready", "home000000.ready",
                             "home001001.ready", "home7.ready", ".ready"}) {
        put(in_program("recipes/") + name, old_text);
    }
    const Steps before = platform.disk.list(in_program("recipes"), ".ready");
    end_and_start_again();
    user_opens(home);
    EXPECT_EQ(platform.disk.list(in_program("recipes"), ".ready"), before);
}

}  // namespace

}  // namespace tavernook
