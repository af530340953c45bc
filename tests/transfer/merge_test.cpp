// The command "Merge Project".
#include <filesystem>

#include "inventory/lots.h"
#include "support/generated_projects.h"
#include "support/table_snapshot.h"
#include "transfer/merge_fixture.h"

namespace tavernook {
namespace {

class MergeProject : public MergeTest {
  protected:
    MergeProject() { put_cabin(); }
};

TEST_F(MergeProject, AsksForTheFileAndTellsWhatCame) {
    put_cabin([] {
        put_item(5, "Milk");
        put_item(6, "Bread");
        put_meal(3, "Soup");
        units[20] = {"Crate", 1};
    });
    platform.dialogs.expect_open("Merge Projects", cabin)
        .filter("Tavernook Files (*.tvk)|*.tvk")
        .initial_file(in_program("*.tvk"));
    mnuFile_ProjectMerge();
    EXPECT_EQ(message(),
              "Merged from cabin.tvk: 2 items, 1 recipe, 1 new unit, 1 new store and 1 new "
              "category.");
    EXPECT_EQ(merge_path, cabin);
    EXPECT_EQ(project_modified, i16_true);
    expect_open(home, "home.tvk");
}

TEST_F(MergeProject, AFileThatEndsEarlyIsTold) {
    put_cabin([] { put_item(5, "Milk"); });
    std::filesystem::resize_file(cabin, std::filesystem::file_size(cabin) - 9000);
    user_merges_cabin();
    EXPECT_EQ(
        message(),
        "Merged from cabin.tvk: 1 item, 1 new store and 1 new category; that file ends early, "
        "and what it lacks is not here.");
}

TEST_F(MergeProject, GoesInThisOrder) {
    user_merges_cabin();
    EXPECT_EQ(steps(),
              (Steps{"dialog Merge Projects",
                     "progress load Merge Projects|Merging Projects...Please Wait",
                     "progress offer cancel", "progress show", "progress bar 0",
                     "window status 3 Merging Projects...", "progress bar 100", "progress hide",
                     "progress unload", "window status 2 Audit Time: 11:59 PM",
                     "window status 1 Merged from cabin.tvk: 1 new store and 1 new category."}));
}

TEST_F(MergeProject, CancelEndsItWithoutAWord) {
    platform.dialogs.expect_open("Merge Projects", cancelled);
    mnuFile_ProjectMerge();
    EXPECT_EQ(steps(), (Steps{"dialog Merge Projects"}));
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(MergeProject, WithoutAProjectNothingIsAsked) {
    mnuFile_Close();
    forget_steps();
    mnuFile_ProjectMerge();
    EXPECT_EQ(steps(), Steps{});
}

TEST_F(MergeProject, AFileThatIsNotThereHasABoxOfItsOwn) {
    const TableSnapshot before;
    platform.boxes.expect_message("File Does Not Exist");
    user_merges(platform.path("gone.tvk"));
    EXPECT_EQ(project_load_failed, i16_true);
    EXPECT_EQ(TableSnapshot().difference(before), "");
    EXPECT_EQ(message(), "gone.tvk was not merged; nothing has changed.");
    EXPECT_EQ(platform.progress.events().back(), "unload");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(MergeProject, CategoriesTakeFreeRowsAndKeepTheirTree) {
    put_cabin([] {
        catagories[1] = {"General", 1, 0, 0};
        catagories[4] = {"Cheese", 1, 0, 9};  // before the one above it
        catagories[9] = {"Dairy", 1, 0, 0};
        catagories[10] = {"Soups", 1, 32, 77};  // 77 is none
    });
    catagories[3] = {"Ours", 1, 0, 0};
    user_merges_cabin();
    EXPECT_EQ(catagories[2], (CatagoryRecord{"General", 1, 0, 0}));
    EXPECT_EQ(catagories[3], (CatagoryRecord{"Ours", 1, 0, 0}));
    EXPECT_EQ(catagories[4], (CatagoryRecord{"Cheese", 1, 0, 5}));
    EXPECT_EQ(catagories[5], (CatagoryRecord{"Dairy", 1, 0, 0}));
    EXPECT_EQ(catagories[6], (CatagoryRecord{"Soups", 1, 32, 0}));
}

TEST_F(MergeProject, UnitsAndStoresOfOneNameAreSharedAndCapitalsTellThemApart) {
    put_cabin([] {
        units[1] = {"Litre", 1};
        units[2] = {"LITRE", 1};
        stores[1] = {"Bakery", 1};
        stores[2] = {"bakery", 1};
        ItemRecord& milk = put_item(1, "Milk");
        milk.qty_units = 1;
        milk.serving_size_units = 2;
        milk.store = 1;
        put_item(2, "Bread").store = 2;
    });
    for (UnitRecord& unit : units) unit = {};
    units[700] = {"Litre", 1};
    user_merges_cabin();
    EXPECT_EQ(live(units), 2);
    EXPECT_EQ(live(stores), 2);
    EXPECT_EQ(units[1].name, "LITRE");
    EXPECT_EQ(stores[2].name, "bakery");
    EXPECT_EQ(items[1].qty_units, 700);
    EXPECT_EQ(items[1].serving_size_units, 1);
    EXPECT_EQ(items[1].store, 1);
    EXPECT_EQ(items[2].store, 2);
}

TEST_F(MergeProject, ItemsTakeFreeSlotsWithTheirReferences) {
    put_cabin([] {
        catagories[8] = {"Dairy", 1, 0, 0};
        units[30] = {"Crate", 1};
        units[31] = {"Glass", 1};
        ItemRecord& milk = put_item(9000, "Milk");
        milk.category = 8;
        milk.quantity = 2.5;
        milk.qty_units = 30;
        milk.serving_size_units = 31;
        milk.store = 1;
        milk.cost = 1.25;
        milk.fat = 3;
        milk.storage_time = 14;
        milk.last_restock_date = 45000;
        milk.locations = 17;
        milk.store_order = 7;
        milk.barcode = "4012345";
        item_details[9000].fat = 12;
        item_details[9000].notes = 3;
        pooled_strings[3] = "Notes";
    });
    put_item(1, "Ours");
    item_details[2].sodium = 5;  // left by another item
    user_merges_cabin();
    const ItemRecord& milk = items[2];
    EXPECT_EQ(milk.name, "Milk");
    EXPECT_EQ(catagories[milk.category].name, "Dairy");
    EXPECT_EQ(units[milk.qty_units].name, "Crate");
    EXPECT_EQ(units[milk.serving_size_units].name, "Glass");
    EXPECT_EQ(stores[milk.store].name, "Market");
    EXPECT_EQ(milk.cost, 1.25);
    EXPECT_EQ(milk.fat, 3);
    EXPECT_EQ(milk.storage_time, 14);
    EXPECT_EQ(milk.last_restock_date, 45000);
    EXPECT_EQ(milk.locations, 17);
    EXPECT_EQ(milk.store_order, 7);
    EXPECT_EQ(milk.barcode, "4012345");
    EXPECT_EQ(item_details[2], ItemDetailRecord{});
    EXPECT_EQ(pooled_strings[3], "");
    EXPECT_EQ(items[1].name, "Ours");
    EXPECT_EQ(items[9000].in_use, 0);
}

// Its stock would vanish at the next sum.
TEST_F(MergeProject, AnItemsQuantityIsItsFirstLotAtOnce) {
    put_cabin([] {
        ItemRecord& milk = put_item(1, "Milk");
        milk.quantity = 2.5;
        milk.last_restock_date = 45000;
        milk.storage_time = 14;
        init_lot_record(1);
        lots[1].lot_quantity[0] = 1;
        lots[1].lot_quantity[3] = 1.5;
    });
    put_item(1, "Ours").quantity = 4;
    first_lot_from_item(1);
    user_merges_cabin();
    EXPECT_EQ(lot_total(1), 4);
    EXPECT_EQ(lot_total(2), 2.5);
    EXPECT_EQ(lots[2].lot_quantity[0], 2.5);
    EXPECT_EQ(lots[2].expiration_date[0], 45014);
}

TEST_F(MergeProject, ShoppingFiguresThatAreNoneArePutRight) {
    put_cabin([] {
        ItemRecord& milk = put_item(1, "Milk");
        milk.store_order = 21;
        milk.on_shopping_list = 1;
        milk.shopping_quantity = 10001;
        ItemRecord& bread = put_item(2, "Bread");
        bread.store_order = 20;
        bread.on_shopping_list = 1;
        bread.shopping_quantity = 0.001;
    });
    user_merges_cabin();
    EXPECT_EQ(items[1].store_order, 0);
    EXPECT_EQ(items[1].on_shopping_list, 0);
    EXPECT_EQ(items[1].shopping_quantity, 0);
    EXPECT_EQ(items[2].store_order, 20);
    EXPECT_EQ(items[2].on_shopping_list, 1);
    EXPECT_EQ(items[2].shopping_quantity, 0.001);
}

TEST_F(MergeProject, ReferencesToNothingAreNone) {
    put_cabin([] {
        ItemRecord& milk = put_item(1, "Milk");
        milk.category = 55;
        milk.qty_units = 900;
        milk.serving_size_units = -3;
        milk.store = 32767;
        MealRecord& soup = put_meal(1, "Soup");
        soup.ingredient_item[1] = 1;
        soup.ingredient_qty[1] = 2;
        soup.ingredient_item[2] = 700;
        soup.ingredient_qty[2] = 3;
        soup.ingredient_item[3] = -9;
        soup.ingredient_qty[3] = 4;
    });
    user_merges_cabin();
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(items[1].qty_units, 0);
    EXPECT_EQ(items[1].serving_size_units, 0);
    EXPECT_EQ(items[1].store, 0);
    EXPECT_EQ(meals[1].ingredient_item[1], 1);
    EXPECT_EQ(meals[1].ingredient_qty[1], 2);
    for (const std::size_t place : {2u, 3u}) {
        EXPECT_EQ(meals[1].ingredient_item[place], 0);
        EXPECT_EQ(meals[1].ingredient_qty[place], 0);
    }
}

TEST_F(MergeProject, RecipesTakeFreeSlotsWithTheirIngredientsAndTexts) {
    put_cabin([] {
        put_item(40, "Milk");
        put_item(41, "Bread");
        MealRecord& soup = put_meal(1000, "Soup");
        soup.ingredient_item[1] = 41;
        soup.ingredient_item[50] = 40;
        soup.ingredient_qty[50] = 0.5;
        soup.category = 12;
        soup.serving_size_units = 13;
        meal_serving_size[1000] = 8;
        meal_documents[1000] = "*vk14cabin001000.rtf";
    });
    put_meal(1, "Ours");
    put_item(1, "Water");
    meal_serving_size[2] = 4;  // of a recipe that was deleted
    user_merges_cabin();
    EXPECT_EQ(meals[2].name, "Soup");
    EXPECT_EQ(meals[2].ingredient_item[1], 3);
    EXPECT_EQ(meals[2].ingredient_item[50], 2);
    EXPECT_EQ(meals[2].ingredient_qty[50], 0.5);
    EXPECT_EQ(meals[2].category, 12);
    EXPECT_EQ(meals[2].serving_size_units, 13);
    EXPECT_EQ(meal_documents[2], "*vk14cabin001000.rtf");
    EXPECT_EQ(meal_serving_size[2], 1);
    EXPECT_EQ(meals[1].name, "Ours");
}

TEST_F(MergeProject, DaysAndSettingsStay) {
    put_cabin([] {
        days[1] = {.month = 5, .year = 2026, .day = 1, .in_use = 1};
        days[2] = {.month = 6, .year = 2026, .day = 2, .in_use = 1};
        sales_tax = 19;
        font_size = 48;
        show_toolbar_text = 77;
        project_tag = 99;
        project_reserved_words.fill(5);
        file_version = 0;
    });
    days[1] = {.month = 3, .year = 2024, .day = 4, .in_use = 1};
    const ProjectHeader header = project_header;
    user_merges_cabin();
    EXPECT_EQ(days[1].year, 2024);
    EXPECT_EQ(days[2].in_use, 0);
    EXPECT_EQ(sales_tax, 0);
    EXPECT_NE(font_size, 48);
    EXPECT_NE(show_toolbar_text, 77);
    EXPECT_NE(project_tag, 99);
    EXPECT_EQ(project_reserved_words[0], 0);
    EXPECT_EQ(project_header, header);
    EXPECT_EQ(file_version, 1);
    mnuFile_Save();
    EXPECT_EQ(store_on_disk(home), "Bakery");
}

TEST_F(MergeProject, WithItselfEachItemIsThereTwice) {
    mnuFile_Close();
    make_project(home, "Bakery", fill_typical_project);
    begin();
    const int items_before = live(items);
    const int meals_before = live(meals);
    const int units_before = live(units);
    const int stores_before = live(stores);
    user_merges(home);
    EXPECT_EQ(live(items), 2 * items_before);
    EXPECT_EQ(live(meals), std::min(2 * meals_before, meal_capacity));
    EXPECT_EQ(live(units), units_before);
    EXPECT_EQ(live(stores), stores_before);
    mnuFile_Save();
    user_opens(home);
    EXPECT_EQ(live(items), 2 * items_before);
}

TEST_F(MergeProject, AnAuditAtTheStartIsOneBehindAMerge) {
    user_merges_cabin();
    EXPECT_EQ(audits(), 0);
    audit_on_startup = i16_true;
    user_merges_cabin();
    EXPECT_EQ(audits(), 1);
}

TEST_F(MergeProject, CancelledInTheMiddleItChangesNothing) {
    put_cabin([] { fill_typical_project(); });
    put_item(1, "Ours");
    const TableSnapshot before;
    platform.progress.cancelled = true;
    user_merges_cabin();
    EXPECT_EQ(TableSnapshot().difference(before), "");
    EXPECT_EQ(message(), "cabin.tvk was not merged; nothing has changed.");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(platform.progress.events().back(), "unload");
}

TEST_F(MergeProject, WhereAReadingFailsNothingHasChanged) {
    put_cabin([] { fill_typical_project(); });
    user_merges_cabin();
    const int operations = platform.files.operations();
    for (int n = 1; n <= operations; ++n) {
        put_cabin([] { fill_typical_project(); });
        const TableSnapshot before;
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::device_io_error);
        platform.boxes.expect_message(
            "Error in Module MAIN.mnuFile_ProjectMerge_Click.  Error Number 57 Err "
            "Description=" +
            fault_description(57));
        user_merges_cabin();
        ASSERT_EQ(TableSnapshot().difference(before), "") << "operation " << n;
        ASSERT_EQ(message(), "cabin.tvk was not merged; nothing has changed.");
    }
}

// --- full tables ---------------------------------------------------------------------------------

template <typename Record, int N>
void fill_rows(Table<Record, N>& table, int rows) {
    for (int row = 1; row <= rows; ++row) {
        table[row].name = "Row " + std::to_string(row);
        table[row].in_use = 1;
    }
}

std::string limit_of(const std::string& plural, const std::string& small) {
    return "You have reached the limitation of " + plural +
           " allowed in Tavernook.  It is recommended that you delete some " + small +
           " to allow for some more room.";
}

TEST_F(MergeProject, AFullItemTableEndsEveryItemInTheLastSlotWithItsBoxEachTime) {
    put_cabin([] {
        for (i16 item = 1; item <= 4; ++item) {
            put_item(item, "New " + std::to_string(item)).quantity = item;
        }
        MealRecord& soup = put_meal(1, "Soup");
        soup.ingredient_item[1] = 1;
        soup.ingredient_item[2] = 2;
    });
    fill_rows(items, item_capacity - 2);
    for (int item = 0; item < 3; ++item) platform.boxes.expect_message(limit_of("items", "items"));
    user_merges_cabin();
    EXPECT_EQ(items[9999].name, "New 1");
    EXPECT_EQ(items[10000].name, "New 4");
    EXPECT_EQ(lot_total(10000), 4);
    EXPECT_EQ(meals[1].ingredient_item[1], 9999);
    EXPECT_EQ(meals[1].ingredient_item[2], 10000);
    EXPECT_TRUE(message().starts_with("Merged from cabin.tvk: 2 items, ")) << message();
}

TEST_F(MergeProject, InFullTablesNoRowInUseIsOverwritten) {
    put_cabin([] {
        catagories[5] = {"Dairy", 1, 0, 0};
        units[1] = {"Crate", 1};
        units[2] = {"Row 7", 1};
        stores[2] = {"Kiosk", 1};
        ItemRecord& milk = put_item(1, "Milk");
        milk.category = 5;
        milk.qty_units = 1;
        milk.serving_size_units = 2;
        milk.store = 2;
    });
    fill_rows(units, unit_capacity);
    fill_rows(stores, store_capacity);
    fill_rows(catagories, catagory_capacity);
    platform.boxes.expect_message(limit_of("Units", "units"));
    platform.boxes.expect_message(limit_of("stores", "stores"));
    user_merges_cabin();
    EXPECT_EQ(units[1000].name, "Row 1000");
    EXPECT_EQ(stores[1000].name, "Row 1000");
    EXPECT_EQ(catagories[100].name, "Row 100");
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(items[1].qty_units, 0);
    EXPECT_EQ(items[1].serving_size_units, 7);
    EXPECT_EQ(items[1].store, 0);
    EXPECT_EQ(message(),
              "Merged from cabin.tvk: 1 item; 5 rows were left out, the first is General: there "
              "is no room for more categories.");
}

TEST_F(MergeProject, InAFullRecipeTableFurtherRecipesAreLeftOut) {
    put_cabin([] {
        put_meal(1, "Soup");
        put_meal(2, "Cake");
        put_meal(3, "Stew");
    });
    fill_rows(meals, meal_capacity - 1);
    platform.boxes.expect_message(limit_of("meals", "meals"));
    platform.boxes.expect_message(limit_of("meals", "meals"));
    user_merges_cabin();
    EXPECT_EQ(meals[1000].name, "Soup");
    EXPECT_EQ(meals[999].name, "Row 999");
    EXPECT_TRUE(message().ends_with(
        "; 2 rows were left out, the first is Cake: there is no room for more recipes."));
}

TEST_F(MergeProject, CancelledBehindABoxItPutsEverythingBack) {
    put_cabin([] {
        units[1] = {"Crate", 1};
        put_item(1, "Milk");
        put_meal(1, "Soup");
        meal_documents[1] = "*vk14soup.rtf";
    });
    fill_rows(units, unit_capacity);
    const TableSnapshot before;
    platform.boxes.expect_message(limit_of("Units", "units")).during([this] {
        platform.progress.cancelled = true;
    });
    user_merges_cabin();
    EXPECT_EQ(TableSnapshot().difference(before), "");
    EXPECT_EQ(message(), "cabin.tvk was not merged; nothing has changed.");
    EXPECT_EQ(project_modified, i16_false);
}

// A live unit without a name is nobody's: its row would be the next new unit's.
TEST_F(MergeProject, AUnitWithoutANameIsNone) {
    put_cabin([] {
        units[1] = {"", 1};
        units[2] = {"Crate", 1};
        put_item(1, "Milk").qty_units = 1;
    });
    user_merges_cabin();
    EXPECT_EQ(items[1].qty_units, 0);
}

}  // namespace
}  // namespace tavernook
