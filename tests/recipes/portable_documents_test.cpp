// Entries on their way to another machine, and texts that somebody else has put there.
#include "recipes/documents_fixture.h"

namespace tavernook {
namespace {

class PortableDocuments : public DocumentsTest {
  protected:
    static std::string made_portable(const std::string& entry) {
        meal_documents[soup] = entry;
        make_document_portable(soup);
        return meal_documents[soup];
    }
};

TEST_F(PortableDocuments, ThePathGoesUpToTheLastSeparator) {
    EXPECT_EQ(made_portable("C:\\Program Files\\Tavernook\\recipes\\soup.rtf"), "*vk14soup.rtf");
    EXPECT_EQ(made_portable("soups\\.rtf"), "*vk14.rtf");
    EXPECT_EQ(made_portable("/home/me/recipes/soup.rtf"), "*vk14soup.rtf");
    EXPECT_EQ(made_portable("C:\\recipes/soup.rtf"), "*vk14soup.rtf");
    EXPECT_EQ(made_portable("*vk14..\\..\\soup.rtf"), "*vk14soup.rtf");
}

TEST_F(PortableDocuments, WhatIsNoPathStays) {
    for (const char* entry :
         {"soup.rtf", "*vk14soup.rtf", "", "   ", "{\\rtf1 Boil \\par}", "  {\\rtf1 a/b}"}) {
        EXPECT_EQ(made_portable(entry), entry);
    }
    for (const i16 slot : {i16{-1}, i16{0}, i16{1001}}) make_document_portable(slot);
}

TEST_F(PortableDocuments, OnlyThoseWithTheMarkHaveAPortableName) {
    const auto name_of = [](const std::string& entry) {
        meal_documents[soup] = entry;
        return portable_document_name(soup);
    };
    EXPECT_EQ(name_of("*vk14soup.rtf"), "soup.rtf");
    EXPECT_EQ(name_of("*vk14../soup.rtf"), "soup.rtf");
    for (const char* entry : {"soup.rtf", "", "*vk14", "*vk14 ", "*vk14..", "*vk14a/.", "*VK14x"}) {
        EXPECT_EQ(name_of(entry), "") << entry;
    }
    EXPECT_EQ(portable_document_name(0), "");
    EXPECT_EQ(portable_document_name(1001), "");
}

TEST_F(PortableDocuments, AFileLiesInTheRecipesFolder) {
    EXPECT_EQ(path_of_document("soup.rtf"), in_recipes("soup.rtf"));
    EXPECT_EQ(path_of_document("k\xFC.rtf"), in_recipes("k\xC3\xBC.rtf"));
}

TEST_F(PortableDocuments, AReplacedTextDoesNotGoBack) {
    save_soup(first_text);
    store_document(soup, second_text);
    EXPECT_EQ(recipe_text_changed, i16_true);
    put_on_disk("home000007.rtf", third_text);
    document_was_replaced(in_recipes("home000007.rtf"));
    EXPECT_EQ(recipe_text_changed, i16_false);
    EXPECT_EQ(names_on_disk(), std::vector<std::string>{"home000007.rtf"});
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), third_text);
}

TEST_F(PortableDocuments, OfAnotherTextNothingIsForgotten) {
    save_soup(first_text);
    store_document(soup, second_text);
    document_was_replaced(in_recipes("home000008.rtf"));
    restore_documents();
    EXPECT_EQ(on_disk("home000007.rtf"), first_text);
}

}  // namespace
}  // namespace tavernook
