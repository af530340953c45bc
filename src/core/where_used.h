// Who refers to a row: comma-terminated lists for the questions that a delete asks, empty when
// nobody does.
#pragma once

#include <string>

#include "core/records.h"

namespace tavernook {

// What can be replaced while it is in use; the numbers are those of the replacement screen's port.
enum class ReplacementType : i16 { item = 1, store = 2, unit = 3 };

// "ITEM:" + name + "," for each live item that is bought there.
std::string item_store_users(i16 store) noexcept;

// By qty_units or serving_size_units; the units of the nutrients are not looked at.
std::string item_unit_users(i16 unit) noexcept;

// "MEAL:" + name + "," for each live recipe with the item among its ingredients, then "DAY:" +
// date + "," for each live day with the item among its planned ones; one entry a place.
std::string item_users(i16 item) noexcept;

// "DAY:" + date + "," for each place of a live day that holds the recipe, in slot order.
std::string meal_users(i16 meal) noexcept;

// "m/d/yyyy" without leading zeros.
std::string day_date_text(const DayRecord& day) noexcept;

}  // namespace tavernook
