// What the rows of a shared list are sorted by, in numbers.
#pragma once

#include <vector>

#include "screens/parts/guard.h"
#include "screens/parts/rows_model.h"

namespace tavernook {

// What the column's function says of the row; the blank value where there is none or it fails.
template <typename Value>
Value asked(const std::function<Value(RowId)>& function, RowId row) {
    Value value{};
    if (function) quietly([&] { value = function(row); });
    return value;
}

// A number for each row: the smaller, the earlier. Numbers are what the column says, texts their
// places among all texts, as people write them.
std::vector<f64> row_ranks(const RowsColumn& column, const std::vector<RowId>& rows);

}  // namespace tavernook
