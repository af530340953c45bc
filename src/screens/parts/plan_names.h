// The names of what is planned, as the planner's lists show them. A number outside its table, from
// a damaged file, has none.
#pragma once

#include <QString>

#include "basics/values.h"

namespace tavernook {

QString recipe_name(i16 recipe);
QString item_name(i16 item);
QString recipe_unit(i16 recipe);  // of its servings
QString serving_unit(i16 item);   // of its serving size

}  // namespace tavernook
