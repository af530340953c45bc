// The tables: their capacities, and what a new project finds in them.
#include "core/project_data.h"

#include <gtest/gtest.h>

#include "basics/fault_expectation.h"
#include "fakes/program_state_reset.h"
#include "support/generated_projects.h"

namespace tavernook {

namespace {

constexpr int out_of_range = fault_number::subscript_out_of_range;

class ResetProjectTables : public testing::Test {
  protected:
    // Every table is full to the brim before the reset.
    ResetProjectTables() {
        reset_program_state();
        fill_full_project();
    }
    ~ResetProjectTables() override { reset_program_state(); }
};

template <typename Record, int Capacity>
void expect_blank_from_1(const Table<Record, Capacity>& table, const Record& blank) {
    for (int slot = 1; slot <= Capacity; ++slot) ASSERT_EQ(table[slot] == blank, true) << slot;
}

TEST_F(ResetProjectTables, FreesEveryItemAndLeavesItWithoutABarcode) {
    reset_project_tables();
    ItemRecord free_item;
    free_item.barcode = "empty";
    expect_blank_from_1(items, free_item);
    EXPECT_EQ(items[1].name.stored(), std::string(32, ' '));
    EXPECT_EQ(items[10000].barcode.stored(), "empty" + std::string(27, ' '));
    EXPECT_EQ(items[10000].in_use, 0);
    EXPECT_EQ(items[10000].last_restock_date, 0);
}

TEST_F(ResetProjectTables, ZeroesAllItemDetails) {
    reset_project_tables();
    expect_blank_from_1(item_details, ItemDetailRecord{});
    EXPECT_EQ(item_details[10000].notes, 0);
    EXPECT_EQ(item_details[10000].protien, 0);
    EXPECT_EQ(item_details[10000].created_date, 0);
}

TEST_F(ResetProjectTables, LeavesOneCategoryAndTheTypesAndParentsOfAll) {
    for (i16 row = 1; row <= 100; ++row) {
        catagories[row].type = static_cast<i16>(row % 2 == 0 ? 32 : 5);
        catagories[row].parent = static_cast<i16>(100 - row);
    }
    reset_project_tables();
    EXPECT_EQ(catagories[1].name, "General");
    EXPECT_EQ(catagories[1].in_use, 1);
    for (int row = 2; row <= 100; ++row) {
        EXPECT_TRUE(catagories[row].name.blank()) << row;
        EXPECT_EQ(catagories[row].in_use, 0) << row;
    }
    for (int row = 1; row <= 100; ++row) {
        EXPECT_EQ(catagories[row].type, row % 2 == 0 ? 32 : 5) << row;
        EXPECT_EQ(catagories[row].parent, 100 - row) << row;
    }
}

TEST_F(ResetProjectTables, SeedsThirteenUnitsInTheirOrder) {
    reset_project_tables();
    const char* const names[] = {"each",     "Cup(s)",    "tsp(s)", "tbsp(s)", "oz(s)",
                                 "liter(s)", "gallon(s)", "ft",     "in",      "kg(s)",
                                 "gram(s)",  "bottle(s)", "na"};
    for (int row = 1; row <= 13; ++row) {
        EXPECT_EQ(units[row].name, names[row - 1]) << row;
        EXPECT_EQ(units[row].in_use, 1) << row;
    }
    for (int row = 14; row <= 1000; ++row) ASSERT_TRUE(units[row] == UnitRecord{}) << row;
}

TEST_F(ResetProjectTables, SeedsNoStore) {
    reset_project_tables();
    expect_blank_from_1(stores, StoreRecord{});
}

TEST_F(ResetProjectTables, ClearsAllDaysWithTheirQuantities) {
    reset_project_tables();
    expect_blank_from_1(days, DayRecord{});
    expect_blank_from_1(day_quantities, DayQuantityRecord{});
    EXPECT_EQ(days[1095].month, 0);
    EXPECT_EQ(days[1095].audited, 0);
    EXPECT_EQ(days[1095].planned_item[30], 0);
    EXPECT_EQ(day_quantities[1095].meal_servings[30], 0);
}

TEST_F(ResetProjectTables, ClearsAllRecipesWithTheirYieldsAndDocuments) {
    meal_serving_size[0] = 4;
    meal_documents[0] = "left.rtf";
    reset_project_tables();
    expect_blank_from_1(meals, MealRecord{});
    for (int slot = 0; slot <= 1000; ++slot) {
        ASSERT_EQ(meal_serving_size[slot], 0) << slot;
        ASSERT_EQ(meal_documents[slot], "") << slot;
    }
}

TEST_F(ResetProjectTables, EmptiesTheStringPoolAndTheWeightsAndMeasures) {
    pooled_strings[0] = "left over";
    wams[0] = {-1, "left over"};
    reset_project_tables();
    for (int row = 0; row <= 30000; ++row) ASSERT_EQ(pooled_strings[row], "") << row;
    for (int line = 0; line <= 200; ++line) {
        ASSERT_EQ(wams[line].in_use, 0) << line;
        ASSERT_EQ(wams[line].text, "") << line;
    }
}

TEST_F(ResetProjectTables, LeavesNoLotsOfTheLastProject) {
    ASSERT_EQ(lot_table_top, 10000);
    reset_project_tables();
    EXPECT_EQ(lot_table_top, 0);
    EXPECT_EQ(lots.entries(), 2);
    EXPECT_EQ(fault_of([] { return lots[2]; }), out_of_range);
    lots.grow(10000);
    for (int item = 0; item <= 10001; ++item) ASSERT_TRUE(lots[item] == LotRecord{}) << item;
}

TEST_F(ResetProjectTables, LeavesNoExpiringItemsOfTheLastProject) {
    expiring_items[1] = 17;
    expiring_items[10000] = 18;
    reset_project_tables();
    EXPECT_EQ(expiring_items[1], 0);
    EXPECT_EQ(expiring_items[10000], 0);
}

TEST_F(ResetProjectTables, LeavesEntry0OfTheTablesWithSlotsAsItIs) {
    items[0].name = "entry 0";
    item_details[0].notes = 1;
    catagories[0].name = "entry 0";
    units[0].name = "entry 0";
    stores[0].name = "entry 0";
    meals[0].name = "entry 0";
    days[0].month = 5;
    day_quantities[0].item_quantity[1] = 2;
    reset_project_tables();
    EXPECT_EQ(items[0].name, "entry 0");
    EXPECT_TRUE(items[0].barcode.blank());
    EXPECT_EQ(item_details[0].notes, 1);
    EXPECT_EQ(catagories[0].name, "entry 0");
    EXPECT_EQ(units[0].name, "entry 0");
    EXPECT_EQ(stores[0].name, "entry 0");
    EXPECT_EQ(meals[0].name, "entry 0");
    EXPECT_EQ(days[0].month, 5);
    EXPECT_EQ(day_quantities[0].item_quantity[1], 2);
}

TEST_F(ResetProjectTables, ResetsTheScannerTypeAndNoOtherSetting) {
    audit_hour = 6;
    audit_minute = 7;
    expiration_warning_days = 8;
    sales_tax = 7.5;
    scanner_comm_port = 3;
    scanner_reserved = 4;
    ftp_send_after_audit = -1;
    audit_on_startup = -1;
    save_after_audit = -1;
    scanner_type = 2;
    project_created = 45000;
    ftp_server = "server";
    ftp_account = "account";
    ftp_password = "password";
    ftp_directory = "directory";
    audit_days_ahead = 2;
    currency_symbol = 163;
    font_size = 12;
    show_toolbar_text = -1;
    project_tag = 10;
    file_version = 1;
    reset_project_tables();
    EXPECT_EQ(scanner_type, 0);
    EXPECT_EQ(audit_hour, 6);
    EXPECT_EQ(audit_minute, 7);
    EXPECT_EQ(expiration_warning_days, 8);
    EXPECT_EQ(sales_tax, 7.5);
    EXPECT_EQ(scanner_comm_port, 3);
    EXPECT_EQ(scanner_reserved, 4);
    EXPECT_EQ(ftp_send_after_audit, -1);
    EXPECT_EQ(audit_on_startup, -1);
    EXPECT_EQ(save_after_audit, -1);
    EXPECT_EQ(project_created, 45000);
    EXPECT_EQ(ftp_server, "server");
    EXPECT_EQ(ftp_account, "account");
    EXPECT_EQ(ftp_password, "password");
    EXPECT_EQ(ftp_directory, "directory");
    EXPECT_EQ(audit_days_ahead, 2);
    EXPECT_EQ(currency_symbol, 163);
    EXPECT_EQ(font_size, 12);
    EXPECT_EQ(show_toolbar_text, -1);
    EXPECT_EQ(project_tag, 10);
    EXPECT_EQ(file_version, 1);
}

// The highest slot is there, its neighbours outside are not.
template <typename Record, int Capacity>
void expect_last_slot(Table<Record, Capacity>& table, int last) {
    EXPECT_EQ(fault_of([&] { (void)table[0]; }), 0) << last;
    EXPECT_EQ(fault_of([&] { (void)table[last]; }), 0) << last;
    EXPECT_EQ(fault_of([&] { (void)table[last + 1]; }), out_of_range) << last;
    EXPECT_EQ(fault_of([&] { (void)table[-1]; }), out_of_range) << last;
}

TEST(Tables, EndAtTheirCapacities) {
    expect_last_slot(items, 10000);
    expect_last_slot(item_details, 10000);
    expect_last_slot(catagories, 100);
    expect_last_slot(units, 1000);
    expect_last_slot(stores, 1000);
    expect_last_slot(meals, 1000);
    expect_last_slot(meal_serving_size, 1000);
    expect_last_slot(meal_documents, 1000);
    expect_last_slot(days, 1095);
    expect_last_slot(day_quantities, 1095);
    expect_last_slot(wams, 200);
    expect_last_slot(pooled_strings, 30000);
    expect_last_slot(expiring_items, 10000);
}

TEST(Tables, RecordsHaveTheirPlaces) {
    EXPECT_EQ(LotRecord{}.lot_name.size(), 16U);
    EXPECT_EQ(LotRecord{}.lot_quantity.size(), 16U);
    EXPECT_EQ(MealRecord{}.ingredient_item.size(), 51U);
    EXPECT_EQ(DayRecord{}.planned_meal.size(), 31U);
    EXPECT_EQ(DayRecord{}.planned_item.size(), 31U);
    EXPECT_EQ(DayQuantityRecord{}.item_quantity.size(), 31U);
}

TEST(Tables, NamesAreCutAtTheirWidth) {
    ItemRecord item;
    item.name = "123456789 123456789 123456789 123456";
    EXPECT_EQ(item.name, "123456789 123456789 123456789 12");
    UnitRecord unit;
    unit.name = "tablespoonfuls";
    EXPECT_EQ(unit.name, "tablespoonfu");
}

class LotTableTest : public testing::Test {
  protected:
    LotTableTest() { reset_program_state(); }
    ~LotTableTest() override { reset_program_state(); }
};

TEST_F(LotTableTest, ReachesOneBeyondTheTop) {
    EXPECT_EQ(fault_of([] { lots[1].active = -1; }), 0);
    EXPECT_EQ(fault_of([] { lots[2].active = -1; }), out_of_range);
    EXPECT_EQ(fault_of([] { lots[-1].active = -1; }), out_of_range);
    lots.grow(7);
    EXPECT_EQ(lot_table_top, 7);
    EXPECT_EQ(lots.entries(), 9);
    EXPECT_EQ(fault_of([] { lots[8].active = -1; }), 0);
    EXPECT_EQ(fault_of([] { lots[9].active = -1; }), out_of_range);
}

TEST_F(LotTableTest, GrowingKeepsTheContents) {
    lots.grow(3);
    lots[3].lot_quantity[15] = 2.5;
    lots[3].lot_name[0] = "Lot A";
    lots.grow(9000);
    EXPECT_EQ(lot_table_top, 9000);
    EXPECT_EQ(lots[3].lot_quantity[15], 2.5);
    EXPECT_EQ(lots[3].lot_name[0], "Lot A");
    EXPECT_TRUE(lots[9001] == LotRecord{});
}

TEST_F(LotTableTest, NeverShrinks) {
    lots.grow(9);
    lots[9].active = -1;
    lots.grow(4);
    EXPECT_EQ(lot_table_top, 9);
    EXPECT_EQ(lots[9].active, -1);
}

TEST_F(LotTableTest, GrowsToTheLastItemAndNoFurther) {
    EXPECT_EQ(fault_of([] { lots.grow(10001); }), out_of_range);
    EXPECT_EQ(fault_of([] { lots.grow(-1); }), out_of_range);
    EXPECT_EQ(lot_table_top, 0);
    lots.grow(10000);
    EXPECT_EQ(lots.entries(), 10002);
    EXPECT_EQ(fault_of([] { (void)lots[10001]; }), 0);
    EXPECT_EQ(fault_of([] { (void)lots[10002]; }), out_of_range);
}

}  // namespace

}  // namespace tavernook
