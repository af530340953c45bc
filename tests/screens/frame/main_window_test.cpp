// What the main window looks like and answers, idle and with a project.
#include <QMdiArea>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <set>
#include <vector>

#include "core/changes.h"
#include "core/project/settings_file.h"
#include "screens/frame/About.h"
#include "screens/frame/register_screens.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class MainWindow : public MainWindowTest {
  protected:
    void SetUp() override {
        register_screens(window);
        start();
    }

    QMenu& menu(const char* name) { return *window.findChild<QMenu*>(QLatin1String(name)); }
    QToolBar& bar(const char* name) { return *window.findChild<QToolBar*>(QLatin1String(name)); }

    // Every command, submenus included.
    std::vector<QAction*> all_commands() {
        std::vector<QAction*> found;
        for (QAction* one : window.findChildren<QAction*>()) {
            const QString name = one->objectName();
            const bool ours = name.startsWith("mnu") || name.startsWith("Project_") ||
                              name.startsWith("toolbar_");
            if (ours && one->isVisible() && one->menu() == nullptr) found.push_back(one);
        }
        return found;
    }

    void bring_project() {
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
    }
};

TEST_F(MainWindow, CaptionsComeAndGoAndTooltipsStay) {
    const auto check = [&](Qt::ToolButtonStyle style) {
        for (const char* name : {"toolbar_1", "toolbar_2"}) {
            for (QAction* one : bar(name).actions()) {
                auto* button = qobject_cast<QToolButton*>(bar(name).widgetForAction(one));
                if (button == nullptr) continue;
                EXPECT_EQ(button->toolButtonStyle(), style) << button->objectName().toStdString();
                EXPECT_TRUE(button->toolTip().startsWith(one->text()));
                EXPECT_EQ(button->accessibleName(), one->text());
            }
        }
    };
    check(Qt::ToolButtonTextUnderIcon);
    const int with_captions = bar("toolbar_1").sizeHint().height();
    window.set_toolbar_captions(false);
    check(Qt::ToolButtonIconOnly);
    EXPECT_LT(bar("toolbar_1").sizeHint().height(), with_captions);
    window.set_toolbar_captions(true);
    check(Qt::ToolButtonTextUnderIcon);
}

TEST_F(MainWindow, EveryCommandHasTextAndTips) {
    const std::vector<QAction*> commands = all_commands();
    EXPECT_EQ(commands.size(), 32u + 15u);  // the menus' entries and the toolbars' buttons
    for (const QAction* one : commands) {
        const std::string name = one->objectName().toStdString();
        EXPECT_FALSE(one->text().trimmed().isEmpty()) << name;
        EXPECT_FALSE(one->toolTip().trimmed().isEmpty()) << name;
        EXPECT_FALSE(one->statusTip().trimmed().isEmpty()) << name;
    }
}

TEST_F(MainWindow, EveryPartHasAnAccessibleName) {
    for (const char* name :
         {"toolbar_1", "toolbar_2", "mdi_area", "status_panel_1", "status_panel_2",
          "status_panel_3", "StartPage", "start_new", "start_open", "start_sample"}) {
        auto* part = window.findChild<QWidget*>(QLatin1String(name));
        ASSERT_NE(part, nullptr) << name;
        EXPECT_FALSE(part->accessibleName().isEmpty()) << name;
    }
}

TEST_F(MainWindow, TheDigitsShowTheScreensInTheOrderOfTheToolbars) {
    bring_project();
    const std::vector<std::pair<const char*, const char*>> screens = {
        {"Ctrl+1", "FoodInventory"}, {"Ctrl+2", "MealPlan"},     {"Ctrl+3", "Mealbuilder"},
        {"Ctrl+4", "Reports"},       {"Ctrl+5", "CS1504GETUPC"}, {"Ctrl+6", "ShoppingList"},
        {"Ctrl+7", "BCBuild"},       {"Ctrl+8", "wam"}};
    for (const auto& [keys, name] : screens) {
        press(keys);
        settle();
        auto* area = window.findChild<QMdiArea*>("mdi_area");
        ASSERT_NE(area->activeSubWindow(), nullptr) << keys;
        EXPECT_EQ(area->activeSubWindow()->widget()->objectName(), QLatin1String(name)) << keys;
    }
}

