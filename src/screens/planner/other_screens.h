// The ways from the planner to the recipe manager, to the inventory and to its pages.
#pragma once

#include <string>

#include "basics/values.h"

namespace tavernook {

// To choose what is planned on the day shown; says why not where it may not be planned.
void choose_recipe();
void choose_item();

// Shows what the key of a row names; says so when it has been deleted.
void show_entry(const std::string& key);               // of the day list
void show_recommended_item(const std::string& key);    // of the recommendations
void show_recommended_recipe(const std::string& key);  // of the recommendations

// In the preview: of the month of the selected date, else of its week.
void show_page(bool of_the_month);

}  // namespace tavernook
