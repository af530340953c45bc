// A table of fixed capacity: entries 0..Capacity, live slots from 1, 0 meaning none. It is a
// global that never moves and never allocates; it cannot be copied, so that no big table ever
// travels over the stack.
#pragma once

#include <array>
#include <cstddef>

#include "basics/fault.h"
#include "basics/values.h"

namespace tavernook {

template <typename Record, int Capacity>
class Table {
  public:
    static constexpr int capacity = Capacity;
    static constexpr int entries = Capacity + 1;
    static_assert(Capacity >= 1 && Capacity <= 32767, "slots are 16-bit numbers");

    Table() = default;
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    // Fault 9 outside 0..Capacity.
    Record& operator[](i64 slot) { return records_[checked(slot)]; }
    const Record& operator[](i64 slot) const { return records_[checked(slot)]; }

    // All entries, 0 included.
    auto begin() { return records_.begin(); }
    auto end() { return records_.end(); }
    auto begin() const { return records_.begin(); }
    auto end() const { return records_.end(); }

  private:
    static std::size_t checked(i64 slot) {
        if (slot < 0 || slot > Capacity) throw Fault(fault_number::subscript_out_of_range);
        return static_cast<std::size_t>(slot);
    }

    std::array<Record, static_cast<std::size_t>(Capacity) + 1> records_{};
};

}  // namespace tavernook
