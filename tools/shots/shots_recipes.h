// Pictures of the recipe manager.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Fills the open project with a few recipes for it, and empties what it filled afterwards.
void take_recipe_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
