// The batch scanner over a real serial port of the system, and a simulated scanner behind it.
#include "platform_qt/qt_serial_line.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>

#include "fakes/child_process.h"
#include "gui_support/processes.h"
#include "gui_support/waiting.h"
#include "platform_qt/pseudo_terminal.h"
#include "platform_services/cs1504_scanner.h"
#include "platform_services/serial_ports.h"

namespace tavernook {
namespace {

using std::chrono::milliseconds;

// However slow the machine is, what is sure to come is waited for.
ScannerSettings patient() {
    const milliseconds never(never_ms);
    return {.reply_wait = never,
            .first_tries_apart = never,
            .quiet = milliseconds(1),
            .session = never};
}
// Where nothing comes, in no time.
ScannerSettings impatient() {
    const milliseconds moment(2);
    return {.reply_wait = moment, .first_tries_apart = moment, .quiet = moment};
}

class SerialScannerTest : public testing::Test {
  protected:
    void SetUp() override {
        device.codes = {{1, "TVK7"},
                        {8, "012345678905"},
                        {9, "01234565"},
                        {10, "96385074"},
                        {11, "4006381333931"}};
        ASSERT_EQ(scanner.csp2Init(0), 0) << scanner.trouble();
    }
    std::vector<std::string> codes(BatchScanner& from) {
        std::vector<std::string> result;
        for (i32 number = 0;; ++number) {
            char buffer[64] = {};
            if (from.csp2GetPacket(buffer, number, longest_packet) < 1) return result;
            result.emplace_back(buffer + code_in_packet,
                                static_cast<std::size_t>(buffer[0] - packet_overhead));
        }
    }
    void expect_reading() {
        EXPECT_EQ(scanner.csp2ReadData(), 5) << scanner.trouble();
        EXPECT_EQ(codes(scanner), all);
    }
    // Spoils the first `times` answers.
    void spoil(int times, std::function<std::string(const std::string&)> how) {
        device.spoil = [=, left = times](char, const std::string& reply) mutable {
            return left-- > 0 ? how(reply) : reply;
        };
    }
    // A reading with the patience of a moment.
    void expect_failure() {
        Cs1504Scanner hasty(line, impatient());
        ASSERT_EQ(hasty.csp2Init(0), 0);
        EXPECT_EQ(hasty.csp2ReadData(), -1);
        EXPECT_NE(hasty.trouble(), "");
        EXPECT_TRUE(codes(hasty).empty());
    }

