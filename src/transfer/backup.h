// Back-up and restore: the project file coded smaller into one file ("home.vzk"), and back.
//
// No back-up is told to be one before it was decoded again and found to be the project, byte for
// byte. Some projects cannot be coded so (transfer/run_length.h): then an exact copy lies beside
// the back-up under its name + ".tvk", there before the back-up is, and restoring offers the copy
// first. A back-up that holds everything takes such a copy of an earlier one away. An older back-up
// is replaced in one step by a new one that is whole; where anything fails it stays as it was.
//
// What is restored becomes "restored.tvk" in the program's folder, and it is written whole before
// the open project is touched. One that is there already is moved aside under a numbered name. The
// texts of recipes and the usage histories are no part of a back-up.
#pragma once

#include <string>

namespace tavernook {

enum class Backup {
    failed,    // told in the message panel, and by a box unless the user cancelled
    complete,  // the back-up is the project
    copied     // an exact copy is; where the back-up could not be made at all, behind a box
};

// Codes the file at `source` into `target` and tells in the message panel why, if that failed. An
// older back-up is as it was then.
Backup compress_file(const std::string& source, const std::string& target) noexcept;

// Decodes the back-up at `source` (of a project file: copies it) to `target`, asks to save the open
// project and opens what was restored in its place. On failure the box has been shown; a back-up
// that is damaged leaves everything as it was, and so does "Cancel".
void decompress_file(const std::string& source, const std::string& target) noexcept;

// Asks for the target and backs up the project file as it lies on the disk. Does nothing without a
// project; a name that would cost a project file is refused in the message panel.
void mnuFile_Backup() noexcept;

// Asks for a back-up and restores it. Cancel changes nothing.
void mnuFile_Restore() noexcept;

}  // namespace tavernook
