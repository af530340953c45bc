// A screen on which something runs that takes its time, as a print does.
#pragma once

namespace tavernook {

class RunningWork {
  public:
    virtual ~RunningWork() = default;

    // The project goes and takes the screen along: what runs ends in order, and the message panel
    // tells so. No box, as nobody could answer otherwise.
    virtual void end_work() = 0;
};

}  // namespace tavernook
