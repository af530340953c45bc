// An item as it travels: its records, and as text what is a row number at home, units, store and
// long texts. One coder for the ingredients of a recipe file (docs/formats/recipe_file.md) and for
// the items of an inventory file (docs/formats/inventory_file.md). Positions count from 1.
//
//   P          150    the item's record, its row numbers those of the project that wrote it
//   P + 150    8      recipe files only: the quantity of the ingredient, f64
//   D          106    its detail record
//   Q = D+106  32     manufacturer
//   Q + 32     32     brand, of which 12 are read
//   Q + 64     4, L1  length i32 and text of the description
//   R          4, L2  length i32 and text of the notes
//   S          12     unit of the quantity
//   S + 12     32     store, 12 of them used
//   S + 44     12     unit of the serving size
//   S + 56     9 x 12 units of the nutrients
//   S + 164    32     inventory files only: the category
//
// Blanks and NULs behind a text are none of it.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/records.h"
#include "inventory/items.h"
#include "platform/files.h"

namespace tavernook {

enum class BlockKind { ingredient, inventory };

struct ItemBlock {
    ItemRecord item;
    ItemDetailRecord detail;
    f64 ingredient_qty = 0;
    std::string manufacturer, brand, description, notes;
    std::string qty_units, store, serving_size_units;
    std::array<std::string, nutrient_count> nutrient_units;
    std::string category;
};

// A text of fixed width as it was meant: without the blanks around it and the NULs behind it.
std::string without_padding(std::string_view text) noexcept;

// A figure of a file: what is no number would make none of every sum that it comes into.
f64 number_or_0(f64 figure) noexcept;

// A blank one for a number that is no item's.
ItemBlock block_of_item(i16 item);

// A longer text than its place holds is cut there. Returns the position behind the block. Throws
// what the file layer throws.
i64 write_item_block(File& file, i64 position, const ItemBlock& block, BlockKind kind);

// Returns the position behind the block. Fault 63 when the file does not have all of it, whatever
// lengths it claims. A figure that is no number counts as 0. Of a description and of notes 65,535
// bytes are read.
i64 read_item_block(File& file, i64 position, ItemBlock& block, BlockKind kind);

}  // namespace tavernook
