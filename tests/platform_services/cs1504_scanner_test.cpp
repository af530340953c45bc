// The calls against a simulated scanner, in a time that passes only when somebody waits.
#include "platform_services/cs1504_scanner.h"

#include <gtest/gtest.h>

#include "platform_services/virtual_line.h"

namespace tavernook {
namespace {

constexpr char interrogate = SimulatedScanner::interrogate;
constexpr char clear = SimulatedScanner::clear;
constexpr char power_down = SimulatedScanner::power_down;
constexpr char upload = SimulatedScanner::upload;
constexpr char parameter = SimulatedScanner::parameter;
const std::string whole_reading = {interrogate, parameter, parameter, upload};

class Cs1504ScannerTest : public testing::Test {
  protected:
    void SetUp() override {
        device.codes = {{1, "TVK7"},
                        {8, "012345678905"},
                        {9, "01234565"},
                        {10, "96385074"},
                        {11, "4006381333931"}};
        ASSERT_EQ(scanner.csp2Init(1), 0);
        start = line.now();
    }

    // The codes of the copy, as the logic takes them out of the packets.
    std::vector<std::string> codes() {
        std::vector<std::string> result;
        for (i32 number = 0;; ++number) {
            char buffer[64] = {};
            const i32 filled = scanner.csp2GetPacket(buffer, number, longest_packet);
            if (filled < 1) return result;
            EXPECT_EQ(filled, buffer[0] + 1);
            result.emplace_back(buffer + code_in_packet,
                                static_cast<std::size_t>(buffer[0] - packet_overhead));
        }
    }
    void expect_reading() {
        EXPECT_EQ(scanner.csp2ReadData(), 5) << scanner.trouble();
        EXPECT_EQ(codes(), all);
        EXPECT_EQ(scanner.trouble(), "");
    }
    void expect_failure(const std::string& trouble, i32 result = -1) {
        EXPECT_EQ(scanner.csp2ReadData(), result);
        EXPECT_TRUE(codes().empty());
        EXPECT_EQ(scanner.trouble(), trouble);
    }

    // Spoils the first `times` answers to that command.
    void spoil(char which, int times, std::function<std::string(const std::string&)> how) {
        device.spoil = [=, left = times](char command, const std::string& reply) mutable {
            return command == which && left-- > 0 ? how(reply) : reply;
        };
    }

    // When the tries of that command were made, after the start.
    std::vector<long> tries(char command) const {
        std::vector<long> times;
        for (const VirtualLine::Sent& one : line.sent) {
            if (one.command == command) times.push_back(one.at - start.count());
        }
        return times;
    }
    long passed() const { return (line.now() - start).count(); }

