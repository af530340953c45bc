// Pictures of the item screen.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Fills the open project with a small pantry for it, and empties what it filled afterwards.
void take_inventory_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