TEST_F(MainWindow, F10OpensTheFirstMenu) {
    press("F10");
    EXPECT_EQ(window.menuBar()->activeAction(), menu("mnuFile").menuAction());
    press("Escape");
    press("Escape");
}

TEST_F(MainWindow, NoTwoCommandsShareAShortcut) {
    std::set<QString> seen;
    for (const QAction* one : all_commands()) {
        for (const QKeySequence& keys : one->shortcuts()) {
            EXPECT_TRUE(seen.insert(keys.toString()).second) << keys.toString().toStdString();
        }
    }
    std::set<QString> expected{"Ctrl+N", "Ctrl+O", "Ctrl+S", "Ctrl+Shift+S",
                               "Ctrl+W", "Ctrl+Q", "F1", "F11"};
    for (int screen = 1; screen <= 9; ++screen)
        expected.insert(QStringLiteral("Ctrl+%1").arg(screen));
    EXPECT_EQ(seen, expected);
}

TEST_F(MainWindow, EveryEnabledMenuEntryIsReachedByTheKeyboard) {
    bring_project();
    const std::vector<std::pair<const char*, const char*>> menus = {
        {"Alt+F", "mnuFile"}, {"Alt+P", "mnuProject"}, {"Alt+H", "mnuHelp"}};
    int reached = 0;
    for (const auto& [keys, name] : menus) {
        for (const QAction* entry : menu(name).actions()) {
            if (entry->isSeparator() || !entry->isVisible() || !entry->isEnabled()) continue;
            EXPECT_TRUE(walk_to(keys, *entry)) << entry->text().toStdString();
            press("Escape");
            press("Escape");
            ++reached;
        }
    }
    // Six commands and the submenu of File; settings, items, recipes, planner, measures, list,
    // labels, publishing, reports, the audit and the spoken interface; Help.
    EXPECT_EQ(reached, 7 + 11 + 4);
}

TEST_F(MainWindow, F6GoesRoundThePanesAndTabThroughTheButtons) {
    window.set_toolbar_captions(false);  // all buttons have room
    settle();
    const auto focused = [] { return QApplication::focusWidget()->objectName().toStdString(); };
    EXPECT_EQ(focused(), "start_new");
    press("F6");
    EXPECT_EQ(focused(), "toolbar_1_1_button");
    press("Tab");
    EXPECT_EQ(focused(), "toolbar_1_2_button");
    press("Tab");
    EXPECT_EQ(focused(), "toolbar_1_11_button");
    press("F6");
    EXPECT_EQ(focused(), "toolbar_2_7_button");
    press("F6");
    EXPECT_EQ(focused(), "start_new");
    press("Tab");
    EXPECT_EQ(focused(), "start_open");
    press("Tab");
    EXPECT_EQ(focused(), "start_sample");
}

TEST_F(MainWindow, TheTitleMayHoldTheSignOfAPlaceholder) {
    window.set_title("Tavernook - a[*].tvk");
    EXPECT_EQ(window.title(), "Tavernook - a[*].tvk");
    EXPECT_EQ(shown_title(), "Tavernook - a[*][*].tvk");  // Qt shows the doubled sign once
}

TEST_F(MainWindow, RecentFilesFillUpToSixPlacesAndBlanksAreLeftOut) {
    window.set_recent_files({"/a/1.tvk", "", "/a/2.tvk", "/a/3.tvk"});
    EXPECT_EQ(action("mnuRecentFile_2").text(), "&2 2.tvk");
    EXPECT_EQ(action("mnuRecentFile_2").toolTip(), "/a/2.tvk");
    EXPECT_TRUE(action("mnuRecentFile_3").isVisible());
    EXPECT_FALSE(action("mnuRecentFile_4").isVisible());
    window.set_recent_files({});
    EXPECT_FALSE(action("mnuRecentFile_1").isVisible());
}

TEST_F(MainWindow, TheStartPageOffersTheTwoCommandsAndTheRecentProjects) {
    const std::string path = project_on_disk("home.tvk");
    window.set_recent_files({path});
    auto* line = window.findChild<QLabel*>("start_line");
    EXPECT_EQ(line->text(), "Open a project or start a new one.");
    auto* link = window.findChild<QPushButton*>("recent_link_1");
    ASSERT_NE(link, nullptr);
    EXPECT_TRUE(link->isVisible());
    link->click();
    EXPECT_EQ(project_open, i16_true);
    window.registry().hide_all();  // the planner has come up
    settle();
    EXPECT_EQ(window.findChild<QLabel*>("start_heading")->text(), "home.tvk");
    EXPECT_TRUE(line->text().startsWith("This household is open."));
    EXPECT_FALSE(window.findChild<QWidget*>("start_new")->isVisible());
    settle();
    press("Ctrl+W");
    EXPECT_TRUE(window.findChild<QWidget*>("start_new")->isVisible());
    platform.dialogs.expect_open("Open Project", cancelled);
    window.findChild<QToolButton*>("start_open")->click();
    platform.dialogs.expect_save("New Project", cancelled);
    window.findChild<QToolButton*>("start_new")->click();
}