    const std::vector<std::string> all = {"TVK7", "012345678905", "01234565", "96385074",
                                          "4006381333931"};
    SimulatedScanner device;
    VirtualLine line{device};
    Cs1504Scanner scanner{line};
    std::chrono::milliseconds start{0};
};

const std::string damaged = "The answers at ttyUSB0 are none of a scanner, or come damaged.";
const std::string silent = "No scanner answers at ttyUSB0.";

std::string with_wrong_crc(std::string reply) {
    reply.back() = static_cast<char>(reply.back() ^ 1);
    return reply;
}

// --- what goes well ----------------------------------------------------------------------------

TEST_F(Cs1504ScannerTest, CodesOfEveryTypeAreRead) {
    expect_reading();
    EXPECT_EQ(device.heard, whole_reading);
    EXPECT_EQ(device.codes.size(), 5u) << "they stay in the scanner";
    expect_reading();
    EXPECT_LT(passed(), 1000);
}

TEST_F(Cs1504ScannerTest, APacketHoldsLengthTypeCodeAndTime) {
    scanner.csp2ReadData();
    char buffer[64] = {};
    ASSERT_EQ(scanner.csp2GetPacket(buffer, 0, longest_packet), 10);
    EXPECT_EQ(std::string(buffer, 11), std::string("\x09\x01TVK7\x78\xF4\xD6\xDA\0", 11));
}

TEST_F(Cs1504ScannerTest, APacketIsCutByItsBufferAndByWhatIsAskedFor) {
    scanner.csp2ReadData();
    std::string buffer(50, '.');
    EXPECT_EQ(scanner.csp2GetPacket(std::span(buffer).first(3), 0, 63), 3);
    EXPECT_EQ(buffer.substr(0, 4), "\x09\x01T.");
    EXPECT_EQ(scanner.csp2GetPacket(buffer, 0, 5), 5);
    EXPECT_EQ(buffer.substr(0, 6), "\x09\x01TVK.");
    for (const i32 none : {-1, 5, 2147483647}) {
        EXPECT_EQ(scanner.csp2GetPacket(buffer, none, 63), 0);
    }
    EXPECT_EQ(scanner.csp2GetPacket(buffer, 0, 0), 0);
    EXPECT_EQ(scanner.csp2GetPacket(buffer, 0, -1), 0);
    EXPECT_EQ(scanner.csp2GetPacket({}, 0, 63), 0);
}

TEST_F(Cs1504ScannerTest, AnEmptyScannerHoldsNoneAndThatIsNoTrouble) {
    device.codes.clear();
    EXPECT_EQ(scanner.csp2ReadData(), 0);
    EXPECT_TRUE(codes().empty());
    EXPECT_EQ(scanner.trouble(), "");
}

TEST_F(Cs1504ScannerTest, TheTwoParametersAreHonoured) {
    for (const bool sends_type : {false, true}) {
        for (const bool stores_time : {false, true}) {
            device.sends_type = sends_type;
            device.stores_time = stores_time;
            expect_reading();
        }
    }
}

TEST_F(Cs1504ScannerTest, ClearingEmptiesTheScannerAndKeepsTheCopy) {
    expect_reading();
    EXPECT_EQ(scanner.csp2ClearData(), 0);
    EXPECT_TRUE(device.codes.empty());
    EXPECT_EQ(device.heard, whole_reading + interrogate + clear);
    EXPECT_EQ(codes(), all);
    EXPECT_EQ(scanner.csp2ReadData(), 0);
    EXPECT_TRUE(codes().empty());
}

TEST_F(Cs1504ScannerTest, TheLongestReplyComesAtTheLinesOwnSpeed) {
    device.codes.assign(340, {8, "012345678905"});
    line.byte_time = 2;  // slower than it is: 6133 bytes in 12 seconds
    EXPECT_EQ(scanner.csp2ReadData(), 340) << scanner.trouble();
    EXPECT_EQ(tries(upload).size(), 1u);
    EXPECT_GT(passed(), 12'000);
}

// --- ports -------------------------------------------------------------------------------------

TEST_F(Cs1504ScannerTest, CommNumbersAreThePortsInTheirOrder) {
    EXPECT_EQ(line.open_port, "ttyUSB0");
    EXPECT_EQ(scanner.csp2Init(0), 0);
    EXPECT_EQ(line.open_port, "ttyS0");
    EXPECT_EQ(scanner.port_names(), line.names);
    line.names = {"ttyACM0"};
    EXPECT_EQ(scanner.csp2Init(0), 0);
    EXPECT_EQ(line.open_port, "ttyACM0") << "they are looked up anew";
}

TEST_F(Cs1504ScannerTest, ANumberWithoutAPortLeavesNoneOpen) {
    EXPECT_NE(scanner.csp2Init(2), 0);
    const std::string trouble = "There is no Comm 3: this computer has 2 serial ports.";
    EXPECT_EQ(scanner.trouble(), trouble);
    EXPECT_FALSE(line.is_open());
    expect_failure(trouble);
    EXPECT_NE(scanner.csp2ClearData(), 0);
    EXPECT_EQ(scanner.trouble(), trouble);
    EXPECT_TRUE(line.sent.empty());
    EXPECT_EQ(scanner.csp2Init(1), 0);
    EXPECT_EQ(scanner.trouble(), "");
    expect_reading();
}

TEST_F(Cs1504ScannerTest, APortThatCannotBeHadTellsWhy) {
    line.refusal = "The port ttyUSB0 may not be used by this account.";
    EXPECT_NE(scanner.csp2Init(1), 0);
    EXPECT_EQ(scanner.trouble(), line.refusal);
    expect_failure(line.refusal);
}

TEST_F(Cs1504ScannerTest, WithoutAPortNothingIsRead) {
    line.close();
    Cs1504Scanner fresh(line);
    EXPECT_EQ(fresh.csp2ReadData(), -1);
    EXPECT_EQ(fresh.csp2ClearData(), -1);
    EXPECT_EQ(fresh.trouble(), "No port is open.");
    fresh.close();
    EXPECT_TRUE(line.sent.empty());
}

TEST_F(Cs1504ScannerTest, ClosingSendsTheScannerToSleep) {
    expect_reading();
    scanner.close();
    EXPECT_FALSE(line.is_open());
    EXPECT_EQ(device.heard, whole_reading + power_down);
    scanner.close();
    EXPECT_EQ(device.heard, whole_reading + power_down);
    expect_failure("No port is open.");
}

TEST_F(Cs1504ScannerTest, ASilentOrSleepingScannerIsNotSentToSleep) {
    line.is_silent = true;
    scanner.csp2ReadData();
    scanner.close();
    EXPECT_TRUE(tries(power_down).empty());
    line.is_silent = false;
    ASSERT_EQ(scanner.csp2Init(1), 0);
    expect_reading();
    line.pass(20'000);
    scanner.close();
    EXPECT_TRUE(tries(power_down).empty());
}

// --- silence and late answers ------------------------------------------------------------------

TEST_F(Cs1504ScannerTest, ASilentPortIsKnownWithinFiveSeconds) {
    line.is_silent = true;
    expect_failure(silent);
    EXPECT_EQ(tries(interrogate), (std::vector<long>{0, 1200, 2400}));
    EXPECT_EQ(line.sent.size(), 3u);
    EXPECT_EQ(passed(), 4400);
    EXPECT_EQ(scanner.csp2ClearData(), -1);
    EXPECT_EQ(line.sent.size(), 6u);
}

TEST_F(Cs1504ScannerTest, EachTryHasItsTwoSeconds) {
    line.delay = [this](char) { return line.sent.size() == 3 ? 1990 : 100'000; };
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    EXPECT_EQ(tries(interrogate).size(), 3u);
    EXPECT_EQ(tries(parameter).size(), 3u) << "the third try was answered";
}

TEST_F(Cs1504ScannerTest, ALateAnswerIsNotTakenForThatOfTheNextCommand) {
    line.delay = [](char command) { return command == interrogate ? 1900 : 10; };
    expect_reading();
    EXPECT_EQ(tries(interrogate), (std::vector<long>{0, 1200}));
    // The first answer comes at 1900, the second one at 3100.
    EXPECT_GE(tries(parameter).front(), 3200);
    EXPECT_EQ(tries(parameter).size(), 2u);
}

TEST_F(Cs1504ScannerTest, LaterCommandsWaitTwoSecondsForEachTry) {
    spoil(upload, 2, [](const std::string&) { return std::string(); });
    expect_reading();
    const std::vector<long> times = tries(upload);
    ASSERT_EQ(times.size(), 3u);
    EXPECT_EQ(times[1] - times[0], 2000);
    EXPECT_EQ(times[2] - times[1], 2000);
}

TEST_F(Cs1504ScannerTest, TheLateAnswersOfACommandAreWaitedOutBeforeTheNextSession) {
    line.delay = [](char command) { return command == upload ? 2500 : 10; };
    expect_reading();  // the answer to its first try comes behind its second
    EXPECT_EQ(tries(upload).size(), 2u);
    const long second = tries(upload).back();
    line.delay = nullptr;
    EXPECT_EQ(scanner.csp2ClearData(), 0);
    EXPECT_GE(tries(interrogate).back(), second + 2000);
    EXPECT_EQ(tries(clear).size(), 1u);
}

TEST_F(Cs1504ScannerTest, ASessionEndsAfterTwentySeconds) {
    line.byte_time = 1900;  // each byte within its time
    expect_failure("The scanner takes too long.");
    EXPECT_EQ(passed(), 20'000);
}

// --- damage ------------------------------------------------------------------------------------

class DamagedAnswer : public Cs1504ScannerTest, public testing::WithParamInterface<char> {};

TEST_P(DamagedAnswer, IsAskedForAgain) {
    spoil(GetParam(), 2, with_wrong_crc);
    expect_reading();
    const std::vector<long> times = tries(GetParam());
    ASSERT_GE(times.size(), 3u);
    EXPECT_GE(times[1] - times[0], 200);
    EXPECT_GE(times[2] - times[1], 200);
    EXPECT_LT(passed(), 2000) << "no time-out was waited for";
}

TEST_P(DamagedAnswer, ThreeTimesIsTheEnd) {
    spoil(GetParam(), 3, with_wrong_crc);
    expect_failure(damaged);
    EXPECT_EQ(tries(GetParam()).size(), 3u);
    device.spoil = nullptr;
    expect_reading();
}

TEST_P(DamagedAnswer, CutAtEveryLengthIsNeverHalfARow) {
    for (std::size_t length = 1; length < device.reply_to_upload().size(); ++length) {
        const auto cut = [length](const std::string& reply) { return reply.substr(0, length); };
        bool was_cut = false;
        spoil(GetParam(), 1, [&](const std::string& reply) {
            was_cut = length < reply.size();
            return cut(reply);
        });
        expect_reading();
        if (!was_cut) break;
        spoil(GetParam(), 3, cut);
        expect_failure(damaged);
    }
}

TEST_P(DamagedAnswer, WithAnyByteWrongIsNeverAWrongCode) {
    for (const int change : {0x01, 0x80, 0x0F, 0x3C, 0xFF}) {
        bool is_inside = true;
        for (std::size_t at = 0; is_inside; ++at) {
            spoil(GetParam(), 3, [&](std::string reply) {
                is_inside = at < reply.size();
                if (is_inside) reply[at] = static_cast<char>(reply[at] ^ change);
                return reply;
            });
            const i32 count = scanner.csp2ReadData();
            EXPECT_TRUE(!is_inside ? count == 5 : count == -1 && codes().empty())
                << at << " " << change;
        }
    }
}

TEST_P(DamagedAnswer, ARefusalOfWhatCameBadlyIsTriedAgain) {
    for (const char refusal : {7, 8}) {
        line.sent.clear();
        spoil(GetParam(), 2, [=](const std::string&) { return std::string(1, refusal); });
        expect_reading();
        EXPECT_GE(tries(GetParam()).size(), 3u);
        EXPECT_GE(tries(GetParam())[1] - tries(GetParam())[0], 200);
    }
    spoil(GetParam(), 3, [](const std::string&) { return std::string("\x07"); });
    expect_failure("The scanner refuses to answer.");
}

TEST_P(DamagedAnswer, AnyOtherRefusalIsTheEnd) {
    for (const char refusal : {5, 9}) {
        line.sent.clear();
        spoil(GetParam(), 1, [=](const std::string&) { return std::string(1, refusal); });
        expect_failure("The scanner refuses to answer.");
        EXPECT_EQ(tries(GetParam()).size(), 1u);
    }
}
INSTANTIATE_TEST_SUITE_P(To, DamagedAnswer, testing::Values(interrogate, parameter, upload),
                         [](const auto& info) {
                             return "Command" + std::to_string(int{info.param});
                         });

TEST_F(Cs1504ScannerTest, ABurstOfGarbageIsPassedOver) {
    spoil(upload, 1, [](const std::string&) { return std::string(100'000, '\xAA'); });
    expect_reading();
}

TEST_F(Cs1504ScannerTest, GarbageWithoutEndIsGivenUp) {
    line.flood = 10'000;
    expect_failure(damaged);
    EXPECT_EQ(tries(interrogate).size(), 3u);
    EXPECT_LE(passed(), 7'000);
}

TEST_F(Cs1504ScannerTest, WhatLiesOnTheLineBeforeACommandIsPassedOver) {
    line.delay = [](char) { return 0; };
    line.send(text_of_hex("07 02 00 9E 3E"));  // somebody else's
    line.pass(100);
    expect_reading();
    EXPECT_EQ(device.heard, upload + whole_reading) << "nothing had to be said again";
}

TEST_F(Cs1504ScannerTest, SettingsThatCannotBeReadAreNotGuessed) {
    spoil(parameter, 1, [](const std::string&) { return ended("\x06\x02\x02\x05\x01"); });
    expect_failure("The settings of the scanner cannot be read.");
}

TEST_F(Cs1504ScannerTest, CodesOfAnotherLayoutAreNotGuessed) {
    spoil(upload, 1, [](const std::string&) {
        return ended(std::string("\x06\x02") + "SERIALNO" + "\x03" + "123");
    });
    expect_failure("The codes of the scanner cannot be read.");
}

TEST_F(Cs1504ScannerTest, AFailedReadingLeavesNothingOfTheOneBefore) {
    expect_reading();
    line.is_silent = true;
    expect_failure(silent);
}

// --- unplugged, cancelled, called from within --------------------------------------------------

TEST_F(Cs1504ScannerTest, PulledOutAtAnyMomentIsTheEndAtOnce) {
    scanner.csp2ReadData();
    const int waits = std::exchange(line.waits, 0);
    for (int moment = 1; moment <= waits; ++moment) {
        ASSERT_EQ(scanner.csp2Init(1), 0);
        line.waits = 0;
        line.on_wait = [&](int wait) {
            if (wait == moment) line.close();
        };
        expect_failure("The port ttyUSB0 has gone.");
        EXPECT_EQ(line.waits, moment);
        expect_failure("The port ttyUSB0 has gone.");
    }
}

TEST_F(Cs1504ScannerTest, CancelledAtAnyMomentIsTheEndAtOnce) {
    scanner.csp2ReadData();
    const int waits = std::exchange(line.waits, 0);
    for (int moment = 1; moment <= waits; ++moment) {
        line.waits = 0;
        line.on_wait = [&](int wait) {
            if (wait == moment) scanner.cancel();
        };
        expect_failure("It was stopped before the scanner had answered.", reading_cancelled);
        EXPECT_EQ(line.waits, moment);
        line.on_wait = nullptr;
        expect_reading();
    }
}

TEST_F(Cs1504ScannerTest, ACancelOutsideOfACallIsNone) {
    scanner.cancel();
    expect_reading();
}

TEST_F(Cs1504ScannerTest, WhatIsCalledFromWithinFailsAtOnce) {
    int tried = 0;
    line.on_wait = [&](int) {
        ++tried;
        EXPECT_NE(scanner.csp2Init(0), 0);
        EXPECT_EQ(scanner.csp2ReadData(), -1);
        EXPECT_EQ(scanner.csp2ClearData(), -1);
        EXPECT_TRUE(codes().empty());
        EXPECT_EQ(scanner.trouble(), "");
    };
    expect_reading();
    EXPECT_EQ(device.heard, whole_reading);
    EXPECT_EQ(tried, line.waits);
}

TEST_F(Cs1504ScannerTest, ClosingFromWithinEndsTheCall) {
    line.on_wait = [&](int wait) {
        if (wait == 2) scanner.close();
    };
    expect_failure("It was stopped before the scanner had answered.", reading_cancelled);
    EXPECT_FALSE(line.is_open());
    EXPECT_TRUE(tries(power_down).empty());
}

TEST_F(Cs1504ScannerTest, AClearThatIsNotAnsweredIsNotTakenForDone) {
    spoil(clear, 3, [](const std::string&) { return std::string(); });
    EXPECT_EQ(scanner.csp2ClearData(), -1);
    EXPECT_EQ(scanner.trouble(), silent);
}

}  // namespace
}  // namespace tavernook
