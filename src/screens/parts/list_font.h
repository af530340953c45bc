// The size of the text in the lists of the main screens, which the project's settings choose.
#pragma once

#include "basics/values.h"

class QAbstractItemView;

namespace tavernook {

// The list takes the project's font size now, and any other size from then on.
void follow_font_size(QAbstractItemView& list);

// To every list that follows, without storing it. 0 = the size of the system's own lists.
void apply_font_size(i16 points);

}  // namespace tavernook
