// The text that brings items in from a spreadsheet (docs/formats/csv_import.md): a line with the
// number of items, a line that is passed over, and a row of 38 fields for each item. This reader
// knows lines, rows and fields, and nothing of items.
//
// A line ends with CR LF where the first one does; where that ends with a lone LF (or a lone CR in
// a file without any LF) so do all. A last line without a line end is none.
//
// A field that begins with a quote runs to the next quote with a comma or the line's end behind it;
// those two quotes are dropped, and whatever quotes stand between them stay, doubled ones too. The
// 38th is the rest of its line unless it is quoted. Where a row does not come out with 38 fields by
// that, and does by another reading, that one counts:
//
//   "12"", frozen",        a doubled quote in front of a comma is no end
//   "12 inches<line end>   a line end is part of a quoted field, if the row is no longer than
//   frozen",               65,535 bytes and its first line does not have all the columns
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

inline constexpr std::size_t csv_fields = 38;

// Views into the text.
struct CsvRow {
    int line = 0;           // from 1; a row is one line however many line ends are in its fields
    std::string_view text;  // all of it, without its line end

    std::array<std::string_view, csv_fields> fields;  // those that are missing are empty
    std::size_t count = 0;                            // that are there, beyond 38 too
    bool is_open = false;                             // no quote ends the last one

    // Nothing is in any field.
    bool is_blank() const;

    bool has_all_fields() const { return count == csv_fields && !is_open; }
};

// A file's bytes as text: UTF-8 is turned into the code page when the file begins with its mark, or
// when it is UTF-8 as a whole.
std::string csv_text(std::string bytes);

class CsvLines {
  public:
    // Reads the first two lines. The text must outlive this.
    explicit CsvLines(std::string_view text);

    // The leading number of the first line, rounded; 0 where there is none, and never below.
    int count() const { return count_; }

    // The next row; nothing where no line end is left.
    std::optional<CsvRow> next();

    // The line, from 1, that is no line for want of a line end; 0 when there is none such. Of use
    // behind the last row.
    int unended_line() const;

  private:
    struct LineEnd {
        std::size_t at;      // npos where there is none
        std::size_t behind;  // it
    };
    enum class Doubled { may_end_a_field, stays };
    static constexpr std::size_t none = std::string_view::npos;

    LineEnd line_end_from(std::size_t from) const;
    bool is_line_end(std::size_t at) const;
    CsvRow read(std::size_t begin, std::size_t end, Doubled doubled) const;
    std::optional<CsvRow> read_over_lines(const CsvRow& first_line);
    std::size_t end_over_lines(std::size_t limit, Doubled doubled) const;
    CsvRow present_row(std::size_t line_end);

    std::string_view text_;
    std::string_view line_end_;
    std::size_t at_ = 0;
    int line_ = 1;
    int count_ = 0;
    int tries_over_lines_ = 1000;  // that may fail, so that a hostile file does not take long
};

}  // namespace tavernook
