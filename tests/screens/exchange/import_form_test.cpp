#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "gui_support/drop_target.h"
#include "gui_support/waiting.h"
#include "gui_support/warning_guard.h"
#include "screens/exchange/ImportForm.h"

namespace tavernook {
namespace {

class StatusWindow : public testing::Test {
  protected:
    QListWidget& list() { return *window.findChild<QListWidget*>("List1"); }
    QPushButton& button() { return *window.findChild<QPushButton*>("button"); }

    QWidget program;
    ImportForm window{&program};
};

TEST_F(StatusWindow, TellsLineByLineWhatIsDone) {
    window.begin("Import Status");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Import Status");
    EXPECT_TRUE(window.isModal());
    window.add_line("Importing Inventory");
    window.add_line("Importing Item Jam \xE4");
    window.workbar(50);
    window.end();
    ASSERT_EQ(list().count(), 2);
    EXPECT_EQ(list().item(1)->text(), QStringLiteral("Importing Item Jam ä"));
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_EQ(window.findChild<QProgressBar*>("bar")->value(), 50);
}

TEST_F(StatusWindow, TheLastLineStandsWholeBehindTheWork) {
    window.begin("Import Status");
    const auto& outcome = *window.findChild<QLabel*>("outcome");
    EXPECT_FALSE(outcome.isVisible());
    window.add_line(
        "foods.csv: 3 items came in; 1 row was left out, line 5: the cost is too large.");
    window.end();
    EXPECT_TRUE(outcome.isVisible());
    EXPECT_TRUE(outcome.wordWrap());
    EXPECT_EQ(outcome.text(), list().item(0)->text());
    EXPECT_EQ(button().accessibleDescription(), outcome.text());
    window.begin("Import Status");
    EXPECT_FALSE(outcome.isVisible());
}

TEST_F(StatusWindow, WhatComesBehindTheWorkIsToldAtOnce) {
    window.begin("Import Status");
    window.end();
    window.add_line("last");
    ASSERT_EQ(list().count(), 1);
}

TEST_F(StatusWindow, TheButtonCancelsTheWork) {
    window.begin("Import Status");
    EXPECT_EQ(button().text(), "&Cancel");
    EXPECT_FALSE(window.is_cancelled());
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_TRUE(window.is_cancelled());
    EXPECT_FALSE(button().isEnabled());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(StatusWindow, EscapeCancelsTheWorkAndThenCloses) {
    window.begin("Import Status");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.is_cancelled());
    EXPECT_TRUE(window.isVisible());
    window.end();
    EXPECT_TRUE(button().isEnabled());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(StatusWindow, ClosingCancelsTheWorkAndLeavesTheWindow) {
    window.begin("Import Status");
    window.close();
    EXPECT_TRUE(window.is_cancelled());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(StatusWindow, BehindTheWorkTheButtonCloses) {
    window.begin("Import Status");
    window.end();
    EXPECT_EQ(button().text(), "C&lose");
    EXPECT_TRUE(window.isVisible());
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(StatusWindow, BeginsAnew) {
    window.begin("Import Status");
    window.add_line("first");
    window.reject();
    window.end();
    window.begin("Export Status");
    EXPECT_FALSE(window.is_cancelled());
    window.add_line("second");
    window.end();
    ASSERT_EQ(list().count(), 1);
    EXPECT_EQ(list().item(0)->text(), "second");
    window.begin("Import Status");
    EXPECT_EQ(button().accessibleDescription(), "");
    window.end();
}

TEST_F(StatusWindow, WhatIsDroppedDuringTheWorkIsRefused) {
    DropTarget other;
    EXPECT_TRUE(other.takes_drop());
    window.begin("Import Status");
    EXPECT_FALSE(other.takes_drop());
    window.end();
    EXPECT_TRUE(other.takes_drop());
}

TEST_F(StatusWindow, EnterClosesItBehindTheWorkAndCancelsNothing) {
    window.begin("Import Status");
    ASSERT_TRUE(becomes_active(window));
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(window.is_cancelled());
    window.end();
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tavernook
