// The files that pages are made from.
#pragma once

#include <string>

namespace tavernook {

// All bytes of a small file. Throws what the file layer throws, Fault 53 where there is none.
std::string file_bytes(const std::string& path);

}  // namespace tavernook
