#include "core/lot_table.h"

namespace tavernook {

i16 lot_table_top = 0;

void LotTable::grow(i64 item) {
    if (item < 0 || item > highest_item) throw Fault(fault_number::subscript_out_of_range);
    if (item > lot_table_top) lot_table_top = to_i16(item);
}

void LotTable::clear() {
    for (int item = 0; item < entries(); ++item) records_[item] = LotRecord{};
    lot_table_top = 0;
}

}  // namespace tavernook
