// Which of the computer's serial ports are "Comm 1" to "Comm 16".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavernook {

inline constexpr std::size_t most_serial_ports = 16;

// Names or paths separated by ":" in this variable of the environment are the ports, in that order,
// in place of those that the system lists: for ports that it does not list, as "/dev/pts/3" or that
// of an adaptor over the network.
inline constexpr const char* serial_ports_variable = "TAVERNOOK_SERIAL_PORTS";

// The ports that such a value names; more than 16 are cut.
std::vector<std::string> named_serial_ports(std::string_view value);

// The system's, in the order of a person who counts: ttyS0, ttyS1, ttyUSB2, ttyUSB10.
std::vector<std::string> listed_serial_ports(std::vector<std::string> names);

// The one with that number from 0. A Fault tells that there is none.
std::string chosen_serial_port(const std::vector<std::string>& ports, int number);

}  // namespace tavernook
