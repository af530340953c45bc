// The report list: a row for each item that the last search found, its cells as texts. It is a
// snapshot; nothing of it follows the records. Cells lie one behind another in a single text, so
// that the list of 10,000 items comes up at once and views read it without copies.
//
// A sort reads the cells of one column into keys, once, and changes the order of the rows only.
// Ascending come cells that are no number or no date, then numbers by size and dates by day;
// texts sort without regard to case. The currency sign in front of an amount does not count. Rows
// that are equal stand by their items' numbers, and descending is the exact reverse.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/changes.h"
#include "reports/report_columns.h"
#include "reports/report_filter.h"

namespace tavernook {

inline constexpr int report_column_slots = 100;

struct ReportSort {
    i16 key = 0;    // a column, from 0
    i16 order = 0;  // 0 ascending, 1 descending
    i16 sorted = i16_false;
    bool operator==(const ReportSort&) const = default;
};

// Rows and columns count from 0; column 0 is the item's name. Of what there is not, texts are
// empty and numbers 0.
class ReportList {
  public:
    // The items of the filter's result that are in use, by number, and then in the order of `sort`
    // where it is on. Shows the progress window.
    void populate(const ReportFilter& filter);

    int rows() const noexcept { return static_cast<int>(order_.size()); }
    int columns() const noexcept { return rows() == 0 ? 0 : static_cast<int>(columns_.size()); }
    i16 item(int row) const noexcept;  // 0 as well when the item has gone since
    std::string_view cell(int row, int column) const noexcept;

    // Written with the rows: an empty list leaves the first 77 blank. What is behind them stays
    // from an earlier list.
    std::string_view title(int column) const noexcept;

    // What a click on a title does: flips the order and sorts by the column.
    void sort_by(int column);

    // Orders the rows anew by `sort`; by number where it is off or its column is not shown.
    void apply_sort();

    ReportSort sort;

  private:
    void clear();
    void add_item(i16 item);
    std::string_view stored_cell(std::size_t row, std::size_t column) const noexcept;
    template <typename KeyOf>
    auto keys_of(std::size_t column, KeyOf key_of) const;
    template <typename Key>
    void order_by(const std::vector<Key>& keys);
    f64 sort_number(std::string_view cell, SortKind kind) const;

    std::vector<ReportColumn> columns_;
    std::array<std::string, report_column_slots> titles_;
    std::vector<RowRef> items_;       // of stored rows
    std::string text_;                // the cells, row by row
    std::vector<std::size_t> ends_;   // of each in text_
    std::vector<std::size_t> order_;  // the stored row of each row shown
    char currency_sign_ = '$';        // in the cells
};

// The list anew. False, with a box and what has come so far, when that failed.
bool populate_list(const ReportFilter& filter, ReportList& list) noexcept;

// What a click on a title does. False, with a box, when the order could not be made; the rows stand
// by their items' numbers then.
bool sort_report(ReportList& list, int column) noexcept;

// The key of an item's row, "t" + number, and the item of a key; 0 for what is no key of an item.
std::string report_key(i16 item) noexcept;
i16 item_of_report_key(std::string_view key) noexcept;

}  // namespace tavernook
