#include "barcodes/scan_list.h"

#include <cmath>
#include <limits>
#include <random>

#include "barcodes/scan_list_fixture.h"
#include "barcodes/scanners.h"
#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

class ScanList : public ScanListTest {};

// --- codes and items ---------------------------------------------------------------------------

TEST_F(ScanList, TheFirstSlotOfACodeIsFoundWhetherInUseOrNot) {
    EXPECT_EQ(find_barcode("0123"), milk);
    items[3].barcode = "0123";
    EXPECT_EQ(find_barcode("0123"), 3);
    EXPECT_EQ(find_barcode("9999"), 0);
}

TEST_F(ScanList, TheFirstAndTheLastSlotAreLookedAtAndEntryZeroIsNot) {
    items[0].barcode = "zero";
    items[1].barcode = "one";
    items[10000].barcode = "last";
    EXPECT_EQ(find_barcode("zero"), 0);
    EXPECT_EQ(find_barcode("one"), 1);
    EXPECT_EQ(find_barcode("last"), 10000);
}

TEST_F(ScanList, CapitalsOfACodeCount) {
    items[12].barcode = "Ab";
    EXPECT_EQ(find_barcode("Ab"), 12);
    EXPECT_EQ(find_barcode("ab"), 0);
}

TEST_F(ScanList, SlotsAreTrimmedOnTheWayAndTheCodeAskedForIsNot) {
    items[4].barcode = "  77 ";
    EXPECT_EQ(find_barcode("77"), 4);
    EXPECT_EQ(items[4].barcode.stored(), "77" + std::string(30, ' '));
    EXPECT_EQ(find_barcode("  77"), 0);
    EXPECT_EQ(find_barcode("77 "), 0);
}

TEST_F(ScanList, TheWordForNoCodeFindsTheFirstSlotWithoutOne) {
    EXPECT_EQ(find_barcode("empty"), 1);
    EXPECT_EQ(item_of_scan("empty"), 0) << "a free slot is no item";
    items[1].in_use = 1;
    EXPECT_EQ(item_of_scan("empty"), 1);
}

TEST_F(ScanList, ACodeLongerThanAnItemCanBearIsFoundByWhatItBears) {
    const std::string code(40, '8');
    items[milk].barcode = code;
    EXPECT_EQ(find_barcode(code), 0);
    EXPECT_EQ(item_of_scan(code), milk);
}

TEST_F(ScanList, OfADeletedItemsCodeTheNextLiveBearerIsMeant) {
    items[3].barcode = "0123";
    EXPECT_EQ(find_barcode("0123"), 3);
    EXPECT_EQ(item_of_scan("0123"), milk);
    items[milk].in_use = 0;
    EXPECT_EQ(item_of_scan("0123"), 0);
}

TEST_F(ScanList, ABlankCodeMeansNoItemThoughOneBearsNone) {
    put_item(2, "Nothing", "");
    EXPECT_EQ(item_of_scan(""), 0);
    EXPECT_EQ(item_of_scan("   "), 0);
}

TEST_F(ScanList, ALabelOfTheProgramMeansTheItemOfItsNumber) {
    for (const char* code : {"TVK7", "tvk7", "Tvk7", "TVK007"}) EXPECT_EQ(item_of_scan(code), milk);
    for (const char* code : {"tVK7", "TVK", "TVK8", "TVK0", "TVK-7", "TVK7x", "TVK 7", "TVK10001",
                             "TVK99999999999999999999"}) {
        EXPECT_EQ(item_of_scan(code), 0) << code;
    }
}

TEST_F(ScanList, FromTheCueCatOnlyCapitalsMakeALabel) {
    scanner_type = cue_cat;
    EXPECT_EQ(item_of_scan("TVK7"), milk);
    EXPECT_EQ(item_of_scan("tvk7"), 0);
    EXPECT_EQ(item_of_scan("Tvk7"), 0);
}

TEST_F(ScanList, ALabelOfNoItemIsLookedUpAsACode) {
    items[milk].barcode = "TVK8";
    EXPECT_EQ(item_of_scan("TVK8"), milk);
    put_item(8, "Eight", "88");
    EXPECT_EQ(item_of_scan("TVK8"), 8);
}

// --- rows --------------------------------------------------------------------------------------

TEST_F(ScanList, ARowTellsOfItsItem) {
    scan("0123", 2.5, "Lot B");
    EXPECT_EQ(shown(),
              Texts{"0123 | Milk | 2.5 | " + std::string(units[1].name.trimmed()) + " | Lot B"});
    EXPECT_TRUE(scan_rows[0].is_known);
}

TEST_F(ScanList, AnUnknownCodeIsOneOfAnUnknownItem) {
    scan("999");
    EXPECT_EQ(shown(), Texts{"999 | unknown item | 1 |  | Auto"});
    EXPECT_FALSE(scan_rows[0].is_known);
}

TEST_F(ScanList, BlanksBehindACodeGoAndThoseInFrontStay) {
    scan("  99  ", 0, "   ");
    EXPECT_EQ(shown(), Texts{"  99 | unknown item | 1 |  | Auto"});
}

