#include "reports/pages/usage_pages.h"

#include "core/program_state.h"
#include "inventory/usage_history.h"
#include "pages/pages_fixture.h"

namespace tavernook {
namespace {

constexpr i16 flour = 7;
constexpr const char* eight = "1%1%|2%2%|3%3%|4%4%|5%5%|6%6%|7%7%|8%8%|9%9%";

class UsagePages : public PagesTest {
  protected:
    UsagePages() {
        add_item(flour, "Flour");
        items[flour].cost = 3;
        item_details[flour].created_date = date_from_civil(2023, 12, 24);
        lots[flour].lot_name[2] = "Lot 3";
        units[1].name = "Bag(s)";
        project_created = date_from_civil(2021, 2, 3) + 0.5;
        for (const char* name : {"item", "main", "general"}) {
            put_file("reports/" + std::string(name) + ".dat", eight);
        }
    }

    std::string item_page(i16 item = flour) {
        EXPECT_TRUE(build_item_report(item));
        return page("reports/item.htm");
    }
};

TEST_F(UsagePages, AnItemWithoutUsageSaysSoInBothPlaces) {
    EXPECT_EQ(item_page(),
              "1pantry.tvk|212/24/2023|3|4No current data on usage|5|6This Report Created on "
              "5/15/2024 12:00:00 PM|7No current data on usage|8Flour                           "
              "|9%9%");
}

TEST_F(UsagePages, TheUsageIsCutBehindItsFirst15Characters) {
    put_file("reports/pantry000007.dat", encode_usage({2.5, 45427.25, usage_added, 2}));
    const std::string text = item_page();
    EXPECT_EQ(between(text, "|7", "|8"), "<font = \"Arial\"");
    EXPECT_EQ(
        between(text, "|4", "|5"),
        " size = \"1\" ><table border=\"0\" width=\"100%\" cellspacing=\"0\" cellpadding=\"0\">"
        "<tr><td><b>Date</b></td><td><b>Change</b></td><tr><td>5/15/2024 6:00:00 AM</td><td>"
        "2.50 Bag(s)      Added to Lot 3   </td>$7.50          </table>");
}

TEST_F(UsagePages, AHistoryTooShortForAnEntryIsNoText) {
    put_file("reports/pantry000007.dat", "20 bytes, no entry..");
    EXPECT_EQ(between(item_page(), "|4", "|5"), "");
}

TEST_F(UsagePages, TheItemPageAuditsFirst) {
    (void)item_page();
    const std::vector<std::string>& events = platform.progress.events();
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events[0], "load Auditing Inventory|Auditing Inventory...Please Wait");
}

TEST_F(UsagePages, TheProjectPagesCountLiveRecordsAndDoNotAudit) {
    add_item(10000);
    items[8].in_use = 2;
    add_meal(3);
    add_meal(1000);
    add_day(1095, 1, 1, 2024);
    const char* filled =
        "1pantry.tvk|22/3/2021 12:00:00 PM|32|42|51|6This Report Created on 5/15/2024 12:00:00 "
        "PM|7|8%8%|9%9%";
    EXPECT_TRUE(build_main_report());
    EXPECT_TRUE(build_general_report());
    EXPECT_EQ(page("reports/main.htm"), filled);
    EXPECT_EQ(page("reports/general.htm"), filled);
    EXPECT_TRUE(platform.progress.events().empty());
}

TEST_F(UsagePages, EveryOccurrenceIsReplacedAndWhatTheTemplateLacksIsNotUsed) {
    put_file("reports/main.dat", "%3% %3%");
    EXPECT_TRUE(build_main_report());
    EXPECT_EQ(page("reports/main.htm"), "1 1");
}

TEST_F(UsagePages, AnOlderLongerPageLeavesNothing) {
    put_file("reports/main.htm", std::string(5000, 'x'));
    EXPECT_TRUE(build_main_report());
    EXPECT_EQ(page("reports/main.htm").find('x'), std::string::npos);
}

TEST_F(UsagePages, WithoutATemplateThereIsABoxAndNoPage) {
    for (const char* name : {"item", "main", "general"}) {
        std::filesystem::remove(in_program("reports/" + std::string(name) + ".dat"));
        put_file("reports/" + std::string(name) + ".htm", "the page before");
        platform.boxes.expect_message("error: File not found");
    }
    EXPECT_FALSE(build_item_report(flour));
    EXPECT_FALSE(build_main_report());
    EXPECT_FALSE(build_general_report());
    for (const char* name : {"item", "main", "general"}) {
        EXPECT_FALSE(is_there("reports/" + std::string(name) + ".htm"));
    }
}

TEST_F(UsagePages, APageThatCannotBeWrittenLeavesTheOneBefore) {
    put_file("reports/main.htm", "the page before");
    EXPECT_TRUE(build_main_report());
    const int rename = platform.files.operations();
    put_file("reports/main.htm", "the page before");
    platform.files.start_over();
    platform.files.fail_at(rename, fault_number::disk_full);
    platform.boxes.expect_message("error: Disk full");
    EXPECT_FALSE(build_main_report());
    EXPECT_EQ(page("reports/main.htm"), "the page before");
}

TEST_F(UsagePages, DatesAndNumbersOfADamagedProjectMakeAPageAllTheSame) {
    item_details[flour].created_date = 1e300;
    project_created = 0;
    items[flour].qty_units = -5;
    EXPECT_EQ(between(item_page(), "|2", "|3"), "");
    EXPECT_NE(item_page(-1).find("|4No current data on usage|"), std::string::npos);
    EXPECT_TRUE(build_general_report());
    EXPECT_EQ(between(page("reports/general.htm"), "|2", "|3"), "12:00:00 AM");
}

TEST_F(UsagePages, AProjectNameIsTextOfThePage) {
    project_name =
        "K\xC3\xBC"
        "che %3%.tvk";
    EXPECT_TRUE(build_main_report());
    EXPECT_EQ(between(page("reports/main.htm"), "1", "|2"),
              "K\xFC"
              "che %3%.tvk");
}

TEST_F(UsagePages, FillTemplateWritesBesideTheTemplate) {
    put_file("dat/own.tpl", "%1% %2% %3%");
    EXPECT_TRUE(fill_template({"", "a", "b"}, 2, in_program("dat/own.tpl")));
    EXPECT_EQ(page("dat/own.htm"), "a b %3%");
    platform.boxes.expect_message("error: File not found");
    EXPECT_FALSE(fill_template({}, 0, in_program("dat/none.dat")));
}

}  // namespace
}  // namespace tavernook
