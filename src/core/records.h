// The records of an open project. Field order and widths follow the project file; names are the
// program's vocabulary, old spellings included, because files, pages and reports use them.
#pragma once

#include <array>
#include <string>

#include "basics/date.h"
#include "basics/fixed_string.h"
#include "basics/values.h"

namespace tavernook {

inline constexpr int ingredient_places = 50;  // 1..50; place 0 is never used
inline constexpr int day_places = 30;         // 1..30; place 0 is never used
inline constexpr int lot_places = 16;         // 0..15
inline constexpr i16 recipe_category_type = 32;
inline constexpr const char* no_barcode = "empty";

struct ItemRecord {
    i16 category = 0;
    FixedString<32> name;
    f64 quantity = 0;        // in qty_units; the sum of the lots where the item has lots
    f64 stock_quantity = 0;  // the level to keep
    i16 qty_units = 0;
    i16 storage_time = 0;      // days behind last_restock_date; 0 = does not expire
    f64 restock_quantity = 0;  // restocking is due at or below
    f64 cost = 0;              // of one quantity unit
    i16 store = 0;
    i16 locations = 0;  // row of pooled_strings
    i16 fat = 0;        // whole numbers per serving, kept beside the exact ones
    i16 calories = 0;
    f64 serving_size = 0;  // in serving_size_units
    f64 servings_per_qty_unit = 0;
    i16 serving_size_units = 0;
    i16 in_use = 0;  // 1 = live
    Date last_restock_date = 0;
    i16 store_order = 0;  // 0..20, the walk through the store
    i16 on_shopping_list = 0;
    f64 shopping_quantity = 0;
    FixedString<32> barcode;
    bool operator==(const ItemRecord&) const = default;
};

// Entry n belongs to item n. The texts are rows of pooled_strings, the units rows of units.
struct ItemDetailRecord {
    i16 manufacturer = 0;
    i16 brand = 0;
    i16 description = 0;
    i16 notes = 0;
    Date created_date = 0;
    f64 fat = 0;
    i16 fat_units = 0;
    f64 calories = 0;
    i16 calories_units = 0;
    f64 cholestorol = 0;
    i16 cholestorol_units = 0;
    f64 sodium = 0;
    i16 sodium_units = 0;
    f64 potassium = 0;
    i16 potassium_units = 0;
    f64 carbohydrates = 0;
    i16 carbohydrates_units = 0;
    f64 fiber = 0;
    i16 fiber_units = 0;
    f64 sugars = 0;
    i16 sugars_units = 0;
    f64 protien = 0;
    i16 protien_units = 0;
    bool operator==(const ItemDetailRecord&) const = default;
};

// Entry n belongs to item n.
struct LotRecord {
    i16 active = 0;  // -1 once set up for its item
    std::array<FixedString<8>, lot_places> lot_name;
    std::array<Date, lot_places> creation_date{};
    std::array<Date, lot_places> expiration_date{};
    std::array<f64, lot_places> lot_quantity{};
    i16 current_lot = 0;  // the place that removals draw from
    bool operator==(const LotRecord&) const = default;
};

struct CatagoryRecord {
    FixedString<32> name;
    i16 in_use = 0;
    i16 type = 0;    // 32 = recipe category, anything else = item category
    i16 parent = 0;  // below 1 = top level
    bool operator==(const CatagoryRecord&) const = default;
};

struct UnitRecord {
    FixedString<12> name;
    i16 in_use = 0;
    bool operator==(const UnitRecord&) const = default;
};

struct StoreRecord {
    FixedString<12> name;
    i16 in_use = 0;
    bool operator==(const StoreRecord&) const = default;
};

struct MealRecord {
    FixedString<32> name;
    std::array<i16, ingredient_places + 1> ingredient_item{};
    std::array<f64, ingredient_places + 1> ingredient_qty{};  // in the item's serving sizes
    i16 in_use = 0;
    i16 category = 0;  // 0 = the root
    i16 serving_size_units = 0;
    bool operator==(const MealRecord&) const = default;
};

// A planned day in any free slot; all three of its date fields are 0 in a free one.
struct DayRecord {
    i16 month = 0;
    i16 year = 0;
    i16 day = 0;
    std::array<i16, day_places + 1> planned_meal{};
    std::array<i16, day_places + 1> planned_item{};
    i16 in_use = 0;
    i16 audited = 0;  // -1 = its plan has been taken out of the stock
    bool operator==(const DayRecord&) const = default;
};

// Entry n belongs to day n.
struct DayQuantityRecord {
    std::array<f64, day_places + 1> meal_servings{};
    std::array<f64, day_places + 1> item_quantity{};
    bool operator==(const DayQuantityRecord&) const = default;
};

// Unlike the other records a live line holds -1 and readers test for nonzero.
struct WamRecord {
    i16 in_use = 0;
    std::string text;
    bool operator==(const WamRecord&) const = default;
};

}  // namespace tavernook
