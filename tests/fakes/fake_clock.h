// A clock that stands still until a test moves it or the program waits.
#pragma once

#include <functional>

#include "platform/clock.h"

namespace tavernook {

class FakeClock : public Clock {
  public:
    Date now() override { return time; }
    void wait_seconds(double seconds) override {
        time += seconds / 86400.0;
        waited += seconds;
        if (meanwhile) meanwhile();
    }

    Date time = 45427.5;  // Wednesday, 15 May 2024, 12:00
    double waited = 0;    // seconds in total

    std::function<void()> meanwhile;  // what happens during each wait
};

}  // namespace tavernook
