#include "barcodes/find_barcode.h"

#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class FindBarcode : public testing::Test {
  protected:
    static void put(i16 item, const char* barcode, i16 in_use = 1) {
        items[item].barcode = barcode;
        items[item].in_use = in_use;
    }

    TestPlatform platform;
};

TEST_F(FindBarcode, TheFirstItemWithTheCodeIsFound) {
    put(4, "0123");
    put(9, "0123");
    put(10000, "last");
    EXPECT_EQ(find_barcode("0123"), 4);
    EXPECT_EQ(find_barcode("last"), 10000);
    EXPECT_EQ(find_barcode("123"), 0);
}

TEST_F(FindBarcode, CapitalsAndBlanksOfTheCodeCount) {
    put(4, "abC");
    EXPECT_EQ(find_barcode("abc"), 0);
    EXPECT_EQ(find_barcode(" abC"), 0);
    EXPECT_EQ(find_barcode("abC"), 4);
}

TEST_F(FindBarcode, TheItemsOwnCodeIsTrimmedWhereItStands) {
    put(4, "  77");
    EXPECT_EQ(find_barcode("77"), 4);
    EXPECT_EQ(items[4].barcode.right_trimmed(), "77");
}

TEST_F(FindBarcode, AFreeSlotIsFoundButCannotBeScanned) {
    put(4, "55", 0);
    EXPECT_EQ(find_barcode("55"), 4);
    EXPECT_EQ(find_scanned_item("55"), 0);
}

TEST_F(FindBarcode, NoBarcodeIsNoCode) {
    put(4, no_barcode);
    put(5, "");
    EXPECT_EQ(find_scanned_item(no_barcode), 0);
    EXPECT_EQ(find_scanned_item(""), 0);
}

}  // namespace
}  // namespace tavernook
