// Where Faults end in the logic. What one room offers another is a routine, and a routine is
// `noexcept`: it runs inside one of these, shows exactly one box when its work fails, leaves behind
// what its header says, and answers so that its caller knows. A cancelled file dialog (32755) is
// passed over in silence.
//
//     i16 remove_from_lots(i16 item, f64 quantity) noexcept {
//         i16 taken = i16_false;
//         trap_in_module([&] { taken = truth(take(item, quantity)); });
//         return taken;  // 0: the box has been shown, the audit goes on with the next item
//     }
//
// A few routines let the Fault through, because the box is their caller's: that of a screen's
// command, of a save, the end of an audit. Their headers name the Fault, and the structure test
// lists them. What throws else (checked values, tables, the codec, helpers of a room) stays
// indoors.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "basics/fault.h"

namespace tavernook {

// The texts of the boxes.
std::string main_window_message(std::string_view procedure, const Fault& fault);
std::string module_message(const Fault& fault);

// The exception being handled, as a Fault. Call it inside a catch block only.
Fault present_fault();

// A box that cannot be shown, for want of memory say, is no reason to end the program.
void show_fault(const std::string& message) noexcept;

// While one lives and `nobody_is_there`, `show_fault` tells in the message panel what else has a
// box, which would wait for a user.
class Unattended {
  public:
    explicit Unattended(bool nobody_is_there);
    ~Unattended();
    Unattended(const Unattended&) = delete;
    Unattended& operator=(const Unattended&) = delete;

  private:
    bool before_;
};

// True when `work` came to its end; otherwise `on_fault` was called with what stopped it.
template <typename Work, typename OnFault>
bool trap(Work&& work, OnFault&& on_fault) {
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) {
        const Fault fault = present_fault();
        if (fault.number != fault_number::cancel_was_selected) on_fault(fault);
        return false;
    }
}

// The same where nobody is told.
template <typename Work>
bool tried(Work&& work) {
    return trap(std::forward<Work>(work), [](const Fault&) {});
}

// For the handlers of the main window: "Error in Module MAIN." and the procedure.
template <typename Work>
bool trap_in_main(std::string_view procedure, Work&& work) {
    return trap(std::forward<Work>(work), [procedure](const Fault& fault) {
        show_fault(main_window_message(procedure, fault));
    });
}

// For the routines of modules: "Tavernook error: rt6:".
template <typename Work>
bool trap_in_module(Work&& work) {
    return trap(std::forward<Work>(work),
                [](const Fault& fault) { show_fault(module_message(fault)); });
}

// For the commands of the child screens: "there has been an error".
template <typename Work>
bool trap_in_screen(Work&& work) {
    return trap(std::forward<Work>(work),
                [](const Fault&) { show_fault("there has been an error"); });
}

}  // namespace tavernook
