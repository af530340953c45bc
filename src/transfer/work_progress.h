// The progress window over work that the user can cancel: it lives as long as the work.
#pragma once

#include <string_view>
#include <utility>

#include "core/trap.h"
#include "transfer/run_length.h"

namespace tavernook {

class WorkProgress {
  public:
    // Shows the window with its bar at 0, and waits a second, as all work of this kind does.
    WorkProgress(std::string_view caption, std::string_view label);
    ~WorkProgress();
    WorkProgress(const WorkProgress&) = delete;
    WorkProgress& operator=(const WorkProgress&) = delete;

    // Moves the bar. Throws Fault 32755, which the commands pass over in silence, when the user has
    // pressed "Cancel".
    void step(int percent);

    // The same, for what hears of progress; this object must outlive it.
    Progress steps() {
        return [this](int percent) { step(percent); };
    }

  private:
    int shown_ = 0;
};

// `trap`, and "Cancel" is told, too: all that ends the work early is.
template <typename Work, typename OnFault, typename OnCancel>
bool trap_work(Work&& work, OnFault&& on_fault, OnCancel&& on_cancel) {
    bool failed = false;
    const bool done = trap(std::forward<Work>(work), [&](const Fault& fault) {
        failed = true;
        on_fault(fault);
    });
    if (!done && !failed) on_cancel();
    return done;
}

}  // namespace tavernook
