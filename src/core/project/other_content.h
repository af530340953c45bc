// A project file that another program has changed while it was open here, as a program does that
// keeps a folder the same on several computers. Neither content is lost: the user says whether his
// own is saved, and the other one stays in any case.
#pragma once

#include <optional>
#include <string>

namespace tavernook {

// Before a save at the path. Nothing when the user does not want his own content saved: then all is
// as it was. Else where the other content lies now, as NAME.other.tvk (or "NAME.other 2.tvk" ...)
// beside the project; empty when there was none and nobody was asked. Throws what the file layer
// throws.
[[nodiscard]] std::optional<std::string> put_other_content_aside(const std::string& path);

}  // namespace tavernook
