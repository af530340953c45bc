// The names of what is planned and of the days, as the planner's lists show them. A number outside
// its table, from a damaged file, has none.
#pragma once

#include <QDate>
#include <QString>

#include "basics/values.h"

namespace tavernook {

QString recipe_name(i16 recipe);
QString item_name(i16 item);
QString recipe_unit(i16 recipe);  // of its servings
QString serving_unit(i16 item);   // of its serving size

// "Tuesday, November 24" in the user's language and order of day and month.
QString spoken_date(const QDate& date);

}  // namespace tavernook
