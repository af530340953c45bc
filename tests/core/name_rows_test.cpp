#include "core/name_rows.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "fakes/test_platform.h"
#include "inventory/replacement.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<int>;

const std::string stores_limit =
    "You have reached the limitation of stores allowed in Tavernook.  It is recommended that you "
    "delete some stores to allow for some more room.";
const std::string units_limit =
    "You have reached the limitation of Units allowed in Tavernook.  It is recommended that you "
    "delete some units to allow for some more room.";

std::string store_question(const std::string& uses) {
    return "This Store is used by " + uses +
           ".  Press YES to select a replacement STORE or press NO to cancel the delete";
}

std::string unit_question(const std::string& uses) {
    return "This Unit is used by " + uses +
           ".  Press YES to select a replacement UNIT or press NO to cancel the delete";
}

class NameRowsTest : public testing::Test {
  protected:
    template <typename Records>
    static void fill_rows(Records& table, i16 first, i16 last) {
        for (i16 slot = first; slot <= last; ++slot) {
            table[slot].name = "row " + std::to_string(slot);
            table[slot].in_use = 1;
        }
    }

    static void add_store(i16 slot, const char* name) {
        stores[slot].name = name;
        stores[slot].in_use = 1;
    }

    static void add_item(i16 item, const char* name) {
        items[item].in_use = 1;
        items[item].name = name;
    }

    // The slots that the list of stores shows.
    static std::vector<i16> listed_stores() {
        std::vector<i16> slots;
        for (std::size_t row = 1; row < store_list_map.size() && store_list_map[row] != 0; ++row) {
            slots.push_back(store_list_map[row]);
        }
        return slots;
    }

    TestPlatform platform;
};

TEST_F(NameRowsTest, TheLowestFreeSlotIsTaken) {
    EXPECT_EQ(find_free_store(), 1) << "a new project has no store";
    EXPECT_EQ(find_free_unit(), 14) << "a new project has 13 units";
    fill_rows(stores, 1, 5);
    stores[3].in_use = 0;
    EXPECT_EQ(find_free_store(), 3) << "the mark decides, not the name";
    units[2].in_use = 0;
    EXPECT_EQ(find_free_unit(), 2);
}

TEST_F(NameRowsTest, The999thStoreComesWithoutABox) {
    fill_rows(stores, 1, 998);
    accept_store("Corner shop");
    EXPECT_EQ(stores[999].name, "Corner shop");
    EXPECT_EQ(stores[1000].in_use, 0);
}

TEST_F(NameRowsTest, The1000thStoreIsStoredAndComesWithTheBox) {
    fill_rows(stores, 1, 999);
    platform.boxes.expect_message(stores_limit).buttons(Buttons::ok);
    accept_store("Corner shop");
    EXPECT_EQ(stores[1000].name, "Corner shop");
    EXPECT_EQ(stores[1000].in_use, 1);
    EXPECT_EQ(store_list_map[1000], 1000);
}

TEST_F(NameRowsTest, AFullTableOfStoresOverwritesTheLastSlot) {
    fill_rows(stores, 1, 1000);
    platform.boxes.expect_message(stores_limit);
    accept_store("First");
    platform.boxes.expect_message(stores_limit);
    accept_store("Second");
    EXPECT_EQ(stores[1000].name, "Second");
    EXPECT_EQ(stores[999].name, "row 999");
}

TEST_F(NameRowsTest, The999thUnitComesWithoutABoxAndThe1000thWithIt) {
    fill_rows(units, 1, 998);
    EXPECT_EQ(find_free_unit(), 999);
    fill_rows(units, 999, 999);
    platform.boxes.expect_message(units_limit).buttons(Buttons::ok);
    EXPECT_EQ(find_free_unit(), 1000);
}

TEST_F(NameRowsTest, AFullTableOfUnitsOverwritesTheLastSlot) {
    fill_rows(units, 1, 1000);
    platform.boxes.expect_message(units_limit);
    accept_unit("pinch");
    EXPECT_EQ(units[1000].name, "pinch");
    EXPECT_EQ(units[999].name, "row 999");
}

