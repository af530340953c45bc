// Ingredients and figures of the recipe manager.
#include <QClipboard>
#include <QMenu>

#include "core/catagories.h"
#include "core/changes.h"
#include "screens/cookbook/mealbuilder_fixture.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/parts/quantity_box.h"

namespace tavernook {
namespace {

class RecipeIngredients : public MealbuilderTest {
  protected:
    // Pancakes: 3 servings of milk at 0.5 cup, 2 of flour at 2 cups.
    void open_pancakes() {
        put_household();
        open();
        screen().set_meal(1);
        project_modified = i16_false;
    }

    FoodInventory& inventory() {
        auto* found = dynamic_cast<FoodInventory*>(window.registry().loaded("FoodInventory"));
        if (found == nullptr) throw std::runtime_error("the item screen is not loaded");
        return *found;
    }
    void hand_over(const char* quantity) {
        inventory().findChild<QLineEdit*>("quantity_to_add")->setText(quantity);
        inventory().findChild<QAbstractButton*>("add_item")->click();
        settle();
    }
    std::string inventory_button() {
        return inventory().findChild<QAbstractButton*>("add_item")->text().toStdString();
    }
    QuantityBox& size_box() { return part<QuantityBox>("serving_size"); }
    QComboBox& unit_box() { return part<QComboBox>("serving_unit"); }

