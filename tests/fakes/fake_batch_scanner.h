// A batch scanner that hands over the packets a test gives it, and records "init 0", "read",
// "packet 0 63", "clear" and "close".
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/call_log.h"
#include "platform/batch_scanner.h"

namespace tavernook {

// A packet as the scanner makes it of a code.
inline std::string packet_of(std::string_view code) {
    const auto length = static_cast<char>(code.size() + packet_overhead);
    return std::string(1, length) + '\x10' + std::string(code) + std::string(4, '\x20');
}

class FakeBatchScanner : public BatchScanner {
  public:
    i32 csp2Init(i32 port) noexcept override {
        log.add("init " + std::to_string(port));
        return port_result;
    }
    i32 csp2ReadData() noexcept override {
        log.add("read");
        cancelled = false;
        if (meanwhile) meanwhile();
        if (cancelled) return reading_cancelled;
        if (!is_attached) return -1;
        return static_cast<i32>(packets.size());
    }
    i32 csp2GetPacket(std::span<char> buffer, i32 packet, i32 longest) noexcept override {
        log.add("packet " + std::to_string(packet) + " " + std::to_string(longest));
        if (packet < 0 || static_cast<std::size_t>(packet) >= packets.size()) return 0;
        const std::string& bytes = packets[static_cast<std::size_t>(packet)];
        const std::size_t count =
            std::min({bytes.size(), buffer.size(), static_cast<std::size_t>(longest)});
        std::copy_n(bytes.begin(), count, buffer.begin());
        return static_cast<i32>(count);
    }
    i32 csp2ClearData() noexcept override {
        log.add("clear");
        cancelled = false;
        if (meanwhile) meanwhile();
        const bool is_heard = is_attached && !cancelled;
        if (is_heard) packets.clear();
        return is_heard ? 0 : -1;
    }
    void close() noexcept override { log.add("close"); }
    void cancel() noexcept override {
        log.add("cancel");
        cancelled = true;
    }
    std::vector<std::string> port_names() noexcept override { return ports; }
    std::string trouble() noexcept override { return why; }

    CallLog log;
    i32 port_result = 0;
    bool is_attached = true;
    bool cancelled = false;
    std::vector<std::string> packets;
    std::vector<std::string> ports;
    std::string why;  // what `trouble` tells

    // Called while the codes are read, or cleared.
    std::function<void()> meanwhile;
};

}  // namespace tavernook
