// The bytes of a saved report, "NAME.rcg". Offsets count from 0; numbers are little-endian, 16-bit.
//
//   0      202   row_checked, entries 0 to 100
//   499    32    display name, blank padded
//   551    154   display positions of the columns 1 to 77
//   724    2     sort key
//   727    2     sorted, -1 or 0
//   731    2     sort order, 0 ascending, 1 descending
//   999    ...   search_strings, entries 0 to 100, each a length and that many characters
//
// All other bytes are never read, and kept where a file is written over. Logic strings are not
// saved; kept, so that a report means something else under other ones.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "basics/fixed_string.h"
#include "reports/report_filter.h"
#include "reports/report_list.h"

namespace tavernook {

using ReportName = FixedString<32>;
inline constexpr std::size_t report_name_offset = 499;

// How the columns of the list stand: entry k is where column k is shown, both from 1.
using ColumnPositions = std::array<i16, report_rows + 1>;
inline constexpr ColumnPositions designed_positions = [] {
    ColumnPositions positions{};
    for (i16 column = 1; column <= report_rows; ++column) {
        positions[static_cast<std::size_t>(column)] = column;
    }
    return positions;
}();

// What the list looks like on the screen; handed in for saving, handed out by loading.
struct ReportLook {
    ColumnPositions column_positions = designed_positions;
    ReportSort sort;
    bool operator==(const ReportLook&) const = default;
};

inline constexpr std::size_t longest_search_string = 65535;

// A file of the format is never longer; what is behind that is not kept.
inline constexpr std::size_t longest_report_file =
    999 + filter_entries * (2 + longest_search_string);

// Written over `bytes`, the file as it was. Search strings that are too long are cut.
std::string encode_report(const ReportName& name, const ReportFilter& filter,
                          const ReportLook& look, std::string_view bytes) noexcept;

// Any bytes at all are read, value by value: what is not whole in them stays as it is. So do
// positions outside 1 to 100, a sort key outside 0 to 99 and an order that is neither 0 nor 1.
// `sorted` is passed over: whether the list is sorted stays as it is.
void decode_report(std::string_view bytes, ReportFilter& filter, ReportLook& look) noexcept;

// Nothing where the bytes end before the name does.
std::optional<ReportName> report_name_in(std::string_view bytes) noexcept;

}  // namespace tavernook
