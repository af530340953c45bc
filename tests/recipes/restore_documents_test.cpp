// "No" to saving, and what a save or another project makes of the changed documents.
#include "core/project/session_testing.h"
#include "recipes/documents_fixture.h"

namespace tavernook {
namespace {

class RestoreDocuments : public DocumentsTest {};

TEST_F(RestoreDocuments, EveryChangedDocumentTakesItsContentBeforeBack) {
    save_soup(first_text);
    meal_documents[8] = "*vk14home000008.rtf";
    put_on_disk("home000008.rtf", third_text);
    store_document(soup, second_text);
    store_document(8, second_text);
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(on_disk("home000008.rtf"), third_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
}

TEST_F(RestoreDocuments, AFileThatIsNewStays) {
    store_document(soup, first_text);
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
}

TEST_F(RestoreDocuments, WithoutAChangeNoFileIsTouched) {
    save_soup(first_text);
    put_on_disk("home000007.before", second_text);
    platform.files.start_over();
    restore_documents();
    EXPECT_EQ(platform.files.operations(), 0);
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
}

TEST_F(RestoreDocuments, HappensOnce) {
    save_soup(first_text);
    store_document(soup, second_text);
    restore_documents();
    put_on_disk("home000007.rtf", third_text);
    put_on_disk("home000007.before", second_text);
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), third_text);
}

TEST_F(RestoreDocuments, AFailureIsToldOnceAndTheOthersGoOn) {
    for (const i16 slot : {i16{7}, i16{8}, i16{9}}) {
        put_on_disk("home00000" + std::to_string(slot) + ".rtf", first_text);
        store_document(slot, second_text);
    }
    platform.disk.remove(in_recipes("home000007.before"));
    platform.disk.remove(in_recipes("home000008.before"));
    platform.boxes.expect_message("Tavernook error: rt6:53. Contact Brenwyk Software.");
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), second_text);
    EXPECT_EQ(on_disk("home000009.rtf"), first_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
}

// The saved project home.tvk with the soup's first text, opened, the text changed and unsaved.
class DocumentsOfASession : public SessionTest {
  protected:
    DocumentsOfASession() {
        make_project(home, "Corner shop", [] {
            meals[soup].name = "Soup";
            meals[soup].in_use = 1;
            meal_documents[soup] = soup_entry;
        });
        make_project(cabin, "Market");
        platform.disk.make_folder(in_program("recipes"));
        write_whole_file(document(), first_text);
        start();
        user_opens(home);
        store_document(soup, second_text);
    }
    std::string document() { return in_program("recipes/home000007.rtf"); }
    std::string text() { return read_whole_file(document()); }
    void expect_unsaved_change() {
        EXPECT_EQ(text(), second_text);
        EXPECT_EQ(recipe_text_changed, i16_true);
        EXPECT_EQ(project_modified, i16_true);
    }
};

TEST_F(DocumentsOfASession, AChangedTextAloneIsAskedAbout) {
    user_is_asked_to_save(Answer::cancel);
    mnuFile_Close();
    expect_unsaved_change();
}

