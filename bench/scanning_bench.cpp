// Scanning on a full project: a code is looked up among 10,000 items, beside one pass over the
// bytes that must be looked at and beside SQLite, in memory and without an index, which looks for
// the same text ("sqlite_ratio" is its time in look-ups); a thousand rows are told anew; and a
// thousand rows are booked as new stock, beside a program that writes the same histories.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "barcodes/scan_booking.h"
#include "barcodes/scan_list.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "database.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"
#include "inventory/usage_files.h"
#include "inventory/usage_history.h"
#include "measured_pairs.h"
#include "support/generated_projects.h"
#include "yardstick.h"

namespace tavernook {
namespace {

// A box would mean that the measured work is not what it should be.
class NoBoxes : public Boxes {
  public:
    Answer message(std::string_view, Buttons, std::string_view, DefaultButton) override {
        std::abort();
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        std::abort();
    }
};

std::string code_of(i16 item) {
    return std::to_string(4006381000000 + item);
}

// A full project on the real disk, without the records that the fakes keep.
struct Household {
    Household() {
        fill_full_project();
        for (i16 item = 1; item <= item_capacity; ++item) items[item].barcode = code_of(item);
        set_project_path("/home/me/bench.tvk");
        project_open = i16_true;
        set_platform({.clock = &platform.clock,
                      .boxes = &boxes,
                      .files = &platform.disk,
                      .system_info = &platform.system,
                      .main = &platform.main});
    }

    TestPlatform platform;
    NoBoxes boxes;
};

// --- looking up --------------------------------------------------------------------------------

using Barcodes = std::vector<FixedString<32>>;

Barcodes borne_codes() {
    Barcodes codes;
    for (i16 item = 1; item <= item_capacity; ++item) codes.push_back(items[item].barcode);
    return codes;
}

class CodesDatabase {
  public:
    CodesDatabase() {
        database_.run("create table item (number integer primary key, barcode text)");
        Statement insert(database_, "insert into item values (?1, ?2)");
        database_.run("begin");
        for (i16 item = 1; item <= item_capacity; ++item) {
            insert.bind(1, int{item}).bind(2, code_of(item).c_str()).carry_out();
        }
        database_.run("commit");
        find_.emplace(database_, "select number from item where barcode = ?1");
    }

    int find(const char* code) {
        find_->bind(1, code);
        const int found = find_->next_row() ? find_->whole(0) : 0;
        if (found != 0) (void)find_->next_row();
        return found;
    }

  private:
    Database database_;
    std::optional<Statement> find_;
};

double seconds_in_database(const std::string& code) {
    CodesDatabase database;
    std::vector<double> seconds;
    for (int turn = 0; turn < 50; ++turn) {
        seconds.push_back(
            seconds_of([&] { benchmark::DoNotOptimize(database.find(code.c_str())); }));
    }
    return median(seconds);
}

// The same texts side by side, compared one by one.
std::size_t place_of(const Barcodes& codes, const FixedString<32>& wanted) {
    std::size_t place = 0;
    while (place < codes.size() && std::memcmp(codes[place].data(), wanted.data(), 32) != 0)
        ++place;
    return place;
}

void find(benchmark::State& state, const std::string& code, i16 expected) {
    const Household household;
    const Barcodes codes = borne_codes();
    if (find_barcode(code) != expected) std::abort();
    const double seconds = measure_pairs(
        state, [] {}, [&] { benchmark::DoNotOptimize(find_barcode(code)); },
        [&] { benchmark::DoNotOptimize(place_of(codes, code)); });
    const double pass = yardstick_seconds([] { return pass_over(items); });
    state.counters["pass_ratio"] = seconds / pass;
    state.counters["sqlite_ratio"] = seconds_in_database(code) / seconds;
}

void find_code_of_the_last_item(benchmark::State& state) {
    find(state, code_of(item_capacity), item_capacity);
}

void find_code_of_no_item(benchmark::State& state) {
    find(state, code_of(item_capacity + 1), 0);
}

// --- the list ----------------------------------------------------------------------------------

void scan_thousand() {
    clear_scan_list();
    for (i16 row = 0; row < 1000; ++row) {
        populate_item(code_of(static_cast<i16>(item_capacity - row)), 2, "");
    }
}

std::vector<i32> all_rows() {
    std::vector<i32> ids;
    for (const ScanRow& row : scan_rows) ids.push_back(row.id);
    return ids;
}

void tell_thousand_rows(benchmark::State& state) {
    const Household household;
    scan_thousand();
    measure_pairs(
        state, [] {}, [] { refresh_scan_rows(); },
        [] { benchmark::DoNotOptimize(pass_over(items)); });
}

void empty_lots() {
    for (i16 item = 1; item <= item_capacity; ++item) init_lot_record(item);
}

// As the histories are: one entry a file, in a folder of their own.
void write_files(const std::filesystem::path& folder) {
    const std::string entry = encode_usage({2, 45427.5, usage_added, 0});
    for (int file = 0; file < 1000; ++file) {
        std::ofstream(folder / std::to_string(file), std::ios::binary) << entry;
    }
}

void book_thousand_rows(benchmark::State& state) {
    Household household;
    int run = 0;
    std::string folder;
    const auto next_folder = [&] {
        folder = household.platform.path("run " + std::to_string(++run));
        household.platform.disk.make_folder(folder + "/reports");
    };
    measure_pairs(
        state,
        [&] {
            forget_usage_files();
            next_folder();
            household.platform.system.program = folder;
            empty_lots();
            scan_thousand();
        },
        [] {
            if (Add_New(all_rows()).booked != 1000) std::abort();
        },
        [&] {
            next_folder();
            write_files(folder);
        });
}

#define SCANNING_BENCHMARK(name) BENCHMARK(name)->UseManualTime()->Unit(benchmark::kMicrosecond)
SCANNING_BENCHMARK(find_code_of_the_last_item);
SCANNING_BENCHMARK(find_code_of_no_item);
SCANNING_BENCHMARK(tell_thousand_rows);
SCANNING_BENCHMARK(book_thousand_rows)->Iterations(10);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
