// The one exception of the program. Checked values, the byte codec and the platform throw it;
// every public routine traps its own, so that it never crosses a routine's edge.
#pragma once

#include <exception>
#include <string>

namespace tavernook {

namespace fault_number {
inline constexpr int overflow = 6;
inline constexpr int out_of_memory = 7;
inline constexpr int subscript_out_of_range = 9;
inline constexpr int division_by_zero = 11;
inline constexpr int type_mismatch = 13;
inline constexpr int internal_error = 51;
inline constexpr int file_not_found = 53;
inline constexpr int device_io_error = 57;
inline constexpr int disk_full = 61;
inline constexpr int input_past_end = 62;
inline constexpr int bad_record_number = 63;
inline constexpr int permission_denied = 70;
inline constexpr int path_file_access_error = 75;
inline constexpr int path_not_found = 76;
inline constexpr int cancel_was_selected = 32755;
}  // namespace fault_number

class Fault : public std::exception {
  public:
    // Takes the description that belongs to the number.
    explicit Fault(int number);
    Fault(int number, std::string description);

    const char* what() const noexcept override { return description.c_str(); }

    int number;
    std::string description;
};

// "Overflow", "Disk full" ...; "Error N" for a number without a description.
std::string fault_description(int number);

}  // namespace tavernook
