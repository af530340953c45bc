// Tables -> bytes of the project file. When to save, what to ask and what to show is not decided
// here. Each routine works on an open file; positions count from 1.
#pragma once

#include "core/project_file/project_file_format.h"
#include "platform/files.h"

namespace tavernook::project_file {

// A file that is being written bears a mark from the first byte on; taking it away is the last
// thing that a save does. A file that still bears it is what a crash has left.
void mark_in_writing(File& file);
void mark_as_written(File& file);

// The words in front: show_toolbar_text, project_tag and the reserved ones.
void write_front_words(File& file);

// Each writes the live slots of its table from `position` on, records position and count in
// project_header, and returns the position at which the next section starts.
i32 write_item_section(File& file, i32 position);
i32 write_catagory_section(File& file, i32 position);
i32 write_meal_section(File& file, i32 position);
i32 write_unit_section(File& file, i32 position);
i32 write_store_section(File& file, i32 position);
i32 write_day_section(File& file, i32 position);

// Records the setup position in project_header and leaves the four block positions 0. Returns the
// position at which the document entries start.
i32 write_setup_block(File& file, i32 position);

// Records its position in project_header.
void write_documents(File& file, i32 position);

void write_header(File& file);

// The blocks that follow, each at the length of the file so far + 2, its position written into its
// slot. Fault 6 when the file has grown beyond what a position can tell.
void write_wam_block(File& file);
void write_lot_block(File& file);
void write_item_detail_block(File& file);
void write_string_block(File& file);
void write_day_quantity_block(File& file);
void write_meal_serving_block(File& file);

}  // namespace tavernook::project_file