TEST_F(NameRowsTest, TheListShowsTheLiveRowsInSlotOrder) {
    add_store(2, "Market");
    add_store(5, "Bakery");
    add_store(1000, "Mill");
    stores[3].name = "Closed";
    store_list_map.fill(77);
    refresh_store_list();
    EXPECT_EQ(store_list_map[1], 2);
    EXPECT_EQ(store_list_map[2], 5);
    EXPECT_EQ(store_list_map[3], 1000);
    EXPECT_EQ(store_list_map[4], 0);
    EXPECT_EQ(store_list_map[1000], 0);
}

TEST_F(NameRowsTest, TheListOfUnitsShowsTheThirteenOfANewProject) {
    refresh_unit_list();
    EXPECT_EQ(unit_list_map[1], 1);
    EXPECT_EQ(unit_list_map[13], 13);
    EXPECT_EQ(unit_list_map[14], 0);
}

TEST_F(NameRowsTest, RefreshingEndsTheEditMode) {
    add_store(2, "Market");
    store_edit_mode = 1;
    unit_edit_mode = 1;
    refresh_store_list();
    EXPECT_EQ(store_edit_mode, 0);
    EXPECT_EQ(unit_edit_mode, 1);
    refresh_unit_list();
    EXPECT_EQ(unit_edit_mode, 0);
}

TEST_F(NameRowsTest, AcceptingWithoutEditModeMakesANewRow) {
    add_store(1, "Market");
    refresh_store_list();
    store_list_row = 0;
    accept_store("Bakery");
    EXPECT_EQ(stores[1].name, "Market");
    EXPECT_EQ(stores[2].name, "Bakery");
    EXPECT_EQ(stores[2].in_use, 1);
    EXPECT_EQ(listed_stores(), (std::vector<i16>{1, 2}));
}

TEST_F(NameRowsTest, AcceptingInEditModeRenamesTheCurrentRow) {
    add_store(2, "Market");
    add_store(5, "Bakery");
    refresh_store_list();
    store_edit_mode = 1;
    store_list_row = 1;
    accept_store("Old bakery");
    EXPECT_EQ(stores[5].name, "Old bakery");
    EXPECT_EQ(stores[1].in_use, 0);
    EXPECT_EQ(store_edit_mode, 0);
    EXPECT_EQ(listed_stores(), (std::vector<i16>{2, 5}));
}

TEST_F(NameRowsTest, AUnitIsRenamedInEditModeByItsOwnList) {
    refresh_unit_list();
    unit_edit_mode = 1;
    unit_list_row = 12;
    store_edit_mode = 0;
    accept_unit("none");
    EXPECT_EQ(units[13].name, "none");
    EXPECT_EQ(units[14].in_use, 0);
}

TEST_F(NameRowsTest, AStoreRenamedToBlanksIsFreedAndItsItemsKeepTheNumber) {
    add_store(2, "Market");
    add_item(1, "Milk");
    items[1].store = 2;
    refresh_store_list();
    store_edit_mode = 1;
    store_list_row = 0;
    accept_store("   ");
    EXPECT_EQ(stores[2].in_use, 0);
    EXPECT_EQ(listed_stores(), std::vector<i16>{});
    EXPECT_EQ(items[1].store, 2);
}

TEST_F(NameRowsTest, ANewBlankNameTakesNoSlot) {
    accept_store("");
    accept_unit("  ");
    EXPECT_EQ(stores[1].in_use, 0);
    EXPECT_EQ(units[14].in_use, 0);
}

TEST_F(NameRowsTest, ALongNameIsCutAtTwelveCharacters) {
    accept_store("Farmers' market");
    EXPECT_EQ(stores[1].name, "Farmers' mar");
    EXPECT_EQ(CheckStores("Farmers' mar"), 1);
    EXPECT_EQ(CheckStores("Farmers' market"), 0);
}

TEST_F(NameRowsTest, TwoStoresMayBearOneNameAndTheLowerSlotIsFound) {
    accept_store("Market");
    accept_store("Market");
    EXPECT_EQ(listed_stores(), (std::vector<i16>{1, 2}));
    EXPECT_EQ(CheckStores("Market"), 1);
}

TEST_F(NameRowsTest, CheckingPassesOverTrailingBlanksOnly) {
    add_store(4, " Market");
    EXPECT_EQ(CheckStores(" Market   "), 4);
    EXPECT_EQ(CheckStores("Market"), 0);
    EXPECT_EQ(CheckUnits("each      "), 1);
    EXPECT_EQ(CheckUnits(" each"), 0);
}

