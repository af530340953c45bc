// The lots of all items: entries 0 to lot_table_top + 1, growing on demand. Storage for every item
// is set aside from the start, so that growing moves nothing.
#pragma once

#include "basics/table.h"
#include "core/records.h"

namespace tavernook {

extern i16 lot_table_top;  // the highest item number for which a record has been made, 0..10000

class LotTable {
  public:
    static constexpr int highest_item = 10000;

    // Fault 9 outside 0..lot_table_top + 1.
    LotRecord& operator[](i64 item) { return records_[checked(item)]; }
    const LotRecord& operator[](i64 item) const { return records_[checked(item)]; }

    int entries() const { return lot_table_top + 2; }

    // Raises lot_table_top, the contents kept and new entries blank. Fault 9 outside 0..10000; a
    // number below the present top changes nothing.
    void grow(i64 item);

    // Back to lot_table_top 0 with blank entries.
    void clear();

  private:
    static i64 checked(i64 item) {
        if (item < 0 || item > lot_table_top + 1) throw Fault(fault_number::subscript_out_of_range);
        return item;
    }

    Table<LotRecord, highest_item + 1> records_;
};

}  // namespace tavernook
