#include "transfer/recipe_file.h"

#include "basics/fault.h"
#include "core/project_file/sequential_file.h"
#include "core/records.h"
#include "recipes/documents.h"
#include "transfer/item_block.h"

namespace tavernook {

namespace {

// Places in the head.
constexpr i64 name_at = 1;
constexpr i64 unit_at = 40;
constexpr i64 size_at = 75;
constexpr i64 count_at = 85;

// Places in the tail, behind the last block.
constexpr i64 length_behind = 10;
constexpr i64 document_behind = 20;
constexpr i64 unit_behind = 22;  // and the document's length

constexpr std::size_t name_width = 32;
constexpr std::size_t unit_width = 12;

std::string padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

template <typename Number>
void write_number(File& file, i64 position, Number number) {
    char bytes[sizeof(Number)];
    store_little_endian(bytes, number);
    file.write(position - 1, {bytes, sizeof(Number)});
}

template <typename Number>
Number read_number(File& file, i64 position) {
    return load_little_endian<Number>(read_exactly(file, position, sizeof(Number)).data());
}

std::string read_text(File& file, i64 position, std::size_t width) {
    return without_padding(read_exactly(file, position, width));
}

}  // namespace

void write_recipe_head(File& file, const RecipeHead& head) {
    file.write(name_at - 1, std::string_view(head.name).substr(0, name_width));
    file.write(unit_at - 1, std::string_view(head.serving_unit).substr(0, unit_width));
    write_number(file, size_at, head.serving_size);
    write_number(file, count_at, static_cast<i16>(head.ingredients + 1));
}

void write_recipe_tail(File& file, i64 position, const RecipeTail& tail) {
    const auto length = static_cast<i32>(tail.document.size());
    write_number(file, position + length_behind, length);
    file.write(position + document_behind - 1, tail.document);
    file.write(position + unit_behind + length - 1, padded(tail.serving_unit, unit_width));
}

RecipeHead read_recipe_head(File& file) {
    RecipeHead head;
    head.name = read_text(file, name_at, name_width);
    head.serving_unit = read_text(file, unit_at, unit_width);
    head.serving_size = number_or_0(read_number<f64>(file, size_at));
    const auto count = read_number<i16>(file, count_at);
    if (count < 1 || count > ingredient_places + 1) throw Fault(fault_number::bad_record_number);
    head.ingredients = static_cast<i16>(count - 1);
    return head;
}

RecipeTail read_recipe_tail(File& file, i64 position) {
    const auto length = read_number<i32>(file, position + length_behind);
    const bool is_there = length >= 0 && length <= longest_document &&
                          length <= file.length() - (position + document_behind - 1);
    if (!is_there) throw Fault(fault_number::bad_record_number);
    RecipeTail tail;
    tail.document =
        read_exactly(file, position + document_behind, static_cast<std::size_t>(length));
    tail.serving_unit = read_text(file, position + unit_behind + length, unit_width);
    return tail;
}

}  // namespace tavernook
