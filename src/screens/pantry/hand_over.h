// The item on show for the screen that waits for one.
#pragma once

#include "basics/values.h"

namespace tavernook {

// By the return mode (platform/screen_ports.h). A screen that is not loaded gets nothing. For the
// shopping list the quantity plays no part; the status bar tells what stands there now.
void hand_over(i16 return_mode, i16 item, f64 quantity);

}  // namespace tavernook
