// A source file as the rules read it: its code without comments and without what stands in quotes.
#pragma once

#include <string>
#include <vector>

namespace tavernook::structure {

// The same text with blanks for comments and for what stands between quotes; lines stay lines.
std::string code_of(const std::string& text);

std::vector<std::string> lines_of(const std::string& text);

// Lines that hold code: neither blank nor comment alone.
int code_lines(const std::string& text);

bool is_blank(const std::string& line);

}  // namespace tavernook::structure
