// How the child windows stand beside each other: none changes how another one stands, and those
// that show little come up at the size of that.
#include <QListView>
#include <QMdiArea>
#include <QScrollBar>

#include "screens/child_screen_fixture.h"

namespace tavernook {
namespace {

class ChildWindows : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        window.showNormal();
        window.resize(1100, 800);
        settle();
        items[7].in_use = 1;
        items[7].name = "Flour";
        end_of_step();
    }

    QMdiArea& area() { return *window.findChild<QMdiArea*>("mdi_area"); }
    QSize room() { return area().viewport()->size(); }
    QMdiSubWindow& child(const char* name) {
        return static_cast<QMdiSubWindow&>(
            *window.registry().loaded(QLatin1String(name))->parentWidget());
    }
    void name_stores(int count) {
        for (int slot = 1; slot <= count; ++slot) {
            const auto place = static_cast<std::size_t>(slot);
            stores[place].in_use = 1;
            stores[place].name = "Store " + std::to_string(slot);
        }
        end_of_step();
    }
    void expect_whole(const char* name) {
        EXPECT_TRUE(child(name).isMaximized()) << name;
        EXPECT_EQ(child(name).size(), room()) << name;
    }
    void expect_in_the_middle(const char* name) {
        settle();
        EXPECT_TRUE(child(name).isVisible()) << name;
        EXPECT_FALSE(child(name).isMaximized()) << name;
        const QRect place = child(name).geometry();
        EXPECT_TRUE(area().viewport()->rect().contains(place)) << name;
        const QPoint off = place.center() - area().viewport()->rect().center();
        EXPECT_LE(off.manhattanLength(), 4) << name;
    }
};

TEST_F(ChildWindows, LeavingTheItemScreenLeavesTheOthersMaximised) {
    open("Mealbuilder");
    open("MealPlan");
    open("FoodInventory");
    click("close_screen");
    settle();
    ASSERT_FALSE(child("FoodInventory").isVisible());
    EXPECT_EQ(area().activeSubWindow(), &child("MealPlan"));
    expect_whole("MealPlan");
    expect_whole("Mealbuilder");
    open("FoodInventory");
    expect_whole("FoodInventory");
    child("FoodInventory").close();
    settle();
    expect_whole("MealPlan");
    expect_whole("Mealbuilder");
}

TEST_F(ChildWindows, TheTitleTellsTheWholeScreenInFrontAndWhetherAllIsSaved) {
    const auto title = [&](bool modified) {
        project_modified = modified ? i16_true : i16_false;
        tick("timer_1");
        tick("timer_2");
        return shown_title();
    };
    const auto expect_title = [&](const std::string& behind) {
        for (const bool modified : {true, false, true, false}) {
            EXPECT_EQ(title(modified), std::string("Tavernook") + (modified ? "*" : "") + behind);
        }
    };
    expect_title("");
    open("MealPlan");
    expect_title(" - [Meal Planning]");
    open("FoodInventory");
    expect_title(" - [Item Inventory]");
    click("close_screen");
    settle();
    expect_title(" - [Meal Planning]");
    open("Mealbuilder");
    expect_title(" - [Recipe Manager]");
    child("Mealbuilder").showNormal();
    expect_title("");
    open("MealPlan");
    expect_title(" - [Meal Planning]");
}

TEST_F(ChildWindows, ASmallOneThatComesAndGoesLeavesTheOthersMaximised) {
    open("Mealbuilder");
    open("MealPlan");
    open("wam");
    expect_in_the_middle("wam");
    expect_whole("MealPlan");
    press("Escape");
    settle();
    ASSERT_FALSE(is_open("wam"));
    expect_whole("MealPlan");
    expect_whole("Mealbuilder");
    EXPECT_EQ(area().activeSubWindow(), &child("MealPlan"));
}

TEST_F(ChildWindows, BehindAClosedOneComesTheOneThatTheUserWasOnBefore) {
    open("MealPlan");
    open("Mealbuilder");
    open("FoodInventory");
    open("Mealbuilder");
    open("StoresForm");
    press("Ctrl+W");
    settle();
    EXPECT_EQ(area().activeSubWindow(), &child("Mealbuilder"));
    press("Ctrl+W");
    settle();
    EXPECT_EQ(area().activeSubWindow(), &child("FoodInventory"));
}

