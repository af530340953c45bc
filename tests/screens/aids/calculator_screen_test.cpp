// The calculator's window: its keys by mouse and keyboard, and what is told.
#include <QAccessible>
#include <QClipboard>
#include <QLineEdit>

#include "screens/child_screen_fixture.h"
#include "screens/heard.h"

namespace tavernook {
namespace {

class CalculatorScreen : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        open("Calculator");
    }
    std::string display() { return part<QLineEdit>("Readout").text().toStdString(); }
    std::string keys(const char* typed) {
        type(typed);
        return display();
    }
    std::string said() { return panel(message_panel); }
    std::string name_of(const char* button) {
        return QAccessible::queryAccessibleInterface(&part(button))
            ->text(QAccessible::Name)
            .toStdString();
    }
};

TEST_F(CalculatorScreen, IsThereWithoutAProject) {
    press("Escape");
    EXPECT_FALSE(is_open("Calculator"));
    window.set_toolbar_state(1);
    window.enable_project_menus(false);
    action("toolbar_2_7").trigger();
    ASSERT_TRUE(is_open("Calculator"));
    screen = window.registry().loaded("Calculator");
    EXPECT_EQ(screen->windowTitle(), "Calculator");
    EXPECT_FALSE(screen->parentWidget()->isMaximized());
    EXPECT_EQ(display(), "0.");
    EXPECT_EQ(focused(), "Readout");
}

TEST_F(CalculatorScreen, EveryButtonIsItsKey) {
    for (const char* button :
         {"Number_1", "Number_2", "Decimal", "Number_5", "Operator_plus", "Number_3", "Number_4",
          "Operator_minus", "Number_6", "Number_7", "Operator_times", "Number_8", "Operator_divide",
          "Number_9", "Operator_equals"}) {
        click(button);
    }
    // 12.5 + 34 - 67 = -20.5; times 8 is -164; over 9
    EXPECT_EQ(display(), "-18.22222222222222");
    click("Number_5");
    click("Number_0");
    click("Percent");
    EXPECT_EQ(display(), "0.5");
    click("CancelEntry");
    EXPECT_EQ(display(), "0.");
    click("Number_8");
    click("Cancel");
    EXPECT_EQ(display(), "0.");
}

TEST_F(CalculatorScreen, EverySignIsAKey) {
    EXPECT_EQ(keys("12.5+3"), "3.");
    EXPECT_EQ(keys("="), "15.5");
    EXPECT_EQ(keys("*2="), "31");
    EXPECT_EQ(keys("x2="), "62");
    EXPECT_EQ(keys("X2="), "124");
    EXPECT_EQ(keys("/4="), "31");
    EXPECT_EQ(keys("-1,5="), "29.5");
    EXPECT_EQ(keys("50%"), "0.5");
    EXPECT_EQ(keys("4567890"), "4567890.");
    press("Delete");
    EXPECT_EQ(display(), "0.");
}

TEST_F(CalculatorScreen, TheNumberPadCounts) {
    QWidget* part = QApplication::focusWidget();
    for (const int key : {Qt::Key_7, Qt::Key_Asterisk, Qt::Key_6, Qt::Key_Enter}) {
        QTest::keyClick(part, static_cast<Qt::Key>(key), Qt::KeypadModifier);
    }
    EXPECT_EQ(display(), "42");
    press("Return");
    EXPECT_EQ(display(), "42");
}

// Wherever the focus is; Space presses the button that has it.
TEST_F(CalculatorScreen, EnterIsAlwaysEquals) {
    keys("8+1");
    part("Number_7").setFocus();
    press("Return");
    EXPECT_EQ(display(), "9");
    press("Space");
    EXPECT_EQ(display(), "7.");
    EXPECT_EQ(focused(), "Number_7");
    keys("+3");
    press("Enter");
    EXPECT_EQ(display(), "10");
}

// On some desktops a button takes them for a press.
TEST_F(CalculatorScreen, NoButtonGetsToSeeEnter) {
    struct Passed : QObject {
        int keys = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            keys += event->type() == QEvent::KeyPress ? 1 : 0;
            return false;
        }
    } behind_the_buttons;
    screen->installEventFilter(&behind_the_buttons);
    for (auto* button : screen->findChildren<QPushButton*>()) {
        button->setFocus();
        press("Return");
        press("Enter");
        EXPECT_EQ(behind_the_buttons.keys, 0) << button->objectName().toStdString();
    }
    press("Tab");
    EXPECT_EQ(display(), "0.");
}

