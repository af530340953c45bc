// Items: the parallel tables `items` and `item_details`. Stock is never written here directly; an
// edited quantity goes through the lots.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "basics/date.h"
#include "basics/values.h"
#include "core/records.h"

namespace tavernook {

inline constexpr int nutrient_count = 9;

struct NutrientFields {
    f64 ItemDetailRecord::*value;
    i16 ItemDetailRecord::*unit;
};
// In the order of the screens and files: fat, calories ... protien.
extern const std::array<NutrientFields, nutrient_count> nutrient_fields;

struct NutrientValue {
    f64 value = 0;
    std::string unit;
};

// What a form says of an item; texts are trimmed, units and the store are given by name.
struct ItemValues {
    std::string name;
    std::string quantity;  // as typed; its leading number counts
    f64 stock_quantity = 0;
    f64 storage_time = 0;  // days, rounded
    f64 restock_quantity = 0;
    f64 cost = 0;
    std::string qty_units;
    f64 serving_size = 0;
    std::string serving_size_units;
    f64 servings_per_qty_unit = 0;
    std::string store;
    i16 store_order = 0;
    i16 category = 0;
    Date last_restock_date = 0;  // create_item only
    std::string barcode;
    std::string manufacturer, brand, description, notes, locations;
    std::array<NutrientValue, nutrient_count> nutrients;
    f64 fat = 0;  // whole numbers, rounded; update_item only
    f64 calories = 0;
};

// The first free slot. A box warns when the search comes to slot 10000, free or not; that slot is
// then the result and the next item overwrites it.
i16 find_free_item_slot() noexcept;

// Units and the store that no row bears yet come into being. Returns the item's number. Fault 6,
// which the form tells, for a storage time beyond 16 bits; nothing has changed then.
i16 create_item(const ItemValues& values);

// Does nothing to an item that is not live. A quantity of 0, empty or no number leaves the stock.
// False, with a box and nothing changed, for a number outside the table and a figure beyond 16
// bits. Stock that cannot be taken is told by the box of remove_from_lots and stays; the rest is
// stored.
[[nodiscard]] bool update_item(i16 item, const ItemValues& values) noexcept;

// A copy with the source's figures, barcode and texts, and with empty lots: its quantity shows the
// source's only until the lots are summed. 0, with a box, for a source outside the table.
i16 copy_item(i16 source, i16 category) noexcept;

// -1 deleted, or handed to the replacement screen; 0 when the user refused, and, with a box, for a
// number outside the table.
i16 delete_item(i16 item) noexcept;

// Blanks the item's two records; in_use stays. The rows of its texts stay in the pool. A box for a
// number outside the table.
void clear_item_record(i16 item) noexcept;

// By trimmed lower-case name, live or not; 0 when there is none.
i16 find_item_by_name(std::string_view name) noexcept;

// By right-trimmed name, capitals and blanks of the argument counting; slot 10000 is never found.
i16 find_item_exact(std::string_view name) noexcept;

}  // namespace tavernook