TEST_F(NameRowsTest, CheckingTellsUpperFromLowerCase) {
    add_store(4, "Market");
    EXPECT_EQ(CheckStores("market"), 0);
    EXPECT_EQ(CheckUnits("Each"), 0);
    EXPECT_EQ(CheckUnits("na"), 13);
}

TEST_F(NameRowsTest, CheckingFindsFreeRowsToo) {
    stores[6].name = "Closed";
    add_store(7, "Closed");
    EXPECT_EQ(CheckStores("Closed"), 6);
    units[20].name = "pinch";
    EXPECT_EQ(CheckUnits("pinch"), 20);
}

TEST_F(NameRowsTest, CheckingForBlankFindsTheFirstBlankSlot) {
    add_store(1, "Market");
    EXPECT_EQ(CheckStores(""), 2);
    EXPECT_EQ(CheckStores("    "), 2);
    EXPECT_EQ(CheckUnits(""), 14);
    fill_rows(stores, 1, 1000);
    EXPECT_EQ(CheckStores(""), 0);
}

TEST_F(NameRowsTest, CheckingReachesTheLastSlotAndNeverEntryZero) {
    add_store(1000, "Mill");
    add_store(0, "Nowhere");
    EXPECT_EQ(CheckStores("Mill"), 1000);
    EXPECT_EQ(CheckStores("Nowhere"), 0);
    units[1000].name = "pinch";
    EXPECT_EQ(CheckUnits("pinch"), 1000);
}

TEST_F(NameRowsTest, UnusedSelectedStoresAreBlankedAndFreed) {
    add_store(2, "Market");
    add_store(5, "Bakery");
    add_store(9, "Mill");
    refresh_store_list();
    store_edit_mode = 1;
    delete_selected_stores(Rows{0, 2});
    EXPECT_EQ(stores[2].in_use, 0);
    EXPECT_TRUE(stores[2].name.blank());
    EXPECT_EQ(stores[9].in_use, 0);
    EXPECT_TRUE(stores[9].name.blank());
    EXPECT_EQ(listed_stores(), std::vector<i16>{5});
    EXPECT_EQ(store_edit_mode, 0);
}

TEST_F(NameRowsTest, DeletingNothingSelectedEndsTheEditMode) {
    add_store(2, "Market");
    refresh_store_list();
    store_edit_mode = 1;
    delete_selected_stores(Rows{});
    EXPECT_EQ(listed_stores(), std::vector<i16>{2});
    EXPECT_EQ(store_edit_mode, 0);
}

TEST_F(NameRowsTest, NoEndsTheWholeCommand) {
    add_store(1, "Market");
    add_store(2, "Bakery");
    add_store(3, "Mill");
    add_item(4, "Bread");
    add_item(8, "Rolls");
    items[4].store = 2;
    items[8].store = 2;
    refresh_store_list();
    store_edit_mode = 1;
    platform.boxes.expect_message(store_question("ITEM:Bread,ITEM:Rolls,"), Answer::no)
        .buttons(Buttons::yes_no);
    delete_selected_stores(Rows{0, 1, 2});
    EXPECT_EQ(stores[1].in_use, 0) << "deleted before the question";
    EXPECT_EQ(stores[2].name, "Bakery");
    EXPECT_EQ(stores[2].in_use, 1);
    EXPECT_EQ(stores[3].name, "Mill");
    EXPECT_EQ(stores[3].in_use, 1);
    EXPECT_EQ(items[4].store, 2);
    EXPECT_EQ(store_edit_mode, 1) << "nothing runs behind the question";
    EXPECT_EQ(platform.calls.entries, Texts{});
}

TEST_F(NameRowsTest, YesOpensTheReplacementScreenForTheStoreAndLeavesTheDeletionToIt) {
    add_store(3, "Bakery");
    add_item(4, "Bread");
    items[4].store = 3;
    refresh_store_list();
    platform.boxes.expect_message(store_question("ITEM:Bread,"), Answer::yes);
    delete_selected_stores(Rows{0});
    EXPECT_EQ(platform.calls.entries, Texts{"ReplaceItem 3 type 2"});
    EXPECT_EQ(stores[3].name, "Bakery") << "the screen was closed with nothing done";
    EXPECT_EQ(stores[3].in_use, 1);
    EXPECT_EQ(listed_stores(), std::vector<i16>{3});
    EXPECT_EQ(store_edit_mode, 0);
}

