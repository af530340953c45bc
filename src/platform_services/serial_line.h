// A serial port and the time that passes at it, as cs1504_scanner needs them.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace tavernook {

class SerialLine {
  public:
    using Milliseconds = std::chrono::milliseconds;

    virtual ~SerialLine() = default;

    // The computer's ports as they are now, in the order of "Comm 1" to "Comm 16".
    virtual std::vector<std::string> ports() = 0;

    // Opens that port in place of the one that is open. A Fault tells why it cannot be had, in a
    // sentence for the user.
    virtual void open(const std::string& port) = 0;

    // False also when the port went by itself, as that of an adaptor that is pulled out.
    virtual bool is_open() const = 0;

    // To a port that has gone nothing is sent.
    virtual void send(std::string_view bytes) = 0;

    // What has come and was not received yet. While there is nothing it waits, `longest` at the
    // most, and windows repaint and hear the user; nothing in the end when the time is over, the
    // port has gone or somebody called `wake`.
    virtual std::string receive(Milliseconds longest) = 0;
    virtual void wake() noexcept = 0;

    // Lets go of what has come and was not received.
    virtual void discard() = 0;

    virtual void close() noexcept = 0;

    // Sends this first and gives it a moment to arrive.
    virtual void close_with(std::string_view goodbye) noexcept = 0;

    // Of a clock that never goes back.
    virtual Milliseconds now() const = 0;
};

}  // namespace tavernook
