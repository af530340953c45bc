#include "platform_services/serial_ports.h"

#include <algorithm>

#include "basics/fault.h"
#include "basics/values.h"

namespace tavernook {

namespace {

bool is_digit(char letter) {
    return letter >= '0' && letter <= '9';
}

// Takes the number off the front; its digits without zeros in front.
std::string_view take_number(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), is_digit);
    std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

bool counts_before(const std::string& left, const std::string& right) {
    std::string_view one = left;
    std::string_view other = right;
    while (!one.empty() && !other.empty()) {
        if (is_digit(one[0]) && is_digit(other[0])) {
            const std::string_view number = take_number(one);
            const std::string_view other_number = take_number(other);
            if (number.size() != other_number.size()) return number.size() < other_number.size();
            if (number != other_number) return number < other_number;
        } else {
            if (one[0] != other[0]) return one[0] < other[0];
            one.remove_prefix(1);
            other.remove_prefix(1);
        }
    }
    if (one.empty() != other.empty()) return one.empty();
    return left < right;
}

void keep_first(std::vector<std::string>& ports) {
    if (ports.size() > most_serial_ports) ports.resize(most_serial_ports);
}

}  // namespace

std::vector<std::string> named_serial_ports(std::string_view value) {
    std::vector<std::string> ports;
    while (!value.empty()) {
        const std::size_t end = std::min(value.find(':'), value.size());
        if (end > 0) ports.emplace_back(value.substr(0, end));
        value.remove_prefix(std::min(end + 1, value.size()));
    }
    keep_first(ports);
    return ports;
}

std::vector<std::string> listed_serial_ports(std::vector<std::string> names) {
    std::sort(names.begin(), names.end(), counts_before);
    keep_first(names);
    return names;
}

std::string chosen_serial_port(const std::vector<std::string>& ports, int number) {
    if (number >= 0 && static_cast<std::size_t>(number) < ports.size()) {
        return ports[static_cast<std::size_t>(number)];
    }
    const std::string count = ports.empty() ? "no" : std::to_string(ports.size());
    throw Fault(fault_number::path_not_found,
                "There is no Comm " + std::to_string(i64{number} + 1) + ": this computer has " +
                    count + (ports.size() == 1 ? " serial port." : " serial ports."));
}

}  // namespace tavernook
