// The templates and pictures of the pages, and the lessons, that the program carries inside itself.
#pragma once

#include <string>

namespace tavernook {

// The bytes of a file by its name. Fault 53 for what the program does not carry.
std::string shipped_page_file(const std::string& name);
std::string shipped_lesson_file(const std::string& name);

}  // namespace tavernook
