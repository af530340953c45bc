// Pictures of the reports' screen over the project that is open.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

void take_report_screens(Main& window, const TakePicture& take);

}  // namespace tavernook
