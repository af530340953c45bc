// What the shopping list's screen, its page and its file show: the rows, the texts of their cells
// and the two totals. All of it is computed from the items and stale as soon as they change.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/project_data.h"

namespace tavernook {

// In the order in which they stand; the first one always does.
enum class ListColumn { item, category, store, store_order, quantity, cost, units, sub_total };
inline constexpr std::array<ListColumn, 8> list_columns = {
    ListColumn::item,     ListColumn::category, ListColumn::store, ListColumn::store_order,
    ListColumn::quantity, ListColumn::cost,     ListColumn::units, ListColumn::sub_total};

// "Item", "SO", "Cost/Unit" ...
std::string column_title(ListColumn column) noexcept;

// The store order has two digits, so that sorting by its text sorts by its number. What names no
// row of its table is blank.
std::string cell_text(ListColumn column, i16 item) noexcept;

extern Table<i16, item_capacity> list_items;  // the items shown, from row 1; 0 behind the last
extern i16 list_count;                        // rows shown
extern i16 selected_list_item;                // 0 = none
extern std::string total_text;                // what all of it costs, tax included: "$10.75"
extern std::string tax_text;                  // the tax in per cent: "%7.50"

// Fills the five above (the selection stays while its item is shown), with the progress window.
// Shown are the items on the list whose shopping_quantity is not 0, by number.
void collect_list_items() noexcept;

// The tax as the screen's label shows it: "7.50%".
std::string tax_label() noexcept;

// The live items, by number: what can be picked for the list.
std::vector<i16> quick_pick_items() noexcept;

// The item's name, what is in stock, and the level at which it is bought again.
std::string quick_pick_tip(i16 item) noexcept;

// The key of an item's row, in both lists: its number + "t".
std::string list_key(i16 item) noexcept;

}  // namespace tavernook
