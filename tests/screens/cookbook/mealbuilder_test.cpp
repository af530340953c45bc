// The commands of the recipe manager, its keys, and what brings it up and takes it away.
#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <set>

#include "core/catagories.h"
#include "core/changes.h"
#include "screens/cookbook/mealbuilder_fixture.h"

namespace tavernook {
namespace {

class RecipeManager : public MealbuilderTest {
  protected:
    // A screen of that name that does nothing, so that the program knows it.
    void add_planner_screen() {
        window.registry().add("MealPlan", [] { return new QLabel("Planner"); });
    }
    bool is_in_front(const char* name) {
        QWidget* loaded = window.registry().loaded(QLatin1String(name));
        auto* area = window.findChild<QMdiArea*>("mdi_area");
        return loaded != nullptr && area->activeSubWindow() == loaded->parentWidget();
    }
    void expect_name(const char* answer) {
        platform.boxes.expect_input("Enter a new recipe name", "New Recipe", "", answer);
    }
    void expect_category(const char* answer) {
        platform.boxes.expect_input("Enter name of new Recipe catagory.", "New Recipe Catagory", "",
                                    answer);
    }
    static void plan_recipe(i16 recipe) {
        days[1].in_use = 1;
        days[1].month = 5;
        days[1].day = 17;
        days[1].year = 2024;
        days[1].planned_meal[1] = recipe;
        day_quantities[1].meal_servings[1] = 1;
    }
};

TEST_F(RecipeManager, ItsToolbarHasItsCommandsInOrder) {
    open();
    std::vector<std::string> names;
    for (const QAction* action : part<QToolBar>("Toolbar1").actions()) {
        names.push_back(action->iconText().toStdString());
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"New Recipe", "New Category", "Delete", "Refresh",
                                        "Add to Plan", "Import Recipe...", "Export Recipe..."}));
}

TEST_F(RecipeManager, NewRecipeHangsWhereTheMarkedOneDoes) {
    put_household();
    open();
    mark("1c");
    expect_name("  Waffles ");
    command("Toolbar1_1");
    EXPECT_EQ(meals[4].name.trimmed(), "Waffles");
    EXPECT_EQ(meals[4].category, 2);
    EXPECT_EQ(meal_serving_size[4], 1);
    EXPECT_EQ(screen().get_mealid(), 4);
    EXPECT_EQ(marked(), "4c");
    EXPECT_EQ(label("recipe_heading"), "Waffles");
    EXPECT_TRUE(ingredients().empty());
    EXPECT_EQ(part<QLineEdit>("serving_size").text(), "1");
    EXPECT_EQ(pane_text(), "");
    EXPECT_FALSE(document().isReadOnly());
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(QApplication::focusWidget(), &document());
    EXPECT_EQ(label("Label2"), "\\recipes\\home000004.rtf\nBarcode Name: TVK4");
}

TEST_F(RecipeManager, NewRecipeUnderACategoryAndUnderTheRoot) {
    put_household();
    open();
    mark("2r");
    expect_name("Waffles");
    command("Toolbar1_1");
    EXPECT_EQ(meals[4].category, 2);
    mark("r0");
    expect_name("Roast");
    command("Toolbar1_1");
    EXPECT_EQ(meals[5].category, 0);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge Waffles ] Roast Stew ] ");
}

TEST_F(RecipeManager, NewRecipeComesInSightUnderAFilterAndAClosedCategory) {
    put_household();
    open();
    tree().collapse(model().index_of("2r"));
    mark("2r");
    part<QLineEdit>("filter").setText("porridge");
    mark("2c");
    expect_name("Waffles");
    command("Toolbar1_1");
    EXPECT_EQ(part<QLineEdit>("filter").text(), "");
    EXPECT_EQ(marked(), "4c");
    EXPECT_TRUE(tree().isExpanded(model().index_of("2r")));
}

