// Merging any bytes into a small household; its seeds are those of project_file_fuzz. The first 4
// bytes of the input tell the file's length modulo 4 MB; the rest is its front, behind which it
// reads as zeros. A merge that fails leaves everything as it was, and one that comes to its end no
// reference to nothing.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "kept_files.h"
#include "memory_files.h"
#include "platform/platform.h"
#include "quiet_platform.h"
#include "transfer/import_tally.h"
#include "transfer/merge.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// One file, and nothing else.
class OneFile : public KeptFiles {
  public:
    std::string_view front;
    i64 length = 0;

    std::unique_ptr<File> open(const std::string&, OpenMode) override {
        return std::make_unique<VirtualFile>(front, length);
    }
};

struct Household {
    OneFile files;
    CountedBoxes boxes;
    StillClock clock;
    QuietMain main;
    QuietProgress progress;
    FixedInfo system;

    Household() {
        set_platform({.clock = &clock,
                      .boxes = &boxes,
                      .files = &files,
                      .system_info = &system,
                      .save_progress = &progress,
                      .main = &main});
    }
};

void start_over() {
    reset_project_tables();
    items[1].name = "Ours";
    items[1].in_use = 1;
    file_version = 1;
    project_modified = i16_false;
    project_path = "/home/home.tvk";
}

template <typename Record, int N>
bool is_none_or_live(const Table<Record, N>& table, i16 row) {
    return row == 0 || is_live_row(table, row);
}

void check_references() {
    for (i16 item = 2; item <= item_capacity; ++item) {
        if (items[item].in_use == 0) continue;
        require(is_none_or_live(units, items[item].qty_units));
        require(is_none_or_live(units, items[item].serving_size_units));
        require(is_none_or_live(stores, items[item].store));
        require(is_live_row(catagories, items[item].category));
    }
    for (i16 meal = 1; meal <= meal_capacity; ++meal) {
        if (meals[meal].in_use == 0) continue;
        for (const i16 item : meals[meal].ingredient_item) require(is_none_or_live(items, item));
    }
}

void run(std::string_view input) {
    if (input.size() < 4) return;
    static Household& household = *new Household;
    std::uint32_t length = 0;
    std::memcpy(&length, input.data(), sizeof length);
    household.files.front = input.substr(4);
    household.files.length = length % (std::uint32_t{4} << 20U);
    start_over();
    const LiveCounts before = live_counts();
    merge_path = "/home/cabin.tvk";
    merge_project();
    require(file_version == 1);
    require(items[1].name == "Ours" && items[1].in_use == 1);
    if (household.main.status[message_panel].starts_with("Merged from")) return check_references();
    require(live_counts() == before && project_modified == i16_false);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::run({reinterpret_cast<const char*>(data), size});
    return 0;
}
