#include "platform_qt/qt_clock.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cmath>

namespace tavernook {

namespace {

constexpr double milliseconds_per_day = 86'400'000.0;

// One timer at most runs this long, well inside its range; a longer wait takes several.
constexpr qint64 longest_slice = 3'600'000;

// What a loop returns when its timer ended it; anything else means that the program ends.
constexpr int time_is_up = 1;

}  // namespace

Date QtClock::now() {
    const QDateTime moment = QDateTime::currentDateTime();
    const QDate day = moment.date();
    const QTime time = moment.time();
    return date_from_moment({day.year(), day.month(), day.day()},
                            {time.hour(), time.minute(), time.second()}) +
           time.msec() / milliseconds_per_day;
}

void QtClock::wait_seconds(double seconds) {
    if (!(seconds > 0)) return;
    constexpr double longest_wait = 1e9;
    const auto asked = static_cast<qint64>(std::ceil(std::min(seconds, longest_wait) * 1000));
    const QDeadlineTimer deadline(asked, Qt::PreciseTimer);
    while (!deadline.hasExpired()) {
        // One more, as the time left is cut to whole milliseconds.
        const qint64 slice = std::min(deadline.remainingTime() + 1, longest_slice);
        QEventLoop loop;
        QTimer timer;
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &loop, [&loop] { loop.exit(time_is_up); });
        timer.start(static_cast<int>(slice));
        if (loop.exec(QEventLoop::ExcludeUserInputEvents) != time_is_up) return;
    }
}

}  // namespace tavernook
