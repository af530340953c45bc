// The rules that keep the source tree in order: where Qt may be named, that no file includes
// itself, however far round, and that every box is wrapped. The other rules stand beside: arrows.h,
// class_rules.h, routine_rules.h.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace tavernook::structure {

// Path below src/, with "/" -> text.
using SourceTree = std::map<std::string, std::string>;

// All C++ files below the folder. Throws std::filesystem::filesystem_error where it cannot read.
SourceTree read_source_tree(const std::string& folder);

// How many includes lead from one file of the tree to another.
int count_inner_includes(const SourceTree& tree);

// One sentence for each offence; empty when the rule is kept.
std::vector<std::string> misplaced_qt(const SourceTree& tree);
std::vector<std::string> include_circles(const SourceTree& tree);
std::vector<std::string> raw_dialogs(const SourceTree& tree);

}  // namespace tavernook::structure
