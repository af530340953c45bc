// The program's own sources, read once, and its offences as a text.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "structure/source_rules.h"

namespace tavernook::structure {

using Offences = std::vector<std::string>;

inline std::string listed(const Offences& offences) {
    std::string text;
    for (const std::string& offence : offences) text += "\n  " + offence;
    return text;
}

inline const SourceTree& program() {
    static const SourceTree tree = read_source_tree(std::string(TAVERNOOK_SOURCE_FOLDER) + "/src");
    return tree;
}

}  // namespace tavernook::structure