TEST_F(ScanList, AnEmptyCodeIsARowToo) {
    scan("");
    EXPECT_EQ(shown(), Texts{" | unknown item | 1 |  | Auto"});
}

TEST_F(ScanList, ACodeScannedTwiceIsTwoRows) {
    const i32 first = scan("0123");
    const i32 second = scan("0123");
    EXPECT_EQ(codes(), (Texts{"0123", "0123"}));
    EXPECT_NE(first, second);
}

TEST_F(ScanList, IdsAreNeverUsedAgain) {
    const i32 first = scan("1");
    delete_scan_rows({first});
    const i32 second = scan("1");
    clear_scan_list();
    const i32 third = scan("1");
    EXPECT_LT(first, second);
    EXPECT_LT(second, third);
    EXPECT_EQ(scan_row(first), nullptr);
    EXPECT_EQ(scan_row(third), scan_rows.data());
}

TEST_F(ScanList, AQuantityThatIsNoNumberIsFault13) {
    for (const f64 quantity : {std::nan(""), std::numeric_limits<f64>::infinity()}) {
        EXPECT_EQ(fault_of([=] { populate_item("1", quantity, ""); }), 13);
    }
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ScanList, AFullListIsFault6) {
    scan("1");
    scan_rows.resize(most_scan_rows, scan_rows[0]);
    EXPECT_EQ(fault_of([] { populate_item("2", 0, ""); }), 6);
    EXPECT_EQ(scan_rows.size(), most_scan_rows);
}

TEST_F(ScanList, RowsAreDeletedByCodeAndById) {
    scan("1");
    const i32 second = scan("2");
    scan("1");
    delete_barcode("1 ");
    EXPECT_EQ(codes(), (Texts{"2", "1"}));
    delete_barcode("none");
    delete_scan_rows({second});
    delete_scan_rows({second});
    EXPECT_EQ(codes(), Texts{"1"});
    const i32 third = scan("3");
    const i32 fourth = scan("4");
    scan("5");
    delete_scan_rows({fourth, 0, second, third, fourth});
    EXPECT_EQ(codes(), (Texts{"1", "5"}));
}

TEST_F(ScanList, TheQuantityOfACodeIsThatOfItsFirstRowRoundedHalfToEven) {
    const std::pair<f64, i16> rounded[] = {
        {2.5, 2}, {3.5, 4}, {-2.5, -2}, {2.51, 3}, {32767, 32767}};
    for (const auto& [quantity, whole] : rounded) {
        clear_scan_list();
        scan("1", quantity);
        scan("1", 99);
        EXPECT_EQ(GetQTY("1"), whole) << quantity;
    }
    EXPECT_EQ(GetQTY("2"), 0);
}

TEST_F(ScanList, AQuantityBeyond16BitsIsTold) {
    scan("1", 32768);
    platform.boxes.expect_message("ERROR 6 ERROR DESCRIPTIONOverflow");
    EXPECT_EQ(GetQTY("1"), 0);
}

TEST_F(ScanList, AFaultIsToldWithoutABlankBehindTheDescription) {
    EXPECT_EQ(scan_list_message(13, "Type mismatch"), "ERROR 13 ERROR DESCRIPTIONType mismatch");
}

// --- items change while rows stand -------------------------------------------------------------

TEST_F(ScanList, AnEditedItemsRowsTakeItsNameAndUnits) {
    scan("0123", 3, "Lot C");
    scan("4567");
    units[5].name = "sack";
    items[milk].qty_units = 5;
    refresh_item("0123", "Oat milk", milk);
    EXPECT_EQ(shown()[0], "0123 | Oat milk | 3 | sack | Lot C");
    EXPECT_EQ(scan_rows[1].name, "Flour");
}

TEST_F(ScanList, AnItemThatCameMakesItsRowsKnown) {
    scan("555");
    put_item(11, "Rice", "555");
    refresh_item("555  ", "Rice", 11);
    EXPECT_TRUE(scan_rows[0].is_known);
    EXPECT_EQ(scan_rows[0].name, "Rice");
}

TEST_F(ScanList, ARefreshOfNoItemHasABoxOfItsOwn) {
    scan("0123");
    const Texts before = shown();
    platform.boxes.expect_message(
        "Error in routine Refresh_Item, In ScanList module, ERROR = 9DESC = Subscript out of "
        "range");
    refresh_item("0123", "Other", 10001);
    EXPECT_EQ(shown(), before);
}

TEST_F(ScanList, RowsFollowTheirItems) {
    scan("0123");
    scan("555");
    items[milk].name = "Oat milk";
    put_item(11, "Rice", "555");
    refresh_scan_rows();
    EXPECT_EQ(scan_rows[0].name, "Oat milk");
    EXPECT_EQ(scan_rows[1].name, "Rice");
    remove_item(milk);
    refresh_scan_rows();
    EXPECT_EQ(scan_rows[0].name, "unknown item");
    EXPECT_EQ(scan_rows[0].units, "");
    EXPECT_FALSE(scan_rows[0].is_known);
}

