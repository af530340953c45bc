// One recipe carried to another project: its ingredients with everything that belongs to them, and
// its text, as a recipe file ("soup.rpf", docs/formats/recipe_file.md).
#pragma once

#include <string>

#include "basics/values.h"

namespace tavernook {

// Asks for the file and writes the live recipe into it, as it stands in the tables and on the disk:
// what is written on the screen has been saved before. Ingredients that are no items any more stay
// away. The message panel tells what was exported, or that nothing was; a failure has a box
// beside, and the user can cancel. An older file of that name is as it was then.
void Export_RPF(i16 slot) noexcept;

// Brings the recipe file in under the category (0 the root) and returns the recipe's slot, or 0
// when it did not come in whole. The user is asked about a recipe of the same name and about each
// item that is here already. The message panel tells what came in.
//
// Cancelling the unpacking changes nothing; cancelling a question about the recipe leaves the name
// in a free slot and the project marked as changed. No live recipe is overwritten without a Yes and
// no live item ever: where a table is full, its own box tells it, and the import ends there. A
// damaged file has a box; what was read until then stays, and the message panel says what that is.
//
// The recipe becomes the one on show in the recipe manager, whose text was saved before; that
// loads the new text when it shows it.
i16 Import_RPF(const std::string& file, i16 category) noexcept;

}  // namespace tavernook
