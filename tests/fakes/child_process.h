// Runs part of a test in a copy of the process: for code that ends the process or changes its
// rights.
#pragma once

#include <functional>

namespace tavernook {

// The child's exit status: 0 when `body` returned, 1 when a check inside it failed or an exception
// left it, else what it gave to _exit; 128 + the signal's number when a signal ended it.
int exit_status_in_child(const std::function<void()>& body);

}  // namespace tavernook
