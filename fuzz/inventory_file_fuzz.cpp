// The plain file of an inventory file from any bytes: it is read to its end or refused with the
// promised Fault, never beyond what it has. What was read whole is written again and read as the
// same items.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "basics/fault.h"
#include "memory_files.h"
#include "transfer/inventory_file.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// Empty when it is refused.
std::vector<ItemBlock> read(File& file) {
    std::vector<ItemBlock> blocks;
    try {
        InventoryFileReader reader(file);
        ItemBlock block;
        while (reader.next(block)) blocks.push_back(block);
        require(static_cast<std::size_t>(reader.count()) == blocks.size());
    } catch (const Fault& fault) {
        require(fault.number == fault_number::bad_record_number);
        blocks.clear();
    }
    return blocks;
}

void require_same(const ItemBlock& a, const ItemBlock& b) {
    require(a.item.name == b.item.name && a.item.barcode == b.item.barcode);
    require(a.item.in_use == b.item.in_use && a.item.storage_time == b.item.storage_time);
    require(a.manufacturer == b.manufacturer && a.brand == b.brand);
    require(a.description == b.description && a.notes == b.notes);
    require(a.qty_units == b.qty_units && a.store == b.store);
    require(a.serving_size_units == b.serving_size_units && a.category == b.category);
    require(a.nutrient_units == b.nutrient_units);
}

void run(std::string bytes) {
    MemoryFile file(std::move(bytes));
    const std::vector<ItemBlock> blocks = read(file);
    MemoryFile again;
    InventoryFileWriter writer(again);
    for (const ItemBlock& block : blocks) writer.add(block);
    writer.finish();
    const std::vector<ItemBlock> second = read(again);
    require(second.size() == blocks.size());
    for (std::size_t place = 0; place < blocks.size(); ++place) {
        require_same(blocks[place], second[place]);
    }
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::run({reinterpret_cast<const char*>(data), size});
    return 0;
}
