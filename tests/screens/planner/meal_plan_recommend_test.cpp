// The recommended meals of the planner, and its command "Refresh".
#include <QGroupBox>
#include <QHeaderView>
#include <QScrollBar>

#include "screens/parts/house_colours.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/screen_switch.h"
#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

constexpr const char* nothing = "Tavernook has no meal recommendations at this time.";
constexpr const char* found =
    "The meals listed below have expired items or are going to expire within the next 10 days.  "
    "Tavernook recommends using these meals or items soon.  Double Click on the Meal to add it to "
    "the Meal Plan.";

// With 10 warning days a lot counts from 9 days past its date on; today is day 45427.
class PlannerRecommendations : public MealPlanTest {
  protected:
    void SetUp() override {
        MealPlanTest::SetUp();
        expiration_warning_days = 10;
        meals[pie].ingredient_item[50] = flour;
        meals[pie].ingredient_item[2] = milk;
    }
    static void expire(i16 item) { lots[item].expiration_date[0] = 45427 - 9; }

    Texts rows() {
        Texts texts;
        const QAbstractItemModel& model = *recommended().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int n = 0; n < 3; ++n) cells << model.index(row, n).data().toString();
            texts.push_back(cells.join('/').toStdString());
        }
        return texts;
    }
    void expect_quantity_box(const char* title, std::optional<std::string> answer) {
        platform.boxes.expect_input("Enter quantity to add", title, "", std::move(answer));
    }
};

TEST_F(PlannerRecommendations, AreShownByOpeningTheScreen) {
    expire(milk);
    expire(flour);
    open_planner();
    EXPECT_EQ(rows(), (Texts{"Soup/Milk/6", "Pie/Milk/6", "Pie/Flour/2"}));
    EXPECT_EQ(label("Label4"), found);
    EXPECT_EQ(part<QGroupBox>("recommendations_panel").title(), "Recommended Meals");
    const QModelIndex first = recommended().model()->index(0, 0);
    EXPECT_EQ(first.data(RowsModel::key_role).toString(), "i3:7");
    EXPECT_EQ(recommended().model()->headerData(1, Qt::Horizontal).toString(), "Item");
    EXPECT_EQ(recommended().model()->headerData(2, Qt::Horizontal).toString(), "Quantity");
    EXPECT_EQ(focused(), "Text1");
}

