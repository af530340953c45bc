#include "barcodes/barcode_on_show.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "core/project_data.h"
#include "core/trap.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class BarcodeShown : public testing::Test {
  protected:
    void SetUp() override {
        items[3].barcode = "40123455";
        items[3].in_use = 1;
        meals[7].in_use = 1;
        look_for_changes();
    }
    std::string file(const char* name) const {
        return platform.system.program + "/barcode/" + name;
    }
    TestPlatform platform;
};

TEST_F(BarcodeShown, OfAnItemIsSaved) {
    ASSERT_TRUE(put_barcode_on_show(3, false));
    EXPECT_EQ(barcode_on_show.of.now(), 3);
    EXPECT_EQ(barcode_on_show.code, "40123455");
    EXPECT_EQ(barcode_on_show.file, file("3.bmp"));
    EXPECT_TRUE(std::filesystem::exists(file("3.bmp")));
}

TEST_F(BarcodeShown, OfARecipeIsTvkAndItsSlot) {
    ASSERT_TRUE(put_barcode_on_show(7, true));
    EXPECT_EQ(barcode_on_show.code, "tvk7");
    EXPECT_EQ(present_code(), "tvk7");
    EXPECT_TRUE(std::filesystem::exists(file("m7.bmp")));
    meals[7].in_use = 0;
    look_for_changes();
    EXPECT_EQ(present_code(), "");
}

TEST_F(BarcodeShown, IsNoneWithoutARecordOrACode) {
    ASSERT_TRUE(put_barcode_on_show(3, false));
    const BarcodeOnShow before = barcode_on_show;
    items[4].in_use = 1;
    for (const char* none : {"empty", "", "   "}) {
        items[4].barcode = none;
        EXPECT_FALSE(has_barcode(4)) << none;
        EXPECT_FALSE(put_barcode_on_show(4, false)) << none;
    }
    for (const i16 none : {0, -1, 5, 10001}) {
        EXPECT_FALSE(put_barcode_on_show(none, false)) << none;
        EXPECT_FALSE(put_barcode_on_show(none, true)) << none;
    }
    EXPECT_EQ(barcode_on_show, before);
}

TEST_F(BarcodeShown, WhatCannotBeSavedIsNotOnShow) {
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
    EXPECT_FALSE(put_barcode_on_show(3, false));
    EXPECT_EQ(barcode_on_show, BarcodeOnShow{});
}

TEST_F(BarcodeShown, IsDrawnAnewWithAnotherCode) {
    ASSERT_TRUE(put_barcode_on_show(3, false));
    const std::string before = read_whole_file(file("3.bmp"));
    platform.files.start_over();
    renew_barcode_on_show();
    EXPECT_TRUE(platform.files.log().empty());
    items[3].barcode = "123";
    look_for_changes();
    EXPECT_EQ(present_code(), "123");
    renew_barcode_on_show();
    EXPECT_EQ(barcode_on_show.code, "123");
    EXPECT_NE(read_whole_file(file("3.bmp")), before);
    platform.files.start_over();
    items[3].barcode = "456";
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
    renew_barcode_on_show();
    EXPECT_EQ(barcode_on_show.code, "456");
    EXPECT_EQ(barcode_on_show.file, "");
}

TEST_F(BarcodeShown, IsNotDrawnAnewWhenItemOrCodeHasGone) {
    ASSERT_TRUE(put_barcode_on_show(3, false));
    items[3].barcode = "empty";
    renew_barcode_on_show();
    EXPECT_EQ(present_code(), "");
    items[3].barcode = "40123455";
    items[3].in_use = 0;
    look_for_changes();
    renew_barcode_on_show();
    EXPECT_EQ(barcode_on_show.code, "40123455");
    EXPECT_EQ(present_code(), "");
}

}  // namespace
}  // namespace tavernook
