#pragma once

#include "shots/shots_inventory.h"

namespace tavernook {

// All icons at three sizes, and disabled and selected.
void take_icons(const TakePicture& take);

}  // namespace tavernook
