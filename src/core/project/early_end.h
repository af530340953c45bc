// The words for a project file that ends too early.
#pragma once

#include <string>
#include <vector>

#include "core/project_file/project_file_reader.h"

namespace tavernook {

// One sentence that names what is missing; `missing` is not empty.
std::string early_end_message(const std::string& project_path,
                              const std::vector<project_file::Missing>& missing) noexcept;

}  // namespace tavernook
