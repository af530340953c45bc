// The files of the usage history, as they go with a save and with a project that is let go.
#include "inventory/usage_files.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "inventory/items.h"
#include "inventory/usage_files_fixture.h"
#include "inventory/usage_names.h"

namespace tavernook {

namespace {

TEST_F(UsageFiles, TheItemIsTheNumberInFrontOfTheExtension) {
    EXPECT_EQ(usage_file_item("home000003.dat"), 3);
    EXPECT_EQ(usage_file_item("home010000.tmp"), 10000);
    EXPECT_EQ(usage_file_item("home999999.dat"), 999999);
    EXPECT_EQ(usage_file_item("000007.dat"), 7);
    EXPECT_EQ(usage_file_item("home12345678.dat"), 345678);
    for (const char* name : {"item.dat", "labeldat.dat", "general.dat", "calm.dat", "home00003.dat",
                             "home-00003.dat", "home 00003.dat", "home00003a.dat", ".dat", ""}) {
        EXPECT_EQ(usage_file_item(name), 0) << name;
    }
}

TEST_F(UsageFiles, AFileBelongsToTheStemThatIsAllInFrontOfTheSixDigits) {
    EXPECT_EQ(item_of_usage_file("home000003.dat", "home"), 3);
    EXPECT_EQ(item_of_usage_file("home000001000003.dat", "home000001"), 3);
    EXPECT_EQ(item_of_usage_file("000003.dat", ""), 3);
    EXPECT_FALSE(item_of_usage_file("home000001000003.dat", "home"));
    EXPECT_FALSE(item_of_usage_file("home000003.dat", "home00"));
    EXPECT_FALSE(item_of_usage_file("home000003.dat", "Home"));
    EXPECT_FALSE(item_of_usage_file("home000003.dat", ""));
    EXPECT_FALSE(item_of_usage_file("home010001.dat", "home"));
}

TEST_F(UsageFiles, ASaveCopiesTheWorkingCopiesAndKeepsThem) {
    put("home000003.dat", old_moves);
    move(3, 5);
    move(4, 6);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves + entry(5)},
                                  {"home000003.tmp", old_moves + entry(5)},
                                  {"home000004.dat", entry(6)},
                                  {"home000004.tmp", entry(6)}}));
}

TEST_F(UsageFiles, ASaveWithoutMovesChangesNothing) {
    put("home000003.dat", old_moves);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
}

TEST_F(UsageFiles, ACommitOfTheSameMovesAgainChangesNothing) {
    put("home000003.dat", old_moves);
    move(3, 5);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content()["home000003.dat"], old_moves + entry(5));
    move(3, 6);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content()["home000003.dat"], old_moves + entry(5) + entry(6));
}

// Another program has them open, or its last run left them.
TEST_F(UsageFiles, WorkingCopiesOfOthersAreNeitherCommittedNorDiscarded) {
    items[1].in_use = 1;
    put("cabin000003.tmp", entry(7));
    put("home000001000003.tmp", entry(8));
    const Content before = content();
    move(3, 5);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_TRUE(discard_usage_files());
    Content after = content();
    EXPECT_EQ(after["home000003.dat"], entry(5));
    after.erase("home000003.dat");
    EXPECT_EQ(after, before);
}

TEST_F(UsageFiles, AStemThatEndsInDigitsHasItsOwnFiles) {
    items[1].in_use = 1;
    put("home000001.dat", old_moves);
    set_project_path(platform.path("home000001.tvk"));
    move(3, 5);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(),
              (Content{{"home000001.dat", old_moves}, {"home000001000003.dat", entry(5)}}));
}

TEST_F(UsageFiles, AFileThatIsNoWorkingCopyIsNotCopiedOverATemplate) {
    put("item.tmp", "somebody's notes");
    put("item.dat", "page template");
    EXPECT_TRUE(commit_usage_files());
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(),
              (Content{{"item.dat", "page template"}, {"item.tmp", "somebody's notes"}}));
}

TEST_F(UsageFiles, TheHistoryOfADeletedItemGoesWithTheNextSave) {
    put("home000003.dat", old_moves);
    put("home000004.dat", old_moves);
    move(4, 5);
    items[4].in_use = 0;
    EXPECT_TRUE(commit_usage_files());
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
}

