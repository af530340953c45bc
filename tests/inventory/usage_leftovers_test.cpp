// What an interrupted run has left of the usage history, at the next opening of the project.
#include "inventory/usage_leftovers.h"

#include <algorithm>
#include <limits>

#include "inventory/usage_bundle.h"
#include "inventory/usage_files.h"
#include "inventory/usage_files_fixture.h"

namespace tavernook {

namespace {

class UsageLeftovers : public UsageFiles {
  protected:
    UsageLeftovers() { put("home000003.dat", old_moves); }

    i64 written(const std::string& name) {
        return platform.disk.stamp(reports + "/" + name).changed;
    }
    // The working copy of item 3 belongs to the save.
    bool settle() { return settle_usage_files(written("home000003.tmp")); }

    void expect_discarded(const std::string& working) {
        put("home000003.dat", old_moves);
        put("home000003.tmp", working);
        EXPECT_TRUE(settle());
        EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
    }
};

TEST_F(UsageLeftovers, AWorkingCopyFromBeforeTheSaveIsCommitted) {
    put("home000003.tmp", old_moves + entry(5));
    EXPECT_TRUE(settle());
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves + entry(5)}}));
}

TEST_F(UsageLeftovers, AnEntryWhoseAddingWasInterruptedIsAddedWhole) {
    for (std::size_t length = 1; length < usage_entry_size; ++length) {
        put("home000003.dat", old_moves + entry(5).substr(0, length));
        put("home000003.tmp", old_moves + entry(5));
        EXPECT_TRUE(settle());
        EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves + entry(5)}})) << length;
    }
    put("home000003.dat", "odd" + old_moves);
    put("home000003.tmp", "odd" + old_moves + entry(5));
    EXPECT_TRUE(settle());
    EXPECT_EQ(content(), (Content{{"home000003.dat", "odd" + old_moves + entry(5)}}));
}

TEST_F(UsageLeftovers, OneFromAfterTheSaveIsDiscarded) {
    put("home000003.tmp", old_moves + entry(5));
    EXPECT_TRUE(settle_usage_files(written("home000003.tmp") - 1));
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
}

TEST_F(UsageLeftovers, BesideAFileThatIsNotTheirsAllAreDiscarded) {
    put("home000003.tmp", old_moves + entry(5));
    EXPECT_TRUE(settle_usage_files(0));
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves}}));
}

TEST_F(UsageLeftovers, OneEntryIsThatOfAnItemNewInItsSlot) {
    put("home000003.tmp", entry(5));
    EXPECT_TRUE(settle());
    EXPECT_EQ(content(), (Content{{"home000003.dat", entry(5)}}));
    put("home000004.tmp", entry(6));
    EXPECT_TRUE(settle_usage_files(written("home000004.tmp")));
    EXPECT_EQ(content()["home000004.dat"], entry(6));
}

TEST_F(UsageLeftovers, OneThatIsCutDoesNotReplaceAGoodHistory) {
    const std::string whole = old_moves + entry(5);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        expect_discarded(whole.substr(0, length));
    }
    expect_discarded(whole + entry(6));
}

TEST_F(UsageLeftovers, OneOfZerosDoesNotReplaceAGoodHistory) {
    for (const std::size_t length : {21U, 42U, 63U, 84U})
        expect_discarded(std::string(length, '\0'));
    expect_discarded(old_moves + std::string(21, '\0'));
    expect_discarded(std::string(42, '\0') + entry(5));
}

TEST_F(UsageLeftovers, AnEntryThatIsNoneDoesNotCount) {
    const f64 none = std::numeric_limits<f64>::quiet_NaN();
    for (const UsageEntry& wrong :
         {UsageEntry{5, 45427, 3, 0}, UsageEntry{5, 45427, 2, 16}, UsageEntry{5, 45427, 2, -1},
          UsageEntry{5, 0, 2, 0}, UsageEntry{5, none, 2, 0}, UsageEntry{none, 45427, 2, 0}}) {
        expect_discarded(old_moves + encode_usage(wrong));
    }
}

TEST_F(UsageLeftovers, OfAnItemThatIsGoneIsDiscarded) {
    items[3].in_use = 0;
    expect_discarded(old_moves + entry(5));
}

TEST_F(UsageLeftovers, OthersFilesStay) {
    put("home000001000003.tmp", entry(5));
    put("cabin000003.tmp", entry(5));
    put("item.tmp", "notes");
    put("cabin.histories", "theirs");
    const Content before = content();
    EXPECT_TRUE(settle_usage_files(written("cabin000003.tmp")));
    EXPECT_EQ(content(), before);
    EXPECT_TRUE(settle_usage_files(0));
    EXPECT_EQ(content(), before);
}

TEST_F(UsageLeftovers, WhatCannotBeLookedAtStaysAsItIs) {
    put("home000003.tmp", old_moves + entry(5));
    platform.files.start_over();
    EXPECT_TRUE(settle());
    const int operations = platform.files.operations();
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        put("home000003.dat", old_moves);
        put("home000003.tmp", old_moves + entry(5));
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::device_io_error, Repeat::persistently);
        EXPECT_FALSE(settle());
        platform.files.start_over();
        EXPECT_EQ(content()["home000003.tmp"], old_moves + entry(5));
        const std::string kept = content()["home000003.dat"];
        EXPECT_TRUE(kept == old_moves || kept == old_moves + entry(5));
    }
}

