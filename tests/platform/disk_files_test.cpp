#include "platform_disk/disk_files.h"

#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "disk_files_fixture.h"
#include "fakes/child_process.h"

namespace tavernook {
namespace {

TEST_F(DiskFilesTest, OpenForReadingGivesTheBytes) {
    write_whole_file(path("a"), "0123456789");
    const auto file = files.open(path("a"), OpenMode::read);
    EXPECT_EQ(read(*file, 0, 10), "0123456789");
    EXPECT_EQ(read(*file, 3, 4), "3456");
    EXPECT_EQ(file->length(), 10);
}

TEST_F(DiskFilesTest, ReadStopsAtTheEndOfTheFile) {
    write_whole_file(path("a"), "0123456789");
    const auto file = files.open(path("a"), OpenMode::read);
    EXPECT_EQ(read(*file, 7, 100), "789");
    EXPECT_EQ(read(*file, 10, 5), "");
    EXPECT_EQ(read(*file, 99, 5), "");
    EXPECT_EQ(read(*file, 0, 0), "");
}

TEST_F(DiskFilesTest, ReadGathersWhatTheSystemGivesInPieces) {
    const std::string piecemeal = "/proc/self/smaps";
    std::string bytes(10'000, '?');
    const int descriptor = ::open(piecemeal.c_str(), O_RDONLY);
    const ssize_t piece = ::pread(descriptor, bytes.data(), bytes.size(), 0);
    ::close(descriptor);
    ASSERT_GT(piece, 0);
    ASSERT_LT(piece, 10'000);
    EXPECT_EQ(read(*files.open(piecemeal, OpenMode::read), 0, 10'000).size(), 10'000u);
}

TEST_F(DiskFilesTest, BehindALinkIsTheFileThatItLeadsTo) {
    write_whole_file(path("home.tvk"), "x");
    std::filesystem::create_symlink("home.tvk", path("link.tvk"));
    std::filesystem::create_symlink("link.tvk", path("link to link.tvk"));
    std::filesystem::create_symlink("gone.tvk", path("broken.tvk"));
    const std::string home = std::filesystem::canonical(path("home.tvk")).string();
    EXPECT_EQ(files.behind_link(path("link.tvk")), home);
    EXPECT_EQ(files.behind_link(path("link to link.tvk")), home);
    EXPECT_EQ(files.behind_link(path("home.tvk")), path("home.tvk"));
    EXPECT_EQ(files.behind_link(path("broken.tvk")), path("broken.tvk"));
    EXPECT_EQ(files.behind_link(path("missing.tvk")), path("missing.tvk"));
}

TEST_F(DiskFilesTest, OpenReadWriteMakesAMissingFile) {
    files.open(path("new"), OpenMode::read_write);
    EXPECT_EQ(read_whole_file(path("new")), "");
}

TEST_F(DiskFilesTest, OpenReadWriteKeepsWhatIsThere) {
    write_whole_file(path("a"), "0123456789");
    const auto file = files.open(path("a"), OpenMode::read_write);
    file->write(2, "xy");
    EXPECT_EQ(read(*file, 0, 10), "01xy456789");
    EXPECT_EQ(read_whole_file(path("a")), "01xy456789");
}

TEST_F(DiskFilesTest, GapBehindTheOldEndReadsAsZeros) {
    const auto file = files.open(path("a"), OpenMode::read_write);
    file->write(0, "ab");
    file->write(5, "z");
    EXPECT_EQ(file->length(), 6);
    EXPECT_EQ(read_whole_file(path("a")), std::string("ab\0\0\0z", 6));
}

TEST_F(DiskFilesTest, WritingNothingLeavesTheLength) {
    const auto file = files.open(path("a"), OpenMode::read_write);
    file->write(100, "");
    EXPECT_EQ(file->length(), 0);
}

TEST_F(DiskFilesTest, OffsetsBeyondFourGigabytesWork) {
    const i64 far_away = 5'000'000'000;
    const auto file = files.open(path("a"), OpenMode::read_write);
    file->write(far_away, "end");
    EXPECT_EQ(file->length(), 5'000'000'003);
    EXPECT_EQ(read(*file, far_away, 9), "end");
}

TEST_F(DiskFilesTest, NegativeOffsetIsAFault) {
    const auto file = files.open(path("a"), OpenMode::read_write);
    char byte = 0;
    EXPECT_EQ(fault_of([&] { file->write(-1, "x"); }), 75);
    EXPECT_EQ(fault_of([&] { file->read(-1, &byte, 1); }), 75);
}

TEST_F(DiskFilesTest, FlushedBytesAreInTheFile) {
    const auto file = files.open(path("a"), OpenMode::read_write);
    file->write(0, "kept");
    EXPECT_NO_THROW(file->flush());
    EXPECT_EQ(read_whole_file(path("a")), "kept");
}

TEST_F(DiskFilesTest, AFileOpenedForReadingCannotBeWritten) {
    write_whole_file(path("a"), "old");
    const auto file = files.open(path("a"), OpenMode::read);
    EXPECT_EQ(fault_of([&] { file->write(0, "new"); }), 75);
    EXPECT_EQ(read_whole_file(path("a")), "old");
}

TEST_F(DiskFilesTest, TheDestructorClosesTheFile) {
    const auto open_descriptors = [] {
        namespace fs = std::filesystem;
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    const auto before = open_descriptors();
    {
        const auto file = files.open(path("a"), OpenMode::read_write);
        EXPECT_EQ(open_descriptors(), before + 1);
    }
    fault_of([&] { files.open(folder.path(), OpenMode::read); });
    fault_of([&] { files.copy(path("a"), path("no/such")); });
    files.list(folder.path(), "");
    files.flush_folder(folder.path());
    EXPECT_EQ(open_descriptors(), before);
}

TEST_F(DiskFilesTest, OpenFilesAreNotHandedToOtherPrograms) {
    const auto file = files.open(path("a"), OpenMode::read_write);
    int found = 0;
    for (int descriptor = 3; descriptor < 256; ++descriptor) {
        struct stat facts {};
        struct stat wanted {};
        ASSERT_EQ(::stat(path("a").c_str(), &wanted), 0);
        if (::fstat(descriptor, &facts) != 0 || facts.st_ino != wanted.st_ino) continue;
        ++found;
        EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
    }
    EXPECT_EQ(found, 1);
}

TEST_F(DiskFilesTest, MissingFileIsFault53AndMissingFolder76) {
    EXPECT_EQ(fault_of([&] { files.open(path("none"), OpenMode::read); }), 53);
    EXPECT_EQ(fault_of([&] { files.open(path("no/none"), OpenMode::read); }), 76);
    EXPECT_EQ(fault_of([&] { files.open(path("no/none"), OpenMode::read_write); }), 76);
    EXPECT_EQ(fault_of([&] { files.open("", OpenMode::read); }), 53);
    EXPECT_EQ(names(), Names{});
}

TEST_F(DiskFilesTest, AFileInPlaceOfAFolderIsFault76) {
    write_whole_file(path("a"), "x");
    EXPECT_EQ(fault_of([&] { files.open(path("a/b"), OpenMode::read); }), 76);
    EXPECT_EQ(fault_of([&] { files.remove(path("a/b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.rename(path("a"), path("a/b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.copy(path("a"), path("a/b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.list(path("a"), ""); }), 76);
    EXPECT_EQ(fault_of([&] { files.make_folder(path("a/b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.flush_folder(path("a")); }), 76);
    EXPECT_EQ(fault_of([&] { files.modified(path("a/b")); }), 76);
}

TEST_F(DiskFilesTest, AFolderCannotBeOpenedAsAFile) {
    EXPECT_EQ(fault_of([&] { files.open(folder.path(), OpenMode::read); }), 75);
    EXPECT_EQ(fault_of([&] { files.open(folder.path(), OpenMode::read_write); }), 75);
}

TEST_F(DiskFilesTest, APipeIsRefusedInsteadOfWaitedFor) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(fault_of([&] { files.open(path("pipe"), OpenMode::read); }), 75);
    EXPECT_EQ(fault_of([&] { files.open(path("pipe"), OpenMode::read_write); }), 75);
    EXPECT_EQ(fault_of([&] { files.copy(path("pipe"), path("copy")); }), 75);
}

TEST_F(DiskFilesTest, ANameThatIsTooLongIsFault75) {
    const std::string name(300, 'n');
    EXPECT_EQ(fault_of([&] { files.open(path(name), OpenMode::read_write); }), 75);
}

TEST_F(DiskFilesTest, AByteZeroDoesNotCutThePath) {
    write_whole_file(path("a"), "x");
    const std::string longer = path("a") + std::string("\0b", 2);
    EXPECT_EQ(fault_of([&] { files.open(longer, OpenMode::read); }), 75);
    EXPECT_EQ(fault_of([&] { files.exists(longer); }), 75);
    EXPECT_EQ(fault_of([&] { files.remove(longer); }), 75);
    EXPECT_EQ(fault_of([&] { files.rename(longer, path("b")); }), 75);
    EXPECT_EQ(fault_of([&] { files.rename(path("a"), longer); }), 75);
    EXPECT_EQ(fault_of([&] { files.copy(longer, path("b")); }), 75);
    EXPECT_EQ(fault_of([&] { files.copy(path("a"), longer); }), 75);
    EXPECT_EQ(fault_of([&] { files.modified(longer); }), 75);
    EXPECT_EQ(fault_of([&] { files.list(longer, ""); }), 75);
    EXPECT_EQ(fault_of([&] { files.make_folder(longer); }), 75);
    EXPECT_EQ(fault_of([&] { files.flush_folder(longer); }), 75);
    EXPECT_EQ(names(), Names{"a"});
}

TEST_F(DiskFilesTest, WritingThroughALinkKeepsTheLink) {
    write_whole_file(path("real"), "old");
    std::filesystem::create_symlink("real", path("link"));
    files.open(path("link"), OpenMode::read_write)->write(0, "new");
    EXPECT_EQ(read_whole_file(path("real")), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
}

TEST_F(DiskFilesTest, ExistsForFilesAndFoldersOnly) {
    write_whole_file(path("a"), "x");
    std::filesystem::create_symlink("nowhere", path("link"));
    EXPECT_TRUE(files.exists(path("a")));
    EXPECT_TRUE(files.exists(folder.path()));
    EXPECT_FALSE(files.exists(path("b")));
    EXPECT_FALSE(files.exists(path("no/b")));
    EXPECT_FALSE(files.exists(path("a/b")));
    EXPECT_FALSE(files.exists(path("link")));
    EXPECT_FALSE(files.exists(""));
}

TEST_F(DiskFilesTest, ANameIsTakenByALinkThatLeadsNowhereToo) {
    write_whole_file(path("a"), "x");
    std::filesystem::create_symlink("nowhere", path("link"));
    EXPECT_TRUE(files.is_taken(path("a")));
    EXPECT_TRUE(files.is_taken(folder.path()));
    EXPECT_TRUE(files.is_taken(path("link")));
    EXPECT_FALSE(files.is_taken(path("b")));
    EXPECT_FALSE(files.is_taken(path("no/b")));
    EXPECT_FALSE(files.is_taken(path("a/b")));
}

TEST_F(DiskFilesTest, RemoveTakesFilesAndRefusesFolders) {
    write_whole_file(path("a"), "x");
    files.make_folder(path("sub"));
    files.remove(path("a"));
    EXPECT_FALSE(files.exists(path("a")));
    EXPECT_EQ(fault_of([&] { files.remove(path("a")); }), 53);
    EXPECT_EQ(fault_of([&] { files.remove(path("no/a")); }), 76);
    EXPECT_EQ(fault_of([&] { files.remove(path("sub")); }), 75);
    EXPECT_TRUE(files.exists(path("sub")));
}

TEST_F(DiskFilesTest, RenameMovesAndReplaces) {
    write_whole_file(path("a"), "from a");
    files.rename(path("a"), path("b"));
    EXPECT_EQ(names(), Names{"b"});
    write_whole_file(path("c"), "from c");
    files.rename(path("c"), path("b"));
    EXPECT_EQ(names(), Names{"b"});
    EXPECT_EQ(read_whole_file(path("b")), "from c");
}

TEST_F(DiskFilesTest, RenameReplacesALinkNotItsTarget) {
    write_whole_file(path("real"), "old");
    write_whole_file(path("a"), "new");
    std::filesystem::create_symlink("real", path("link"));
    files.rename(path("a"), path("link"));
    EXPECT_FALSE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(read_whole_file(path("link")), "new");
    EXPECT_EQ(read_whole_file(path("real")), "old");
}

TEST_F(DiskFilesTest, RenameTellsWhichSideIsMissing) {
    write_whole_file(path("a"), "x");
    files.make_folder(path("sub"));
    EXPECT_EQ(fault_of([&] { files.rename(path("none"), path("b")); }), 53);
    EXPECT_EQ(fault_of([&] { files.rename(path("no/none"), path("b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.rename(path("a"), path("no/b")); }), 76);
    EXPECT_EQ(fault_of([&] { files.rename(path("a"), path("sub")); }), 75);
    EXPECT_EQ(read_whole_file(path("a")), "x");
}

TEST_F(DiskFilesTest, ModifiedIsLocalTime) {
    write_whole_file(path("a"), "x");
    // 2024-07-01 22:30:15 UTC; two hours later in a zone at UTC+2. 45474 is 1 July 2024.
    const timespec times[2] = {{1719873015, 0}, {1719873015, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path("a").c_str(), times, 0), 0);
    EXPECT_EQ(exit_status_in_child([&] {
                  ::setenv("TZ", "EAST-2", 1);
                  ::tzset();
                  EXPECT_NEAR(files.modified(path("a")), 45475 + 1815.0 / 86400, 1e-9);
                  ::setenv("TZ", "UTC", 1);
                  ::tzset();
                  EXPECT_NEAR(files.modified(path("a")), 45474 + 81015.0 / 86400, 1e-9);
              }),
              0);
}

TEST_F(DiskFilesTest, ModifiedOfAMissingFileIsFault53) {
    EXPECT_EQ(fault_of([&] { files.modified(path("none")); }), 53);
    EXPECT_EQ(fault_of([&] { files.modified(path("no/none")); }), 76);
}

TEST_F(DiskFilesTest, ListGivesSortedNamesOfFilesWithTheSuffix) {
    for (const char* name : {"b.tvk", "a.tvk", "c.rtf", "tvk", ".tvk", "D.tvk", "e.TVK"}) {
        write_whole_file(path(name), "");
    }
    files.make_folder(path("folder.tvk"));
    std::filesystem::create_symlink("c.rtf", path("link.tvk"));
    std::filesystem::create_symlink("nowhere", path("broken.tvk"));
    EXPECT_EQ(files.list(folder.path(), ".tvk"),
              (Names{".tvk", "D.tvk", "a.tvk", "b.tvk", "link.tvk"}));
    EXPECT_EQ(files.list(folder.path(), ".none"), Names{});
    EXPECT_EQ(files.list(path("no"), ".tvk"), Names{});
}

TEST_F(DiskFilesTest, MakeFolderMakesThoseAbove) {
    files.make_folder(path("a/b/c"));
    EXPECT_TRUE(std::filesystem::is_directory(path("a/b/c")));
    EXPECT_NO_THROW(files.make_folder(path("a/b/c")));
    EXPECT_NO_THROW(files.make_folder(path("a//d/")));
    EXPECT_TRUE(std::filesystem::is_directory(path("a/d")));
}

TEST_F(DiskFilesTest, MakeFolderAcceptsALinkToAFolder) {
    files.make_folder(path("real"));
    std::filesystem::create_symlink("real", path("link"));
    files.make_folder(path("link/sub"));
    EXPECT_TRUE(std::filesystem::is_directory(path("real/sub")));
}

TEST_F(DiskFilesTest, MakeFolderRefusesTheNameOfAFile) {
    write_whole_file(path("a"), "x");
    EXPECT_EQ(fault_of([&] { files.make_folder(path("a")); }), 75);
    EXPECT_EQ(read_whole_file(path("a")), "x");
}

TEST_F(DiskFilesTest, FlushFolderNeedsAFolder) {
    EXPECT_NO_THROW(files.flush_folder(folder.path()));
    EXPECT_NO_THROW(files.flush_folder(""));
    EXPECT_EQ(fault_of([&] { files.flush_folder(path("no")); }), 76);
}

}  // namespace
}  // namespace tavernook
