// Reading a record by a number that another record stores. A number may name anything in a damaged
// file, so it is never an index by itself: what reads, asks here and gets a blank record for what
// is none; what writes, takes table[slot], which faults.
#pragma once

#include "basics/table.h"
#include "basics/values.h"

namespace tavernook {

// The record that a stored number names; the blank one for 0 and for numbers outside the table.
template <typename Record, int N>
const Record& row_or_none(const Table<Record, N>& table, i16 row) noexcept {
    static const Record none{};
    return row >= 1 && row <= N ? table[row] : none;
}

// Whether the number names a record in use.
template <typename Record, int N>
bool is_live_row(const Table<Record, N>& table, i16 row) noexcept {
    return row_or_none(table, row).in_use == 1;
}

}  // namespace tavernook
