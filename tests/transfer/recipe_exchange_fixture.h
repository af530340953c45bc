// Recipe files beside an open project, home.tvk, whose units are "kg" and "g" and whose store is
// "Bakery".
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "fakes/test_platform.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "recipes/documents.h"
#include "transfer/recipe_bytes.h"
#include "transfer/recipe_exchange.h"

namespace tavernook {

inline constexpr const char* recipe_question =
    "This meal already exists in your project.\nPress YES to overwrite existing meal\nOr NO to "
    "import as different recipe\nOr CANCEL to cancel Import";
inline constexpr const char* recipe_filter = "Recipe Portable Format Files (*.rpf)|*.rpf";
inline constexpr i16 bakery = 3;
inline constexpr i16 soups = 5;  // a category of recipes

class RecipeExchangeTest : public testing::Test {
  protected:
    RecipeExchangeTest() { open_project("home.tvk"); }

    void open_project(const std::string& name) {
        reset_program_state();
        project_path = platform.path(name);
        recipes_folder = platform.system.program + "/recipes/";
        project_open = i16_true;
        for (UnitRecord& unit : units) unit = {};
        for (StoreRecord& store : stores) store = {};
        units[1] = {"kg", 1};
        units[2] = {"g", 1};
        stores[bakery] = {"Bakery", 1};
        catagories[1] = {"General", 1, 0, 0};
        catagories[soups] = {"Soups", 1, recipe_category_type, 0};
        project_modified = i16_false;
        look_for_changes();
    }

    void lies_there(const std::string& plain) {
        write_whole_file(soup_file, "cabinet of temppf.tmp\n" + plain);
    }
    i16 import_soup() {
        const i16 slot = Import_RPF(soup_file, soups);
        EXPECT_FALSE(platform.disk.is_taken(plain_file));
        look_for_changes();
        return slot;
    }
    i16 import_bytes(const std::string& plain) {
        lies_there(plain);
        return import_soup();
    }
    void export_soup(i16 slot) {
        platform.dialogs.expect_save("Save Recipe Portable Format", soup_file);
        Export_RPF(slot);
        EXPECT_FALSE(platform.disk.is_taken(plain_file));
    }
    // The plain file of what was exported.
    std::string exported() {
        const std::string bytes = read_whole_file(soup_file);
        const std::string line = "cabinet of temppf.tmp\n";
        EXPECT_TRUE(bytes.starts_with(line));
        return bytes.substr(line.size());
    }

    i16 make_item(i16 slot, const std::string& name) {
        items[slot].name = name;
        items[slot].in_use = 1;
        items[slot].quantity = 3;
        first_lot_from_item(slot);
        look_for_changes();
        return slot;
    }
    i16 make_recipe(i16 slot, const std::string& name) {
        meals[slot].name = name;
        meals[slot].in_use = 1;
        look_for_changes();
        return slot;
    }
    static std::string name_of_item(i16 slot) { return std::string(items[slot].name.trimmed()); }
    static std::string name_of_recipe(i16 slot) { return std::string(meals[slot].name.trimmed()); }
    static i16 ingredient(i16 recipe, std::size_t place) {
        return meals[recipe].ingredient_item[place];
    }
    void user_is_asked_about_item(const std::string& name, Answer answer) {
        platform.boxes
            .expect_message("The item " + name +
                                " already exists in your inventory.  Press YES to use existing "
                                "inventory Item or NO to add the item to inventory as new item",
                            answer)
            .buttons(Buttons::yes_no);
    }
    ExpectedBox& user_is_asked_about_recipe(Answer answer) {
        return platform.boxes.expect_message(recipe_question, answer)
            .buttons(Buttons::yes_no_cancel);
    }
    std::string message() { return platform.main.status[message_panel]; }
    std::vector<std::string> recipe_files() { return platform.disk.list(recipes_folder, ""); }
    static int live_items() {
        return static_cast<int>(std::count_if(items.begin(), items.end(),
                                              [](const ItemRecord& item) { return item.in_use; }));
    }

    TestPlatform platform;
    const std::string soup_file = platform.path("soup.rpf");
    const std::string plain_file = platform.system.program + "/temppf.tmp";
};

}  // namespace tavernook
