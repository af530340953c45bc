// The planner while records change: by other screens, and while one of its boxes stands open.
#include <QScrollBar>
#include <QSignalSpy>

#include "screens/parts/rows_model.h"
#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

constexpr const char* recipe_gone = "This recipe is not there any more.";
constexpr const char* item_gone = "This item is not there any more.";
constexpr const char* audited = "Wednesday, May 15 is audited. Press \"Edit Audited Day\" first.";

class PlannerChanges : public MealPlanTest {
  protected:
    void SetUp() override {
        MealPlanTest::SetUp();
        expiration_warning_days = 10;
    }
    static void plan_today() {
        put_day(1, 5, 15);
        put_recipe_on(1, 4, soup, 2);
        put_item_on(1, 2, milk, 500);
    }
    // With 10 warning days a lot counts from 9 days past its date on; today is day 45427.
    static void expire(i16 item) { lots[item].expiration_date[0] = 45427 - 9; }
    static void delete_recipe(i16 recipe) {
        meals[recipe] = MealRecord{};
        changed_elsewhere();
    }
    ExpectedBox& expect_amount_box(const char* answer) {
        return platform.boxes.expect_input("Enter quantity to add", "Add", "", answer);
    }
    ExpectedBox& expect_quantity_box(const char* present, const char* answer) {
        return platform.boxes.expect_input("Type new Quantity", "Modify Quantity", present, answer);
    }
    Texts recommended_meals() { return column(recommended()); }
    std::string recommended_key() {
        return recommended().currentIndex().data(RowsModel::key_role).toString().toStdString();
    }
};

// --- what is not there any more ----------------------------------------------------------------

TEST_F(PlannerChanges, NothingIsPlannedThatIsNotThere) {
    open_planner();
    for (const i16 recipe : {8, 1000, 5000, 0, -1}) {
        say(QString());
        planner().add_meal(recipe, 1);
        EXPECT_EQ(panel(1), recipe_gone) << recipe;
    }
    for (const i16 item : {9, 10000, 20000, 0, -1}) {
        say(QString());
        planner().Add_Item(item, 1);
        EXPECT_EQ(panel(1), item_gone) << item;
    }
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(days[1], DayRecord{});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerChanges, ARecipeDeletedWhileItsAmountIsAskedIsNotPlanned) {
    expire(milk);
    open_planner();
    expect_amount_box("2").during([] { delete_recipe(soup); });
    double_click_row(recommended(), 0);
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(panel(1), recipe_gone);
    EXPECT_EQ(recommended_meals(), Texts{});
}

TEST_F(PlannerChanges, NorIsTheOneThatTookItsPlace) {
    expire(milk);
    open_planner();
    changed_elsewhere();
    expect_amount_box("2").during([] {
        delete_recipe(soup);
        put_recipe(soup, "Cake", 1);
        changed_elsewhere();
    });
    double_click_row(recommended(), 0);
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(panel(1), recipe_gone);
}

TEST_F(PlannerChanges, ADayAuditedWhileABoxIsOpenStays) {
    plan_today();
    expire(milk);
    open_planner();
    const auto audit = [] {
        days[1].audited = -1;
        changed_elsewhere();
    };
    expect_amount_box("2").during(audit);
    double_click_row(recommended(), 0);
    EXPECT_EQ(panel(1), audited);
    days[1].audited = 0;
    changed_elsewhere();
    select_row(0);
    expect_quantity_box("2", "9").during(audit);
    press("F2");
    EXPECT_EQ(panel(1), audited);
    EXPECT_EQ(plan_shown(), (Texts{"Soup 2 Cup(s)", "Milk 500 gram(s)"}));
}

TEST_F(PlannerChanges, TheQuantityOfARowThatWentMeanwhileIsNotSet) {
    plan_today();
    open_planner();
    select_row(0);
    expect_quantity_box("2", "9").during([] {
        days[1].planned_meal[4] = 0;
        changed_elsewhere();
    });
    press("F2");
    EXPECT_EQ(panel(1), "This row is not there any more.");
    EXPECT_EQ(day_quantities[1].meal_servings[4], 2);
    select_row(0);
    expect_quantity_box("500", "9").during([] {
        items[milk] = ItemRecord{};
        changed_elsewhere();
        put_item(milk, "Cream", 1, 1, 1);
        changed_elsewhere();
    });
    press("F2");
    EXPECT_EQ(panel(1), "This row is not there any more.");
    EXPECT_EQ(day_quantities[1].item_quantity[2], 500);
}

TEST_F(PlannerChanges, ARowOfWhatWasDeletedOpensNothing) {
    plan_today();
    open_planner();
    meals[soup] = MealRecord{};
    items[milk] = ItemRecord{};
    double_click_row(day_list(), 0);
    EXPECT_EQ(panel(1), recipe_gone);
    EXPECT_EQ(calls.entries, Texts{});
    double_click_row(day_list(), 1);
    EXPECT_EQ(panel(1), item_gone);
    EXPECT_FALSE(is_open("FoodInventory"));
}

// --- what is shown follows ---------------------------------------------------------------------

