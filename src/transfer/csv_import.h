// Items from a spreadsheet, as text (docs/formats/csv_import.md; transfer/csv_lines.h reads it).
#pragma once

#include <string>

namespace tavernook {

// Makes an item of each row, at most as many as the file's first line says. Rows without anything
// in them are passed over. Left out, and told with their line, are rows with a figure or a date
// that cannot be read or does not fit, and rows for which the inventory has no room. Units, stores
// and categories that the project does not know come into being, and stay away where their tables
// are full: nothing in use is overwritten.
//
// A file that cannot be read changes nothing, and so does "Cancel" in the status window; both are
// told (transfer/exchange_status.h).
void import_csv(const std::string& path) noexcept;

}  // namespace tavernook