TEST_F(RecipeManager, NoAnswerMakesNoRecipeAndNoCategory) {
    put_household();
    open();
    mark("1c");
    for (const bool empty : {true, false}) {
        platform.boxes.expect_input("Enter a new recipe name", "New Recipe", "",
                                    empty ? std::optional<std::string>(" ") : std::nullopt);
        command("Toolbar1_1");
        platform.boxes.expect_input("Enter name of new Recipe catagory.", "New Recipe Catagory", "",
                                    empty ? std::optional<std::string>("") : std::nullopt);
        command("Toolbar1_2");
    }
    EXPECT_EQ(meals[4].in_use, 0);
    EXPECT_EQ(catagories[3].in_use, 0);
    EXPECT_EQ(screen().get_mealid(), 1);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeManager, TheThousandthRecipeWarns) {
    for (i16 slot = 1; slot < 1000; ++slot) put_recipe(slot, "Soup");
    open();
    expect_name("Last");
    platform.boxes.expect_message(
        "You have reached the limitation of meals allowed in Tavernook.  It is recommended that "
        "you delete some meals to allow for some more room.");
    command("Toolbar1_1");
    EXPECT_EQ(meals[1000].name.trimmed(), "Last");
    EXPECT_EQ(screen().get_mealid(), 1000);
}

TEST_F(RecipeManager, NewCategoryHangsUnderTheMarkedOne) {
    put_household();
    open();
    mark("1c");
    expect_category("Sweet");
    command("Toolbar1_2");
    EXPECT_EQ(catagories[3].name.trimmed(), "Sweet");
    EXPECT_EQ(catagories[3].type, 32);
    EXPECT_EQ(catagories[3].parent, 2);
    EXPECT_EQ(marked(), "3r");
    EXPECT_EQ(project_modified, i16_true);
    mark("r0");
    part<QLineEdit>("filter").setText("pan");
    mark("r0");
    expect_category("Soups");
    command("Toolbar1_2");
    EXPECT_EQ(marked(), "4r");
    EXPECT_EQ(catagories[4].parent, 0);
    EXPECT_EQ(rows(), "[General [Breakfast [Sweet ] Pancakes Porridge ] [Soups ] Stew ] ");
}

TEST_F(RecipeManager, DeleteTakesTheRecipeAway) {
    put_household();
    open();
    tree().setFocus();
    mark("1c");
    press("Delete");
    settle();
    EXPECT_EQ(meals[1].in_use, 0);
    EXPECT_EQ(screen().get_mealid(), 0);
    EXPECT_EQ(rows(), "[General [Breakfast Porridge ] Stew ] ");
    EXPECT_TRUE(ingredients().empty());
    EXPECT_EQ(pane_text(), "");
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_EQ(label("recipe_heading"), "No recipe chosen");
    EXPECT_EQ(label("Label2"), "");
    EXPECT_EQ(marked(), "2c");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(hint(), "The recipe \"Pancakes\" is deleted.");
}

TEST_F(RecipeManager, APlannedRecipeStaysOnNo) {
    put_household();
    plan_recipe(1);
    open();
    mark("1c");
    platform.boxes
        .expect_message(
            "This Recipe is used in the Meal Planner on the following dates: DAY:5/17/2024, Press "
            "YES to delete the meal plans and the recipe or Press NO to cancel delete.",
            Answer::no)
        .during([this] { EXPECT_TRUE(document().isReadOnly()); });
    command("Toolbar1_3");
    EXPECT_EQ(meals[1].in_use, 1);
    EXPECT_EQ(screen().get_mealid(), 1);
    EXPECT_FALSE(document().isReadOnly());
    EXPECT_EQ(marked(), "1c");
}

TEST_F(RecipeManager, APlannedRecipeGoesWithItsPlansOnYes) {
    put_household();
    plan_recipe(1);
    open();
    mark("1c");
    platform.boxes.expect_message(
        "This Recipe is used in the Meal Planner on the following dates: DAY:5/17/2024, Press YES "
        "to delete the meal plans and the recipe or Press NO to cancel delete.",
        Answer::yes);
    platform.boxes.expect_message(
        "Do you want these changes to the Meal Planner to effect the Inventory?", Answer::no);
    command("Toolbar1_3");
    EXPECT_EQ(meals[1].in_use, 0);
    EXPECT_EQ(days[1].planned_meal[1], 0);
}

