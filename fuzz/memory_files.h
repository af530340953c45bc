// Open files without a disk: one that grows in memory, and one that is given bytes and then zeros,
// so that a few KB stand for a whole project.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace tavernook {

class MemoryFile : public File {
  public:
    explicit MemoryFile(std::string given = {}) : bytes(std::move(given)) {}

    std::size_t read(i64 offset, char* buffer, std::size_t count) override {
        const auto from = static_cast<std::size_t>(offset);
        if (from >= bytes.size()) return 0;
        const std::size_t there = std::min(count, bytes.size() - from);
        std::memcpy(buffer, bytes.data() + from, there);
        return there;
    }
    void write(i64 offset, std::string_view written) override {
        const auto from = static_cast<std::size_t>(offset);
        if (from + written.size() > bytes.size()) bytes.resize(from + written.size());
        std::memcpy(bytes.data() + from, written.data(), written.size());
    }
    i64 length() override { return static_cast<i64>(bytes.size()); }
    void flush() override {}

    std::string bytes;
};

class VirtualFile : public File {
  public:
    // Where `front` is longer than `length` it is cut. `front` must outlive the file.
    VirtualFile(std::string_view front, i64 length)
        : front_(front.substr(0, std::min(front.size(), static_cast<std::size_t>(length)))),
          length_(length) {}

    std::size_t read(i64 offset, char* buffer, std::size_t count) override {
        if (offset >= length_) return 0;
        const std::size_t there = std::min(count, static_cast<std::size_t>(length_ - offset));
        const std::size_t from = std::min(static_cast<std::size_t>(offset), front_.size());
        const std::size_t given = std::min(there, front_.size() - from);
        std::memcpy(buffer, front_.data() + from, given);
        std::memset(buffer + given, 0, there - given);
        return there;
    }
    void write(i64, std::string_view) override { throw Fault(fault_number::permission_denied); }
    i64 length() override { return length_; }
    void flush() override {}

  private:
    std::string_view front_;
    i64 length_;
};

}  // namespace tavernook