    const std::vector<std::string> all = {"TVK7", "012345678905", "01234565", "96385074",
                                          "4006381333931"};
    SimulatedScanner device;
    PseudoTerminal terminal{device};
    ScopedVariable ports{serial_ports_variable, terminal.path};
    QtSerialLine line{milliseconds(0)};
    Cs1504Scanner scanner{line, patient()};
};

// --- what goes well ----------------------------------------------------------------------------

TEST_F(SerialScannerTest, CodesOfEveryTypeAreReadAndCleared) {
    expect_reading();
    expect_reading();
    EXPECT_EQ(scanner.csp2ClearData(), 0);
    EXPECT_TRUE(device.codes.empty());
    EXPECT_EQ(scanner.csp2ReadData(), 0);
    EXPECT_EQ(scanner.trouble(), "");
}

TEST_F(SerialScannerTest, TheTwoParametersAreHonoured) {
    for (const bool sends_type : {false, true}) {
        for (const bool stores_time : {false, true}) {
            device.sends_type = sends_type;
            device.stores_time = stores_time;
            expect_reading();
        }
    }
}

TEST_F(SerialScannerTest, AFullScannerIsReadWhole) {
    device.codes.assign(340, {8, "012345678905"});
    EXPECT_EQ(scanner.csp2ReadData(), 340) << scanner.trouble();
}

TEST_F(SerialScannerTest, AnAnswerMayComeByteForByte) {
    std::string left;
    QTimer one_by_one;
    QObject::connect(&one_by_one, &QTimer::timeout, [&] {
        if (left.empty()) return one_by_one.stop();
        terminal.say(left.substr(0, 1));
        left.erase(0, 1);
    });
    terminal.on_bytes = [&](const std::string& bytes) {
        left += device.answer(bytes);
        one_by_one.start(0);
    };
    expect_reading();
}

TEST_F(SerialScannerTest, ClosingGivesThePortBackAndSendsTheScannerToSleep) {
    expect_reading();
    scanner.close();
    EXPECT_FALSE(line.is_open());
    EXPECT_TRUE(comes_true(
        [&] { return device.heard.ends_with(static_cast<char>(SimulatedScanner::power_down)); }));
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    EXPECT_EQ(scanner.csp2Init(0), 0);
    expect_reading();
}

// --- ports -------------------------------------------------------------------------------------

TEST_F(SerialScannerTest, TheVariableNamesThePorts) {
    EXPECT_EQ(scanner.port_names(), std::vector<std::string>{terminal.path});
    const ScopedVariable others(serial_ports_variable, "ttyNone9:" + terminal.path);
    EXPECT_EQ(scanner.port_names(), (std::vector<std::string>{"ttyNone9", terminal.path}));
    EXPECT_NE(scanner.csp2Init(0), 0);
    EXPECT_EQ(scanner.trouble(), "The port ttyNone9 is not there.");
    EXPECT_EQ(scanner.csp2Init(1), 0);
    expect_reading();
    EXPECT_NE(scanner.csp2Init(2), 0);
    EXPECT_EQ(scanner.trouble(), "There is no Comm 3: this computer has 2 serial ports.");
}

TEST_F(SerialScannerTest, WithoutTheVariableTheSystemNamesThePorts) {
    ::unsetenv(serial_ports_variable);
    EXPECT_LE(scanner.port_names().size(), 16u);
}

TEST_F(SerialScannerTest, AFileIsNoPort) {
    const ScopedVariable others(serial_ports_variable, "/dev/null");
    EXPECT_NE(scanner.csp2Init(0), 0);
    EXPECT_TRUE(scanner.trouble().starts_with("The port /dev/null cannot be opened: "))
        << scanner.trouble();
}

// The child is an account without rights.
int trouble_as_stranger(QtSerialLine& line, const std::string& expected) {
    return exit_status_in_child([&] {
        const bool is_root = ::geteuid() == 0;
        ASSERT_TRUE(!is_root || ::setuid(65534) == 0);
        Cs1504Scanner scanner(line, impatient());
        EXPECT_NE(scanner.csp2Init(0), 0);
        EXPECT_EQ(scanner.trouble(), expected);
    });
}

TEST_F(SerialScannerTest, APortOfSomebodyElseTellsSo) {
    scanner.close();
    ::chmod(terminal.path.c_str(), 0);
    EXPECT_EQ(trouble_as_stranger(
                  line, "The port " + terminal.path + " may not be used by this account."),
              0);
}

TEST_F(SerialScannerTest, APortInUseTellsSo) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs another account";
    ::chmod(terminal.path.c_str(), 0666);
    QtSerialLine other;
    EXPECT_EQ(
        trouble_as_stranger(other, "The port " + terminal.path + " is in use by another program."),
        0);
}

// --- what goes wrong ---------------------------------------------------------------------------

TEST_F(SerialScannerTest, ASilentPortIsGivenUp) {
    terminal.on_bytes = [](const std::string&) {};
    expect_failure();
}

TEST_F(SerialScannerTest, AWrongCrcIsAskedForAgain) {
    const auto damage = [](std::string reply) {
        reply.back() = static_cast<char>(reply.back() ^ 1);
        return reply;
    };
    spoil(1, damage);
    expect_reading();
    spoil(1'000, damage);
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    EXPECT_TRUE(codes(scanner).empty());
}

TEST_F(SerialScannerTest, RefusalsAreHeard) {
    spoil(2, [](const std::string&) { return std::string("\x07"); });
    expect_reading();
    spoil(1, [](const std::string&) { return std::string("\x09"); });
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    EXPECT_EQ(scanner.trouble(), "The scanner refuses to answer.");
}

TEST_F(SerialScannerTest, ACutAnswerIsGivenUp) {
    spoil(1'000, [](const std::string& reply) { return reply.substr(0, reply.size() - 1); });
    expect_failure();
}

TEST_F(SerialScannerTest, AFloodOfGarbageIsGivenUp) {
    spoil(1'000, [](const std::string&) { return std::string(100'000, '\xAA'); });
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    EXPECT_TRUE(scanner.trouble().ends_with("are none of a scanner, or come damaged."));
    EXPECT_EQ(device.heard, std::string(3, SimulatedScanner::interrogate));
}

TEST_F(SerialScannerTest, GarbageWhileNobodyReadsIsPassedOver) {
    terminal.say(std::string(100'000, '\x06'));
    QCoreApplication::processEvents();
    Cs1504Scanner hasty(line, impatient());
    hasty.csp2ReadData();
    EXPECT_TRUE(line.is_open());
}

TEST_F(SerialScannerTest, PulledOutWhileItWaitsIsTheEndAtOnce) {
    for (const std::size_t answers : {0, 1, 3}) {
        PseudoTerminal pulled(device);
        const ScopedVariable others(serial_ports_variable, pulled.path);
        ASSERT_EQ(scanner.csp2Init(0), 0);
        std::size_t heard = 0;
        pulled.on_bytes = [&](const std::string& bytes) {
            if (heard++ < answers) return pulled.say(device.answer(bytes));
            QTimer::singleShot(0, [&] { pulled.unplug(); });
        };
        EXPECT_EQ(scanner.csp2ReadData(), -1);
        EXPECT_EQ(scanner.trouble(), "The port " + pulled.path + " has gone.");
        EXPECT_TRUE(codes(scanner).empty());
        EXPECT_FALSE(line.is_open());
        EXPECT_EQ(scanner.csp2ClearData(), -1);
    }
}

TEST_F(SerialScannerTest, PulledOutBetweenTwoCallsIsNoticed) {
    expect_reading();
    terminal.unplug();
    EXPECT_TRUE(comes_true([&] { return !line.is_open(); }));
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    EXPECT_EQ(scanner.trouble(), "The port " + terminal.path + " has gone.");
    scanner.close();
}

TEST_F(SerialScannerTest, WhileItWaitsTheUserIsHeardAndMayCancel) {
    terminal.on_bytes = [&](const std::string&) {
        QTimer::singleShot(0, [&] {
            EXPECT_EQ(scanner.csp2ReadData(), -1) << "from within";
            EXPECT_EQ(scanner.csp2ClearData(), -1);
            EXPECT_NE(scanner.csp2Init(0), 0);
            scanner.cancel();
        });
    };
    EXPECT_EQ(scanner.csp2ReadData(), reading_cancelled);
    EXPECT_EQ(scanner.trouble(), "It was stopped before the scanner had answered.");
    terminal.on_bytes = nullptr;
    EXPECT_TRUE(line.is_open());
}

TEST_F(SerialScannerTest, ClosedWhileItWaitsIsTheEndAtOnce) {
    terminal.on_bytes = [&](const std::string&) {
        QTimer::singleShot(0, [&] { scanner.close(); });
    };
    EXPECT_EQ(scanner.csp2ReadData(), reading_cancelled);
    EXPECT_FALSE(line.is_open());
}

// --- the simulator for people ------------------------------------------------------------------

class SimulatorProgram : public SerialScannerTest {
  protected:
    // Runs it with these words and opens its port.
    void run(const QStringList& words, BatchScanner& scanner) {
        const QString python = QStandardPaths::findExecutable("python3");
        if (python.isEmpty()) GTEST_SKIP() << "python3 is not installed";
        program.start(python, QStringList(TAVERNOOK_SOURCE_FOLDER
                                          "/tools/scanner_simulator/scanner_simulator.py") +
                                  words);
        while (!program.canReadLine()) ASSERT_TRUE(program.waitForReadyRead(process_time_limit_ms));
        port.emplace(serial_ports_variable, program.readLine().trimmed().toStdString());
        ASSERT_EQ(scanner.csp2Init(0), 0) << scanner.trouble();
    }
    void TearDown() override {
        program.kill();
        program.waitForFinished(process_time_limit_ms);
    }

    QProcess program;
    std::optional<ScopedVariable> port;
};

TEST_F(SimulatorProgram, HoldsItsCodesUntilItIsCleared) {
    const std::vector<std::string> codes_of_each_kind = {"012345678905", "4006381333931",
                                                         "96385074", "123456", "TVK7"};
    QStringList words;
    for (const std::string& code : codes_of_each_kind) words << QString::fromStdString(code);
    run(words, scanner);
    if (IsSkipped()) return;
    for (int reading = 0; reading < 2; ++reading) {
        EXPECT_EQ(scanner.csp2ReadData(), 5) << scanner.trouble();
        EXPECT_EQ(codes(scanner), codes_of_each_kind);
    }
    EXPECT_EQ(scanner.csp2ClearData(), 0);
    EXPECT_EQ(scanner.csp2ReadData(), 0);
    scanner.close();
    ASSERT_EQ(scanner.csp2Init(0), 0) << "it waits for the next one";
    EXPECT_EQ(scanner.csp2ReadData(), 0);
}

TEST_F(SimulatorProgram, SendsCodesWithoutTypeAndTimeWhenTold) {
    run({"--without-type", "--without-time", "TVK7"}, scanner);
    if (IsSkipped()) return;
    EXPECT_EQ(scanner.csp2ReadData(), 1) << scanner.trouble();
    EXPECT_EQ(codes(scanner), std::vector<std::string>{"TVK7"});
}

TEST_F(SimulatorProgram, PlaysOneThatIsSilentOrDamaged) {
    run({"--damaged", "TVK7"}, scanner);
    if (IsSkipped()) return;
    EXPECT_EQ(scanner.csp2ReadData(), -1);
    TearDown();
    Cs1504Scanner hasty(line, impatient());
    run({"--silent", "TVK7"}, hasty);
    EXPECT_EQ(hasty.csp2ReadData(), -1);
    EXPECT_TRUE(hasty.trouble().starts_with("No scanner answers at ")) << hasty.trouble();
}

}  // namespace
}  // namespace tavernook
