#include "shopping/list_file.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "basics/byte_codec.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "shopping/list_rows.h"

namespace tavernook {

namespace {

// Places count from 0 here.
constexpr std::size_t count_place = 9;
constexpr std::size_t first_item_place = 99;
constexpr std::size_t file_size = first_item_place + 2 * (item_capacity + 1);

constexpr std::size_t place_of_column(std::size_t column) {
    return 19 + 10 * column;
}

constexpr std::size_t place_of_row(int row) {
    return first_item_place + 2 * static_cast<std::size_t>(row);
}

std::string list_bytes(const ShownColumns& shown) {
    std::string bytes(file_size, '\0');
    store_little_endian<i16>(&bytes[count_place], list_count);
    for (std::size_t column = 0; column < shown.size(); ++column) {
        store_little_endian<i16>(&bytes[place_of_column(column)], truth(shown[column]));
    }
    for (int row = 1; row <= list_count; ++row) {
        store_little_endian<i16>(&bytes[place_of_row(row)], list_items[row]);
    }
    return bytes;
}

std::string first_bytes_of(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    std::string bytes(file_size, '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

// Nothing where the file is too short.
std::optional<i16> number_at(std::string_view bytes, std::size_t place) {
    if (place + sizeof(i16) > bytes.size()) return {};
    return load_little_endian<i16>(bytes.data() + place);
}

void take_list(std::string_view bytes, ShownColumns& shown) {
    for (std::size_t column = 0; column < shown.size(); ++column) {
        const std::optional<i16> state = number_at(bytes, place_of_column(column));
        if (state) shown[column] = *state != 0;
    }
    for (i16 item = 1; item <= item_capacity; ++item) items[item].on_shopping_list = i16_false;
    const int rows = std::min<int>(number_at(bytes, count_place).value_or(0), item_capacity);
    for (int row = 1; row <= rows; ++row) {
        const i16 item = number_at(bytes, place_of_row(row)).value_or(0);
        if (item >= 1 && item <= item_capacity) items[item].on_shopping_list = i16_true;
    }
    project_modified = i16_true;
}

}  // namespace

bool Save_Shoplist(const std::string& path, const ShownColumns& shown) noexcept {
    return trap_in_screen([&] { replace_file(files().behind_link(path), list_bytes(shown)); });
}

bool populate_loadlist(const std::string& path, ShownColumns& shown) noexcept {
    return trap_in_screen([&] { take_list(first_bytes_of(path), shown); });
}

}  // namespace tavernook
