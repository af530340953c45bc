// Rights and attributes of the files that a household has: a save keeps them, and what is new is
// open to nobody to whom the project is closed.
#include <sys/stat.h>
#include <sys/xattr.h>

#include "core/project/session_testing.h"
#include "core/replace_file.h"
#include "inventory/usage_history.h"
#include "recipes/documents.h"

namespace tavernook {

namespace {

class FileRights : public SessionTest {
  protected:
    FileRights() : mask_(::umask(0022)) {
        make_project(home, "Corner shop");
        start();
        user_opens(home);
        user_renames_store("Bakery");
    }
    ~FileRights() override { ::umask(mask_); }

    mode_t mode_of(const std::string& path) {
        struct stat facts {};
        EXPECT_EQ(::stat(path.c_str(), &facts), 0) << path;
        return facts.st_mode & 07777;
    }
    void set_mode(const std::string& path, mode_t mode) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    }
    std::string text_path() { return in_program("recipes/home000007.rtf"); }
    std::string history_path(const char* extension) {
        return in_program("reports/home000003") + extension;
    }
    void move_stock() {
        platform.disk.make_folder(in_program("reports"));
        items[3].in_use = 1;
        record_item_usage(3, 2.5, usage_added, 0);
    }

  private:
    mode_t mask_;
};

TEST_F(FileRights, ASaveKeepsTheModeOfTheProject) {
    for (const mode_t mode : {0600, 0640, 0664, 0666}) {
        set_mode(home, mode);
        user_renames_store("Bakery");
        mnuFile_Save();
        EXPECT_EQ(store_on_disk(home), "Bakery");
        EXPECT_EQ(mode_of(home), mode);
    }
}

TEST_F(FileRights, ASaveKeepsExtendedAttributes) {
    if (::setxattr(home.c_str(), "user.note", "mine", 4, 0) != 0) {
        GTEST_SKIP() << "no extended attributes here";
    }
    mnuFile_Save();
    char note[16] = {};
    EXPECT_EQ(::getxattr(home.c_str(), "user.note", note, sizeof note), 4);
    EXPECT_EQ(std::string(note), "mine");
}

// Looked at behind each operation, as another user might look at any moment.
class WatchingFiles : public FaultyFiles {
  public:
    using FaultyFiles::FaultyFiles;
    std::unique_ptr<File> open(const std::string& path, OpenMode mode) override {
        std::unique_ptr<File> file = FaultyFiles::open(path, mode);
        struct stat facts {};
        if (::stat(path.c_str(), &facts) == 0) widest |= facts.st_mode & 07777;
        return file;
    }
    mode_t widest = 0;
};

TEST_F(FileRights, NothingOfAPrivateProjectLiesOpenAtAnyMoment) {
    set_mode(home, 0600);
    WatchingFiles watching(platform.disk);
    set_platform({.clock = &platform.clock,
                  .boxes = &platform.boxes,
                  .files = &watching,
                  .project_lock = &platform.lock,
                  .system_info = &platform.system,
                  .save_progress = &platform.progress,
                  .main = &platform.main,
                  .screens = &platform.screens});
    ASSERT_TRUE(Project_Save(1));
    store_document(7, "{\\rtf1 Soup}");
    move_stock();
    EXPECT_EQ(watching.widest, 0600U);
}

TEST_F(FileRights, WhatASaveThatFailsLeavesIsNoWiderThanTheProject) {
    set_mode(home, 0600);
    disk_is_full_at(first_write_of_a_save() + 5);
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    EXPECT_EQ(mode_of(home), 0600U);
    EXPECT_EQ(mode_of(platform.path("home.previous.tvk")), 0600U);
}

TEST_F(FileRights, AProjectWhoseFileHasGoneIsWrittenForItsOwnerAlone) {
    std::filesystem::remove(home);
    move_stock();
    EXPECT_EQ(mode_of(history_path(".tmp")), 0600U);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
    EXPECT_EQ(mode_of(home), 0600U);
}

TEST_F(FileRights, ACopyOfAPrivateProjectUnderANewNameIsPrivate) {
    set_mode(home, 0600);
    const std::string cabin = home.substr(0, home.size() - 8) + "cabin.tvk";
    user_saves_as(cabin);
    EXPECT_EQ(store_on_disk(cabin), "Bakery");
    EXPECT_EQ(mode_of(cabin), 0600);
}

TEST_F(FileRights, APrivateProjectHasPrivateTexts) {
    set_mode(home, 0600);
    store_document(7, "{\\rtf1 Soup}");
    EXPECT_EQ(mode_of(text_path()), 0600U);
    mnuFile_Save();
    store_document(7, "{\\rtf1 Stew}");
    EXPECT_EQ(mode_of(text_path()), 0600U);
    EXPECT_EQ(mode_of(in_program("recipes/home000007.before")), 0600U);
}

TEST_F(FileRights, ATextKeepsItsRights) {
    store_document(7, "{\\rtf1 Soup}");
    EXPECT_EQ(mode_of(text_path()), 0644U);
    mnuFile_Save();
    set_mode(text_path(), 0640);
    store_document(7, "{\\rtf1 Stew}");
    EXPECT_EQ(mode_of(text_path()), 0640U);
    EXPECT_EQ(read_whole_file(text_path()), "{\\rtf1 Stew}");
}

TEST_F(FileRights, ATextThatGoesBackHasTheRightsItHad) {
    store_document(7, "{\\rtf1 Soup}");
    mnuFile_Save();
    store_document(7, "{\\rtf1 Stew}");  // leaves a backup that all may read
    mnuFile_Save();
    set_mode(text_path(), 0600);
    store_document(7, "{\\rtf1 Broth}");
    EXPECT_EQ(mode_of(in_program("recipes/home000007.before")), 0600U);
    restore_documents();
    EXPECT_EQ(read_whole_file(text_path()), "{\\rtf1 Stew}");
    EXPECT_EQ(mode_of(text_path()), 0600U);
}

TEST_F(FileRights, APrivateProjectHasPrivateHistories) {
    set_mode(home, 0600);
    move_stock();
    EXPECT_EQ(mode_of(history_path(".tmp")), 0600U);
    mnuFile_Save();
    EXPECT_EQ(mode_of(history_path(".dat")), 0600U);
}

TEST_F(FileRights, AHistoryKeepsItsRights) {
    move_stock();
    mnuFile_Save();
    EXPECT_EQ(mode_of(history_path(".dat")), 0644U);
    set_mode(history_path(".dat"), 0640);
    move_stock();
    EXPECT_EQ(mode_of(history_path(".tmp")), 0640U);
    mnuFile_Save();
    EXPECT_EQ(mode_of(history_path(".dat")), 0640U);
}

TEST_F(FileRights, OtherFilesKeepTheirsAndNewOnesHaveThoseOfTheSystem) {
    const std::string path = platform.path("notes");
    replace_file(path, "one");
    EXPECT_EQ(mode_of(path), 0644U);
    set_mode(path, 0600);
    replace_file(path, "two");
    EXPECT_EQ(mode_of(path), 0600U);
    EXPECT_EQ(read_whole_file(path), "two");
}

TEST_F(FileRights, WhatIsNewBesideAWriteProtectedProjectCanBeWritten) {
    set_mode(home, 0444);
    store_document(7, "{\\rtf1 Soup}");
    EXPECT_EQ(mode_of(text_path()), 0644U);
}

// --- Write-protected files

TEST_F(FileRights, OneOfNoValueIsReplacedAndStaysSo) {
    const std::string path = platform.path("notes");
    replace_file(path, "one");
    set_mode(path, 0444);
    replace_file(path, "two");
    EXPECT_EQ(read_whole_file(path), "two");
    EXPECT_EQ(mode_of(path), 0444U);
}

TEST_F(FileRights, AWriteProtectedProjectIsNotReplaced) {
    const std::string before = read_whole_file(home);
    set_mode(home, 0444);
    platform.boxes.expect_message(save_error(70));
    mnuFile_Save();
    EXPECT_TRUE(read_whole_file(home) == before);
    EXPECT_EQ(platform.main.status[1], "home.tvk is write-protected; nothing was saved.");
    EXPECT_EQ(mode_of(home), 0444U);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(platform.disk.list(platform.temp.path(), ".tvk"), Steps{"home.tvk"});
    set_mode(home, 0644);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(FileRights, AWriteProtectedFileIsNotReplacedByACopy) {
    write_whole_file(cabin, "theirs");
    set_mode(cabin, 0444);
    platform.boxes.expect_message(save_error(70));
    user_saves_as(cabin);
    expect_open(home, "home.tvk");
    EXPECT_EQ(read_whole_file(cabin), "theirs");
}

TEST_F(FileRights, AWriteProtectedTextIsNotReplaced) {
    store_document(7, "{\\rtf1 Soup}");
    mnuFile_Save();
    set_mode(text_path(), 0444);
    try {
        store_document(7, "{\\rtf1 Stew}");
        ADD_FAILURE() << "was replaced";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::permission_denied);
    }
    EXPECT_EQ(read_whole_file(text_path()), "{\\rtf1 Soup}");
    EXPECT_FALSE(exists(in_program("recipes/home000007.before")));
    EXPECT_EQ(project_modified, 0);
}

}  // namespace

}  // namespace tavernook
