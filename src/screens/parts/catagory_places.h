// Where categories stand in a tree of one kind of them, whatever a damaged file says of their
// parents.
#pragma once

#include <QString>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// Small letters without their accents, for finding and sorting.
QString folded(const QString& text);

// Whether a row is a live category of the kind that the tree shows.
using CatagoryKind = bool (*)(i16 row);

// The category beneath which a category is shown; 0 is the top. A circle of parents, or a parent
// of another kind, leads there.
i16 catagory_above(i16 row, CatagoryKind is_shown);

// All of the kind, by name.
std::vector<i16> sorted_catagories(CatagoryKind is_shown);

}  // namespace tavernook
