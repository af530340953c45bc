#include "core/project_file/project_file_writer.h"

#include <limits>

#include "core/project_file/project_file_records.h"
#include "core/project_file/sequential_file.h"

namespace tavernook::project_file {

namespace {

i32 to_position(i64 value) {
    if (value > std::numeric_limits<i32>::max()) throw Fault(fault_number::overflow);
    return static_cast<i32>(value);
}

void write_at(File& file, i64 position, const ByteWriter& bytes) {
    file.write(position - 1, bytes.bytes());
}

void write_position(File& file, i64 slot, i32 position) {
    ByteWriter bytes;
    bytes.write_i32(position);
    write_at(file, slot, bytes);
}

void write_word(File& file, i64 position, i16 word) {
    ByteWriter bytes;
    bytes.write_i16(word);
    write_at(file, position, bytes);
}

template <typename Record, int Capacity>
i32 write_section(File& file, const Table<Record, Capacity>& table, int record_size, int stride,
                  i32 position, ProjectHeader::Section& section) {
    section = {0, position};
    SequentialWriter writer(file, position);
    FieldWriter code(writer.bytes());
    const auto slack = static_cast<std::size_t>(stride - slot_size - record_size);
    for (int slot = 1; slot <= Capacity; ++slot) {
        if (table[slot].in_use != 1) continue;
        code(to_i16(slot));
        fields(code, table[slot]);
        code.unused(slack);
        writer.record_done();
        ++section.count;
    }
    writer.finish();
    return to_position(i64{position} + i64{section.count} * stride + section_gap);
}

i32 next_block_position(File& file) {
    return to_position(file.length() + block_gap);
}

template <typename Records>
void write_records(File& file, i64 position, const Records& records) {
    SequentialWriter writer(file, position);
    FieldWriter code(writer.bytes());
    for (const auto& record : records) {
        fields(code, record);
        writer.record_done();
    }
    writer.finish();
}

template <typename Texts>
void write_texts(File& file, i64 position, const Texts& texts) {
    SequentialWriter writer(file, position);
    for (const std::string& text : texts) writer.write_variable(text);
    writer.finish();
}

i64 setup_slot(int offset) {
    return i64{project_header.setup_position} + offset;
}

void write_mark(File& file, char mark) {
    file.write(in_writing_position - 1, std::string_view(&mark, 1));
}

}  // namespace

void mark_in_writing(File& file) {
    write_mark(file, 1);
}

void mark_as_written(File& file) {
    write_mark(file, 0);
}

void write_front_words(File& file) {
    write_word(file, toolbar_text_position, show_toolbar_text);
    write_word(file, project_tag_position, project_tag);
    ByteWriter bytes;
    FieldWriter code(bytes);
    code(project_reserved_words);
    write_at(file, reserved_words_position, bytes);
}

i32 write_item_section(File& file, i32 position) {
    return write_section(file, items, item_size, stride_of_items(), position, project_header.items);
}

i32 write_catagory_section(File& file, i32 position) {
    return write_section(file, catagories, catagory_size, catagory_stride, position,
                         project_header.catagories);
}

i32 write_meal_section(File& file, i32 position) {
    return write_section(file, meals, meal_size, meal_stride, position, project_header.meals);
}

i32 write_unit_section(File& file, i32 position) {
    return write_section(file, units, name_row_size, name_row_stride, position,
                         project_header.units);
}

i32 write_store_section(File& file, i32 position) {
    return write_section(file, stores, name_row_size, name_row_stride, position,
                         project_header.stores);
}

i32 write_day_section(File& file, i32 position) {
    return write_section(file, days, day_size, day_stride, position, project_header.days);
}

i32 write_setup_block(File& file, i32 position) {
    project_header.setup_position = position;
    ByteWriter bytes;
    FieldWriter code(bytes);
    const BlockPositions not_yet_known;
    setup_fields(code, not_yet_known);
    write_at(file, position, bytes);
    return to_position(i64{position} + setup_room + documents_gap);
}

void write_documents(File& file, i32 position) {
    project_header.documents_position = position;
    write_texts(file, position, meal_documents);
}

void write_header(File& file) {
    ByteWriter bytes;
    FieldWriter code(bytes);
    fields(code, project_header);
    write_at(file, header_position, bytes);
}

void write_wam_block(File& file) {
    const i32 position = next_block_position(file);
    write_position(file, wams_slot, position);
    SequentialWriter writer(file, position);
    for (const WamRecord& line : wams) {
        writer.bytes().write_i16(line.in_use);
        writer.write_variable(line.text);
    }
    writer.finish();
}

void write_lot_block(File& file) {
    const i32 position = next_block_position(file);
    write_position(file, lots_slot, position);
    SequentialWriter writer(file, position);
    FieldWriter code(writer.bytes());
    code(lot_table_top);
    code.unused(2);
    code(lot_dimensions);
    code(i32{lots.entries()});
    code(i32{0});
    for (int item = 0; item < lots.entries(); ++item) {
        fields(code, lots[item]);
        writer.record_done();
    }
    writer.finish();
}

void write_item_detail_block(File& file) {
    const i32 position = next_block_position(file);
    write_records(file, position, item_details);
    write_position(file, setup_slot(setup_item_details_slot), position);
}

void write_string_block(File& file) {
    const i32 position = next_block_position(file);
    write_texts(file, position, pooled_strings);
    write_position(file, setup_slot(setup_strings_slot), position);
}

void write_day_quantity_block(File& file) {
    const i32 position = next_block_position(file);
    write_records(file, position, day_quantities);
    write_position(file, setup_slot(setup_day_quantities_slot), position);
}

void write_meal_serving_block(File& file) {
    const i32 position = next_block_position(file);
    SequentialWriter writer(file, position);
    for (const f64 serving_size : meal_serving_size) writer.bytes().write_f64(serving_size);
    writer.finish();
    write_position(file, setup_slot(setup_meal_servings_slot), position);
}

}  // namespace tavernook::project_file
