// Finishing the deletion of a row that is in use: another row takes its place everywhere, then it
// is deleted.
#pragma once

#include <vector>

#include "basics/values.h"
#include "core/where_used.h"

namespace tavernook {

// The live rows that can take the place of `row`, ascending; never the row itself.
std::vector<i16> replacement_rows(i16 row, ReplacementType type) noexcept;

// Moves every reference and deletes the old row. Amounts stay as they are, whatever the serving
// size of the new item. A unit that an item holds in either field always goes into its qty_units:
// kept, households have arranged themselves with it. A failure shows its box and ends the move.
void replace_row(i16 row, i16 replacement, ReplacementType type) noexcept;

}  // namespace tavernook