TEST_F(PlannerChanges, NamesPlansAndTotalsFollowWithoutAWord) {
    plan_today();
    open_planner();
    meals[soup].name = "Broth";
    items[milk].cost = 4;
    day_quantities[1].meal_servings[4] = 0;
    changed_elsewhere();
    EXPECT_EQ(plan_shown(), (Texts{"Broth 0 Cup(s)", "Milk 500 gram(s)"}));
    EXPECT_EQ(grid().cell(may_15).names, (QStringList{"Broth", "Milk"}));
    EXPECT_EQ(label("cost_total"), "$2.00");
    units[11].name = "g";
    changed_elsewhere();
    EXPECT_EQ(plan_shown().back(), "Milk 500 g");
}

TEST_F(PlannerChanges, ADayThatWasDeletedElsewhereLeavesItsDateEmpty) {
    plan_today();
    put_day(2, 5, 14);
    open_planner();
    days[1] = DayRecord{};
    changed_elsewhere();
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(label("day_state"), "Nothing planned yet");
    EXPECT_FALSE(grid().cell(may_15).planned);
    EXPECT_EQ(label("cost_total"), "$0.00");
    planner().add_meal(pie, 1);
    EXPECT_EQ(plan_shown(), Texts{"Pie 1 Cup(s)"});
    EXPECT_TRUE(grid().cell(may_15 - 1).planned);
}

TEST_F(PlannerChanges, WhatIsTypedAndSelectedStays) {
    plan_today();
    open_planner();
    select_row(1);
    entry().setFocus();
    type("4006");
    items[milk].name = "Whole Milk";
    put_day(2, 5, 16);
    changed_elsewhere();
    EXPECT_EQ(entry().text(), "4006");
    EXPECT_EQ(planner().selected_day_key(), "i3:2");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(told_date(), "5/15/2024");
}

TEST_F(PlannerChanges, RecommendationsFollowTheLots) {
    open_planner();
    EXPECT_EQ(recommended_meals(), Texts{});
    expire(milk);
    changed_elsewhere();
    EXPECT_EQ(recommended_meals(), Texts{"Soup"});
    EXPECT_NE(label("Label4"), "Tavernook has no meal recommendations at this time.");
    delete_recipe(soup);
    EXPECT_EQ(recommended_meals(), Texts{});
    EXPECT_EQ(focused(), "Text1");
}

TEST_F(PlannerChanges, RecommendationsAreNotWorkedOutAgainAtEachStep) {
    expire(milk);
    open_planner();
    changed_elsewhere();
    QAbstractItemModel* model = recommended().model();
    QSignalSpy reset(model, &QAbstractItemModel::modelReset);
    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    QSignalSpy moved(model, &QAbstractItemModel::layoutChanged);
    const auto signals_so_far = [&] { return reset.size() + changed.size() + moved.size(); };
    press("Right");
    scan("tvk7");
    press("Delete");
    changed_elsewhere();
    EXPECT_EQ(signals_so_far(), 0);
    lots[milk].lot_quantity[0] = 2;
    changed_elsewhere();
    EXPECT_EQ(column(recommended(), 2), Texts{"2"});
    meals[pie].ingredient_item[1] = milk;
    changed_elsewhere();
    EXPECT_EQ(recommended_meals(), (Texts{"Soup", "Pie"}));
    EXPECT_GT(signals_so_far(), 0);
}

TEST_F(PlannerChanges, RecommendationsKeepTheirPlaceWhenOthersCome) {
    for (i16 item = 100; item < 140; ++item) {
        put_item(item, "Tin", 1, 1, 1);
        expire(item);
        meals[pie].ingredient_item[static_cast<std::size_t>(item - 99)] = item;
    }
    open_planner();
    click_row(recommended(), 20);
    EXPECT_EQ(recommended_key(), "i120:9");
    const int scrolled = recommended().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    expire(milk);
    changed_elsewhere();
    EXPECT_EQ(recommended().model()->rowCount(), 41);
    EXPECT_EQ(recommended_key(), "i120:9");
    EXPECT_EQ(recommended().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(recommended().verticalScrollBar()->value(), scrolled);
}

TEST_F(PlannerChanges, AnotherDayIsFollowedToo) {
    lots[milk].expiration_date[0] = 45427 - 8;  // one day is missing
    open_planner();
    EXPECT_EQ(recommended_meals(), Texts{});
    platform.clock.time += 1;
    changed_elsewhere();
    EXPECT_EQ(recommended_meals(), Texts{"Soup"});
    EXPECT_TRUE(grid().cell(may_16).today);
    EXPECT_EQ(told_date(), "5/15/2024");
}

TEST_F(PlannerChanges, AnAuditElsewhereClosesTheDayShown) {
    plan_today();
    open_planner();
    days[1].audited = -1;
    changed_elsewhere();
    EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
    EXPECT_FALSE(part<QAction>("Toolbar2_1").isEnabled());
    EXPECT_TRUE(part<QAction>("Toolbar2_4").isEnabled());
}

}  // namespace
}  // namespace tavernook
