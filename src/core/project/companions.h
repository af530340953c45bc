// What lies beside the project file and goes with it: the texts of its recipes (recipes/documents)
// and the usage histories of its items (inventory/usage_files). Both change on the disk before the
// project is saved, and follow what becomes of it here and nowhere else:
//
//   saved                 prepare_companions, the project file is written, commit_companions
//   under a new name      the same, while a CompanionsTakenAlong lives
//   gone without a save   drop_companions, behind the project's screens
//   opened, or new        settle_companions finishes or clears away what an interrupted run left
//
// Histories are best effort: what fails is one sentence in the status bar, and no more.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

namespace tavernook {

// Save As: lives from before the project's path changes until the save has ended. What a save that
// failed has prepared goes with it, and the entries of the texts are as they were.
class CompanionsTakenAlong {
  public:
    CompanionsTakenAlong();
    ~CompanionsTakenAlong();
    CompanionsTakenAlong(const CompanionsTakenAlong&) = delete;
    CompanionsTakenAlong& operator=(const CompanionsTakenAlong&) = delete;
};

// The path of the project that a Save As leaves; empty while none is under way.
const std::string& project_left() noexcept;

// Before the project file is touched. Only a new name has anything to prepare. Throws what the file
// layer throws: a text that cannot be taken along fails the save.
void prepare_companions();

// The project file is whole and on the disk.
void commit_companions() noexcept;

// The project goes, saved or not: texts and histories are those of its last save. Does nothing when
// it is called again.
void drop_companions() noexcept;

// The file as it lies there; nothing when it cannot be looked at.
std::optional<FileStamp> stamp_if_readable(const std::string& path) noexcept;

// The project at `project_path` has been read, or made, and no stock has moved yet. `found` is its
// file as it was found, before the user was asked about a previous version; of no file when it was
// not whole or is new. With nothing everything is left as it lies there.
void settle_companions(const std::optional<FileStamp>& found) noexcept;

}  // namespace tavernook
