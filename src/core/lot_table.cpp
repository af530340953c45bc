#include "core/lot_table.h"

namespace tavernook {

i16 lot_table_top = 0;

LotTable::LotTable() {
    records_.reserve(highest_item + 2);
    clear();
}

void LotTable::grow(i64 item) {
    if (item < 0 || item > highest_item) throw Fault(fault_number::subscript_out_of_range);
    if (item <= lot_table_top) return;
    lot_table_top = to_i16(item);
    records_.resize(static_cast<std::size_t>(item) + 2);
}

void LotTable::clear() {
    lot_table_top = 0;
    records_.assign(2, LotRecord{});
}

}  // namespace tavernook
