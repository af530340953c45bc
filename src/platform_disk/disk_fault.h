// What a refusal of the operating system means to the program.
#pragma once

#include <string>

namespace tavernook {

// The Fault number for an `errno` value. `folder_exists` tells a missing file (53) from a missing
// folder (76).
int fault_number_from_errno(int error, bool folder_exists);

[[noreturn]] void throw_disk_fault(int error, const std::string& path);

}  // namespace tavernook
