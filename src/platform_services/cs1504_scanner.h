// The CS1504 at a serial port. Every call but csp2GetPacket and `close` is a short session: the
// scanner is asked who it is, then for what is wanted.
//
// An answer has to begin in time and to go on without a longer break; else, and when it comes
// damaged, the command is said again. The first command of a session is said again sooner, while
// the first is still waited for, so that a silent port is known as one within five seconds. What
// may still be answered late is waited out before the next command, so that no answer is taken for
// that of another.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "platform/batch_scanner.h"
#include "platform_services/cs1504_protocol.h"
#include "platform_services/serial_line.h"

namespace tavernook {

struct ScannerSettings {
    // For an answer to begin, and for its next byte.
    std::chrono::milliseconds reply_wait{2'000};

    // From one try of a session's first command to the next one.
    std::chrono::milliseconds first_tries_apart{1'200};

    // The line has been silent for so long before something is said again.
    std::chrono::milliseconds quiet{200};

    // From a session's first command to its last byte.
    std::chrono::milliseconds session{20'000};

    int tries = 3;
};

class Cs1504Scanner : public BatchScanner {
  public:
    // The line has to live longer than the scanner.
    explicit Cs1504Scanner(SerialLine& line, ScannerSettings settings = {})
        : line_(line), settings_(settings) {}

    i32 csp2Init(i32 port) noexcept override;
    i32 csp2ReadData() noexcept override;
    i32 csp2GetPacket(std::span<char> buffer, i32 packet, i32 longest) noexcept override;
    i32 csp2ClearData() noexcept override;
    void close() noexcept override;
    void cancel() noexcept override;
    std::vector<std::string> port_names() noexcept override;
    std::string trouble() noexcept override;

  private:
    using Milliseconds = std::chrono::milliseconds;
    using Strings = std::vector<std::string>;
    using Framer = cs1504::ReplyFramer;

    i32 run(const std::function<i32()>& call) noexcept;
    void begin_session();
    bool parameter(cs1504::Parameter which);
    Strings ask(cs1504::Command command, const std::string& bytes, Milliseconds patience);
    Strings ask(cs1504::Command command);
    Framer::State hear(Framer& reply, Milliseconds wait);
    std::string receive(Milliseconds longest);
    void send(const std::string& bytes);
    void wait_for_late_answers();
    void wait_until_quiet();
    std::string trouble_after(const Framer& reply, Framer::State state) const;
    std::string shown_port() const;

    SerialLine& line_;
    const ScannerSettings settings_;
    std::string port_;  // that was opened
    std::vector<std::string> packets_;
    std::string trouble_;
    Milliseconds session_end_{0};
    Milliseconds last_sent_{0};
    int unanswered_ = 0;         // tries
    bool is_listening_ = false;  // it has answered since the port was opened
    bool busy_ = false;
    bool cancelled_ = false;
};

}  // namespace tavernook
