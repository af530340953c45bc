// The exchange of inventories: a file ".ipf" carries items to another project, whole and with the
// names of their units, store and category (docs/formats/inventory_file.md), and a spreadsheet's
// ".csv" brings items in (transfer/csv_import.h). The status window shows line by line what is
// done; what has come of it is its last line and stands in the message panel.
//
// An import comes in as a whole or not at all: on a Fault, for a damaged file and on "Cancel" the
// project is as it was. So is an older file under the name of an export that fails or is cancelled.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

class ImportReferences;

// Asks whether all items or those of the present category go out, and writes them; with the answer
// Cancel a file without items. On failure the status window has said why.
void export_inventory(const std::string& target) noexcept;

// Asks for each item whose name is in the inventory already: Yes gives that one the category that
// the file names and changes nothing else, No adds the item of the file beside it. Items for which
// the inventory has no room are left out and told. The stock of a new item lies in its first lot;
// its quantity is 0 until the lots are summed.
void import_inventory(const std::string& source) noexcept;

// Gives the item the category of that name, a new one where no item category bears it.
void find_catagory_for_item(std::string_view name, i16 item, ImportReferences& references) noexcept;

// The commands: they ask for the file. An import goes by the ending of its name; one with another
// ending does nothing, and the message panel says so.
void inventory_import() noexcept;
void inventory_export() noexcept;

}  // namespace tavernook
