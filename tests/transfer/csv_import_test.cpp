// Items from a spreadsheet's text.
#include "transfer/csv_import.h"

#include <array>

#include "inventory/items.h"
#include "transfer/csv_lines.h"
#include "transfer/exchange_fixture.h"
#include "transfer/import_tally.h"

namespace tavernook {
namespace {

// A row by its fields, which count from 1.
class Row {
  public:
    explicit Row(const std::string& name) { set(1, name); }
    Row& set(std::size_t field, const std::string& text) {
        fields_[field - 1] = text;
        return *this;
    }
    std::string text() const {
        std::string row = fields_[0];
        for (std::size_t field = 1; field < fields_.size(); ++field) row += "," + fields_[field];
        return row + "\r\n";
    }

  private:
    std::array<std::string, csv_fields> fields_;
};

class CsvImportTest : public ExchangeTest {
  protected:
    const std::string path = platform.path("foods.csv");

    void import(const std::string& bytes) {
        write_whole_file(path, bytes);
        import_csv(path);
    }
    void import_rows(const std::vector<Row>& rows) {
        std::string text = std::to_string(rows.size()) + "\r\nName\r\n";
        for (const Row& row : rows) text += row.text();
        import(text);
    }
    void import_row(const Row& row) { import_rows({row}); }
};

TEST_F(CsvImportTest, LogsWhatItDoesAndTellsWhatCameIn) {
    import_rows({Row("Milk"), Row("Eggs")});
    EXPECT_EQ(log(), (Lines{"begin Import Status", "line Starting Import of file: " + path,
                            "line Importing 2 items.", "line Imported item: Milk",
                            "line Imported item: Eggs", "line Refreshing Inventory",
                            "line Import Completed Successfully on 11/22/2026 6:00:00 PM",
                            "line foods.csv: 2 items came in.", "end"}));
    EXPECT_EQ(message(), "foods.csv: 2 items came in.");
    EXPECT_EQ(platform.calls.entries[platform.calls.entries.size() - 2],
              "FoodInventory populate_tree");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(platform.import_form.bar, 100);
}

TEST_F(CsvImportTest, TakesEveryField) {
    const std::string nutrients =
        "1.5,gram(s),110,kcal,2,mg,3,mg,4,mg,5,gram(s),6,gram(s),7,gram(s),8.25,gram(s)";
    import(
        "1\r\nHead\r\n\"Butter, salted\",Dairy Ltd,Cow,Creamy,For toast,3,each,30,5/11/2026,5,2,"
        "40123455,$7.83,Corner,20,5,gram(s),11," +
        nutrients + ",Dairy,\"Freezer,Drawer 2\"\r\n");
    const ItemRecord& item = items[1];
    const ItemDetailRecord& detail = item_details[1];
    EXPECT_EQ(name(1), "Butter, salted");
    EXPECT_EQ(item.in_use, 1);
    EXPECT_EQ(text(detail.manufacturer), "Dairy Ltd");
    EXPECT_EQ(text(detail.brand), "Cow");
    EXPECT_EQ(text(detail.description), "Creamy");
    EXPECT_EQ(text(detail.notes), "For toast");
    EXPECT_EQ(item.quantity, 3);
    EXPECT_EQ(item.qty_units, 1);
    EXPECT_EQ(item.storage_time, 30);
    EXPECT_EQ(item.last_restock_date, 46153);  // 11 May 2026
    EXPECT_EQ(item.stock_quantity, 5);
    EXPECT_EQ(item.restock_quantity, 2);
    EXPECT_EQ(item.barcode.right_trimmed(), "40123455");
    EXPECT_EQ(item.cost, 7.83);
    EXPECT_EQ(store(item.store), "Corner");
    EXPECT_EQ(item.store_order, 20);
    EXPECT_EQ(item.serving_size, 5);
    EXPECT_EQ(unit(item.serving_size_units), "gram(s)");
    EXPECT_EQ(item.servings_per_qty_unit, 11);
    EXPECT_EQ(detail.fat, 1.5);
    EXPECT_EQ(unit(detail.fat_units), "gram(s)");
    EXPECT_EQ(detail.calories, 110);
    EXPECT_EQ(unit(detail.calories_units), "kcal");
    EXPECT_EQ(detail.cholestorol, 2);
    EXPECT_EQ(detail.sodium, 3);
    EXPECT_EQ(detail.potassium, 4);
    EXPECT_EQ(unit(detail.potassium_units), "mg");
    EXPECT_EQ(detail.carbohydrates, 5);
    EXPECT_EQ(detail.fiber, 6);
    EXPECT_EQ(detail.sugars, 7);
    EXPECT_EQ(detail.protien, 8.25);
    EXPECT_EQ(unit(detail.protien_units), "gram(s)");
    EXPECT_EQ(catagory(1), "Dairy");
    EXPECT_EQ(text(item.locations), "Freezer,Drawer 2");
    EXPECT_EQ(detail.created_date, present);
    EXPECT_EQ(lot_total(1), 3);
    EXPECT_EQ(lots[1].creation_date[0], present);
    EXPECT_EQ(lots[1].expiration_date[0], present + 30);
    EXPECT_EQ(message(), "foods.csv: 1 item, 2 new units, 1 new store and 1 new category came in.");
}

TEST_F(CsvImportTest, EmptyFieldsAreFilled) {
    import_row(Row("Milk"));
    EXPECT_EQ(unit(items[1].qty_units), "na");
    EXPECT_EQ(unit(items[1].serving_size_units), "na");
    for (const NutrientFields& nutrient : nutrient_fields) {
        EXPECT_EQ(unit(item_details[1].*nutrient.unit), "na");
        EXPECT_EQ(item_details[1].*nutrient.value, 0);
    }
    EXPECT_EQ(items[1].last_restock_date, date_alone(present));
    EXPECT_EQ(items[1].barcode.right_trimmed(), "empty");
    EXPECT_EQ(items[1].cost, 0);
    EXPECT_EQ(items[1].store, 0);
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(items[1].locations, 0);
    EXPECT_EQ(items[1].quantity, 0);
    EXPECT_EQ(items[1].serving_size, 1);
    EXPECT_EQ(items[1].servings_per_qty_unit, 1);
}

TEST_F(CsvImportTest, ARowWithoutANameHasNone) {
    import_row(Row("").set(6, "2"));
    EXPECT_EQ(name(1), "<<UNTITLED>>");
    EXPECT_TRUE(is_logged("Imported item: <<UNTITLED>>"));
}

TEST_F(CsvImportTest, OneCurrencySignInFrontOfTheCostIsDropped) {
    import_rows({Row("a").set(13, "$1.50"), Row("b").set(13, "2.25"),
                 Row("c").set(13,
                              "\x80"
                              "3"),
                 Row("d").set(13, "-4"), Row("e").set(13, ".5"),
                 Row("f").set(13, "\"6,75 \x80\"")});
    for (const auto& [item, cost] :
         {std::pair<i16, f64>{1, 1.5}, {2, 2.25}, {3, 3}, {4, -4}, {5, .5}, {6, 6.75}}) {
        EXPECT_EQ(items[item].cost, cost) << item;
    }
}

TEST_F(CsvImportTest, ADecimalCommaIsAPoint) {
    import_row(Row("Milk").set(6, "\"2,5\"").set(10, "\"0,75\"").set(19, "\"1,234.5\""));
    EXPECT_EQ(items[1].quantity, 2.5);
    EXPECT_EQ(items[1].stock_quantity, .75);
    EXPECT_EQ(item_details[1].fat, 1);
    EXPECT_TRUE(is_logged("In line 3: the nutrition value \"1,234.5\" is read as 1"));
    EXPECT_EQ(message(),
              "foods.csv: 1 item came in; 1 row has a number that could not be read whole, in line "
              "3: the nutrition value \"1,234.5\" is read as 1.");
}

TEST_F(CsvImportTest, ANumberIsTheLeadingOne) {
    import_row(Row("Milk").set(6, "2 bottles").set(10, "none").set(8, "2.5").set(15, "3.5"));
    EXPECT_EQ(items[1].quantity, 2);
    EXPECT_EQ(items[1].stock_quantity, 0);
    EXPECT_EQ(items[1].storage_time, 2);  // half to even
    EXPECT_EQ(items[1].store_order, 4);
    EXPECT_NE(message().find("line 3: the stock quantity \"none\" is read as 0"),
              std::string::npos);
}

TEST_F(CsvImportTest, DatesThatAreClear) {
    const std::array<const char*, 7> typed = {
        "5/11/2026",           "05/11/26", "2026-05-11",
        "11.05.2026",          "11.5.26",  "2026-05-11T08:30:00",
        "5/11/2026 6:00:00 PM"};
    std::vector<Row> rows;
    for (const char* date : typed) rows.push_back(Row("a").set(9, date));
    import_rows(rows);
    ASSERT_EQ(live_items(), static_cast<int>(typed.size()));
    for (i16 item = 1; item <= live_items(); ++item) {
        EXPECT_EQ(items[item].last_restock_date, 46153)
            << typed[static_cast<std::size_t>(item - 1)];
    }
}

TEST_F(CsvImportTest, ARowThatCannotBeIsLeftOutAndToldWithItsLine) {
    const auto left_out = [this](const Row& row, const std::string& why) {
        const int before = live_items();
        import_row(row);
        EXPECT_EQ(live_items(), before);
        EXPECT_EQ(message(),
                  "foods.csv: nothing came in; 1 row was left out, line 3: " + why + ".");
        EXPECT_TRUE(is_logged("Left out line 3: " + why));
    };
    left_out(Row("a").set(8, "40000"), "the storage time \"40000\" is too large");
    left_out(Row("a").set(15, "-99999"), "the store order \"-99999\" is too large");
    left_out(Row("a").set(9, "13/13/2026"),
             "the date of the last restock \"13/13/2026\" is no date as 5/31/2026");
    left_out(Row("a").set(9, "soon"),
             "the date of the last restock \"soon\" is no date as 5/31/2026");
    left_out(Row("a").set(9, "5/"), "the date of the last restock \"5/\" is no date as 5/31/2026");
    left_out(Row("a").set(6, std::string(400, '9')),
             "the quantity \"999999999999999999999999...\" is too large");
    EXPECT_EQ(units[14].in_use, 0);
}

TEST_F(CsvImportTest, TheRowsBesideComeInAndTheFirstLeftOutStandsForAll) {
    import_rows({Row("Milk"), Row("Eggs").set(8, "1e9"), Row("Salt").set(8, "40000"),
                 Row("Rice").set(15, "40000"), Row("Flour")});
    EXPECT_EQ(live_items(), 3);
    EXPECT_EQ(name(3), "Flour");
    EXPECT_EQ(message(),
              "foods.csv: 3 items came in; 2 rows were left out, the first is line 5: the storage "
              "time \"40000\" is too large; 1 row has a number that could not be read whole, in "
              "line 4: the storage time \"1e9\" is read as 1.");
    EXPECT_EQ(last_line(), message());
}

TEST_F(CsvImportTest, OtherColumnsAreToldApart) {
    const auto told = [this](const std::string& row) {
        import("1\r\nHead\r\n" + row + "\r\n");
        return message();
    };
    const std::string nothing = "foods.csv: nothing came in; 1 row was left out, line 3: ";
    std::string semicolons = "Milk";
    for (int field = 0; field < 37; ++field) semicolons += field % 2 == 0 ? ";1,5" : ";";
    EXPECT_EQ(told(semicolons),
              nothing + "its columns are separated by semicolons; they must be by commas.");
    EXPECT_EQ(told("Milk" + std::string(37, '\t')),
              nothing + "its columns are separated by tabs; they must be by commas.");
    EXPECT_EQ(told("Milk"), nothing + "it has one column of the 38.");
    EXPECT_EQ(told("\"Milk,,,,,"), nothing + "a quote begins a column and none ends it.");
}

TEST_F(CsvImportTest, ColumnsThatAreMissingAtTheEndAreEmpty) {
    import("1\r\nHead\r\nMilk,Dairy,,,,2,Cup(s)\r\n");
    EXPECT_EQ(name(1), "Milk");
    EXPECT_EQ(items[1].quantity, 2);
    EXPECT_EQ(unit(items[1].qty_units), "Cup(s)");
    EXPECT_EQ(unit(items[1].serving_size_units), "na");
    EXPECT_EQ(message(), "foods.csv: 1 item came in.");
}

TEST_F(CsvImportTest, EmptyRowsAreNoItemsAndDoNotCount) {
    import("2,,,\r\nHead\r\n\r\n" + Row("Milk").text() + std::string(37, ',') + "\r\n" +
           Row("Eggs").text());
    EXPECT_EQ(live_items(), 2);
    EXPECT_EQ(name(2), "Eggs");
    EXPECT_EQ(message(), "foods.csv: 2 items came in.");
}

TEST_F(CsvImportTest, FewerLinesThanTheCountStopWhereTheTextEnds) {
    import("10\r\nHead\r\n" + Row("Milk").text());
    EXPECT_EQ(live_items(), 1);
    EXPECT_TRUE(is_logged("Importing 10 items."));
    EXPECT_EQ(message(), "foods.csv: 1 item came in; the first line says 10, but 1 row was found.");
}

TEST_F(CsvImportTest, MoreLinesThanTheCountAreToldAndNotRead) {
    import("1\r\nHead\r\n" + Row("Milk").text() + Row("Eggs").text() + "\r\n" + Row("Salt").text());
    EXPECT_EQ(live_items(), 1);
    EXPECT_EQ(message(),
              "foods.csv: 1 item came in; 2 more rows were not read, as the first line says 1.");
}

TEST_F(CsvImportTest, ALastLineWithoutALineEndIsToldAndNotRead) {
    std::string eggs = Row("Eggs").text();
    eggs.resize(eggs.size() - 2);
    import("2\r\nHead\r\n" + Row("Milk").text() + eggs);
    EXPECT_EQ(live_items(), 1);
    EXPECT_EQ(message(),
              "foods.csv: 1 item came in; 1 row was left out, line 4: no line end is behind it.");
}

TEST_F(CsvImportTest, AFileWithoutACountIsToldAboutIt) {
    import("Name,Manufacturer\r\n" + Row("Milk").text() + Row("Eggs").text());
    EXPECT_EQ(live_items(), 0);
    EXPECT_TRUE(is_logged("Importing 0 items."));
    EXPECT_EQ(message(),
              "foods.csv: nothing came in.  Its first line must be the number of items, its second "
              "the headings; the items begin in the third.");
    EXPECT_EQ(last_line(), message());
}

TEST_F(CsvImportTest, UmlautsComeInRightFromAnySpreadsheet) {
    const std::string kaese = "K\xE4se";
    import("1\r\nHead\r\n" + Row(kaese).set(37, "K\xFChlregal").text());
    import("\xEF\xBB\xBF" +
           ("1\r\nHead\r\n" + Row("K\xC3\xA4se").set(37, "K\xC3\xBChlregal").text()));
    import("1\nHead\n\"K\xC3\xA4se\"" + std::string(36, ',') + "K\xC3\xBChlregal,\n");
    for (i16 item = 1; item <= 3; ++item) {
        EXPECT_EQ(name(item), kaese) << item;
        EXPECT_EQ(catagory(item), "K\xFChlregal") << item;
    }
    EXPECT_EQ(live_items(), 3);
}

// --- the tables of names ------------------------------------------------------------------------

TEST_F(CsvImportTest, CategoriesAreMatchedExactlyAndAmongThoseOfItemsOnly) {
    make_catagory(2, "Dairy", recipe_category_type);
    make_catagory(3, "  Fish");
    make_catagory(4, "Gone");
    catagories[4].in_use = 0;
    import_rows({Row("a").set(37, "Dairy"), Row("b").set(37, " Fish "), Row("c").set(37, "fish"),
                 Row("d").set(37, "Dairy"), Row("e").set(37, "Gone")});
    EXPECT_EQ(items[2].category, 3);
    EXPECT_EQ(items[1].category, 4);  // the first free row
    EXPECT_EQ(items[4].category, 4);
    EXPECT_EQ(catagories[4].type, -1);
    EXPECT_EQ(catagories[4].parent, 0);
    EXPECT_EQ(catagory(3), "fish");
    EXPECT_EQ(catagory(5), "Gone");
    EXPECT_EQ(message(), "foods.csv: 5 items and 3 new categories came in.");
}

TEST_F(CsvImportTest, LongNamesAreTheSameEveryTime) {
    const std::string long_name(40, 'c');
    import_rows(
        {Row("a").set(37, long_name).set(7, "tablespoons, level").set(14, "The Corner Shop"),
         Row("b").set(37, long_name).set(7, "tablespoons").set(14, "the corner shop")});
    // The commas make other columns of the first row.
    EXPECT_EQ(live_items(), 2);
    import_rows({Row("c").set(37, long_name).set(17, "tablespoons of"),
                 Row("d").set(37, long_name).set(17, "tablespoons oz")});
    EXPECT_EQ(items[3].category, items[4].category);
    EXPECT_EQ(items[3].category, items[2].category);
    EXPECT_EQ(items[3].serving_size_units, items[4].serving_size_units);
}

TEST_F(CsvImportTest, AFullTableOfCategoriesLosesNone) {
    for (i16 row = 1; row <= catagory_capacity; ++row)
        make_catagory(row, "c" + std::to_string(row));
    import_rows({Row("a").set(37, "new"), Row("b").set(37, "c99"), Row("c").set(37, "c100")});
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(items[2].category, 99);
    EXPECT_EQ(items[3].category, 100);
    EXPECT_EQ(catagories[100].name.right_trimmed(), "c100");
    EXPECT_EQ(message(),
              "foods.csv: 3 items came in; 1 name or text found no room in the project.");
}

TEST_F(CsvImportTest, FullTablesOfUnitsAndStoresLoseNone) {
    for (i16 row = 1; row <= unit_capacity; ++row) {
        units[row].in_use = stores[row].in_use = 1;
        units[row].name = row == 7 ? "na" : "u" + std::to_string(row);
        stores[row].name = "s" + std::to_string(row);
    }
    const std::string last = "u1000";
    import_rows({Row("a").set(7, "new").set(14, "Shop"), Row("b").set(7, "u998").set(14, "s3")});
    EXPECT_EQ(items[1].qty_units, 0);
    EXPECT_EQ(items[1].store, 0);
    EXPECT_EQ(items[2].qty_units, 998);
    EXPECT_EQ(items[2].store, 3);
    EXPECT_EQ(unit(1000), last);
    EXPECT_EQ(message(),
              "foods.csv: 2 items came in; 2 names and texts found no room in the project.");
}

TEST_F(CsvImportTest, AFullPoolLosesNone) {
    for (i16 row = 1; row <= pooled_string_capacity; ++row) {
        if (row != 5 && row != 9) pooled_strings[row] = "text " + std::to_string(row);
    }
    import_rows({Row("a").set(2, "Maker").set(3, "Brand").set(4, "Lost").set(5, "text 77"),
                 Row("b").set(2, "Maker").set(38, "Lost, too")});
    EXPECT_EQ(item_details[1].manufacturer, 5);
    EXPECT_EQ(item_details[1].brand, 9);
    EXPECT_EQ(item_details[1].description, 0);
    EXPECT_EQ(item_details[1].notes, 77);
    EXPECT_EQ(item_details[2].manufacturer, 5);
    EXPECT_EQ(items[2].locations, 0);
    EXPECT_EQ(text(pooled_string_capacity), "text 30000");
    EXPECT_EQ(message(),
              "foods.csv: 2 items came in; 2 names and texts found no room in the project.");
}

TEST_F(CsvImportTest, AFullInventoryIsNotWrittenOver) {
    for (i16 item = 1; item <= item_capacity; ++item) make_item(item, "i" + std::to_string(item));
    items[17].in_use = 0;
    import_rows({Row("Milk"), Row("Eggs"), Row("Salt")});
    EXPECT_EQ(name(17), "Milk");
    EXPECT_EQ(name(item_capacity), "i10000");
    EXPECT_EQ(message(),
              "foods.csv: 1 item came in; 2 rows were left out, the first is line 4: the inventory "
              "is full.");
}

TEST_F(CsvImportTest, TheLastSlotIsTakenWithTheBoxOfItsLimit) {
    for (i16 item = 1; item < item_capacity; ++item) make_item(item, "i" + std::to_string(item));
    platform.boxes.expect_message(
        "You have reached the limitation of items allowed in Tavernook.  It is recommended that "
        "you delete some items to allow for some more room.");
    import_rows({Row("Milk"), Row("Eggs")});
    EXPECT_EQ(name(item_capacity), "Milk");
    EXPECT_EQ(live_items(), item_capacity);
}

// --- what ends it -------------------------------------------------------------------------------

TEST_F(CsvImportTest, ACancelledImportChangesNothing) {
    platform.import_form.cancel_at = "Imported item: Eggs";
    import_rows({Row("Milk").set(7, "jar").set(14, "Shop").set(37, "New").set(2, "Maker"),
                 Row("Eggs"), Row("Salt")});
    EXPECT_EQ(live_items(), 0);
    EXPECT_EQ(live_counts().units, 13);
    EXPECT_EQ(live_counts().stores, 0);
    EXPECT_EQ(live_counts().catagories, 1);
    EXPECT_EQ(text(1), "");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(message(), "The import of foods.csv was cancelled; nothing has changed.");
    EXPECT_EQ(last_line(), message());
    EXPECT_EQ(log().back(), "end");
    EXPECT_EQ(platform.calls.entries[platform.calls.entries.size() - 2],
              "FoodInventory populate_tree");
}

TEST_F(CsvImportTest, AFileThatIsNotThereChangesNothing) {
    platform.boxes.expect_message("Tavernook error: rt6:53. Contact Brenwyk Software.");
    import_csv(path);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_TRUE(is_logged("Error with Importing Process File not found"));
    EXPECT_EQ(message(), "foods.csv could not be imported; nothing has changed.");
    EXPECT_EQ(log().back(), "end");
}

TEST_F(CsvImportTest, AFailingReadChangesNothing) {
    write_whole_file(path, "1\r\nHead\r\n" + Row("Milk").text());
    platform.files.fail_at(2, 57);
    platform.boxes.expect_message("Tavernook error: rt6:57. Contact Brenwyk Software.");
    import_csv(path);
    EXPECT_EQ(live_items(), 0);
    EXPECT_EQ(message(), "foods.csv could not be imported; nothing has changed.");
}

TEST_F(CsvImportTest, WithoutTheItemScreenAllIsTheSame) {
    set_food_inventory(nullptr);
    import_row(Row("Milk").set(37, "Dairy"));
    EXPECT_EQ(live_items(), 1);
    EXPECT_EQ(message(), "foods.csv: 1 item and 1 new category came in.");
}

// --- as an office suite writes a sheet: a count with commas behind it, lone line feeds, an empty
// row, doubled quotes, a line break in a cell ---

TEST_F(CsvImportTest, ASheetOfAnOfficeSuite) {
    for (const char* sheet : {"office_utf8.csv", "office_1252.csv"}) {
        SCOPED_TRACE(sheet);
        reset_project_tables();
        import_csv(std::string(TAVERNOOK_TEST_DATA "/foods/") + sheet);
        EXPECT_EQ(live_items(), 3);
        EXPECT_EQ(name(1), "M\xFCsli, kernig");
        EXPECT_EQ(text(item_details[1].manufacturer), "K\xF6hler");
        EXPECT_EQ(text(item_details[1].brand), "\xD6ko");
        EXPECT_EQ(text(item_details[1].description), "A \"\"real\"\" one");
        EXPECT_EQ(text(item_details[1].notes), "soaked, overnight");
        EXPECT_EQ(items[1].quantity, 2.5);
        EXPECT_EQ(items[1].storage_time, 90);
        EXPECT_EQ(items[1].last_restock_date, date_from_text("11/20/2026"));
        EXPECT_EQ(items[1].cost, 4.5);
        EXPECT_EQ(stores[items[1].store].name, "M\xE4rkte");
        EXPECT_EQ(catagory(1),
                  "Fr\xFChst\xFC"
                  "ck");
        EXPECT_EQ(text(items[1].locations), "Pantry,Shelf 2");
        EXPECT_EQ(name(2),
                  "Cr\xE8me fra\xEE"
                  "che");
        EXPECT_EQ(catagory(2), "Dairy");
        EXPECT_EQ(items[2].last_restock_date, date_alone(platform.clock.now()));
        EXPECT_EQ(name(3), "Bread");
        EXPECT_EQ(text(item_details[3].notes), "crust\ninside");
        EXPECT_EQ(catagory(3), "General");
    }
}

// --- real foods ---------------------------------------------------------------------------------

TEST_F(CsvImportTest, RealFoods) {
    import_csv(TAVERNOOK_TEST_DATA "/foods/foods_excerpt.csv");
    EXPECT_EQ(live_items(), 60);
    EXPECT_EQ(message(),
              "foods_excerpt.csv: 60 items, 2 new units, 6 new stores and 23 new categories came "
              "in.");
    // Line 3 of the file.
    EXPECT_EQ(name(1), "Butter,With Salt");
    EXPECT_EQ(text(item_details[1].notes),
              "Reference 01001; one serving is 1 pat (1' sq, 1/3' high)");
    EXPECT_EQ(items[1].barcode.right_trimmed(), "2000000010014");
    EXPECT_EQ(items[1].cost, 7.83);
    EXPECT_EQ(item_details[1].calories, 35.85);
    EXPECT_EQ(unit(item_details[1].calories_units), "kcal");
    EXPECT_EQ(catagory(1), "Dairy and Egg Products");
    EXPECT_EQ(text(items[1].locations), "Freezer,Drawer 2");
    // Line 4.
    EXPECT_EQ(name(2), "Cheese,Low-Sodium,Cheddar Or Col");
    EXPECT_EQ(items[2].storage_time, 0);
    EXPECT_EQ(items[2].last_restock_date, 46136);  // 24 April 2026
    EXPECT_EQ(items[2].restock_quantity, 0);
    EXPECT_EQ(store(items[2].store), "Market Hall");
    EXPECT_EQ(items[2].serving_size, 132);
    EXPECT_EQ(item_details[2].protien, 32.14);
    // Line 33.
    EXPECT_EQ(name(31), "Bev,H2O W/ Added Vit & Min,Bottl");
    EXPECT_EQ(items[31].servings_per_qty_unit, 12);
    EXPECT_EQ(item_details[31].sugars, 13.01);
    EXPECT_EQ(items[31].locations, 0);
    // Line 62, the last.
    EXPECT_EQ(text(item_details[60].manufacturer), "Post Foods, LLC");
    EXPECT_EQ(text(item_details[60].brand), "Post Foods");
    EXPECT_EQ(item_details[60].carbohydrates, 47.58);
    EXPECT_EQ(unit(item_details[60].carbohydrates_units), "gram(s)");
    EXPECT_EQ(items[60].quantity, 5);
    EXPECT_EQ(lots[60].lot_quantity[0], 5);
}

}  // namespace
}  // namespace tavernook
