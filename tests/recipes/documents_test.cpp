// Entries, names and files of recipe documents.
#include "recipes/documents_fixture.h"

namespace tavernook {
namespace {

class DocumentNames : public DocumentsTest {};
class StoredDocuments : public DocumentsTest {
  protected:
    static int fault_of_entry(const std::string& entry) {
        meal_documents[soup] = entry;
        return fault_of([] { stored_document(soup); });
    }
};

TEST_F(DocumentNames, SlotSevenOfHome) {
    EXPECT_EQ(current_document_entry(7), "*vk14home000007.rtf");
    EXPECT_EQ(new_document_path(7), platform.system.program + "/recipes/home000007.rtf");
    EXPECT_EQ(document_backup_path(7), platform.system.program + "/recipes/home000007.bak");
}

TEST_F(DocumentNames, TheSlotHasSixDigits) {
    EXPECT_EQ(current_document_entry(1), "*vk14home000001.rtf");
    EXPECT_EQ(current_document_entry(123), "*vk14home000123.rtf");
    EXPECT_EQ(current_document_entry(1000), "*vk14home001000.rtf");
}

TEST_F(DocumentNames, AProjectNameOfFourLettersHasNoStem) {
    set_project_path(platform.path(".tvk"));
    EXPECT_EQ(current_document_entry(7), "*vk14000007.rtf");
}

TEST_F(DocumentNames, AnAccentIsOneByteInTheEntryAndTwoInThePath) {
    set_project_path(
        platform.path("k\xC3\xBC"
                      "che.tvk"));
    EXPECT_EQ(current_document_entry(7),
              "*vk14k\xFC"
              "che000007.rtf");
    EXPECT_EQ(new_document_path(7), in_recipes("k\xC3\xBC"
                                               "che000007.rtf"));
}

// The numbers are the 32-bit FNV-1a of the six UTF-8 bytes of each name.
TEST_F(DocumentNames, NamesOutsideTheCodePageStayApart) {
    set_project_path(platform.path("\xE6\x97\xA5\xE6\x9C\xAC.tvk"));
    EXPECT_EQ(current_document_entry(7), "*vk14__~2670128721000007.rtf");
    store_document(soup, first_text);
    EXPECT_EQ(stored_document(soup).bytes, first_text);
    set_project_path(platform.path("\xE4\xB8\xAD\xE5\x9B\xBD.tvk"));
    EXPECT_EQ(current_document_entry(7), "*vk14__~194055279000007.rtf");
}

TEST_F(DocumentNames, AnotherFolderWithOrWithoutItsSeparator) {
    recipes_folder = platform.path("elsewhere");
    EXPECT_EQ(new_document_path(7), platform.path("elsewhere/home000007.rtf"));
    recipes_folder = platform.path("elsewhere/");
    EXPECT_EQ(new_document_path(7), platform.path("elsewhere/home000007.rtf"));
    recipes_folder = "  ";
    EXPECT_EQ(new_document_path(7), platform.system.program + "/recipes/home000007.rtf");
}

TEST_F(DocumentNames, ShownIsThePresentFileOrTheOneToCome) {
    EXPECT_EQ(document_name(soup), "home000007.rtf");
    meal_documents[soup] = "*vk14cabin000031.rtf";
    EXPECT_EQ(document_name(soup), "cabin000031.rtf");
    EXPECT_EQ(document_path(soup), in_recipes("cabin000031.rtf"));
    EXPECT_EQ(new_document_path(soup), in_recipes("home000007.rtf"));
    meal_documents[soup] = first_text;
    EXPECT_EQ(document_name(soup), "home000007.rtf");
    meal_documents[soup] = "C:\\Program Files\\recipes\\soup.rtf";
    EXPECT_EQ(document_name(soup), "soup.rtf");
}

TEST_F(DocumentNames, SlotsOutsideTheTableHaveNoneAndAreRefused) {
    for (const i16 slot : {i16{-1}, i16{0}, i16{1001}}) {
        EXPECT_EQ(current_document_entry(slot), "") << slot;
        EXPECT_EQ(document_name(slot), "") << slot;
        EXPECT_EQ(document_path(slot), "") << slot;
        EXPECT_EQ(new_document_path(slot), "") << slot;
        EXPECT_EQ(document_backup_path(slot), "") << slot;
        EXPECT_EQ(fault_of([&] { stored_document(slot); }), 9) << slot;
        EXPECT_EQ(fault_of([&] { store_document(slot, first_text); }), 9) << slot;
        EXPECT_EQ(fault_of([&] { store_document_backup(slot, first_text); }), 9) << slot;
    }
    EXPECT_TRUE(names_on_disk().empty());
}

TEST_F(StoredDocuments, AnEmptyEntryIsAnEmptyPaneWithoutAFile) {
    for (const char* entry : {"", "   "}) {
        meal_documents[soup] = entry;
        EXPECT_EQ(stored_document(soup).kind, DocumentKind::none);
        EXPECT_EQ(stored_document(soup).bytes, "");
    }
    EXPECT_TRUE(names_on_disk().empty());
}

TEST_F(StoredDocuments, AMarkerLeadsToTheFile) {
    meal_documents[soup] = soup_entry;
    put_on_disk("home000007.rtf", first_text);
    const StoredDocument document = stored_document(soup);
    EXPECT_EQ(document.kind, DocumentKind::file);
    EXPECT_EQ(document.bytes, first_text);
    EXPECT_EQ(document.path, in_recipes("home000007.rtf"));
    EXPECT_EQ(meal_documents[soup], soup_entry);
}

TEST_F(StoredDocuments, BytesOfAnyKindComeUnchanged) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    meal_documents[soup] = soup_entry;
    put_on_disk("home000007.rtf", bytes);
    EXPECT_EQ(stored_document(soup).bytes, bytes);
    put_on_disk("home000007.rtf", "");
    EXPECT_EQ(stored_document(soup).kind, DocumentKind::file);
    EXPECT_EQ(stored_document(soup).bytes, "");
}

TEST_F(StoredDocuments, RichTextInTheEntryIsTheOldForm) {
    for (const char* entry : {"{\\rtf1\\ansi Boil C:\\bones.}", "  {\\rtf Boil.}"}) {
        meal_documents[soup] = entry;
        const StoredDocument document = stored_document(soup);
        EXPECT_EQ(document.kind, DocumentKind::old_form);
        EXPECT_EQ(document.bytes, entry);
        EXPECT_EQ(document.path, "");
    }
    EXPECT_TRUE(names_on_disk().empty());
}

TEST_F(StoredDocuments, APathOfAnotherSystemLeadsToTheFileOfItsName) {
    put_on_disk("soup.rtf", first_text);
    for (const char* entry :
         {"C:\\Program Files\\recipes\\soup.rtf", "recipes/soup.rtf", "soup.rtf", "C:/a\\soup.rtf",
          "*vk14C:\\old\\recipes\\soup.rtf", "\\\\server\\share\\soup.rtf"}) {
        meal_documents[soup] = entry;
        EXPECT_EQ(stored_document(soup).bytes, first_text) << entry;
        EXPECT_EQ(meal_documents[soup], entry);
    }
}

TEST_F(StoredDocuments, AnAccentInAWindowsPathFindsItsFile) {
    put_on_disk("cr\xC3\xA8me.rtf", first_text);
    meal_documents[soup] = "C:\\recipes\\cr\xE8me.rtf";
    EXPECT_EQ(stored_document(soup).bytes, first_text);
}

TEST_F(StoredDocuments, NoEntryLeadsOutOfTheFolder) {
    write_whole_file(platform.system.program + "/secret.rtf", "secret");
    write_whole_file(platform.path("secret.rtf"), "secret");
    for (const char* entry : {"*vk14../secret.rtf", "*vk14..\\secret.rtf", "../secret.rtf",
                              "*vk14../../secret.rtf", "..\\..\\secret.rtf"}) {
        EXPECT_EQ(fault_of_entry(entry), 53) << entry;
        EXPECT_EQ(document_path(soup), in_recipes("secret.rtf")) << entry;
    }
    EXPECT_EQ(fault_of_entry("*vk14" + platform.path("secret.rtf")), 53);
}

TEST_F(StoredDocuments, AnEntryWithoutAFileNameFindsNone) {
    for (const char* entry :
         {"*vk14", "*vk14   ", "*vk14.", "*vk14..", "*vk14../..", "C:\\recipes\\", "/", "."}) {
        EXPECT_EQ(fault_of_entry(entry), 53) << entry;
        EXPECT_EQ(meal_documents[soup], entry);
    }
}

TEST_F(StoredDocuments, AMissingFileIsToldAndItsPathIsNeverShownAsText) {
    EXPECT_EQ(fault_of_entry(soup_entry), 53);
    EXPECT_EQ(fault_of_entry("C:\\recipes\\soup.rtf"), 53);
    EXPECT_EQ(meal_documents[soup], "C:\\recipes\\soup.rtf");
    EXPECT_TRUE(names_on_disk().empty());
}

TEST_F(StoredDocuments, AMissingFolderIsMade) {
    std::filesystem::remove(recipes_folder);
    EXPECT_EQ(fault_of_entry(soup_entry), 53);
    EXPECT_TRUE(std::filesystem::is_directory(recipes_folder));
}

TEST_F(StoredDocuments, ALongerFileThanTheLimitIsNotRead) {
    meal_documents[soup] = soup_entry;
    put_on_disk("home000007.rtf", "");
    std::filesystem::resize_file(in_recipes("home000007.rtf"), 134217729);
    platform.files.start_over();
    EXPECT_EQ(fault_of([] { stored_document(soup); }), 63);
    for (const std::string& step : platform.files.log()) EXPECT_FALSE(step.starts_with("read "));
    std::filesystem::resize_file(in_recipes("home000007.rtf"), 134217728);
    EXPECT_EQ(stored_document(soup).bytes.size(), 134217728u);
}

TEST_F(StoredDocuments, AFolderInTheFilesPlaceIsAFault) {
    std::filesystem::create_directory(in_recipes("home000007.rtf"));
    EXPECT_EQ(fault_of_entry(soup_entry), 75);
}

TEST_F(StoredDocuments, AnyFailureOfTheDiskLeavesTheEntry) {
    save_soup(first_text);
    platform.files.start_over();
    stored_document(soup);
    const int operations = platform.files.operations();
    ASSERT_GE(operations, 4);
    for (int n = 1; n <= operations; ++n) {
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::device_io_error);
        EXPECT_EQ(fault_of([] { stored_document(soup); }), 57) << n;
        EXPECT_EQ(meal_documents[soup], soup_entry);
    }
}

}  // namespace
}  // namespace tavernook
