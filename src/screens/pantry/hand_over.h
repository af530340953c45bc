// The item on show for the screen that waits for one.
#pragma once

#include "basics/values.h"

namespace tavernook {

// By the return mode (platform/screen_ports.h). A screen that is not loaded gets nothing.
void hand_over(i16 return_mode, i16 item, f64 quantity);

}  // namespace tavernook
