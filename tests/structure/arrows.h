// Which room may include which: one table, a row a room.
#pragma once

#include <string>
#include <vector>

#include "structure/source_rules.h"

namespace tavernook::structure {

// The room of a path below src/: a row of the table; "" for a file that lies in none. Folders
// below a room are of that room, but for those of `core` and `screens`, which are rooms.
std::string room_of(const std::string& path);

// One sentence for each offence; empty when every file includes its own room and those only that
// the table names.
std::vector<std::string> broken_arrows(const SourceTree& tree);

}  // namespace tavernook::structure
