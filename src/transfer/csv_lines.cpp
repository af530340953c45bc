#include "transfer/csv_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "basics/code_page.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "basics/utf8_mark.h"

namespace tavernook {

namespace {

constexpr std::string_view cr_lf = "\r\n";

// What a text of an item can hold.
constexpr std::size_t longest_over_lines = 65535;

bool begins_quoted(std::string_view text, std::size_t at) {
    return at < text.size() && text[at] == '"';
}

int count_of(std::string_view field) {
    const f64 number = std::nearbyint(leading_number(field));
    constexpr f64 most = std::numeric_limits<int>::max();
    return number > 0 ? static_cast<int>(std::min(number, most)) : 0;
}

// The quote that ends the field, npos where none does. `ends_at` tells whether a field ends there.
template <typename EndsAt>
std::size_t closing_quote(std::string_view text, std::size_t from, bool doubled_stays,
                          EndsAt ends_at) {
    for (std::size_t quote = text.find('"', from); quote != std::string_view::npos;
         quote = text.find('"', quote + 1)) {
        if (doubled_stays && begins_quoted(text, quote + 1)) {
            ++quote;
        } else if (ends_at(quote + 1)) {
            return quote;
        }
    }
    return std::string_view::npos;
}

}  // namespace

bool CsvRow::is_blank() const {
    return std::all_of(fields.begin(), fields.end(),
                       [](std::string_view field) { return trim(field).empty(); });
}

std::string csv_text(std::string bytes) {
    if (bytes.starts_with(utf8_mark)) {
        return text_from_utf8(std::string_view(bytes).substr(utf8_mark.size()));
    }
    return reads_as_utf8(bytes) ? text_from_utf8(bytes) : std::move(bytes);
}

CsvLines::CsvLines(std::string_view text) : text_(text) {
    const std::size_t feed = text.find('\n');
    if (feed == none) {
        line_end_ = cr_lf.substr(0, 1);
    } else {
        line_end_ = feed > 0 && text[feed - 1] == '\r' ? cr_lf : cr_lf.substr(1);
    }
    if (const auto first = next()) count_ = count_of(first->fields[0]);
    (void)next();
}

std::optional<CsvRow> CsvLines::next() {
    const LineEnd end = line_end_from(at_);
    if (end.at == none) return {};
    const CsvRow row = present_row(end.at);
    at_ = line_end_from(at_ + row.text.size()).behind;
    ++line_;
    return row;
}

int CsvLines::unended_line() const {
    const bool is_nothing = trim(text_.substr(at_)).empty();
    return is_nothing || line_end_from(at_).at != none ? 0 : line_;
}

// In files whose lines end with LF some may end with CR LF all the same.
CsvLines::LineEnd CsvLines::line_end_from(std::size_t from) const {
    const std::size_t at = text_.find(line_end_, from);
    if (at == none) return {none, none};
    const bool has_return = line_end_ == "\n" && at > from && text_[at - 1] == '\r';
    return {has_return ? at - 1 : at, at + line_end_.size()};
}

bool CsvLines::is_line_end(std::size_t at) const {
    const std::string_view here = text_.substr(at);
    return here.starts_with(line_end_) || (line_end_ == "\n" && here.starts_with(cr_lf));
}

CsvRow CsvLines::read(std::size_t begin, std::size_t end, Doubled doubled) const {
    CsvRow row;
    row.line = line_;
    row.text = text_.substr(begin, end - begin);
    const std::string_view text = row.text;
    const auto ends_at = [text](std::size_t at) { return at == text.size() || text[at] == ','; };
    std::size_t at = 0;
    for (bool goes_on = true; goes_on; ++row.count) {
        const bool is_quoted = begins_quoted(text, at);
        const bool keeps_doubled = doubled == Doubled::stays;
        const std::size_t from = is_quoted ? at + 1 : at;
        const std::size_t stop =
            is_quoted ? closing_quote(text, from, keeps_doubled, ends_at) : text.find(',', at);
        row.is_open = is_quoted && stop == none;
        const bool takes_the_rest = !is_quoted && row.count + 1 == csv_fields;
        if (row.count < csv_fields) {
            row.fields[row.count] = text.substr(from, takes_the_rest ? none : stop - from);
        }
        at = is_quoted && stop != none ? stop + 1 : stop;
        goes_on = at < text.size();
        ++at;
    }
    return row;
}

// Where the row ends whose quoted fields hold line ends; npos when that is not before the limit.
std::size_t CsvLines::end_over_lines(std::size_t limit, Doubled doubled) const {
    const std::string_view text = text_.substr(0, limit);
    LineEnd end = line_end_from(at_);
    const auto ends_at = [&](std::size_t at) {
        return at < text.size() && (text[at] == ',' || is_line_end(at));
    };
    for (std::size_t at = at_;;) {
        if (begins_quoted(text, at)) {
            at = closing_quote(text, at + 1, doubled == Doubled::stays, ends_at);
            if (at++ == none) return none;
        }
        if (end.at < at) end = line_end_from(at);
        at = std::min(text.find(',', at), end.at);
        if (at >= text.size()) return none;
        if (at++ == end.at) return end.at;
    }
}

// A row whose columns are all on its first line, but for the end of the last one, has its quote by
// mistake, and must not take the next row with it.
std::optional<CsvRow> CsvLines::read_over_lines(const CsvRow& first_line) {
    const auto commas = std::count(first_line.text.begin(), first_line.text.end(), ',');
    const bool breaks_the_last = first_line.count == csv_fields;
    const bool is_whole = commas + 1 >= std::ssize(first_line.fields) && !breaks_the_last;
    if (!first_line.is_open || is_whole || tries_over_lines_ == 0) return {};
    const std::size_t limit = std::min(text_.size(), at_ + longest_over_lines);
    for (const Doubled doubled : {Doubled::may_end_a_field, Doubled::stays}) {
        const std::size_t end = end_over_lines(limit, doubled);
        if (end == none) continue;
        const CsvRow row = read(at_, end, doubled);
        if (row.has_all_fields()) return row;
    }
    --tries_over_lines_;
    return {};
}

CsvRow CsvLines::present_row(std::size_t line_end) {
    const CsvRow by_the_rule = read(at_, line_end, Doubled::may_end_a_field);
    if (by_the_rule.has_all_fields() || by_the_rule.text.find('"') == none) return by_the_rule;
    const CsvRow with_doubled = read(at_, line_end, Doubled::stays);
    if (with_doubled.has_all_fields()) return with_doubled;
    return read_over_lines(by_the_rule).value_or(by_the_rule);
}

}  // namespace tavernook
