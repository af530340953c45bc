// The copy of the project file that a save moves aside, so that there is never only a half-written
// one. It lies beside the project as NAME.previous.tvk and goes away when the new file is complete
// and flushed. After a crash it is still there, and opening the project offers it.
#pragma once

#include <string>

namespace tavernook {

std::string previous_version_path(const std::string& project_path) noexcept;

// Makes the project file the previous version. One that is there from an unfinished save is kept
// instead, and the half-written file deleted, unless the present file is known to be whole. Of a
// file that ended early when it was read a copy stays as NAME.interrupted.tvk. Throws what the file
// layer throws: the save tells of it.
void set_previous_version_aside(const std::string& project_path);

// Throws what the file layer throws.
bool previous_version_exists(const std::string& project_path);

// Before a new project or a copy is written at the path. False, and the user has been told, when
// the name is one of a previous version, or when nothing but the previous version of that project
// is left, which a save would delete. True: what this program knew of a file there is forgotten,
// since the user has agreed to replace it. Throws what the file layer throws.
[[nodiscard]] bool may_start_project_at(const std::string& path);

// Deletes the previous version after a complete save. That it cannot be deleted is no error: the
// next opening deletes it, if it finds the project whole.
void drop_previous_version(const std::string& project_path) noexcept;

// For a previous version that lies beside a project which is not whole: asks. Yes puts it in the
// project file's place and the file that lay there beside it as NAME.interrupted.tvk (or
// "NAME.interrupted 2.tvk" ...); No leaves both as they are. Throws what the file layer throws: the
// opening tells of it.
void offer_previous_version(const std::string& project_path);

// The project that a previous version belongs to; any other path as it is.
std::string project_of_previous_version(const std::string& path) noexcept;

}  // namespace tavernook