// Few codes, so that they meet: doubled, blank, in free slots, as labels, with blanks around.
TEST_F(ScanList, AllRowsAreLookedUpAsEachOneAlone) {
    std::mt19937 random(20240515);
    const auto any = [&random](int count) { return static_cast<i16>(random() % unsigned(count)); };
    const std::string stems[] = {
        "", " ", "empty", "TVK", "tvk", "Tvk7", "A", "a", std::string(31, '5')};
    const auto any_code = [&] {
        std::string code = stems[any(9)];
        for (int digits = any(3); digits > 0; --digits) code += static_cast<char>('0' + any(10));
        return any(8) == 0 ? "  " + code + " " : code;
    };
    for (int table = 0; table < 10; ++table) {
        scanner_type = any(4);
        for (i16 slot = 1; slot <= 400; ++slot) {
            items[slot].in_use = any(4) == 0 ? i16{0} : i16{1};
            items[slot].name = "Item " + std::to_string(slot);
            items[slot].barcode = any_code();
        }
        clear_scan_list();
        for (int row = 0; row < 150; ++row) populate_item(any_code(), 1, "");
        const auto untrimmed = items[400].barcode;
        for (ScanRow& row : scan_rows) row.name = "?";
        refresh_scan_rows();
        for (const ScanRow& row : scan_rows) {
            const i16 item = item_of_scan(row.barcode);
            EXPECT_EQ(row.is_known, item != 0) << '"' << row.barcode << '"';
            EXPECT_EQ(row.name, item != 0 ? items[item].name.trimmed() : "unknown item");
        }
        EXPECT_EQ(items[400].barcode, FixedString<32>(untrimmed.trimmed()));
    }
}

// --- what the user changes ---------------------------------------------------------------------

TEST_F(ScanList, ANewQuantityIsTakenWithAPointOrAComma) {
    const i32 row = scan("0123", 2);
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "2", "1,5");
    ModQuantity(row);
    EXPECT_EQ(scan_rows[0].quantity, "1.5");
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1.5", " 0.25 ");
    ModQuantity(row);
    EXPECT_EQ(scan_rows[0].quantity, "0.25");
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "0.25", "0");
    ModQuantity(row);
    EXPECT_EQ(scan_rows[0].quantity, "0");
}

TEST_F(ScanList, AQuantityThatIsNoneIsToldAndLeavesTheRow) {
    const i32 row = scan("0123", 2);
    for (const char* typed : {"", "two", "1.2.3", "1/2", "2 lb"}) {
        platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "2", typed);
        platform.boxes.expect_message("Not a valid quantity").title("Tavernook");
        ModQuantity(row);
        EXPECT_EQ(scan_rows[0].quantity, "2") << typed;
    }
}

TEST_F(ScanList, ACancelledBoxChangesNothing) {
    const i32 row = scan("0123", 2, "Lot B");
    const Texts before = shown();
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "2", std::nullopt);
    ModQuantity(row);
    platform.boxes.expect_input("Enter Lot Name", "Modify Lot", "Lot B", std::nullopt);
    ModLot(row);
    EXPECT_EQ(shown(), before);
}

TEST_F(ScanList, ANewLotIsTakenUnlessItIsEmpty) {
    const i32 row = scan("0123");
    platform.boxes.expect_input("Enter Lot Name", "Modify Lot", "Auto", "Cellar");
    ModLot(row);
    EXPECT_EQ(scan_rows[0].lot, "Cellar");
    for (const char* typed : {"", "  "}) {
        platform.boxes.expect_input("Enter Lot Name", "Modify Lot", "Cellar", typed);
        ModLot(row);
        EXPECT_EQ(scan_rows[0].lot, "Cellar");
    }
}

TEST_F(ScanList, ARowThatGoesWhileItsBoxStandsOpenTakesNothingAndIsTold) {
    const i32 quantity = scan("0123", 2);
    scan("4567", 5);
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "2", "9").during([=] {
        delete_scan_rows({quantity});
    });
    ModQuantity(quantity);
    EXPECT_EQ(scan_rows[0].quantity, "5");
    EXPECT_EQ(platform.main.status[message_panel], "This code is not on the list any more.");

    const i32 lot = scan_rows[0].id;
    platform.main.status[message_panel].clear();
    platform.boxes.expect_input("Enter Lot Name", "Modify Lot", "Auto", "Cellar").during([] {
        clear_scan_list();
    });
    ModLot(lot);
    EXPECT_EQ(platform.main.status[message_panel], "This code is not on the list any more.");
}

TEST_F(ScanList, ARowThatMovesWhileItsBoxStandsOpenTakesWhatWasTyped) {
    const i32 first = scan("0123");
    const i32 second = scan("4567");
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1", "9").during([=] {
        delete_scan_rows({first});
        for (int row = 0; row < 100; ++row) scan("1");
    });
    ModQuantity(second);
    EXPECT_EQ(scan_row(second)->quantity, "9");
    EXPECT_EQ(scan_row(second)->barcode, "4567");
}

TEST_F(ScanList, NobodyIsAskedAboutARowThatHasGone) {
    ModQuantity(0);
    ModLot(scan("1") + 1);
}

}  // namespace
}  // namespace tavernook
