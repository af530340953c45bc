// The copy of the project file that a save moves aside, so that there is never only a half-written
// one. It lies beside the project as NAME.previous.tvk and goes away when the new file is complete
// and flushed. After a crash it is still there, and opening the project offers it.
#pragma once

#include <string>

namespace tavernook {

std::string previous_version_path(const std::string& project_path) noexcept;

// Moves the project file aside. A previous version from an unfinished save is kept instead, and
// the half-written file deleted, unless the present file is known to be whole. Throws what the file
// layer throws: the save tells of it.
void set_previous_version_aside(const std::string& project_path);

// The file at the path has been read whole, or written whole and flushed.
void project_file_is_whole(const std::string& project_path) noexcept;

// Throws what the file layer throws.
bool previous_version_exists(const std::string& project_path);

// Before a new project or a copy is written at the path. False, and the user has been told, when
// the name is one of a previous version, or when nothing but the previous version of that project
// is left, which a save would delete. Throws what the file layer throws.
[[nodiscard]] bool may_start_project_at(const std::string& path);

// Deletes the previous version after a complete save. That it cannot be deleted is no error: the
// user is then asked at the next opening.
void drop_previous_version(const std::string& project_path) noexcept;

// Asks when a previous version lies beside the project. Yes puts it in the project file's place and
// the file that lay there beside it as NAME.interrupted.tvk (or "NAME.interrupted 2.tvk" ...); No
// leaves both as they are. Throws what the file layer throws: the opening tells of it.
void offer_previous_version(const std::string& project_path);

// The project that a previous version belongs to; any other path as it is.
std::string project_of_previous_version(const std::string& path) noexcept;

}  // namespace tavernook