TEST_F(UsageFiles, OnlyTheOpenProjectsOrphansGo) {
    put("home000005.dat", "ours");
    put("cabin000005.dat", "theirs");
    put("homestead000005.dat", "theirs");
    put("Home000005.dat", "theirs");
    put("000005.dat", "nobody's");
    EXPECT_TRUE(remove_orphan_usage_files());
    EXPECT_EQ(content(), (Content{{"cabin000005.dat", "theirs"},
                                  {"homestead000005.dat", "theirs"},
                                  {"Home000005.dat", "theirs"},
                                  {"000005.dat", "nobody's"}}));
}

TEST_F(UsageFiles, NumbersBeyondTheItemsStay) {
    put("home010000.dat", "free item");
    put("home010001.dat", "no item");
    put("home999999.dat", "no item");
    EXPECT_TRUE(remove_orphan_usage_files());
    EXPECT_EQ(content(), (Content{{"home010001.dat", "no item"}, {"home999999.dat", "no item"}}));
}

TEST_F(UsageFiles, AnItemMarkedWithAnyNumberButZeroKeepsItsHistory) {
    items[5].in_use = -1;
    put("home000005.dat", "moves");
    EXPECT_TRUE(remove_orphan_usage_files());
    EXPECT_EQ(content(), (Content{{"home000005.dat", "moves"}}));
}

TEST_F(UsageFiles, PageTemplatesStayWhateverTheProjectIsCalled) {
    const Content templates = {{"item.dat", "1"},     {"main.dat", "2"}, {"general.dat", "3"},
                               {"labeldat.dat", "4"}, {"cal.dat", "5"},  {"calm.dat", "6"}};
    for (const auto& [name, bytes] : templates) put(name, bytes);
    // Less its last ten characters "general.dat" is "g", and "labeldat.dat" is "la".
    for (const char* project : {"g.tvk", "la.tvk", ".tvk", "item.tvk", "home.tvk"}) {
        set_project_path(platform.path(project));
        EXPECT_TRUE(commit_usage_files());
        EXPECT_EQ(content(), templates) << project;
    }
}

TEST_F(UsageFiles, DiscardDeletesTheWorkingCopiesAndNoHistory) {
    put("home000003.dat", old_moves);
    move(3, 5);
    move(4, 6);
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
}

// The path is that of the next project already when the one before really goes.
TEST_F(UsageFiles, DiscardDeletesThemUnderAnyNewPath) {
    move(3, 5);
    set_project_path(platform.path("cabin.tvk"));
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(), Content{});
}

TEST_F(UsageFiles, WithoutTheirFolderThereIsNothingToDo) {
    std::filesystem::remove_all(reports);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_TRUE(discard_usage_files());
    EXPECT_TRUE(remove_orphan_usage_files());
    EXPECT_FALSE(std::filesystem::exists(reports));
}

// --- what fails ----------------------------------------------------------------------------------

TEST_F(UsageFiles, AWorkingCopyOfAWrongLengthReplacesNoHistory) {
    put("home000003.dat", old_moves);
    for (const std::string& wrong : {entry(5), old_moves.substr(1), old_moves + entry(5).substr(1),
                                     old_moves + entry(5) + "x"}) {
        move(3, 5);
        put("home000003.tmp", wrong);
        EXPECT_FALSE(commit_usage_files());
        EXPECT_EQ(content()["home000003.dat"], old_moves);
        // The next move mends it.
        move(3, 6);
        EXPECT_EQ(content()["home000003.tmp"], old_moves + entry(6));
        EXPECT_TRUE(discard_usage_files());
    }
}

TEST_F(UsageFiles, AWorkingCopyThatHasGoneOrIsEmptyHasNothingToCommit) {
    put("home000003.dat", old_moves);
    for (const bool is_there : {true, false}) {
        move(3, 5);
        move(4, 6);
        for (const char* name : {"home000003.tmp", "home000004.tmp"}) {
            put(name, "");
            if (!is_there) platform.disk.remove(reports + "/" + name);
        }
        EXPECT_TRUE(commit_usage_files());
        EXPECT_EQ(content()["home000003.dat"], old_moves);
        EXPECT_FALSE(content().contains("home000004.dat"));
        EXPECT_TRUE(discard_usage_files());
    }
}

