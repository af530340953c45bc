// Items in and out. A spreadsheet's text of 10,000 items comes in, and beside it SQLite, in memory,
// takes the same rows into tables with an index for each name that is looked up: the pair of
// "ratio". Goal: 0.5 s. Then an inventory file of 10,000 items is written and read, beside the same
// bytes being copied.
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "database.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "platform/platform.h"
#include "transfer/csv_import.h"
#include "transfer/csv_lines.h"
#include "transfer/import_tally.h"
#include "transfer/inventory_exchange.h"
#include "transfer/inventory_file.h"
#include "transfer/portable_file.h"

namespace tavernook {
namespace {

constexpr int pairs = 9;
constexpr int all_items = 10000;

// A file of real foods may be named; without one each text is made up.
constexpr const char* foods_variable = "TAVERNOOK_FOODS_CSV";

// Yes to all; a box that only tells would mean that the measured work is not what it should be.
class YesBoxes : public Boxes {
  public:
    Answer message(std::string_view, Buttons buttons, std::string_view, DefaultButton) override {
        // The last slot is told.
        return buttons == Buttons::ok ? Answer::ok : Answer::yes;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        std::abort();
    }
};

class QuietForm : public ports::ImportForm {
  public:
    void begin(std::string_view) override { lines = 0; }
    void add_line(std::string_view) override { ++lines; }
    void workbar(int) override {}
    bool is_cancelled() override { return false; }
    void end() override {}

    int lines = 0;
};

struct Household {
    Household() { begin(); }

    void begin() {
        reset_project_tables();
        set_project_path(platform.path("home.tvk"));
        project_open = i16_true;
        set_platform({.clock = &platform.clock,
                      .boxes = &boxes,
                      .files = &platform.disk,
                      .system_info = &platform.system,
                      .save_progress = &platform.progress,
                      .main = &platform.main,
                      .import_form = &form,
                      .cabinets = &platform.cabinets});
        platform.calls.clear();
        platform.transcript.clear();
    }

