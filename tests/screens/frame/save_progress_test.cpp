#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "fakes/test_platform.h"
#include "gui_support/drop_target.h"
#include "gui_support/warning_guard.h"
#include "screens/frame/SaveProgress.h"

namespace tavernook {
namespace {

class ProgressWindow : public testing::Test {
  protected:
    void pass(double seconds) { platform.clock.time += seconds / 86400.0; }
    int bar() { return window.findChild<QProgressBar*>("bar")->value(); }
    QPushButton& cancel() { return *window.findChild<QPushButton*>("Cancel"); }
    std::string label() { return window.findChild<QLabel*>("label")->text().toStdString(); }

    TestPlatform platform;
    SaveProgress window;
};

TEST_F(ProgressWindow, ComesUpOnlyAfterHalfASecondOfWork) {
    window.load("Saving Project", "Saving Project....");
    window.show();
    window.workbar(0);
    pass(0.4);
    window.workbar(25);
    EXPECT_FALSE(window.isVisible());
    pass(0.2);
    window.set_label("Saving Meals to file.");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Saving Project");
    EXPECT_EQ(label(), "Saving Meals to file.");
    EXPECT_EQ(bar(), 25);
}

TEST_F(ProgressWindow, WorkThatWasNotShownStaysUnseen) {
    window.load("Saving Project", "Saving Project....");
    pass(60);
    window.workbar(50);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(window.work_is_running());
}

TEST_F(ProgressWindow, TheBarStaysBetween0And100) {
    window.load("c", "l");
    window.workbar(-5);
    EXPECT_EQ(bar(), 0);
    window.workbar(130);
    EXPECT_EQ(bar(), 100);
    window.load("c", "l");
    EXPECT_EQ(bar(), 0);
}

TEST_F(ProgressWindow, HidingStartsTheWaitAnew) {
    window.load("c", "l");
    window.show();
    pass(1);
    window.workbar(10);
    EXPECT_TRUE(window.isVisible());
    window.hide();
    EXPECT_FALSE(window.isVisible());
    window.workbar(20);
    EXPECT_FALSE(window.isVisible());
    window.show();
    window.workbar(30);
    EXPECT_FALSE(window.isVisible());
    window.unload();
    EXPECT_FALSE(window.work_is_running());
}

TEST_F(ProgressWindow, EscapeAndClosingDoNotTakeItAway) {
    window.load("c", "l");
    window.show();
    pass(1);
    window.workbar(10);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    window.close();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ProgressWindow, HasNoCancelUnlessTheWorkOffersOne) {
    window.load("c", "l");
    window.show();
    pass(1);
    window.workbar(10);
    EXPECT_FALSE(cancel().isVisible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.is_cancelled());
}

TEST_F(ProgressWindow, CancelIsHeardAndTheWindowStays) {
    window.load("c", "l");
    window.offer_cancel();
    window.show();
    pass(1);
    window.workbar(10);
    ASSERT_TRUE(cancel().isVisible());
    EXPECT_FALSE(window.is_cancelled());
    QTest::mouseClick(&cancel(), Qt::LeftButton);
    EXPECT_TRUE(window.is_cancelled());
    EXPECT_FALSE(cancel().isEnabled());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ProgressWindow, EscapeCancelsWhatCanBeCancelled) {
    window.load("c", "l");
    window.offer_cancel();
    window.show();
    pass(1);
    window.workbar(10);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.is_cancelled());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ProgressWindow, TheNextWorkIsNotCancelled) {
    window.load("c", "l");
    window.offer_cancel();
    window.reject();
    window.unload();
    window.load("c", "l");
    EXPECT_FALSE(window.is_cancelled());
    window.show();
    pass(1);
    window.workbar(10);
    EXPECT_FALSE(cancel().isVisible());
    window.offer_cancel();
    EXPECT_TRUE(cancel().isEnabled());
}

TEST_F(ProgressWindow, WhatIsDroppedDuringTheWorkIsRefused) {
    DropTarget other;
    EXPECT_TRUE(other.takes_drop());
    window.load("c", "l");
    EXPECT_FALSE(other.takes_drop());
    window.unload();
    EXPECT_TRUE(other.takes_drop());
}

TEST_F(ProgressWindow, EachStepIsPaintedAtOnce) {
    window.load("c", "first");
    window.show();
    pass(1);
    window.workbar(10);
    class PaintCount : public QObject {
      public:
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++paints;
            return false;
        }
    } count;
    window.findChild<QLabel*>("label")->installEventFilter(&count);
    window.set_label("second");
    EXPECT_EQ(count.paints, 1);
    window.set_label("third");
    EXPECT_EQ(count.paints, 2);
}

}  // namespace
}  // namespace tavernook
