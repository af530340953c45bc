// A project file that another program has changed while it was open here, as a program does that
// keeps a folder the same on several computers. Neither content is lost: the user says whether his
// own is saved, and the other one stays in any case.
#pragma once

#include <string>

namespace tavernook {

// Before a save at the path. False when the user does not want his own content saved: then all is
// as it was. Else another content lies beside the project as NAME.other.tvk (or "NAME.other 2.tvk"
// ...), too; nobody is asked when there is none. Throws what the file layer throws.
[[nodiscard]] bool keep_other_content(const std::string& path);

}  // namespace tavernook
