// The way of a recipe from the recipe manager onto the plan.
#pragma once

#include <QDate>
#include <optional>

#include "core/changes.h"

namespace tavernook {

// The date for which the planner wants a recipe: the one that it shows.
QDate date_of_the_planner();

// Asks how many servings, and has the planner plan them, which says what is planned then; it is
// loaded where it is not there. True when it was asked to; otherwise nothing has changed. For a
// date that waits, the planner must still show it, and it must not have been audited meanwhile: the
// status bar says so. It also says so when the recipe has gone. What does not read as a number
// other than 0 plans nothing. No recipe (a category, say) asks nothing.
bool put_on_plan(RowRef recipe, std::optional<QDate> waiting);

}  // namespace tavernook
