// The keys while a button of a toolbar has the focus: what a scanner types is the screen's, and the
// keyboard finds its way along the toolbar and back.
#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>

#include "screens/child_screen_fixture.h"

namespace tavernook {
namespace {

class ToolbarKeysTest : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        window.set_toolbar_captions(false);  // all buttons have room
        settle();
    }

    QToolButton& button(const char* name) {
        return *window.findChild<QToolButton*>(QLatin1String(name));
    }
    bool is_in(const char* name) {
        return window.registry()
            .loaded(QLatin1String(name))
            ->isAncestorOf(QApplication::focusWidget());
    }
    // As from the keyboard: each key into what has the focus by then.
    void press_each(const char* keys) {
        for (const char* key = keys; *key != '\0'; ++key) {
            QTest::keyClick(QApplication::focusWidget(), *key);
        }
    }
    // How often the button's command runs meanwhile.
    template <typename Act>
    int commands_of(const char* name, Act act) {
        QAction& command = action(name);
        command.disconnect();
        int count = 0;
        QObject::connect(&command, &QAction::triggered, &window, [&count] { ++count; });
        act();
        command.disconnect();
        return count;
    }
};

TEST_F(ToolbarKeysTest, WhatIsTypedThereReachesTheBoxForCodes) {
    for (const char* code : {"5012", "tvk7", "N12"}) {
        open("MealPlan");
        part<QLineEdit>("Text1").clear();
        press("F6");
        ASSERT_EQ(focused(), "toolbar_1_1_button");
        press_each(code);
        EXPECT_EQ(focused(), "Text1");
        EXPECT_EQ(part<QLineEdit>("Text1").text().toStdString(), code);
    }
}

TEST_F(ToolbarKeysTest, AFullStopBeginsACodeThereToo) {
    open("MealPlan");
    press("F6");
    press_each(".C3");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(part<QLineEdit>("Text1").text(), ".C3");
}

TEST_F(ToolbarKeysTest, TheWholeCodeIsReadFromThere) {
    open("MealPlan");
    press("F6");
    press_each("5012");
    press("Return");
    EXPECT_EQ(panel(1), "No recipe and no item has the barcode 5012.");
}

TEST_F(ToolbarKeysTest, BehindADialogThatWasOpenedFromThereTheyDoSoToo) {
    open("MealPlan");
    press("F6");
    QDialog dialog(&window);
    dialog.open();
    ASSERT_TRUE(becomes_active(dialog));
    dialog.close();
    ASSERT_TRUE(becomes_active(window));
    ASSERT_EQ(focused(), "toolbar_1_1_button");
    press_each("50");
    EXPECT_EQ(focused(), "Text1");
    EXPECT_EQ(part<QLineEdit>("Text1").text(), "50");
}

// The box selects what it holds when the focus enters it; here it comes back.
TEST_F(ToolbarKeysTest, WhatABoxOfTextHoldsIsNotOverwritten) {
    open("FoodInventory");
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Rice");
    part<QAction>("item_toolbar_1_1").trigger();
    auto& name = part<QLineEdit>("item_name");
    name.setText("Fl");
    name.setFocus();
    press("F6");
    ASSERT_EQ(focused(), "toolbar_1_1_button");
    press_each("o");
    EXPECT_EQ(name.text(), "Flo");
}

TEST_F(ToolbarKeysTest, KeysWithCtrlOrAltStayCommands) {
    open("MealPlan");
    press("F6");
    press("Ctrl+0");
    press("Alt+5");
    press("Shift");
    EXPECT_EQ(focused(), "toolbar_1_1_button");
    EXPECT_EQ(part<QLineEdit>("Text1").text(), "");
}

TEST_F(ToolbarKeysTest, EscapeLeadsBackToThePartOfTheScreenThatHadTheFocus) {
    open("MealPlan");
    press("Tab");
    const std::string before = focused();
    ASSERT_NE(before, "Text1");
    press("F6");
    press("F6");
    ASSERT_EQ(focused(), "toolbar_2_1_button");
    press("Escape");
    EXPECT_EQ(focused(), before);
    EXPECT_TRUE(is_in("MealPlan"));
}

TEST_F(ToolbarKeysTest, WithoutAScreenEscapeLeadsToTheStartPage) {
    window.enable_project_menus(false);
    settle();
    press("F6");
    ASSERT_EQ(focused(), "toolbar_1_1_button");
    press("Escape");
    EXPECT_EQ(focused(), "start_new");
}

