// Saving the project at `project_path`.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Writes the whole project. Nonzero `silent` leaves the progress window unshown. False after a
// failure, whose box has been shown: the file is then as far as it was written, and the previous
// version lies beside it.
[[nodiscard]] bool Project_Save(const i16& silent) noexcept;

}  // namespace tavernook
