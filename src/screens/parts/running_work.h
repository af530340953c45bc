// A screen on which something runs that takes its time, as a print does.
#pragma once

namespace tavernook {

class RunningWork {
  public:
    virtual ~RunningWork() = default;

    // Whether ending it now would cost the user what he has asked for.
    virtual bool would_be_lost() const = 0;

    // The project goes and takes the screen along: what runs ends in order, and the message panel
    // tells so. No box, as nobody could answer otherwise.
    virtual void end_work() = 0;
};

}  // namespace tavernook
