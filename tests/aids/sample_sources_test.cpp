// Sources that do not fit together end the making with file and line.
#include <fstream>

#include "aids/sample_fixture.h"
#include "sample_files.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;
using make_sample::SourceError;

class SampleSources : public testing::Test {
  protected:
    SampleSources() {
        fs::copy(sample_sources(), folder.path("sample"), fs::copy_options::recursive);
    }

    // Puts `text` in the place of the first `found` of the table.
    void change(const std::string& table, const std::string& found, const std::string& text) {
        std::string bytes = read_whole_file(path(table));
        const std::size_t place = bytes.find(found);
        ASSERT_NE(place, std::string::npos) << found;
        bytes.replace(place, found.size(), text);
        write_whole_file(path(table), bytes);
    }
    void append(const std::string& table, const std::string& line) {
        write_whole_file(path(table), read_whole_file(path(table)) + line + "\n");
    }
    // What the making ends with, without the folder.
    std::string error() {
        try {
            make_sample::fill_tables(folder.path("sample"));
        } catch (const SourceError& fault) {
            std::string text = fault.what();
            const std::string front = folder.path("sample") + "/";
            for (std::size_t at = text.find(front); at != std::string::npos;
                 at = text.find(front)) {
                text.erase(at, front.size());
            }
            return text;
        }
        return "";
    }
    std::string path(const std::string& name) { return folder.path("sample/" + name); }

    TestPlatform platform;
    TempFolder folder;
};

TEST_F(SampleSources, AsTheyAreTheyFit) {
    EXPECT_EQ(error(), "");
}

TEST_F(SampleSources, TheSameSourcesGiveTheSameBytes) {
    const std::string first = folder.path("first.tvk");
    const std::string second = folder.path("second.tvk");
    make_sample::fill_tables(sample_sources());
    make_sample::write_project(first);
    items[5].name = "something else";
    write_whole_file(second, std::string(3'000'000, 'x'));  // an older one
    make_sample::fill_tables(folder.path("sample"));
    make_sample::write_project(second);
    EXPECT_TRUE(read_whole_file(first) == read_whole_file(second));
    EXPECT_TRUE(read_whole_file(first) == read_whole_file(TAVERNOOK_SAMPLE_PROJECT));
}

TEST_F(SampleSources, TheListOfResourcesNamesWhatIsPlaced) {
    const make_sample::Documents documents = make_sample::fill_tables(sample_sources());
    make_sample::write_resource_list(folder.path("list.qrc"), folder.path("a.tvk"), documents);
    const std::string list = read_whole_file(folder.path("list.qrc"));
    EXPECT_NE(list.find("<file alias=\"sample17.tvk\">" + folder.path("a.tvk") + "</file>"),
              std::string::npos);
    EXPECT_NE(list.find("<file alias=\"recipes/sample17000001.rtf\">"), std::string::npos);
}

TEST_F(SampleSources, AnUnknownCategory) {
    change("items.csv", "Apples,Fruit,", "Apples,Fruits,");
    EXPECT_EQ(error(), "items.csv:2: unknown category \"Fruits\"");
}

TEST_F(SampleSources, ARecipesCategoryIsNoneOfAnItem) {
    change("items.csv", "Bananas,Fruit,", "Bananas,Soups,");
    EXPECT_EQ(error(), "items.csv:3: unknown category \"Soups\"");
}

TEST_F(SampleSources, AUnitOfThirteenCharacters) {
    change("units.csv", "lb(s)", "thirteen char");
    EXPECT_EQ(error(), "units.csv:2: \"thirteen char\" is longer than 12 characters");
}

TEST_F(SampleSources, ANameOfThirtyThreeCharacters) {
    change("items.csv", "Apples,", "Apples that are crisp and very red,");
    EXPECT_EQ(error(),
              "items.csv:2: \"Apples that are crisp and very red\" is longer than 32 characters");
}

TEST_F(SampleSources, AnItemThatIsThereTwice) {
    change("items.csv", "Bananas,", "apples,");
    EXPECT_EQ(error(), "items.csv:3: \"apples\" is there already");
}

