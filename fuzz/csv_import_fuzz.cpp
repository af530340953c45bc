// Items from a spreadsheet's text made of any bytes. A first byte below 8 tells how much room the
// tables have for them; with any other the rows are read and no more, which is quick. Whatever the
// text says: rows come out in their order and none twice, no live record is written over, what
// refers to a row refers to a live one, and there is no box but that of the last slot.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "kept_files.h"
#include "platform/platform.h"
#include "quiet_platform.h"
#include "transfer/csv_import.h"
#include "transfer/csv_lines.h"

namespace tavernook {
namespace {

const std::string path = "/home/me/foods.csv";

void require(bool holds) {
    if (!holds) std::abort();
}

class QuietForm : public ports::ImportForm {
  public:
    void begin(std::string_view) override { ++open; }
    void add_line(std::string_view) override {}
    void workbar(int percent) override { require(percent >= 0 && percent <= 100); }
    bool is_cancelled() override { return false; }
    void end() override { --open; }

    int open = 0;
};

KeptFiles kept_files;
CountedBoxes counted_boxes;
QuietForm quiet_form;
QuietPlatform quiet;

template <typename Record, int N>
void fill(Table<Record, N>& table, int free) {
    for (int row = 1; row <= N - free; ++row) {
        table[row].in_use = 1;
        table[row].name = "row " + std::to_string(row);
    }
}

template <typename Record, int N>
void require_kept(const Table<Record, N>& table, int free) {
    for (int row = 1; row <= N - free; ++row)
        require(table[row].name == "row " + std::to_string(row));
}

void check_rows(const std::string& bytes) {
    const std::string text = csv_text(bytes);
    CsvLines lines(text);
    const char* behind = text.data();
    while (const auto row = lines.next()) {
        require(row->text.data() >= behind);
        behind = row->text.data() + row->text.size();
        require(behind <= text.data() + text.size());
        require(row->count >= 1);
        for (const std::string_view field : row->fields) {
            require(field.empty() ||
                    (field.data() >= row->text.data() && field.data() + field.size() <= behind));
        }
    }
}

void import(int room, const std::string& bytes) {
    reset_project_tables();
    const int free = room % 4 == 0 ? 3 : 0;
    if (room % 4 != 1) {
        fill(items, free);
        fill(units, free);
        fill(stores, free);
        fill(catagories, free);
    }
    kept_files.kept = {{path, bytes}};
    counted_boxes.shown = 0;
    import_csv(path);
    require(quiet_form.open == 0 && !quiet.main.status[message_panel].empty());
    require(kept_files.kept.at(path) == bytes);
    if (room % 4 != 1) {
        require_kept(items, free);
        require_kept(units, free);
        require_kept(stores, free);
        require_kept(catagories, free);
        require(counted_boxes.shown <= 1);
    }
    for (int slot = 1; slot <= item_capacity; ++slot) {
        const ItemRecord& item = items[slot];
        if (item.in_use == 0 || (room % 4 != 1 && slot <= item_capacity - free)) continue;
        require(is_live_row(catagories, item.category));
        require(item.qty_units == 0 || is_live_row(units, item.qty_units));
        require(item.store == 0 || is_live_row(stores, item.store));
        require(item.locations >= 0 && std::isfinite(item.quantity) && std::isfinite(item.cost));
        require(lots[slot].lot_quantity[0] == item.quantity);
    }
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using namespace tavernook;
    Platform platform = quiet.platform();
    platform.boxes = &counted_boxes;
    platform.files = &kept_files;
    platform.import_form = &quiet_form;
    set_platform(platform);
    project_open = i16_true;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(data + 1, data + size);
    tavernook::check_rows(bytes);
    if (data[0] < 8) tavernook::import(data[0], bytes);
    return 0;
}
