// Two projects become one: the categories, units, stores, items, recipes and lines of weights and
// measures of another project file come into the open project.
//
// The slots of the two have nothing in common, so each comes into a slot that is free here, and
// what refers to it is carried along. A unit or a store whose name is here already is shared,
// capitals telling them apart; an item never is, so that a project merged with itself has each item
// twice. Items come with their quantity as one lot and without texts and nutrients, recipes with
// the texts that their entries name. Days and settings stay those of the open project.
//
// A reference to what the other file does not have is none; of an item to its category the first
// one. Where a table is full units and stores become none, categories the first one, and recipes
// and lines are left out. Items go on: kept, each one that finds no room takes slot 10000 from the
// one before, with the box of the full table each time.
#pragma once

#include <string>

namespace tavernook {

// The project file to take in.
extern std::string merge_path;

// "Cancel" and a damaged file leave the project as it was. A file that is not there has a box of
// its own and sets project_load_failed. The message panel tells what came, or that nothing did.
void merge_project() noexcept;

// Asks for the file. Does nothing without a project.
void mnuFile_ProjectMerge() noexcept;

}  // namespace tavernook
