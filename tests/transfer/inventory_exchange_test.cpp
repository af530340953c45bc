// Inventory files, out and in, and the two commands.
#include "transfer/inventory_exchange.h"

#include "core/catagories.h"
#include "core/project_file/sequential_file.h"
#include "support/damaged_household.h"
#include "transfer/exchange_fixture.h"
#include "transfer/import_tally.h"
#include "transfer/inventory_bytes.h"
#include "transfer/inventory_file.h"

namespace tavernook {
namespace {

constexpr const char* export_question =
    "Press YES if you want to Export the entire inventory, Or Press NO if you just want to export "
    "the current selected category.";
constexpr const char* cabinet_line = "cabinet of temppf.tmp\n";
constexpr const char* limit_box =
    "You have reached the limitation of items allowed in Tavernook.  It is recommended that you "
    "delete some items to allow for some more room.";

std::string exists_already(const std::string& name) {
    return "The item " + name +
           " already exists in your inventory.  Press YES to use existing inventory Item or NO to "
           "add the item to inventory as new item";
}

class InventoryExchange : public ExchangeTest {
  protected:
    const std::string path = platform.path("pantry.ipf");
    const std::string plain_file = platform.system.program + "/temppf.tmp";

    void lies_there(const std::string& plain) { write_whole_file(path, cabinet_line + plain); }
    void import(const std::vector<InventoryItemBytes>& items) {
        lies_there(inventory_bytes(items));
        import_inventory(path);
        EXPECT_FALSE(platform.disk.is_taken(plain_file));
        look_for_changes();
    }
    // The plain file that was exported.
    std::string exported(Answer answer = Answer::yes) {
        platform.boxes.expect_message(export_question, answer).buttons(Buttons::yes_no_cancel);
        export_inventory(path);
        EXPECT_FALSE(platform.disk.is_taken(plain_file));
        const std::string bytes = read_whole_file(path);
        return bytes.starts_with(cabinet_line) ? bytes.substr(22) : "no cabinet";
    }
    ExpectedBox& user_is_asked(const std::string& name, Answer answer) {
        return platform.boxes.expect_message(exists_already(name), answer).buttons(Buttons::yes_no);
    }
    static int count_in(const std::string& plain) {
        return static_cast<unsigned char>(plain[0]) + 256 * static_cast<unsigned char>(plain[1]);
    }
};

// --- out ----------------------------------------------------------------------------------------

TEST_F(InventoryExchange, AnExportLogsWhatItDoes) {
    make_item(3, "Milk");
    make_item(9, "Eggs");
    EXPECT_EQ(count_in(exported()), 2);
    EXPECT_EQ(log(), (Lines{"begin Export Status", "line Starting Export of Inventory",
                            "line Exporting Item Milk", "line Exporting Item Eggs",
                            "line Exported 2 items to pantry.ipf.", "end"}));
    EXPECT_EQ(message(), "Exported 2 items to pantry.ipf.");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(InventoryExchange, EveryFieldHasItsPlace) {
    units[20] = {"jar", 1};
    units[21] = {"spoon", 1};
    stores[4] = {"Corner", 1};
    make_catagory(6, "Baking");
    make_item(5, "Sugar", 6);
    ItemRecord& item = items[5];
    item.quantity = 6;
    item.stock_quantity = 12;
    item.qty_units = 20;
    item.storage_time = 30;
    item.cost = 1.25;
    item.store = 4;
    item.serving_size_units = 21;
    item.barcode = "4006381333931";
    item_details[5].manufacturer = 1;
    item_details[5].brand = 2;
    item_details[5].description = 3;
    item_details[5].notes = 4;
    item_details[5].fat = 0.5;
    item_details[5].fat_units = 20;
    item_details[5].protien_units = 21;
    pooled_strings[1] = "Mill";
    pooled_strings[2] = "Sweet";
    pooled_strings[3] = "white, fine";
    pooled_strings[4] = "keep dry";
    const std::string bytes = exported();
    const auto at = [&](std::size_t position, std::size_t count) {
        return bytes.substr(position - 1, count);
    };
    ByPosition numbers;
    numbers.put_i16(1, 1);
    numbers.put_f64(3, 6);
    numbers.put_i32(11, 11);
    numbers.put_i32(15, 8);
    EXPECT_EQ(at(1, 2), numbers.bytes.substr(0, 2));
    EXPECT_EQ(at(3, 97), std::string(97, '\0'));
    EXPECT_EQ(at(102, 32), padded("Sugar", 32));
    EXPECT_EQ(at(134, 8), numbers.bytes.substr(2, 8));
    EXPECT_EQ(at(218, 32), padded("4006381333931", 32));
    // Q = 100 + 256
    EXPECT_EQ(at(356, 32), "Mill" + std::string(28, '\0'));
    EXPECT_EQ(at(388, 32), "Sweet" + std::string(27, '\0'));
    EXPECT_EQ(at(420, 4), numbers.bytes.substr(10, 4));
    EXPECT_EQ(at(424, 11), "white, fine");
    EXPECT_EQ(at(435, 4), numbers.bytes.substr(14, 4));
    EXPECT_EQ(at(439, 8), "keep dry");
    // S = 447
    EXPECT_EQ(at(447, 12), padded("jar", 12));
    EXPECT_EQ(at(459, 12), padded("Corner", 12));
    EXPECT_EQ(at(491, 12), padded("spoon", 12));
    EXPECT_EQ(at(503, 12), padded("jar", 12));
    EXPECT_EQ(at(599, 12), padded("spoon", 12));
    EXPECT_EQ(at(611, 32), padded("Baking", 32));
    EXPECT_EQ(bytes.size(), 447u + 196 - 1);
}

TEST_F(InventoryExchange, OneCategoryGoesOutAlone) {
    make_catagory(2, "Dairy");
    make_item(1, "Milk", 2);
    make_item(2, "Salt", 1);
    make_item(3, "Eggs", 2);
    make_item(4, "Gone", 2);
    items[4].in_use = 0;
    current_catagory = 2;
    const std::string bytes = exported(Answer::no);
    EXPECT_EQ(count_in(bytes), 2);
    EXPECT_TRUE(is_logged("Exporting Item Eggs"));
    EXPECT_FALSE(is_logged("Exporting Item Salt"));
}

TEST_F(InventoryExchange, WithTheAnswerCancelTheFileHasNoItems) {
    make_item(1, "Milk");
    EXPECT_EQ(exported(Answer::cancel), std::string(2, '\0'));
    EXPECT_EQ(message(), "Exported 0 items to pantry.ipf.");
}

TEST_F(InventoryExchange, ACancelledExportLeavesWhatWasThere) {
    make_item(1, "Milk");
    make_item(5000, "Eggs");
    write_whole_file(path, "older");
    platform.import_form.cancel_at = "Exporting Item Eggs";
    platform.boxes.expect_message(export_question, Answer::yes);
    export_inventory(path);
    EXPECT_EQ(read_whole_file(path), "older");
    EXPECT_FALSE(platform.disk.is_taken(plain_file));
    EXPECT_EQ(message(), "The export was cancelled; pantry.ipf was not written.");
    EXPECT_EQ(log().back(), "end");
}

TEST_F(InventoryExchange, AFailedExportIsToldInTheStatusWindow) {
    make_item(1, "Milk");
    platform.cabinets.failure = Fault(61);
    write_whole_file(path, "older");
    platform.boxes.expect_message(export_question, Answer::yes);
    export_inventory(path);
    EXPECT_TRUE(is_logged("Error with Exporting Process Disk full"));
    EXPECT_EQ(message(), "The export failed: Disk full; pantry.ipf was not written.");
    EXPECT_EQ(read_whole_file(path), "older");
    EXPECT_EQ(log().back(), "end");
}

// --- in -----------------------------------------------------------------------------------------

TEST_F(InventoryExchange, AnImportLogsWhatItDoesAndTellsWhatCameIn) {
    InventoryItemBytes flour;
    flour.name = "Flour";
    import({InventoryItemBytes{}, flour});
    EXPECT_EQ(log(),
              (Lines{"begin Import Status", "line Importing Inventory", "line Importing Item Sugar",
                     "line Importing Item Flour", "line Importing completed",
                     "line pantry.ipf: 2 items, 3 new units, 1 new store and 1 new "
                     "category came in.",
                     "end"}));
    EXPECT_EQ(message(),
              "pantry.ipf: 2 items, 3 new units, 1 new store and 1 new category came in.");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(InventoryExchange, ANewItemTakesThisProjectsRows) {
    pooled_strings[4] = "MILL";
    units[3] = {"KG", 1};
    import({InventoryItemBytes {}});
    const ItemRecord& item = items[1];
    EXPECT_EQ(name(1), "Sugar");
    EXPECT_EQ(item.in_use, 1);
    EXPECT_EQ(item.qty_units, 3);
    EXPECT_EQ(unit(item.serving_size_units), "spoon");
    EXPECT_EQ(store(item.store), "Bakery");
    EXPECT_EQ(item.stock_quantity, 12);
    EXPECT_EQ(item.storage_time, 30);
    EXPECT_EQ(item.cost, 1.25);
    EXPECT_EQ(item.locations, 0);
    EXPECT_EQ(item.barcode.right_trimmed(), "4006381333931");
    EXPECT_EQ(item_details[1].manufacturer, 4);
    EXPECT_EQ(text(item_details[1].brand), "Sweet");
    EXPECT_EQ(text(item_details[1].description), "white");
    EXPECT_EQ(text(item_details[1].notes), "keep dry");
    EXPECT_EQ(item_details[1].fat, 0.5);
    EXPECT_EQ(unit(item_details[1].protien_units), "g");
    EXPECT_EQ(catagory(1), "Baking");
    EXPECT_EQ(catagories[items[1].category].type, -1);
    EXPECT_EQ(catagories[items[1].category].parent, 0);
}

TEST_F(InventoryExchange, TheStockOfANewItemLiesInItsFirstLot) {
    import({InventoryItemBytes {}});
    EXPECT_EQ(items[1].quantity, 0);
    EXPECT_EQ(lot_total(1), 6);
    EXPECT_EQ(lots[1].creation_date[0], 45000);
    EXPECT_EQ(lots[1].expiration_date[0], 45030);
}

TEST_F(InventoryExchange, OneThatExistsIsUsedWithTheAnswerYes) {
    make_item(7, " SUGAR ");
    items[7].quantity = 3;
    const ItemRecord before = items[7];
    user_is_asked("Sugar", Answer::yes);
    import({InventoryItemBytes {}});
    EXPECT_EQ(live_items(), 1);
    EXPECT_EQ(catagory(7), "Baking");
    items[7].category = before.category;
    EXPECT_EQ(items[7], before);
    EXPECT_EQ(text(1), "");
    EXPECT_EQ(live_counts().units, 13);
    EXPECT_EQ(message(),
              "pantry.ipf: 1 new category came in; for 1 item those of the inventory were used.");
}

TEST_F(InventoryExchange, AndAddedBesideItWithTheAnswerNo) {
    make_item(7, "Sugar");
    user_is_asked("Sugar", Answer::no);
    user_is_asked("Sugar", Answer::yes);
    import({InventoryItemBytes{}, InventoryItemBytes {}});
    EXPECT_EQ(live_items(), 2);
    EXPECT_EQ(name(1), "Sugar");
    // The second block found the first of that name.
    EXPECT_EQ(catagory(1), "Baking");
    EXPECT_EQ(items[7].category, 1);
}

TEST_F(InventoryExchange, OneThatGoesWhileItIsAskedForIsAdded) {
    make_item(7, "Sugar");
    look_for_changes();
    user_is_asked("Sugar", Answer::yes).during([] {
        items[7] = ItemRecord{};
        look_for_changes();
    });
    import({InventoryItemBytes {}});
    EXPECT_EQ(name(1), "Sugar");
    EXPECT_EQ(items[7].category, 0);
}

TEST_F(InventoryExchange, WhatIsNotLiveDoesNotExist) {
    items[7].name = "Sugar";
    InventoryItemBytes nameless;
    nameless.name = "";
    import({InventoryItemBytes{}, nameless});
    EXPECT_EQ(live_items(), 2);
}

TEST_F(InventoryExchange, CategoriesAreThoseOfItemsAndTheLastOfAName) {
    make_catagory(2, "Baking", recipe_category_type);
    make_catagory(3, "Baking");
    make_catagory(100, " Baking");
    InventoryItemBytes none;
    none.name = "None";
    none.catagory = "";
    import({InventoryItemBytes{}, none});
    EXPECT_EQ(items[1].category, 100);
    EXPECT_EQ(items[2].category, 1);
}

TEST_F(InventoryExchange, ALongBrandIsReadAsFarAsItAlwaysWas) {
    InventoryItemBytes item;
    item.brand = "Sweet and Sour";
    import({item});
    EXPECT_EQ(text(item_details[1].brand), "Sweet and So");
}

TEST_F(InventoryExchange, WhatWentOutComesInAgain) {
    make_catagory(2, "Baking");
    make_item(1, "Sugar", 2);
    items[1].quantity = 6;
    make_item(2, "Milk", 1);
    (void)exported();
    user_is_asked("Sugar", Answer::yes);
    user_is_asked("Milk", Answer::yes);
    const ItemRecord sugar = items[1];
    const ItemRecord milk = items[2];
    import_inventory(path);
    EXPECT_EQ(items[1], sugar);
    EXPECT_EQ(items[2], milk);
    EXPECT_EQ(live_counts(), (LiveCounts{2, 0, 13, 0, 2, 0}));
    EXPECT_EQ(message(),
              "pantry.ipf: nothing came in; for 2 items those of the inventory were used.");
}

TEST_F(InventoryExchange, AFullInventoryIsNotWrittenOver) {
    for (i16 item = 1; item <= item_capacity; ++item) make_item(item, "i" + std::to_string(item));
    items[17].in_use = 0;
    InventoryItemBytes second;
    second.name = "Flour";
    second.unit = "sack";
    import({InventoryItemBytes{}, second, second});
    EXPECT_EQ(name(17), "Sugar");
    EXPECT_EQ(name(item_capacity), "i10000");
    EXPECT_EQ(message(),
              "pantry.ipf: 1 item, 3 new units, 1 new store and 1 new category came in; 2 rows "
              "were left out, the first is item 2: the inventory is full.");
}

TEST_F(InventoryExchange, TheLastSlotIsTakenWithTheBoxOfItsLimit) {
    for (i16 item = 1; item < item_capacity; ++item) make_item(item, "i" + std::to_string(item));
    platform.boxes.expect_message(limit_box);
    import({InventoryItemBytes {}});
    EXPECT_EQ(name(item_capacity), "Sugar");
}

// --- what ends it -------------------------------------------------------------------------------

TEST_F(InventoryExchange, ACancelledImportChangesNothing) {
    InventoryItemBytes flour;
    flour.name = "Flour";
    platform.import_form.cancel_at = "Importing Item Flour";
    import({InventoryItemBytes{}, flour});
    EXPECT_EQ(live_counts(), (LiveCounts{0, 0, 13, 0, 1, 0}));
    EXPECT_EQ(text(1), "");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(message(), "The import of pantry.ipf was cancelled; nothing has changed.");
    EXPECT_EQ(log().back(), "end");
}

TEST_F(InventoryExchange, CancelledWhileItIsUnpackedItChangesNothing) {
    platform.cabinets.meanwhile = [this](int) { platform.progress.cancelled = true; };
    import({InventoryItemBytes {}});
    EXPECT_EQ(live_items(), 0);
    EXPECT_EQ(message(), "The import of pantry.ipf was cancelled; nothing has changed.");
}

TEST_F(InventoryExchange, CutAnywhereItChangesNothing) {
    InventoryItemBytes flour;
    flour.name = "Flour";
    const std::string whole = inventory_bytes({InventoryItemBytes{}, flour});
    for (std::size_t length = 0; length < whole.size(); length += length < 110 ? 1 : 13) {
        lies_there(whole.substr(0, length));
        platform.boxes.expect_message("Tavernook error: rt6:63. Contact Brenwyk Software.");
        import_inventory(path);
        ASSERT_EQ(live_counts(), (LiveCounts{0, 0, 13, 0, 1, 0})) << length;
        ASSERT_EQ(message(), "pantry.ipf could not be imported; nothing has changed.") << length;
    }
    EXPECT_TRUE(is_logged("Error with Importing Process Bad record number"));
}

TEST_F(InventoryExchange, NumbersThatCannotBeChangeNothing) {
    const std::string whole = inventory_bytes({InventoryItemBytes{}});
    const auto refused = [&](std::size_t position, const std::string& bytes) {
        std::string damaged = whole;
        damaged.replace(position - 1, bytes.size(), bytes);
        lies_there(damaged);
        platform.boxes.expect_message("Tavernook error: rt6:63. Contact Brenwyk Software.");
        import_inventory(path);
        EXPECT_EQ(live_counts(), (LiveCounts{0, 0, 13, 0, 1, 0})) << position;
    };
    refused(1, "\xFF\x7F");  // 32767 items
    refused(1, "\xFF\xFF");  // -1
    for (const std::size_t length : {std::size_t{420}, std::size_t{429}}) {
        refused(length, "\xFF\xFF\xFF\xFF");
        refused(length, "\xFF\xFF\xFF\x7F");
        refused(length, std::string("\0\0\0\x80", 4));
        refused(length, std::string("\0\1\0\0", 4));
    }
}

TEST_F(InventoryExchange, WhatIsNoCabinetChangesNothing) {
    write_whole_file(path, "hello");
    platform.boxes.expect_message("Tavernook error: rt6:63. Contact Brenwyk Software.");
    import_inventory(path);
    EXPECT_EQ(message(), "pantry.ipf could not be imported; nothing has changed.");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_FALSE(platform.disk.is_taken(plain_file));
}

TEST_F(InventoryExchange, AFileWithoutItemsBringsNothing) {
    import({});
    EXPECT_EQ(message(), "pantry.ipf: nothing came in.");
}

TEST_F(InventoryExchange, ADamagedHouseholdGoesOutAndItsItemsComeIn) {
    fill_damaged_household();
    const int out = live_items();
    EXPECT_EQ(count_in(exported()), out);
    reset_project_tables();
    import_inventory(path);
    EXPECT_GT(live_items(), 0);
    EXPECT_EQ(last_line(), message());
    EXPECT_EQ(message().find("could not"), std::string::npos);
}

// --- the commands -------------------------------------------------------------------------------

TEST_F(InventoryExchange, TheImportGoesByTheEndingOfTheName) {
    const auto user_imports = [this](const std::string& chosen) {
        platform.dialogs.expect_open("Inventory Import", platform.path(chosen))
            .initial_file(platform.path("*.*"));
        inventory_import();
    };
    lies_there(inventory_bytes({InventoryItemBytes{}}));
    user_imports("pantry.ipf");
    EXPECT_EQ(name(1), "Sugar");
    const std::string row = "Milk" + std::string(37, ',') + "\r\n";
    write_whole_file(platform.path("FOODS.CSV"), "1\r\nHead\r\n" + row);
    user_imports("FOODS.CSV");
    EXPECT_EQ(name(2), "Milk");
    write_whole_file(platform.path("foods.txt"), "1\r\nHead\r\n" + row);
    platform.import_form.log.clear();
    user_imports("foods.txt");
    EXPECT_EQ(live_items(), 2);
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(message(),
              "foods.txt was not imported: only files whose names end in .csv or .ipf can be.");
}

TEST_F(InventoryExchange, TheExportGoesWhereTheUserSays) {
    make_item(1, "Milk");
    platform.dialogs.expect_save("Inventory Export", platform.path("mine.ipf"))
        .filter("Inventory Export Files (*.ipf)|*.ipf")
        .initial_file(platform.path("*.ipf"));
    platform.boxes.expect_message(export_question, Answer::yes);
    inventory_export();
    EXPECT_EQ(message(), "Exported 1 item to mine.ipf.");
    EXPECT_TRUE(platform.disk.exists(platform.path("mine.ipf")));
}

TEST_F(InventoryExchange, ACancelledDialogDoesNothing) {
    platform.dialogs.expect_open("Inventory Import", cancelled);
    inventory_import();
    platform.dialogs.expect_save("Inventory Export", cancelled);
    inventory_export();
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(message(), "");
}

TEST_F(InventoryExchange, AProjectThatIsClosedMeanwhileIsLeftAlone) {
    lies_there(inventory_bytes({InventoryItemBytes{}}));
    platform.dialogs.expect_open("Inventory Import", path).while_open = [] { project_open = 0; };
    inventory_import();
    platform.dialogs.expect_save("Inventory Export", path);
    inventory_export();
    EXPECT_EQ(log(), Lines{});
    EXPECT_EQ(live_items(), 0);
}

}  // namespace
}  // namespace tavernook
