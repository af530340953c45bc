// The rule for Faults: what one room of the logic offers another is `noexcept`, or its comment
// names the Fault that it lets through.
#pragma once

#include <string>
#include <vector>

#include "structure/source_rules.h"

namespace tavernook::structure {

// A function that a header declares outside of classes.
struct Routine {
    std::string name;
    int line = 0;
    bool is_noexcept = false;
    bool lets_through = false;  // "Fault 9", "Throws ..." in the comment above it or its group
};

std::vector<Routine> routines_of(const std::string& header);

// Headers of the logic that a file of another room includes; the mechanism itself, core/trap.h, and
// the bytes of a project, core/project_file, left out.
std::vector<std::string> offered_headers(const SourceTree& tree);

// One sentence for each routine of those that is neither `noexcept` nor says what it lets through.
std::vector<std::string> untold_routines(const SourceTree& tree);

// The names of those that say so and are not `noexcept`, sorted.
std::vector<std::string> routines_that_let_through(const SourceTree& tree);

}  // namespace tavernook::structure
