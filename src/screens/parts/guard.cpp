#include "screens/parts/guard.h"

#include "core/changes.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "screens/parts/screens_in_sight.h"

namespace tavernook {

namespace {

// A box that cannot be shown, out of memory say, is no reason to end the program.
bool trapped(const Work& work, const std::function<std::string(const Fault&)>& words) noexcept {
    try {
        return trap(work, [&](const Fault& fault) { show_fault(words(fault)); });
    } catch (...) {
        return false;
    }
}

}  // namespace

bool guarded(const Work& work) noexcept {
    return trapped(work, [](const Fault&) { return std::string("there has been an error"); });
}

bool guarded(const Work& work, const std::function<std::string(const Fault&)>& words) noexcept {
    return trapped(work, words);
}

bool quietly(const Work& work) noexcept {
    return trap(work, [](const Fault&) {});
}

void end_of_step() noexcept {
    quietly([] { look_for_changes(); });
    follow_in_sight();
}

void Steps::run(const Work& command) noexcept {
    if (*running_) return;
    const std::shared_ptr<bool> running = running_;
    *running = true;
    guarded([&] {
        main_window().set_status(message_panel, "");
        command();
    });
    *running = false;
    end_of_step();
}

}  // namespace tavernook
