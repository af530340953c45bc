// The command "CSV Export".
#include "transfer/csv_export.h"

#include "transfer/backup_fixture.h"

namespace tavernook {
namespace {

class CsvExport : public BackupTest {
  protected:
    void user_exports(const std::string& path) {
        platform.dialogs.expect_save("Export to CSV", path);
        mnuFile_CSVExport();
    }
    static void put_item(i16 slot, const std::string& name) {
        items[slot].name = name;
        items[slot].in_use = 1;
    }
    static void no_units_or_stores() {
        for (UnitRecord& unit : units) unit = {};
        for (StoreRecord& one : stores) one = {};
    }
    // The rows without the blanks behind them; each is 512 characters and a line end.
    Steps rows() {
        const std::string bytes = read_whole_file(target);
        EXPECT_EQ(bytes.size() % 514, 0u);
        Steps found;
        for (std::size_t at = 0; at < bytes.size(); at += 514) {
            EXPECT_EQ(bytes.substr(at + 512, 2), "\r\n");
            const std::string row = bytes.substr(at, 512);
            found.push_back(row.substr(0, row.find_last_not_of(' ') + 1));
        }
        return found;
    }
    std::string item_row(i16 slot) {
        user_exports(target);
        for (const std::string& row : rows_of_items()) {
            if (row.starts_with(std::to_string(slot) + ",")) return row;
        }
        return "none";
    }
    Steps rows_of_items() {
        Steps all = rows();
        const auto title = std::find(all.begin(), all.end(), "Items:");
        return {title + 2, all.end()};
    }

    const std::string target = platform.path("stock.csv");
};

constexpr const char* columns =
    "Index,Catagory,Title,Quantity,Quantity Units Index,Quantity Units,Storage Time (Days),Entry "
    "Date,Stock Quantity,Restock Quantity,Cost/Unit ($),Store Index,Store Name,Serving "
    "Size,Serving Size Units Index,Serving Size Units,Servings/Quantity Units,Fat,Calories";

TEST_F(CsvExport, AsksForTheFileAndTellsHowManyItems) {
    put_item(3, "Milk");
    platform.dialogs.expect_save("Export to CSV", target)
        .filter("Tavernook Files (*.csv)|*.csv")
        .initial_file(in_program("*.csv"));
    mnuFile_CSVExport();
    EXPECT_EQ(message(), "Exported 1 item with the stores and units as stock.csv.");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "stock.csv"}));
}

TEST_F(CsvExport, AProjectWithoutAnythingHasItsHeadings) {
    no_units_or_stores();
    user_exports(target);
    EXPECT_EQ(rows(), (Steps{"Tavernook - CSV Export. " + date_text(platform.clock.now()) +
                                 " Project: " + home,
                             "Stores:", "Index,Store", "Units:", "Index,Unit", "Items:", columns}));
}

TEST_F(CsvExport, ListsWhatIsLiveByItsSlot) {
    no_units_or_stores();
    stores[2] = {"Bakery", 1};
    stores[1000] = {"Kiosk", 1};
    stores[3] = {"gone", 0};
    units[1] = {"Litre", 1};
    put_item(1, "Milk");
    put_item(7, "Bread");
    items[9].name = "gone";
    user_exports(target);
    const Steps all = rows();
    EXPECT_EQ(Steps(all.begin() + 1, all.begin() + 9),
              (Steps{"Stores:", "Index,Store", "2,Bakery", "1000,Kiosk", "Units:", "Index,Unit",
                     "1,Litre", "Items:"}));
    ASSERT_EQ(rows_of_items().size(), 2u);
    EXPECT_TRUE(rows_of_items()[0].starts_with("1,,Milk,"));
    EXPECT_TRUE(rows_of_items()[1].starts_with("7,,Bread,"));
}

TEST_F(CsvExport, AnItemsColumnsStandInTheirOrder) {
    catagories[4] = {"Dairy", 1, 0, 0};
    stores[2] = {"Bakery", 1};
    units[20] = {"Litre", 1};
    units[21] = {"Cup", 1};
    put_item(12, "Milk");
    ItemRecord& milk = items[12];
    milk.category = 4;
    milk.quantity = 2.5;
    milk.qty_units = 20;
    milk.storage_time = 14;
    milk.last_restock_date = date_from_civil(2026, 11, 22);
    milk.stock_quantity = 6;
    milk.restock_quantity = 0.25;
    milk.cost = 1.5;
    milk.store = 2;
    milk.serving_size = 0.75;
    milk.serving_size_units = 21;
    milk.servings_per_qty_unit = 4;
    milk.fat = 3;
    milk.calories = 150;
    EXPECT_EQ(item_row(12),
              "12,Dairy,Milk,2.5,20,Litre,14,11/22/2026,6,0.25,1.50,2,Bakery,0.75,21,Cup,4,3,150");
}

