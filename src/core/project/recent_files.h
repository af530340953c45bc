// The three recent projects of the File menu, kept in the user's settings store.
#pragma once

#include <string>

namespace tavernook {

// Fills the File menu from the store, newest first.
void load_recent_menu() noexcept;

// Puts the path at the top of the three; one that is already there stays where it is.
void save_recent_project(const std::string& path) noexcept;

}  // namespace tavernook
