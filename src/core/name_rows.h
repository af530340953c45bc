// Stores and units: two tables of the same shape and the routines over them, mirror images of each
// other. Items refer to a row by its slot, so deleting a row that is in use asks for another one to
// take its place.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/project_data.h"

namespace tavernook {

// What the lists of the two screens show: slot numbers from entry 1, 0 behind the last.
extern std::array<i16, store_capacity + 1> store_list_map;
extern std::array<i16, unit_capacity + 1> unit_list_map;

// Nonzero: accepting a name changes the list's current row; 0: it makes a new row.
extern i16 store_edit_mode;
extern i16 unit_edit_mode;

// The row, counted from 0, on which the screen's list stands.
extern i16 store_list_row;
extern i16 unit_list_row;

// The first free slot. A box warns when the search comes to the last one, free or not; that slot is
// then the result and the next record overwrites it.
i16 find_free_store() noexcept;
i16 find_free_unit() noexcept;

void accept_store(std::string_view name) noexcept;
void accept_unit(std::string_view name) noexcept;

// Rebuilds the map. A live row whose name is blank is freed.
void refresh_store_list() noexcept;
void refresh_unit_list() noexcept;

// `rows` are the selected rows of the list, counted from 0, ascending. For a row in use the user is
// asked: Yes opens the replacement screen, No ends the whole command.
void delete_selected_stores(const std::vector<int>& rows) noexcept;
void delete_selected_units(const std::vector<int>& rows) noexcept;

// The boxes of the item screen that list names.
void refresh_store_combo() noexcept;
void refresh_unit_combos() noexcept;

// The first slot, free or live, whose right-trimmed name is the argument; 0 when there is none. A
// blank argument finds the first blank slot.
i16 CheckStores(std::string_view name) noexcept;
i16 CheckUnits(std::string_view name) noexcept;

}  // namespace tavernook
