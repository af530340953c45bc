#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "basics/text.h"
#include "disk_files_fixture.h"
#include "fakes/child_process.h"
#include "platform_disk/disk_fault.h"

namespace tavernook {
namespace {

constexpr int skip_status = 77;

using DiskCopyTest = DiskFilesTest;
using DiskRefusalTest = DiskFilesTest;

TEST_F(DiskCopyTest, CopyMakesTheSameBytes) {
    std::string bytes;
    for (int i = 0; i < 700'001; ++i) bytes.push_back(static_cast<char>(i * 7 % 251));
    write_whole_file(path("a"), bytes);
    files.copy(path("a"), path("b"));
    EXPECT_TRUE(read_whole_file(path("b")) == bytes);
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(DiskCopyTest, CopyReplacesAndLeavesTheSource) {
    write_whole_file(path("a"), "new");
    write_whole_file(path("b"), "older and longer");
    files.copy(path("a"), path("b"));
    EXPECT_EQ(read_whole_file(path("a")), "new");
    EXPECT_EQ(read_whole_file(path("b")), "new");
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(DiskCopyTest, CopyOfAnEmptyFileAndOntoItself) {
    write_whole_file(path("a"), "");
    files.copy(path("a"), path("b"));
    EXPECT_EQ(read_whole_file(path("b")), "");
    write_whole_file(path("a"), "same");
    files.copy(path("a"), path("a"));
    EXPECT_EQ(read_whole_file(path("a")), "same");
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(DiskCopyTest, CopyTakesThePermissionsAndCanBeWrittenByItsOwner) {
    write_whole_file(path("private"), "x");
    write_whole_file(path("shared"), "x");
    ASSERT_EQ(::chmod(path("private").c_str(), 0600), 0);
    ASSERT_EQ(::chmod(path("shared").c_str(), 0444), 0);
    files.copy(path("private"), path("private copy"));
    files.copy(path("shared"), path("shared copy"));
    struct stat facts {};
    ASSERT_EQ(::stat(path("private copy").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0600u);
    ASSERT_EQ(::stat(path("shared copy").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0644u);
}

TEST_F(DiskCopyTest, CopyThatCannotBeginLeavesTheTarget) {
    write_whole_file(path("a"), "x");
    write_whole_file(path("b"), "old");
    files.make_folder(path("sub"));
    EXPECT_EQ(fault_of([&] { files.copy(path("none"), path("b")); }), 53);
    EXPECT_EQ(fault_of([&] { files.copy(path("no/none"), path("b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.copy(path("sub"), path("b")); }), 75);
    EXPECT_EQ(fault_of([&] { files.copy(path("a"), path("no/b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.copy(path("a"), path("sub")); }), 75);
    EXPECT_EQ(read_whole_file(path("b")), "old");
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(DiskCopyTest, CopyThatBreaksOffLeavesTheTargetAndNoStump) {
    write_whole_file(path("a"), std::string(1'000'000, 'n'));
    write_whole_file(path("b"), "old");
    EXPECT_EQ(exit_status_in_child([&] {
                  ::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit{500'000, 500'000};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  ::_exit(fault_of([&] { files.copy(path("a"), path("b")); }));
              }),
              75);
    EXPECT_EQ(read_whole_file(path("b")), "old");
    EXPECT_EQ(names(), (Names{"a", "b"}));
}

TEST_F(DiskRefusalTest, ReadErrorIsFault57) {
    // Nothing is mapped at address 0.
    const auto memory = files.open("/proc/self/mem", OpenMode::read);
    char byte = 0;
    EXPECT_EQ(fault_of([&] { memory->read(0, &byte, 1); }), 57);
    EXPECT_EQ(fault_of([&] { files.copy("/proc/self/mem", path("b")); }), 57);
    EXPECT_EQ(names(), Names{});
}

TEST_F(DiskRefusalTest, FullDeviceIsFault61) {
    const auto full = files.open("/dev/full", OpenMode::read_write);
    EXPECT_EQ(fault_of([&] { full->write(0, "x"); }), 61);
}

// A small disk of its own, where the machine allows one.
void on_a_disk_of_64_kilobytes(const std::string& place) {
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0) ::_exit(skip_status);
    if (user != 0) {
        // Files need an owner that the new name space knows.
        write_whole_file("/proc/self/setgroups", "deny");
        write_whole_file("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
        write_whole_file("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
    }
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) ::_exit(skip_status);
    if (::mount("none", place.c_str(), "tmpfs", 0, "size=64k") != 0) ::_exit(skip_status);
}

TEST_F(DiskRefusalTest, FullDiskIsFault61AndLeavesNoStump) {
    const int status = exit_status_in_child([&] {
        on_a_disk_of_64_kilobytes(folder.path());
        write_whole_file(path("a"), std::string(40'000, 'n'));
        write_whole_file(path("b"), "old");
        EXPECT_EQ(fault_of([&] { files.copy(path("a"), path("b")); }), 61);
        EXPECT_EQ(read_whole_file(path("b")), "old");
        EXPECT_EQ(names(), (Names{"a", "b"}));
        const auto file = files.open(path("c"), OpenMode::read_write);
        EXPECT_EQ(fault_of([&] { file->write(0, std::string(40'000, 'x')); }), 61);
        EXPECT_EQ(fault_of([&] { files.rename(path("a"), "/proc/a"); }), 75);
    });
    if (status == skip_status) GTEST_SKIP() << "no disk can be mounted here";
    EXPECT_EQ(status, 0);
}

TEST_F(DiskRefusalTest, WithoutPermissionIsFault70) {
    files.make_folder(path("sub"));
    write_whole_file(path("sub/a"), "x");
    write_whole_file(path("sub/locked"), "x");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(path("sub/locked").c_str(), 0000), 0);
    ASSERT_EQ(::chmod(path("sub").c_str(), 0555), 0);
    const int status = exit_status_in_child([&] {
        if (::geteuid() == 0) {
            ASSERT_EQ(::setuid(65534), 0);
        }
        EXPECT_EQ(fault_of([&] { files.open(path("sub/locked"), OpenMode::read); }), 70);
        EXPECT_EQ(fault_of([&] { files.open(path("sub/new"), OpenMode::read_write); }), 70);
        EXPECT_EQ(fault_of([&] { files.remove(path("sub/a")); }), 70);
        EXPECT_EQ(fault_of([&] { files.rename(path("sub/a"), path("sub/b")); }), 70);
        EXPECT_EQ(fault_of([&] { files.copy(path("sub/a"), path("sub/b")); }), 70);
        EXPECT_EQ(fault_of([&] { files.make_folder(path("sub/deep/er")); }), 70);
        EXPECT_NO_THROW(files.make_folder(path("sub")));
        EXPECT_NO_THROW(files.list(path("sub"), ""));
    });
    ASSERT_EQ(::chmod(path("sub").c_str(), 0755), 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(files.list(path("sub"), ""), (Names{"a", "locked"}));
}

TEST(DiskFaultTest, EachRefusalHasItsNumber) {
    EXPECT_EQ(fault_number_from_errno(ENOENT, true), 53);
    EXPECT_EQ(fault_number_from_errno(ENOENT, false), 76);
    EXPECT_EQ(fault_number_from_errno(ENOTDIR, true), 76);
    EXPECT_EQ(fault_number_from_errno(EIO, true), 57);
    EXPECT_EQ(fault_number_from_errno(ENOSPC, true), 61);
    EXPECT_EQ(fault_number_from_errno(EDQUOT, true), 61);
    EXPECT_EQ(fault_number_from_errno(EACCES, true), 70);
    EXPECT_EQ(fault_number_from_errno(EPERM, true), 70);
    EXPECT_EQ(fault_number_from_errno(EROFS, true), 70);
    for (const int other : {EISDIR, EMFILE, ENAMETOOLONG, ELOOP, EXDEV, EBUSY, ETXTBSY, EINVAL}) {
        EXPECT_EQ(fault_number_from_errno(other, true), 75) << other;
    }
}

TEST(DiskFaultTest, FolderOfAPath) {
    EXPECT_EQ(folder_of("/a/b.tvk"), "/a");
    EXPECT_EQ(folder_of("/b.tvk"), "/");
    EXPECT_EQ(folder_of("b.tvk"), ".");
    EXPECT_EQ(folder_of("a/b/"), "a/b");
    EXPECT_EQ(folder_of(""), ".");
}

}  // namespace
}  // namespace tavernook