TEST_F(NameRowsTest, RowsBehindAReplacedOneAreTheOnesThatWereSelected) {
    add_store(2, "Market");
    add_store(4, "Bakery");
    add_store(6, "Mill");
    add_store(8, "Dairy");
    add_item(1, "Bread");
    items[1].store = 2;
    refresh_store_list();
    platform.boxes.expect_message(store_question("ITEM:Bread,"), Answer::yes);
    platform.boxes.expect_message("All replacements completed successfully.");
    platform.replace_item.chosen = [](i16 row, i16) {
        replace_row(row, 8, ReplacementType::store);
    };
    delete_selected_stores(Rows{0, 1});
    EXPECT_EQ(stores[2].in_use, 0);
    EXPECT_EQ(stores[4].in_use, 0);
    EXPECT_EQ(items[1].store, 8);
    EXPECT_EQ(listed_stores(), (std::vector<i16>{6, 8}));
}

TEST_F(NameRowsTest, AStoreThatTookTheItemsOfAnEarlierOneIsAskedAbout) {
    add_store(1, "Market");
    add_store(2, "Bakery");
    add_item(1, "Bread");
    items[1].store = 1;
    refresh_store_list();
    platform.boxes.expect_message(store_question("ITEM:Bread,"), Answer::yes);
    platform.boxes.expect_message("All replacements completed successfully.");
    platform.boxes.expect_message(store_question("ITEM:Bread,"), Answer::no);
    platform.replace_item.chosen = [](i16 row, i16) {
        replace_row(row, 2, ReplacementType::store);
    };
    delete_selected_stores(Rows{0, 1});
    EXPECT_EQ(stores[1].in_use, 0);
    EXPECT_EQ(stores[2].in_use, 1);
    EXPECT_EQ(items[1].store, 2);
}

TEST_F(NameRowsTest, AUnitInUseIsAskedAboutInItsOwnWords) {
    add_item(4, "Bread");
    items[4].serving_size_units = 2;
    refresh_unit_list();
    unit_edit_mode = 1;
    platform.boxes.expect_message(unit_question("ITEM:Bread,"), Answer::no)
        .buttons(Buttons::yes_no);
    delete_selected_units(Rows{0, 1, 2});
    EXPECT_EQ(units[1].in_use, 0);
    EXPECT_EQ(units[2].name, "Cup(s)");
    EXPECT_EQ(units[3].in_use, 1);
    EXPECT_EQ(unit_edit_mode, 1);
}

TEST_F(NameRowsTest, YesOpensTheReplacementScreenForTheUnit) {
    add_item(4, "Bread");
    items[4].qty_units = 13;
    refresh_unit_list();
    platform.boxes.expect_message(unit_question("ITEM:Bread,"), Answer::yes);
    delete_selected_units(Rows{12});
    EXPECT_EQ(platform.calls.entries, Texts{"ReplaceItem 13 type 3"});
    EXPECT_EQ(units[13].in_use, 1);
}

TEST_F(NameRowsTest, AUnitOfNutrientsOnlyIsDeletedWithoutAQuestion) {
    add_item(4, "Bread");
    item_details[4].fat_units = 11;
    refresh_unit_list();
    delete_selected_units(Rows{10});
    EXPECT_EQ(units[11].in_use, 0);
    EXPECT_TRUE(units[11].name.blank());
    EXPECT_EQ(item_details[4].fat_units, 11);
}

TEST_F(NameRowsTest, TheItemScreenIsToldOfNewNamesWhileItIsLoaded) {
    refresh_store_combo();
    refresh_unit_combos();
    EXPECT_EQ(platform.calls.entries, Texts{});
    FakeFoodInventory food(platform.calls);
    refresh_store_combo();
    refresh_unit_combos();
    EXPECT_EQ(platform.calls.entries,
              (Texts{"FoodInventory refresh_stores", "FoodInventory refresh_units"}));
}

}  // namespace
}  // namespace tavernook
