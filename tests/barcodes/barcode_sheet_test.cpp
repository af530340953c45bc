// The page of labels, byte for byte.
#include "barcodes/barcode_sheet.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "basics/fault.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

const std::string begin_of_page =
    "<html><head><title>Barcodes</title></head><body><table border='0' width='600' align = "
    "'center' cellspacing='0' cellpadding='0'>";
const std::string end_of_page = "</table></body></html>";

std::string row(const std::string& starred, const std::string& caption) {
    return "<tr><td width=\"800\" ><p style='margin-top: 0; margin-bottom: 0' align='left'><font "
           "face=\"3 of 9 Barcode\" size=\"7\">" +
           starred +
           "</font></p><p style='margin-top: 0; margin-bottom: 0' align=\"left\"><font "
           "face='Arial' size='1'><b>" +
           caption + "</b></font></p><p>&nbsp</p></td></tr>";
}

class BarcodeSheet : public testing::Test {
  protected:
    void SetUp() override { project_path = platform.path("home.tvk"); }

    static void put_item(i16 slot, const char* name, const char* barcode) {
        items[slot].name = name;
        items[slot].barcode = barcode;
        items[slot].in_use = 1;
    }
    static void put_recipe(i16 slot, const char* name) {
        meals[slot].name = name;
        meals[slot].in_use = 1;
    }
    std::string page_file() const { return platform.system.program + "/barcode/barcodehome.htm"; }
    // What stands between begin and end of the page.
    std::string rows_of(const SheetContents& contents) {
        EXPECT_TRUE(Build_Doc(contents).is_written);
        const std::string page = read_whole_file(page_file());
        EXPECT_TRUE(page.starts_with(begin_of_page));
        EXPECT_TRUE(page.ends_with(end_of_page));
        const std::size_t frame = begin_of_page.size() + end_of_page.size();
        return page.size() < frame ? "" : page.substr(begin_of_page.size(), page.size() - frame);
    }
    std::string row_of_item(const char* barcode) {
        put_item(1, "Milk", barcode);
        return rows_of({.items = true});
    }
    static SheetLabels labels_of(const char* barcode) {
        put_item(1, "Milk", barcode);
        return Build_Doc({.items = true}).labels;
    }

    TestPlatform platform;
};

TEST_F(BarcodeSheet, WithoutItemsAndRecipesThePageIsEmpty) {
    put_item(1, "Milk", "40123455");
    put_recipe(1, "Soup");
    EXPECT_EQ(rows_of({}), "");
    EXPECT_EQ(Build_Doc({}).labels, SheetLabels{});
}

TEST_F(BarcodeSheet, ItemsAndRecipesEachInTheOrderOfTheirSlots) {
    put_item(10000, "Last", "9");
    put_item(3, "Milk", "012345678905");
    put_item(4, "Gone", "1");
    items[4].in_use = 0;
    put_recipe(1000, "Stew");
    put_recipe(7, "Soup");
    put_recipe(8, "Gone");
    meals[8].in_use = 0;
    const std::string of_items =
        row("*012345678905*", "Milk (*012345678905*)") + row("*9*", "Last (*9*)");
    const std::string of_recipes =
        row("*tvk7*", "Soup (tvk7)") + row("*tvk1000*", "Stew (tvk1000)");
    EXPECT_EQ(rows_of({.items = true}), of_items);
    EXPECT_EQ(rows_of({.recipes = true}), of_recipes);
    EXPECT_EQ(rows_of({.items = true, .recipes = true}), of_items + of_recipes);
    EXPECT_EQ(Build_Doc({.items = true, .recipes = true}).labels,
              (SheetLabels{.items = 2, .recipes = 2}));
}

TEST_F(BarcodeSheet, AnItemWithoutACodeHasTheCodeEMPTY) {
    const std::string empty = row("*EMPTY*", "Milk (*EMPTY*)");
    for (const char* barcode : {"empty", "", "    ", "*", "**", " empty "}) {
        EXPECT_EQ(row_of_item(barcode), empty) << barcode;
        EXPECT_EQ(labels_of(barcode), (SheetLabels{.items = 1, .without_code = 1})) << barcode;
    }
    EXPECT_EQ(row_of_item("Empty"), row("*Empty*", "Milk (*Empty*)"));
}

