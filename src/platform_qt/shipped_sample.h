// The sample project that the program carries inside itself.
#pragma once

#include "aids/sample_project.h"

namespace tavernook {

ShippedSample shipped_sample();

}  // namespace tavernook
