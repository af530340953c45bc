// What keeps the screens small: a class stands in its header and one source, a screen or a pane is
// short, and Faults are trapped in screens/parts only.
#pragma once

#include <string>
#include <vector>

#include "structure/source_rules.h"

namespace tavernook::structure {

// A class and the files that define its methods.
struct ClassFiles {
    std::string name;
    std::string header;                // where its body stands
    bool derives = false;              // it names a base
    std::vector<std::string> sources;  // beside the header
};

// The classes of all headers, by header and by place.
std::vector<ClassFiles> classes_of(const SourceTree& tree);

// The methods of a class are defined in its header and one more file at most.
std::vector<std::string> scattered_classes(const SourceTree& tree);

inline constexpr int longest_screen_class = 350;

// Classes with a base in the rooms of the screens: the lines of code of the header and the sources,
// blank lines and comments not counted.
std::vector<std::string> long_screen_classes(const SourceTree& tree);

// Calls of `trap` and its kin in the rooms of the screens outside screens/parts.
std::vector<std::string> stray_traps(const SourceTree& tree);

}  // namespace tavernook::structure
