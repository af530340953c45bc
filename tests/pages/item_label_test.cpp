#include "reports/pages/item_label.h"

#include "inventory/items.h"
#include "pages/pages_fixture.h"

namespace tavernook {
namespace {

constexpr i16 milk = 4;

class ItemLabel : public PagesTest {
  protected:
    ItemLabel() {
        add_item(milk, "Milk");
        fill_lots(milk, 2.5, 1);
        units[1].name = "Bottle(s)";
        units[2].name = "Cup(s)";
        units[3].name = "g";
        items[milk].cost = 1.25;
        items[milk].serving_size = 0.5;
        items[milk].serving_size_units = 2;
        items[milk].servings_per_qty_unit = 8;
        items[milk].barcode = "0123a";
        f64 value = 0.5;
        for (const NutrientFields& nutrient : nutrient_fields) {
            item_details[milk].*nutrient.value = value;
            item_details[milk].*nutrient.unit = 3;
            value += 1;
        }
        put_file("barcode/labeldat.dat", "%1%|%2%|%3%|%4%|%5%|%6%|%13%|%14%|%15%|%16%|%17%");
    }
    std::string label() {
        EXPECT_TRUE(Build_Item_Label(milk));
        return page("barcode/labeldat.htm");
    }
};

TEST_F(ItemLabel, TellsWhatTheItemIsAndBearsItsCode) {
    EXPECT_EQ(label(),
              "Milk|3.50 Bottle(s)|8.00 servings per 1 Bottle(s)|0.50 Cup(s)|0.50 g|1.50 g|8.50 g|"
              "$1.25|*0123A*|(Barcode: 0123a)|%17%");
}

TEST_F(ItemLabel, AllNineNutrientsInTheirOrder) {
    put_file("barcode/labeldat.dat", "%5% %6% %7% %8% %9% %10% %11% %12% %13%");
    EXPECT_EQ(label(), "0.50 g 1.50 g 2.50 g 3.50 g 4.50 g 5.50 g 6.50 g 7.50 g 8.50 g");
}

TEST_F(ItemLabel, WithoutACodeItBearsNone) {
    put_file("barcode/labeldat.dat", "[%15%%16%]");
    for (const char* code : {"empty", ""}) {
        items[milk].barcode = code;
        EXPECT_EQ(label(), "[]") << code;
    }
}

TEST_F(ItemLabel, ACodeThatHasItsStarsGetsNoOthers) {
    put_file("barcode/labeldat.dat", "%15%");
    items[milk].barcode = "*77*";
    EXPECT_EQ(label(), "*77*");
}

TEST_F(ItemLabel, AnItemThatIsNoneHasNoLabel) {
    for (const i16 item : {i16{0}, i16{5}, i16{-1}, i16{10001}}) {
        EXPECT_FALSE(Build_Item_Label(item));
    }
    EXPECT_FALSE(is_there("barcode/labeldat.htm"));
}

TEST_F(ItemLabel, UnitsThatAreNoneAreBlank) {
    items[milk].qty_units = 1001;
    item_details[milk].fat_units = -1;
    put_file("barcode/labeldat.dat", "[%2%][%5%]");
    EXPECT_EQ(label(), "[3.50 ][0.50 ]");
}

TEST_F(ItemLabel, WithoutATemplateThereIsABoxAndTheLabelBeforeStays) {
    std::filesystem::remove(in_program("barcode/labeldat.dat"));
    put_file("barcode/labeldat.htm", "the label before");
    expect_trapped(
        53, [] { return Build_Item_Label(milk); }, false);
    EXPECT_EQ(page("barcode/labeldat.htm"), "the label before");
}

}  // namespace
}  // namespace tavernook
