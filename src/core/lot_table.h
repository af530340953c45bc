// The lots of all items: entries 0 to lot_table_top + 1, growing on demand. Room for every item is
// set aside from the start, so that growing moves nothing; memory that no record has used stays
// untouched, which keeps the program's start quick.
#pragma once

#include <vector>

#include "basics/fault.h"
#include "core/records.h"

namespace tavernook {

extern i16 lot_table_top;  // the highest item number for which a record has been made, 0..10000

class LotTable {
  public:
    static constexpr int highest_item = 10000;

    LotTable();

    // Fault 9 outside 0..lot_table_top + 1.
    LotRecord& operator[](i64 item) { return records_[checked(item)]; }
    const LotRecord& operator[](i64 item) const { return records_[checked(item)]; }

    int entries() const { return static_cast<int>(records_.size()); }

    // Raises lot_table_top, the contents kept and new entries blank. Fault 9 outside 0..10000; a
    // number below the present top changes nothing.
    void grow(i64 item);

    // Back to lot_table_top 0 with blank entries.
    void clear();

  private:
    std::size_t checked(i64 item) const {
        if (item < 0 || item >= entries()) throw Fault(fault_number::subscript_out_of_range);
        return static_cast<std::size_t>(item);
    }

    std::vector<LotRecord> records_;
};

}  // namespace tavernook
