// Saving the project at `project_path`.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Writes the whole project. Nonzero `silent` leaves the progress window unshown. False after a
// failure, whose box has been shown: the file is then as far as it was written, and the previous
// version lies beside it. False, too, when another program has changed the file and the user, being
// asked, does not want to save over it: nothing has changed then.
//
// The new file is the old one's successor in all but its bytes: mode, owner, group, access list and
// extended attributes. A write-protected file is not replaced (error 70, nothing has changed).
[[nodiscard]] bool Project_Save(const i16& silent) noexcept;

}  // namespace tavernook