    TestPlatform platform;
    YesBoxes boxes;
    QuietForm form;
};

std::string number(int n) {
    return std::to_string(n);
}

// Every description, note and place is its own text: 30,000 rows of the pool are not enough for
// more.
std::string made_up_row(int n) {
    const std::string unit = n % 3 == 0 ? "gram(s)" : "mg";
    std::string row = "\"Food, number " + number(n) + "\",Maker " + number(n % 300) + ",Brand " +
                      number(n % 500) + ",\"The description of food " + number(n) +
                      ", with a comma\",\"Reference " + number(n) + "; one serving is 1 cup\"," +
                      number(n % 9) + ",each," + number(n % 90) + ",5/11/2026,5,2," +
                      number(40000000 + n) + ",$" + number(n % 20) + ".95,Store " + number(n % 40) +
                      "," + number(n % 20) + ",5,gram(s),11";
    for (int nutrient = 0; nutrient < 9; ++nutrient) row += "," + number(n % 50) + ".25," + unit;
    return row + ",Group " + number(n % 60) + ",\"Pantry,Shelf " + number(n % 900) + "\"\r\n";
}

std::string made_up_foods() {
    std::string text = number(all_items) + "\r\nName\r\n";
    for (int n = 1; n <= all_items; ++n) text += made_up_row(n);
    return text;
}

std::string real_foods() {
    const char* path = std::getenv(foods_variable);
    if (path == nullptr) return {};
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// What the import does, as a database does it: one row an item, names looked up and made.
class FoodsDatabase {
  public:
    FoodsDatabase() {
        std::string columns;
        for (std::size_t field = 1; field <= csv_fields; ++field) {
            columns += (field > 1 ? ", f" : "f") + std::to_string(field);
        }
        database_.run("create table name (text text primary key, number integer)");
        database_.run(("create table item (number integer primary key, " + columns + ")").c_str());
        std::string places = "?1";
        for (std::size_t field = 2; field <= csv_fields; ++field) {
            places += ", ?" + std::to_string(field);
        }
        insert_.emplace(database_,
                        ("insert into item (" + columns + ") values (" + places + ")").c_str());
        name_.emplace(database_, "insert or ignore into name values (?1, 0)");
    }

    void take(const std::string& text) {
        CsvLines lines(text);
        database_.run("begin");
        while (const auto row = lines.next()) {
            for (std::size_t field = 0; field < csv_fields; ++field) {
                const std::string value(row->fields[field]);
                insert_->bind(static_cast<int>(field) + 1, value.c_str());
                if (is_name(field + 1)) name_->bind(1, value.c_str()).carry_out();
            }
            insert_->carry_out();
        }
        database_.run("commit");
    }

  private:
    // Texts, units, store and category.
    static bool is_name(std::size_t field) {
        if (field >= 19 && field <= 36) return field % 2 == 0;
        return (field >= 2 && field <= 5) || field == 7 || field == 14 || field == 17 || field > 36;
    }

    Database database_;
    std::optional<Statement> insert_;
    std::optional<Statement> name_;
};

void csv(benchmark::State& state, std::string (*foods)()) {
    const std::string text = foods();
    if (text.empty()) return state.SkipWithError("TAVERNOOK_FOODS_CSV names no file");
    Household household;
    const std::string path = household.platform.path("foods.csv");
    write_whole_file(path, text);
    const double seconds = measure_pairs(
        state, [&] { household.begin(); },
        [&] {
            import_csv(path);
            if (live_counts().items < 4000) std::abort();
        },
        [&] {
            FoodsDatabase database;
            database.take(text);
        });
    state.counters["items"] = live_counts().items;
    state.counters["us_an_item"] = seconds * 1e6 / live_counts().items;
    state.counters["lines"] = household.form.lines;
}

// Through a plain file on the disk, without the cabinet and its window.
void measure_inventory(benchmark::State& state, bool writes) {
    Household household;
    write_whole_file(household.platform.path("foods.csv"), made_up_foods());
    import_csv(household.platform.path("foods.csv"));
    const std::string path = household.platform.path("plain");
    const auto write = [&] {
        std::filesystem::remove(path);
        const auto file = household.platform.disk.open(path, OpenMode::read_write);
        InventoryFileWriter writer(*file);
        for (i16 item = 1; item <= all_items; ++item) writer.add(block_of_item(item));
        writer.finish();
    };
    const auto read = [&] {
        const auto file = household.platform.disk.open(path, OpenMode::read);
        InventoryFileReader reader(*file);
        ItemBlock block;
        while (reader.next(block)) benchmark::DoNotOptimize(block);
    };
    write();
    const std::string bytes = read_whole_file(path);
    std::string copy(bytes.size(), '\1');
    measure_pairs(
        state, [] {}, [&] { writes ? write() : read(); },
        [&] {
            std::memcpy(copy.data(), bytes.data(), bytes.size());
            benchmark::ClobberMemory();
        });
    state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
}

void inventory_written(benchmark::State& state) {
    measure_inventory(state, true);
}

void inventory_read(benchmark::State& state) {
    measure_inventory(state, false);
}

// The whole command, into an empty project.
void inventory_import(benchmark::State& state) {
    Household household;
    write_whole_file(household.platform.path("foods.csv"), made_up_foods());
    import_csv(household.platform.path("foods.csv"));
    const std::string path = household.platform.path("pantry.ipf");
    export_inventory(path);
    const std::string bytes = read_whole_file(path);
    std::string copy(bytes.size(), '\1');
    measure_pairs(
        state, [&] { household.begin(); },
        [&] {
            tavernook::import_inventory(path);
            if (live_counts().items != all_items) std::abort();
        },
        [&] {
            std::memcpy(copy.data(), bytes.data(), bytes.size());
            benchmark::ClobberMemory();
        });
}

BENCHMARK_CAPTURE(csv, made_up, made_up_foods)
    ->UseManualTime()
    ->Iterations(pairs)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(csv, real, real_foods)
    ->UseManualTime()
    ->Iterations(pairs)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(inventory_written)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond);
BENCHMARK(inventory_read)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond);
BENCHMARK(inventory_import)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
