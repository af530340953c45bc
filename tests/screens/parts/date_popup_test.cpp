// The calendar that pops up beside a field.
#include "screens/parts/date_popup.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

#include "fakes/test_platform.h"
#include "gui_support/waiting.h"
#include "gui_support/warning_guard.h"

namespace tavernook {
namespace {

// The fakes' clock stands at 15 May 2024.
class DatePopupTest : public testing::Test {
  protected:
    void SetUp() override {
        screen.resize(400, 300);
        field.setGeometry(20, 20, 120, 24);
        screen.show();
        ASSERT_TRUE(becomes_active(screen));
        field.setFocus();
    }
    void ask() { popup.ask(field, field.rect(), "Best before"); }
    QCalendarWidget& calendar() { return *popup.findChild<QCalendarWidget*>("days"); }
    QWidget& days_shown() { return *calendar().findChild<QTableView*>("qt_calendar_calendarview"); }

    TestPlatform platform;
    QWidget screen;
    QLineEdit field{&screen};
    DatePopup popup{screen, {"box", "days"}};
    QSignalSpy picked{&popup, &DatePopup::picked};
};

TEST_F(DatePopupTest, ComesUpUnderTheFieldWithTodayMarked) {
    EXPECT_FALSE(popup.isVisible());
    ask();
    EXPECT_TRUE(popup.isVisible());
    EXPECT_EQ(popup.objectName(), "box");
    EXPECT_EQ(calendar().selectedDate(), QDate(2024, 5, 15));
    EXPECT_EQ(calendar().accessibleName(), "Best before");
    EXPECT_EQ(popup.findChild<QLabel*>("days_label")->text(), "Best before");
    EXPECT_GE(popup.y(), field.mapToGlobal(QPoint(0, 0)).y());
}

TEST_F(DatePopupTest, TellsTheMonthThatItShows) {
    ask();
    const auto name_of = [this](const char* part) {
        return calendar().findChild<QWidget*>(QLatin1String(part))->accessibleName().toStdString();
    };
    EXPECT_EQ(name_of("qt_calendar_monthbutton"), "Month: May");
    EXPECT_EQ(name_of("qt_calendar_yearbutton"), "Year: 2024");
    EXPECT_EQ(name_of("qt_calendar_calendarview"), "Days of May 2024");
    QTest::keyClick(&days_shown(), Qt::Key_PageDown);
    EXPECT_EQ(name_of("qt_calendar_monthbutton"), "Month: June");
    EXPECT_EQ(name_of("qt_calendar_calendarview"), "Days of June 2024");
}

TEST_F(DatePopupTest, StaysOnTheScreen) {
    const QRect all = screen.screen()->availableGeometry();
    screen.move(all.right() - 60, all.bottom() - 60);
    ask();
    EXPECT_TRUE(all.contains(popup.geometry()))
        << popup.x() << "," << popup.y() << " " << popup.width() << "x" << popup.height();
}

TEST_F(DatePopupTest, TellsTheDayOnceAndGivesTheFocusBack) {
    ask();
    QTest::keyClick(&days_shown(), Qt::Key_Right);
    QTest::keyClick(&days_shown(), Qt::Key_Return);
    Q_EMIT calendar().activated(QDate(2024, 5, 16));  // the second half of a double click
    ASSERT_EQ(picked.count(), 1);
    EXPECT_EQ(picked[0][0].toDate(), QDate(2024, 5, 16));
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &field);
    EXPECT_EQ(date_of(QDate(2024, 5, 16)), 45428);
}

TEST_F(DatePopupTest, EscapeTellsNothing) {
    ask();
    QTest::keyClick(&popup, Qt::Key_Escape);
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(picked.count(), 0);
    EXPECT_EQ(QApplication::focusWidget(), &field);
}

// A year is typed digit by digit, and most of its beginnings are far away.
TEST_F(DatePopupTest, DaysThatAreTypedAreNearEnoughForAnythingThatKeeps) {
    ask();
    for (const char* typed : {"12", "01", "26"}) {
        QTest::keyClicks(&days_shown(), typed);
    }
    const QDate day = calendar().selectedDate();
    EXPECT_LT(std::abs(day.daysTo(QDate(1990, 1, 1))), 32768);
    EXPECT_LT(std::abs(day.daysTo(QDate(2078, 12, 31))), 32768);
    EXPECT_EQ(calendar().minimumDate(), QDate(1990, 1, 1));
    EXPECT_EQ(calendar().maximumDate(), QDate(2078, 12, 31));
    popup.hide();
}

}  // namespace
}  // namespace tavernook
