// The recent projects of the File menu and the start page: three in the user's settings store, four
// in the settings file.
#pragma once

#include <string>

namespace tavernook {

// Shows those of both, newest first, each once, six at most.
void load_recent_menu() noexcept;

// Puts the path at the top of the store's three; one that is already there stays where it is.
void save_recent_project(const std::string& path) noexcept;

}  // namespace tavernook