TEST_F(MainWindow, AllZeroGeometryIsTheDesignedSize) {
    const QRect screen = window.screen()->availableGeometry();
    window.set_geometry({});
    EXPECT_EQ(window.width(), screen.width() * 7 / 10);
    EXPECT_EQ(window.height(), screen.height() * 7 / 10);
}

TEST_F(MainWindow, GeometryComesBackAsItWasSet) {
    const WindowGeometry wanted{.height = 510, .width = 620, .left = 33, .top = 44};
    window.set_geometry(wanted);
    EXPECT_EQ(window.geometry(), wanted);
}

TEST_F(MainWindow, MaximisedItRemembersItsNormalPlace) {
    const WindowGeometry wanted{.height = 510, .width = 620, .left = 33, .top = 44};
    window.set_geometry(wanted);
    settle();
    window.showMaximized();
    settle();
    EXPECT_EQ(window.geometry(), wanted);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(platform.settings.get("Window", "Maximised"), "1");
}

TEST_F(MainWindow, TheFirstStartTakesTheWholeOfASmallScreen) {
    ASSERT_LT(window.screen()->availableGeometry().width(), 1600);
    Main first;
    first.load("");
    EXPECT_TRUE(first.isMaximized());
    EXPECT_EQ(first.normalGeometry().size(), window.screen()->availableGeometry().size() * 7 / 10);
}

TEST_F(MainWindow, AnyLaterStartIsAsTheUserLeftIt) {
    platform.settings.set("Window", "Maximised", "0");
    Main second;
    second.load("");
    EXPECT_FALSE(second.isMaximized());
    platform.settings.set("Window", "Maximised", "");
    window_geometry = {.height = 510, .width = 620, .left = 33, .top = 44};
    save_window_state();
    Main third;
    third.load("");
    EXPECT_FALSE(third.isMaximized());
}

TEST_F(MainWindow, ToolbarsAndMaximisingAreRestored) {
    bar("toolbar_2").hide();
    window.showMaximized();
    settle();
    EXPECT_TRUE(window.close());
    Main next;
    next.load("");
    next.show();
    EXPECT_TRUE(next.isMaximized());
    EXPECT_TRUE(next.findChild<QToolBar*>("toolbar_2")->isHidden());
    EXPECT_FALSE(next.findChild<QToolBar*>("toolbar_1")->isHidden());
}

TEST_F(MainWindow, TheTimersTakeTurns) {
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(3), "Ready");
    EXPECT_FALSE(tick("timer_1"));
    project_modified = i16_true;
    EXPECT_EQ(shown_title(), "Tavernook");
    EXPECT_TRUE(tick("timer_2"));
    EXPECT_EQ(shown_title(), "Tavernook*");
    EXPECT_FALSE(tick("timer_2"));
    EXPECT_TRUE(tick("timer_1"));
    window.enable_timer(false);
    EXPECT_FALSE(tick("timer_1"));
    EXPECT_FALSE(tick("timer_2"));
    window.enable_timer(true);
    EXPECT_TRUE(tick("timer_1"));
}

TEST_F(MainWindow, TheAuditWaitsForWorkAndBoxes) {
    EXPECT_EQ(panel(3), "Start-up");
    window.progress().load("Saving Project", "Saving Project....");
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(3), "Start-up");
    window.progress().unload();
    EXPECT_TRUE(tick("timer_2"));
    platform.dialogs.expect_open("Open Project", cancelled).during([this] {
        EXPECT_TRUE(tick("timer_1"));
    });
    press("Ctrl+O");
    EXPECT_EQ(panel(3), "Start-up");
    EXPECT_TRUE(tick("timer_2"));
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(3), "Ready");
}

class OpenBoxes : public FakeBoxes {
  public:
    bool is_open() override { return open; }
    bool open = true;
};