// What lies in front of the entry is never written again.
TEST_F(UsageFiles, ASaveAddsOneEntryToAHistory) {
    put("home000003.dat", old_moves);
    move(3, 5);
    platform.files.start_over();
    EXPECT_TRUE(commit_usage_files());
    std::vector<std::string> changes;
    for (const std::string& step : platform.files.log()) {
        const bool only_looks = step.starts_with("stamp") || step.starts_with("read") ||
                                step.starts_with("open") || step.starts_with("list");
        if (!only_looks) changes.push_back(step);
    }
    EXPECT_EQ(changes, std::vector<std::string>{"write home000003.dat 42 21"});
}

class OwedHistories : public UsageFiles {
  protected:
    // A save that cannot write the history.
    OwedHistories() {
        put("home000003.dat", old_moves);
        move(3, 5);
        platform.files.start_over();
        EXPECT_TRUE(commit_usage_files());
        const auto& log = platform.files.log();
        const auto write = std::find(log.begin(), log.end(), "write home000003.dat 42 21");
        write_ = static_cast<int>(write - log.begin()) + 1;
        EXPECT_TRUE(discard_usage_files());
        fail_a_save();
    }
    void fail_a_save(Torn torn = Torn::no) {
        put("home000003.dat", old_moves);
        move(3, 5);
        platform.files.start_over();
        platform.files.fail_at(write_, fault_number::disk_full, Repeat::once, torn);
        EXPECT_FALSE(commit_usage_files());
        platform.files.start_over();
    }
    int write_ = 0;
};

TEST_F(OwedHistories, AreCommittedWhenTheProjectGoes) {
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves + entry(5)}}));
}

TEST_F(OwedHistories, StayForTheNextOpeningWhenThatFailsToo) {
    platform.files.fail_at(1, fault_number::device_io_error);
    EXPECT_FALSE(discard_usage_files());
    EXPECT_EQ(content(),
              (Content{{"home000003.dat", old_moves}, {"home000003.tmp", old_moves + entry(5)}}));
}

TEST_F(OwedHistories, AreCommittedBeforeTheNextMove) {
    move(3, 8);
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves + entry(5)},
                                  {"home000003.tmp", old_moves + entry(5) + entry(8)}}));
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves + entry(5)}}));
}

TEST_F(OwedHistories, NothingIsWrittenBehindAPartOfAnEntry) {
    EXPECT_TRUE(discard_usage_files());
    for (const bool next_is_a_move : {true, false}) {
        fail_a_save(Torn::yes);
        EXPECT_EQ(content()["home000003.dat"], old_moves + entry(5).substr(0, 10));
        if (next_is_a_move) {
            move(3, 8);
        } else {
            EXPECT_TRUE(commit_usage_files());
        }
        EXPECT_EQ(content()["home000003.dat"], old_moves + entry(5));
        EXPECT_TRUE(discard_usage_files());
    }
}

TEST_F(UsageFiles, WhatFailsIsAnsweredAndTheNextSaveBringsIt) {
    put("home000003.dat", old_moves);
    move(3, 5);
    move(4, 6);
    platform.files.start_over();
    EXPECT_TRUE(commit_usage_files());
    const int operations = platform.files.operations();
    EXPECT_TRUE(discard_usage_files());
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        put("home000003.dat", old_moves);
        platform.disk.remove(reports + "/home000004.dat");
        move(3, 5);
        move(4, 6);
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full);
        EXPECT_FALSE(commit_usage_files());
        const std::string now = content()["home000003.dat"];
        EXPECT_TRUE(now == old_moves || now == old_moves + entry(5));
        platform.files.start_over();
        EXPECT_TRUE(commit_usage_files());
        EXPECT_EQ(content()["home000003.dat"], old_moves + entry(5));
        EXPECT_EQ(content()["home000004.dat"], entry(6));
        EXPECT_TRUE(discard_usage_files());
    }
}

