// The files that come with the program, placed where the user may change them.
#pragma once

#include <string>

namespace tavernook {

// Makes `program_folder` with "recipes", "dat", "reports" and "barcode", and copies what is missing
// there from `from_folder`, subfolders too. What is there already stays as it is. False when
// something could not be placed; the rest is.
[[nodiscard]] bool install_program_files(const std::string& from_folder,
                                         const std::string& program_folder);

}  // namespace tavernook
