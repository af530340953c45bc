// The pages that the program makes of a small household, as a browser reads them. Skipped where
// there is none.
#include <QStandardPaths>

#include "gui_support/processes.h"
#include "inventory/lots.h"
#include "pages/pages_fixture.h"
#include "planning/planner_state.h"
#include "platform_web/web_fixture.h"
#include "reports/pages/calendar_pages.h"
#include "reports/pages/item_label.h"
#include "reports/pages/list_page.h"
#include "reports/pages/report_page.h"
#include "reports/pages/shipped_pages.h"
#include "reports/pages/usage_pages.h"

namespace tavernook {
namespace {

class InTheBrowser : public PagesTest {
  protected:
    InTheBrowser() {
        set_platform_household();
        EXPECT_TRUE(lay_out_pages(shipped));
        make_pages();
        keep_for_the_eye();
    }

    void SetUp() override {
        if (QStandardPaths::findExecutable("chromium").isEmpty()) {
            GTEST_SKIP() << "chromium is missing.";
        }
    }

    static void set_platform_household() {
        project_names();
        const char* names[] = {"Whole milk",
                               "Brown bread",
                               "Crunchy peanut butter, 1 kg",
                               "Cr\xe8me fra\xee"
                               "che",
                               "Eggs",
                               "Potatoes & leeks"};
        for (i16 item = 1; item <= 6; ++item) {
            add_item(item, names[item - 1]);
            items[item].cost = 1.25f * item;
            items[item].serving_size = 0.5;
            items[item].servings_per_qty_unit = 4;
            items[item].calories = 100;
            items[item].fat = 3;
            items[item].barcode = "4006381333931";
            fill_lots(item, 300.0, 200.0);
        }
        for (i16 meal = 1; meal <= 3; ++meal) {
            constexpr const char* dishes[] = {"Pancakes with maple syrup", "Leek soup",
                                              "Sunday roast"};
            add_meal(meal, dishes[meal - 1]);
            meal_serving_size[meal] = 4;
            put(meal, 1, meal, 2);
        }
        for (i16 day = 1; day <= 24; ++day) {
            add_day(day, 5, static_cast<i16>(day + 3), 2024);
            plan(day, 1, static_cast<i16>(1 + day % 3), 4);
            if (day % 2 == 0) plan(day, 2, 2, 4);
            days[day].planned_item[1] = static_cast<i16>(1 + day % 6);
            day_quantities[day].item_quantity[1] = 1;
        }
        selected_year = 2024;
        selected_month = 5;
        selected_day = 15;
    }
    static void project_names() { units[1].name = "Bag(s)"; }

    static TextTable table(int columns, int rows) {
        TextTable made;
        for (int column = 1; column <= columns; ++column) {
            made.titles.push_back(column == 1 ? "Item" : "Column " + std::to_string(column));
        }
        for (int row = 1; row <= rows; ++row) {
            auto& cells = made.rows.emplace_back();
            for (int column = 1; column <= columns; ++column) {
                cells.push_back(column == 1 ? "Whole milk " + std::to_string(row) : "12.50");
            }
        }
        return made;
    }

    static void make_pages() {
        EXPECT_TRUE(Build_HTMLCal());
        EXPECT_TRUE(Build_HTMLCal_Month());
        EXPECT_TRUE(Build_HTMLlist({table(6, 12), "$1.20", "$21.70"}));
        EXPECT_TRUE(Build_HTML_Report_list(table(22, 40), 1, true, "what is in stock"));
        EXPECT_TRUE(Build_Item_Label(1));
        EXPECT_TRUE(remove_from_lots(1, 1) != 0);
        EXPECT_TRUE(build_item_report(1));
        EXPECT_TRUE(build_main_report());
        EXPECT_TRUE(build_general_report());
    }

    // With the variable set the folders of the pages stay for whoever wants to look at them.
    void keep_for_the_eye() {
        const char* kept = std::getenv("TAVERNOOK_KEEP_PAGES");
        if (kept == nullptr) return;
        std::filesystem::copy(platform.system.program, kept,
                              std::filesystem::copy_options::recursive |
                                  std::filesystem::copy_options::overwrite_existing);
    }

    // The page as the browser has understood it, with what its console said.
    std::string understood(const std::string& name) const {
        return output_of("chromium",
                         {"--headless", "--no-sandbox", "--disable-gpu", "--enable-logging=stderr",
                          "--log-level=0", "--virtual-time-budget=1000",
                          QString::fromStdString("--user-data-dir=" + platform.path("browser")),
                          "--dump-dom", QString::fromStdString("file://" + in_program(name))});
    }
};

TEST_F(InTheBrowser, EveryPageIsReadAsMeantAndTheConsoleIsSilent) {
    struct Page {
        const char* name;
        int rows;
        int cells;
        const char* text;
    };
    constexpr Page pages[] = {{"dat/cal.htm", 7, 7, "Leek soup"},
                              {"dat/calm.htm", 7, 42, "May 2024"},
                              {"dat/list.htm", 13, 78, "Whole milk 12"},
                              {"reports/rlist.htm", 41, 902, "what is in stock"},
                              {"reports/item.htm", -1, -1, "Whole milk"},
                              {"reports/main.htm", 0, 0, "Shopping list"},
                              {"reports/general.htm", 0, 0, "recipes"},
                              {"barcode/labeldat.htm", 12, 12, "*4006381333931*"}};
    for (const Page& page : pages) {
        SCOPED_TRACE(page.name);
        const std::string read = understood(page.name);
        EXPECT_EQ(read.find("CONSOLE"), std::string::npos) << read;
        EXPECT_NE(read.find(page.text), std::string::npos) << read;
        if (page.rows < 0) continue;
        EXPECT_EQ(occurrences(read, "<tr"), page.rows);
        EXPECT_EQ(occurrences(read, "<td"), page.cells);
    }
}

// What the preview saves stands in a browser as well.
TEST_F(InTheBrowser, ASavedPageIsReadAgain) {
    const auto view = web_library().make();
    std::optional<bool> shown;
    view->navigate(in_program("dat/calm.htm"), [&](bool is_shown) { shown = is_shown; });
    ASSERT_TRUE(comes_true([&] { return shown.has_value(); }));
    bool is_read = false;
    view->read_page([&](std::optional<std::string> bytes) {
        put_file("saved.htm", bytes.value_or(""));
        is_read = true;
    });
    ASSERT_TRUE(comes_true([&] { return is_read; }));
    const std::string read = understood("saved.htm");
    EXPECT_EQ(read.find("CONSOLE"), std::string::npos) << read;
    EXPECT_NE(read.find("data:image/jpeg;base64,"), std::string::npos);
    EXPECT_EQ(occurrences(read, "<td"), 42);
    EXPECT_NE(read.find("<!DOCTYPE html>"), std::string::npos);
}

}  // namespace
}  // namespace tavernook
