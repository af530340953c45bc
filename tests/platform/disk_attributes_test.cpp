// What belongs to a file beside its bytes: rights, extended attributes, stamps, and the temporary
// files that a killed program leaves.
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "disk_files_fixture.h"
#include "fakes/child_process.h"
#include "platform_disk/temporary_file.h"

namespace tavernook {
namespace {

class DiskAttributesTest : public DiskFilesTest {
  protected:
    void make(const std::string& name, mode_t mode, const std::string& bytes = "x") {
        write_whole_file(path(name), bytes);
        ASSERT_EQ(::chmod(path(name).c_str(), mode), 0);
    }
    mode_t mode_of(const std::string& name) {
        struct stat facts {};
        EXPECT_EQ(::stat(path(name).c_str(), &facts), 0) << name;
        return facts.st_mode & 07777;
    }
    // False where the file system has no attributes of this kind.
    bool note(const std::string& name, const std::string& text) {
        return ::setxattr(path(name).c_str(), "user.note", text.data(), text.size(), 0) == 0;
    }
    std::string note_of(const std::string& name) {
        char text[64] = {};
        const ssize_t size = ::getxattr(path(name).c_str(), "user.note", text, sizeof text);
        return size < 0 ? "none" : std::string(text, static_cast<std::size_t>(size));
    }
};

TEST_F(DiskAttributesTest, ACopyOverAFileKeepsTheRightsOfThatFile) {
    make("from", 0644, "new");
    make("to", 0600, "old");
    files.copy(path("from"), path("to"));
    EXPECT_EQ(read_whole_file(path("to")), "new");
    EXPECT_EQ(mode_of("to"), 0600U);
    make("open", 0664);
    files.copy_unflushed(path("to"), path("open"));
    EXPECT_EQ(read_whole_file(path("open")), "new");
    EXPECT_EQ(mode_of("open"), 0664U);
}

TEST_F(DiskAttributesTest, ACopyToANewFileTakesTheRightsOfItsSource) {
    make("from", 0640);
    files.copy_unflushed(path("from"), path("to"));
    EXPECT_EQ(mode_of("to"), 0640U);
}

TEST_F(DiskAttributesTest, WithoutTheModelAFileIsMadeForItsOwnerAlone) {
    files.copy_attributes(path("none"), path("to"));
    EXPECT_EQ(mode_of("to"), 0600U);
    make("there", 0644);
    files.copy_attributes(path("none"), path("there"));
    EXPECT_EQ(mode_of("there"), 0644U);
    files.copy_attributes("", path("of nothing"));
    EXPECT_FALSE(files.exists(path("of nothing")));
}

TEST_F(DiskAttributesTest, AFileThatIsMadeHasTheRightsOfItsModelWhateverTheMask) {
    const mode_t mask = ::umask(0);
    make("model", 0600);
    files.copy_attributes(path("model"), path("a"));
    ::umask(0077);
    make("shared", 0664);
    files.copy_attributes(path("shared"), path("b"));
    ::umask(mask);
    EXPECT_EQ(mode_of("a"), 0600U);
    EXPECT_EQ(mode_of("b"), 0664U);
    EXPECT_EQ(read_whole_file(path("a")), "");
}

TEST_F(DiskAttributesTest, AFileThatIsMadeCanBeWrittenByItsOwner) {
    make("model", 0440);
    files.copy_attributes(path("model"), path("to"));
    EXPECT_EQ(mode_of("to"), 0640U);
    files.copy_attributes(path("model"), path("to"));
    EXPECT_EQ(mode_of("to"), 0440U);
}

TEST_F(DiskAttributesTest, AFileThatIsThereTakesTheRightsAndKeepsItsBytes) {
    make("model", 0640);
    make("to", 0666, "bytes");
    files.copy_attributes(path("model"), path("to"));
    EXPECT_EQ(mode_of("to"), 0640U);
    EXPECT_EQ(read_whole_file(path("to")), "bytes");
}

TEST_F(DiskAttributesTest, OwnerAndGroupComeAlongWhereTheSystemLetsThem) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    make("model", 0640);
    ASSERT_EQ(::chown(path("model").c_str(), 65534, 12345), 0);
    files.copy_attributes(path("model"), path("to"));
    struct stat facts {};
    ASSERT_EQ(::stat(path("to").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, 65534U);
    EXPECT_EQ(facts.st_gid, 12345U);
    EXPECT_EQ(mode_of("to"), 0640U);
}

TEST_F(DiskAttributesTest, AGroupThatCannotBeTakenOverIsNotLetIn) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root gives files away";
    make("model", 0664);
    ASSERT_EQ(::chown(path("model").c_str(), 0, 12345), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(exit_status_in_child([&] {
                  ASSERT_EQ(::setgid(54321), 0);
                  ASSERT_EQ(::setuid(65534), 0);
                  files.copy_attributes(path("model"), path("to"));
                  // What everybody may do the group may, too.
                  EXPECT_EQ(mode_of("to"), 0644U);
              }),
              0);
}

TEST_F(DiskAttributesTest, ExtendedAttributesComeAlong) {
    make("model", 0644);
    if (!note("model", "kept by hand")) GTEST_SKIP() << "no extended attributes here";
    make("to", 0644);
    files.copy_attributes(path("model"), path("to"));
    EXPECT_EQ(note_of("to"), "kept by hand");
    files.copy(path("model"), path("copy"));
    EXPECT_EQ(note_of("copy"), "kept by hand");
    make("other", 0644);
    ASSERT_TRUE(note("other", "its own"));
    files.copy(path("model"), path("other"));
    EXPECT_EQ(note_of("other"), "its own");
}

TEST_F(DiskAttributesTest, AFileThatIsMadeTakesTheRightsAlone) {
    make("model", 0600);
    if (!note("model", "the model's own")) GTEST_SKIP() << "no extended attributes here";
    files.copy_attributes(path("model"), path("to"));
    EXPECT_EQ(note_of("to"), "none");
    files.copy_attributes(path("model"), path("to"));
    EXPECT_EQ(note_of("to"), "the model's own");
}

// An access list with one entry more than the mode tells: user 1234 may read.
std::string access_list() {
    const unsigned char bytes[] = {2,  0, 0, 0,                           // version
                                   1,  0, 6, 0, 0xff, 0xff, 0xff, 0xff,   // owner rw
                                   2,  0, 4, 0, 0xd2, 0x04, 0,    0,      // user 1234 r
                                   4,  0, 0, 0, 0xff, 0xff, 0xff, 0xff,   // group none
                                   16, 0, 4, 0, 0xff, 0xff, 0xff, 0xff,   // mask r
                                   32, 0, 0, 0, 0xff, 0xff, 0xff, 0xff};  // others none
    return {reinterpret_cast<const char*>(bytes), sizeof bytes};
}

TEST_F(DiskAttributesTest, AnAccessListComesAlong) {
    constexpr const char* name = "system.posix_acl_access";
    make("model", 0600);
    const std::string list = access_list();
    if (::setxattr(path("model").c_str(), name, list.data(), list.size(), 0) != 0) {
        GTEST_SKIP() << "no access lists here";
    }
    files.copy_attributes(path("model"), path("to"));
    char found[256] = {};
    const ssize_t size = ::getxattr(path("to").c_str(), name, found, sizeof found);
    ASSERT_GT(size, 0);
    EXPECT_EQ(std::string(found, static_cast<std::size_t>(size)), list);
    // A model without one leaves none.
    make("plain", 0600);
    files.copy_attributes(path("plain"), path("to"));
    EXPECT_LT(::getxattr(path("to").c_str(), name, found, sizeof found), 0);
    EXPECT_EQ(mode_of("to"), 0600U);
}

TEST_F(DiskAttributesTest, WriteProtectedIsAFileThatNobodyMayWrite) {
    make("home", 0444);
    EXPECT_TRUE(files.is_write_protected(path("home")));
    make("home", 0464);
    EXPECT_FALSE(files.is_write_protected(path("home")));
    make("home", 0644);
    EXPECT_FALSE(files.is_write_protected(path("home")));
    EXPECT_FALSE(files.is_write_protected(path("none")));
}

TEST_F(DiskAttributesTest, WithoutANodeTheTimeMayBeRounded) {
    constexpr i64 second = 1'000'000'000;
    const FileStamp plain{0, 100, 50 * second};
    const FileStamp kept{7, 100, 50 * second};
    EXPECT_TRUE(is_same_content(plain, plain));
    EXPECT_TRUE(is_same_content(plain, {0, 100, 51 * second + 5}));
    EXPECT_TRUE(is_same_content(plain, {0, 100, 49 * second}));
    EXPECT_FALSE(is_same_content(plain, {0, 100, 52 * second}));
    EXPECT_FALSE(is_same_content(plain, {0, 100, 48 * second}));
    EXPECT_FALSE(is_same_content(plain, {0, 101, 50 * second}));
    EXPECT_FALSE(is_same_content(kept, {7, 100, 50 * second + 1}));
    EXPECT_FALSE(is_same_content(kept, {8, 100, 50 * second}));
    EXPECT_FALSE(is_same_content({0, 0, 1}, FileStamp{}));  // an empty file is one
}

TEST_F(DiskAttributesTest, AStampTellsOneContentFromAnother) {
    EXPECT_EQ(files.stamp(path("home")), FileStamp{});
    EXPECT_EQ(files.stamp(path("no/home")), FileStamp{});
    write_whole_file(path("home"), "one");
    const FileStamp first = files.stamp(path("home"));
    EXPECT_EQ(files.stamp(path("home")), first);
    EXPECT_EQ(first.length, 3);
    // The same bytes at the same time under the same name, in another file.
    write_whole_file(path("other"), "two");
    const timespec times[2] = {{1'000'000'000, 5}, {1'000'000'000, 5}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path("home").c_str(), times, 0), 0);
    ASSERT_EQ(::utimensat(AT_FDCWD, path("other").c_str(), times, 0), 0);
    const FileStamp before = files.stamp(path("home"));
    EXPECT_EQ(before.changed, 1'000'000'000'000'000'005);
    files.rename(path("other"), path("home"));
    EXPECT_NE(files.stamp(path("home")), before);
    EXPECT_NE(first, before);
}

// --- What is left over

class LeftOverTest : public DiskFilesTest {
  protected:
    const std::string left = ".tavernook-unfinished-a1B2c3";
};

TEST_F(LeftOverTest, OfAKilledProgramGoes) {
    write_whole_file(path(left), "half a copy");
    write_whole_file(path("home.tvk"), "x");
    files.remove_left_over(folder.path());
    EXPECT_EQ(names(), Names{"home.tvk"});
}

TEST_F(LeftOverTest, OfARunningProgramStays) {
    write_whole_file(path(left), "half a copy");
    const int file = ::open(path(left).c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(file, LOCK_EX), 0);
    files.remove_left_over(folder.path());
    EXPECT_EQ(names(), Names{left});
    ::close(file);
    files.remove_left_over(folder.path());
    EXPECT_EQ(names(), Names{});
}

TEST_F(LeftOverTest, ACopyThatIsBeingWrittenIsLockedFromFirstToLast) {
    TemporaryFile copying(folder.path());
    ASSERT_EQ(names().size(), 1U);
    EXPECT_EQ(exit_status_in_child([&] {
                  // The child's own look at the file: a lock goes with the opening, not the
                  // process.
                  files.remove_left_over(folder.path());
                  EXPECT_EQ(names().size(), 1U);
              }),
              0);
    copying.rename_to(path("home.tvk"));
    files.remove_left_over(folder.path());
    EXPECT_EQ(names(), Names{"home.tvk"});
}

TEST_F(LeftOverTest, OtherFilesFoldersAndLinksStay) {
    const Names kept = {".tavernook",
                        ".tavernook-unfinished-a1B2c",
                        ".tavernook-unfinished-a1B2c34",
                        ".tavernook-unfinished-folder12",
                        ".tavernook-unfinished-linked",
                        "tavernook-a1B2c3"};
    for (const std::string& name : kept) write_whole_file(path(name), "x");
    std::filesystem::create_directory(path(".tavernook-unfinished-folder"));
    std::filesystem::remove(path(".tavernook-unfinished-linked"));
    std::filesystem::create_symlink(path("tavernook-a1B2c3"), path(".tavernook-unfinished-linked"));
    files.remove_left_over(folder.path());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 7);
}

TEST_F(LeftOverTest, AMissingFolderHasNone) {
    files.remove_left_over(path("no such folder"));
    EXPECT_EQ(names(), Names{});
}

}  // namespace
}  // namespace tavernook
