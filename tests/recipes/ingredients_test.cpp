// The fifty places of a recipe.
#include "recipes/recipes_fixture.h"

namespace tavernook {
namespace {

constexpr i16 bread = 4;
constexpr i16 flour = 7;
constexpr i16 salt = 8;

class Ingredients : public RecipesTest {
  protected:
    Ingredients() { add_meal(bread); }

    static void expect_place(std::size_t place, i16 item, f64 quantity) {
        EXPECT_EQ(meals[bread].ingredient_item[place], item) << "place " << place;
        EXPECT_EQ(meals[bread].ingredient_qty[place], quantity) << "place " << place;
    }
};

TEST_F(Ingredients, GoIntoTheFirstFreePlace) {
    put(bread, 1, salt, 0.5);
    put(bread, 3, salt, 0.5);
    add_ingredient(flour, 2.5, bread);
    expect_place(2, flour, 2.5);
}

TEST_F(Ingredients, TheSameItemAgainAddsToItsQuantity) {
    add_ingredient(flour, 2.5, bread);
    add_ingredient(salt, 1, bread);
    add_ingredient(flour, 0.25, bread);
    expect_place(1, flour, 2.75);
    expect_place(2, salt, 1);
    expect_place(3, 0, 0);
}

TEST_F(Ingredients, WhatStandsInAFreePlaceIsNotAddedTo) {
    meals[bread].ingredient_qty[1] = 9;
    add_ingredient(flour, 2, bread);
    expect_place(1, flour, 2);
}

TEST_F(Ingredients, AnItemInPlace30IsFound) {
    fill_places(bread, 40);
    EXPECT_EQ(find_ingredient(130, bread), 30);
    add_ingredient(130, 2, bread);
    expect_place(30, 130, 3);
    expect_place(41, 0, 0);
}

TEST_F(Ingredients, AnItemInPlace31IsEnteredASecondTime) {
    fill_places(bread, 31);
    EXPECT_EQ(find_ingredient(131, bread), 0);
    add_ingredient(131, 2, bread);
    expect_place(31, 131, 1);
    expect_place(32, 131, 2);
    set_ingredient_qty(131, 7.5, bread);
    expect_place(31, 131, 7.5);
    expect_place(32, 131, 7.5);
    expect_place(30, 130, 1);
}

TEST_F(Ingredients, TheFiftiethFits) {
    fill_places(bread, 49);
    EXPECT_EQ(find_free_ingredient(bread), 50);
    add_ingredient(flour, 2, bread);
    expect_place(50, flour, 2);
}

TEST_F(Ingredients, TheFiftyFirstFailsAndLeavesTheNeighbourAlone) {
    fill_places(bread, 50);
    add_meal(bread + 1, "Neighbour");
    fill_places(bread + 1, 2);
    const MealRecord before = meals[bread];
    const MealRecord neighbour = meals[bread + 1];
    EXPECT_EQ(find_free_ingredient(bread), 0);
    expect_trapped(
        9, [] { return add_ingredient(flour, 2, bread); }, false);
    EXPECT_EQ(meals[bread], before);
    EXPECT_EQ(meals[bread + 1], neighbour);
}

TEST_F(Ingredients, AFullRecipeStillAddsToAnItemThatItHolds) {
    fill_places(bread, 50);
    add_ingredient(101, 2, bread);
    expect_place(1, 101, 3);
}

TEST_F(Ingredients, AQuantityIsSetInEveryPlaceUpTo50) {
    put(bread, 1, flour, 1);
    put(bread, 2, salt, 1);
    put(bread, 50, flour, 3);
    set_ingredient_qty(flour, 0, bread);
    expect_place(1, flour, 0);
    expect_place(2, salt, 1);
    expect_place(50, flour, 0);
}

TEST_F(Ingredients, AreRemovedFromEveryPlaceUpTo50) {
    put(bread, 1, flour, 1);
    put(bread, 2, salt, 1);
    put(bread, 50, flour, 3);
    remove_ingredient(bread, "i7t");
    expect_place(1, 0, 0);
    expect_place(2, salt, 1);
    expect_place(50, 0, 0);
}

TEST_F(Ingredients, TheKeyLosesItsFirstAndItsLastLetter) {
    put(bread, 1, 7, 1);
    put(bread, 2, 17, 1);
    remove_ingredient(bread, "17t");  // reads as 7
    expect_place(1, 0, 0);
    expect_place(2, 17, 1);
    remove_ingredient(bread, "i17t");
    expect_place(2, 0, 0);
}

TEST_F(Ingredients, RemovingWithoutASelectionSaysSo) {
    put(bread, 1, flour, 1);
    platform.boxes.expect_message("Please Select item to DELETE then press the Delete button.")
        .buttons(Buttons::ok);
    remove_ingredient(bread, "");
    expect_place(1, flour, 1);
}

TEST_F(Ingredients, KeysWithoutANumberRemoveNothing) {
    put(bread, 1, flour, 1);
    for (const char* key : {"7", "7t", "ixt", "i-7t"}) remove_ingredient(bread, key);
    expect_place(1, flour, 1);
}

TEST_F(Ingredients, AKeyBeyondAllNumbersIsTold) {
    expect_trapped(
        6, [] { return remove_ingredient(bread, "i99999t"); }, false);
}

TEST_F(Ingredients, AreUsedByALiveRecipeInAnyPlace) {
    EXPECT_FALSE(meal_uses_item(flour, bread));
    put(bread, 50, flour, 0);
    EXPECT_TRUE(meal_uses_item(flour, bread));
    EXPECT_FALSE(meal_uses_item(salt, bread));
    meals[bread].in_use = 0;
    EXPECT_FALSE(meal_uses_item(flour, bread));
}

TEST_F(Ingredients, PlaceZeroIsNeverUsed) {
    put(bread, 0, flour, 1);
    EXPECT_FALSE(meal_uses_item(flour, bread));
    EXPECT_EQ(find_ingredient(flour, bread), 0);
    EXPECT_EQ(find_free_ingredient(bread), 1);
    set_ingredient_qty(flour, 5, bread);
    remove_ingredient(bread, "i7t");
    expect_place(0, flour, 1);
}

TEST_F(Ingredients, NoItemIsNoIngredient) {
    const MealRecord before = meals[bread];
    EXPECT_EQ(find_ingredient(0, bread), 0);
    EXPECT_FALSE(meal_uses_item(0, bread));
    for (const i16 item : {i16{0}, i16{-1}, i16{10001}}) {
        expect_trapped(
            9, [item] { return add_ingredient(item, 1, bread); }, false);
        expect_trapped(
            9, [item] { return set_ingredient_qty(item, 1, bread); }, false);
    }
    EXPECT_EQ(meals[bread], before);
}

TEST_F(Ingredients, NoRecipeTakesNone) {
    const MealRecord before = meals[0];
    for (const i16 slot : {i16{0}, i16{-1}, i16{1001}}) {
        expect_trapped(
            9, [slot] { return add_ingredient(flour, 1, slot); }, false);
        expect_trapped(
            9, [slot] { return set_ingredient_qty(flour, 1, slot); }, false);
        expect_trapped(
            9, [slot] { return remove_ingredient(slot, "i7t"); }, false);
        EXPECT_EQ(find_ingredient(flour, slot), 0);
        EXPECT_FALSE(meal_uses_item(flour, slot));
    }
    EXPECT_EQ(meals[0], before);
}

}  // namespace
}  // namespace tavernook
