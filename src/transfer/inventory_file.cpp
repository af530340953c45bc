#include "transfer/inventory_file.h"

#include "basics/byte_codec.h"
#include "basics/fault.h"
#include "core/project_file/sequential_file.h"

namespace tavernook {

namespace {

constexpr i64 count_position = 1;
constexpr i64 first_block_position = 100;

i16 read_count(File& file) {
    const std::string bytes = read_exactly(file, count_position, sizeof(i16));
    const auto count = load_little_endian<i16>(bytes.data());
    if (count < 0) throw Fault(fault_number::bad_record_number);
    return count;
}

}  // namespace

InventoryFileWriter::InventoryFileWriter(File& file)
    : file_(file), position_(first_block_position) {}

void InventoryFileWriter::add(const ItemBlock& block) {
    position_ = write_item_block(file_, position_, block, BlockKind::inventory);
    ++count_;
}

void InventoryFileWriter::finish() {
    ByteWriter bytes;
    bytes.write_i16(count_);
    file_.write(count_position - 1, bytes.bytes());
}

InventoryFileReader::InventoryFileReader(File& file)
    : file_(file), position_(first_block_position), count_(read_count(file)) {}

bool InventoryFileReader::next(ItemBlock& block) {
    if (read_ == count_) return false;
    position_ = read_item_block(file_, position_, block, BlockKind::inventory);
    ++read_;
    return true;
}

}  // namespace tavernook