TEST_F(PlannerRecommendations, TellWhatIsPastItsDateByIconColourAndWord) {
    expire(milk);
    open_planner();
    const auto cell = [this](int column, int role) {
        return recommended().model()->index(0, column).data(role);
    };
    EXPECT_EQ(cell(2, Qt::DisplayRole), "6");
    EXPECT_FALSE(cell(2, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(cell(2, Qt::ForegroundRole).value<QColor>(),
              house_colour(HouseColour::past_date, recommended().palette()));
    EXPECT_EQ(cell(2, Qt::AccessibleDescriptionRole), "Expired");
    EXPECT_EQ(cell(2, Qt::ToolTipRole), "Expired");
    EXPECT_FALSE(cell(1, Qt::ForegroundRole).isValid());
}

TEST_F(PlannerRecommendations, WithoutAnyTheCaptionSaysSo) {
    open_planner();
    EXPECT_EQ(rows(), Texts{});
    EXPECT_EQ(label("Label4"), nothing);
    EXPECT_EQ(recommended().accessibleDescription().toStdString(),
              nothing + std::string(" Recipes that use up what is past its date come here."));
}

TEST_F(PlannerRecommendations, ADoubleClickAddsWhatIsNotZero) {
    expire(milk);
    open_planner();
    expect_quantity_box("Add", "2");
    double_click_row(recommended(), 0);
    EXPECT_EQ(plan_shown(), Texts{"Soup 2 Cup(s)"});
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(panel(1), "Soup is planned on Wednesday, May 15: 2 Cup(s) now.");
    expect_quantity_box("Add", "0");
    double_click_row(recommended(), 1);
    expect_quantity_box("Add", std::nullopt);
    double_click_row(recommended(), 1);
    EXPECT_EQ(plan_shown(), Texts{"Soup 2 Cup(s)"});
    EXPECT_EQ(panel(1), "");
}

TEST_F(PlannerRecommendations, ThePopupAddsWhateverIsTyped) {
    expire(milk);
    open_planner();
    click_row(recommended(), 1);
    expect_quantity_box("Add Meal", "0");
    choose_in_popup(recommended(), "Recommendations_POPUP", "Recommend_Add_Meal");
    EXPECT_EQ(plan_shown(), Texts{"Pie 0 Cup(s)"});
    EXPECT_EQ(focused(), "Text1");
}

TEST_F(PlannerRecommendations, ThePopupCancelledChangesNothing) {
    expire(milk);
    open_planner();
    click_row(recommended(), 1);
    expect_quantity_box("Add Meal", std::nullopt);
    choose_in_popup(recommended(), "Recommendations_POPUP", "Recommend_Add_Meal");
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(days[1], DayRecord{});
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(panel(1), "");
    EXPECT_EQ(focused(), "Text1");
}

TEST_F(PlannerRecommendations, ARecipeDeletedWhileThePopupAsksIsNotPlanned) {
    expire(milk);
    open_planner();
    click_row(recommended(), 0);
    platform.boxes.expect_input("Enter quantity to add", "Add Meal", "", "2").during([] {
        meals[soup].in_use = 0;
    });
    choose_in_popup(recommended(), "Recommendations_POPUP", "Recommend_Add_Meal");
    EXPECT_EQ(days[1], DayRecord{});
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(panel(1), "This recipe is not there any more.");
}

TEST_F(PlannerRecommendations, ItemAndRecipeOfARowAreShown) {
    expire(milk);
    open_planner();
    click_row(recommended(), 0);
    choose_in_popup(recommended(), "Recommendations_POPUP", "Recommend_View_Meal");
    EXPECT_EQ(calls.entries, Texts{"Mealbuilder set_meal 7"});
    show_screen("MealPlan");
    settle();
    click_row(recommended(), 0);
    choose_in_popup(recommended(), "Recommendations_POPUP", "Recommend_View_Item");
    ASSERT_TRUE(is_open("FoodInventory"));
    EXPECT_EQ(food_inventory()->getindex(), milk);
}

TEST_F(PlannerRecommendations, NothingIsAskedOnAnAuditedDay) {
    expire(milk);
    put_day(1, 5, 15, -1);
    open_planner();
    double_click_row(recommended(), 0);
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(panel(1), "Wednesday, May 15 is audited. Press \"Edit Audited Day\" first.");
}

TEST_F(PlannerRecommendations, RefreshAuditsAndLooksAgain) {
    put_day(1, 5, 14);
    put_item_on(1, 1, milk, 500);
    items[flour].stock_quantity = 5;
    items[flour].restock_quantity = 3;
    open_planner();
    click_cell(may_15 - 1);
    EXPECT_EQ(label("day_state"), "Planned");
    EXPECT_EQ(rows(), Texts{});
    expire(milk);
    click("Command2");
    EXPECT_EQ(rows(), (Texts{"Soup/Milk/5.5", "Pie/Milk/5.5"}));
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_TRUE(grid().cell(may_15 - 1).audited);
    EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
    EXPECT_NE(items[flour].on_shopping_list, 0);
    EXPECT_TRUE(part("refresh_marker").isHidden());
    EXPECT_EQ(told_date(), "5/14/2024");
    EXPECT_EQ(plain(part<QPushButton>("Command2").text()), "Refresh");
}

TEST_F(PlannerRecommendations, RefreshBringsTheOpenShoppingListUpToDate) {
    FakeShoppingList list(calls);
    open_planner();
    calls.clear();
    click("Command2");
    EXPECT_EQ(std::count(calls.entries.begin(), calls.entries.end(), "ShoppingList populate_list"),
              1);
}

TEST_F(PlannerRecommendations, F5Refreshes) {
    open_planner();
    expire(flour);
    press("F5");
    EXPECT_EQ(rows(), Texts{"Pie/Flour/2"});
}

TEST_F(PlannerRecommendations, SelectionAndScrollStayThroughARefresh) {
    for (i16 item = 100; item < 160; ++item) {
        put_item(item, "Tin", 1, 1, 1);
        expire(item);
        meals[soup].ingredient_item[2] = item;
        meals[pie].ingredient_item[static_cast<std::size_t>(item - 100) % 40 + 3] = item;
    }
    open_planner();
    const int middle = recommended().model()->rowCount() / 2;
    click_row(recommended(), middle);
    const QString key = recommended().currentIndex().data(RowsModel::key_role).toString();
    const int scrolled = recommended().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    press("F5");
    EXPECT_EQ(recommended().currentIndex().data(RowsModel::key_role).toString(), key);
    EXPECT_EQ(recommended().verticalScrollBar()->value(), scrolled);
}

TEST_F(PlannerRecommendations, SortByAClickAndTheSelectionComesAlong) {
    expire(milk);
    expire(flour);
    open_planner();
    click_row(recommended(), 0);
    recommended().header()->setSortIndicator(1, Qt::AscendingOrder);
    EXPECT_EQ(rows(), (Texts{"Pie/Flour/2", "Soup/Milk/6", "Pie/Milk/6"}));
    EXPECT_EQ(recommended().currentIndex().row(), 1);
    recommended().header()->setSortIndicator(0, Qt::DescendingOrder);
    EXPECT_EQ(rows(), (Texts{"Soup/Milk/6", "Pie/Milk/6", "Pie/Flour/2"}));
    recommended().header()->setSortIndicator(2, Qt::AscendingOrder);
    EXPECT_EQ(rows(), (Texts{"Pie/Flour/2", "Soup/Milk/6", "Pie/Milk/6"}));
    recommended().header()->setSortIndicator(-1, Qt::AscendingOrder);
    EXPECT_EQ(rows(), (Texts{"Soup/Milk/6", "Pie/Milk/6", "Pie/Flour/2"}));
    EXPECT_EQ(recommended().currentIndex().row(), 0);
}

TEST_F(PlannerRecommendations, AnotherScreenKeepsTheFocus) {
    open_planner();
    show_screen("FoodInventory");
    settle();
    QWidget* before = QApplication::focusWidget();
    ASSERT_NE(before, nullptr);
    planner().populate_meal_recommendations();
    EXPECT_EQ(QApplication::focusWidget(), before);
}

}  // namespace
}  // namespace tavernook
