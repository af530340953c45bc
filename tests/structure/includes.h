// The includes of a file, and where they lead.
#pragma once

#include <string>
#include <vector>

#include "structure/source_rules.h"

namespace tavernook::structure {

struct Include {
    int line;
    std::string name;
    bool quoted;
};

std::vector<Include> includes_of(const std::string& text);

// Where the include leads, as a path below src/; first beside the including file, then from the
// root. A path that leaves src/ begins with "..".
std::string target_of(const SourceTree& tree, const std::string& file, const Include& include);

// "core/a.h:3"
std::string place(const std::string& file, int line);

}  // namespace tavernook::structure