TEST_F(MainWindow, TheAuditWaitsWhileAnythingWaitsForTheUser) {
    OpenBoxes waiting;
    Platform parts = outside();
    parts.boxes = &waiting;
    set_platform(parts);
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(3), "Start-up");
    EXPECT_TRUE(tick("timer_2"));
    waiting.open = false;
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(3), "Ready");
    window.end_program();  // before the boxes go
}

// A day of last year that takes one of ten bags of flour.
void plan_a_bag_of_flour() {
    items[7].in_use = 1;
    items[7].serving_size = 2;
    items[7].servings_per_qty_unit = 4;
    items[7].quantity = 10;
    days[1].in_use = 1;
    days[1].month = days[1].day = 3;
    days[1].year = 2023;
    days[1].planned_item[1] = 7;
    day_quantities[1].item_quantity[1] = 8;
}

TEST_F(MainWindow, AuditNowTakesThePlanOutOfTheStock) {
    bring_project();
    plan_a_bag_of_flour();
    action("toolbar_2_6").trigger();
    EXPECT_EQ(items[7].quantity, 9);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_FALSE(window.progress().isVisible());
    EXPECT_EQ(panel(3), "Auditing...");
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk*");
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(3), "Ready");
    project_modified = 0;
}

TEST_F(MainWindow, TheChosenMinuteAuditsByItself) {
    bring_project();
    plan_a_bag_of_flour();
    audit_hour = 12;  // it is 12:00
    audit_minute = 0;
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(items[7].quantity, 9);
    EXPECT_EQ(panel(3), "Ready");
    EXPECT_TRUE(tick("timer_2"));
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk*");
    project_modified = 0;
}

TEST_F(MainWindow, TheChosenMinuteIsNotMissedBelowABox) {
    bring_project();
    plan_a_bag_of_flour();
    project_modified = 0;
    audit_hour = 12;  // it is 12:00
    audit_minute = 0;
    platform.dialogs.expect_open("Open Project", cancelled).during([this] {
        EXPECT_TRUE(tick("timer_1"));
        EXPECT_TRUE(tick("timer_2"));
        EXPECT_EQ(items[7].quantity, 10);
        platform.clock.time += 5.0 / (24 * 60);
        EXPECT_TRUE(tick("timer_1"));
        EXPECT_TRUE(tick("timer_2"));
    });
    press("Ctrl+O");
    EXPECT_EQ(items[7].quantity, 10);
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(items[7].quantity, 9);
    project_modified = 0;
}

TEST_F(MainWindow, CommandsTicksAndClosingAreSteps) {
    bring_project();
    const Seen items_seen{Subject::items};
    items[7].in_use = 1;
    items[7].name = "Flour";
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_TRUE(items_seen.is_stale());
    const Seen stores_seen{Subject::stores};
    stores[9].in_use = 1;
    stores[9].name = "Market";
    action("Project_ShoppingList").trigger();
    EXPECT_TRUE(stores_seen.is_stale());
    const Seen units_seen{Subject::units};
    units[90].in_use = 1;
    units[90].name = "crate";
    project_modified = i16_true;
    platform.boxes.expect_message(
        "Project has been modified.  Would you like to save before closing?", Answer::cancel);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(units_seen.is_stale());
    project_modified = i16_false;
}

TEST_F(MainWindow, EndingTheProgramAsksAndStoresNothing) {
    bring_project();
    project_modified = i16_true;
    window.end_program();
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(tick("timer_1"));
    EXPECT_FALSE(tick("timer_2"));
    EXPECT_TRUE(platform.settings.get("Window", "Toolbars").empty());
}

TEST_F(MainWindow, TheAboutBoxOpensAndClosesByTheKeyboard) {
    choose("Alt+H", "mnu_about");
    auto* about = window.findChild<About*>();
    ASSERT_NE(about, nullptr);
    ASSERT_TRUE(becomes_active(*about));
    EXPECT_EQ(about->windowTitle(), "About Tavernook");
    for (const char* library : {"Qt", "LGPL", "libmspack", "libgcab", "libcurl"}) {
        EXPECT_TRUE(about->findChild<QLabel*>("about_licence")->text().contains(library)) << library;
    }
    QTest::keyClick(about, Qt::Key_Return);
    EXPECT_FALSE(about->isVisible());
}

}  // namespace
}  // namespace tavernook
