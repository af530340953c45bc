// The one source of the present time, and the one way to wait.
#pragma once

#include "basics/date.h"

namespace tavernook {

class Clock {
  public:
    virtual ~Clock() = default;

    // Local date and time.
    virtual Date now() = 0;

    // Returns when that many seconds have gone; windows repaint meanwhile.
    virtual void wait_seconds(double seconds) = 0;
};

}  // namespace tavernook
