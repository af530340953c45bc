#include "reports/pages/report_page.h"

#include "pages/pages_fixture.h"
#include "reports/html/BuildHTML.h"

namespace tavernook {
namespace {

const TextTable two_rows = {{"Item", "Cost"}, {{"Milk", "$1.25"}, {"Bread", ""}}};

class ReportPageTest : public PagesTest {};

TEST_F(ReportPageTest, IsMadeOfTheFragments) {
    EXPECT_TRUE(Build_HTML_Report_list(two_rows, 1, false, "What is low"));
    EXPECT_EQ(
        page("reports/rlist.htm"),
        TagHead() +
            "<p><font face='Arial' size='1'><font face='arial' size='1'><b>Tavernook Report-What "
            "is low </b>5/15/2024</font></font></p><table border='0' width='0%'>"
            "<tr><td width='20%'><font face='Arial' size='1'>Item<p style='margin-top: 0; "
            "margin-bottom: 0'><font size='1' face='Arial'><hr color='#000080'></font></p></font>"
            "</td><td width='20%'><font face='Arial' size='1'>Cost<p style='margin-top: 0; "
            "margin-bottom: 0'><font size='1' face='Arial'><hr color='#000080'></font></p></font>"
            "</td></tr>"
            "<tr><td width='20%'><font face='Arial' size='1'><b>Milk</b></font></td>"
            "<td width='20%'><font face='Arial' size='1'>$1.25</font></td></tr>"
            "<tr><td width='20%'><font face='Arial' size='1'><b>Bread</b></font></td>"
            "<td width='20%'><font face='Arial' size='1'></font></td></tr>"
            "</table><hr color='#000080'></body></html>");
}

TEST_F(ReportPageTest, GridlinesAndSizeAreTheCallers) {
    const std::string text = report_page_text(two_rows, 6, true, "", 45427);
    EXPECT_NE(text.find("<table border='1' width='0%'>"), std::string::npos);
    EXPECT_NE(text.find("size='6'>$1.25<"), std::string::npos);
    EXPECT_NE(text.find("<b>Tavernook Report- </b>5/15/2024"), std::string::npos);
    EXPECT_EQ(text.find("size='1'"), std::string::npos);
}

TEST_F(ReportPageTest, WithoutRowsTheFirstTableRowIsEmptyAndThePageSaysSo) {
    const std::string text = report_page_text({{"Item", "Cost"}, {}}, 1, false, "Low", 45427);
    EXPECT_EQ(between(text, "width='0%'>", "<hr"),
              "<tr></tr></table><p><font face='Arial' size='1'>Nothing was found for this report."
              "</font></p>");
}

TEST_F(ReportPageTest, ThereAreAsManyTitlesAsTheFirstRowHasCells) {
    const std::string fewer =
        report_page_text({{"Item", "Cost", "Store"}, {{"Milk", "1"}}}, 1, false, "", 45427);
    EXPECT_EQ(fewer.find("Store"), std::string::npos);
    const std::string more =
        report_page_text({{"Item"}, {{"Milk", "1", "2"}}}, 1, false, "", 45427);
    EXPECT_EQ(occurrences(more, "<td"), 1 + 3);
}

TEST_F(ReportPageTest, AFailureIsAnsweredAndThePageBeforeStays) {
    put_file("reports/rlist.htm", "the page before");
    platform.files.fail_at(1, fault_number::permission_denied, Repeat::persistently);
    EXPECT_FALSE(Build_HTML_Report_list(two_rows, 1, false, ""));
    EXPECT_EQ(page("reports/rlist.htm"), "the page before");
}

}  // namespace
}  // namespace tavernook
