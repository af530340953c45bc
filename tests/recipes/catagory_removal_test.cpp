#include "recipes/catagory_removal.h"

#include <gtest/gtest.h>
#include <string>

#include "core/catagories.h"
#include "core/changes.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

const std::string general_stays = "Can't Delete General Catagory.";
const std::string meals_are_planned =
    "Cannot delete Category because meals within this category are planned.";
const std::string has_items = "This category has items in it.  Cannot Delete.";

const std::string question_for_one =
    "Deleting the category Soups also deletes the one recipe in it.  Press YES to delete it or "
    "press NO to keep everything.";

class CatagoryRemoval : public testing::Test {
  protected:
    static void add_live_item(i16 item, i16 category) {
        items[item].in_use = 1;
        items[item].category = category;
    }

    static void add_meal(i16 meal, i16 category) {
        meals[meal].in_use = 1;
        meals[meal].category = category;
    }

    static void plan_meal(i16 meal, i16 day, std::size_t place) {
        days[day].in_use = 1;
        days[day].planned_meal[place] = meal;
    }

    TestPlatform platform;
};

TEST_F(CatagoryRemoval, GeneralIsNeverDeleted) {
    category_edit_mode = 1;
    platform.boxes.expect_message(general_stays).buttons(Buttons::ok);
    EXPECT_EQ(delete_catagory(1), 0);
    catagories[1].name = "Everything";
    platform.boxes.expect_message(general_stays);
    EXPECT_EQ(delete_catagory(1), 0);
    EXPECT_EQ(catagories[1].in_use, 1);
    EXPECT_EQ(catagories[1].name, "Everything");
    EXPECT_EQ(category_edit_mode, 1);
}

TEST_F(CatagoryRemoval, GeneralIsRefusedBeforeItsContentsAreLookedAt) {
    add_live_item(1, 1);
    platform.boxes.expect_message(general_stays);
    EXPECT_EQ(delete_catagory(1), 0);
}

TEST_F(CatagoryRemoval, ADeletedCategoryKeepsItsNameAndItsChildren) {
    const i16 parent = new_catagory("Dairy", 0, 0);
    const i16 child = new_catagory("Cheese", 0, parent);
    category_edit_mode = 1;
    EXPECT_EQ(delete_catagory(parent), -1);
    EXPECT_EQ(catagories[parent].in_use, 0);
    EXPECT_EQ(catagories[parent].name, "Dairy");
    EXPECT_EQ(category_edit_mode, 0);
    EXPECT_EQ(catagories[child].in_use, 1);
    EXPECT_EQ(catagories[child].parent, parent);
}

TEST_F(CatagoryRemoval, ACategoryWithALiveItemStays) {
    const i16 slot = new_catagory("Dairy", 0, 0);
    add_live_item(10000, slot);
    category_edit_mode = 1;
    platform.boxes.expect_message(has_items).buttons(Buttons::ok);
    EXPECT_EQ(delete_catagory(slot), 0);
    EXPECT_EQ(catagories[slot].in_use, 1);
    EXPECT_EQ(category_edit_mode, 1);
}

TEST_F(CatagoryRemoval, AFreedItemDoesNotHoldItsCategory) {
    const i16 slot = new_catagory("Dairy", 0, 0);
    items[3].category = slot;
    EXPECT_EQ(delete_catagory(slot), -1);
}

TEST_F(CatagoryRemoval, ARecipeCategoryWithAPlannedRecipeStays) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(1, slot);
    add_meal(1000, slot);
    plan_meal(1000, 1095, 30);
    category_edit_mode = 1;
    platform.boxes.expect_message(meals_are_planned).buttons(Buttons::ok);
    EXPECT_EQ(delete_catagory(slot), 0);
    EXPECT_EQ(catagories[slot].in_use, 1);
    EXPECT_EQ(category_edit_mode, 1);
}

TEST_F(CatagoryRemoval, AnyTypeButZeroLooksForPlannedRecipes) {
    const i16 slot = new_catagory("Odd", 1, 0);
    add_meal(5, slot);
    plan_meal(5, 1, 1);
    platform.boxes.expect_message(meals_are_planned);
    EXPECT_EQ(delete_catagory(slot), 0);
}

TEST_F(CatagoryRemoval, TypeZeroDoesNotLookForPlannedRecipes) {
    const i16 slot = new_catagory("Dairy", 0, 0);
    add_meal(5, slot);
    plan_meal(5, 1, 1);
    EXPECT_EQ(delete_catagory(slot), -1);
}

TEST_F(CatagoryRemoval, PlannedRecipesOfOtherCategoriesDoNotHinder) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    add_meal(6, new_catagory("Salads", 32, 0));
    plan_meal(6, 1, 1);
    days[2].planned_meal[1] = 5;  // in a free day
    days[3].in_use = 1;
    days[3].planned_meal[0] = 5;  // in the place that is never used
    platform.boxes.expect_message(question_for_one, Answer::yes);
    EXPECT_EQ(delete_catagory(slot), -1);
}

