// What the rest of the inventory asks of the working copies; usage_files.cpp knows them.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Writes the entry into the item's working copy, right behind the saved history. Throws what the
// file layer throws.
void write_usage(i16 item, std::string_view entry);

// Writes the last entry of the working copy behind the first `saved` bytes of the history, which
// are as they were whatever happens; a history without any becomes the working copy in one step.
// Throws what the file layer throws, and Fault 63 when the working copy ends before it.
void keep_last_usage(const std::string& working, const std::string& kept, i64 saved);

// The history of an item as the next save would leave it under that stem; empty for none. Throws
// what the file layer throws.
std::string present_usage(std::string_view stem, i16 item);

}  // namespace tavernook
