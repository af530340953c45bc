// The usage histories on their way to a new name of the project ("Save As"). Before the project is
// written they are put into one file, the bundle, and flushed: "cabin.histories" for cabin.tvk.
// When the project file is on the disk the bundle becomes the histories of the new name and goes.
// Until then nothing of the old name, and nothing that lies under the new one, has changed; after
// it a program that was interrupted finishes the work at the next opening.
//
//   for each item that has a history:   i16 item, i32 length, the bytes of its file
//   at the end:                         i16 0, i32 number of items
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Packs the present histories of the stem `from`, with the moves since its last save, for the open
// project. False when a history could not be read, which is left out then, or when there is no
// bundle.
[[nodiscard]] bool pack_usage_bundle(std::string_view from) noexcept;

// The project is on the disk: the histories in the bundle are its own, and every other one of its
// stem goes, as do the working copies of the project that was left. False when something could not
// be done.
[[nodiscard]] bool unpack_usage_bundle() noexcept;

// The project could not be written: everything is as it was before pack_usage_bundle.
void drop_usage_bundle() noexcept;

// The project has been saved under its name: a bundle that still lies there, as one does that could
// not be removed at the opening, is older than its histories.
void remove_older_usage_bundle() noexcept;

// At the opening of a project: unpacks a bundle that was written before the project file (`saved`,
// see usage_leftovers), and deletes any other.
[[nodiscard]] bool settle_usage_bundle(i64 saved) noexcept;

}  // namespace tavernook
