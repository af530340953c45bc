// The list by hand: additions, drops, removals and the two boxes.
#include "core/changes.h"
#include "shopping/shopping_fixture.h"

namespace tavernook {
namespace {

using ListByHand = ShoppingTest;

TEST_F(ListByHand, AnAdditionIsOneMore) {
    add_to_list(bread);
    expect_on_list(bread, 1);
    EXPECT_EQ(project_modified, i16_true);
    add_to_list(bread);
    expect_on_list(bread, 2);
}

TEST_F(ListByHand, AnAdditionCountsFromWhatWasBoughtLast) {
    put_on_list(bread, 2.5);
    items[bread].on_shopping_list = 0;
    add_to_list(bread);
    expect_on_list(bread, 3.5);
}

TEST_F(ListByHand, ThereIsNoItem0) {
    expect_trapped(
        9, [] { return add_to_list(0); }, false);
    expect_trapped(
        9, [] { return remove_from_list(0); }, false);
    expect_trapped(
        9, [] { return add_recipe_to_list(0); }, false);
    expect_trapped(
        9, [] { return add_to_list(10001); }, false);
    expect_trapped(9, [] { change_shopping_quantity(-1); });
    expect_trapped(9, [] { change_store_order(10001); });
    expect_trapped(9, [] { update_shopping_flag(10001); });
    EXPECT_EQ(items[0].on_shopping_list, 0);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(ListByHand, ARemovalClearsBothFields) {
    put_on_list(bread, 2.5);
    remove_from_list(bread);
    expect_off_list(bread, 0);
    EXPECT_EQ(project_modified, i16_true);
}

// --- recipes
// --------------------------------------------------------------------------------------

class RecipeOnList : public ShoppingTest {
  protected:
    static constexpr i16 toast = 6;
    RecipeOnList() {
        meals[toast].in_use = 1;
        meals[toast].ingredient_item[1] = bread;
        meals[toast].ingredient_qty[1] = 12;
        meals[toast].ingredient_item[50] = milk;
        meals[toast].ingredient_qty[50] = 5;
    }
};

TEST_F(RecipeOnList, EachIngredientGetsOneMoreThanTheItemOfTheRecipesNumber) {
    items[toast].shopping_quantity = 2.5;
    put_on_list(milk, 40);
    add_recipe_to_list(toast);
    expect_on_list(bread, 3.5);
    expect_on_list(milk, 3.5);
    expect_off_list(toast, 2.5);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeOnList, AnIngredientOfThatVeryNumberCountsForThoseBehindIt) {
    meals[toast].ingredient_item[2] = toast;
    add_recipe_to_list(toast);
    expect_on_list(bread, 1);
    expect_on_list(toast, 1);
    expect_on_list(milk, 2);
}

TEST_F(RecipeOnList, ARecipeWithoutIngredientsChangesNothing) {
    add_recipe_to_list(7);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(RecipeOnList, AnIngredientThatIsNoneIsPassedOver) {
    meals[toast].ingredient_item[2] = -4;
    meals[toast].ingredient_item[3] = 10001;
    EXPECT_TRUE(add_recipe_to_list(toast));
    expect_on_list(bread, 1);
    expect_on_list(milk, 1);
    EXPECT_EQ(items[0].on_shopping_list, 0);
}

// --- the two boxes
// --------------------------------------------------------------------------------

class ListBoxes : public ShoppingTest {
  protected:
    ListBoxes() {
        put_on_list(milk, 2.5);
        items[milk].store_order = 7;
    }
    void type_quantity(std::optional<std::string> typed) {
        platform.boxes.expect_input("Current Quantity = 6\nEnter new quantity:", "Change Quantity",
                                    "2.5", std::move(typed));
        change_shopping_quantity(milk);
    }
    void type_order(std::optional<std::string> typed) {
        platform.boxes.expect_input("Current store order = 7\nEnter new store order:",
                                    "Change Store Order", "7", std::move(typed));
        change_store_order(milk);
    }
};

TEST_F(ListBoxes, TheQuantityBecomesTheNumber) {
    type_quantity("4.25");
    expect_on_list(milk, 4.25);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ListBoxes, AWordBehindTheNumberIsNoHindrance) {
    type_quantity(" 3 bottles");
    expect_on_list(milk, 3);
}

TEST_F(ListBoxes, ANegativeQuantityIsTaken) {
    type_quantity("-2");
    expect_on_list(milk, -2);
}

TEST_F(ListBoxes, ACommaBeforeADigitIsThePoint) {
    type_quantity("1,5");
    expect_on_list(milk, 1.5);
}

TEST_F(ListBoxes, AnEmptyAnswerIs0) {
    type_quantity("");
    expect_on_list(milk, 0);
}

TEST_F(ListBoxes, AnAnswerThatIsNoNumberIs0) {
    type_quantity("some");
    expect_on_list(milk, 0);
}

TEST_F(ListBoxes, CancelChangesNothing) {
    type_quantity(std::nullopt);
    expect_on_list(milk, 2.5);
    type_order(std::nullopt);
    EXPECT_EQ(items[milk].store_order, 7);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(ListBoxes, AnItemThatGoesWhileItIsAskedAboutIsNotWritten) {
    platform.boxes
        .expect_input("Current Quantity = 6\nEnter new quantity:", "Change Quantity", "2.5", "4")
        .during([] { items[milk].in_use = 0; });
    change_shopping_quantity(milk);
    EXPECT_EQ(items[milk].shopping_quantity, 2.5);
    items[milk].in_use = 1;
    look_for_changes();
    platform.boxes
        .expect_input("Current store order = 7\nEnter new store order:", "Change Store Order", "7",
                      "4")
        .during([] {
            items[milk].in_use = 0;
            look_for_changes();
            items[milk].in_use = 1;  // another one in its slot
            look_for_changes();
        });
    change_store_order(milk);
    EXPECT_EQ(items[milk].store_order, 7);
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(platform.main.status[message_panel], "This item is not there any more.");
}

TEST_F(ListBoxes, TheStoreOrderChangesTheItem) {
    type_order("12");
    EXPECT_EQ(items[milk].store_order, 12);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ListBoxes, AStoreOrderIsRoundedHalfToEven) {
    type_order("12.5");
    EXPECT_EQ(items[milk].store_order, 12);
}

TEST_F(ListBoxes, AStoreOrderBeyond16BitsChangesNothing) {
    platform.boxes.expect_input(
        "Current store order = 7\nEnter new store order:", "Change Store Order", "7", "32768");
    expect_trapped(6, [] { change_store_order(milk); });
    EXPECT_EQ(items[milk].store_order, 7);
    EXPECT_EQ(project_modified, 0);
}

}  // namespace
}  // namespace tavernook
