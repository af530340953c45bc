// Pictures of the help's window.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// Of the help file that lies beside the program which is built.
void take_help(const TakePicture& take);

}  // namespace tavernook
