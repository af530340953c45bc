// The plain file of recipe and inventory files, packed and unpacked.
#include "transfer/portable_file.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "core/program_state.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

using Events = std::vector<std::string>;

class PortableFile : public testing::Test {
  protected:
    TestPlatform platform;
    const std::string target = platform.path("soup.rpf");
    const std::string plain = platform.system.program + "/temppf.tmp";

    static void write_soup(File& file) {
        file.write(0, "soup");
        file.write(9, "!");
    }
    // The Fault's number, 0 for none.
    template <typename Work>
    int fault_of(Work&& work) {
        try {
            work();
        } catch (const Fault& fault) {
            return fault.number;
        }
        return 0;
    }
    int pack() {
        return fault_of([&] { pack_portable(target, write_soup); });
    }
    int unpack() {
        return fault_of([&] { EXPECT_TRUE(unpack_portable(target, "too long")); });
    }
    Events files_there() { return platform.disk.list(platform.temp.path(), ""); }
    bool is_plain_there() { return platform.disk.is_taken(plain); }
};

const std::string soup("cabinet of temppf.tmp\nsoup\0\0\0\0\0!", 32);

TEST_F(PortableFile, IsPackedAnewEachTime) {
    write_whole_file(plain, "left by a program that was killed, and longer");
    EXPECT_EQ(pack(), 0);
    EXPECT_EQ(read_whole_file(target), soup);
    EXPECT_FALSE(is_plain_there());
    EXPECT_EQ(platform.progress.events(),
              (Events{"load Portable Format File|Compressing Portable Format File", "offer cancel",
                      "show", "bar 0", "bar 100", "hide", "unload"}));
}

TEST_F(PortableFile, AnOlderTargetStaysUntilTheNewOneIsWhole) {
    write_whole_file(target, "older");
    platform.cabinets.failure = Fault(fault_number::disk_full);
    EXPECT_EQ(pack(), fault_number::disk_full);
    EXPECT_EQ(read_whole_file(target), "older");
    platform.cabinets.failure.reset();
    platform.progress.cancelled = true;
    EXPECT_EQ(pack(), fault_number::cancel_was_selected);
    EXPECT_EQ(read_whole_file(target), "older");
    EXPECT_EQ(fault_of([&] { pack_portable(target, [](File&) { throw Fault(6); }); }), 6);
    EXPECT_EQ(read_whole_file(target), "older");
    EXPECT_EQ(files_there(), Events{"soup.rpf"});
    EXPECT_FALSE(is_plain_there());
}

TEST_F(PortableFile, CancelLeavesNoStump) {
    platform.progress.cancelled = true;
    EXPECT_EQ(pack(), fault_number::cancel_was_selected);
    EXPECT_EQ(files_there(), Events{});
    EXPECT_FALSE(is_plain_there());
}

TEST_F(PortableFile, MoreThanCanBeUnpackedIsNotPacked) {
    const auto write = [](File& file) { file.write(longest_portable_file, "x"); };
    EXPECT_EQ(fault_of([&] { pack_portable(target, write); }), fault_number::overflow);
    EXPECT_EQ(files_there(), Events{});
}

TEST_F(PortableFile, IsUnpackedWhileTheWindowsLive) {
    write_whole_file(target, soup);
    platform.cabinets.steps = 4;
    std::vector<i16> flags;
    extract_done = i16_true;
    platform.cabinets.meanwhile = [&](int) { flags.push_back(extract_done); };
    EXPECT_EQ(unpack(), 0);
    EXPECT_EQ(extract_done, i16_true);
    EXPECT_EQ(flags, std::vector<i16>(4, 0));
    EXPECT_EQ(read_whole_file(plain), soup.substr(22));
    EXPECT_EQ(platform.progress.events(),
              (Events{"load Portable Format File|Extracting Portable Format File", "offer cancel",
                      "show", "bar 0", "bar 25", "bar 50", "bar 75", "bar 100", "hide", "unload"}));
    EXPECT_NEAR(platform.clock.waited, 1 + 4 * 0.01, 1e-9);
}

TEST_F(PortableFile, CancelEndsTheUnpacking) {
    write_whole_file(target, soup);
    platform.cabinets.meanwhile = [&](int step) { platform.progress.cancelled = step == 2; };
    EXPECT_EQ(unpack(), fault_number::cancel_was_selected);
    EXPECT_EQ(extract_done, i16_false);
    EXPECT_EQ(platform.cabinets.log.entries.back(), "let go");
}

// The seconds of the minute are never more than 59 apart.
TEST_F(PortableFile, TheWaitHasNoEndButThatOfTheUnpacking) {
    write_whole_file(target, soup);
    platform.cabinets.steps = 500;
    platform.cabinets.meanwhile = [&](int) { platform.clock.time += 1.0 / 1440 + 1.0 / 86400; };
    EXPECT_EQ(unpack(), 0);
}

TEST_F(PortableFile, WhatStopsTheUnpackingComesOut) {
    EXPECT_EQ(unpack(), fault_number::file_not_found);
    write_whole_file(target, "no cabinet");
    EXPECT_EQ(unpack(), fault_number::bad_record_number);
    EXPECT_EQ(extract_done, i16_false);
}

TEST_F(PortableFile, IsGoneAtTheEnd) {
    write_whole_file(target, soup);
    {
        const PortableFileRemoval removal;
        const auto unpacked = unpack_portable(target, "too long");
        ASSERT_TRUE(unpacked);
        EXPECT_EQ(unpacked->length(), 10);
    }
    EXPECT_FALSE(is_plain_there());
}

TEST_F(PortableFile, ALinkInItsPlaceIsNotFollowed) {
    std::filesystem::create_symlink(platform.path("elsewhere"), plain);
    EXPECT_EQ(pack(), 0);
    std::filesystem::create_symlink(platform.path("elsewhere"), plain);
    EXPECT_EQ(unpack(), 0);
    EXPECT_EQ(files_there(), Events{"soup.rpf"});
}

}  // namespace
}  // namespace tavernook
