// The filter of the reports: which items match, and which of their fields are shown. Each of the 77
// rows (see report_fields.h) has a search string and a logic string that joins it to the next row.
//
// A search walks the rows from 1 to 77 with one running result and no precedence. A row joins by
// the logic string of the row before it; the rows of the lots read other rows besides, which is
// kept as it has always been:
//
//     row of a lot       "and" is read at   "or", "xor" at   and joins with
//     quantity, k        k - 1              k                AND, OR, XOR
//     expiration, k      k - 1              k - 1            AND, OR, XOR
//     creation, k        k - 1              k - 2            AND, AND, AND
//
// A row that none of them joins is passed over. Logic strings are compared in lower case.
//
// Search strings: "*" matches everything. "<", ">", "=", "!" in front compare the leading number of
// the value's text with the number behind them. Else "*" in front, behind or at both ends stands
// for any text, and what is without one must be the whole text; blanks around the value do not
// count, upper and lower case are the same. Of a text that ends or begins with the pattern as many
// letters as it has are taken and trimmed again: a pattern with a blank at its edge finds nothing.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/project_data.h"
#include "reports/report_fields.h"

namespace tavernook {

inline constexpr int filter_entries = 101;  // of which 1 to 77 are rows

// Truth values are -1 and 0.
struct ReportFilter {
    std::array<std::string, filter_entries> search_strings;
    std::array<std::string, filter_entries> logic_strings;  // as typed
    std::array<i16, filter_entries> row_checked{};          // the row is a column of the report
    std::array<i16, item_capacity + 1> result_flags{};      // of items in use; others are stale
    i16 view_all_next = i16_false;                          // what the button does next
};

// As the screen begins: entries 1 to 100 search "*" and join by "AND", rows 1 to 22 are checked.
void begin_report_filter(ReportFilter& filter) noexcept;

// The same for the 77 rows. The results and the button stay.
void reset_report_filter(ReportFilter& filter) noexcept;

// Where the string has its "*": 0 nowhere, 1 in front, 2 behind, 3 both.
i16 special_ops(std::string_view search_string) noexcept;

// The value against search_strings[row]. False, with a box, for an entry that there is not. The
// item plays no part.
bool IS_Match(const ReportFilter& filter, i16 item_index, const ReportValue& value,
              int row) noexcept;

// Writes result_flags of the items in use. The list does not follow by itself.
void search_engine(ReportFilter& filter) noexcept;

// --- what the user does to the filter; what is no row of it is left alone

// Ask with a box. An empty answer and Cancel leave the string as it is; what is no logic string is
// told and asked again. True when a string was stored.
bool ask_search_string(ReportFilter& filter, int row) noexcept;
bool ask_logic_string(ReportFilter& filter, int row) noexcept;

// Rows 2 to 77 all unchecked or all checked, in turns.
void view_none_or_all(ReportFilter& filter) noexcept;
std::string_view view_button_caption(const ReportFilter& filter) noexcept;

// Row 1 stays checked whatever is asked.
void check_row(ReportFilter& filter, int row, bool checked) noexcept;

}  // namespace tavernook
