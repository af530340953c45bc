// The main toolbars show which screen is in front.
#include <QMdiSubWindow>
#include <QToolBar>
#include <QToolButton>

#include "screens/frame/register_screens.h"
#include "screens/main_window_fixture.h"
#include "screens/parts/checked_line.h"

namespace tavernook {
namespace {

class FrontMarks : public MainWindowTest {
  protected:
    void SetUp() override {
        register_screens(window);
        start();
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
    }

    QToolButton& button(const char* name) {
        return *window.findChild<QToolButton*>(QLatin1String(name) + QLatin1String("_button"));
    }
    bool has_line(const char* name) {
        auto* line = button(name).findChild<CheckedLine*>();
        return line != nullptr && !line->isHidden();
    }
    // The marked buttons, by name.
    std::string marked() {
        std::string names;
        for (const char* bar : {"toolbar_1", "toolbar_2"}) {
            for (const QAction* entry :
                 window.findChild<QToolBar*>(QLatin1String(bar))->actions()) {
                if (entry->isChecked()) names += entry->objectName().toStdString() + " ";
            }
        }
        return names;
    }
};

TEST_F(FrontMarks, TheButtonOfTheScreenInFrontIsMarked) {
    EXPECT_EQ(marked(), "");
    button("toolbar_1_7").click();
    EXPECT_EQ(marked(), "toolbar_1_7 ");
    EXPECT_TRUE(has_line("toolbar_1_7"));
    button("toolbar_2_3").click();
    EXPECT_EQ(marked(), "toolbar_2_3 ");
    EXPECT_FALSE(has_line("toolbar_1_7"));
    action("mnuProject_FoodInventory").trigger();
    EXPECT_EQ(marked(), "toolbar_1_7 ");
}

TEST_F(FrontMarks, APressOnTheMarkedOneLeavesItMarked) {
    button("toolbar_1_7").click();
    button("toolbar_1_7").click();
    EXPECT_EQ(marked(), "toolbar_1_7 ");
}

TEST_F(FrontMarks, TheMarkGoesToTheNextScreenAndWithTheLast) {
    button("toolbar_1_7").click();
    button("toolbar_2_3").click();
    const auto close = [this](const char* name) {
        window.registry().loaded(QLatin1String(name))->parentWidget()->close();
    };
    close("ShoppingList");
    EXPECT_EQ(marked(), "toolbar_1_7 ");
    close("FoodInventory");
    EXPECT_EQ(marked(), "");
}

TEST_F(FrontMarks, AScreenWithoutAButtonMarksNone) {
    button("toolbar_1_7").click();
    window.registry().show("UnitsForm");
    EXPECT_EQ(marked(), "");
}

TEST_F(FrontMarks, OtherCommandsAreNotForMarking) {
    for (const char* name : {"toolbar_1_1", "toolbar_1_2", "toolbar_1_3", "toolbar_1_5"}) {
        EXPECT_FALSE(action(name).isCheckable()) << name;
    }
}

}  // namespace
}  // namespace tavernook
