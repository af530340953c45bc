// Packages, the export to a spreadsheet and merging by the menu of the real window.
#include "core/project_data.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class TransferCommands : public MainWindowTest {
  protected:
    void SetUp() override { start(); }

    // Stock for two items.
    static void stock_up() {
        for (i16 item = 1; item <= 2; ++item) {
            items[item].name = item == 1 ? "Milk" : "Bread";
            items[item].in_use = 1;
            items[item].category = 1;
        }
        project_modified = i16_true;
    }

    const std::string package = platform.path("trip.vpk");
};

TEST_F(TransferCommands, UnpackingAloneNeedsNoProject) {
    for (const char* name : {"mnuFile_Package", "mnuFile_CSVExport", "mnuFile_Merge"}) {
        EXPECT_FALSE(action(name).isEnabled()) << name;
    }
    EXPECT_TRUE(action("mnuFile_Unpack").isEnabled());
    open_by_keys(project_on_disk("home.tvk"));
    for (const char* name :
         {"mnuFile_Package", "mnuFile_Unpack", "mnuFile_CSVExport", "mnuFile_Merge"}) {
        EXPECT_TRUE(action(name).isEnabled()) << name;
    }
}

TEST_F(TransferCommands, AProjectTravelsInAPackage) {
    open_by_keys(project_on_disk("home.tvk"));
    stock_up();
    platform.dialogs.expect_save("Package Project", package);
    platform.boxes.expect_message("Project Package Completed.");
    action("mnuFile_Package").trigger();
    EXPECT_EQ(panel(1), "Packed as trip.vpk, with 0 recipe texts.");
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
    EXPECT_FALSE(window.progress().work_is_running());

    platform.dialogs.expect_open("Package Project", package);
    platform.boxes.expect_message(
        "Project Package Completed.  Would you like to Open this project now?", Answer::yes);
    action("mnuFile_Unpack").trigger();
    EXPECT_EQ(shown_title(), "Tavernook - trip.tvk");
    EXPECT_EQ(project_path, platform.path("trip.tvk"));
    EXPECT_EQ(items[2].name, "Bread");
    EXPECT_FALSE(window.progress().work_is_running());
}

TEST_F(TransferCommands, TheInventoryGoesToASpreadsheet) {
    open_by_keys(project_on_disk("home.tvk"));
    stock_up();
    platform.dialogs.expect_save("Export to CSV", platform.path("stock.csv"));
    action("mnuFile_CSVExport").trigger();
    EXPECT_EQ(panel(1), "Exported 2 items with the stores and units as stock.csv.");
    EXPECT_TRUE(platform.disk.exists(platform.path("stock.csv")));
}

TEST_F(TransferCommands, TwoHouseholdsBecomeOne) {
    const std::string home = project_on_disk("home.tvk");
    open_by_keys(home);
    stock_up();
    press("Ctrl+S");
    platform.dialogs.expect_open("Merge Projects", home);
    action("mnuFile_Merge").trigger();
    EXPECT_TRUE(panel(1).starts_with("Merged from home.tvk: 2 items")) << panel(1);
    EXPECT_EQ(items[3].name, "Milk");
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk*");
}

}  // namespace
}  // namespace tavernook
