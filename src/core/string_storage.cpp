#include "core/string_storage.h"

#include <optional>
#include <string>
#include <unordered_map>

#include "basics/text.h"
#include "core/project_data.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr const char* support_address = "support@tavernook.example";

// What the project file can hold of one text.
constexpr std::size_t longest_text = 65535;

bool row_holds(i16 row, std::string_view trimmed_text) {
    return trim(pooled_text(row)) == trimmed_text;
}

int references(i64 item, std::string_view trimmed_text) {
    const ItemDetailRecord& detail = item_details[item];
    int count = 0;
    for (const i16 row : {items[item].locations, detail.brand, detail.manufacturer,
                          detail.description, detail.notes}) {
        if (row_holds(row, trimmed_text)) ++count;
    }
    return count;
}

i16 first_free_from(i16 row) {
    while (row < pooled_string_capacity && !pooled_strings[row].empty()) ++row;
    return row;
}

// Where the texts stand, each in its lowest row, and from which row on one may be free. The keys
// lie in the pool.
struct Index {
    std::unordered_map<std::string_view, i16> rows;
    i16 free_from = 1;
};
std::optional<Index> index;

// `row` is free, or the last one, whose text goes.
void put_string(i16 row, std::string_view text) {
    if (index) {
        const auto former = index->rows.find(trim(pooled_strings[row]));
        if (former != index->rows.end() && former->second == row) index->rows.erase(former);
    }
    pooled_strings[row] = text;
    if (index) index->rows.emplace(pooled_strings[row], row);
}

}  // namespace

std::string_view pooled_text(i16 row) noexcept {
    if (row < 0 || row > pooled_string_capacity) return {};
    return pooled_strings[row];
}

std::string_view storable_text(std::string_view text) noexcept {
    return trim_right(trim(text).substr(0, longest_text));
}

i16 find_free_string() noexcept {
    const i16 row = first_free_from(index ? index->free_from : i16{1});
    if (index) index->free_from = row;
    if (row == pooled_string_capacity) {
        boxes().message(
            std::string("String Over Storage Error.  Please Contact Brenwyk Support at ") +
            support_address);
    }
    return row;
}

i16 find_string(std::string_view text) noexcept {
    const std::string_view wanted = trim(text);
    if (wanted.empty()) return 0;
    if (index) {
        const auto known = index->rows.find(wanted);
        return known != index->rows.end() ? known->second : i16{0};
    }
    for (i16 row = 1; row <= pooled_string_capacity; ++row) {
        if (row_holds(row, wanted)) return row;
    }
    return 0;
}

i16 add_string(std::string_view text) noexcept {
    const std::string_view wanted = storable_text(text);
    if (wanted.empty()) return 0;
    const i16 present = find_string(wanted);
    if (present != 0) return present;
    const i16 row = find_free_string();
    put_string(row, wanted);
    return row;
}

bool has_room_for_string(std::string_view text) noexcept {
    const std::string_view wanted = storable_text(text);
    if (wanted.empty() || find_string(wanted) != 0) return true;
    return first_free_from(index ? index->free_from : i16{1}) < pooled_string_capacity;
}

IndexedStrings::IndexedStrings() {
    index.emplace();
    index->rows.reserve(static_cast<std::size_t>(pooled_string_capacity));
    for (i16 row = 1; row <= pooled_string_capacity; ++row) {
        const std::string_view text = trim(pooled_strings[row]);
        if (!text.empty()) index->rows.emplace(text, row);
    }
}

IndexedStrings::~IndexedStrings() {
    index.reset();
}

bool is_string_shared(std::string_view text) noexcept {
    const std::string_view wanted = trim(text);
    int count = 0;
    for (i16 item = 1; item <= item_capacity; ++item) count += references(item, wanted);
    return count >= 2;
}

bool release_string(std::string_view text) noexcept {
    if (is_string_shared(text)) return false;
    pooled_strings[find_string(text)].clear();
    return true;
}

i16 change_string(std::string_view old_text, std::string_view new_text) noexcept {
    const std::string_view from = trim(old_text);
    const std::string to(storable_text(new_text));
    if (from == to) return find_string(from);
    if (from.empty()) return add_string(to);
    if (to.empty()) {
        release_string(from);
        return 0;
    }
    if (is_string_shared(from)) return add_string(to);
    const i16 row = find_string(from);
    if (row == 0) return add_string(to);
    pooled_strings[row] = to;
    return row;
}

void show_string_count() noexcept {
    int count = 0;
    for (const std::string& text : pooled_strings) count += text.empty() ? 0 : 1;
    boxes().message("There are currently " + std::to_string(count) + " Strings names");
}

}  // namespace tavernook
