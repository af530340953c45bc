// The lists of the project as one text file for spreadsheets: stores, units and items
// (docs/formats/csv_export.md). Nothing in the program reads it.
#pragma once

#include <string>

namespace tavernook {

// Replaces an older file in one step; where it fails or is cancelled that stays. False then, told
// in the message panel, and by a box unless the user cancelled.
bool export_to_csv(const std::string& target) noexcept;

// Asks for the target. Does nothing without a project; a name that would cost a project file is
// refused in the message panel.
void mnuFile_CSVExport() noexcept;

}  // namespace tavernook
