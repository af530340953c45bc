// The planner by keyboard alone and for assistive technology.
#include <QAccessible>
#include <QHeaderView>
#include <QToolButton>

#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

class PlannerAccess : public MealPlanTest {
  protected:
    QAccessibleInterface& table() { return *QAccessible::queryAccessibleInterface(&grid()); }
    static std::string name(const QAccessibleInterface& told) {
        return told.text(QAccessible::Name).toStdString();
    }
};

TEST_F(PlannerAccess, EveryControlHasAName) {
    open_planner();
    expect_accessible_names();
}

TEST_F(PlannerAccess, MnemonicsAreUniqueAndEveryButtonHasOne) {
    open_planner();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
    std::set<QString> seen{"Alt+F", "Alt+P", "Alt+W", "Alt+H", "Alt+S", "Alt+B"};
    for (const char* name :
         {"Toolbar1_2", "Toolbar2_1", "Toolbar2_2", "Toolbar2_3", "Toolbar2_4"}) {
        const QString keys = QKeySequence::mnemonic(part<QAction>(name).text()).toString();
        EXPECT_FALSE(keys.isEmpty()) << name;
        EXPECT_TRUE(seen.insert(keys).second) << name;
    }
}

TEST_F(PlannerAccess, TheCalendarIsATableOfFortyTwoCells) {
    open_planner();
    EXPECT_EQ(table().role(), QAccessible::Table);
    EXPECT_EQ(name(table()), "Calendar");
    ASSERT_EQ(table().childCount(), 42);
    auto* rows = table().tableInterface();
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->rowCount(), 6);
    EXPECT_EQ(rows->columnCount(), 7);
    EXPECT_EQ(rows->columnDescription(0), "Sunday");
    EXPECT_EQ(rows->columnDescription(6), "Saturday");
    EXPECT_EQ(rows->cellAt(2, 3), table().child(17));
    EXPECT_EQ(rows->cellAt(6, 0), nullptr);
    EXPECT_EQ(table().child(42), nullptr);
    for (int cell = 0; cell < 42; ++cell) {
        QAccessibleInterface* child = table().child(cell);
        EXPECT_EQ(child->role(), QAccessible::Cell);
        EXPECT_EQ(child->parent(), &table());
        EXPECT_EQ(table().indexOfChild(child), cell);
        EXPECT_EQ(child->tableCellInterface()->rowIndex(), cell / 7);
        EXPECT_EQ(child->tableCellInterface()->columnIndex(), cell % 7);
        const QPoint middle = grid().mapToGlobal(grid().cell_rect(cell).center());
        EXPECT_EQ(table().childAt(middle.x(), middle.y()), child);
        EXPECT_TRUE(child->rect().contains(middle));
    }
}

TEST_F(PlannerAccess, CellsTellTheirDateAndWhatIsPlanned) {
    put_day(1, 5, 20);
    put_recipe_on(1, 1, soup, 1);
    put_day(2, 5, 14, -1);
    open_planner();
    EXPECT_EQ(name(*table().child(may_20)), "Monday, May 20, planned");
    EXPECT_EQ(table().child(may_20)->text(QAccessible::Description), "Soup");
    EXPECT_EQ(name(*table().child(may_15 - 1)), "Tuesday, May 14, audited");
    EXPECT_EQ(name(*table().child(may_15)), "Wednesday, May 15, today");
    EXPECT_EQ(name(*table().child(april_28)), "Sunday, April 28");
}

TEST_F(PlannerAccess, CellsTellSelectionAndFocus) {
    open_planner();
    EXPECT_TRUE(table().child(may_15)->state().selected);
    EXPECT_FALSE(table().child(may_15)->state().focused);
    EXPECT_FALSE(table().child(may_16)->state().selected);
    grid().setFocus();
    press("Right");
    EXPECT_TRUE(table().child(may_16)->state().selected);
    EXPECT_TRUE(table().child(may_16)->state().focused);
    EXPECT_EQ(table().focusChild(), table().child(may_16));
    EXPECT_FALSE(table().child(may_15)->state().selected);
    EXPECT_EQ(table().tableInterface()->selectedCells(),
              QList<QAccessibleInterface*>{table().child(may_16)});
}

TEST_F(PlannerAccess, ACellIsChosenByItsAction) {
    open_planner();
    QAccessibleActionInterface* action = table().child(may_20)->actionInterface();
    ASSERT_NE(action, nullptr);
    ASSERT_TRUE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(told_date(), "5/20/2024");
}

TEST_F(PlannerAccess, TheEntryBoxTellsTheDateThatItsKeysChoose) {
    put_day(1, 5, 16);
    open_planner();
    press("Right");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(entry().accessibleDescription(), "Thursday, May 16, planned");
}

TEST_F(PlannerAccess, TheFocusOfTheCalendarIsSeen) {
    open_planner();
    const QImage without = grid().grab().toImage();
    grid().setFocus();
    EXPECT_NE(grid().grab().toImage(), without);
}

