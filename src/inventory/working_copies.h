// What the rest of the inventory asks of the working copies; usage_files.cpp knows them.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Writes the entry into the item's working copy, right behind the saved history. Throws what the
// file layer throws.
void write_usage(i16 item, std::string_view entry);

// The history of an item as the next save would leave it under that stem; empty for none. Throws
// what the file layer throws.
std::string present_usage(std::string_view stem, i16 item);

}  // namespace tavernook
