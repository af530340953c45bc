// Where Faults end on the screens. A command, a port method, what Qt calls: each runs inside one of
// these, and nowhere else on the screens is a Fault trapped.
//
// A user's command goes through `Screen::run` (or `Steps::run` in a dialog): one at a time, with a
// look for changes at its end. What another room or screen asks of a screen by its port is guarded:
// the caller's step goes on, and the caller's look comes. What is only tried (a setting to
// remember) is done quietly.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "basics/fault.h"

namespace tavernook {

using Work = std::function<void()>;

// True when the work came to its end; otherwise the user was told "there has been an error". A
// cancelled file dialog is no error and is passed over in silence, but the work did not come to its
// end.
bool guarded(const Work& work) noexcept;

// The same in the command's own words.
bool guarded(const Work& work, const std::function<std::string(const Fault&)>& words) noexcept;

// The same without a word.
bool quietly(const Work& work) noexcept;

// What all screens share: the end of a step. The program looks for changes, and every screen in
// sight follows them.
void end_of_step() noexcept;

// The commands of one screen or dialog, one at a time: a box that a command shows starts no other.
class Steps {
  public:
    // A command of the user's. What stood in the message panel goes; then the command, guarded;
    // then the end of the step. Does nothing while another one runs.
    void run(const Work& command) noexcept;

    bool is_running() const { return *running_; }

  private:
    // Outlives a screen that goes in the middle of its own command.
    std::shared_ptr<bool> running_ = std::make_shared<bool>(false);
};

}  // namespace tavernook
