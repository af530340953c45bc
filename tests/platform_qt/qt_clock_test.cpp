#include "platform_qt/qt_clock.h"

#include <QApplication>
#include <QElapsedTimer>
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

TEST(QtClock, WaitsAtLeastAsLongAsAsked) {
    for (const double seconds : {0.001, 0.0305, 0.12}) {
        QElapsedTimer timer;
        timer.start();
        QtClock().wait_seconds(seconds);
        EXPECT_GE(static_cast<double>(timer.nsecsElapsed()), seconds * 1e9);
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
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, qApp, [&] { ++fired; });
    timer.start(5);
    const std::clock_t used_before = std::clock();
    QtClock().wait_seconds(0.3);
    const double used = static_cast<double>(std::clock() - used_before) / CLOCKS_PER_SEC;
    EXPECT_GE(fired, 2);
    EXPECT_LT(used, 0.15);
}

TEST(QtClock, TheEndOfTheProgramEndsTheWaiting) {
    QElapsedTimer timer;
    timer.start();
    QTimer::singleShot(0, qApp, [] {
        QTimer::singleShot(0, qApp, &QApplication::quit);
        QtClock().wait_seconds(30);
    });
    QApplication::exec();
    EXPECT_LT(timer.elapsed(), 15'000);
}

}  // namespace
}  // namespace tavernook
