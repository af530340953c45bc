// Projects whose names are as long as a file system takes.
#include "core/project/previous_version.h"
#include "core/project/session_testing.h"
#include "core/replace_file.h"
#include "inventory/usage_files.h"
#include "inventory/usage_history.h"
#include "recipes/documents.h"

namespace tavernook {

namespace {

class LongNames : public SessionTest {
  protected:
    LongNames() { start(); }

    std::string path_of_length(std::size_t length, char last = 'n') {
        return platform.path(std::string(length - 5, 'n') + last + ".tvk");
    }
};

TEST_F(LongNames, OpenAndSave) {
    for (const std::size_t length : {246U, 247U, 250U, 254U, 255U}) {
        SCOPED_TRACE(length);
        const std::string path = path_of_length(length);
        user_creates(path);
        user_renames_store("Bakery");
        mnuFile_Save();
        mnuFile_Close();
        user_opens(path);
        expect_open(path, path.substr(path.rfind('/') + 1));
        EXPECT_EQ(store(), "Bakery");
        user_renames_store("Market");
        mnuFile_Save();
        EXPECT_EQ(store_on_disk(path), "Market");
        EXPECT_FALSE(previous_version_exists(path));
    }
}

TEST_F(LongNames, OfPreviousVersionsLeadBackToTheirProject) {
    for (const std::size_t length : {20U, 247U, 255U}) {
        SCOPED_TRACE(length);
        const std::string path = path_of_length(length);
        const std::string previous = previous_version_path(path);
        EXPECT_LE(previous.size() - previous.rfind('/') - 1, 255U);
        write_whole_file(path, "x");
        EXPECT_EQ(project_of_previous_version(previous), path);
    }
    EXPECT_NE(previous_version_path(path_of_length(255, 'a')),
              previous_version_path(path_of_length(255, 'b')));
}

TEST_F(LongNames, OfAPreviousVersionWhoseProjectIsGoneGiveAProjectOfThatName) {
    const std::string previous = previous_version_path(path_of_length(255));
    const std::string project = project_of_previous_version(previous);
    EXPECT_EQ(previous_version_path(project), previous);
}

TEST_F(LongNames, AnInterruptedSaveIsOffered) {
    const std::string path = path_of_length(255);
    user_creates(path);
    user_renames_store("Bakery");
    const int write = first_write_of_a_save();
    user_renames_store("Market");
    disk_is_full_at(write + 3);
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    platform.files.work_normally();
    project_modified = 0;
    mnuFile_Close();
    const std::string name = path.substr(path.rfind('/') + 1);
    const std::string when = date_text(platform.disk.modified(previous_version_path(path)));
    platform.boxes.expect_message(
        "The last save of " + name + " was interrupted. The version from before it, of " + when +
            ", is still there.  Press YES to go back to that version (the file as it is now stays "
            "beside it) or press NO to open the file as it is.",
        Answer::yes);
    user_opens(path);
    expect_open(path, name);
    EXPECT_EQ(store(), "Bakery");
    EXPECT_EQ(platform.disk.list(platform.temp.path(), ".tvk").size(), 2U);
}

TEST_F(LongNames, HaveTextsAndHistories) {
    for (const std::size_t length : {246U, 249U, 250U, 255U}) {
        SCOPED_TRACE(length);
        user_creates(path_of_length(length));
        store_document(7, "{\\rtf1 Soup}");
        EXPECT_EQ(stored_document(7).bytes, "{\\rtf1 Soup}");
        store_document(7, "{\\rtf1 Stew}");
        platform.disk.make_folder(in_program("reports"));
        items[3].in_use = 1;
        record_item_usage(3, 2.5, usage_added, 0);
        const std::size_t histories = platform.disk.list(in_program("reports"), ".dat").size();
        mnuFile_Save();
        EXPECT_EQ(platform.disk.list(in_program("reports"), ".dat").size(), histories + 1);
        EXPECT_EQ(Get_Item_Usage(3).find("*"), std::string::npos);
    }
}

TEST_F(LongNames, ThatStartAlikeHaveTextsOfTheirOwn) {
    set_project_path(path_of_length(255, 'a'));
    const std::string entry = current_document_entry(7);
    set_project_path(path_of_length(255, 'b'));
    EXPECT_NE(current_document_entry(7), entry);
}

TEST_F(LongNames, OutsideTheCodePageHaveTextsToo) {
    std::string name;
    while (name.size() < 248) name += "\xE2\x98\x83";  // a snowman
    user_creates(platform.path(name + ".tvk"));
    store_document(7, "{\\rtf1 Soup}");
    EXPECT_EQ(stored_document(7).bytes, "{\\rtf1 Soup}");
    project_modified = 0;
    // One such character among others, which become no shorter.
    user_creates(platform.path(std::string(245, 'n') + "\xE2\x98\x83.tvk"));
    store_document(7, "{\\rtf1 Stew}");
    EXPECT_EQ(stored_document(7).bytes, "{\\rtf1 Stew}");
}

TEST_F(LongNames, OfNormalLengthAreNotTouched) {
    set_project_path("/a/" + std::string(242, 'n') + ".tvk");
    EXPECT_EQ(project_stem(), std::string(242, 'n'));
    set_project_path("/a/" + std::string(243, 'n') + ".tvk");
    EXPECT_EQ(project_stem().size(), 242U);
}

TEST_F(LongNames, OfFilesThatAreReplaced) {
    const std::string path = platform.path(std::string(255, 'n'));
    replace_file(path, "one");
    replace_file(path, "two");
    EXPECT_EQ(read_whole_file(path), "two");
}

}  // namespace

}  // namespace tavernook