TEST_F(DocumentsOfASession, NoOnClosingPutsTheTextBack) {
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    expect_idle();
    EXPECT_EQ(text(), first_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
}

TEST_F(DocumentsOfASession, YesOnClosingKeepsTheText) {
    user_is_asked_to_save(Answer::yes);
    mnuFile_Close();
    expect_idle();
    EXPECT_EQ(text(), second_text);
}

TEST_F(DocumentsOfASession, NoOnLeavingPutsTheTextBackBehindTheScreens) {
    user_is_asked_to_save(Answer::no);
    forget_steps();
    EXPECT_TRUE(main_unload());
    EXPECT_EQ(text(), first_text);
    const Steps& told = platform.transcript;
    const auto unloaded = std::find(told.begin(), told.end(), "window unload all");
    const auto restored =
        std::find(told.begin(), told.end(), "file rename home000007.before -> home000007.rtf");
    EXPECT_LT(unloaded, restored);
    EXPECT_NE(restored, told.end());
}

TEST_F(DocumentsOfASession, NoAndAnotherProjectPutsTheTextBack) {
    user_is_asked_to_save(Answer::no);
    user_opens(cabin);
    expect_open(cabin, "cabin.tvk");
    EXPECT_EQ(text(), first_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
    // Nothing of it reaches into the next project.
    write_whole_file(document(), third_text);
    user_opens(home);
    mnuFile_Close();
    EXPECT_EQ(text(), third_text);
}

TEST_F(DocumentsOfASession, NoAndTheSameProjectAgainShowsTheTextBefore) {
    user_is_asked_to_save(Answer::no);
    user_opens(home);
    EXPECT_EQ(stored_document(soup).bytes, first_text);
}

TEST_F(DocumentsOfASession, NoAndANewProjectPutsTheTextBack) {
    user_is_asked_to_save(Answer::no);
    user_creates(platform.path("new.tvk"));
    expect_open(platform.path("new.tvk"), "new.tvk");
    EXPECT_EQ(text(), first_text);
}

TEST_F(DocumentsOfASession, NoAndADamagedFilePutsTheTextBackAsTheProjectIsGone) {
    make_damaged(platform.path("damaged.tvk"));
    user_is_asked_to_save(Answer::no);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    user_opens(platform.path("damaged.tvk"));
    expect_idle();
    EXPECT_EQ(text(), first_text);
}

TEST_F(DocumentsOfASession, NoAndThenCancelLeavesTheTextChanged) {
    user_is_asked_to_save(Answer::no);
    platform.dialogs.expect_open("Open Project", cancelled);
    main_open();
    expect_unsaved_change();
    user_is_asked_to_save(Answer::no);
    platform.dialogs.expect_save("New Project", cancelled);
    mnuFile_NewProject();
    expect_unsaved_change();
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    EXPECT_EQ(text(), first_text);
}

TEST_F(DocumentsOfASession, ASaveKeepsTheText) {
    mnuFile_Save();
    EXPECT_EQ(recipe_text_changed, i16_false);
    user_renames_store("Bakery");
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    EXPECT_EQ(text(), second_text);
}

TEST_F(DocumentsOfASession, ANoGoesBackToTheLastSaveOnly) {
    mnuFile_Save();
    store_document(soup, third_text);
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    EXPECT_EQ(text(), second_text);
}

TEST_F(DocumentsOfASession, AFailedSaveStillLetsNoPutTheTextBack) {
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(save_error(61));
    mnuFile_Save();
    platform.files.start_over();
    expect_unsaved_change();
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    EXPECT_EQ(text(), first_text);
}

TEST_F(DocumentsOfASession, SaveAsTakesAChangedTextToTheNewNameAndPutsTheOldOneBack) {
    user_saves_as(platform.path("copy.tvk"));
    EXPECT_EQ(meal_documents[soup], "*vk14copy000007.rtf");
    EXPECT_EQ(stored_document(soup).bytes, second_text);
    EXPECT_EQ(text(), first_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
    EXPECT_EQ(platform.disk.list(in_program("recipes"), ""),
              (Steps{"copy000007.rtf", "home000007.rtf"}));
    store_document(soup, third_text);
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    user_opens(platform.path("copy.tvk"));
    EXPECT_EQ(stored_document(soup).bytes, second_text);
    user_opens(home);
    EXPECT_EQ(stored_document(soup).bytes, first_text);
}

TEST_F(DocumentsOfASession, SaveAsLeavesATextThatWasNotChangedUnderItsOldName) {
    mnuFile_Save();
    user_saves_as(platform.path("copy.tvk"));
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(text(), second_text);
}

TEST_F(DocumentsOfASession, SaveAsTakesATextThatIsNewAlongToo) {
    store_document(8, third_text);
    user_saves_as(platform.path("copy.tvk"));
    EXPECT_EQ(meal_documents[8], "*vk14copy000008.rtf");
    EXPECT_EQ(stored_document(8).bytes, third_text);
}

TEST_F(DocumentsOfASession, ADeletedRecipesTextIsNotTakenAlong) {
    store_document(8, third_text);
    store_document_backup(8, third_text);
    meal_documents[8].clear();
    store_document_backup(soup, second_text);
    user_saves_as(platform.path("copy.tvk"));
    EXPECT_EQ(meal_documents[8], "");
    EXPECT_EQ(text(), first_text);
    EXPECT_FALSE(exists(in_program("recipes/copy000008.rtf")));
    EXPECT_FALSE(exists(in_program("recipes/copy000007.rtf")));
}

// Projects of one stem share their files, as ever.
TEST_F(DocumentsOfASession, SaveAsUnderTheSameNameElsewhereKeepsTheText) {
    platform.disk.make_folder(platform.path("other"));
    user_saves_as(platform.path("other/home.tvk"));
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(text(), second_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
}

TEST_F(DocumentsOfASession, AFailedSaveAsLeavesTheTextsAndTheirEntries) {
    write_whole_file(in_program("recipes/copy000007.rtf"), third_text);
    platform.boxes.expect_message(save_error(76));
    user_saves_as(platform.path("nowhere/copy.tvk"));
    expect_unsaved_change();
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(read_whole_file(in_program("recipes/copy000007.rtf")), third_text);
    EXPECT_EQ(platform.disk.list(in_program("recipes"), ""),
              (Steps{"copy000007.rtf", "home000007.before", "home000007.rtf"}));
    user_is_asked_to_save(Answer::no);
    mnuFile_Close();
    EXPECT_EQ(text(), first_text);
}

TEST_F(DocumentsOfASession, ATextThatCannotBeTakenAlongFailsTheSaveAs) {
    platform.disk.remove(document());
    platform.boxes.expect_message(save_error(53));
    user_saves_as(platform.path("copy.tvk"));
    expect_open(home, "home.tvk");
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_FALSE(exists(platform.path("copy.tvk")));
}

TEST_F(DocumentsOfASession, AnOldFormThatWasOnlyViewedAsksNothing) {
    make_project(cabin, "Market", [] {
        meals[soup].in_use = 1;
        meal_documents[soup] = first_text;
    });
    start();
    user_opens(cabin);
    store_document(soup, stored_document(soup).bytes);
    EXPECT_EQ(meal_documents[soup], "*vk14cabin000007.rtf");
    mnuFile_Close();
    expect_idle();
    user_opens(cabin);
    EXPECT_EQ(meal_documents[soup], first_text);
    EXPECT_EQ(read_whole_file(in_program("recipes/cabin000007.rtf")), first_text);
}

}  // namespace
}  // namespace tavernook