TEST_F(CsvExport, CostsShowTwoDecimals) {
    struct {
        f64 cost;
        const char* shown;
    } const costs[] = {{0, ".00"}, {0.5, ".50"}, {1234.565, "1234.57"}, {-2, "-2.00"}};
    for (const auto& one : costs) {
        put_item(1, "Milk");
        items[1].cost = one.cost;
        EXPECT_NE(item_row(1).find(std::string(",").append(one.shown) + ",0,"), std::string::npos)
            << one.shown;
    }
}

// Nothing is quoted: a comma in a name shifts the columns.
TEST_F(CsvExport, ACommaInANameStaysAsItIs) {
    put_item(1, "Beans, \"baked\"");
    EXPECT_TRUE(item_row(1).starts_with("1,,Beans, \"baked\",0,0,,0,12:00:00 AM,0,0,.00,0,,"));
}

TEST_F(CsvExport, ReferencesToNothingAndDaysOfNoCalendarAreEmpty) {
    put_item(1, "Milk");
    items[1].category = -5;
    items[1].qty_units = 30000;
    items[1].store = 1001;
    items[1].serving_size_units = -32768;
    items[1].last_restock_date = 1e300;
    EXPECT_EQ(item_row(1), "1,,Milk,0,30000,,0,,0,0,.00,1001,,0,-32768,,0,0,0");
}

TEST_F(CsvExport, ALongerRowIsCut) {
    put_item(1, std::string(32, 'n'));
    items[1].quantity = 1e308;
    items[1].stock_quantity = 1e308;
    user_exports(target);
    EXPECT_EQ(rows_of_items()[0].size(), 512u);
    put_item(2, "Milk");
    EXPECT_TRUE(item_row(2).starts_with("2,,Milk,"));
}

TEST_F(CsvExport, ShowsHowFarItIs) {
    user_exports(target);
    const Steps told = steps();
    const Steps begun(told.begin() + 1, told.begin() + 6);
    EXPECT_EQ(
        begun,
        (Steps{"progress load Export Inventory|Exporting Inventory to CSV format...Please "
               "Wait",
               "progress offer cancel", "progress show", "progress bar 0", "progress bar 25"}));
    EXPECT_EQ(Steps(told.end() - 4, told.end()),
              (Steps{"progress bar 100",
                     "window status 1 Exported 0 items with the stores and units as stock.csv.",
                     "progress hide", "progress unload"}));
    EXPECT_EQ(platform.clock.waited, 1);
}

TEST_F(CsvExport, CancelEndsItWithoutAWord) {
    platform.dialogs.expect_save("Export to CSV", cancelled);
    mnuFile_CSVExport();
    EXPECT_EQ(steps(), (Steps{"dialog Export to CSV"}));
}

TEST_F(CsvExport, CancelledInTheMiddleItLeavesTheOlderOne) {
    write_whole_file(target, "an older one");
    for (StoreRecord& one : stores) one = {"Kiosk", 1};  // more than is written at once
    platform.progress.cancelled = true;
    user_exports(target);
    EXPECT_EQ(bytes_of(target), "an older one");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "stock.csv"}));
    EXPECT_EQ(message(), "stock.csv was not exported: cancelled.");
    EXPECT_EQ(platform.progress.events().back(), "unload");
}

TEST_F(CsvExport, WithoutAProjectNothingIsAsked) {
    mnuFile_Close();
    forget_steps();
    mnuFile_CSVExport();
    EXPECT_EQ(steps(), Steps{});
}

TEST_F(CsvExport, NoProjectsOwnFileIsReplaced) {
    const std::string bytes = read_whole_file(home);
    const std::string twin = platform.path("twin.csv");
    std::filesystem::create_hard_link(home, twin);
    for (const std::string& path : {home, twin}) {
        user_exports(path);
        EXPECT_TRUE(message().ends_with(
            "is a project's own file; nothing was exported.  Choose another name."));
        EXPECT_TRUE(read_whole_file(home) == bytes);
    }
}

TEST_F(CsvExport, WhereTheDiskIsFullTheOlderOneStays) {
    user_exports(target);
    const int operations = platform.files.operations();
    for (int n = 1; n <= operations; ++n) {
        write_whole_file(target, "an older one");
        put_item(1, "Milk");
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, Torn::yes);
        RecordingBoxes boxes(platform);
        user_exports(target);
        platform.files.work_normally();
        if (bytes_of(target) != "an older one") {
            ASSERT_EQ(rows().size(), 22u) << "operation " << n;
        }
        if (!message().starts_with("Exported")) {
            ASSERT_EQ(boxes.texts.size(), 1u) << "operation " << n;
        }
        platform.main.status = {};
    }
}

TEST_F(CsvExport, AFullDiskIsToldInOneBox) {
    platform.files.start_over();
    platform.files.fail_at(8, fault_number::disk_full);
    platform.boxes.expect_message("Tavernook error: rt6:61. Contact Brenwyk Software.");
    EXPECT_FALSE(export_to_csv(target));
    EXPECT_EQ(message(), "stock.csv was not exported: Disk full.");
    EXPECT_EQ(files_there(), Steps{"home.tvk"});
}

}  // namespace
}  // namespace tavernook
