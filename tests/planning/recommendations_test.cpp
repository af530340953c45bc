#include "planning/recommendations.h"

#include "planning/planning_fixture.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

constexpr i16 bread = 4;
constexpr i16 flour = 7;
constexpr const char* nothing_found = "Tavernook has no meal recommendations at this time.";

class Recommendations : public PlanningTest {
  protected:
    Recommendations() {
        expiration_warning_days = 10;
        add_item(flour);
        add_meal(bread);
        put(bread, 50, flour, 1);
    }

    // The item's whole stock in one lot that ran out so many days ago.
    void expire(i16 item, f64 quantity, f64 days_ago) {
        lots[item].lot_quantity[0] = quantity;
        lots[item].expiration_date[0] = now - days_ago;
        items[item].quantity = quantity;
    }

    static Texts keys() {
        Texts found;
        for (const Recommendation& row : meal_recommendations().rows) {
            found.push_back(recommendation_key(row));
        }
        return found;
    }
};

TEST_F(Recommendations, ARowTellsRecipeItemAndQuantity) {
    expire(flour, 2.5, 40);
    const MealRecommendations found = meal_recommendations();
    ASSERT_EQ(found.rows.size(), 1u);
    EXPECT_EQ(found.rows[0].item, flour);
    EXPECT_EQ(found.rows[0].recipe, bread);
    EXPECT_EQ(recommendation_key(found.rows[0]), "i7:4");
    EXPECT_EQ(found.rows[0].quantity, 2.5);
    EXPECT_EQ(found.caption,
              "The meals listed below have expired items or are going to expire within the next 10 "
              "days.  Tavernook recommends using these meals or items soon.  Double Click on the "
              "Meal to add it to the Meal Plan.");
}

TEST_F(Recommendations, WithTenDaysOfWarningALotCountsNineDaysPastItsDate) {
    expire(flour, 1, 9);
    EXPECT_EQ(keys(), Texts{"i7:4"});
    expire(flour, 1, 8.99);
    EXPECT_TRUE(keys().empty());
    expire(flour, 1, 1);
    EXPECT_TRUE(keys().empty());
}

TEST_F(Recommendations, WithoutWarningALotCountsThirtyDaysPastItsDate) {
    expiration_warning_days = 0;
    expire(flour, 1, 30);
    EXPECT_EQ(keys(), Texts{"i7:4"});
    expire(flour, 1, 29.99);
    EXPECT_TRUE(keys().empty());
}

TEST_F(Recommendations, TheLastItemOfTheTableCounts) {
    expire(add_item(item_capacity, "Salt"), 1, 40);
    put(bread, 2, item_capacity, 1);
    EXPECT_EQ(keys(), Texts{"i10000:4"});
}

TEST_F(Recommendations, AnItemWithoutQuantityGivesNoRowsWhateverItsLotsCarry) {
    expire(flour, 1, 40);
    items[flour].quantity = 0;
    EXPECT_TRUE(keys().empty());
    EXPECT_EQ(meal_recommendations().caption, nothing_found);
}

TEST_F(Recommendations, AnExpiredItemOfNoRecipeGivesNoRow) {
    expire(add_item(9, "Salt"), 1, 40);
    EXPECT_TRUE(keys().empty());
    EXPECT_EQ(meal_recommendations().caption, nothing_found);
}

TEST_F(Recommendations, ItemsComeInOrderThenTheirRecipes) {
    expire(flour, 1, 40);
    expire(add_item(2, "Salt"), 1, 40);
    put(bread, 1, 2, 1);
    put(add_meal(1, "Soup"), 1, flour, 1);
    put(add_meal(1000, "Stew"), 1, 2, 1);
    EXPECT_EQ(keys(), (Texts{"i2:4", "i2:1000", "i7:1", "i7:4"}));
}

TEST_F(Recommendations, AnIngredientHeldTwiceGivesOneRow) {
    expire(flour, 1, 40);
    put(bread, 1, flour, 3);
    EXPECT_EQ(keys(), Texts{"i7:4"});
}

TEST_F(Recommendations, OnlyLiveRecipesAndItemsCount) {
    expire(flour, 1, 40);
    meals[bread].in_use = 0;
    EXPECT_TRUE(keys().empty());
    meals[bread].in_use = 1;
    items[flour].in_use = 0;
    EXPECT_TRUE(keys().empty());
}

TEST_F(Recommendations, AnItemWithoutLotsGetsOne) {
    items[50].in_use = 1;
    items[50].name = "Rice";
    items[50].quantity = 3;
    items[50].last_restock_date = now - 60;
    items[50].storage_time = 20;
    put(bread, 1, 50, 1);
    EXPECT_EQ(keys(), Texts{"i50:4"});
    EXPECT_EQ(lots[50].lot_quantity[0], 3);
}

