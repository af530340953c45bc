// The machine's clock, and waiting in an event loop.
#pragma once

#include "platform/clock.h"

namespace tavernook {

class QtClock : public Clock {
  public:
    // To the millisecond.
    Date now() override;

    // Key presses and clicks made meanwhile are delivered afterwards. Returns early only when the
    // program is told to end.
    void wait_seconds(double seconds) override;
};

}  // namespace tavernook
