// A serial line in a time of its own, with a simulated scanner at its end: waiting costs nothing,
// and what was said when can be looked up.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "basics/fault.h"
#include "platform_services/serial_line.h"
#include "support/simulated_scanner.h"

namespace tavernook {

class VirtualLine : public SerialLine {
  public:
    explicit VirtualLine(SimulatedScanner& scanner) : scanner_(scanner) {}

    std::vector<std::string> ports() override { return names; }
    void open(const std::string& port) override {
        close();
        if (!refusal.empty()) throw Fault(fault_number::permission_denied, refusal);
        open_port = port;
    }
    bool is_open() const override { return !open_port.empty(); }

    void send(std::string_view bytes) override {
        sent.push_back({time_, bytes.empty() ? '\0' : bytes[0]});
        if (is_silent) return;
        const std::string answer = scanner_.answer(bytes);
        const int late = delay ? delay(sent.back().command) : 10;
        if (!answer.empty()) coming_.emplace(time_ + late, answer);
    }
    std::string receive(Milliseconds longest) override {
        ++waits;
        woken_ = false;
        if (on_wait) on_wait(waits);
        if (woken_ || !is_open()) return {};
        const long until = time_ + longest.count();
        if (flood > 0) {  // garbage without a pause
            ++time_;
            return std::string(static_cast<std::size_t>(flood), '\xAA');
        }
        if (coming_.empty() || coming_.begin()->first > until) {
            time_ = until;
            return {};
        }
        return arrived();
    }
    void wake() noexcept override { woken_ = true; }
    void discard() override {
        while (!coming_.empty() && coming_.begin()->first <= time_) coming_.erase(coming_.begin());
    }
    void close() noexcept override {
        open_port.clear();
        coming_.clear();
    }
    void close_with(std::string_view goodbye) noexcept override {
        send(goodbye);
        close();
    }
    Milliseconds now() const override { return Milliseconds(time_); }

    void pass(long milliseconds) { time_ += milliseconds; }

    struct Sent {
        long at;
        char command;
        bool operator==(const Sent&) const = default;
    };
    std::vector<Sent> sent;

    std::vector<std::string> names = {"ttyS0", "ttyUSB0"};
    std::string refusal;    // of `open`
    std::string open_port;  // empty once it has gone
    bool is_silent = false;
    int flood = 0;  // bytes of garbage at each reading
    int waits = 0;
    std::function<void(int wait)> on_wait;   // what happens during the n-th wait
    std::function<int(char command)> delay;  // until the answer comes; 10 ms without it
    long byte_time = 0;                      // of one byte behind the other; 0: all at once

  private:
    std::string arrived() {
        const auto first = coming_.begin();
        time_ = std::max(time_, first->first);
        std::string bytes = first->second;
        coming_.erase(first);
        if (byte_time > 0 && bytes.size() > 1) {
            coming_.emplace(time_ + byte_time, bytes.substr(1));
            bytes.resize(1);
        }
        return bytes;
    }

    SimulatedScanner& scanner_;
    std::multimap<long, std::string> coming_;
    long time_ = 1'000'000;
    bool woken_ = false;
};

}  // namespace tavernook
