// Saving and opening the project at `project_path`.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Writes the whole project. Nonzero `silent` leaves the progress window unshown. False after a
// failure, whose box has been shown: the file is then as far as it was written, and the previous
// version lies beside it.
[[nodiscard]] bool Project_Save(const i16& silent);

// Reads the project into the tables, which the caller has reset, and brings the screens up. When it
// gives up, project_load_failed is -1, the tables are filled as far as the reading came, nothing on
// the disk has changed, and the caller closes the project.
void Project_Open();

}  // namespace tavernook
