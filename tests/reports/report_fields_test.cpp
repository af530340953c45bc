// The 77 fields and their values.
#include "reports/report_fields.h"

#include <cmath>
#include <limits>

#include "basics/text.h"
#include "reports/reports_fixture.h"
#include "support/damaged_household.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

class ReportFields : public ReportsTest {
  protected:
    static std::string text_of(int row, i16 item) {
        return value_text(field_value(row, report_item(item)));
    }
};

TEST_F(ReportFields, HaveTheseNames) {
    const std::vector<std::string> names = {"Item",
                                            "Category",
                                            "Store",
                                            "Store Order (SO)",
                                            "Quantity",
                                            "Cost/Unit",
                                            "QTY Units",
                                            "Manufacturer",
                                            "Brand",
                                            "Description",
                                            "Notes",
                                            "Location",
                                            "Storage Time",
                                            "Last Restock Date",
                                            "Stock Quantity",
                                            "Restock Quantity",
                                            "Barcode",
                                            "Serving Size",
                                            "Serving Size Units",
                                            "Serving/Qty Unit",
                                            "Fat",
                                            "Calories",
                                            "Cholestorol",
                                            "Sodium",
                                            "Potassium",
                                            "Carbohydrates",
                                            "Fiber",
                                            "Sugars",
                                            "Protien",
                                            "Lot A QTY",
                                            "Lot A Expiration Date",
                                            "Lot A Creation Date",
                                            "Lot B QTY"};
    for (std::size_t row = 0; row < names.size(); ++row) {
        EXPECT_EQ(field_name(static_cast<int>(row) + 1), names[row]);
    }
    EXPECT_EQ(field_name(75), "Lot P QTY");
    EXPECT_EQ(field_name(76), "Lot P Expiration Date");
    EXPECT_EQ(field_name(77), "Lot P Creation Date");
}

TEST_F(ReportFields, EachReadsItsOwnField) {
    add_soup();
    const std::vector<std::string> texts = soup_texts();
    ASSERT_EQ(texts.size(), 77u);
    for (int row = 1; row <= report_rows; ++row) {
        EXPECT_EQ(trim_right(text_of(row, soup)), texts[static_cast<std::size_t>(row - 1)])
            << field_name(row);
    }
}

TEST_F(ReportFields, KindsAreThoseOfTheValues) {
    add_soup();
    for (int row = 1; row <= report_rows; ++row) {
        EXPECT_EQ(field_value(row, report_item(soup)).kind, field_kind(row)) << field_name(row);
    }
}

TEST_F(ReportFields, FixedTextsKeepTheirBlanks) {
    add_soup();
    EXPECT_EQ(text_of(1, soup).size(), 32u);
    EXPECT_EQ(text_of(2, soup).size(), 32u);
    EXPECT_EQ(text_of(3, soup).size(), 12u);
    EXPECT_EQ(text_of(17, soup).size(), 32u);
    EXPECT_EQ(text_of(19, soup).size(), 12u);
}

TEST_F(ReportFields, WhatIsNoRowIsBlank) {
    add_soup();
    for (const int row : {-1, 0, 78, 100}) {
        EXPECT_EQ(field_name(row), "") << row;
        EXPECT_EQ(field_kind(row), ValueKind::text) << row;
        EXPECT_EQ(text_of(row, soup), "") << row;
    }
}

TEST_F(ReportFields, WhatIsNoItemIsBlank) {
    for (const i16 item : {i16{-1}, i16{0}, i16{10001}, i16{32767}}) {
        EXPECT_EQ(trim(text_of(1, item)), "") << item;
        EXPECT_EQ(text_of(5, item), "0") << item;
        EXPECT_EQ(text_of(30, item), "0") << item;
    }
}

TEST_F(ReportFields, ReferencesToNothingAreBlank) {
    add_soup();
    for (const i16 wrong : {i16{-1}, i16{-32768}, i16{0}, i16{32767}}) {
        items[soup].category = items[soup].store = items[soup].qty_units = wrong;
        items[soup].serving_size_units = items[soup].locations = wrong;
        item_details[soup].manufacturer = item_details[soup].brand = wrong;
        item_details[soup].description = item_details[soup].notes = wrong;
        for (const int row : {2, 3, 7, 8, 9, 10, 11, 12, 19}) {
            EXPECT_EQ(trim(text_of(row, soup)), "") << field_name(row) << " " << wrong;
        }
    }
}

TEST_F(ReportFields, AnItemWithoutLotsHasLotsOfNothing) {
    add_item(item_capacity, "No lots");
    EXPECT_EQ(text_of(30, item_capacity), "0");
    EXPECT_EQ(text_of(31, item_capacity), "12:00:00 AM");
    EXPECT_EQ(text_of(77, item_capacity), "12:00:00 AM");
}

TEST_F(ReportFields, DatesAreShort) {
    EXPECT_EQ(value_text({ValueKind::date, {}, may_15}), "5/15/2024");
    EXPECT_EQ(value_text({ValueKind::date, {}, may_15 + 0.999}), "5/15/2024");
    EXPECT_EQ(value_text({ValueKind::date, {}, 0}), "12:00:00 AM");
    EXPECT_EQ(value_text({ValueKind::date, {}, 0.75}), "12:00:00 AM");
    EXPECT_EQ(value_text({ValueKind::date, {}, -1.5}), "12/29/1899");
    EXPECT_EQ(value_text({ValueKind::date, {}, 1e15}), "");
    EXPECT_EQ(value_text({ValueKind::date, {}, std::nan("")}), "");
}

TEST_F(ReportFields, NumbersArePlain) {
    EXPECT_EQ(value_text({ValueKind::number, {}, 1234567.5}), "1234567.5");
    EXPECT_EQ(value_text({ValueKind::number, {}, -0.25}), "-0.25");
    EXPECT_EQ(value_text({ValueKind::number, {}, 0}), "0");
}

TEST_F(ReportFields, ADamagedHouseholdIsRead) {
    fill_damaged_household();
    std::size_t letters = 0;
    for (i16 item = 1; item <= 500; ++item) {
        for (int row = 1; row <= report_rows; ++row) letters += text_of(row, item).size();
    }
    EXPECT_GT(letters, 0u);
}

}  // namespace
}  // namespace tavernook
