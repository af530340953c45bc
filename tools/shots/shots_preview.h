// Pictures of the print preview with each kind of page.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Of the project that is open, whose shopping list is on show.
void take_preview_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
