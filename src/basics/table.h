// A table of fixed capacity: entries 0..Capacity, live slots from 1, 0 meaning none. It is a
// global that never moves and never allocates; it cannot be copied, so that no big table ever
// travels over the stack.
#pragma once

#include <array>
#include <cstddef>
#include <new>

#include "basics/fault.h"
#include "basics/values.h"

namespace tavernook {

template <typename Record, int Capacity>
class Table {
  public:
    static constexpr int capacity = Capacity;
    static constexpr int entries = Capacity + 1;
    static_assert(Capacity >= 1 && Capacity <= 32767, "slots are 16-bit numbers");

    // Touches no memory: the records come to life with the first access, so that a program that has
    // nothing open yet starts quickly.
    constexpr Table() noexcept : untouched_{} {}
    ~Table() {
        if (made_) records_.~Records();
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    // Fault 9 outside 0..Capacity.
    Record& operator[](i64 slot) { return records()[checked(slot)]; }
    const Record& operator[](i64 slot) const { return records()[checked(slot)]; }

    // False as long as nobody has come for a record: all of them are Record{} then.
    bool is_touched() const { return made_; }

    // All entries, 0 included.
    auto begin() { return records().begin(); }
    auto end() { return records().end(); }
    auto begin() const { return records().begin(); }
    auto end() const { return records().end(); }

  private:
    static std::size_t checked(i64 slot) {
        if (slot < 0 || slot > Capacity) throw Fault(fault_number::subscript_out_of_range);
        return static_cast<std::size_t>(slot);
    }

    using Records = std::array<Record, static_cast<std::size_t>(Capacity) + 1>;

    Records& records() {
        if (!made_) {
            new (&records_) Records{};
            made_ = true;
        }
        return records_;
    }
    const Records& records() const { return const_cast<Table*>(this)->records(); }

    union {
        char untouched_;
        Records records_;
    };
    bool made_ = false;
};

}  // namespace tavernook
