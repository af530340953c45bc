// Two timers that take turns: the tick of each stops itself and starts the other, so that the
// event loop runs between two ticks however long one takes.
#pragma once

#include <QTimer>
#include <functional>

namespace tavernook {

class TimerPair {
  public:
    static constexpr int milliseconds = 500;

    // The timers become children of `owner` with the object names "timer_1" and "timer_2".
    TimerPair(QObject* owner, std::function<void()> first_tick, std::function<void()> second_tick);

    // Starts the pair with the first timer; one that runs already goes on.
    void start();
    void stop();
    bool runs() const { return first_.isActive() || second_.isActive(); }

  private:
    void take_turns(QTimer& ticking, QTimer& next, const std::function<void()>& tick);

    QTimer first_;
    QTimer second_;
    bool enabled_ = false;
};

}  // namespace tavernook
