// Bytes of the project file -> tables. Every file counts as hostile: counts, positions, lengths and
// slots are checked before use, and memory stays bounded by the file's size. Each routine works on
// an open file and throws Fault 63 for a damaged or short file and Fault 9 for a slot outside its
// table; the tables are then filled as far as the reading came.
#pragma once

#include <vector>

#include "core/project_file/project_file_records.h"
#include "platform/files.h"

namespace tavernook::project_file {

// The words in front and the header, all counts and positions checked.
void read_front(File& file);

void read_item_section(File& file);
void read_catagory_section(File& file);

// What every item that comes from a file goes through: a store order outside 0..20 and a shopping
// quantity that is none count as none.
void put_item_right(ItemRecord& item);

void read_meal_section(File& file);
void read_unit_section(File& file);  // the units of a new project go first
void read_store_section(File& file);
void read_day_section(File& file);

void read_setup_block(File& file, BlockPositions& positions);
void read_documents(File& file);

// The i32 at a position of the file's front.
i32 read_position(File& file, i32 slot);

// The blocks; a position that is not above 0 leaves the table as it is.
void read_wam_block(File& file, i32 position);
void read_lot_block(File& file, i32 position);
void read_item_detail_block(File& file, i32 position);
void read_string_block(File& file, i32 position);
void read_day_quantity_block(File& file, i32 position);
void read_meal_serving_block(File& file, i32 position);  // a short file reads as zeros here

// The writer's mark of a file that is not finished.
[[nodiscard]] bool is_marked_in_writing(File& file);

// What a file lacks of the project that was to stand in it. Older files have fewer blocks, so that
// only one of the current version, or one that is marked, can lack any; those without a creation
// date never had lots. The recipe servings may be cut in any file.
enum class Missing {
    wams,
    lots,
    item_details,
    strings,
    day_quantities,
    meal_servings,
    last_meal_servings,
};

// Behind read_front and read_setup_block, which tell of what kind the file is.
[[nodiscard]] std::vector<Missing> missing_parts(File& file, const BlockPositions& positions);

// Whether the file ends right behind the recipe servings, as it does after a complete save: their
// position is the last thing that a save writes.
[[nodiscard]] bool ends_with_meal_servings(File& file, i32 position);

}  // namespace tavernook::project_file
