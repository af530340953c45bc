#include "screens/frame/timer_pair.h"

#include <utility>

namespace tavernook {

TimerPair::TimerPair(QObject* owner, std::function<void()> first_tick,
                     std::function<void()> second_tick)
    : first_(owner), second_(owner) {
    first_.setObjectName(QStringLiteral("timer_1"));
    second_.setObjectName(QStringLiteral("timer_2"));
    for (QTimer* timer : {&first_, &second_}) timer->setInterval(milliseconds);
    QObject::connect(&first_, &QTimer::timeout,
                     [this, tick = std::move(first_tick)] { take_turns(first_, second_, tick); });
    QObject::connect(&second_, &QTimer::timeout,
                     [this, tick = std::move(second_tick)] { take_turns(second_, first_, tick); });
}

void TimerPair::start() {
    enabled_ = true;
    if (!runs()) first_.start();
}

void TimerPair::stop() {
    enabled_ = false;
    first_.stop();
    second_.stop();
}

void TimerPair::take_turns(QTimer& ticking, QTimer& next, const std::function<void()>& tick) {
    ticking.stop();
    tick();
    if (enabled_ && !runs()) next.start();
}

}  // namespace tavernook
