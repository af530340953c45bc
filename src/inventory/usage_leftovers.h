// What an interrupted run has left of the usage history. A working copy that was last written
// before the project file was belongs to that save: the program ended between the file and its
// histories. One that was written after it holds moves that were never saved.
//
// Working copies are not flushed. After a loss of power one may be cut or hold zeros, so it counts
// only when it is the saved history with one sound entry behind it, or one sound entry alone, as an
// item that was new in its slot leaves it.
#pragma once

#include "basics/values.h"

namespace tavernook {

// At the opening of a project, before stock moves: commits the working copies that belong to the
// project file and deletes all others of its stem. `saved` is when the file was last written
// (FileStamp::changed); with 0 none belongs to it: another version was put in its place, it is not
// whole, or the project is new. False when something could not be looked at, and stays, or could
// not be written or deleted.
[[nodiscard]] bool settle_usage_files(i64 saved) noexcept;

}  // namespace tavernook
