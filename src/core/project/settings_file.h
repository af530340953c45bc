// "TVK.dat": the four recent projects, the welcome flag and the main window's geometry. A write
// replaces the file in one step, so that a crash leaves the old or the new one whole.
#pragma once

#include <string>

#include "core/project/settings_file_format.h"
#include "core/project/window_state.h"

namespace tavernook {

// A file that is not there reads as all zero and blank. Throws what the file layer throws.
SettingsRecord read_settings_file();

// Puts the path at the top of the four. Paths that contain "restored", are empty, do not end in
// "tvk" or are longer than the file has room for are left out; one that is there stays in place.
void add_recent_project(const std::string& path) noexcept;

}  // namespace tavernook