    // Every figure in reading order.
    std::vector<std::string> figures() {
        std::vector<std::string> found;
        for (const char* name :
             {"calories_caption", "calories_per_serving", "fat_caption", "fat_per_serving",
              "cost_caption", "cost_per_serving", "total_calories", "total_fat", "total_cost"}) {
            found.push_back(label(name));
        }
        return found;
    }
    using Texts = std::vector<std::string>;
};

TEST_F(RecipeIngredients, AreListedWithTheirAmounts) {
    open_pancakes();
    EXPECT_EQ(ingredients(), (Texts{"Milk 1.5 Cup(s) 7t", "Flour 4 Cup(s) 17t"}));
    const QModelIndex flour = list().model()->index(1, 0);
    EXPECT_EQ(part_of(flour.data(RowsModel::row_role).toLongLong(), 0), 17);
    const int side = list().model()->index(0, 1).data(Qt::TextAlignmentRole).toInt();
    EXPECT_TRUE(side & Qt::AlignRight);
}

// 3 x 100 + 2 x 30 calories, 3 x 4 + 2 x 1 fat, 3 x 2/8 + 2 x 3/6 money.
TEST_F(RecipeIngredients, FiguresFollowServingSizeAndUnit) {
    open_pancakes();
    EXPECT_EQ(figures(), (Texts{"Calories/:", "360.00", "Fat/:", "14.00", "Cost/:", "$1.75", "360",
                                "14", "$1.75"}));
    EXPECT_EQ(size_box().text(), "1");
    size_box().setFocus();
    size_box().setText("4");
    press("Return");
    EXPECT_EQ(meal_serving_size[1], 4);
    EXPECT_EQ(label("calories_per_serving"), "90.00");
    EXPECT_EQ(label("fat_per_serving"), "3.50");
    EXPECT_EQ(label("cost_per_serving"), "$0.44");
    EXPECT_EQ(label("total_calories"), "360");
    EXPECT_EQ(project_modified, i16_true);
    unit_box().setFocus();
    unit_box().setEditText(" CUP(S)");
    list().setFocus();
    EXPECT_EQ(meals[1].serving_size_units, 2);
    EXPECT_EQ(label("calories_caption"), "Calories/Cup(s):");
    EXPECT_EQ(label("fat_caption"), "Fat/Cup(s):");
    EXPECT_EQ(label("cost_caption"), "Cost/Cup(s):");
    EXPECT_EQ(unit_box().currentText(), "Cup(s)");
}

TEST_F(RecipeIngredients, ATextThatIsNoUnitLeavesTheUnit) {
    open_pancakes();
    meals[1].serving_size_units = 2;
    screen().populate_tree_list(1);
    project_modified = i16_false;
    unit_box().setFocus();
    unit_box().setEditText("armful");
    list().setFocus();
    EXPECT_EQ(meals[1].serving_size_units, 2);
    EXPECT_EQ(unit_box().currentText(), "Cup(s)");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(hint(), "There is no unit \"armful\"; the recipe keeps its unit.");
}

TEST_F(RecipeIngredients, AnEmptyServingSizeIsOneWhenItIsShown) {
    open_pancakes();
    size_box().setFocus();
    size_box().setText("4");
    press("Return");
    size_box().clear();
    press("Return");
    EXPECT_EQ(meal_serving_size[1], 1);
    EXPECT_EQ(size_box().text(), "1");
    EXPECT_EQ(label("calories_per_serving"), "360.00");
}

TEST_F(RecipeIngredients, ANegativeServingSizeShowsNoFiguresAndStays) {
    open_pancakes();
    size_box().setFocus();
    size_box().setText("-2");
    list().setFocus();
    EXPECT_EQ(meal_serving_size[1], -2);
    for (const char* name : {"calories_per_serving", "fat_per_serving", "cost_per_serving"}) {
        EXPECT_EQ(label(name), "-");
    }
    EXPECT_EQ(label("total_cost"), "$1.75");
}

TEST_F(RecipeIngredients, ASizeThatNobodyTouchedKeepsEveryDigit) {
    put_household();
    meal_serving_size[1] = 1.0 / 3;
    open();
    screen().set_meal(1);
    project_modified = i16_false;
    size_box().setFocus();
    press("Return");
    list().setFocus();
    EXPECT_EQ(meal_serving_size[1], 1.0 / 3);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeIngredients, AnItemDroppedOnTheListIsOneServing) {
    open_pancakes();
    put_item(8, "Sugar", 1, 5, 0, 0, 1);
    EXPECT_TRUE(drop(list(), QPoint(5, list().viewport()->height() - 5), "i8"));
    EXPECT_EQ(ingredients().back(), "Sugar 1 Cup(s) 8t");
    EXPECT_EQ(label("total_calories"), "365");
    EXPECT_EQ(project_modified, i16_true);
    const QPoint on_milk = list().visualRect(list().model()->index(0, 0)).center();
    EXPECT_TRUE(drop(list(), on_milk, "i7"));
    EXPECT_EQ(ingredients().front(), "Milk 2 Cup(s) 7t");
}

TEST_F(RecipeIngredients, NothingElseCanBeDroppedOnTheList) {
    open_pancakes();
    for (const char* text : {"m2", "i9", "i0", "i10001", "i", "milk"}) {
        EXPECT_FALSE(drop(list(), QPoint(5, 5), text)) << text;
    }
    EXPECT_EQ(ingredients().size(), 2u);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeIngredients, NothingIsTakenWhileNoRecipeIsShown) {
    put_household();
    open();
    EXPECT_FALSE(drop(list(), QPoint(5, 5), "i7"));
    screen().add_ingredient(7, 1, screen().get_mealid());
    EXPECT_EQ(hint(), "No recipe is shown in the recipe manager.");
    main_window().set_status(1, "");
    screen().set_ingredient_qty(7, 1, 0);
    EXPECT_EQ(hint(), "No recipe is shown in the recipe manager.");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_FALSE(part<QWidget>("add_ingredient_button").isEnabled());
}

TEST_F(RecipeIngredients, DeleteTakesTheChosenOneOut) {
    open_pancakes();
    choose_ingredient(1);
    list().setFocus();
    press("Delete");
    EXPECT_EQ(ingredients(), (Texts{"Milk 1.5 Cup(s) 7t"}));
    EXPECT_EQ(meals[1].ingredient_item[2], 0);
    EXPECT_EQ(meals[1].ingredient_qty[2], 0);
    EXPECT_EQ(label("total_calories"), "300");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeIngredients, OneWithASingleDigitGoesToo) {
    open_pancakes();
    choose_ingredient(0);
    click("remove_ingredient_button");
    EXPECT_EQ(ingredients(), (Texts{"Flour 4 Cup(s) 17t"}));
}

TEST_F(RecipeIngredients, RemovingNoneAsksForOne) {
    open_pancakes();
    platform.boxes.expect_message("Please Select item to DELETE then press the Delete button.");
    click("remove_ingredient_button");
    list().setFocus();
    press("Delete");
    EXPECT_EQ(ingredients().size(), 2u);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeIngredients, F2ChangesTheQuantity) {
    open_pancakes();
    choose_ingredient(0);
    list().setFocus();
    platform.boxes.expect_input("Servings of Milk (1 Serving = 0.5 Cup(s))", "Ingredient Quantity",
                                "3", "1,5");
    press("F2");
    EXPECT_EQ(meals[1].ingredient_qty[1], 1.5);
    EXPECT_EQ(ingredients().front(), "Milk 0.75 Cup(s) 7t");
    EXPECT_EQ(label("total_calories"), "210");
    EXPECT_EQ(list().currentIndex().row(), 0);
    platform.boxes.expect_input("Servings of Milk (1 Serving = 0.5 Cup(s))", "Ingredient Quantity",
                                "1.5", "some");
    press("F2");
    EXPECT_EQ(meals[1].ingredient_qty[1], 1.5);
    EXPECT_EQ(hint(), "\"some\" is not a number; the ingredient keeps its quantity.");
}

TEST_F(RecipeIngredients, EnterOpensTheItemToSetItsQuantity) {
    open_pancakes();
    choose_ingredient(1);
    list().setFocus();
    press("Return");
    settle();
    EXPECT_EQ(inventory().getindex(), 17);
    EXPECT_TRUE(inventory().isVisible());
    hand_over("5");
    EXPECT_EQ(meals[1].ingredient_qty[2], 5);
    EXPECT_EQ(ingredients().back(), "Flour 10 Cup(s) 17t");
    EXPECT_EQ(label("total_calories"), "450");
}

TEST_F(RecipeIngredients, ADoubleClickDoesTheSame) {
    open_pancakes();
    const QPoint milk = list().visualRect(list().model()->index(0, 0)).center();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, milk);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, milk);
    settle();
    EXPECT_EQ(inventory().getindex(), 7);
}

