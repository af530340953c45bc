// A recipe that finds no room, or does not come in: full tables, cancelled, damaged.
#include "transfer/recipe_import_fixture.h"

namespace tavernook {
namespace {

// --- full tables --------------------------------------------------------------------------------

TEST_F(RecipeImport, WithoutRoomForARecipeNothingChanges) {
    for (i16 slot = 1; slot <= meal_capacity; ++slot) meals[slot] = {"Soup", {}, {}, 1, 0, 0};
    const MealRecord last = meals[meal_capacity];
    platform.boxes.expect_message(
        "You have reached the limitation of meals allowed in Tavernook.  It is recommended that "
        "you delete some meals to allow for some more room.");
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(meals[meal_capacity], last);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(message(), "soup.rpf was not imported: there is no room for another recipe.");
}

TEST_F(RecipeImport, TheLastFreeRecipeIsUsedBehindItsWarning) {
    for (i16 slot = 1; slot < meal_capacity; ++slot) meals[slot] = {"Tea", {}, {}, 1, 0, 0};
    platform.boxes.expect_message(
        "You have reached the limitation of meals allowed in Tavernook.  It is recommended that "
        "you delete some meals to allow for some more room.");
    EXPECT_EQ(import(sugar), meal_capacity);
}

TEST_F(RecipeImport, WithoutRoomForAnItemTheImportEndsThere) {
    for (i16 slot = 1; slot <= item_capacity; ++slot) items[slot].in_use = 1;
    items[77].in_use = 0;
    RecipeBytes recipe;
    recipe.ingredients = {sugar, named("Salt")};
    const ItemRecord last = items[item_capacity];
    platform.boxes.expect_message(
        "You have reached the limitation of items allowed in Tavernook.  It is recommended that "
        "you delete some items to allow for some more room.");
    EXPECT_EQ(import_bytes(recipe.bytes()), 0);
    EXPECT_EQ(items[item_capacity], last);
    EXPECT_EQ(ingredient(1, 1), 77);
    EXPECT_EQ(message(),
              "Only a part of soup.rpf is in: the recipe \"Soup\" with 1 of 2 ingredients (1 new "
              "item) and not its text: there is no room for another item.  New units: 2.");
}

TEST_F(RecipeImport, UnitsThatFindNoRoomAreTold) {
    for (i16 row = 1; row <= unit_capacity; ++row) units[row] = {"u" + std::to_string(row), 1};
    units[1].name = "kg";
    units[2].name = "g";
    platform.boxes.expect_message(
        "You have reached the limitation of Units allowed in Tavernook.  It is recommended that "
        "you delete some units to allow for some more room.");
    EXPECT_EQ(import(sugar), 1);
    EXPECT_EQ(meals[1].serving_size_units, 0);
    EXPECT_TRUE(message().ends_with("  Units, stores or texts that found no room: 3."));
}

// --- the unpacking ------------------------------------------------------------------------------

TEST_F(RecipeImport, CancellingTheUnpackingChangesNothing) {
    platform.cabinets.meanwhile = [&](int) { platform.progress.cancelled = true; };
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(meals[1], MealRecord{});
    EXPECT_EQ(message(), "soup.rpf was not imported: it was cancelled.");
}

TEST_F(RecipeImport, AFileThatIsNotThereIsTold) {
    platform.boxes.expect_message("Import_RPF53");
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(message(), "soup.rpf was not imported: it is not there.");
}

TEST_F(RecipeImport, WhatIsNoCabinetIsRefused) {
    write_whole_file(soup_file, "a letter");
    platform.boxes.expect_message("Import_RPF63");
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(project_modified, i16_false);
    expect_nothing_in();
}

TEST_F(RecipeImport, AFullDiskIsTold) {
    platform.cabinets.failure = Fault(fault_number::disk_full);
    platform.boxes.expect_message("Import_RPF61");
    EXPECT_EQ(import(sugar), 0);
    EXPECT_EQ(message(), "soup.rpf was not imported: Disk full.");
}

// --- hostile ones -------------------------------------------------------------------------------

TEST_F(RecipeImport, CountsThatNoRecipeHasAreRefused) {
    for (const int count : {32767, -1, -32768, 0, 52}) {
        ByPosition file;
        file.bytes = with(sugar);
        file.put_i16(85, count);
        expect_refused(file.bytes, 63);
    }
}

TEST_F(RecipeImport, AFileThatEndsInItsHeadIsRefused) {
    for (const std::size_t length : {0, 1, 31, 32, 51, 74, 82, 85}) {
        expect_refused(with(sugar).substr(0, length), 63);
    }
}

// What was read until then stays, and is told.
TEST_F(RecipeImport, AFileThatEndsInABlockIsTold) {
    const std::string whole = with(sugar);
    const std::size_t ends[] = {100, 150, 249, 257, 363, 395, 427, 431, 433, 440, 447, 500, 610};
    for (const std::size_t end : ends) {
        SCOPED_TRACE(end);
        open_project("home.tvk");
        platform.boxes.expect_message("Import_RPF63");
        EXPECT_EQ(import_bytes(whole.substr(0, end)), 0);
        EXPECT_EQ(live_items(), 0);
        EXPECT_EQ(meals[1].in_use, 1);
        EXPECT_EQ(message(),
                  "Only a part of soup.rpf is in: the recipe \"Soup\" with 0 of 1 ingredient (0 "
                  "new items) and not its text: it is no recipe file, or a damaged one.  New "
                  "units: 1.");
    }
}

TEST_F(RecipeImport, AFileThatEndsInItsTailIsTold) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar};
    const std::string whole = recipe.bytes();
    for (std::size_t end = recipe.tail(); end < whole.size(); ++end) {
        SCOPED_TRACE(end);
        open_project("home.tvk");
        platform.boxes.expect_message("Import_RPF63");
        EXPECT_EQ(import_bytes(whole.substr(0, end)), 0);
        EXPECT_EQ(ingredient(1, 1), 1);
        EXPECT_TRUE(recipe_files().empty());
    }
}

TEST_F(RecipeImport, LengthsThatNoTextHasAreRefused) {
    RecipeBytes recipe;
    recipe.ingredients = {sugar};
    const std::size_t q = 100 + 264;
    const std::size_t places[] = {q + 64, q + 68 + 5, recipe.tail() + 10};
    for (const std::size_t place : places) {
        for (const long long length : {-1ll, -2147483648ll, 2147483647ll, 10'000ll}) {
            SCOPED_TRACE(std::to_string(place) + ": " + std::to_string(length));
            open_project("home.tvk");
            ByPosition file;
            file.bytes = recipe.bytes();
            file.put_i32(place, length);
            platform.boxes.expect_message("Import_RPF63");
            EXPECT_EQ(import_bytes(file.bytes), 0);
            EXPECT_TRUE(recipe_files().empty());
        }
    }
}

// Only the project's name and the slot make the name of the text's file.
TEST_F(RecipeImport, NamesWithPathsLeadNowhere) {
    RecipeBytes recipe;
    recipe.name = "../../etc/passwd";
    recipe.ingredients = {named("..\\..\\x")};
    EXPECT_EQ(import_bytes(recipe.bytes()), 1);
    EXPECT_EQ(recipe_files(), std::vector<std::string>{"home000001.rtf"});
    EXPECT_EQ(platform.disk.list(platform.temp.path(), ""), std::vector<std::string>{"soup.rpf"});
}

}  // namespace
}  // namespace tavernook
