// The rows of the list, the texts of their cells and the totals.
#include "shopping/list_rows.h"

#include <algorithm>

#include "shopping/shopping_fixture.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

class ListRows : public ShoppingTest {
  protected:
    ListRows() {
        put_on_list(milk, 2);
        items[milk].cost = 1.25;
        put_on_list(bread, 3);
        items[bread].cost = 2.5;
    }
    static std::vector<i16> shown() {
        collect_list_items();
        return {list_items.begin() + 1, list_items.begin() + 1 + list_count};
    }
    static std::string cell(ListColumn column) { return cell_text(column, milk); }
};

TEST_F(ListRows, TheItemsComeByTheirNumbers) {
    put_on_list(item_capacity, 1);
    EXPECT_EQ(shown(), (std::vector<i16>{milk, bread, item_capacity}));
    EXPECT_EQ(list_count, 3);
    EXPECT_EQ(list_items[0], 0);
}

TEST_F(ListRows, AQuantityOf0IsNotShown) {
    items[milk].shopping_quantity = 0;
    EXPECT_EQ(shown(), std::vector<i16>{bread});
    EXPECT_EQ(total_text, "$7.50");
}

TEST_F(ListRows, AnItemThatIsOffTheListIsNotShown) {
    items[milk].on_shopping_list = 0;
    EXPECT_EQ(shown(), std::vector<i16>{bread});
}

TEST_F(ListRows, AnyNonzeroMarkCounts) {
    items[milk].on_shopping_list = 1;
    EXPECT_EQ(shown(), (std::vector<i16>{milk, bread}));
}

TEST_F(ListRows, AShorterListLeavesNothingOfTheLongerOne) {
    collect_list_items();
    items[bread].on_shopping_list = 0;
    EXPECT_EQ(shown(), std::vector<i16>{milk});
    EXPECT_EQ(list_items[2], 0);
}

TEST_F(ListRows, TheSelectionStaysWhileItsItemIsShown) {
    selected_list_item = bread;
    collect_list_items();
    EXPECT_EQ(selected_list_item, bread);
    remove_from_list(bread);
    collect_list_items();
    EXPECT_EQ(selected_list_item, 0);
}

TEST_F(ListRows, ShowsItsProgress) {
    collect_list_items();
    const Texts& events = platform.progress.events();
    ASSERT_EQ(events.size(), 103u);
    EXPECT_EQ(events[0], "load Building Shopping List|Adding Items to list. Please Wait....");
    EXPECT_EQ(events[1], "show");
    EXPECT_EQ(events[2], "bar 1");
    EXPECT_EQ(events[101], "bar 100");
    EXPECT_EQ(events[102], "unload");
}

// --- totals
// ---------------------------------------------------------------------------------------

TEST_F(ListRows, TheTotalHasTheTaxInIt) {
    sales_tax = 7.5;
    collect_list_items();  // 2 x 1.25 + 3 x 2.5 = 10
    EXPECT_EQ(total_text, "$10.75");
    EXPECT_EQ(tax_text, "%7.50");
    EXPECT_EQ(tax_label(), "7.50%");
}

TEST_F(ListRows, WithoutTaxItIsTheNetSum) {
    collect_list_items();
    EXPECT_EQ(total_text, "$10.00");
    EXPECT_EQ(tax_text, "%.00");
    EXPECT_EQ(tax_label(), "0.00%");
}

TEST_F(ListRows, AnEmptyListCostsNothing) {
    items[milk].on_shopping_list = items[bread].on_shopping_list = 0;
    collect_list_items();
    EXPECT_EQ(total_text, "$.00");
    EXPECT_EQ(list_count, 0);
}

TEST_F(ListRows, TheTotalMayBeOfAnySize) {
    items[milk].cost = 61728.25;  // 2 x 61728.25 + 7.5 = 123464
    collect_list_items();
    EXPECT_EQ(total_text, "$123464.00");
}

TEST_F(ListRows, ATaxOfThreeDecimalsShowsThemInTheLabel) {
    sales_tax = 8.125;
    collect_list_items();  // 10.8125
    EXPECT_EQ(total_text, "$10.81");
    EXPECT_EQ(tax_text, "%8.13");
    EXPECT_EQ(tax_label(), "8.125%");
}

