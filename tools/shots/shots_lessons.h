// The welcome dialog and the lesson reader beside the screens.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

class Main;

// The sample household is open.
void take_lessons(Main& window, const TakePicture& take);

}  // namespace tavernook
