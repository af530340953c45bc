#include "reports/preview.h"

#include <algorithm>
#include <filesystem>

#include "fakes/fake_screens.h"
#include "inventory/items.h"
#include "pages/pages_fixture.h"
#include "planning/planner_state.h"

namespace tavernook {
namespace {

constexpr i16 milk = 4;
constexpr i16 last_kind = 6;

class Preview : public PagesTest {
  protected:
    Preview() {
        add_item(milk, "Milk");
        selected_year = 2024;
        selected_month = 5;
        selected_day = 15;
        put_file("dat/cal.dat", "week of %1%");
        put_file("dat/calm.dat", "%title%");
        put_file("reports/general.dat", "items %3%");
        put_file("reports/item.dat", "usage of %8%");
        put_file("barcode/labeldat.dat", "label of %1%");
        platform.calls.clear();
    }
    const std::string& said() const { return platform.main.status[message_panel]; }
    bool comes_up() const { return count("show preview") == 1; }
    std::size_t count(const std::string& call) const {
        const auto& calls = platform.calls.entries;
        return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), call));
    }
    void expect_shown(const char* page, i16 kind, const char* words = "") const {
        EXPECT_TRUE(comes_up());
        EXPECT_EQ(html_path, in_program(page));
        EXPECT_EQ(preview_kind, kind);
        EXPECT_EQ(said(), words);
    }
    // What was on show before stays so.
    void expect_nothing_shown(const std::string& words) const {
        EXPECT_FALSE(comes_up());
        EXPECT_EQ(html_path, "");
        EXPECT_EQ(preview_kind, 0);
        EXPECT_EQ(said(), words);
    }
    static void plan_milk(i16 day_of_may) {
        add_day(1, 5, day_of_may, 2024);
        days[1].planned_item[1] = milk;
        day_quantities[1].item_quantity[1] = 1;
    }
    bool is_rebuilt(i16 kind, i16 size, bool border = false) {
        preview_kind = kind;
        return rebuild_page(size, border);
    }
};

const char* const not_made = "The page could not be made. There is nothing to print.";
const char* const stays = "The page could not be made. The one on show stays as it is.";

struct Row {
    const char* title;
    bool edit, notes, sizes, gridlines, at_once;
};

TEST_F(Preview, WhatEachKindLetsBeDone) {
    const Row rows[] = {{"Week Review", true, false, false, false, false},
                        {"Print Preview", false, true, true, false, false},
                        {"Month Review", true, false, false, false, false},
                        {"Item Label", true, false, false, false, false},
                        {"Reports", false, false, true, true, true},
                        {"Usage Reports", true, false, false, false, false},
                        {"Project Information", true, false, false, false, false}};
    for (i16 kind = 0; kind <= last_kind; ++kind) {
        SCOPED_TRACE(kind);
        const PreviewControls& found = preview_controls(kind);
        EXPECT_STREQ(found.title, rows[kind].title);
        EXPECT_EQ(found.has_edit, rows[kind].edit);
        EXPECT_EQ(found.has_notes, rows[kind].notes);
        EXPECT_EQ(found.has_sizes, rows[kind].sizes);
        EXPECT_EQ(found.has_gridlines, rows[kind].gridlines);
        EXPECT_EQ(found.edits_at_once, rows[kind].at_once);
    }
}

TEST_F(Preview, ANumberThatIsNoKindLetsNothingBeDone) {
    for (const i16 kind : {i16{-1}, i16{7}, i16{-32768}, i16{32767}}) {
        SCOPED_TRACE(kind);
        const PreviewControls& found = preview_controls(kind);
        EXPECT_STREQ(found.title, "");
        EXPECT_FALSE(found.has_edit || found.has_notes || found.has_sizes || found.has_gridlines ||
                     found.edits_at_once);
        EXPECT_FALSE(is_rebuilt(kind, 1));
        EXPECT_EQ(said(), "");
    }
}

TEST_F(Preview, TheSizesByTheirNames) {
    EXPECT_EQ(font_size_named("Small"), 1);
    EXPECT_EQ(font_size_named("Medium"), 2);
    EXPECT_EQ(font_size_named("Large"), 3);
    EXPECT_EQ(font_size_named("Extra Large"), 6);
    EXPECT_EQ(font_size_named(""), 6);
    EXPECT_EQ(font_size_named("small"), 6);
}

