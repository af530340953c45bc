#include "core/project_file/sequential_file.h"

#include <cstring>

namespace tavernook {

std::string read_exactly(File& file, i64 position, std::size_t count) {
    if (position < 1) throw Fault(fault_number::bad_record_number);
    std::string bytes(count, '\0');
    if (file.read(position - 1, bytes.data(), count) < count) {
        throw Fault(fault_number::bad_record_number);
    }
    return bytes;
}

SequentialReader::SequentialReader(File& file, i64 position)
    : file_(file),
      next_offset_(position - 1),
      buffer_(std::make_unique_for_overwrite<char[]>(block_size)) {
    if (position < 1 || position > file.length()) throw Fault(fault_number::bad_record_number);
}

void SequentialReader::fill(std::size_t count) {
    if (filled_ - used_ >= count) return;
    filled_ -= used_;
    std::memmove(buffer_.get(), buffer_.get() + used_, filled_);
    used_ = 0;
    const std::size_t got = file_.read(next_offset_, buffer_.get() + filled_, block_size - filled_);
    filled_ += got;
    next_offset_ += static_cast<i64>(got);
}

std::string_view SequentialReader::take(std::size_t count) {
    fill(count);
    if (filled_ - used_ < count) throw Fault(fault_number::bad_record_number);
    const std::string_view part(buffer_.get() + used_, count);
    used_ += count;
    return part;
}

std::string_view SequentialReader::take_or_zeros(std::size_t count) {
    fill(count);
    if (filled_ - used_ < count) {
        std::memset(buffer_.get() + filled_, 0, used_ + count - filled_);
        filled_ = used_ + count;
    }
    return take(count);
}

void SequentialWriter::record_done() {
    if (bytes_.size() >= SequentialReader::block_size) finish();
}

void SequentialWriter::finish() {
    if (bytes_.size() == 0) return;
    file_.write(offset_, bytes_.bytes());
    offset_ += static_cast<i64>(bytes_.size());
    bytes_.clear();
}

void SequentialWriter::write_variable(std::string_view text) {
    if (text.size() > 0xFFFF) throw Fault(fault_number::overflow);
    bytes_.write_u16(static_cast<u16>(text.size()));
    bytes_.write_bytes(text);
    record_done();
}

}  // namespace tavernook
