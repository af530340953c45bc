#include "inventory/replacement.h"

#include <algorithm>

#include "core/name_rows.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

template <typename Record, int Capacity>
std::vector<i16> live_rows_but(const Table<Record, Capacity>& table, i16 left_out) {
    std::vector<i16> rows;
    for (i16 row = 1; row <= Capacity; ++row) {
        if (table[row].in_use == 1 && row != left_out) rows.push_back(row);
    }
    return rows;
}

template <typename Places>
void replace_in(Places& places, i16 row, i16 replacement) {
    std::replace(places.begin() + 1, places.end(), row, replacement);
}

void replace_item(i16 row, i16 replacement) {
    for (i16 meal = 1; meal <= meal_capacity; ++meal) {
        if (meals[meal].in_use == 1) replace_in(meals[meal].ingredient_item, row, replacement);
    }
    for (i16 day = 1; day <= day_capacity; ++day) {
        if (days[day].in_use == 1) replace_in(days[day].planned_item, row, replacement);
    }
    items[row].in_use = 0;
    clear_item_record(row);
    clear_lot_record(row);
}

void replace_store(i16 row, i16 replacement) {
    for (ItemRecord& item : items) {
        if (item.in_use == 1 && item.store == row) item.store = replacement;
    }
    stores[row] = StoreRecord{};
    refresh_store_list();
}

void replace_unit(i16 row, i16 replacement) {
    for (ItemRecord& item : items) {
        const bool as_serving = item.serving_size_units == row;
        if (item.in_use != 1 || (item.qty_units != row && !as_serving)) continue;
        item.qty_units = replacement;
        if (as_serving) item.serving_size_units = replacement;
    }
    units[row] = UnitRecord{};
    refresh_unit_list();
}

void move_references(i16 row, i16 replacement, ReplacementType type) {
    switch (type) {
        case ReplacementType::item:
            return replace_item(row, replacement);
        case ReplacementType::store:
            return replace_store(row, replacement);
        case ReplacementType::unit:
            return replace_unit(row, replacement);
    }
}

}  // namespace

std::vector<i16> replacement_rows(i16 row, ReplacementType type) noexcept {
    switch (type) {
        case ReplacementType::item:
            return live_rows_but(items, row);
        case ReplacementType::store:
            return live_rows_but(stores, row);
        case ReplacementType::unit:
            return live_rows_but(units, row);
    }
    return {};
}

void replace_row(i16 row, i16 replacement, ReplacementType type) noexcept {
    if (row < 1) return;  // 0 stands for "none" in every place that is free
    if (!trap_in_module([&] { move_references(row, replacement, type); })) return;
    boxes().message("All replacements completed successfully.");
}

}  // namespace tavernook
