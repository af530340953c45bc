#include "core/catagories.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

class CatagoriesTest : public testing::Test {
  protected:
    static void fill_rows(i16 last) {
        for (i16 slot = 1; slot <= last; ++slot) {
            catagories[slot].name = "Category " + std::to_string(slot);
            catagories[slot].in_use = 1;
        }
    }

    TestPlatform platform;
};

TEST_F(CatagoriesTest, TheLowestFreeSlotIsTaken) {
    EXPECT_EQ(find_free_catagory(), 2) << "General is row 1 of a new project";
    fill_rows(10);
    EXPECT_EQ(find_free_catagory(), 11);
    catagories[4].in_use = 0;
    EXPECT_EQ(find_free_catagory(), 4);
}

TEST_F(CatagoriesTest, TheLastFreeSlotIsTakenSilently) {
    fill_rows(98);
    EXPECT_EQ(find_free_catagory(), 99);
    fill_rows(99);
    EXPECT_EQ(find_free_catagory(), 100);
}

TEST_F(CatagoriesTest, AFullTableReusesTheHundredthSlotSilently) {
    fill_rows(100);
    EXPECT_EQ(new_catagory("First too many", 0, 5), 100);
    EXPECT_EQ(new_catagory("Second too many", 32, 6), 100);
    EXPECT_EQ(catagories[100].name, "Second too many");
    EXPECT_EQ(catagories[100].type, 32);
    EXPECT_EQ(catagories[100].parent, 6);
    EXPECT_EQ(catagories[99].name, "Category 99");
}

TEST_F(CatagoriesTest, ANewCategoryTakesAllItsFields) {
    catagories[2].type = 32;
    catagories[2].parent = 9;
    EXPECT_EQ(new_catagory("Dairy", 0, 1), 2);
    EXPECT_EQ(catagories[2].name, "Dairy");
    EXPECT_EQ(catagories[2].in_use, 1);
    EXPECT_EQ(catagories[2].type, 0);
    EXPECT_EQ(catagories[2].parent, 1);
}

TEST_F(CatagoriesTest, ALongNameIsCutAt32Characters) {
    new_catagory("0123456789012345678901234567890123456789", 0, 0);
    EXPECT_EQ(catagories[2].name, "01234567890123456789012345678901");
}

TEST_F(CatagoriesTest, ARecipeCategoryShowsInTheRecipeTree) {
    FakeFoodInventory food(platform.calls);
    FakeMealbuilder recipes(platform.calls);
    new_catagory("Soups", 32, 0);
    EXPECT_EQ(platform.calls.entries, Texts{"Mealbuilder populate_tree"});
}

TEST_F(CatagoriesTest, AnyOtherTypeShowsInTheItemTree) {
    FakeFoodInventory food(platform.calls);
    FakeMealbuilder recipes(platform.calls);
    new_catagory("Dairy", 0, 0);
    new_catagory("Odd", 31, 0);
    EXPECT_EQ(platform.calls.entries,
              (Texts{"FoodInventory populate_tree", "FoodInventory populate_tree"}));
}

TEST_F(CatagoriesTest, AScreenThatIsNotLoadedIsNotAsked) {
    FakeMealbuilder recipes(platform.calls);
    EXPECT_EQ(new_catagory("Dairy", 0, 0), 2);
    EXPECT_EQ(platform.calls.entries, Texts{});
}

TEST_F(CatagoriesTest, CategoriesOfItemsAreLiveAndNotOfRecipes) {
    catagories[2].in_use = 1;
    catagories[2].type = recipe_category_type;
    catagories[3].in_use = 1;
    catagories[3].type = -1;
    EXPECT_TRUE(is_item_catagory(1));
    EXPECT_FALSE(is_item_catagory(2));
    EXPECT_TRUE(is_item_catagory(3));
    EXPECT_FALSE(is_item_catagory(4));
    EXPECT_FALSE(is_item_catagory(0));
    EXPECT_FALSE(is_item_catagory(-1));
    EXPECT_FALSE(is_item_catagory(101));
    EXPECT_EQ(home_catagory(3), 3);
    EXPECT_EQ(home_catagory(2), 1);
}

TEST_F(CatagoriesTest, ACategoryIsRenamedAndCutToItsField) {
    EXPECT_TRUE(rename_catagory(1, " A name of more than thirty-two letters "));
    EXPECT_EQ(std::string(catagories[1].name.stored()), "A name of more than thirty-two l");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_FALSE(rename_catagory(1, "  "));
    EXPECT_FALSE(rename_catagory(50, "X"));
}

}  // namespace
}  // namespace tavernook
