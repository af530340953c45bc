// The plain file of an inventory file, put together by its layout and by nothing of the program.
#pragma once

#include "transfer/recipe_bytes.h"

namespace tavernook {

struct InventoryItemBytes {
    std::string name = "Sugar";
    double quantity = 6;
    std::string manufacturer = "Mill";
    std::string brand = "Sweet";
    std::string description = "white";
    std::string notes = "keep dry";
    std::string unit = "kg";
    std::string store = "Bakery";
    std::string serving_unit = "spoon";
    std::string nutrient_unit = "g";
    std::string catagory = "Baking";

    std::string bytes() const {
        ByPosition block;
        block.put_i16(1, 7);  // the category's row at home
        block.put(3, padded(name, 32));
        block.put_f64(35, quantity);
        block.put_f64(43, 12);  // the stock to keep
        block.put_i16(51, 44);  // the unit's row at home
        block.put_i16(53, 30);  // days
        block.put_f64(63, 1.25);
        block.put_i16(73, 99);  // the place's row at home
        block.put_i16(97, 1);
        block.put_f64(99, 45000);
        block.put(119, padded("4006381333931", 32));
        block.put_f64(151 + 16, 0.5);  // fat
        const std::size_t q = 257;
        block.put(q, manufacturer);
        block.put(q + 32, brand);
        block.put_i32(q + 64, static_cast<long long>(description.size()));
        block.put(q + 68, description);
        const std::size_t r = q + 68 + description.size();
        block.put_i32(r, static_cast<long long>(notes.size()));
        block.put(r + 4, notes);
        const std::size_t s = r + 4 + notes.size();
        block.put(s, padded(unit, 12));
        block.put(s + 12, padded(store, 12));
        block.put(s + 44, padded(serving_unit, 12));
        for (std::size_t nutrient = 0; nutrient < 9; ++nutrient) {
            block.put(s + 56 + nutrient * 12, padded(nutrient_unit, 12));
        }
        block.put(s + 164, padded(catagory, 32));
        return block.bytes;
    }
};

inline std::string inventory_bytes(const std::vector<InventoryItemBytes>& items) {
    ByPosition file;
    file.put_i16(1, static_cast<int>(items.size()));
    std::size_t position = 100;
    for (const InventoryItemBytes& one : items) {
        file.put(position, one.bytes());
        position += one.bytes().size();
    }
    return file.bytes;
}

}  // namespace tavernook
