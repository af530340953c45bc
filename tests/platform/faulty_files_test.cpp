#include "fakes/faulty_files.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "basics/fault.h"
#include "fakes/child_process.h"
#include "fakes/temp_folder.h"
#include "platform_disk/disk_files.h"

namespace tavernook {
namespace {

using Log = std::vector<std::string>;

class FaultyFilesTest : public testing::Test {
  protected:
    std::string path(std::string_view name) const { return folder.path(name); }

    // Four operations: open, write, write, flush.
    void write_two_parts() {
        const auto file = files.open(path("a"), OpenMode::read_write);
        file->write(0, "first");
        file->write(5, "second");
        file->flush();
    }

    int fault_of_writing_two_parts() {
        try {
            write_two_parts();
        } catch (const Fault& fault) {
            return fault.number;
        }
        return 0;
    }

    TempFolder folder;
    DiskFiles disk;
    FaultyFiles files{disk};
};

TEST_F(FaultyFilesTest, WithoutAPlanEveryOperationWorksAndIsLogged) {
    write_two_parts();
    char bytes[6] = {};
    {
        const auto file = files.open(path("a"), OpenMode::read);
        EXPECT_EQ(file->length(), 11);
        EXPECT_EQ(file->read(5, bytes, 6), 6u);
        EXPECT_EQ(std::string(bytes, 6), "second");
    }
    EXPECT_TRUE(files.exists(path("a")));
    files.copy(path("a"), path("b"));
    files.rename(path("a"), path("c"));
    EXPECT_EQ(files.modified(path("c")), disk.modified(path("c")));
    files.make_folder(path("sub"));
    EXPECT_EQ(files.list(folder.path() + "/", "b"), Log{"b"});
    files.remove(path("b"));
    files.flush_folder(path("sub/"));

    const std::string own = folder.path().substr(folder.path().rfind('/') + 1);
    const Log expected = {
        "open a read_write",  "write a 0 5",   "write a 5 6",     "flush a",
        "open a read",        "length a",      "read a 5 6",      "exists a",
        "copy a -> b",        "rename a -> c", "modified c",      "make_folder sub",
        "list " + own + " b", "remove b",      "flush_folder sub"};
    EXPECT_EQ(files.log(), expected);
    EXPECT_EQ(files.operations(), 15);
    EXPECT_FALSE(disk.exists(path("a")));
    EXPECT_EQ(read_whole_file(path("c")), "firstsecond");
}

TEST_F(FaultyFilesTest, TheNthOperationFailsOnce) {
    files.fail_at(3, fault_number::disk_full);
    EXPECT_EQ(fault_of_writing_two_parts(), 61);
    EXPECT_EQ(files.log(), (Log{"open a read_write", "write a 0 5", "write a 5 6 fault 61"}));
    EXPECT_EQ(read_whole_file(path("a")), "first");

    EXPECT_EQ(fault_of_writing_two_parts(), 0);
    EXPECT_EQ(files.operations(), 7);
    EXPECT_EQ(read_whole_file(path("a")), "firstsecond");
}

TEST_F(FaultyFilesTest, WhatTellsOfNoFailureIsLeftUndone) {
    write_whole_file(path("a"), "bytes");
    write_whole_file(path(".tavernook-unfinished-a1B2c3"), "left over");
    files.fail_at(1, 70, Repeat::persistently);
    files.copy_attributes(path("a"), path("b"));
    files.remove_left_over(folder.path());
    EXPECT_EQ(disk.list(folder.path(), ""), (Log{".tavernook-unfinished-a1B2c3", "a"}));
    EXPECT_EQ(files.operations(), 2);
    EXPECT_EQ(files.log()[0], "copy_attributes a -> b fault 70");
    files.work_normally();
    files.copy_attributes(path("a"), path("b"));
    files.remove_left_over(folder.path());
    EXPECT_EQ(disk.list(folder.path(), ""), (Log{"a", "b"}));
}

TEST_F(FaultyFilesTest, EveryOperationCanFail) {
    write_whole_file(path("a"), "bytes");
    const auto opened = files.open(path("a"), OpenMode::read_write);
    char byte = 0;
    const std::vector<std::function<void()>> operations = {
        [&] { files.exists(path("a")); },
        [&] { files.open(path("a"), OpenMode::read); },
        [&] { files.remove(path("a")); },
        [&] { files.rename(path("a"), path("b")); },
        [&] { files.copy(path("a"), path("b")); },
        [&] { files.copy_unflushed(path("a"), path("b")); },
        [&] { files.is_write_protected(path("a")); },
        [&] { files.stamp(path("a")); },
        [&] { files.modified(path("a")); },
        [&] { files.flush_folder(folder.path()); },
        [&] { files.list(folder.path(), ""); },
        [&] { files.make_folder(path("sub")); },
        [&] { opened->read(0, &byte, 1); },
        [&] { opened->write(0, "other"); },
        [&] { opened->length(); },
        [&] { opened->flush(); },
    };
    for (const auto& operation : operations) {
        files.start_over();
        files.fail_at(1, fault_number::device_io_error);
        try {
            operation();
            ADD_FAILURE() << "did not fail: " << files.log().back();
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number, 57);
        }
        EXPECT_EQ(files.operations(), 1);
    }
    EXPECT_EQ(disk.list(folder.path(), ""), Log{"a"});
    EXPECT_FALSE(disk.exists(path("sub")));
    EXPECT_EQ(read_whole_file(path("a")), "bytes");
    EXPECT_EQ(byte, 0);
}

TEST_F(FaultyFilesTest, PersistentFailureLastsUntilWorkIsNormal) {
    files.fail_at(2, fault_number::device_io_error, Repeat::persistently);
    EXPECT_EQ(fault_of_writing_two_parts(), 57);
    EXPECT_EQ(fault_of_writing_two_parts(), 57);
    EXPECT_EQ(files.operations(), 3);
    files.work_normally();
    EXPECT_EQ(fault_of_writing_two_parts(), 0);
    EXPECT_EQ(files.operations(), 7);
}

TEST_F(FaultyFilesTest, ATornWriteLeavesItsFirstHalf) {
    files.fail_at(3, fault_number::disk_full, Repeat::once, Torn::yes);
    EXPECT_EQ(fault_of_writing_two_parts(), 61);
    EXPECT_EQ(read_whole_file(path("a")), "firstsec");
}

TEST_F(FaultyFilesTest, OnlyTheNthWriteIsTorn) {
    files.fail_at(2, fault_number::disk_full, Repeat::persistently, Torn::yes);
    EXPECT_EQ(fault_of_writing_two_parts(), 61);
    EXPECT_EQ(read_whole_file(path("a")), "fi");
    files.work_normally();
    const auto file = files.open(path("b"), OpenMode::read_write);
    files.fail_at(1, fault_number::disk_full, Repeat::persistently, Torn::yes);
    EXPECT_THROW(file->write(0, "whole"), Fault);
    EXPECT_EQ(read_whole_file(path("b")), "");
}

TEST_F(FaultyFilesTest, KillEndsTheProcessInPlaceOfTheOperation) {
    EXPECT_EQ(exit_status_in_child([&] {
                  files.kill_at(3);
                  write_two_parts();
              }),
              FaultyFiles::kill_status);
    EXPECT_EQ(read_whole_file(path("a")), "first");
}

TEST_F(FaultyFilesTest, KillInTheMiddleOfAWrite) {
    EXPECT_EQ(exit_status_in_child([&] {
                  files.kill_at(3, Torn::yes);
                  write_two_parts();
              }),
              FaultyFiles::kill_status);
    EXPECT_EQ(read_whole_file(path("a")), "firstsec");
}

TEST_F(FaultyFilesTest, KillBeyondTheLastOperationKillsNothing) {
    EXPECT_EQ(exit_status_in_child([&] {
                  files.kill_at(5);
                  write_two_parts();
              }),
              0);
    EXPECT_EQ(read_whole_file(path("a")), "firstsecond");
}

TEST_F(FaultyFilesTest, StartOverCountsFromZeroAndNothingFails) {
    files.fail_at(5, fault_number::disk_full);
    write_two_parts();
    files.start_over();
    EXPECT_EQ(files.operations(), 0);
    EXPECT_EQ(files.log(), Log{});
    write_two_parts();
    write_two_parts();
    EXPECT_EQ(files.operations(), 8);
}

TEST_F(FaultyFilesTest, FaultsOfTheRealFilesComeThrough) {
    EXPECT_THROW(files.open(path("none"), OpenMode::read), Fault);
    EXPECT_EQ(files.operations(), 1);
}

TEST(ChildProcessTest, TellsHowTheChildEnded) {
    EXPECT_EQ(exit_status_in_child([] {}), 0);
    EXPECT_EQ(exit_status_in_child([] { ::_exit(9); }), 9);
    EXPECT_EQ(exit_status_in_child([] { throw Fault(fault_number::overflow); }), 1);
    EXPECT_EQ(exit_status_in_child([] { ::raise(SIGKILL); }), 128 + 9);
}

}  // namespace
}  // namespace tavernook
