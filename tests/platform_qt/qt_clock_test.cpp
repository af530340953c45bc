#include "platform_qt/qt_clock.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimer>
#include <cmath>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>

namespace tavernook {
namespace {

// 1 January 1970 is day 25569.
double local_days(std::time_t moment) {
    std::tm local{};
    localtime_r(&moment, &local);
    return 25569.0 + (static_cast<double>(moment) + static_cast<double>(local.tm_gmtoff)) / 86400.0;
}

TEST(QtClock, TellsLocalTime) {
    const double before = local_days(std::time(nullptr));
    const Date now = QtClock().now();
    const double after = local_days(std::time(nullptr) + 1);
    const double rounding = 1e-9;
    EXPECT_GE(now, before - rounding);
    EXPECT_LE(now, after + rounding);
}

TEST(QtClock, TellsPartsOfASecond) {
    QtClock clock;
    bool has_part = false;
    for (int i = 0; i < 5 && !has_part; ++i) {
        const double seconds = clock.now() * 86400.0;
        has_part = std::abs(seconds - std::round(seconds)) > 0.001;
        clock.wait_seconds(0.013);
    }
    EXPECT_TRUE(has_part);
}

// The clock tells milliseconds, those begun not counted.
constexpr double shortest_told = 0.002;

TEST(QtClock, WaitsAtLeastAsLongAsAsked) {
    for (const double seconds : {0.001, 0.0305, 0.12}) {
        QtClock clock;
        const Date before = clock.now();
        clock.wait_seconds(seconds);
        EXPECT_GE((clock.now() - before) * 86400.0, seconds - shortest_told);
    }
}

TEST(QtClock, DoesNotWaitForNothing) {
    int fired = 0;
    QTimer::singleShot(0, qApp, [&] { ++fired; });
    QtClock clock;
    clock.wait_seconds(0);
    clock.wait_seconds(-5);
    clock.wait_seconds(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(fired, 0);
    QApplication::processEvents();
    EXPECT_EQ(fired, 1);
}

TEST(QtClock, OtherEventsGoOnMeanwhileWithoutABusyLoop) {
    int fired = 0;
    int woken = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++fired; });
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &timer,
                     [&] { ++woken; });
    timer.start(5);
    QtClock().wait_seconds(0.3);
    EXPECT_GE(fired, 1);
    EXPECT_GE(woken, 1);
    EXPECT_LE(woken, 1000);  // a busy loop comes round ten thousands of times
}

TEST(QtClock, TheEndOfTheProgramEndsTheWaiting) {
    bool came_back = false;
    QTimer::singleShot(0, qApp, [&] {
        QTimer::singleShot(0, qApp, &QApplication::quit);
        QtClock().wait_seconds(1e6);
        came_back = true;
    });
    QApplication::exec();
    EXPECT_TRUE(came_back);
}

}  // namespace
}  // namespace tavernook
