// What the deletion of a recipe does to the plans and the stock.
#include "core/changes.h"
#include "recipes/recipes_fixture.h"

namespace tavernook {
namespace {

constexpr i16 bread = 4;
constexpr i16 soup = 5;
constexpr i16 flour = 7;
constexpr const char* bread_question =
    "This Recipe is used in the Meal Planner on the following dates: "
    "DAY:6/2/2024,DAY:5/31/2024, Press YES to delete the meal plans and the recipe or Press NO to "
    "cancel delete.";

// Bread takes 3 servings of flour, 0.5 cups each, 4 to the bag: 0.375 bags for one. Two servings
// are planned on day 2 (not audited) and four on day 6 (audited).
class MealDeletion : public RecipesTest {
  protected:
    MealDeletion() {
        add_item(flour);
        items[flour].serving_size = 0.5;
        items[flour].servings_per_qty_unit = 4;
        fill_lots(flour, 10);
        add_meal(bread);
        put(bread, 1, flour, 3);
        meals[bread].category = 9;
    }

    static void plan_bread() {
        add_meal(soup, "Soup");
        add_day(2, 6, 2, 2024);
        add_day(6, 5, 31, 2024);
        days[6].audited = i16_true;
        plan(2, 1, soup, 1);
        plan(2, 30, bread, 2);
        plan(6, 1, bread, 4);
    }

    static void expect_blank(i16 slot) {
        MealRecord blank;
        blank.serving_size_units = meals[slot].serving_size_units;
        EXPECT_EQ(meals[slot], blank);
    }

    static void expect_planned_as_before() {
        EXPECT_EQ(days[2].planned_meal[30], bread);
        EXPECT_EQ(days[6].planned_meal[1], bread);
        EXPECT_EQ(items[flour].quantity, 10);
    }