TEST_F(CatagoryRemoval, PlannedRecipesAreToldBeforeItems) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    plan_meal(5, 1, 1);
    add_live_item(1, slot);
    platform.boxes.expect_message(meals_are_planned);
    EXPECT_EQ(delete_catagory(slot), 0);
}

TEST_F(CatagoryRemoval, RecipesThatAreOthersBehindTheQuestionStay) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    look_for_changes();
    platform.boxes.expect_message(question_for_one, Answer::yes).during([slot] {
        meals[5].in_use = 0;
        look_for_changes();
        add_meal(5, slot);  // another one
        look_for_changes();
    });
    EXPECT_EQ(delete_catagory(slot), 0);
    platform.boxes.expect_message(question_for_one, Answer::yes).during([slot] {
        add_meal(6, slot);
    });
    EXPECT_EQ(delete_catagory(slot), 0);
    EXPECT_EQ(meals[5].in_use, 1);
    EXPECT_EQ(catagories[slot].in_use, 1);
    EXPECT_EQ(platform.main.status[message_panel],
              "The category has changed meanwhile; nothing was deleted.");
}

TEST_F(CatagoryRemoval, TheRecipesGoWithTheirCategory) {
    const i16 slot = new_catagory("Soups", 32, 0);
    const i16 other = new_catagory("Salads", 32, 0);
    for (const i16 meal : {i16{1}, i16{500}, i16{1000}}) add_meal(meal, slot);
    add_meal(2, other);
    meals[500].name = "Broth";
    meals[500].ingredient_item[50] = 7;
    meal_documents[500] = "*vk14home000500.rtf";
    category_edit_mode = 1;
    platform.boxes
        .expect_message(
            "Deleting the category Soups also deletes all 3 recipes in it.  Press YES to delete "
            "them or press NO to keep everything.",
            Answer::yes)
        .buttons(Buttons::yes_no)
        .title("Delete Category")
        .default_button(DefaultButton::no);
    EXPECT_EQ(delete_catagory(slot), -1);
    EXPECT_EQ(catagories[slot].in_use, 0);
    EXPECT_EQ(category_edit_mode, 0);
    for (const i16 meal : {i16{1}, i16{500}, i16{1000}}) EXPECT_EQ(meals[meal].in_use, 0) << meal;
    EXPECT_TRUE(meals[500].name.blank());
    EXPECT_EQ(meals[500].category, 0);
    EXPECT_EQ(meals[500].ingredient_item[50], 0);
    EXPECT_EQ(meal_documents[500], "*vk14home000500.rtf");
    EXPECT_EQ(meals[2].in_use, 1);
    EXPECT_EQ(meals[2].category, other);
}

TEST_F(CatagoryRemoval, NoKeepsTheCategoryAndItsRecipes) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    category_edit_mode = 1;
    platform.boxes.expect_message(question_for_one, Answer::no);
    EXPECT_EQ(delete_catagory(slot), 0);
    EXPECT_EQ(catagories[slot].in_use, 1);
    EXPECT_EQ(category_edit_mode, 1);
    EXPECT_EQ(meals[5].in_use, 1);
    EXPECT_EQ(meals[5].category, slot);
}

TEST_F(CatagoryRemoval, OnePlannedRecipeKeepsThemAll) {
    const i16 slot = new_catagory("Soups", 32, 0);
    for (i16 meal = 1; meal <= 3; ++meal) add_meal(meal, slot);
    plan_meal(3, 1, 1);
    platform.boxes.expect_message(meals_are_planned);
    EXPECT_EQ(delete_catagory(slot), 0);
    for (i16 meal = 1; meal <= 3; ++meal) EXPECT_EQ(meals[meal].in_use, 1) << meal;
}

TEST_F(CatagoryRemoval, ARecipePlannedWhileTheQuestionStandsKeepsThemAll) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    platform.boxes.expect_message(question_for_one, Answer::yes).during([] { plan_meal(5, 1, 1); });
    platform.boxes.expect_message(meals_are_planned);
    EXPECT_EQ(delete_catagory(slot), 0);
    EXPECT_EQ(meals[5].in_use, 1);
    EXPECT_EQ(catagories[slot].in_use, 1);
}

TEST_F(CatagoryRemoval, ADeletedRecipeNeitherHindersNorCounts) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    meals[5].in_use = 0;
    plan_meal(5, 1, 1);
    EXPECT_EQ(delete_catagory(slot), -1);
}

TEST_F(CatagoryRemoval, TypeZeroTakesNoRecipesAlong) {
    const i16 slot = new_catagory("Dairy", 0, 0);
    add_meal(5, slot);
    EXPECT_EQ(delete_catagory(slot), -1);
    EXPECT_EQ(meals[5].in_use, 1);
}

TEST_F(CatagoryRemoval, ARecipeCategoryWithItemsStaysAsWell) {
    const i16 slot = new_catagory("Soups", 32, 0);
    add_meal(5, slot);
    add_live_item(1, slot);
    platform.boxes.expect_message(has_items);
    EXPECT_EQ(delete_catagory(slot), 0);
}

}  // namespace
}  // namespace tavernook
