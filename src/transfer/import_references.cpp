#include "transfer/import_references.h"

#include "basics/text.h"
#include "core/catagories.h"
#include "core/name_rows.h"
#include "core/project_data.h"
#include "core/project_file/project_file_reader.h"
#include "core/rows.h"
#include "core/string_storage.h"
#include "transfer/item_block.h"

namespace tavernook {

namespace {

// Files have always been matched without the last row.
template <typename Record, int N>
std::unordered_map<std::string, i16> rows_by_name(const Table<Record, N>& table) {
    std::unordered_map<std::string, i16> rows;
    for (i16 row = 1; row < N; ++row) {
        const std::string_view name = trim(table[row].name.stored());
        if (is_live_row(table, row) && !name.empty()) rows.emplace(lower_case(name), row);
    }
    return rows;
}

// A new live row of that name, 0 where none is free. `find_free` has the box of a full table.
template <typename Record, int N>
i16 take_row(Table<Record, N>& table, i16 (*find_free)() noexcept, std::string_view name,
             bool& is_full) {
    const i16 row = is_full ? i16{0} : find_free();
    if (row == 0 || table[row].in_use != 0) {
        is_full = true;
        return 0;
    }
    table[row].name = name;
    table[row].in_use = 1;
    return row;
}

// As long as the names of a table are.
template <std::size_t N>
std::string_view cut_to(std::string_view name) {
    return trim(trim(name).substr(0, N));
}

}  // namespace

ImportReferences::ImportReferences() : units_(rows_by_name(units)), stores_(rows_by_name(stores)) {
    for (i16 row = 1; row < pooled_string_capacity; ++row) {
        const std::string_view text = trim(pooled_strings[row]);
        if (!text.empty()) texts_.emplace(lower_case(text), row);
    }
}

i16 ImportReferences::unit(std::string_view name) {
    const std::string_view wanted = cut_to<12>(name);
    if (wanted.empty()) return 0;
    const auto [known, is_new] = units_.try_emplace(lower_case(wanted), i16{0});
    if (is_new) known->second = take_row(units, find_free_unit, wanted, units_are_full_);
    if (known->second == 0) ++lost_;
    return known->second;
}

i16 ImportReferences::store(std::string_view name) {
    const std::string_view wanted = cut_to<12>(name);
    if (wanted.empty()) return 0;
    const auto [known, is_new] = stores_.try_emplace(lower_case(wanted), i16{0});
    if (is_new) known->second = take_row(stores, find_free_store, wanted, stores_are_full_);
    if (known->second == 0) ++lost_;
    return known->second;
}

i16 ImportReferences::text(std::string_view text) {
    const std::string_view wanted = storable_text(text);
    if (wanted.empty()) return 0;
    const auto [known, is_new] = texts_.try_emplace(lower_case(wanted), i16{0});
    if (is_new) known->second = take_text(wanted);
    if (known->second == 0) ++lost_;
    return known->second;
}

// The pool's own search would begin anew at its first row for each text.
i16 ImportReferences::take_text(std::string_view text) {
    while (next_text_ < pooled_string_capacity && !pooled_strings[next_text_].empty()) ++next_text_;
    if (next_text_ == pooled_string_capacity) {
        if (!texts_are_full_) find_free_string();
        texts_are_full_ = true;
        if (!pooled_strings[next_text_].empty()) return 0;
    }
    pooled_strings[next_text_] = text;
    return next_text_;
}

i16 ImportReferences::catagory(std::string_view name) {
    const std::string_view wanted = cut_to<32>(name);
    if (wanted.empty()) return 1;
    i16 found = 0;
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        if (is_item_catagory(row) && catagories[row].name.trimmed() == wanted) found = row;
    }
    if (found != 0) return found;
    constexpr i16 of_items = -1;
    if (catagories[find_free_catagory()].in_use == 0) return new_catagory(wanted, of_items, 0);
    ++lost_;
    return 1;
}

void ImportReferences::settle(ItemBlock& block) {
    ItemRecord& item = block.item;
    ItemDetailRecord& detail = block.detail;
    project_file::put_item_right(item);
    item.in_use = 1;
    item.locations = 0;
    item.qty_units = unit(block.qty_units);
    item.store = store(block.store);
    item.serving_size_units = unit(block.serving_size_units);
    detail.manufacturer = text(block.manufacturer);
    detail.brand = text(block.brand);
    detail.description = text(block.description);
    detail.notes = text(block.notes);
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        detail.*nutrient_fields[nutrient].unit = unit(block.nutrient_units[nutrient]);
    }
}

}  // namespace tavernook
