#include "reports/pages/list_page.h"

#include "pages/pages_fixture.h"
#include "reports/html/BuildHTML.h"

namespace tavernook {
namespace {

const ListPage two_rows = {
    {{"Item", "Store"}, {{"Milk", "Corner"}, {"Bread", ""}}}, "%7.50", "$10.75"};

constexpr const char* page_of_two_rows =
    "<p><font face='Arial' size='2'><font face='arial' size='2'><b>Shopping List 5/15/2024</b>"
    "</font></font></p><hr color='#000080'><table border='0' width='100%'>"
    "<tr><td width='20%'><font face='Arial' size='2'><b>Item</b></font></td>"
    "<td width='20%'><font face='Arial' size='2'><b>Store</b></font></td></tr>"
    "<tr><td width='20%'><font face='Arial' size='2'>Milk</font></td>"
    "<td width='20%'><font face='Arial' size='2'>Corner</font></td></tr>"
    "<tr><td width='20%'><font face='Arial' size='2'>Bread</font></td>"
    "<td width='20%'><font face='Arial' size='2'>-</font></td></tr>"
    "</table><hr color='#000080'>"
    "<p style='margin-top: 0; margin-bottom: 0'><font size='2' face='Arial'>Sales Tax = %7.50"
    "</font></p><p style='margin-top: 0; margin-bottom: 0'><font size='2' face='Arial'>"
    "Total Cost = $10.75</font></p></body></html>";

class ListPageTest : public PagesTest {};

TEST_F(ListPageTest, IsMadeOfTheFragments) {
    EXPECT_TRUE(Build_HTMLlist(two_rows, 2));
    EXPECT_EQ(page("dat/list.htm"), TagHead() + page_of_two_rows);
}

TEST_F(ListPageTest, SmallLettersWhereNoSizeIsGiven) {
    EXPECT_TRUE(Build_HTMLlist(two_rows));
    EXPECT_EQ(page("dat/list.htm"), list_page_text(two_rows, platform.clock.time, 1));
}

TEST_F(ListPageTest, AnEmptyListSaysSo) {
    const std::string text = list_page_text({{{"Item"}, {}}, "%.00", "$.00"}, 45427, 1);
    EXPECT_EQ(between(text, "</tr>", "<hr"),
              "</table><p><font face='Arial' size='1'>There is nothing on the shopping list."
              "</font></p>");
    EXPECT_NE(text.find("Total Cost = $.00"), std::string::npos);
}

TEST_F(ListPageTest, TakesItemsAndColumnsAsTheyAreShown) {
    items[add_item(4, "Milk")].shopping_quantity = 2;
    add_item(9, "Bread");
    tax_text = "%7.50";
    total_text = "$10.75";
    const ListPage page = shopping_list_page({ListColumn::item, ListColumn::quantity}, {9, 4});
    EXPECT_EQ(page.list.titles, (std::vector<std::string>{"Item", "Quantity"}));
    EXPECT_EQ(page.list.rows,
              (std::vector<std::vector<std::string>>{{"Bread", ".00"}, {"Milk", "2.00"}}));
    EXPECT_EQ(page.tax_text, "%7.50");
    EXPECT_EQ(page.total_text, "$10.75");
}

TEST_F(ListPageTest, WithoutAFolderItIsMade) {
    std::filesystem::remove(in_program("dat"));
    EXPECT_TRUE(Build_HTMLlist(two_rows));
    EXPECT_TRUE(is_there("dat/list.htm"));
}

TEST_F(ListPageTest, AFailureIsAnsweredAndThePageBeforeStays) {
    put_file("dat/list.htm", "the page before");
    EXPECT_TRUE(Build_HTMLlist(two_rows));
    const int operations = platform.files.operations();
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        put_file("dat/list.htm", "the page before");
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full);
        const bool made = Build_HTMLlist(two_rows);
        EXPECT_EQ(page("dat/list.htm") == "the page before", !made);
        EXPECT_FALSE(is_there("dat/list.htm.new"));
    }
}

}  // namespace
}  // namespace tavernook
