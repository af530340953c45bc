// The recent projects of the File menu and the start page: three in the user's settings store, four
// in the settings file. Neither list moves a project up that it has already, and one that was made
// or got a new name is not in the store's, so that tells besides which was open at the last exit.
#pragma once

#include <string>

namespace tavernook {

// Shows those of both, the last one in front, newest first, each once, six at most.
void load_recent_menu() noexcept;

// Puts the path at the top of the store's three; one that is already there stays where it is.
void save_recent_project(const std::string& path) noexcept;

// At the exit: this one comes first in the next run. Nobody is told of a store that fails.
void note_last_project(const std::string& path) noexcept;

}  // namespace tavernook