TEST_F(Preview, PathKindAndNameAreKept) {
    set_htmlpath("/somewhere/page.htm", 5);
    set_repname("What is low");
    EXPECT_EQ(html_path, "/somewhere/page.htm");
    EXPECT_EQ(preview_kind, 5);
    EXPECT_EQ(report_name, "What is low");
}

// --- the commands

TEST_F(Preview, TheWeekOfTheSelectedDate) {
    preview_week();
    expect_shown("dat/cal.htm", 0);
    EXPECT_EQ(page("dat/cal.htm"), "week of 12");
}

TEST_F(Preview, TheMonthOfTheSelectedDate) {
    selected_month = 2;
    preview_month();
    expect_shown("dat/calm.htm", 2);
    EXPECT_EQ(page("dat/calm.htm"), "February 2024");
}

TEST_F(Preview, TheListAsItsScreenMakesIt) {
    const FakeShoppingList screen(platform.calls);
    preview_list();
    expect_shown("dat/list.htm", 1);
    EXPECT_EQ(count("ShoppingList Build_HTMLlist 1"), 1u);
}

TEST_F(Preview, TheLabelOfAnItem) {
    preview_label(milk);
    expect_shown("barcode/labeldat.htm", 3);
    EXPECT_EQ(page("barcode/labeldat.htm"), "label of Milk");
}

TEST_F(Preview, AReportUnderItsNameWithoutGridlines) {
    const FakeReports screen(platform.calls);
    preview_report("What is low");
    expect_shown("reports/rlist.htm", 4);
    EXPECT_EQ(count("Reports Build_HTML_Report_list 1 What is low"), 1u);
    EXPECT_EQ(report_name, "What is low");
}

TEST_F(Preview, TheUsageOfAnItemBehindAnAudit) {
    plan_milk(14);
    preview_usage(milk);
    expect_shown("reports/item.htm", 5, "1 planned day was audited.");
    EXPECT_EQ(page("reports/item.htm").substr(0, 13), "usage of Milk");
    EXPECT_EQ(days[1].audited, i16_true);
}

TEST_F(Preview, TheProject) {
    preview_project();
    expect_shown("reports/general.htm", 6);
    EXPECT_EQ(page("reports/general.htm"), "items 1");
}

// --- when there is nothing to show

TEST_F(Preview, WithoutItsScreenThereIsNoList) {
    preview_list();
    expect_nothing_shown(
        "The page is made of the shopping list, which is not open. There is nothing to print.");
}

TEST_F(Preview, WithoutItsScreenThereIsNoReport) {
    set_repname("before");
    preview_report("What is low");
    expect_nothing_shown(
        "The page is made of the reports' list, which is not open. There is nothing to print.");
    EXPECT_EQ(report_name, "before");
}

TEST_F(Preview, AListThatCouldNotBeMadeIsTold) {
    FakeShoppingList screen(platform.calls);
    screen.builds = false;
    preview_list();
    expect_nothing_shown(not_made);
}

TEST_F(Preview, AReportThatCouldNotBeMadeIsToldAndTheNameStays) {
    set_repname("before");
    FakeReports screen(platform.calls);
    screen.builds = false;
    preview_report("What is low");
    expect_nothing_shown(not_made);
    EXPECT_EQ(report_name, "before");
}

TEST_F(Preview, WithoutATemplateThereIsABoxAndNoPreview) {
    for (const char* name : {"dat/cal.dat", "dat/calm.dat", "reports/general.dat",
                             "reports/item.dat", "barcode/labeldat.dat"}) {
        std::filesystem::remove(in_program(name));
    }
    const auto tells = [this](void (*command)(), const char* box) {
        platform.boxes.expect_message(box);
        command();
        expect_nothing_shown(not_made);
    };
    const char* const of_a_module = "Tavernook error: rt6:53. Contact Brenwyk Software.";
    const char* const of_a_page = "error: File not found";
    tells(preview_week, of_a_module);
    tells(preview_month, of_a_module);
    tells([] { preview_label(milk); }, of_a_module);
    tells([] { preview_usage(milk); }, of_a_page);
    tells(preview_project, of_a_page);
}

