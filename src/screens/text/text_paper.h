// The colours of the sheet that a recipe is written on.
#pragma once

#include <QPalette>

namespace tavernook {

// Of what is around, the lighter one as paper: a recipe's own colours are meant for light paper, so
// that a dark palette's pair changes places.
QPalette paper(const QPalette& around);

}  // namespace tavernook