TEST_F(RecipeManager, TheRootCannotBeDeleted) {
    put_household();
    open();
    mark("r0");
    platform.boxes.expect_message("Can't Delete General Catagory.");
    command("Toolbar1_3");
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] Stew ] ");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeManager, AnEmptyCategoryGoesAtOnce) {
    put_household();
    put_catagory(3, "Soups");
    open();
    mark("3r");
    command("Toolbar1_3");
    EXPECT_EQ(catagories[3].in_use, 0);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] Stew ] ");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeManager, ACategoryGoesWithItsRecipesAfterAQuestion) {
    put_household();
    open();
    mark("1c");
    mark("2r");
    EXPECT_EQ(screen().get_mealid(), 1);
    platform.boxes.expect_message(
        "Deleting the category Breakfast also deletes all 2 recipes in it.  Press YES to delete "
        "them or press NO to keep everything.",
        Answer::yes);
    command("Toolbar1_3");
    EXPECT_EQ(rows(), "[General Stew ] ");
    EXPECT_EQ(screen().get_mealid(), 0);
    EXPECT_TRUE(ingredients().empty());
}

TEST_F(RecipeManager, ACategoryWithPlannedRecipesStays) {
    put_household();
    plan_recipe(2);
    open();
    mark("2r");
    platform.boxes.expect_message(
        "Cannot delete Category because meals within this category are planned.");
    command("Toolbar1_3");
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] Stew ] ");
}

TEST_F(RecipeManager, RefreshMarksTheProjectAndReadsAnew) {
    put_household();
    open();
    mark("1c");
    project_modified = i16_false;
    items[7].calories = 10;
    press("F5");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(label("total_calories"), "90");
}

TEST_F(RecipeManager, AddToPlanNeedsARecipe) {
    put_household();
    open();
    EXPECT_FALSE(part<QAction>("Toolbar1_5").isEnabled());
    mark("2c");
    EXPECT_TRUE(part<QAction>("Toolbar1_5").isEnabled());
    EXPECT_EQ(part<QAction>("Toolbar1_5").toolTip(),
              "Put this recipe on the day that the planner shows.");
}

TEST_F(RecipeManager, AddToPlanHandsTheQuantityOver) {
    put_household();
    meals[1].serving_size_units = 2;
    add_planner_screen();
    open();
    mark("1c");
    CallLog calls;
    FakeMealPlan planner(calls);
    const char* prompt = "Meal Quantity to Add. 1 Servings = 1 Cup(s)";
    project_modified = i16_false;
    platform.boxes.expect_input(prompt, "Meal Quantity", "1", "0");
    command("Toolbar1_5");
    platform.boxes.expect_input(prompt, "Meal Quantity", "1", "many");
    command("Toolbar1_5");
    platform.boxes.expect_input(prompt, "Meal Quantity", "1", std::nullopt);
    command("Toolbar1_5");
    EXPECT_EQ(project_modified, i16_false);
    platform.boxes.expect_input(prompt, "Meal Quantity", "1", " 2.5 cups");
    command("Toolbar1_5");
    platform.boxes.expect_input(prompt, "Meal Quantity", "1", "-1");
    command("Toolbar1_5");
    EXPECT_EQ(calls.entries,
              (std::vector<std::string>{"MealPlan add_meal 1 2.5", "MealPlan add_meal 1 -1"}));
}