TEST_F(RecipeIngredients, AddingOpensTheInventoryForTheRecipe) {
    open_pancakes();
    put_item(8, "Sugar", 1, 5, 0, 0, 1);
    click("add_ingredient_button");
    EXPECT_EQ(inventory_button(), "Add Item to Meal");
    inventory().view_item(8, i16_true);
    hand_over("2");
    EXPECT_EQ(ingredients().back(), "Sugar 2 Cup(s) 8t");
}

TEST_F(RecipeIngredients, TheFiftyFirstIsRefusedAndHarmsNobody) {
    open_pancakes();
    for (i16 item = 101; item <= 148; ++item) {
        put_item(item, "Spice", 1, 0, 0, 0, 1);
        put_ingredient(1, static_cast<std::size_t>(item - 98), item, 1);
    }
    put_item(200, "Salt", 1, 0, 0, 0, 1);
    screen().populate_tree_list(1);
    ASSERT_EQ(ingredients().size(), 50u);
    const MealRecord neighbour = meals[2];
    project_modified = i16_false;
    platform.boxes.expect_message("Tavernook error: rt6:9. Contact Brenwyk Software.");
    EXPECT_TRUE(drop(list(), QPoint(5, 5), "i200"));
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(ingredients().size(), 50u);
    EXPECT_EQ(meals[2], neighbour);
}

TEST_F(RecipeIngredients, AnItemThatStandsTwiceIsListedTwice) {
    put_household();
    put_ingredient(1, 31, 7, 1);
    open();
    screen().set_meal(1);
    EXPECT_EQ(ingredients(),
              (Texts{"Milk 1.5 Cup(s) 7t", "Flour 4 Cup(s) 17t", "Milk 0.5 Cup(s) 7t"}));
}

