// The scan list over a damaged household: every code is looked up, shown, booked and refreshed.
// Boxes may come, harm may not.
#include <gtest/gtest.h>

#include "barcodes/scan_booking.h"
#include "barcodes/scan_list_fixture.h"
#include "support/damaged_household.h"

namespace tavernook {
namespace {

class AnyBoxes : public Boxes {
  public:
    Answer message(std::string_view, Buttons buttons, std::string_view, DefaultButton) override {
        return buttons == Buttons::yes_no ? Answer::yes : Answer::ok;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return "New";
    }
};

class DamagedScanList : public testing::Test {
  protected:
    DamagedScanList() {
        project_open = i16_true;
        fill_damaged_household();
        set_platform({.clock = &platform.clock,
                      .boxes = &any_boxes,
                      .files = &platform.files,
                      .system_info = &platform.system,
                      .main = &platform.main});
        scan_all();
    }

    static void scan_all() {
        clear_scan_list();
        for (i16 item = 0; item <= item_capacity; ++item) {
            if (items[item].in_use == 0) continue;
            populate_item(items[item].barcode.trimmed(), 1, "");
            populate_item(items[item].barcode.trimmed(), 1, "Lot B");
            populate_item("TVK" + std::to_string(item), 1e300, "");
        }
        populate_item("TVK-1", -1e15, "Lot P");
        populate_item("nobody's", 1, "Cellar");
    }

    static std::vector<i32> all() {
        std::vector<i32> ids;
        for (const ScanRow& row : scan_rows) ids.push_back(row.id);
        return ids;
    }

    static void expect_all_accounted_for(const ScanBooking& booking, std::size_t rows) {
        EXPECT_EQ(booking.kept.size(), scan_rows.size());
        EXPECT_EQ(static_cast<std::size_t>(booking.booked + booking.ignored) + scan_rows.size(),
                  rows);
    }

    TestPlatform platform;
    AnyBoxes any_boxes;
};

TEST_F(DamagedScanList, SoundItemsAreFoundAmongDamagedOnes) {
    EXPECT_EQ(item_of_scan("B1"), 1);
    EXPECT_EQ(find_barcode("B17"), 17);
    EXPECT_EQ(scan_rows[0].name, "Item 1");
    EXPECT_TRUE(scan_rows[0].is_known);
}

TEST_F(DamagedScanList, EveryWayOfBookingGoesThroughToItsEnd) {
    for (const auto book : {Add_New, Used_Update, Add_Shopping_List}) {
        scan_all();
        const std::size_t rows = scan_rows.size();
        expect_all_accounted_for(book(all()), rows);
        EXPECT_EQ(strangers_in_damaged_household(), Texts{});
    }
    EXPECT_EQ(find_barcode("nobody's") > 0, true);
}

TEST_F(DamagedScanList, EveryRowIsRefreshed) {
    for (i16 item = 0; item <= item_capacity; ++item) {
        refresh_item(items[item].barcode.trimmed(), items[item].name.trimmed(), item);
    }
    refresh_scan_rows();
    EXPECT_EQ(scan_rows[0].name, "Item 1");
}

}  // namespace
}  // namespace tavernook