TEST_F(ChildWindows, BringingOneInFrontLeavesTheOthersMaximised) {
    open("Mealbuilder");
    open("MealPlan");
    open("Mealbuilder");
    expect_whole("MealPlan");
    expect_whole("Mealbuilder");
    child("Mealbuilder").showNormal();
    settle();
    expect_whole("MealPlan");
}

TEST_F(ChildWindows, TheMaximisedOnesFollowTheMainWindow) {
    open("Mealbuilder");
    open("MealPlan");
    window.resize(1000, 700);
    settle();
    expect_whole("MealPlan");
    expect_whole("Mealbuilder");
}

TEST_F(ChildWindows, ThoseThatShowLittleComeUpInTheMiddle) {
    name_stores(3);
    open("MealPlan");
    for (const char* name : {"StoresForm", "UnitsForm", "wam", "LotView"}) {
        open(name);
        expect_in_the_middle(name);
        EXPECT_LT(child(name).width(), room().width()) << name;
    }
    expect_whole("MealPlan");
}

TEST_F(ChildWindows, TheyAreAsHighAsTheirRowsWhereTheAreaHasTheRoom) {
    name_stores(3);
    open("StoresForm");
    const int with_three = child("StoresForm").height();
    child("StoresForm").close();
    name_stores(16);
    open("StoresForm");
    settle();
    EXPECT_GT(child("StoresForm").height(), with_three);
    EXPECT_FALSE(part<QTreeView>("name_list").verticalScrollBar()->isVisible());
    child("StoresForm").close();
    name_stores(300);
    open("StoresForm");
    expect_in_the_middle("StoresForm");
    EXPECT_TRUE(part<QTreeView>("name_list").verticalScrollBar()->isVisible());
    EXPECT_FALSE(part<QTreeView>("name_list").horizontalScrollBar()->isVisible());
    open("wam");
    settle();
    EXPECT_FALSE(part<QListView>("fixed_list").verticalScrollBar()->isVisible());
}

TEST_F(ChildWindows, ASizeThatTheUserGaveComesBackAndTheirOwnSizeIsNoneOfIt) {
    open("StoresForm");
    child("StoresForm").close();
    settle();
    EXPECT_EQ(platform.settings.get("Screens", "StoresForm.Size"), "");
    open("StoresForm");
    child("StoresForm").resize(455, 366);
    child("StoresForm").close();
    settle();
    open("MealPlan");
    open("StoresForm");
    EXPECT_EQ(child("StoresForm").size(), QSize(455, 366));
    expect_in_the_middle("StoresForm");
}

TEST_F(ChildWindows, AtTwiceTheTextSizeTheyFitTheArea) {
    const QFont before = QApplication::font();
    QFont twice = before;
    twice.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(twice);
    settle();
    name_stores(300);
    open("MealPlan");
    for (const char* name : {"StoresForm", "UnitsForm", "wam", "LotView"}) {
        open(name);
        expect_in_the_middle(name);
    }
    QApplication::setFont(before);
}

TEST_F(ChildWindows, ASmallOneDoesNotSayHowTheNextLargeOneComesUp) {
    open("wam");
    open("MealPlan");
    expect_whole("MealPlan");
    action("mnu_tile").trigger();
    settle();
    open("Mealbuilder");
    EXPECT_FALSE(child("Mealbuilder").isMaximized());
}

TEST_F(ChildWindows, TilingManyScreensLeavesTheMainWindowItsSize) {
    window.resize(1000, 700);
    for (const char* name :
         {"FoodInventory", "Mealbuilder", "ShoppingList", "MealPlan", "Reports"}) {
        open(name);
    }
    const QSize size = window.size();
    action("mnu_tile").trigger();
    settle();
    EXPECT_EQ(window.size(), size);
    EXPECT_EQ(window.maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    auto& area = *window.findChild<QMdiArea*>();
    EXPECT_TRUE(area.horizontalScrollBar()->isVisible());
}

}  // namespace
}  // namespace tavernook
