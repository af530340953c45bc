// ".lst" from any bytes: what it holds is on the list and nothing else, and a list that is saved
// and loaded again is the same.
#include <cstdint>
#include <cstdlib>
#include <set>

#include "basics/byte_codec.h"
#include "core/project_data.h"
#include "kept_files.h"
#include "platform/platform.h"
#include "shopping/list_file.h"
#include "shopping/list_rows.h"

namespace tavernook {
namespace {

KeptFiles kept_files;
CountedBoxes counted_boxes;
const std::string path = "/home/me/weekend.lst";

void require(bool holds) {
    if (!holds) std::abort();
}

std::set<i16> on_the_list() {
    std::set<i16> found;
    for (i16 item = 1; item <= item_capacity; ++item) {
        const i16 state = items[item].on_shopping_list;
        require(state == i16_true || state == i16_false);
        if (state == i16_true) found.insert(item);
    }
    return found;
}

// The number at a position, from 1; nothing behind the end.
std::optional<i16> number_at(std::string_view bytes, std::size_t position) {
    if (position + 1 > bytes.size()) return {};
    return load_little_endian<i16>(bytes.data() + position - 1);
}

std::set<i16> told_by(std::string_view bytes) {
    std::set<i16> told;
    const i16 rows = number_at(bytes, 10).value_or(0);
    for (std::size_t row = 1; row <= item_capacity && static_cast<int>(row) <= rows; ++row) {
        const i16 item = number_at(bytes, 100 + 2 * row).value_or(0);
        if (item >= 1 && item <= item_capacity) told.insert(item);
    }
    return told;
}

ShownColumns shown_by(std::string_view bytes, ShownColumns shown) {
    for (std::size_t column = 0; column < shown.size(); ++column) {
        const auto state = number_at(bytes, 20 + 10 * column);
        if (state) shown[column] = *state != 0;
    }
    return shown;
}

void read_and_write(const std::string& bytes) {
    kept_files.kept = {{path, bytes}};
    const ShownColumns before = {true, false, true, false, true, false, true};
    ShownColumns shown = before;
    require(populate_loadlist(path, shown));
    const std::set<i16> loaded = on_the_list();
    require(loaded == told_by(bytes));
    require(shown == shown_by(bytes, before));

    list_count = 0;
    for (const i16 item : loaded) list_items[++list_count] = item;
    require(Save_Shoplist(path, shown));
    require(kept_files.kept.size() == 1 && kept_files.kept.at(path).size() == 20101);
    ShownColumns again = {};
    require(populate_loadlist(path, again));
    require(again == shown && on_the_list() == loaded);
    require(counted_boxes.shown == 0);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    tavernook::set_platform({.boxes = &tavernook::counted_boxes, .files = &tavernook::kept_files});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::read_and_write(std::string(data, data + size));
    return 0;
}