TEST_F(ListRows, TheCurrencyIsTheProjects) {
    currency_symbol = 163;
    collect_list_items();
    EXPECT_EQ(total_text,
              "\xA3"
              "10.00");
    EXPECT_EQ(cell(ListColumn::cost),
              "\xA3"
              "1.25");
    EXPECT_EQ(cell(ListColumn::sub_total),
              "\xA3"
              "2.50");
}

// --- cells
// ----------------------------------------------------------------------------------------

TEST_F(ListRows, TheColumnsStandInThisOrder) {
    Texts titles;
    for (const ListColumn column : list_columns) titles.push_back(column_title(column));
    EXPECT_EQ(titles, (Texts{"Item", "Category", "Store", "SO", "Quantity", "Cost/Unit", "Units",
                             "Sub Total"}));
}

TEST_F(ListRows, ACellShowsItsField) {
    items[milk].name = " Milk  ";
    items[milk].category = 2;
    catagories[2].name = "Dairy";
    items[milk].store = 3;
    stores[3].name = "Corner shop";
    items[milk].store_order = 7;
    items[milk].qty_units = 12;
    EXPECT_EQ(cell(ListColumn::item), " Milk");
    EXPECT_EQ(cell(ListColumn::category), "Dairy");
    EXPECT_EQ(cell(ListColumn::store), "Corner shop");
    EXPECT_EQ(cell(ListColumn::store_order), "07");
    EXPECT_EQ(cell(ListColumn::quantity), "2.00");
    EXPECT_EQ(cell(ListColumn::cost), "$1.25");
    EXPECT_EQ(cell(ListColumn::units), "bottle(s)");
    EXPECT_EQ(cell(ListColumn::sub_total), "$2.50");
}

TEST_F(ListRows, NumbersFollowTheirMasks) {
    items[milk].shopping_quantity = 0.5;
    items[milk].cost = 0.25;
    items[milk].store_order = 12;
    EXPECT_EQ(cell(ListColumn::store_order), "12");
    EXPECT_EQ(cell(ListColumn::quantity), ".50");
    EXPECT_EQ(cell(ListColumn::cost), "$0.25");
    EXPECT_EQ(cell(ListColumn::sub_total), "$0.13");  // 0.125
    items[milk].shopping_quantity = -1234.5;
    EXPECT_EQ(cell(ListColumn::quantity), "-1234.50");
    EXPECT_EQ(cell(ListColumn::sub_total), "$-308.63");  // -308.625
}

TEST_F(ListRows, AnItemWithoutAStoreShowsNone) {
    EXPECT_EQ(cell(ListColumn::store), "");
    EXPECT_EQ(cell(ListColumn::store_order), "00");
}

TEST_F(ListRows, ACategoryThatIsNoneIsBlank) {
    for (const i16 wrong : {i16{-1}, to_i16(catagory_capacity + 1), i16{32767}}) {
        items[milk].category = wrong;
        EXPECT_EQ(cell(ListColumn::category), "") << wrong;
    }
}

TEST_F(ListRows, AStoreThatIsNoneIsBlank) {
    for (const i16 wrong : {i16{-1}, to_i16(store_capacity + 1), i16{32767}}) {
        items[milk].store = wrong;
        EXPECT_EQ(cell(ListColumn::store), "") << wrong;
    }
}

TEST_F(ListRows, AUnitThatIsNoneIsBlank) {
    for (const i16 wrong : {i16{-1}, to_i16(unit_capacity + 1), i16{32767}}) {
        items[milk].qty_units = wrong;
        EXPECT_EQ(cell(ListColumn::units), "") << wrong;
    }
}

TEST_F(ListRows, AnItemThatIsNoneHasNoText) {
    for (const i16 wrong : {i16{-1}, to_i16(item_capacity + 1)}) {
        EXPECT_EQ(cell_text(ListColumn::item, wrong), "") << wrong;
    }
}

// --- the pick list
// ---------------------------------------------------------------------------------

TEST_F(ListRows, TheLiveItemsCanBePicked) {
    items[6].name = "gone";
    EXPECT_EQ(quick_pick_items(), (std::vector<i16>{milk, bread}));
}

TEST_F(ListRows, TheTipTellsTheStock) {
    items[milk].restock_quantity = 2.25;
    EXPECT_EQ(quick_pick_tip(milk), "Item Title = Milk Current Qty = 6 Replace Qty = 2.25");
}

TEST_F(ListRows, KeysBearTheNumber) {
    EXPECT_EQ(list_key(10000), "10000t");
}

}  // namespace
}  // namespace tavernook
