// The files of the usage history: each item's saved history is a ".dat" file in the folder
// "reports", and the moves since the last save are in a ".tmp" working copy beside it.
#pragma once

#include <string_view>

namespace tavernook {

// Copies every working copy over its saved history, then removes the histories of items that no
// longer exist. The working copies stay. Throws a Fault when a copy fails.
void commit_usage_files();

// Deletes every working copy. Throws a Fault when one cannot be deleted.
void discard_usage_files();

// Deletes the saved histories of the open project's items that are not in use. Throws a Fault when
// one cannot be deleted.
void remove_orphan_usage_files();

// The number in front of the extension; 0 unless those are six digits. Page templates and other
// files in the folder are told from histories by it.
int usage_file_item(std::string_view name) noexcept;

}  // namespace tavernook
