// Reading and writing forward through an open file in blocks, so that memory stays bounded and
// the disk sees few operations. Positions count from 1.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "basics/byte_codec.h"
#include "platform/files.h"

namespace tavernook {

// Exactly `count` bytes from `position` on. Fault 63 when the file does not have them all.
std::string read_exactly(File& file, i64 position, std::size_t count);

class SequentialReader {
  public:
    // The most that one `take` can ask for; a variable string needs 65,535.
    static constexpr std::size_t block_size = std::size_t{256} * 1024;

    // Fault 63 for a position below 1 or beyond the end of the file.
    SequentialReader(File& file, i64 position);

    // The next `count` bytes, valid until the next call. Fault 63 when the file is short of them.
    std::string_view take(std::size_t count);

    // The same, a file that ends earlier reading as zeros.
    std::string_view take_or_zeros(std::size_t count);

    i16 take_i16() { return load_little_endian<i16>(take(2).data()); }
    i32 take_i32() { return load_little_endian<i32>(take(4).data()); }

    // A u16 byte count and that many bytes.
    void take_variable(std::string& text) {
        const auto count = load_little_endian<u16>(take(2).data());
        text.assign(take(count));
    }

    void skip(std::size_t count) { take(count); }

  private:
    // Makes `count` bytes available as far as the file goes.
    void fill(std::size_t count);

    File& file_;
    i64 next_offset_;  // in the file, behind what the buffer holds
    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
    std::size_t filled_ = 0;
};

class SequentialWriter {
  public:
    SequentialWriter(File& file, i64 position) : file_(file), offset_(position - 1) {}

    // Append here, then call `record_done`; `finish` writes what is left.
    ByteWriter& bytes() { return bytes_; }
    void record_done();
    void finish();

    // A u16 byte count and the text. Fault 6 above 65,535 bytes.
    void write_variable(std::string_view text);

  private:
    File& file_;
    i64 offset_;
    ByteWriter bytes_;
};

}  // namespace tavernook