    static void expect_out_of_all_plans() {
        EXPECT_EQ(days[2].planned_meal[30], 0);
        EXPECT_EQ(days[6].planned_meal[1], 0);
        EXPECT_EQ(days[2].planned_meal[1], soup);
        EXPECT_EQ(day_quantities[2].meal_servings[30], 2);
        EXPECT_EQ(day_quantities[6].meal_servings[1], 4);
    }
};

TEST_F(MealDeletion, ARecipeThatGoesWhileItIsAskedAboutTakesNoPlansAlong) {
    plan_bread();
    look_for_changes();
    platform.boxes.expect_message(bread_question, Answer::yes);
    platform.boxes.expect_message(stock_question, Answer::yes).during([] {
        meals[bread].in_use = 0;
        look_for_changes();
        meals[bread].in_use = 1;  // another one in its slot
        look_for_changes();
    });
    EXPECT_EQ(delete_meal(bread, false), meal_kept_by_user);
    EXPECT_EQ(meals[bread].in_use, 1);
    expect_planned_as_before();
}

TEST_F(MealDeletion, DatesComeInTheOrderOfTheSlotsEachWithItsComma) {
    EXPECT_EQ(meal_use_dates(bread), "");
    plan_bread();
    EXPECT_EQ(meal_use_dates(bread), "DAY:6/2/2024,DAY:5/31/2024,");
    EXPECT_EQ(meal_use_dates(soup), "DAY:6/2/2024,");
}

TEST_F(MealDeletion, ARecipeTwiceOnADayGivesTheDateTwice) {
    add_day(1095, 12, 24, 2024);
    plan(1095, 3, bread, 1);
    plan(1095, 9, bread, 1);
    EXPECT_EQ(meal_use_dates(bread), "DAY:12/24/2024,DAY:12/24/2024,");
}

TEST_F(MealDeletion, DaysThatAreNotLiveDoNotPlan) {
    plan_bread();
    days[2].in_use = days[6].in_use = 0;
    EXPECT_EQ(meal_use_dates(bread), "");
    EXPECT_EQ(delete_meal(bread, true), 2);
    EXPECT_EQ(days[2].planned_meal[30], bread);
}

TEST_F(MealDeletion, LeavesDaysAloneThatAreNotLive) {
    plan_bread();
    days[2].in_use = 0;
    EXPECT_TRUE(remove_meal_from_plans(bread, Answer::yes));
    EXPECT_EQ(days[2].planned_meal[30], bread);
    EXPECT_EQ(days[6].planned_meal[1], 0);
    EXPECT_EQ(items[flour].quantity, 11.5);  // day 6 alone: 10 + 4 x 0.375
}

TEST_F(MealDeletion, OfAnUnplannedRecipeAsksNothing) {
    fill_places(bread, 50);
    meal_serving_size[bread] = 6;
    meals[bread].serving_size_units = 3;
    meal_documents[bread] = "*vk14pantry000004.rtf";
    EXPECT_EQ(delete_meal(bread, false), 2);
    expect_blank(bread);
    EXPECT_EQ(meal_serving_size[bread], 6);
    EXPECT_EQ(meals[bread].serving_size_units, 3);
    EXPECT_EQ(meal_documents[bread], "*vk14pantry000004.rtf");
    EXPECT_TRUE(platform.calls.entries.empty());
}

TEST_F(MealDeletion, APlannedRecipeIsKeptInSilenceWhereThatIsWanted) {
    plan_bread();
    const MealRecord before = meals[bread];
    EXPECT_EQ(delete_meal(bread, true), 0);
    EXPECT_EQ(meals[bread], before);
    expect_planned_as_before();
}

TEST_F(MealDeletion, NoKeepsEverything) {
    plan_bread();
    const MealRecord before = meals[bread];
    platform.boxes.expect_message(bread_question, Answer::no).buttons(Buttons::yes_no);
    EXPECT_EQ(delete_meal(bread, false), 1);
    EXPECT_EQ(meals[bread], before);
    expect_planned_as_before();
}

TEST_F(MealDeletion, YesAndNoLeavesThePlansButKeepsTheStock) {
    plan_bread();
    platform.boxes.expect_message(bread_question, Answer::yes);
    platform.boxes.expect_message(stock_question, Answer::no).buttons(Buttons::yes_no);
    EXPECT_EQ(delete_meal(bread, false), 2);
    expect_blank(bread);
    expect_out_of_all_plans();
    EXPECT_EQ(items[flour].quantity, 10);
}

TEST_F(MealDeletion, YesAndYesReturnsTheStockOfEveryDayAuditedOrNot) {
    plan_bread();
    platform.boxes.expect_message(bread_question, Answer::yes);
    platform.boxes.expect_message(stock_question, Answer::yes);
    EXPECT_EQ(delete_meal(bread, false), 2);
    expect_blank(bread);
    expect_out_of_all_plans();
    expect_lot(flour, 1, 0.75, now, now + 30);  // 2 x 0.375
    expect_lot(flour, 2, 1.5, now, now + 30);   // 4 x 0.375
    EXPECT_EQ(items[flour].quantity, 12.25);
}

TEST_F(MealDeletion, AFigureThatFailsLeavesEverythingAsItWas) {
    plan_bread();
    const i16 salt = add_item(8, "Salt");  // no servings in a quantity unit
    put(bread, 2, salt, 1);
    const MealRecord before = meals[bread];
    platform.boxes.expect_message(bread_question, Answer::yes);
    platform.boxes.expect_message(stock_question, Answer::yes);
    platform.boxes.expect_message(module_error(11));
    EXPECT_EQ(delete_meal(bread, false), meal_kept_by_user);
    EXPECT_EQ(meals[bread], before);
    expect_planned_as_before();
}

TEST_F(MealDeletion, OfNoRecipeIsTold) {
    add_day(1, 1, 1, 2024);
    for (const i16 slot : {i16{0}, i16{-1}, i16{1001}}) {
        expect_trapped(
            9, [slot] { return delete_meal(slot, false); }, meal_kept_by_user);
    }
}

TEST_F(MealDeletion, TakingARecipeFromThePlansTellsWhetherItIsDone) {
    EXPECT_TRUE(remove_meal_from_plans(bread, Answer::yes));
    plan_bread();
    EXPECT_TRUE(remove_meal_from_plans(bread, Answer::no));
    expect_out_of_all_plans();
    EXPECT_TRUE(remove_meal_from_plans(0, Answer::yes));
    plan_bread();
    meal_serving_size[bread] = 0;
    expect_trapped(
        11, [] { return remove_meal_from_plans(bread, Answer::yes); }, false);
    expect_planned_as_before();
    EXPECT_EQ(meals[bread].in_use, 1);
}

}  // namespace
}  // namespace tavernook