TEST_F(UsageFiles, ADeletionThatFailsIsAnsweredAndTheOthersGo) {
    move(3, 5);
    move(4, 6);
    platform.files.start_over();
    platform.files.fail_at(2, fault_number::permission_denied);
    EXPECT_FALSE(discard_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.tmp", entry(5)}}));
}

TEST_F(UsageFiles, AFolderThatCannotBeLookedAtIsAnswered) {
    put("home000005.dat", "of a deleted item");
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::device_io_error);
    EXPECT_FALSE(remove_orphan_usage_files());
    EXPECT_EQ(content(), (Content{{"home000005.dat", "of a deleted item"}}));
}

// A history that cannot be looked at is no empty one.
TEST_F(UsageFiles, AMoveBehindAHistoryThatCannotBeLookedAtIsNotWritten) {
    put("home000003.dat", old_moves);
    move(3, 5);
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::device_io_error, Repeat::persistently);
    move(3, 6);
    platform.files.start_over();
    EXPECT_EQ(content()["home000003.tmp"], old_moves + entry(5));
    platform.files.fail_at(1, fault_number::permission_denied);
    EXPECT_FALSE(commit_usage_files());
    platform.files.start_over();
    EXPECT_EQ(content()["home000003.dat"], old_moves);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content()["home000003.dat"], old_moves + entry(5));
}

// --- slots that are taken again ------------------------------------------------------------------

class TakenSlots : public UsageFiles {
  protected:
    TakenSlots() {
        for (i16 slot = 1; slot <= 4; ++slot) items[slot].in_use = 1;
        put("home000003.dat", old_moves);
    }
    // Item 3 goes and another one takes its slot.
    static void take_slot_3() {
        ASSERT_EQ(delete_item(3), i16_true);
        ItemValues values;
        values.name = "Rye";
        values.quantity = "2";
        ASSERT_EQ(create_item(values), 3);
    }
};

TEST_F(TakenSlots, AnItemThatTakesAFreedSlotStartsWithoutAHistory) {
    take_slot_3();
    EXPECT_EQ(Get_Item_Usage(3), "*");
    move(3, 5);
    EXPECT_EQ(content()["home000003.tmp"], entry(5));
    move(3, 6);
    EXPECT_EQ(content()["home000003.tmp"], entry(6));
    EXPECT_EQ(content()["home000003.dat"], old_moves);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content()["home000003.dat"], entry(6));
    EXPECT_NE(Get_Item_Usage(3), "*");
    EXPECT_TRUE(discard_usage_files());
    move(3, 7);
    EXPECT_EQ(content()["home000003.tmp"], entry(6) + entry(7));
}

TEST_F(TakenSlots, ACopyOfAnItemStartsWithoutAHistoryToo) {
    ASSERT_EQ(delete_item(3), i16_true);
    ASSERT_EQ(copy_item(4, 1), 3);
    EXPECT_EQ(Get_Item_Usage(3), "*");
    move(3, 5);
    EXPECT_EQ(content()["home000003.tmp"], entry(5));
}

TEST_F(TakenSlots, ASaveTakesTheFormerHistoryAwayWithoutAnyMove) {
    take_slot_3();
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content(), Content{});
    move(3, 5);
    EXPECT_EQ(content(), (Content{{"home000003.tmp", entry(5)}}));
}

TEST_F(TakenSlots, TheFormerItemsMovesSinceTheSaveGoWithIt) {
    move(3, 5);
    take_slot_3();
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content(), Content{});
}

TEST_F(TakenSlots, WithNoTheFormerHistoryIsThereAgain) {
    take_slot_3();
    move(3, 5);
    EXPECT_TRUE(discard_usage_files());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
    EXPECT_NE(Get_Item_Usage(3), "*");
    move(3, 6);
    EXPECT_EQ(content()["home000003.tmp"], old_moves + entry(6));
}

TEST_F(TakenSlots, AFormerHistoryThatCannotBeRemovedStaysStrangeToTheItem) {
    take_slot_3();
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::permission_denied);
    EXPECT_FALSE(commit_usage_files());
    platform.files.start_over();
    EXPECT_EQ(Get_Item_Usage(3), "*");
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content(), Content{});
}

}  // namespace

}  // namespace tavernook