TEST_F(ToolbarKeysTest, CtrlTabChangesTheScreenAsItDoesInside) {
    const auto screen_behind = [&](const char* keys, bool from_toolbar) {
        for (const char* name : {"FoodInventory", "ShoppingList", "MealPlan"}) open(name);
        if (from_toolbar) press("F6");
        EXPECT_EQ(focused() == "toolbar_1_1_button", from_toolbar);
        press(keys);
        for (const char* name : {"FoodInventory", "ShoppingList", "MealPlan"}) {
            if (is_in(name)) return std::string(name);
        }
        return focused();
    };
    for (const char* keys : {"Ctrl+Tab", "Ctrl+Shift+Backtab"}) {
        EXPECT_EQ(screen_behind(keys, false), "ShoppingList") << keys;
        EXPECT_EQ(screen_behind(keys, true), "ShoppingList") << keys;
    }
}

TEST_F(ToolbarKeysTest, SpaceAndEnterPressTheButton) {
    open("MealPlan");
    press("F6");
    for (const char* key : {"Space", "Return", "Enter"}) {
        EXPECT_EQ(commands_of("toolbar_1_1", [&] { press(key); }), 1) << key;
    }
    EXPECT_EQ(focused(), "toolbar_1_1_button");
}

TEST_F(ToolbarKeysTest, AnEnterThatIsHeldDownPressesOnce) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    EXPECT_EQ(
        commands_of("toolbar_1_1",
                    [&] { QCoreApplication::sendEvent(&button("toolbar_1_1_button"), &held); }),
        0);
}

TEST_F(ToolbarKeysTest, ACodeThatNoScreenTakesPressesNothing) {
    button("toolbar_1_1_button").setFocus();
    EXPECT_EQ(commands_of("toolbar_1_1",
                          [&] {
                              press_each("50a");
                              press("Return");
                          }),
              0);
    EXPECT_EQ(commands_of("toolbar_1_1", [&] { press("Return"); }), 1);
    press_each("50");
    press("Tab");
    EXPECT_EQ(commands_of("toolbar_1_2", [&] { press("Return"); }), 1);
}

TEST_F(ToolbarKeysTest, LeftAndRightGoAlongTheToolbarAndStopAtItsEnds) {
    open("MealPlan");
    press("F6");
    press("Left");
    EXPECT_EQ(focused(), "toolbar_1_1_button");
    std::vector<std::string> passed{focused()};
    for (int step = 0; step < 12; ++step) {
        press("Right");
        if (focused() != passed.back()) passed.push_back(focused());
    }
    EXPECT_EQ(passed, (std::vector<std::string>{"toolbar_1_1_button", "toolbar_1_2_button",
                                                "toolbar_1_3_button", "toolbar_1_5_button",
                                                "toolbar_1_7_button", "toolbar_1_8_button",
                                                "toolbar_1_9_button", "toolbar_1_11_button"}));
    action("toolbar_1_9").setEnabled(false);
    button("toolbar_1_8_button").hide();
    press("Left");
    EXPECT_EQ(focused(), "toolbar_1_7_button");
    press("Right");
    EXPECT_EQ(focused(), "toolbar_1_11_button");
}

TEST_F(ToolbarKeysTest, UpAndDownGoAlongItToo) {
    open("MealPlan");
    press("F6");
    press("F6");
    press("Down");
    EXPECT_EQ(focused(), "toolbar_2_2_button");
    press("Up");
    press("Up");
    EXPECT_EQ(focused(), "toolbar_2_1_button");
}

TEST_F(ToolbarKeysTest, WhereTheButtonsHaveNoRoomTheArrowsComeToTheOneThatShowsTheRest) {
    window.showNormal();
    window.resize(500, 600);
    window.set_toolbar_captions(true);
    settle();
    auto* rest =
        window.findChild<QToolBar*>("toolbar_1")->findChild<QToolButton*>("qt_toolbar_ext_button");
    ASSERT_TRUE(rest->isVisible());
    open("MealPlan");
    press("F6");
    for (int step = 0; step < 12; ++step) press("Right");
    EXPECT_EQ(QApplication::focusWidget(), rest);
    press("Left");
    EXPECT_TRUE(QString::fromStdString(focused()).startsWith("toolbar_1_"));
    press("Right");
    press_each("50");
    EXPECT_EQ(focused(), "Text1");
}

}  // namespace
}  // namespace tavernook
