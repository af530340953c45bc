// A whole project through an open file, by the reader's and the writer's own routines and in the
// order of core/file_management.cpp.
#pragma once

#include "core/project_file/project_file_reader.h"
#include "core/project_file/project_file_writer.h"

namespace tavernook {

inline void read_whole(File& file) {
    namespace format = project_file;
    format::BlockPositions positions;
    format::read_front(file);
    format::read_item_section(file);
    format::read_catagory_section(file);
    format::read_meal_section(file);
    format::read_unit_section(file);
    format::read_store_section(file);
    format::read_day_section(file);
    format::read_setup_block(file, positions);
    format::read_documents(file);
    const bool older = project_created == 0;
    const i32 slot = older ? format::older_wams_slot : format::wams_slot;
    format::read_wam_block(file, format::read_position(file, slot));
    if (!older) format::read_lot_block(file, format::read_position(file, format::lots_slot));
    format::read_item_detail_block(file, positions.item_details);
    format::read_string_block(file, positions.strings);
    format::read_day_quantity_block(file, positions.day_quantities);
    format::read_meal_serving_block(file, positions.meal_servings);
    (void)format::ends_with_meal_servings(file, positions.meal_servings);
    (void)format::missing_parts(file, positions);
}

inline void write_whole(File& file) {
    namespace format = project_file;
    format::mark_in_writing(file);
    format::write_front_words(file);
    i32 position = format::write_item_section(file, format::items_position);
    position = format::write_catagory_section(file, position);
    position = format::write_meal_section(file, position);
    position = format::write_unit_section(file, position);
    position = format::write_store_section(file, position);
    position = format::write_day_section(file, position);
    position = format::write_setup_block(file, position);
    format::write_header(file);
    format::write_documents(file, position);
    format::write_header(file);
    format::write_wam_block(file);
    format::write_lot_block(file);
    format::write_item_detail_block(file);
    format::write_string_block(file);
    format::write_day_quantity_block(file);
    format::write_meal_serving_block(file);
    format::mark_as_written(file);
}

}  // namespace tavernook