// One that could not be removed is not taken for a working copy of this run.
TEST_F(UsageLeftovers, AMoveStartsAnewWhereOneIsLeft) {
    put("home000003.tmp", std::string(63, '\0'));
    move(3, 5);
    EXPECT_EQ(content()["home000003.tmp"], old_moves + entry(5));
    put("home000004.tmp", old_moves);
    move(4, 6);
    EXPECT_EQ(content()["home000004.tmp"], entry(6));
}

// --- under a new name ----------------------------------------------------------------------------

class UsageBundle : public UsageLeftovers {
  protected:
    UsageBundle() {
        put("cabin000003.dat", "stale");
        put("cabin000009.dat", "stale");
        put("cabin000009.tmp", "stale");
        put("cabin000001000003.dat", "theirs");
        move(4, 6);
    }
    // The project goes on as cabin.tvk.
    void pack() {
        set_project_path(platform.path("cabin.tvk"));
        EXPECT_TRUE(pack_usage_bundle("home"));
    }
    const Content carried = {{"home000003.dat", old_moves},
                             {"cabin000003.dat", old_moves},
                             {"cabin000004.dat", entry(6)},
                             {"cabin000001000003.dat", "theirs"}};
};

TEST_F(UsageBundle, CarriesTheHistoriesAndTheMovesSinceTheSave) {
    pack();
    EXPECT_TRUE(unpack_usage_bundle());
    EXPECT_EQ(content(), carried);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(content(), carried);
}

TEST_F(UsageBundle, ChangesNothingUntilTheProjectIsThere) {
    const Content before = content();
    pack();
    Content packed = content();
    packed.erase("cabin.histories");
    EXPECT_EQ(packed, before);
    drop_usage_bundle();
    EXPECT_EQ(content(), before);
}

TEST_F(UsageBundle, IsUnpackedAtTheNextOpening) {
    pack();
    forget_usage_files();
    EXPECT_TRUE(settle_usage_files(written("cabin.histories")));
    Content after = content();
    after.erase("home000004.tmp");  // of the project that was left
    EXPECT_EQ(after, carried);
}

TEST_F(UsageBundle, IsThereUntilTheHistoriesAreOnTheDisk) {
    pack();
    platform.files.start_over();
    EXPECT_TRUE(unpack_usage_bundle());
    const auto& log = platform.files.log();
    const auto flushed = std::find(log.begin(), log.end(), "flush_all reports");
    const auto removed = std::find(log.begin(), log.end(), "remove cabin.histories");
    EXPECT_LT(flushed, removed);
    ASSERT_NE(removed, log.end());
    EXPECT_FALSE(std::any_of(flushed, removed, [](const std::string& step) {
        return step.starts_with("write") || step.starts_with("rename");
    }));
}

TEST_F(UsageBundle, OneThatCouldNotBeRemovedDoesNotComeBack) {
    pack();
    put("kept", content()["cabin.histories"]);
    EXPECT_TRUE(unpack_usage_bundle());
    std::filesystem::rename(reports + "/kept", reports + "/cabin.histories");
    remove_older_usage_bundle();
    EXPECT_EQ(content(), carried);
}

TEST_F(UsageBundle, OneFromAfterTheSaveIsDiscarded) {
    pack();
    EXPECT_TRUE(settle_usage_files(written("cabin.histories") - 1));
    EXPECT_EQ(content(), (Content{{"home000003.dat", old_moves},
                                  {"home000004.tmp", entry(6)},
                                  {"cabin000003.dat", "stale"},
                                  {"cabin000009.dat", "stale"},
                                  {"cabin000001000003.dat", "theirs"}}));
}

TEST_F(UsageBundle, OneThatIsNotWholeIsNotUnpacked) {
    pack();
    const std::string whole = content()["cabin.histories"];
    for (std::size_t length = 0; length < whole.size(); ++length) {
        put("cabin.histories", whole.substr(0, length));
        EXPECT_FALSE(settle_usage_files(written("cabin.histories")));
        EXPECT_EQ(content()["cabin000003.dat"], "stale") << length;
        EXPECT_FALSE(content().contains("cabin.histories"));
    }
}

TEST_F(UsageBundle, AnItemNewInItsSlotTakesNothingAlong) {
    begin_usage_history(3);
    pack();
    EXPECT_TRUE(unpack_usage_bundle());
    EXPECT_FALSE(content().contains("cabin000003.dat"));
    EXPECT_EQ(content()["home000003.dat"], old_moves);
    EXPECT_FALSE(has_no_saved_usage(3));
}

TEST_F(UsageBundle, AHistoryThatCannotBeReadIsLeftOutAndAnswered) {
    set_project_path(platform.path("cabin.tvk"));
    platform.files.start_over();
    platform.files.fail_at(4, fault_number::device_io_error);  // behind the bundle and the folder
    EXPECT_FALSE(pack_usage_bundle("home"));
    platform.files.start_over();
    EXPECT_TRUE(unpack_usage_bundle());
    EXPECT_EQ(content()["home000003.dat"], old_moves);
    EXPECT_FALSE(content().contains("cabin000003.dat"));
    EXPECT_EQ(content()["cabin000004.dat"], entry(6));
}

}  // namespace

}  // namespace tavernook
