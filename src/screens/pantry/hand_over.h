// The item on show for the screen that waits for one.
#pragma once

#include <QString>

#include "basics/values.h"

namespace tavernook {

// What a number of servings of the item comes to: "8 x 2 oz = 16 oz". Empty for no item.
QString servings_text(i16 item, f64 servings);

// By the return mode (platform/screen_ports.h). A screen that is not loaded gets nothing. The
// message panel tells what was really added and where; where the other screen refuses, it has said
// why. For the shopping list the number plays no part.
void hand_over(i16 return_mode, i16 item, f64 servings);

}  // namespace tavernook
