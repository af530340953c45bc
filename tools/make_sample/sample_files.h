// The tables -> the sample's files as they come with the program.
#pragma once

#include <filesystem>

#include "sample_tables.h"

namespace tavernook::make_sample {

// The project file; an older one of that name goes first. Fault when it cannot be written.
void write_project(const std::filesystem::path& file);

// The list of resources: the project and the documents, under the names that they have below the
// program's folder.
void write_resource_list(const std::filesystem::path& file, const std::filesystem::path& project,
                         const Documents& documents);

}  // namespace tavernook::make_sample
