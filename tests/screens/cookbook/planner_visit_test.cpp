// The planner asks the recipe manager for a recipe for one of its dates, and other ways onto the
// plan. It is Wednesday, 15 May 2024.
#include <QLabel>

#include "planning/day_places.h"
#include "planning/planner_state.h"
#include "screens/cookbook/mealbuilder_fixture.h"
#include "screens/planner/calendar_grid.h"

namespace tavernook {
namespace {

constexpr const char* days_full =
    "No more Days left.  It is recommended that you delete some of the older days to allow for "
    "more days.";

class PlannerVisit : public MealbuilderTest {
  protected:
    void SetUp() override {
        MealbuilderTest::SetUp();
        put_household();
    }
    QWidget& planner() { return *window.registry().loaded("MealPlan"); }
    void choose_date(int cell) {
        auto& grid = *planner().findChild<CalendarGrid*>("calendar_grid");
        QTest::mouseClick(&grid, Qt::LeftButton, {}, grid.cell_rect(cell).center());
    }
    void press_on_recipe(const char* key) {
        open();
        tree().setFocus();
        press(key);
        settle();
    }
    // "Add Recipe" for 20 May.
    void visit() {
        window.registry().show("MealPlan");
        settle();
        choose_date(22);
        planner().findChild<QAction*>("Toolbar2_1")->trigger();
        settle();
        ASSERT_TRUE(is_open());
        tree().setFocus();
    }
    bool is_planner_in_front() {
        auto* area = window.findChild<QMdiArea*>("mdi_area");
        return area->activeSubWindow() == planner().parentWidget();
    }
    ExpectedBox& expect_amount(std::optional<std::string> answer) {
        return platform.boxes.expect_input("Meal Quantity to Add. 1 Servings = 1 ", "Meal Quantity",
                                           "1", std::move(answer));
    }
    static void expect_nothing_planned() {
        EXPECT_TRUE(live_days_of({2024, 5, 20}).empty());
        EXPECT_EQ(project_modified, i16_false);
    }
};

TEST_F(PlannerVisit, TheRecipeManagerSaysForWhichDate) {
    open();
    EXPECT_FALSE(part<QLabel>("planner_notice").isVisible());
    visit();
    EXPECT_TRUE(part<QLabel>("planner_notice").isVisible());
    EXPECT_EQ(label("planner_notice"),
              "For Monday, May 20: press Enter on a recipe, or double click it. Esc goes back to "
              "the planner without one.");
}

TEST_F(PlannerVisit, EnterOnARecipePlansItAndGoesBack) {
    visit();
    mark("2c");
    expect_amount("2");
    press("Return");
    settle();
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(is_planner_in_front());
    ASSERT_EQ(live_days_of({2024, 5, 20}), std::vector<i16>{1});
    EXPECT_EQ(days[1].planned_meal[1], 2);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 2);
    EXPECT_EQ(hint(), "Porridge is planned on Monday, May 20: 2 now.");
}

TEST_F(PlannerVisit, SoDoesADoubleClick) {
    visit();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, middle_of("3c"));
    settle();
    expect_amount("1");
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle_of("3c"));
    settle();
    EXPECT_EQ(days[1].planned_meal[1], 3);
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(is_planner_in_front());
}

TEST_F(PlannerVisit, SoDoesAddToPlan) {
    visit();
    mark("1c");
    expect_amount("1");
    command("Toolbar1_5");
    EXPECT_EQ(days[1].planned_meal[1], 1);
    EXPECT_TRUE(is_planner_in_front());
}

TEST_F(PlannerVisit, EscapeAndCloseGoBackWithoutPlanning) {
    for (const bool by_key : {true, false}) {
        visit();
        mark("1c");
        if (by_key) {
            press("Escape");
        } else {
            click("close_button");
        }
        settle();
        EXPECT_FALSE(is_open());
        EXPECT_TRUE(is_planner_in_front());
        expect_nothing_planned();
    }
}

