#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTextEdit>

#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class Screens : public MainWindowTest {
  protected:
    void SetUp() override {
        for (const char* name : {"MealPlan", "FoodInventory", "wam"}) {
            window.registry().add(QLatin1String(name), [this, name] {
                ++made;
                auto* screen = new QTextEdit;
                screen->setWindowTitle(QLatin1String(name));
                return screen;
            });
        }
        start();
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
    }

    ScreenRegistry& registry() { return window.registry(); }
    QMdiArea& area() { return *window.findChild<QMdiArea*>("mdi_area"); }
    bool start_page_shown() { return window.findChild<QWidget*>("StartPage")->isVisible(); }

    int made = 0;
};

TEST_F(Screens, AreShownByTheirCommands) {
    EXPECT_TRUE(action("mnu_wam").isEnabled());
    EXPECT_TRUE(action("toolbar_2_5").isEnabled());
    EXPECT_FALSE(action("mnu_barcode").isEnabled());
    EXPECT_EQ(registry().loaded("wam"), nullptr);
    EXPECT_TRUE(start_page_shown());
    choose("Alt+P", "mnu_wam");
    QWidget* screen = registry().loaded("wam");
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->objectName(), "wam");
    EXPECT_TRUE(screen->isVisible());
    EXPECT_FALSE(start_page_shown());
    action("toolbar_2_5").trigger();
    EXPECT_EQ(registry().loaded("wam"), screen);
    EXPECT_EQ(made, 1);
}

TEST_F(Screens, ComeUpMaximisedUnlessTheUserHasArrangedThem) {
    registry().show("wam");
    EXPECT_TRUE(area().activeSubWindow()->isMaximized());
    registry().show_meal_plan();
    EXPECT_TRUE(area().activeSubWindow()->isMaximized());
    action("mnu_tile").trigger();
    registry().show("FoodInventory");
    EXPECT_FALSE(area().activeSubWindow()->isMaximized());
}

TEST_F(Screens, TileAndCascadeNeedAnOpenScreen) {
    EXPECT_FALSE(action("mnu_tile").isEnabled());
    EXPECT_FALSE(action("mnu_cascade").isEnabled());
    registry().show("wam");
    EXPECT_TRUE(action("mnu_tile").isEnabled());
    EXPECT_TRUE(action("mnu_cascade").isEnabled());
    registry().unload_all();
    settle();
    EXPECT_FALSE(action("mnu_tile").isEnabled());
    EXPECT_TRUE(start_page_shown());
}

TEST_F(Screens, ClosingOneUnloadsIt) {
    registry().show("wam");
    const QPointer<QWidget> screen = registry().loaded("wam");
    EXPECT_TRUE(area().activeSubWindow()->close());
    EXPECT_EQ(registry().loaded("wam"), nullptr);
    registry().show("wam");
    EXPECT_NE(registry().loaded("wam"), nullptr);
    EXPECT_NE(registry().loaded("wam"), screen.data());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(screen.isNull());
}

TEST_F(Screens, UnloadingAllLeavesNone) {
    registry().show("wam");
    registry().show_meal_plan();
    const QPointer<QWidget> screen = registry().loaded("wam");
    registry().unload_all();
    EXPECT_EQ(registry().loaded("wam"), nullptr);
    EXPECT_EQ(registry().loaded("MealPlan"), nullptr);
    EXPECT_TRUE(area().subWindowList().isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(screen.isNull());
}

TEST_F(Screens, LoadingDoesNotShowAndHidingDoesNotUnload) {
    registry().load_food_inventory();
    QWidget* screen = registry().loaded("FoodInventory");
    ASSERT_NE(screen, nullptr);
    EXPECT_FALSE(screen->isVisible());
    settle();
    EXPECT_TRUE(start_page_shown());
    registry().show("FoodInventory");
    EXPECT_TRUE(screen->isVisible());
    registry().hide_all();
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(registry().loaded("FoodInventory"), screen);
}

TEST_F(Screens, AnUnknownOneIsRefused) {
    EXPECT_FALSE(registry().knows("Reports"));
    EXPECT_FALSE(registry().load("Reports"));
    EXPECT_FALSE(registry().show("Reports"));
    EXPECT_EQ(registry().loaded("Reports"), nullptr);
}

TEST_F(Screens, TheKeysForClosingCloseTheScreenFirstAndThenTheProject) {
    registry().show("wam");
    settle();
    EXPECT_TRUE(action("mnuFile_Close").shortcut().isEmpty());
    press("Ctrl+W");
    settle();
    EXPECT_EQ(registry().loaded("wam"), nullptr);
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(action("mnuFile_Close").shortcut(), QKeySequence("Ctrl+W"));
    press("Ctrl+W");
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(Screens, ClosingTheProjectUnloadsThem) {
    registry().show("wam");
    settle();
    choose("Alt+F", "mnuFile_Close");
    EXPECT_EQ(registry().loaded("wam"), nullptr);
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(Screens, CtrlTabGoesToTheNextOne) {
    registry().show("wam");
    registry().show_meal_plan();
    action("mnu_tile").trigger();
    settle();
    QMdiSubWindow* meal_plan = area().activeSubWindow();
    ASSERT_EQ(meal_plan->widget(), registry().loaded("MealPlan"));
    QTest::keyPress(meal_plan, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(meal_plan, Qt::Key_Control);
    EXPECT_EQ(area().activeSubWindow()->widget(), registry().loaded("wam"));
}

}  // namespace
}  // namespace tavernook
