// Small files that are replaced in one step: whatever happens, the old or the new one is whole.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

// Writes the bytes beside the file as PATH.new, flushes them and gives them the file's name. The
// folder must be there, and is not flushed. Throws a Fault when it fails; the file is then as it
// was.
void replace_file(const std::string& path, std::string_view bytes);

}  // namespace tavernook
