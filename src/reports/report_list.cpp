#include "reports/report_list.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "basics/date.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "basics/typed_numbers.h"
#include "core/item_progress.h"
#include "core/trap.h"

namespace tavernook {

namespace {

constexpr std::size_t titles_blanked = 77;
constexpr f64 behind_nothing = -std::numeric_limits<f64>::infinity();  // key of what is no number

constexpr std::string_view date_form = "mm/dd/yyyy";

std::size_t index(int number) {
    return static_cast<std::size_t>(number);
}

// "$1.50", "-$1.50".
std::string without_currency_sign(std::string_view cell, char sign) {
    const std::size_t minus = cell.starts_with('-') ? 1 : 0;
    std::string number(cell);
    if (cell.substr(minus).starts_with(sign)) number.erase(minus, 1);
    return number;
}

f64 date_key(std::string_view cell) {
    f64 key = behind_nothing;
    if (cell.size() == date_form.size()) tried([&] { key = date_from_text(cell); });
    return key;
}

}  // namespace

void ReportList::populate(const ReportFilter& filter) {
    clear();
    columns_ = report_columns(filter);
    currency_sign_ = static_cast<char>(currency_symbol);
    const ItemProgress progress("Building Report", "Adding Items to list. Please Wait....");
    for (i16 item = 1; item <= item_capacity; ++item) {
        ItemProgress::at_item(item);
        const bool found = filter.result_flags[index(item)] != i16_false;
        if (found && items[item].in_use == 1) add_item(item);
    }
    apply_sort();
}

void ReportList::clear() {
    for (std::size_t column = 0; column < titles_blanked; ++column) titles_[column].clear();
    items_.clear();
    text_.clear();
    ends_.clear();
    order_.clear();
}

void ReportList::add_item(i16 item) {
    if (items_.empty()) {
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            titles_[column] = column_title(columns_[column]);
        }
    }
    const ReportItem of = report_item(item);
    for (const ReportColumn& column : columns_) {
        text_ += column_text(column, of);
        ends_.push_back(text_.size());
    }
    items_.emplace_back(Subject::items, item);
    order_.push_back(order_.size());
}

i16 ReportList::item(int row) const noexcept {
    return row >= 0 && row < rows() ? items_[order_[index(row)]].now() : i16{0};
}

std::string_view ReportList::cell(int row, int column) const noexcept {
    const bool known = row >= 0 && row < rows() && column >= 0 && column < columns();
    return known ? stored_cell(order_[index(row)], index(column)) : std::string_view();
}

std::string_view ReportList::stored_cell(std::size_t row, std::size_t column) const noexcept {
    const std::size_t place = row * columns_.size() + column;
    const std::size_t start = place == 0 ? 0 : ends_[place - 1];
    return std::string_view(text_).substr(start, ends_[place] - start);
}

std::string_view ReportList::title(int column) const noexcept {
    return column >= 0 && column < report_column_slots ? titles_[index(column)]
                                                       : std::string_view();
}

void ReportList::sort_by(int column) {
    if (column < 0 || column >= columns()) return;
    sort = {static_cast<i16>(column), static_cast<i16>(sort.order == 0 ? 1 : 0), i16_true};
    apply_sort();
}

template <typename KeyOf>
auto ReportList::keys_of(std::size_t column, KeyOf key_of) const {
    std::vector<decltype(key_of({}))> keys;
    keys.reserve(order_.size());
    for (std::size_t row = 0; row < order_.size(); ++row) {
        keys.push_back(key_of(stored_cell(row, column)));
    }
    return keys;
}

template <typename Key>
void ReportList::order_by(const std::vector<Key>& keys) {
    std::stable_sort(order_.begin(), order_.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
}

void ReportList::apply_sort() {
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    if (sort.sorted == i16_false || sort.key < 0 || sort.key >= columns()) return;
    const std::size_t column = index(sort.key);
    const SortKind kind = sort_kind(columns_[column]);
    if (kind == SortKind::text) {
        order_by(keys_of(column, [](std::string_view cell) { return lower_case(cell); }));
    } else {
        order_by(keys_of(column, [&](std::string_view cell) { return sort_number(cell, kind); }));
    }
    if (sort.order != 0) std::reverse(order_.begin(), order_.end());
}

f64 ReportList::sort_number(std::string_view cell, SortKind kind) const {
    if (kind == SortKind::date) return date_key(cell);
    return typed_number(without_currency_sign(cell, currency_sign_)).value_or(behind_nothing);
}

bool populate_list(const ReportFilter& filter, ReportList& list) noexcept {
    return trap_in_screen([&] { list.populate(filter); });
}

bool sort_report(ReportList& list, int column) noexcept {
    return trap_in_screen([&] { list.sort_by(column); });
}

std::string report_key(i16 item) noexcept {
    return "t" + std::to_string(item);
}

i16 item_of_report_key(std::string_view key) noexcept {
    const f64 number = key.starts_with('t') ? leading_number(key.substr(1)) : 0;
    return number >= 1 && number <= item_capacity ? static_cast<i16>(number) : i16{0};
}

}  // namespace tavernook
