// The plain file inside a recipe file (docs/formats/recipe_file.md): a head, a block for each
// ingredient (transfer/item_block.h, the first at `first_recipe_block`), and a tail behind the last
// block. Positions count from 1. What is read trusts no count and no length.
#pragma once

#include <string>

#include "platform/files.h"

namespace tavernook {

inline constexpr i64 first_recipe_block = 100;

struct RecipeHead {
    std::string name;
    std::string serving_unit;
    f64 serving_size = 0;
    i16 ingredients = 0;  // 0..50; the file holds one more
};

struct RecipeTail {
    std::string document;  // rich text; empty for a recipe without a text
    std::string serving_unit;
};

// Longer texts than their places are cut there. These throw what the file layer throws.
void write_recipe_head(File& file, const RecipeHead& head);
void write_recipe_tail(File& file, i64 position, const RecipeTail& tail);

// Fault 63 when the file does not have all of it, for a count of ingredients that no recipe has and
// for a document longer than one can be.
RecipeHead read_recipe_head(File& file);
RecipeTail read_recipe_tail(File& file, i64 position);

}  // namespace tavernook