TEST_F(PlannerAccess, TabGoesRoundInReadingOrder) {
    put_day(1, 5, 15);
    open_planner();
    part("previous_month").setFocus();
    Texts order;
    for (int step = 0; step < 14; ++step) {
        order.push_back(focused());
        press("Tab");
    }
    EXPECT_EQ(order, (Texts{"previous_month", "Combo1", "FlatScrollBar2", "next_month",
                            "Toolbar1_1_button", "Toolbar1_2_button", "Toolbar1_3_button",
                            "calendar_grid", "Toolbar2_1_button", "Toolbar2_2_button",
                            "Toolbar2_3_button", "Text1", "lv2", "Command2"}));
    EXPECT_EQ(focused(), "recommendations");
    press("Shift+Tab");
    EXPECT_EQ(focused(), "Command2");
}

TEST_F(PlannerAccess, ADayIsPlannedChangedMovedAndDeletedByKeysAlone) {
    open_planner();
    press("Right");
    scan("tvk7");
    press("Tab");
    EXPECT_EQ(planner().selected_day_key(), "m7:1");
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1", "3");
    press("F2");
    press("Shift+Tab");
    press("Ctrl+X");
    press("Down");
    press("Ctrl+V");
    EXPECT_EQ(told_date(), "5/23/2024");
    EXPECT_EQ(plan_shown(), Texts{"Soup 3 Cup(s)"});
    press("Up");
    EXPECT_EQ(plan_shown(), Texts{});
    press("Down");
    press("Shift+F10");
    auto& menu = part<QMenu>("popmenu");
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    for (int n = 0; n < 6 && menu.activeAction() != &part<QAction>("POPMenu_Delete"); ++n) {
        press("Down");
    }
    press("Return");
    EXPECT_EQ(plan_shown(), Texts{});
}

TEST_F(PlannerAccess, EnterInTheCalendarOpensTheRecipes) {
    open_planner();
    grid().setFocus();
    press("Return");
    EXPECT_EQ(calls.entries, Texts{"Mealbuilder set_return 1"});
}

TEST_F(PlannerAccess, SizesColumnsAndSplittersComeBack) {
    open_planner();
    part<QTreeView>("lv2").header()->resizeSection(1, 111);
    screen->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open_planner();
    EXPECT_EQ(part<QTreeView>("lv2").header()->sectionSize(1), 111);
}

TEST_F(PlannerAccess, LargerTextLeavesTheTitlesOfTheColumnsWhole) {
    open_planner();
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(large.pointSizeF() * 2);
    const auto expect_whole = [this] {
        for (const auto& [name, column] : {std::pair("lv2", 1), std::pair("recommendations", 2)}) {
            const auto& list = part<QTreeView>(name);
            EXPECT_GE(list.header()->sectionSize(column),
                      list.header()->fontMetrics().horizontalAdvance("Quantity"))
                << name;
        }
    };
    const int unit = part<QTreeView>("lv2").header()->sectionSize(2);
    screen->setFont(large);
    for (const char* name : {"lv2", "recommendations"}) part(name).setFont(large);
    expect_whole();
    EXPECT_GT(part<QTreeView>("lv2").header()->sectionSize(2), unit * 3 / 2);
    screen->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    open_planner();
    part<QTreeView>("lv2").header()->resizeSection(1, 40);  // and remembered so
    screen->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::setFont(large);
    open_planner();
    expect_whole();
    screen->parentWidget()->close();
    QApplication::setFont(before);
}

TEST_F(PlannerAccess, WhatHasNoRoomIsScrolledToAndTabBringsItInSight) {
    open_planner();
    auto* child = static_cast<QMdiSubWindow*>(planner().parentWidget());
    child->showNormal();
    child->resize(500, 240);
    settle();
    EXPECT_EQ(child->size(), QSize(500, 240));
    const auto in_sight = [this](QWidget& widget) {
        const QPoint corner = widget.mapTo(&planner(), widget.rect().bottomLeft());
        return planner().rect().contains(corner);
    };
    EXPECT_FALSE(in_sight(part("Command2")));
    day_list().setFocus();
    press("Tab");
    EXPECT_EQ(focused(), "Command2");
    EXPECT_TRUE(in_sight(part("Command2")));
}

TEST_F(PlannerAccess, TheCalendarIsDrawnAtEverySize) {
    put_day(1, 5, 15);
    put_recipe_on(1, 1, soup, 1);
    open_planner();
    for (const QSize size : {QSize(40, 30), QSize(300, 160), QSize(1600, 1200)}) {
        CalendarGrid alone;
        alone.resize(size);
        alone.set_cells(calendar_cells(QDate(2024, 5, 1), QDate(2024, 5, 15)));
        alone.select_cell(may_15);
        EXPECT_EQ(alone.grab().size(), size);
    }
    EXPECT_GT(grid().minimumSizeHint().width(), 0);
}

}  // namespace
}  // namespace tavernook
