// The coding of back-up files once more, byte by byte as its rules tell it: slow, and so plain that
// it can be compared with them. Positions count from 1.
#pragma once

#include <cstddef>
#include <string>

#include "basics/fault.h"

namespace tavernook {

inline std::string plainly_encoded(const std::string& input) {
    constexpr std::size_t block_size = 32000;
    const std::size_t last = input.size() % block_size;
    const std::size_t blocks = input.size() / block_size + (last != 0 ? 1 : 0);
    if (blocks > 255) throw Fault(fault_number::overflow);
    std::string out;
    std::string table;
    std::size_t count = 1;
    bool in_run = false;
    std::size_t run_start = 0;
    std::size_t run_block = 0;
    char run_byte = 0;
    for (std::size_t b = 1; b <= blocks; ++b) {
        const std::size_t length = b < blocks ? block_size : last;
        const std::string block = input.substr((b - 1) * block_size, length);
        char prev = block.empty() ? '\0' : block[0];
        for (std::size_t pos = 2; pos <= length + 1; ++pos) {
            const char cur = pos > length ? ' ' : block[pos - 1];
            if (prev == cur) {
                ++count;
                if (!in_run) {
                    in_run = true;
                    run_start = pos - 1;
                    run_byte = cur;
                    run_block = b;
                }
            } else if (in_run) {
                if (count >= 7) {
                    if (count > 65535) throw Fault(fault_number::overflow);
                    for (const std::size_t number :
                         {run_block, run_start / 256, run_start % 256, count / 256, count % 256}) {
                        table += static_cast<char>(number);
                    }
                    table += run_byte;
                } else {
                    for (std::size_t i = 0; i < count; ++i) out += run_byte;
                }
                count = 1;
                in_run = false;
            } else {
                out += prev;
            }
            prev = cur;
        }
    }
    const std::size_t n = table.size() / 6;
    if (n > 65535) throw Fault(fault_number::overflow);
    out += table;
    out += static_cast<char>(n / 256);
    out += static_cast<char>(n % 256);
    return out;
}

// Of a back-up that was encoded; trusts it.
inline std::string plainly_decoded(const std::string& backup) {
    const auto byte = [&](std::size_t position) {
        return static_cast<std::size_t>(static_cast<unsigned char>(backup.at(position - 1)));
    };
    const std::size_t n = byte(backup.size() - 1) * 256 + byte(backup.size());
    const std::size_t table = backup.size() - 6 * n - 1;
    std::string restored;
    std::size_t in = 1;
    for (std::size_t entry = 0; entry < n; ++entry) {
        const std::size_t at = table + 6 * entry;
        const std::size_t target = (byte(at) - 1) * 32000 + byte(at + 1) * 256 + byte(at + 2);
        while (restored.size() + 1 < target) restored += backup.at(in++ - 1);
        restored.append(byte(at + 3) * 256 + byte(at + 4), backup.at(at + 5 - 1));
    }
    return restored;
}

}  // namespace tavernook
