// Opening the project at `project_path`; saving it comes along.
#pragma once

#include "core/project/project_save.h"

namespace tavernook {

// Reads the project into the tables, which the caller has reset, and brings the screens up. When it
// gives up, project_load_failed is -1, the tables are filled as far as the reading came, nothing on
// the disk has changed, and the caller closes the project.
void Project_Open() noexcept;

}  // namespace tavernook
