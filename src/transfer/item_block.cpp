#include "transfer/item_block.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "basics/fault.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "core/project_file/project_file_records.h"
#include "core/project_file/sequential_file.h"
#include "core/rows.h"
#include "core/string_storage.h"

namespace tavernook {

namespace {

constexpr std::size_t text_place = 32;  // manufacturer, brand, store, category
constexpr std::size_t brand_read = 12;
constexpr std::size_t unit_place = 12;
constexpr std::size_t length_place = 4;
constexpr std::size_t longest_text = 65535;

constexpr std::size_t records_size(BlockKind kind) {
    const std::size_t quantity = kind == BlockKind::ingredient ? sizeof(f64) : 0;
    return project_file::item_size + quantity + project_file::item_detail_size;
}

constexpr std::size_t names_size(BlockKind kind) {
    const std::size_t catagory = kind == BlockKind::inventory ? text_place : 0;
    return unit_place + text_place + unit_place + nutrient_count * unit_place + catagory;
}

std::string_view name_of_unit(i16 row) {
    return row_or_none(units, row).name.trimmed();
}

// --- writing -----------------------------------------------------------------------------------

// `width` bytes: the text, and `padding` behind it.
void write_text(ByteWriter& bytes, std::string_view text, std::size_t width, char padding) {
    text = text.substr(0, width);
    bytes.write_bytes(text);
    bytes.write_bytes(std::string(width - text.size(), padding));
}

void write_counted(ByteWriter& bytes, std::string_view text) {
    bytes.write_i32(static_cast<i32>(text.size()));
    bytes.write_bytes(text);
}

void write_unit(ByteWriter& bytes, std::string_view name) {
    write_text(bytes, name, unit_place, ' ');
}

void write_store(ByteWriter& bytes, std::string_view name) {
    write_text(bytes, name, unit_place, ' ');
    bytes.write_zeros(text_place - unit_place);
}

void write_names(ByteWriter& bytes, const ItemBlock& block, BlockKind kind) {
    write_unit(bytes, block.qty_units);
    write_store(bytes, block.store);
    write_unit(bytes, block.serving_size_units);
    for (const std::string& unit : block.nutrient_units) write_unit(bytes, unit);
    if (kind == BlockKind::inventory) write_text(bytes, block.category, text_place, ' ');
}

// --- reading -----------------------------------------------------------------------------------

std::string read_text(ByteReader& bytes, std::size_t width) {
    return without_padding(bytes.take(width));
}

std::string read_unit(ByteReader& bytes) {
    return read_text(bytes, unit_place);
}

// The counted text at the position, which moves behind it. What no row of the pool holds is not
// read.
std::string read_counted(File& file, i64& position) {
    const std::string head = read_exactly(file, position, length_place);
    const auto length = load_little_endian<i32>(head.data());
    position += length_place;
    if (length < 0 || length > file.length() - (position - 1)) {
        throw Fault(fault_number::bad_record_number);
    }
    std::string text =
        read_exactly(file, position, std::min(static_cast<std::size_t>(length), longest_text));
    position += length;
    return text;
}

void read_records(ByteReader& bytes, ItemBlock& block, BlockKind kind) {
    project_file::FieldReader code(bytes);
    fields(code, block.item);
    if (kind == BlockKind::ingredient) code(block.ingredient_qty);
    fields(code, block.detail);
    block.manufacturer = read_text(bytes, text_place);
    block.brand = read_text(bytes, brand_read);
}

void put_numbers_right(ItemBlock& block) {
    ItemRecord& item = block.item;
    for (f64* number : {&item.quantity, &item.stock_quantity, &item.restock_quantity, &item.cost,
                        &item.serving_size, &item.servings_per_qty_unit, &item.last_restock_date,
                        &block.detail.created_date, &block.ingredient_qty}) {
        *number = number_or_0(*number);
    }
    for (const NutrientFields& nutrient : nutrient_fields) {
        f64& value = block.detail.*nutrient.value;
        value = number_or_0(value);
    }
}

void read_names(ByteReader& bytes, ItemBlock& block, BlockKind kind) {
    block.qty_units = read_unit(bytes);
    block.store = read_unit(bytes);
    bytes.skip(text_place - unit_place);
    block.serving_size_units = read_unit(bytes);
    for (std::string& unit : block.nutrient_units) unit = read_unit(bytes);
    if (kind == BlockKind::inventory) block.category = read_text(bytes, text_place);
}

}  // namespace

std::string without_padding(std::string_view text) noexcept {
    const std::size_t last = text.find_last_not_of(std::string_view(" \0", 2));
    return std::string(trim(text.substr(0, last == std::string_view::npos ? 0 : last + 1)));
}

f64 number_or_0(f64 figure) noexcept {
    return std::isfinite(figure) ? figure : 0;
}

ItemBlock block_of_item(i16 item) {
    ItemBlock block;
    if (item < 1 || item > item_capacity) return block;
    const ItemRecord& record = block.item = items[item];
    const ItemDetailRecord& detail = block.detail = item_details[item];
    block.manufacturer = trim(pooled_text(detail.manufacturer));
    block.brand = trim(pooled_text(detail.brand));
    block.description = pooled_text(detail.description);
    block.notes = pooled_text(detail.notes);
    block.qty_units = name_of_unit(record.qty_units);
    block.store = row_or_none(stores, record.store).name.trimmed();
    block.serving_size_units = name_of_unit(record.serving_size_units);
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        block.nutrient_units[nutrient] = name_of_unit(detail.*nutrient_fields[nutrient].unit);
    }
    block.category = row_or_none(catagories, record.category).name.trimmed();
    return block;
}

i64 write_item_block(File& file, i64 position, const ItemBlock& block, BlockKind kind) {
    ByteWriter bytes;
    project_file::FieldWriter code(bytes);
    fields(code, block.item);
    if (kind == BlockKind::ingredient) code(block.ingredient_qty);
    fields(code, block.detail);
    write_text(bytes, block.manufacturer, text_place, '\0');
    write_text(bytes, block.brand, text_place, '\0');
    write_counted(bytes, block.description);
    write_counted(bytes, block.notes);
    write_names(bytes, block, kind);
    file.write(position - 1, bytes.bytes());
    return position + static_cast<i64>(bytes.size());
}

i64 read_item_block(File& file, i64 position, ItemBlock& block, BlockKind kind) {
    const std::size_t texts = text_place + text_place;
    const std::string records = read_exactly(file, position, records_size(kind) + texts);
    ByteReader front(records);
    read_records(front, block, kind);
    position += static_cast<i64>(records.size());
    block.description = read_counted(file, position);
    block.notes = read_counted(file, position);
    const std::string names = read_exactly(file, position, names_size(kind));
    ByteReader behind(names);
    read_names(behind, block, kind);
    put_numbers_right(block);
    return position + static_cast<i64>(names.size());
}

}  // namespace tavernook
