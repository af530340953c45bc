// Pictures of the scan list, the label sheet and one barcode.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Of the project that is open.
void take_scanning_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
