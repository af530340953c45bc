// An open file without a disk, and the coder of back-ups over whole texts.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "transfer/run_length.h"

namespace tavernook {

class MemoryFile : public File {
  public:
    explicit MemoryFile(std::string given = {}) : bytes(std::move(given)) {}

    std::size_t read(i64 offset, char* buffer, std::size_t count) override {
        const auto from = static_cast<std::size_t>(offset);
        return from >= bytes.size() ? 0 : bytes.copy(buffer, count, from);
    }
    void write(i64 offset, std::string_view written) override {
        const auto from = static_cast<std::size_t>(offset);
        if (from > bytes.size()) bytes.resize(from, '\0');
        bytes.replace(from, written.size(), written);
    }
    i64 length() override { return static_cast<i64>(bytes.size()); }
    void flush() override {}

    std::string bytes;
};

// What became of coding: the bytes that came out, the Fault that ended it (0 for none), the bar.
struct Coded {
    std::string bytes;
    int fault = 0;
    std::vector<int> progress;
};

using Coder = void (*)(File&, const Outlet&, const Progress&);

inline Coded coded(Coder coder, const std::string& bytes) {
    Coded result;
    MemoryFile file(bytes);
    try {
        coder(
            file, [&](std::string_view part) { result.bytes += part; },
            [&](int percent) { result.progress.push_back(percent); });
    } catch (const Fault& fault) {
        result.fault = fault.number;
    }
    return result;
}

inline Coded encoded(const std::string& bytes) {
    return coded(encode_runs, bytes);
}

inline Coded decoded(const std::string& bytes) {
    return coded(decode_runs, bytes);
}

}  // namespace tavernook
