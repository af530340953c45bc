// The item screen beside stock that moves without it.
#pragma once

#include "basics/values.h"

namespace tavernook {

// The quantity box of the item screen takes the stored quantity, where that screen shows the item.
void refresh_shown_quantity(i16 item) noexcept;

}  // namespace tavernook
