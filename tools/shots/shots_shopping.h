// Pictures of the shopping list's screen.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Fills the open project with a week's shopping for it, and empties what it filled afterwards.
void take_shopping_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
