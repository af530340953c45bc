// The files of the usage history: each item's saved history is a ".dat" file, and the moves since
// the last save are in a ".tmp" working copy beside it. Histories are best effort: none of this
// stops a stock move, a save or an exit. What fails is answered, so that the caller tells it.
//
// The program knows the working copies that it has made itself, by stem and item, and commits and
// discards those alone: another running program has its own beside them, and what an interrupted
// run has left was settled when the project was opened (usage_leftovers). A history that cannot be
// looked at is no empty one: nothing is written over it then.
#pragma once

#include "basics/values.h"

namespace tavernook {

// The item has just taken its slot: until the next save its working copy begins without the history
// of the item that had the slot before, which stays on the disk.
void begin_usage_history(i16 item) noexcept;

// True from begin_usage_history to the save: the file in the item's name is not its own.
bool has_no_saved_usage(i16 item) noexcept;

// Adds the moves in the open project's working copies to the saved histories, removes the histories
// of former items whose slots were taken anew, and those of items that are not in use. The working
// copies stay. False when something could not be done; the next call tries it again.
[[nodiscard]] bool commit_usage_files() noexcept;

// Deletes every working copy that this program has made, whatever the project is called by now, and
// knows of none then. One that the last save could not commit is committed before, or stays for the
// next opening. False when one could not be deleted.
[[nodiscard]] bool discard_usage_files() noexcept;

// Deletes the saved histories of the open project's items that are not in use. False when one could
// not be deleted or the folder could not be looked at.
[[nodiscard]] bool remove_orphan_usage_files() noexcept;

// The program knows of no working copies, as at its start; the files stay.
void forget_usage_files() noexcept;

}  // namespace tavernook
