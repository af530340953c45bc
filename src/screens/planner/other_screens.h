// The ways from the planner to the recipe manager and to the inventory.
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

}  // namespace tavernook
