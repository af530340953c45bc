// A shopping list in a file of its own, ".lst": which items are on it and which columns are shown.
// Items go by their numbers and bring their own quantities, so a list belongs to its project.
//
// The file has 20,101 bytes, written by position (from 1), little-endian, with zeros between:
//   10    i16  rows
//   20    i16  the column of categories is shown, -1 or 0; at 30 of stores, 40 store orders,
//              50 quantities, 60 cost, 70 units, 80 sub totals
//   100   i16  10,001 item numbers; the first is not used
#pragma once

#include <array>
#include <string>

#include "basics/values.h"

namespace tavernook {

// In the order of `list_columns` behind its first, which is always shown.
using ShownColumns = std::array<bool, 7>;

// Writes the rows of `list_items`, replacing the file in one step. False, after "there has been an
// error", when that failed; an older file is as it was then.
[[nodiscard]] bool Save_Shoplist(const std::string& path, const ShownColumns& shown) noexcept;

// Takes every item off the list and puts those of the file on it; a free number is put on as well,
// one outside the table is passed over. Sets `shown`. A short file gives what it holds: columns
// that it does not tell of stay as they were. The caller collects and shows the list anew. False,
// after "there has been an error" and with nothing changed, when the file cannot be read.
[[nodiscard]] bool populate_loadlist(const std::string& path, ShownColumns& shown) noexcept;

}  // namespace tavernook
