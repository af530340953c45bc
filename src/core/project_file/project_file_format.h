// The numbers of the project file, shared by its reader and writer. docs/formats/project_file.md
// tells what they mean. Positions count from 1; offsets count from 0 within their block.
#pragma once

#include "basics/values.h"
#include "core/project_data.h"

namespace tavernook::project_file {

inline constexpr i32 header_position = 1;
inline constexpr int header_size = 48;
inline constexpr i32 in_writing_position = 49;  // one byte
inline constexpr i32 wams_slot = 50;
inline constexpr i32 older_wams_slot = 52;  // where files without project_created keep it
inline constexpr i32 lots_slot = 54;
inline constexpr i32 reserved_words_position = 58;
inline constexpr i32 toolbar_text_position = 80;
inline constexpr i32 project_tag_position = 84;
inline constexpr i32 items_position = 100;

inline constexpr i16 current_file_version = 1;

// A section's records: slot number and record, then unused bytes up to the stride.
inline constexpr int slot_size = 2;
inline constexpr int section_gap = 2;
inline constexpr int item_size = 150;
inline constexpr int item_stride = 176;
inline constexpr int older_item_stride = 164;
inline constexpr int catagory_size = 38;
inline constexpr int catagory_stride = 40;
inline constexpr int meal_size = 548;
inline constexpr int meal_stride = 550;
inline constexpr int name_row_size = 14;  // units and stores
inline constexpr int name_row_stride = 20;
inline constexpr int day_size = 134;
inline constexpr int day_stride = 137;

inline constexpr int setup_size = 446;
inline constexpr int setup_room = 1152;
inline constexpr int documents_gap = 2;
inline constexpr int setup_project_created_offset = 28;
inline constexpr int setup_item_details_slot = 410;
inline constexpr int setup_strings_slot = 416;
inline constexpr int setup_day_quantities_slot = 422;
inline constexpr int setup_meal_servings_slot = 428;

// Each block behind the documents starts at the length of the file so far + 2.
inline constexpr int block_gap = 2;
inline constexpr int lot_array_offset = 4;  // behind lot_table_top and 2 unused bytes
inline constexpr int lot_array_head = 10;   // dimensions i16, count i32, lower bound i32
inline constexpr i16 lot_dimensions = 1;
inline constexpr int lot_size = 516;
inline constexpr int highest_lot_count = item_capacity + 2;
inline constexpr int item_detail_size = 106;
inline constexpr int day_quantity_size = 496;
inline constexpr int meal_serving_record_size = 8;

inline int stride_of_items() {
    return file_version == current_file_version ? item_stride : older_item_stride;
}

}  // namespace tavernook::project_file
