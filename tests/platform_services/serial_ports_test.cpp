#include "platform_services/serial_ports.h"

#include <gtest/gtest.h>

#include "basics/fault.h"

namespace tavernook {
namespace {

using Names = std::vector<std::string>;

TEST(ListedSerialPorts, StandInTheOrderOfAPersonWhoCounts) {
    EXPECT_EQ(listed_serial_ports({"ttyUSB10", "ttyUSB2", "ttyS1", "ttyACM0", "ttyUSB0", "ttyS0"}),
              (Names{"ttyACM0", "ttyS0", "ttyS1", "ttyUSB0", "ttyUSB2", "ttyUSB10"}));
    EXPECT_EQ(listed_serial_ports({"a01", "a1", "a", "a1b", "a10"}),
              (Names{"a", "a01", "a1", "a1b", "a10"}));
    EXPECT_EQ(listed_serial_ports({"p99999999999999999999", "p9"}),
              (Names{"p9", "p99999999999999999999"}));
}

TEST(ListedSerialPorts, AreSixteenAtTheMost) {
    Names many;
    for (int i = 20; i >= 0; --i) many.push_back("ttyS" + std::to_string(i));
    const Names listed = listed_serial_ports(many);
    ASSERT_EQ(listed.size(), 16u);
    EXPECT_EQ(listed.back(), "ttyS15");
}

TEST(NamedSerialPorts, KeepTheirOrder) {
    EXPECT_EQ(named_serial_ports("/dev/pts/3"), Names{"/dev/pts/3"});
    EXPECT_EQ(named_serial_ports("ttyUSB2::ttyS0:"), (Names{"ttyUSB2", "ttyS0"}));
    EXPECT_EQ(named_serial_ports(""), Names{});
    EXPECT_EQ(named_serial_ports("a:b:c:d:e:f:g:h:i:j:k:l:m:n:o:p:q:r").size(), 16u);
}

std::string refusal(const Names& ports, int number) {
    try {
        return "chosen " + chosen_serial_port(ports, number);
    } catch (const Fault& fault) {
        return fault.description;
    }
}

TEST(ChosenSerialPort, IsCountedFromZeroAndToldFromOne) {
    EXPECT_EQ(refusal({"ttyS0", "ttyUSB0"}, 1), "chosen ttyUSB0");
    EXPECT_EQ(refusal({"ttyS0", "ttyUSB0"}, 2),
              "There is no Comm 3: this computer has 2 serial ports.");
    EXPECT_EQ(refusal({"ttyS0"}, 2), "There is no Comm 3: this computer has 1 serial port.");
    EXPECT_EQ(refusal({}, 0), "There is no Comm 1: this computer has no serial ports.");
    EXPECT_EQ(refusal({"ttyS0"}, -1), "There is no Comm 0: this computer has 1 serial port.");
    EXPECT_EQ(refusal({"ttyS0"}, 2147483647),
              "There is no Comm 2147483648: this computer has 1 serial port.");
}

}  // namespace
}  // namespace tavernook
