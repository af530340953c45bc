// The sample's sources -> the global tables, with 1 January 2000 as the present day. Anything that
// does not fit together is a SourceError, which tells file and line.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "csv_table.h"

namespace tavernook::make_sample {

// The documents of the recipes: their names in the folder "recipes" and where they come from.
using Documents = std::map<std::string, std::filesystem::path>;

// Resets the tables and fills them from the folder.
Documents fill_tables(const std::filesystem::path& folder);

// The steps, in this order.
void add_units(const std::vector<Row>& rows);
void add_stores(const std::vector<Row>& rows);
void add_categories(const std::vector<Row>& rows);
void add_items(const std::vector<Row>& rows, const std::vector<Row>& foods);
void add_lots(const std::vector<Row>& rows);
Documents add_recipes(const std::vector<Row>& rows, const std::filesystem::path& documents);
void add_ingredients(const std::vector<Row>& rows);
void add_plan(const std::vector<Row>& rows);
void add_measures(const std::vector<Row>& rows);
void add_settings(const std::vector<Row>& rows);

// What the scan for the shopping list would find on the present day.
void mark_shopping_list();

// Slots by name; the row fails when there is none. An empty unit is none, 0.
i16 unit_of(const Row& row, const std::string& column);
i16 item_of(const Row& row, const std::string& column);
i16 recipe_of(const Row& row, const std::string& column);
i16 category_of(const Row& row, const std::string& column, bool of_recipes);

// 12 or 13 digits with a right check digit in the range that shops use among themselves.
bool is_in_store_barcode(const std::string& digits);

}  // namespace tavernook::make_sample
