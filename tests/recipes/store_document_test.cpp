// Writing recipe documents: the file, the entry, the content before, and the ".bak" of a deleted
// recipe.
#include "fakes/child_process.h"
#include "recipes/documents_fixture.h"

namespace tavernook {
namespace {

using Names = std::vector<std::string>;

class StoreDocument : public DocumentsTest {
  protected:
    int operations_of(void (*work)()) {
        platform.files.start_over();
        work();
        return platform.files.operations();
    }
    void clear_folder() {
        for (const std::string& name : names_on_disk()) platform.disk.remove(in_recipes(name));
        reset_changes();
    }
    static void reset_changes() {
        keep_documents();
        meal_documents[soup].clear();
        project_modified = i16_false;
    }
    // The saved soup, and work that changes it.
    void start_from_saved() {
        platform.files.start_over();
        clear_folder();
        save_soup(first_text);
    }
    static void change_soup() { store_document(soup, second_text); }
    static void delete_soup() { store_document_backup(soup, second_text); }
    static void change_and_delete_soup() {
        store_document(soup, second_text);
        store_document_backup(soup, third_text);
    }
    void expect_whole(const std::string& name) {
        const std::string text = on_disk(name);
        EXPECT_TRUE(text == first_text || text == second_text || text == third_text)
            << name << ": " << text;
    }
};

// As a merge leaves them: each reads the file that belongs to the slot of another one.
TEST_F(StoreDocument, ATextThatOthersReadIsTheirsBeforeItIsWrittenOver) {
    const auto entry = [](i16 slot) { return "*vk14home00000" + std::to_string(slot) + ".rtf"; };
    for (const i16 slot : {7, 8, 9}) {
        meals[slot].in_use = 1;
        platform.disk
            .open(in_recipes("home00000" + std::to_string(slot) + ".rtf"), OpenMode::read_write)
            ->write(0, "text of " + std::to_string(slot));
    }
    meal_documents[8] = entry(7);
    meal_documents[9] = entry(8);
    meal_documents[7] = entry(9);
    store_document(7, "new");
    EXPECT_EQ(stored_document(7).bytes, "new");
    EXPECT_EQ(stored_document(8).bytes, "text of 7");
    EXPECT_EQ(stored_document(9).bytes, "text of 8");
    restore_documents();
    for (const i16 slot : {7, 8, 9}) {
        EXPECT_EQ(on_disk("home00000" + std::to_string(slot) + ".rtf"),
                  "text of " + std::to_string(slot));
    }
}

TEST_F(StoreDocument, WritesTheFileAndTheEntry) {
    store_document(soup, first_text);
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(names_on_disk(), Names{"home000007.rtf"});
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(stored_document(soup).bytes, first_text);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(StoreDocument, AShorterTextLeavesNothingOfTheLongerOne) {
    store_document(soup, second_text);
    store_document(soup, first_text);
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    store_document(soup, "");
    EXPECT_EQ(on_disk("home000007.rtf"), "");
}

// It could not be read again.
TEST_F(StoreDocument, ATextBeyondTheBoundIsRefusedBeforeAnythingChanges) {
    save_soup(first_text);
    const std::string long_text(std::size_t{longest_document} + 1, ' ');
    EXPECT_EQ(fault_of([&] { store_document(soup, long_text); }), fault_number::overflow);
    EXPECT_EQ(names_on_disk(), Names{"home000007.rtf"});
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(StoreDocument, MakesTheFolder) {
    std::filesystem::remove(recipes_folder);
    store_document(soup, first_text);
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
}

TEST_F(StoreDocument, TakesAnyEntryOver) {
    put_on_disk("soup.rtf", first_text);
    meal_documents[soup] = "C:\\recipes\\soup.rtf";
    store_document(soup, second_text);
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(on_disk("soup.rtf"), first_text);
    EXPECT_EQ(on_disk("home000007.rtf"), second_text);
}

TEST_F(StoreDocument, AnEntryThatPointsElsewhereNeverWritesThere) {
    write_whole_file(platform.path("outside.rtf"), "outside");
    meal_documents[soup] = "*vk14../../outside.rtf";
    store_document(soup, second_text);
    EXPECT_EQ(read_whole_file(platform.path("outside.rtf")), "outside");
    EXPECT_EQ(names_on_disk(), Names{"home000007.rtf"});
}

TEST_F(StoreDocument, ARenamedProjectKeepsItsOldNamesUntilTheNextStore) {
    save_soup(first_text);
    set_project_path(platform.path("cabin.tvk"));
    EXPECT_EQ(stored_document(soup).bytes, first_text);
    EXPECT_EQ(meal_documents[soup], soup_entry);
    store_document(soup, second_text);
    EXPECT_EQ(meal_documents[soup], "*vk14cabin000007.rtf");
    EXPECT_EQ(on_disk("cabin000007.rtf"), second_text);
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
}

TEST_F(StoreDocument, ProjectsOfTheSameStemShareTheirFiles) {
    store_document(soup, first_text);
    platform.disk.make_folder(platform.path("other"));
    set_project_path(platform.path("other/home.tvk"));
    EXPECT_EQ(stored_document(soup).bytes, first_text);
    store_document(soup, second_text);
    EXPECT_EQ(names_on_disk(), Names{"home000007.rtf"});
}

TEST_F(StoreDocument, TheOldFormMigratesWithoutMarkingTheProject) {
    meal_documents[soup] = first_text;
    store_document(soup, stored_document(soup).bytes);
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(names_on_disk(), Names{"home000007.rtf"});
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(recipe_text_changed, i16_false);
    store_document(soup, second_text);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(StoreDocument, TheFirstChangeAfterASaveKeepsTheContentBefore) {
    save_soup(first_text);
    store_document(soup, second_text);
    EXPECT_EQ(on_disk("home000007.before"), first_text);
    EXPECT_EQ(recipe_text_changed, i16_true);
    store_document(soup, third_text);
    EXPECT_EQ(on_disk("home000007.before"), first_text);
    keep_documents();
    EXPECT_EQ(recipe_text_changed, i16_false);
    store_document(soup, first_text);
    EXPECT_EQ(on_disk("home000007.before"), third_text);
}

TEST_F(StoreDocument, ANewDocumentHasNoContentBefore) {
    store_document(soup, first_text);
    store_document(soup, second_text);
    EXPECT_EQ(names_on_disk(), Names{"home000007.rtf"});
    EXPECT_EQ(recipe_text_changed, i16_false);
}

TEST_F(StoreDocument, FailsAtAnyOperationWithTheOldOrTheNewTextWhole) {
    start_from_saved();
    const int operations = operations_of(change_soup);
    ASSERT_GE(operations, 9);
    for (const Torn torn : {Torn::no, Torn::yes}) {
        for (int n = 1; n <= operations; ++n) {
            SCOPED_TRACE(n);
            start_from_saved();
            meal_documents[soup] = "soup.rtf";
            platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, torn);
            EXPECT_EQ(fault_of(change_soup), 61);
            EXPECT_EQ(meal_documents[soup], "soup.rtf");
            // The folder's flush alone comes behind the step that brings the new text.
            EXPECT_EQ(on_disk("home000007.rtf"), n < operations ? first_text : second_text);
            platform.files.start_over();
            restore_documents();
            EXPECT_EQ(on_disk("home000007.rtf"), first_text);
        }
    }
}

TEST_F(StoreDocument, AProcessThatEndsAtAnyOperationLeavesTheOldOrTheNewTextWhole) {
    for (void (*work)() : {change_soup, delete_soup, change_and_delete_soup}) {
        start_from_saved();
        const int operations = operations_of(work);
        for (const Torn torn : {Torn::no, Torn::yes}) {
            for (int n = 1; n <= operations; ++n) {
                SCOPED_TRACE(n);
                start_from_saved();
                const int status = exit_status_in_child([&] {
                    platform.files.kill_at(n, torn);
                    work();
                });
                ASSERT_EQ(status, FaultyFiles::kill_status);
                expect_whole("home000007.rtf");
                for (const char* name : {"home000007.bak", "home000007.before"}) {
                    if (is_there(name)) expect_whole(name);
                }
                // What lies about does not hinder the next run.
                reset_changes();
                store_document(soup, third_text);
                EXPECT_EQ(on_disk("home000007.rtf"), third_text);
            }
        }
    }
}

TEST_F(StoreDocument, TheTextOfADeletedRecipeStaysUntilTheNextOneOfItsSlotIsDeleted) {
    save_soup(first_text);
    delete_soup();
    meal_documents[soup].clear();
    keep_documents();
    store_document(soup, third_text);
    keep_documents();
    store_document(soup, first_text);
    EXPECT_EQ(on_disk("home000007.bak"), second_text);
    EXPECT_EQ(on_disk("home000007.before"), third_text);
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), third_text);
    EXPECT_EQ(on_disk("home000007.bak"), second_text);
    store_document_backup(soup, first_text);
    EXPECT_EQ(on_disk("home000007.bak"), first_text);
}

TEST_F(StoreDocument, TheBackupOfADeletedRecipeIsWrittenOver) {
    put_on_disk("home000007.bak", "of an earlier recipe, and longer than the one that is to come");
    save_soup(first_text);
    delete_soup();
    EXPECT_EQ(on_disk("home000007.bak"), second_text);
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(meal_documents[soup], soup_entry);
    EXPECT_EQ(recipe_text_changed, i16_false);
}

TEST_F(StoreDocument, TheBackupOfARecipeWithoutADocumentMakesTheFolder) {
    std::filesystem::remove(recipes_folder);
    delete_soup();
    EXPECT_EQ(names_on_disk(), Names{"home000007.bak"});
    EXPECT_EQ(meal_documents[soup], "");
}

TEST_F(StoreDocument, ADeletedRecipesDocumentTakesItsContentBeforeBackFirst) {
    save_soup(first_text);
    change_and_delete_soup();
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(on_disk("home000007.bak"), third_text);
    EXPECT_EQ(recipe_text_changed, i16_false);
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    EXPECT_EQ(on_disk("home000007.bak"), third_text);
}

TEST_F(StoreDocument, ANewRecipeInADeletedRecipesSlotIsRestoredToTheDeletedOne) {
    save_soup(first_text);
    delete_soup();
    meal_documents[soup].clear();
    store_document(soup, third_text);
    EXPECT_EQ(recipe_text_changed, i16_true);
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
}

TEST_F(StoreDocument, ABackupThatFailsAtAnyOperationCanStillBeRestored) {
    start_from_saved();
    change_soup();
    const int operations = operations_of(delete_soup);
    ASSERT_GE(operations, 7);
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        start_from_saved();
        store_document(soup, third_text);
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, Torn::yes);
        EXPECT_EQ(fault_of(delete_soup), 61);
        platform.files.start_over();
        restore_documents();
        EXPECT_EQ(on_disk("home000007.rtf"), first_text);
    }
}

}  // namespace
}  // namespace tavernook