TEST_F(SampleSources, AnUnknownIngredient) {
    change("ingredients.csv", "Oatmeal with Apple and Walnuts,Whole Milk",
           "Oatmeal with Apple and Walnuts,Whale Milk");
    EXPECT_EQ(error(), "ingredients.csv:3: unknown item \"Whale Milk\"");
}

TEST_F(SampleSources, AnIngredientInAnotherUnitThanItsServing) {
    change("ingredients.csv", "Whole Milk,1,Cup(s)", "Whole Milk,1,tbsp(s)");
    EXPECT_EQ(error(), "ingredients.csv:3: servings of \"Whole Milk\" are not in tbsp(s)");
}

TEST_F(SampleSources, AnIngredientTwice) {
    change("ingredients.csv", "Oatmeal with Apple and Walnuts,Whole Milk,1,Cup(s)",
           "Oatmeal with Apple and Walnuts,Rolled Oats,1,Cup(s)");
    EXPECT_EQ(error(), "ingredients.csv:3: the item is in the recipe already");
}

TEST_F(SampleSources, AWrongCheckDigit) {
    EXPECT_TRUE(make_sample::is_in_store_barcode("2000000010014"));
    EXPECT_TRUE(make_sample::is_in_store_barcode("212345678909"));
    EXPECT_FALSE(make_sample::is_in_store_barcode("2000000010015"));
    EXPECT_FALSE(make_sample::is_in_store_barcode("200000001002"));
    EXPECT_FALSE(make_sample::is_in_store_barcode("20000000100x4"));
    EXPECT_FALSE(make_sample::is_in_store_barcode("4006381333931"));  // somebody's real product
    append("items.csv", "X,Fruit,Butcher,1,each,1,1,0,1,1,each,1,1,,,,,,,,2000000010015");
    EXPECT_TRUE(error().ends_with("\"2000000010015\" is no barcode of a shop's own"));
}

TEST_F(SampleSources, AMissingDocument) {
    fs::remove(path("recipes/greek_salad.rtf"));
    EXPECT_EQ(error().substr(0, 14), "recipes.csv:24");
    EXPECT_TRUE(error().ends_with("greek_salad.rtf\" is no rich text"));
}

TEST_F(SampleSources, APlannedRecipeThatIsNone) {
    change("plan.csv", "Oatmeal with Apple and Walnuts", "Oatmeal with Pear");
    EXPECT_EQ(error(), "plan.csv:2: unknown recipe \"Oatmeal with Pear\"");
}

TEST_F(SampleSources, ALotThatIsNewerThanTheLastRestock) {
    change("lots.csv", "Apples,10,3", "Apples,10,2");
    EXPECT_EQ(error(), "lots.csv:2: bought after the last restock");
}

TEST_F(SampleSources, ASeventeenthLot) {
    for (int lot = 1; lot <= 16; ++lot) append("lots.csv", "Apples,1,20");
    const std::string lines = error();
    EXPECT_TRUE(lines.ends_with("the item has no room for another lot")) << lines;
}

TEST_F(SampleSources, NumbersThatAreNone) {
    change("lots.csv", "Apples,10,3", "Apples,ten,3");
    EXPECT_EQ(error(), "lots.csv:2: Quantity \"ten\" is no number");
}

TEST_F(SampleSources, NumbersOutOfRange) {
    change("settings.csv", "audit_hour,23", "audit_hour,24");
    EXPECT_EQ(error(), "settings.csv:5: Value is not from 0 to 23");
}

TEST_F(SampleSources, AFieldTooMuch) {
    change("stores.csv", "Butcher", "Butcher,Baker");
    EXPECT_EQ(error(), "stores.csv:4: 2 fields for 1 columns");
}

TEST_F(SampleSources, AQuoteThatIsNotClosed) {
    change("stores.csv", "Butcher", "\"Butcher");
    EXPECT_EQ(error(), "stores.csv:4: a quote is not closed");
}

TEST_F(SampleSources, ACharacterOutsideTheCodePage) {
    change("stores.csv", "Butcher", "Мясо");
    EXPECT_EQ(error(), "stores.csv:4: a character outside the code page in \"Мясо\"");
}

TEST_F(SampleSources, AMissingTable) {
    fs::remove(path("foods.csv"));
    EXPECT_EQ(error(), "foods.csv: cannot be read");
}

}  // namespace
}  // namespace tavernook