TEST_F(Preview, APageThatCannotBeWrittenLeavesTheOneBefore) {
    preview_week();
    const int operations = platform.files.operations();
    int failures = 0;
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        put_file("dat/cal.htm", "the page before");
        platform.calls.clear();
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full);
        platform.boxes.expect_message("Tavernook error: rt6:61. Contact Brenwyk Software.");
        preview_week();
        if (comes_up()) {
            boxes().message("Tavernook error: rt6:61. Contact Brenwyk Software.");  // none came
        } else {
            ++failures;
            EXPECT_EQ(page("dat/cal.htm"), "the page before");
            EXPECT_EQ(said(), not_made);
        }
    }
    EXPECT_GE(failures, 2);
}

TEST_F(Preview, AnItemThatHasGoneHasNoPage) {
    for (const i16 item : {i16{0}, i16{5}, i16{-1}, i16{10001}}) {
        SCOPED_TRACE(item);
        preview_label(item);
        expect_nothing_shown("This item is not there any more.");
        preview_usage(item);
        expect_nothing_shown("This item is not there any more.");
    }
}

// --- the page on show anew

TEST_F(Preview, EachPageIsMadeAnewInTheSizeAskedFor) {
    const FakeShoppingList list(platform.calls);
    const FakeReports screen(platform.calls);
    set_repname("What is low");
    put_file("dat/cal.dat", "%ct4%");
    put_file("dat/calm.dat", "%ct18%");
    plan_milk(15);
    EXPECT_TRUE(is_rebuilt(0, 3));
    EXPECT_NE(page("dat/cal.htm").find("size='3'"), std::string::npos) << page("dat/cal.htm");
    EXPECT_TRUE(is_rebuilt(1, 2));
    EXPECT_EQ(count("ShoppingList Build_HTMLlist 2"), 1u);
    EXPECT_TRUE(is_rebuilt(2, 6));
    EXPECT_NE(page("dat/calm.htm").find("size='6'"), std::string::npos) << page("dat/calm.htm");
    EXPECT_TRUE(is_rebuilt(4, 6, true));
    EXPECT_EQ(count("Reports Build_HTML_Report_list 6 with gridlines What is low"), 1u);
    EXPECT_TRUE(is_rebuilt(4, 2));
    EXPECT_EQ(count("Reports Build_HTML_Report_list 2 What is low"), 1u);
    EXPECT_TRUE(is_rebuilt(6, 2));
    EXPECT_EQ(page("reports/general.htm"), "items 1");
    EXPECT_EQ(count("show preview"), 0u);
    EXPECT_EQ(said(), "");
}

TEST_F(Preview, LabelAndUsageAreNeverMadeAnew) {
    EXPECT_FALSE(is_rebuilt(3, 2));
    EXPECT_FALSE(is_rebuilt(5, 2));
    EXPECT_FALSE(is_there("barcode/labeldat.htm"));
    EXPECT_FALSE(is_there("reports/item.htm"));
    EXPECT_EQ(said(), "");
}

TEST_F(Preview, WhenTheScreenHasGoneThePageOnShowStays) {
    EXPECT_FALSE(is_rebuilt(1, 2));
    EXPECT_EQ(said(),
              "The page is made of the shopping list, which is not open. The one on show stays as "
              "it is.");
    EXPECT_FALSE(is_rebuilt(4, 2, true));
    EXPECT_EQ(said(),
              "The page is made of the reports' list, which is not open. The one on show stays as "
              "it is.");
}

TEST_F(Preview, APageThatCannotBeMadeAnewIsTold) {
    FakeReports screen(platform.calls);
    screen.builds = false;
    EXPECT_FALSE(is_rebuilt(4, 2));
    EXPECT_EQ(said(), stays);
    std::filesystem::remove(in_program("dat/cal.dat"));
    platform.boxes.expect_message("Tavernook error: rt6:53. Contact Brenwyk Software.");
    EXPECT_FALSE(is_rebuilt(0, 2));
    EXPECT_EQ(said(), stays);
}

}  // namespace
}  // namespace tavernook
