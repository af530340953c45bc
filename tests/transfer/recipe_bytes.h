// The plain file of a recipe file, put together by its layout and by nothing of the program.
// Positions count from 1.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tavernook {

class ByPosition {
  public:
    void put(std::size_t position, std::string_view text) {
        const std::size_t end = position - 1 + text.size();
        if (bytes.size() < end) bytes.resize(end);
        bytes.replace(position - 1, text.size(), text);
    }
    void put_i16(std::size_t position, int value) { put_number(position, value, 2); }
    void put_i32(std::size_t position, long long value) { put_number(position, value, 4); }
    void put_f64(std::size_t position, double value) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        put_number(position, static_cast<long long>(bits), 8);
    }

    std::string bytes;

  private:
    void put_number(std::size_t position, long long value, int size) {
        std::string little;
        for (int byte = 0; byte < size; ++byte) {
            little += static_cast<char>((value >> (8 * byte)) & 0xFF);
        }
        put(position, little);
    }
};

inline std::string padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

// An item as it travels, with what a test wants to see again.
struct IngredientBytes {
    std::string name = "Sugar";
    double quantity_in_recipe = 2.5;
    double stock = 12;
    std::string manufacturer = "Mill";
    std::string brand = "Sweet";
    std::string description = "white";
    std::string notes = "keep dry";
    std::string unit = "kg";
    std::string store = "Bakery";
    std::string serving_unit = "spoon";
    std::string nutrient_unit = "g";
    double fat = 0.5;

    std::string bytes() const {
        ByPosition block;
        block.put_i16(1, 7);  // the category at home
        block.put(3, padded(name, 32));
        block.put_f64(35, stock);
        block.put_i16(51, 44);  // the unit's row at home
        block.put_i16(53, 30);  // days
        block.put_f64(63, 1.25);
        block.put_i16(73, 99);  // the place's row at home
        block.put_f64(79, 10);
        block.put_i16(97, 1);
        block.put_f64(99, 45000);
        block.put(119, padded("4006381333931", 32));
        block.put_f64(151, quantity_in_recipe);
        block.put_f64(159 + 16, fat);
        const std::size_t q = 265;
        block.put(q, manufacturer.substr(0, 32));
        block.put(q + 32, brand.substr(0, 32));
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
        return block.bytes;
    }
};

struct RecipeBytes {
    std::string name = "Soup";
    std::string serving_unit = "bowl";
    double serving_size = 4;
    std::vector<IngredientBytes> ingredients;
    std::string document = "{\\rtf1 Stir.}";

    // The position behind the last block.
    std::size_t tail() const {
        std::size_t position = 100;
        for (const IngredientBytes& one : ingredients) position += one.bytes().size();
        return position;
    }
    std::string bytes() const {
        ByPosition file;
        file.put(1, name);
        file.put(40, serving_unit);
        file.put_f64(75, serving_size);
        file.put_i16(85, static_cast<int>(ingredients.size()) + 1);
        std::size_t position = 100;
        for (const IngredientBytes& one : ingredients) {
            file.put(position, one.bytes());
            position += one.bytes().size();
        }
        file.put_i32(position + 10, static_cast<long long>(document.size()));
        file.put(position + 20, document);
        file.put(position + 22 + document.size(), padded(serving_unit, 12));
        return file.bytes;
    }
};

}  // namespace tavernook
