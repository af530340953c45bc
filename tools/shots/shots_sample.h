// Pictures of the sample household, opened as a user opens it.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Lays the sample out, opens it from the start page and closes it afterwards.
void take_sample_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