TEST_F(PlannerVisit, ACancelledAmountStaysAndChangesNothing) {
    visit();
    mark("1c");
    for (const auto& answer : {std::optional<std::string>(), std::optional<std::string>("0"),
                               std::optional<std::string>("many")}) {
        expect_amount(answer);
        press("Return");
        settle();
        EXPECT_TRUE(is_open());
        expect_nothing_planned();
    }
    mark("2r");
    press("Return");  // a category opens and closes
    EXPECT_TRUE(is_open());
}

TEST_F(PlannerVisit, ADateThatThePlannerLeftIsRefused) {
    const char* gone =
        "The planner does not show Monday, May 20 any more. Press \"Add Recipe\" there again.";
    visit();
    mark("1c");
    choose_date(23);
    press_on_recipe("Return");
    EXPECT_EQ(hint(), gone);
    selected_day = 20;
    expect_amount("1").during([] { selected_day = 21; });
    press_on_recipe("Return");
    EXPECT_EQ(hint(), gone);
    selected_day = 20;
    planner().parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    press_on_recipe("Return");
    EXPECT_EQ(hint(), gone);
    EXPECT_TRUE(is_open());
    expect_nothing_planned();
}

// The slot of the day was taken meanwhile, by an audited day of another date.
TEST_F(PlannerVisit, StaysWhereThePlannerRefuses) {
    visit();
    mark("1c");
    expect_amount("1").during([] {
        days[current_day].in_use = 1;
        days[current_day].year = 2020;
        days[current_day].audited = -1;
    });
    press("Return");
    settle();
    EXPECT_TRUE(is_open());
    expect_nothing_planned();
}

TEST_F(PlannerVisit, ADayAuditedMeanwhileIsRefused) {
    days[4].in_use = 1;
    days[4].year = 2024;
    days[4].month = 5;
    days[4].day = 20;
    visit();
    mark("1c");
    const auto audit = [] {
        days[4].audited = -1;
        end_of_step();
    };
    expect_amount("1").during(audit);
    press("Return");
    EXPECT_EQ(hint(),
              "Monday, May 20 is audited by now. Press \"Edit Audited Day\" in the planner first.");
    press("Return");  // not even asked
    EXPECT_EQ(days[4].planned_meal[1], 0);
    EXPECT_TRUE(is_open());
}

TEST_F(PlannerVisit, ARecipeThatGoesMeanwhileIsRefused) {
    visit();
    mark("1c");
    expect_amount("1").during([] {
        meals[1].in_use = 0;
        end_of_step();
    });
    press("Return");
    EXPECT_EQ(hint(), "The recipe is not there any more.");
    expect_nothing_planned();
}

TEST_F(PlannerVisit, ARecipeShownForSomebodyElseEndsTheVisit) {
    visit();
    screen().set_meal(3);
    EXPECT_FALSE(part<QLabel>("planner_notice").isVisible());
    tree().setFocus();
    press("Return");
    EXPECT_EQ(focused(), "recipe_text");
    expect_nothing_planned();
}

TEST_F(PlannerVisit, WithoutAVisitADoubleClickPlansNothing) {
    open();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, middle_of("3c"));
    settle();
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, middle_of("3c"));
    EXPECT_EQ(project_modified, i16_false);
}

// The planner is not open yet, and there is no room for its date.
TEST_F(PlannerVisit, AddToPlanTellsOfAFullTableFirst) {
    for (i16 slot = 1; slot <= day_capacity; ++slot) {
        days[slot].in_use = 1;
        days[slot].year = 1990;
        days[slot].month = 1;
        days[slot].day = 1;
    }
    open();
    mark("1c");
    expect_amount("1");
    platform.boxes.expect_message(days_full).during([] {
        EXPECT_EQ(days[day_capacity].planned_meal[1], 0);
        EXPECT_EQ(days[day_capacity].year, 1990);
    });
    command("Toolbar1_5");
    EXPECT_EQ(days[day_capacity].planned_meal[1], 1);
    EXPECT_EQ(days[day_capacity].year, 2024);
    window.registry().show("MealPlan");
    settle();
}

}  // namespace
}  // namespace tavernook
