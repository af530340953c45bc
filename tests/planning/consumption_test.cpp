// What a day takes out of the stock when it names what is not there.
#include "planning/consumption.h"

#include "planning/planning_fixture.h"

namespace tavernook {
namespace {

constexpr i16 day = 5;
constexpr i16 bread = 4;
constexpr i16 flour = 7;
constexpr i16 gone = 20;

// A bag of flour gives 4 servings of 0.5 cups; 10 bags are there.
class Consumption : public PlanningTest {
  protected:
    Consumption() {
        add_item(flour);
        items[flour].serving_size = 0.5;
        items[flour].servings_per_qty_unit = 4;
        fill_lots(flour, 10);
        items[gone].serving_size = items[gone].servings_per_qty_unit = 1;  // not live
        add_meal(bread);
        add_day(day, 6, 2, 2024);
        plan_item(day, 2, flour, 2);  // one bag
    }

    // Whatever stands beside it, the flour is taken and the day is done.
    static void expect_flour_alone() {
        consume_day(day);
        EXPECT_EQ(items[flour].quantity, 9);
        EXPECT_NE(days[day].audited, 0);
    }
};

TEST_F(Consumption, APlannedItemBeyondTheTableTakesNothing) {
    plan_item(day, 1, 10001, 2);
    expect_flour_alone();
}

TEST_F(Consumption, ADeletedPlannedItemTakesNothing) {
    plan_item(day, 1, gone, 2);
    expect_flour_alone();
    EXPECT_EQ(lot_total(gone), 0);
}

TEST_F(Consumption, APlannedRecipeBeyondTheTableTakesNothing) {
    plan(day, 1, 1001, 2);
    expect_flour_alone();
}

TEST_F(Consumption, ADeletedPlannedRecipeTakesNothing) {
    put(900, 1, flour, 1);
    meal_serving_size[900] = 1;
    plan(day, 1, 900, 2);
    expect_flour_alone();
}

TEST_F(Consumption, AnIngredientBeyondTheTableTakesNothing) {
    put(bread, 1, 10001, 1);
    put(bread, 2, -1, 1);
    plan(day, 1, bread, 1);
    expect_flour_alone();
}

TEST_F(Consumption, ADeletedIngredientTakesNothing) {
    put(bread, 1, gone, 1);
    plan(day, 1, bread, 1);
    expect_flour_alone();
}

}  // namespace
}  // namespace tavernook
