// The Symbol CS1504, a scanner that collects codes and hands them over by a serial cable: the four
// calls that the program makes, named as the scanner's own library names them. Codes stay in the
// scanner until it is told to clear them.
//
// A call returns when it is done, in seconds at the most; until then windows repaint and hear the
// user, and `cancel` ends it early. No call throws. A port stays open from csp2Init to `close`.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "basics/values.h"

namespace tavernook {

// A packet, one byte a character:
//   0      1      L, the length of the body
//   1      1      not used
//   2      L - 5  the code
//   L - 3  rest   not used
inline constexpr std::size_t code_in_packet = 2;
inline constexpr i32 packet_overhead = 5;
inline constexpr i32 longest_packet = 63;  // what csp2GetPacket is asked for at the most

inline constexpr i32 reading_cancelled = -2;  // by csp2ReadData

class BatchScanner {
  public:
    virtual ~BatchScanner() = default;

    // Opens the port, 0 for "Comm 1". 0 = ready; anything else: there is no such port, or it
    // cannot be had.
    virtual i32 csp2Init(i32 port) noexcept = 0;

    // Takes a copy of all codes and gives their number. Below 1: no scanner answers (-1), it holds
    // none (0), or `cancel` was called.
    virtual i32 csp2ReadData() noexcept = 0;

    // Fills the buffer with that packet (from 0) of the copy, `longest` bytes and the buffer's size
    // at the most, and gives the bytes filled in; 0 or below for a packet that is none.
    virtual i32 csp2GetPacket(std::span<char> buffer, i32 packet, i32 longest) noexcept = 0;

    // Empties the scanner. 0 = it has said so.
    virtual i32 csp2ClearData() noexcept = 0;

    // Gives the port back.
    virtual void close() noexcept = 0;

    // From within a call that waits: it fails at once.
    virtual void cancel() noexcept = 0;

    // The system's serial ports in the order of "Comm 1" to "Comm 16", as "ttyUSB0".
    virtual std::vector<std::string> port_names() noexcept = 0;

    // Why the last csp2Init, csp2ReadData or csp2ClearData failed, a sentence for the user: "No
    // scanner answers at ttyUSB0."; empty when it did not fail.
    virtual std::string trouble() noexcept = 0;
};

}  // namespace tavernook