TEST_F(BarcodeSheet, BetweenOnePairOfStarsWhateverTheTableHolds) {
    EXPECT_EQ(row_of_item("*12*"), row("*12*", "Milk (*12*)"));
    EXPECT_EQ(row_of_item("*12"), row("*12*", "Milk (*12*)"));
    EXPECT_EQ(row_of_item("12*"), row("*12*", "Milk (*12*)"));
    EXPECT_EQ(row_of_item("**12**"), row("*12*", "Milk (**12**)"));
    EXPECT_EQ(row_of_item("  12  "), row("*12*", "Milk (*12*)"));
    EXPECT_EQ(row_of_item("1*2"), row("*1*2*", "Milk (*1*2*)"));
}

TEST_F(BarcodeSheet, NamesAndCodesStandAsTheyAre) {
    put_item(1,
             "<b>\"M\xFC"
             "sli\" & 'Milk'",
             "a&<b>");
    EXPECT_EQ(rows_of({.items = true}), row("*a&<b>*",
                                            "<b>\"M\xFC"
                                            "sli\" & 'Milk' (*a&<b>*)"));
}

TEST_F(BarcodeSheet, CountsTheLabelsThatAreReadAsSomethingElse) {
    for (const char* good : {"012345678905", "ABC-1.2 $/+%", "A  B"}) {
        EXPECT_EQ(labels_of(good).misread, 0) << good;
    }
    for (const char* bad : {"abc", "A#1", "M\xDC", "*12*", "1*2"}) {
        EXPECT_EQ(labels_of(bad), (SheetLabels{.items = 1, .misread = 1})) << bad;
    }
}

TEST_F(BarcodeSheet, BearsTheStemOfTheProject) {
    project_path = platform.path("Tante K\xC3\xA4the 2.tvk");
    EXPECT_EQ(sheet_path(), platform.system.program + "/barcode/barcodeTante K\xC3\xA4the 2.htm");
    EXPECT_FALSE(has_sheet());
    EXPECT_TRUE(Build_Doc({}).is_written);
    EXPECT_TRUE(std::filesystem::exists(sheet_path()));
    EXPECT_TRUE(has_sheet());
    project_path = platform.path(std::string(251, 'x') + ".tvk");
    EXPECT_TRUE(Build_Doc({}).is_written);
    EXPECT_TRUE(has_sheet());
}

TEST_F(BarcodeSheet, AnEmptyFileIsNoSheet) {
    ASSERT_TRUE(Build_Doc({}).is_written);
    write_whole_file(page_file(), "");
    EXPECT_FALSE(has_sheet());
}

TEST_F(BarcodeSheet, AFileThatCannotBeReadIsNoSheet) {
    ASSERT_TRUE(Build_Doc({}).is_written);
    platform.files.start_over();
    EXPECT_TRUE(has_sheet());
    const auto steps = static_cast<int>(platform.files.log().size());
    for (int step = 1; step <= steps; ++step) {
        platform.files.start_over();
        platform.files.fail_at(step, fault_number::permission_denied);
        EXPECT_FALSE(has_sheet()) << step;
    }
}

TEST_F(BarcodeSheet, AFaultAtAnyStepTellsAndKeepsTheOldPage) {
    put_item(1, "Milk", "1");
    ASSERT_TRUE(Build_Doc({.items = true}).is_written);
    const std::string old = read_whole_file(page_file());
    platform.files.start_over();
    ASSERT_TRUE(Build_Doc({.items = true}).is_written);
    const std::vector<std::string> steps = platform.files.log();
    ASSERT_GT(steps.size(), 3U);
    EXPECT_EQ(steps.back(), "rename barcodehome.htm.new -> barcodehome.htm");
    put_item(1, "Cream", "2");
    for (int step = 1; step <= static_cast<int>(steps.size()); ++step) {
        if (steps[static_cast<std::size_t>(step - 1)].starts_with("copy_attributes")) continue;
        platform.files.start_over();
        platform.files.fail_at(step, fault_number::disk_full, Repeat::once, Torn::yes);
        platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
        EXPECT_FALSE(Build_Doc({.items = true}).is_written)
            << steps[static_cast<std::size_t>(step - 1)];
        platform.boxes.check_used_up();
        EXPECT_EQ(read_whole_file(page_file()), old) << step;
    }
}

}  // namespace
}  // namespace tavernook
