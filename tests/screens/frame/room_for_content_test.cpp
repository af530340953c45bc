// How much of the main window is the user's own work, at 1366 x 768 with captions on the toolbars.
//
// Content is what is worked in: lists, trees, calendar, pages, forms, boxes that are typed or
// scanned into, totals. A row of pixels is content where it crosses any of that. What is left are
// menu bar, toolbars, titles, headings, rows of buttons, status bar and the gaps between them: a
// quarter of the height at most.
#include <QMdiSubWindow>
#include <QStatusBar>
#include <set>

#include "screens/frame/household_fixture.h"
#include "screens/pantry/LotView.h"

namespace tavernook {
namespace {

struct ScreenRoom {
    const char* name;
    std::vector<const char*> content;
};

void PrintTo(const ScreenRoom& room, std::ostream* out) {
    *out << room.name;
}

class RoomForContent : public HouseholdTest, public testing::WithParamInterface<ScreenRoom> {
  protected:
    void SetUp() override {
        HouseholdTest::SetUp();
        window.resize(1366, 768);
        bring_household();
        for (int turn = 0; turn < 3; ++turn) settle();  // the toolbars' rows follow the layout
    }

    // The rows of pixels of the window that the part crosses, as far as they are in the area.
    void count_rows(const QWidget& part, std::set<int>& rows) {
        ASSERT_TRUE(part.isVisible()) << part.objectName().toStdString();
        const QWidget& area = *window.findChild<QMdiArea*>()->viewport();
        const int top = std::max(0, part.mapTo(&area, QPoint()).y());
        const int end = std::min(area.height(), part.mapTo(&area, QPoint()).y() + part.height());
        for (int row = top; row < end; ++row) rows.insert(row);
    }
    // In hundredths of the window's height.
    int share_beside(const std::set<int>& rows) {
        return 100 - 100 * static_cast<int>(rows.size()) / window.height();
    }
};

TEST_P(RoomForContent, IsThreeQuartersOfTheHeight) {
    if (std::string(GetParam().name) == "LotView") show_lot_view(milk);
    open(GetParam().name);
    for (int turn = 0; turn < 3; ++turn) settle();
    ASSERT_EQ(window.size(), QSize(1366, 768));
    std::set<int> rows;
    for (const char* name : GetParam().content) count_rows(part(name), rows);
    RecordProperty("beside_content", share_beside(rows));
    EXPECT_LE(share_beside(rows), 25);
}

const ScreenRoom large_screens[] = {
    {"FoodInventory", {"filter", "item_tree", "item_form"}},
    {"Mealbuilder", {"filter", "recipe_tree", "recipe_panel"}},
    {"MealPlan", {"calendar_grid", "recommendations", "Text1", "lv2"}},
    {"ShoppingList", {"Text1", "shopping_list", "total_label", "find_box", "quick_pick_list"}},
    {"Reports", {"report_list", "row_list"}},
    {"PP", {"browser"}},
    {"BCBuild", {"wb1"}},
    {"CS1504GETUPC", {"Text1", "scan_list"}},
    {"VII", {"List1"}},
};

INSTANTIATE_TEST_SUITE_P(OfScreens, RoomForContent, testing::ValuesIn(large_screens),
                         [](const auto& given) { return std::string(given.param.name); });

// Those that show little come up in the middle, as large as what they show: the rest of the area,
// which is three quarters of the height too, is for the screen behind them.
class RoomForSmallScreens : public RoomForContent {};

TEST_P(RoomForSmallScreens, IsTheAreaAndTheyStandInIt) {
    if (std::string(GetParam().name) == "LotView") show_lot_view(milk);
    open(GetParam().name);
    settle();
    std::set<int> rows;
    count_rows(*window.findChild<QMdiArea*>()->viewport(), rows);
    EXPECT_LE(share_beside(rows), 25);
    const QWidget& child = *screen->parentWidget();
    EXPECT_TRUE(child.parentWidget()->rect().contains(child.geometry()));
}

const ScreenRoom small_screens[] = {{"LotView", {}},     {"StoresForm", {}}, {"UnitsForm", {}},
                                    {"wam", {}},         {"BCGEN", {}},      {"Calculator", {}},
                                    {"ProjectSetup", {}}};

INSTANTIATE_TEST_SUITE_P(OfScreens, RoomForSmallScreens, testing::ValuesIn(small_screens),
                         [](const auto& given) { return std::string(given.param.name); });

}  // namespace
}  // namespace tavernook
