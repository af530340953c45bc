// Pictures of the planner.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Fills the open project with a month of plans for it, and empties what it filled afterwards.
void take_planner_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
