#include "transfer/work_progress.h"

#include "basics/fault.h"
#include "platform/platform.h"

namespace tavernook {

WorkProgress::WorkProgress(std::string_view caption, std::string_view label) {
    save_progress().load(caption, label);
    save_progress().offer_cancel();
    save_progress().show();
    save_progress().workbar(0);
    platform_clock().wait_seconds(1);
}

WorkProgress::~WorkProgress() {
    save_progress().hide();
    save_progress().unload();
}

void WorkProgress::step(int percent) {
    if (percent != shown_) save_progress().workbar(percent);
    shown_ = percent;
    if (save_progress().is_cancelled()) throw Fault(fault_number::cancel_was_selected);
}

}  // namespace tavernook
