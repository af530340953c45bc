// Pictures of the label sheet and of one barcode.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Of the project that is open.
void take_label_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