TEST_F(CalculatorScreen, EscapeCancelsAndThenCloses) {
    keys("8+1");
    press("Escape");
    EXPECT_EQ(display(), "0.");
    ASSERT_TRUE(is_open("Calculator"));
    press("Escape");
    EXPECT_FALSE(is_open("Calculator"));
}

TEST_F(CalculatorScreen, OtherKeysAreNobodys) {
    keys("8");
    EXPECT_EQ(keys("abc c?"), "8.");
    press("Ctrl+5");
    press("Alt+5");
    press("Backspace");
    EXPECT_EQ(display(), "8.");
}

TEST_F(CalculatorScreen, DivisionByZeroIsToldInABox) {
    platform.boxes.expect_message("Can't divide by zero")
        .title("Calculator")
        .buttons(Buttons::ok)
        .warning()
        .during([this] { EXPECT_EQ(display(), "8"); });
    EXPECT_EQ(keys("8/0="), "8");
    EXPECT_EQ(keys("/2="), "4");
}

TEST_F(CalculatorScreen, WhatDoesNotFitIsToldBelow) {
    QApplication::clipboard()->setText("1" + QString(200, '0'));
    press("Ctrl+V");
    keys("*");
    press("Ctrl+V");
    keys("=");
    EXPECT_EQ(said(), "The result is too large.");
    EXPECT_EQ(display(), "1" + std::string(200, '0'));
    EXPECT_EQ(part<QLineEdit>("Readout").toolTip().size(), 201);
    EXPECT_EQ(part<QLineEdit>("Readout").cursorPosition(), 0);
    QApplication::clipboard()->setText(QString(299, '1'));
    press("Ctrl+V");
    EXPECT_EQ(said(), "");
    keys("1");
    EXPECT_EQ(said(), "The display is full.");
    EXPECT_EQ(keys("=1"), "1.");
    EXPECT_EQ(said(), "");
    EXPECT_EQ(part<QLineEdit>("Readout").toolTip(), "");
}

TEST_F(CalculatorScreen, CopiesTheDisplayAndTypesANumber) {
    keys("1/8=");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "0.125");
    QApplication::clipboard()->setText(" -2,5\n");
    press("Ctrl+V");
    EXPECT_EQ(display(), "-2.5");
    EXPECT_EQ(keys("+1="), "-1.5");
    part("Number_7").setFocus();
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "-1.5");
    QApplication::clipboard()->setText("two");
    press("Ctrl+V");
    EXPECT_EQ(display(), "-1.5");
    EXPECT_EQ(said(), "What was copied is no number.");
}

TEST_F(CalculatorScreen, IsReadInWords) {
    expect_accessible_names();
    EXPECT_EQ(name_of("Operator_plus"), "plus");
    EXPECT_EQ(name_of("Operator_minus"), "minus");
    EXPECT_EQ(name_of("Operator_times"), "times");
    EXPECT_EQ(name_of("Operator_divide"), "divide");
    EXPECT_EQ(name_of("Operator_equals"), "equals");
    EXPECT_EQ(name_of("Decimal"), "point");
    EXPECT_EQ(name_of("Percent"), "percent");
    EXPECT_EQ(name_of("CancelEntry"), "clear entry");
    EXPECT_EQ(name_of("Cancel"), "clear");
    EXPECT_EQ(name_of("Number_0"), "0");
    EXPECT_EQ(name_of("Readout"), "Display");
    keys("1.5");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&part("Readout"))->text(QAccessible::Value),
              "1.5");
}

// Without the focus moving there.
TEST_F(CalculatorScreen, TheDisplayIsAnnounced) {
    const Hearing hearing;
    keys("1+2=");
    QStringList alerts;
    for (const Heard& one : heard()) {
        if (one.object == "Readout" && one.event == QAccessible::Alert) alerts << one.value;
    }
    EXPECT_EQ(alerts, (QStringList{"1.", "2.", "3"}));
}

TEST_F(CalculatorScreen, IsReadableAtTwiceTheTextSize) {
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(larger.pointSizeF() * 2);
    press("Escape");
    QApplication::setFont(larger);
    window.resize(1200, 900);
    open("Calculator");
    for (auto* button : screen->findChildren<QPushButton*>()) {
        EXPECT_GE(button->width(), button->minimumSizeHint().width()) << plain(button->text());
        EXPECT_GE(button->height(), button->minimumSizeHint().height()) << plain(button->text());
    }
    const QWidget& readout = part("Readout");
    EXPECT_GE(readout.width(), readout.fontMetrics().horizontalAdvance(QString(20, '8')));
    EXPECT_GE(readout.height(), readout.fontMetrics().height());
    press("Escape");
    QApplication::setFont(before);
}

}  // namespace
}  // namespace tavernook