TEST_F(RecipeManager, ARecipeThatGoesWhileItsQuantityIsAskedForIsNotPlanned) {
    put_household();
    open();
    mark("1c");
    CallLog calls;
    FakeMealPlan planner(calls);
    platform.boxes.expect_input("Meal Quantity to Add. 1 Servings = 1 ", "Meal Quantity", "1", "2")
        .during([] {
            meals[1].in_use = 0;
            look_for_changes();
            put_recipe(1, "Another One");
            look_for_changes();
        });
    command("Toolbar1_5");
    EXPECT_EQ(calls.entries, std::vector<std::string>{});
    EXPECT_EQ(hint(), "The recipe is not there any more.");
    EXPECT_EQ(screen().get_mealid(), 0);
    EXPECT_EQ(label("recipe_heading"), "No recipe chosen");
}

TEST_F(RecipeManager, AnotherRecipeInTheSameSlotIsNotTheOneOnShow) {
    put_household();
    open();
    mark("3c");
    meals[3].in_use = 0;
    end_of_step();
    put_recipe(3, "Goulash");
    end_of_step();
    EXPECT_EQ(screen().get_mealid(), 0);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] Goulash ] ");
    EXPECT_EQ(label("recipe_heading"), "No recipe chosen");
}

TEST_F(RecipeManager, AddToPlanLoadsThePlannerAndPlansOnTheDayItShows) {
    put_household();
    meals[1].serving_size_units = 2;
    open();
    mark("1c");
    platform.boxes.expect_input("Meal Quantity to Add. 1 Servings = 1 Cup(s)", "Meal Quantity", "1",
                                "3");
    command("Toolbar1_5");
    ASSERT_NE(meal_plan(), nullptr);
    EXPECT_EQ(days[1].in_use, 1);
    EXPECT_EQ(days[1].month, 5);  // 15 May 2024
    EXPECT_EQ(days[1].day, 15);
    EXPECT_EQ(days[1].year, 2024);
    EXPECT_EQ(days[1].planned_meal[1], 1);
    EXPECT_EQ(day_quantities[1].meal_servings[1], 3);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeManager, ThePlannerComesBackToTheFrontWhenItAskedForARecipe) {
    put_household();
    add_planner_screen();
    window.registry().show("MealPlan");
    open();
    screen().set_return(1);
    EXPECT_FALSE(is_in_front("MealPlan"));
    window.registry().show("FoodInventory");
    open();
    close();
    settle();
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(is_in_front("MealPlan"));
}

TEST_F(RecipeManager, WithoutAReturnNobodyIsBroughtBack) {
    add_planner_screen();
    open();
    click("close_button");
    settle();
    EXPECT_FALSE(is_open());
    EXPECT_EQ(window.registry().loaded("MealPlan"), nullptr);
}

TEST_F(RecipeManager, IsKnownAsLongAsItIsLoaded) {
    EXPECT_EQ(mealbuilder(), nullptr);
    open();
    EXPECT_EQ(mealbuilder(), &screen());
    close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(mealbuilder(), nullptr);
}

TEST_F(RecipeManager, ArrowKeysShowOneRecipeAfterTheOther) {
    put_household();
    open();
    tree().setFocus();
    mark("2r");
    EXPECT_EQ(screen().get_mealid(), 0);
    press("Down");
    settle();
    EXPECT_EQ(screen().get_mealid(), 1);
    press("Down");
    settle();
    EXPECT_EQ(label("recipe_heading"), "Porridge");
    press("Up");
    press("Up");
    settle();
    EXPECT_EQ(screen().get_mealid(), 2);
    EXPECT_EQ(marked(), "2r");
}

TEST_F(RecipeManager, ARecipeThatIsGoneIsNotShownAnyMore) {
    put_household();
    open();
    mark("3c");
    window.registry().show("FoodInventory");
    settle();
    meals[3].in_use = 0;
    end_of_step();
    open();
    EXPECT_EQ(screen().get_mealid(), 0);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] ] ");
    screen().set_meal(3);
    EXPECT_EQ(screen().get_mealid(), 0);
}

TEST_F(RecipeManager, TheTextHasMostOfTheRoomInASmallWindowToo) {
    open();
    window.resize(900, 620);
    settle();
    EXPECT_GT(part<QWidget>("recipe_pane").height(),
              part<QWidget>("ingredients_splitter").height());
}

