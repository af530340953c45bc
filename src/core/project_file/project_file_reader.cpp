#include "core/project_file/project_file_reader.h"

#include "core/project_file/project_file_format.h"
#include "core/project_file/project_file_sections.h"
#include "core/project_file/sequential_file.h"

namespace tavernook::project_file {

namespace {

constexpr i64 size_of_meal_servings = i64{meal_capacity + 1} * meal_serving_record_size;

[[noreturn]] void fail_as_damaged() {
    throw Fault(fault_number::bad_record_number);
}

void check_section(const ProjectHeader::Section& section, int capacity, i64 length) {
    if (section.count < 0 || section.count > capacity) fail_as_damaged();
    if (section.position < 1 || section.position > length) fail_as_damaged();
}

void check_header(i64 length) {
    check_section(project_header.items, item_capacity, length);
    check_section(project_header.catagories, catagory_capacity, length);
    check_section(project_header.meals, meal_capacity, length);
    check_section(project_header.units, unit_capacity, length);
    check_section(project_header.stores, store_capacity, length);
    check_section(project_header.days, day_capacity, length);
    for (const i32 position : {project_header.setup_position, project_header.documents_position}) {
        if (position < 1 || position > length) fail_as_damaged();
    }
}

template <typename Record, int Capacity>
void read_section(File& file, Table<Record, Capacity>& table, int record_size, int stride,
                  const ProjectHeader::Section& section) {
    for_each_record(file, section, record_size, stride,
                    [&](i16 slot, std::string_view bytes) { read_record(bytes, table[slot]); });
}

template <typename Records>
void read_records(File& file, i32 position, std::size_t record_size, Records& records) {
    if (position <= 0) return;
    SequentialReader reader(file, position);
    for (auto& record : records) read_record(reader.take(record_size), record);
}

// Written so that NaN counts as out of range.
bool is_shopping_quantity(f64 quantity) {
    return quantity >= 0.001 && quantity <= 10000;
}

}  // namespace

void put_item_right(ItemRecord& item) {
    if (item.store_order > 20 || item.store_order < 1) item.store_order = 0;
    if (!is_shopping_quantity(item.shopping_quantity)) {
        item.shopping_quantity = 0;
        item.on_shopping_list = 0;
    }
}

void read_front(File& file) {
    const std::string front = read_exactly(file, header_position, items_position - 1);
    const auto at = [&](i32 position) {
        return std::string_view(front).substr(static_cast<std::size_t>(position - 1));
    };
    show_toolbar_text = load_little_endian<i16>(at(toolbar_text_position).data());
    project_tag = load_little_endian<i16>(at(project_tag_position).data());
    ByteReader words(at(reserved_words_position));
    FieldReader code(words);
    code(project_reserved_words);
    read_record(at(header_position), project_header);
    check_header(file.length());
}

void read_item_section(File& file) {
    read_section(file, items, item_size, stride_of_items(), project_header.items);
    for (ItemRecord& item : items) put_item_right(item);
}

void read_catagory_section(File& file) {
    read_section(file, catagories, catagory_size, catagory_stride, project_header.catagories);
}

void read_meal_section(File& file) {
    read_section(file, meals, meal_size, meal_stride, project_header.meals);
}

void read_unit_section(File& file) {
    for (UnitRecord& unit : units) unit = UnitRecord{};
    read_section(file, units, name_row_size, name_row_stride, project_header.units);
}

void read_store_section(File& file) {
    read_section(file, stores, name_row_size, name_row_stride, project_header.stores);
}

void read_day_section(File& file) {
    read_section(file, days, day_size, day_stride, project_header.days);
}

void read_setup_block(File& file, BlockPositions& positions) {
    const std::string block = read_exactly(file, project_header.setup_position, setup_size);
    ByteReader bytes(block);
    FieldReader code(bytes);
    setup_fields(code, positions);
    if (currency_symbol != 36 && currency_symbol != 165 && currency_symbol != 163) {
        currency_symbol = default_currency_symbol;
    }
}

void read_documents(File& file) {
    read_texts(file, project_header.documents_position, meal_documents);
}

i32 read_position(File& file, i32 slot) {
    return load_little_endian<i32>(read_exactly(file, slot, sizeof(i32)).data());
}

void read_wam_block(File& file, i32 position) {
    if (position <= 0) return;
    SequentialReader reader(file, position);
    for (WamRecord& line : wams) {
        line.in_use = reader.take_i16();
        reader.take_variable(line.text);
    }
}

void read_lot_block(File& file, i32 position) {
    if (position <= 0) return;
    SequentialReader reader(file, position);
    const i16 top = reader.take_i16();
    reader.skip(lot_array_offset - 2);
    const i16 dimensions = reader.take_i16();
    const i32 count = reader.take_i32();
    const i32 lower_bound = reader.take_i32();
    if (top < 0 || top > item_capacity) fail_as_damaged();
    if (dimensions != lot_dimensions || lower_bound != 0) fail_as_damaged();
    if (count < top + 1 || count > highest_lot_count) fail_as_damaged();
    lots.grow(top);
    for (i32 item = 0; item < count; ++item) {
        const std::string_view record = reader.take(lot_size);
        if (item < lots.entries()) read_record(record, lots[item]);
    }
}

void read_item_detail_block(File& file, i32 position) {
    read_records(file, position, item_detail_size, item_details);
}

void read_string_block(File& file, i32 position) {
    read_texts(file, position, pooled_strings);
}

void read_day_quantity_block(File& file, i32 position) {
    read_records(file, position, day_quantity_size, day_quantities);
}

void read_meal_serving_block(File& file, i32 position) {
    if (position <= 0) return;
    SequentialReader reader(file, position);
    for (f64& serving_size : meal_serving_size) {
        serving_size =
            load_little_endian<f64>(reader.take_or_zeros(meal_serving_record_size).data());
    }
}

bool is_marked_in_writing(File& file) {
    return read_exactly(file, in_writing_position, 1) != std::string(1, '\0');
}

std::vector<Missing> missing_parts(File& file, const BlockPositions& positions) {
    const bool is_dated = project_created != 0;
    const bool is_marked = is_marked_in_writing(file);
    const bool is_at_its_end = ends_with_meal_servings(file, positions.meal_servings);
    std::vector<Missing> missing;
    if (is_marked || (is_dated && file_version == current_file_version)) {
        const auto look = [&](Missing part, i32 position) {
            if (position <= 0) missing.push_back(part);
        };
        look(Missing::wams, read_position(file, is_dated ? wams_slot : older_wams_slot));
        if (is_dated) look(Missing::lots, read_position(file, lots_slot));
        look(Missing::item_details, positions.item_details);
        look(Missing::strings, positions.strings);
        look(Missing::day_quantities, positions.day_quantities);
        // Of the last position only a part may have come to the disk.
        look(Missing::meal_servings, is_marked && !is_at_its_end ? 0 : positions.meal_servings);
    }
    const bool is_cut = positions.meal_servings - 1 + size_of_meal_servings > file.length();
    if (positions.meal_servings > 0 && is_cut && !is_marked) {
        missing.push_back(Missing::last_meal_servings);
    }
    return missing;
}

bool ends_with_meal_servings(File& file, i32 position) {
    return position > 0 && position - 1 + size_of_meal_servings == file.length();
}

}  // namespace tavernook::project_file