TEST_F(Recommendations, DamagedRecipesGiveNoRows) {
    expire(flour, 1, 40);
    put(bread, 1, -3, 1);
    put(bread, 2, 10001, 1);
    put(bread, 3, 32767, 1);
    EXPECT_EQ(keys(), Texts{"i7:4"});
}

TEST_F(Recommendations, TheRowsAreThoseOfTheWalkOverItemsAndRecipes) {
    reset_project_tables();
    fill_typical_project();
    platform.clock.time += 500;
    Texts walked;
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use != 1 || !(expiring_quantity(item) > 0)) continue;
        for (i16 recipe = 1; recipe <= meal_capacity; ++recipe) {
            if (!meal_uses_item(item, recipe)) continue;
            walked.push_back("i" + std::to_string(item) + ":" + std::to_string(recipe));
        }
    }
    EXPECT_GT(walked.size(), 50u);
    EXPECT_EQ(keys(), walked);
}

TEST_F(Recommendations, KeysNameItemAndRecipe) {
    EXPECT_EQ(recommended_item("i7:4"), 7);
    EXPECT_EQ(recommended_recipe("i7:4"), 4);
    EXPECT_EQ(recommended_item("i7"), 0);
    EXPECT_EQ(recommended_recipe("i7"), 0);
}

class AddingRecommendations : public Recommendations {
  protected:
    AddingRecommendations() { open_june(2); }

    void expect_popup_input(std::optional<std::string> typed) {
        platform.boxes.expect_input("Enter quantity to add", "Add Meal", "", std::move(typed));
    }
    void expect_double_click_input(std::optional<std::string> typed) {
        platform.boxes.expect_input("Enter quantity to add", "Add", "", std::move(typed));
    }
};

TEST_F(AddingRecommendations, ThePopupPlansTheQuantity) {
    expect_popup_input("2.5");
    add_recommended_meal("i7:4");
    EXPECT_EQ(days[1].planned_meal[1], bread);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 2.5);
    expect_date(1, 6, 2, 2024);
}

TEST_F(AddingRecommendations, ADecimalCommaIsUnderstood) {
    expect_popup_input("2,5");
    add_recommended_meal("i7:4");
    EXPECT_EQ(day_quantities[1].meal_servings[1], 2.5);
}

TEST_F(AddingRecommendations, ThePopupPlansAQuantityOfZeroToo) {
    for (const char* typed : {"0", "two", ""}) {
        days[1] = {};
        expect_popup_input(typed);
        EXPECT_TRUE(add_recommended_meal("i7:4"));
        EXPECT_EQ(days[1].planned_meal[1], bread);
        EXPECT_EQ(day_quantities[1].meal_servings[1], 0);
        expect_date(1, 6, 2, 2024);
    }
}

TEST_F(AddingRecommendations, ThePopupCancelledChangesNothing) {
    expect_popup_input(std::nullopt);
    EXPECT_FALSE(add_recommended_meal("i7:4"));
    expect_free(1);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(day_changed, 0);
}

TEST_F(AddingRecommendations, ARecipeDeletedWhileItsAmountIsAskedForIsNotPlanned) {
    const auto dies = [] { meals[bread].in_use = 0; };
    platform.boxes.expect_input("Enter quantity to add", "Add Meal", "", "2").during(dies);
    EXPECT_FALSE(add_recommended_meal("i7:4"));
    EXPECT_FALSE([this] {  // and one that was dead before
        expect_double_click_input("2");
        return add_recommended_meal_unless_zero("i7:4");
    }());
    expect_free(1);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(AddingRecommendations, ADayAuditedWhileTheAmountIsAskedForStays) {
    add_day(1, 6, 2, 2024);
    open_june(2);
    platform.boxes.expect_input("Enter quantity to add", "Add", "", "2").during([] {
        days[1].audited = -1;
    });
    EXPECT_FALSE(add_recommended_meal_unless_zero("i7:4"));
    EXPECT_EQ(days[1].planned_meal[1], 0);
}

TEST_F(AddingRecommendations, ADoubleClickPlansTheQuantity) {
    expect_double_click_input("2.5");
    add_recommended_meal_unless_zero("i7:4");
    EXPECT_EQ(days[1].planned_meal[1], bread);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 2.5);
}

TEST_F(AddingRecommendations, ADoubleClickAnsweredZeroPlansNothing) {
    for (const auto& typed : {std::optional<std::string>("0"), std::optional<std::string>(""),
                              std::optional<std::string>()}) {
        expect_double_click_input(typed);
        add_recommended_meal_unless_zero("i7:4");
    }
    expect_free(1);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(AddingRecommendations, AKeyWithoutAColonAsksNothing) {
    add_recommended_meal("i7");
    add_recommended_meal_unless_zero("");
    expect_free(1);
}

}  // namespace
}  // namespace tavernook
