// A pair of ends that the system takes for a serial port, with a simulated scanner at the far one.
// It answers whenever the events of the test's thread are handled.
#pragma once

#include <QSocketNotifier>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <termios.h>
#include <unistd.h>

#include "support/simulated_scanner.h"

namespace tavernook {

class PseudoTerminal {
  public:
    explicit PseudoTerminal(SimulatedScanner& scanner) : scanner_(scanner) {
        char name[128] = {};
        termios plain = {};
        ::cfmakeraw(&plain);
        if (::openpty(&far_, &near_, name, &plain, nullptr) != 0) {
            throw std::runtime_error("no pseudo-terminal");
        }
        path = name;
        ::fcntl(far_, F_SETFL, O_NONBLOCK);
        ::fcntl(far_, F_SETFD, FD_CLOEXEC);
        ::fcntl(near_, F_SETFD, FD_CLOEXEC);
        reads_ = std::make_unique<QSocketNotifier>(far_, QSocketNotifier::Read);
        writes_ = std::make_unique<QSocketNotifier>(far_, QSocketNotifier::Write);
        writes_->setEnabled(false);
        QObject::connect(reads_.get(), &QSocketNotifier::activated, reads_.get(),
                         [this] { hear(); });
        QObject::connect(writes_.get(), &QSocketNotifier::activated, writes_.get(),
                         [this] { write(); });
    }
    ~PseudoTerminal() {
        unplug();
        ::close(near_);
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // As when the cable's adaptor is pulled out.
    void unplug() {
        if (far_ < 0) return;
        reads_.reset();
        writes_.reset();
        ::close(far_);
        far_ = -1;
    }

    void say(const std::string& bytes) {
        to_say_ += bytes;
        write();
    }

    std::string path;

    // Called with what came, in place of the scanner.
    std::function<void(const std::string&)> on_bytes;

  private:
    void hear() {
        char buffer[512];
        const ssize_t count = ::read(far_, buffer, sizeof buffer);
        if (count <= 0) return;
        const std::string bytes(buffer, static_cast<std::size_t>(count));
        if (on_bytes) return on_bytes(bytes);
        say(scanner_.answer(bytes));
    }
    void write() {
        const ssize_t count = to_say_.empty() ? 0 : ::write(far_, to_say_.data(), to_say_.size());
        if (count > 0) to_say_.erase(0, static_cast<std::size_t>(count));
        if (writes_ != nullptr) writes_->setEnabled(!to_say_.empty());
    }

    SimulatedScanner& scanner_;
    int far_ = -1;
    int near_ = -1;  // kept open, so that the far end hears no hang-up between two sessions
    std::string to_say_;
    std::unique_ptr<QSocketNotifier> reads_, writes_;
};

}  // namespace tavernook