TEST_F(RecipeManager, AllOfItIsReachedInATinyWindow) {
    put_household();
    open();
    mark("1c");
    window.resize(600, 560);
    document().setFocus();
    press("Tab");
    settle();
    auto& close_button = part<QPushButton>("close_button");
    EXPECT_EQ(focused(), "close_button");
    EXPECT_EQ(close_button.visibleRegion().boundingRect(), close_button.rect());
    EXPECT_LE(screen().width(), screen().parentWidget()->parentWidget()->width());
}

TEST_F(RecipeManager, NamesThatAreCutShortAreToldByTheirRows) {
    put_household();
    open();
    mark("1c");
    EXPECT_EQ(tree().currentIndex().data(Qt::ToolTipRole).toString(),
              label("recipe_heading").c_str());
    const QModelIndex name = list().model()->index(0, IngredientsPane::name_column);
    EXPECT_EQ(name.data(Qt::ToolTipRole).toString(), "Milk");
}

TEST_F(RecipeManager, RemembersItsSplitters) {
    open();
    part<QSplitter>("main_splitter").setSizes({500, 600});
    const QList<int> sizes = part<QSplitter>("main_splitter").sizes();
    close();
    settle();
    open();
    EXPECT_EQ(part<QSplitter>("main_splitter").sizes(), sizes);
}

TEST_F(RecipeManager, EveryPartHasAnAccessibleName) {
    put_household();
    open();
    mark("1c");
    int checked = 0;
    for (QWidget* widget : screen().findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (widget->focusPolicy() == Qt::NoFocus || name.isEmpty() || name.startsWith("qt_")) {
            continue;
        }
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(told->text(QAccessible::Name).trimmed().isEmpty()) << name.toStdString();
        ++checked;
    }
    EXPECT_GE(checked, 15);
}

TEST_F(RecipeManager, MnemonicsAreUnique) {
    put_household();
    open();
    mark("1c");
    QStringList texts;
    for (const auto* button : screen().findChildren<QAbstractButton*>()) texts << button->text();
    for (const auto* shown : screen().findChildren<QLabel*>()) {
        if (shown->buddy() != nullptr) texts << shown->text();
    }
    std::set<QString> seen{"Alt+F", "Alt+P", "Alt+W", "Alt+H"};
    int found = 0;
    for (const QString& text : texts) {
        const QString keys = QKeySequence::mnemonic(text).toString();
        if (keys.isEmpty()) continue;
        ++found;
        EXPECT_TRUE(seen.insert(keys).second) << text.toStdString();
    }
    EXPECT_GE(found, 13);
}

TEST_F(RecipeManager, TabGoesFromTheCommandsOverTheTextToClose) {
    put_household();
    open();
    mark("1c");
    choose_ingredient(0);
    const std::vector<std::string> order{"Toolbar1_1_button",     "Toolbar1_2_button",
                                         "Toolbar1_3_button",     "Toolbar1_4_button",
                                         "Toolbar1_5_button",     "Toolbar1_6_button",
                                         "Toolbar1_7_button",     "filter",
                                         "recipe_tree",           "ingredient_list",
                                         "add_ingredient_button", "change_quantity_button",
                                         "open_item_button",      "remove_ingredient_button",
                                         "serving_size",          "serving_unit",
                                         "recipe_font",           "recipe_font_size",
                                         "recipe_bold_button",    "recipe_text",
                                         "close_button"};
    part<QToolButton>("Toolbar1_1_button").setFocus();
    for (const std::string& name : order) {
        EXPECT_EQ(focused(), name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST_F(RecipeManager, EscLeavesInReturnModeOnly) {
    add_planner_screen();
    open();
    tree().setFocus();
    press("Escape");
    settle();
    ASSERT_TRUE(is_open());
    screen().set_return(1);
    press("Escape");
    settle();
    EXPECT_FALSE(is_open());
}

}  // namespace
}  // namespace tavernook