TEST_F(RecipeIngredients, ADamagedOneIsPassedOver) {
    put_household();
    put_ingredient(1, 3, 12000, 1);
    open();
    screen().set_meal(1);
    EXPECT_EQ(ingredients(), (Texts{"Milk 1.5 Cup(s) 7t", "Flour 4 Cup(s) 17t"}));
    EXPECT_EQ(label("total_calories"), "360");  // 3 x 100 + 2 x 30
}

TEST_F(RecipeIngredients, RowsAreCopiedWithATabBetween) {
    open_pancakes();
    choose_ingredient(0);
    list().setFocus();
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "Milk\t1.5 Cup(s)");
}

TEST_F(RecipeIngredients, SortsByAmountAsNumbers) {
    open_pancakes();
    put_ingredient(1, 1, 7, 20);
    screen().populate_tree_list(1);
    list().sortByColumn(IngredientsPane::amount_column, Qt::AscendingOrder);
    EXPECT_EQ(ingredients(), (Texts{"Flour 4 Cup(s) 17t", "Milk 10 Cup(s) 7t"}));
    choose_ingredient(1);
    click("remove_ingredient_button");
    EXPECT_EQ(ingredients(), (Texts{"Flour 4 Cup(s) 17t"}));
}

TEST_F(RecipeIngredients, NamesChangedElsewhereAreReadWhenTheScreenComesToTheFront) {
    open_pancakes();
    window.registry().show("FoodInventory");
    settle();
    items[7].name = "Oat Milk";
    units[2].name = "Mug(s)";
    meals[3].name = "Goulash";
    end_of_step();
    open();
    EXPECT_EQ(ingredients().front(), "Oat Milk 1.5 Mug(s) 7t");
    EXPECT_NE(unit_box().findText("Mug(s)"), -1);
    EXPECT_EQ(rows(), "[General [Breakfast Pancakes Porridge ] Goulash ] ");
}

TEST_F(RecipeIngredients, WhatIsBeingTypedStaysWhileTheFiguresFollow) {
    open_pancakes();
    size_box().setFocus();
    size_box().setText("4");
    unit_box().setEditText("Cu");
    items[7].calories = 10;
    items[7].name = "Oat Milk";
    end_of_step();
    EXPECT_EQ(ingredients().front(), "Oat Milk 1.5 Cup(s) 7t");
    EXPECT_EQ(label("total_calories"), "90");
    EXPECT_EQ(size_box().text(), "4");
    EXPECT_EQ(unit_box().currentText(), "Cu");
    EXPECT_EQ(meal_serving_size[1], 1);
}

TEST_F(RecipeIngredients, AnIngredientThatGoesWhileItsQuantityIsAskedForIsLeftAlone) {
    open_pancakes();
    end_of_step();
    choose_ingredient(0);
    platform.boxes
        .expect_input("Servings of Milk (1 Serving = 0.5 Cup(s))", "Ingredient Quantity", "3", "5")
        .during([] {
            items[7].in_use = 0;
            look_for_changes();
            put_item(7, "Cream", 1, 0, 0, 0, 1);
            look_for_changes();
        });
    click("change_quantity_button");
    EXPECT_EQ(meals[1].ingredient_qty[1], 3);
    EXPECT_EQ(hint(), "The recipe or the item is not there any more.");
}

TEST_F(RecipeIngredients, TheHintTellsWhatToDo) {
    put_household();
    open();
    auto& hint_label = *list().viewport()->findChild<QLabel*>("ingredient_list_hint");
    EXPECT_EQ(hint_label.text(), "Choose a recipe, or press \"New Recipe\".");
    screen().set_meal(3);
    EXPECT_EQ(hint_label.text(),
              "Press \"Add Ingredient\", or drag items here from the inventory.");
    EXPECT_TRUE(hint_label.isVisible());
    screen().set_meal(1);
    EXPECT_FALSE(hint_label.isVisible());
}

}  // namespace
}  // namespace tavernook
