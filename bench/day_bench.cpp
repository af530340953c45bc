// What a day brings on a full project: the scan that decides what must be bought, booking what was
// bought, and the audit (goal: 2 s behind 10,000 saved histories).
// The scan stands beside one pass over the bytes that it must look at (goal: a ratio of 3) and
// beside SQLite, in memory and indexed, which selects the same items from the same data
// ("sqlite_ratio" is SQLite's time in scans, goal: 10).
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "core/program_folders.h"
#include "core/project/audit.h"
#include "database.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"
#include "inventory/usage_files.h"
#include "shopping/shopping_list.h"
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

class NoProgress : public ports::SaveProgress {
  public:
    void load(std::string_view, std::string_view) override {}
    void show() override {}
    void set_label(std::string_view) override {}
    void workbar(int) override {}
    void hide() override {}
    void unload() override {}
};

// A full project on the real disk, without the records that the fakes keep.
struct FullHousehold {
    FullHousehold() {
        fill_full_project();
        save_after_audit = 0;
        set_project_path("/home/me/bench.tvk");
        set_platform({.clock = &platform.clock,
                      .boxes = &boxes,
                      .files = &platform.disk,
                      .system_info = &platform.system,
                      .save_progress = &progress,
                      .main = &platform.main,
                      .screens = &platform.screens,
                      .replace_item = &platform.replace_item});
    }

    // A folder of its own for the histories.
    void begin_run() {
        forget_usage_files();
        platform.system.program = platform.path("run " + std::to_string(++runs));
        reports = platform.system.program + "/reports";
        platform.disk.make_folder(reports);
        platform.transcript.clear();
        platform.calls.clear();
    }

    TestPlatform platform;
    NoBoxes boxes;
    NoProgress progress;
    std::string reports;
    int runs = 0;
};

// One for all: where thousands of files have just been deleted, as with a household that goes, file
// systems look long for the place of a new one.
FullHousehold& household_of_this_run() {
    static FullHousehold household;
    household.begin_run();
    return household;
}

// --- what must be bought
// --------------------------------------------------------------------------

unsigned long long pass_over_stock() {
    const auto lot_entries = static_cast<std::size_t>(lots.entries());
    return pass_over(items) + sum_of_words(&lots[0], sizeof(LotRecord) * lot_entries);
}

int listed_items() {
    return static_cast<int>(std::count_if(items.begin(), items.end(), [](const ItemRecord& item) {
        return item.on_shopping_list != 0;
    }));
}

// The items and their lots as two tables, the lots in the order of their key.
class StockDatabase {
  public:
    StockDatabase() {
        database_.run(
            "create table item (number integer primary key, in_use integer, stock real,"
            " restock real, storage_time integer, last_restock real)");
        database_.run(
            "create table lot (item integer, place integer, quantity real,"
            " primary key (item, place)) without rowid");
        database_.run("begin");
        fill();
        database_.run("commit");
        database_.run("create index kept on item (in_use, stock)");
        database_.run("analyze");
        query_.emplace(
            database_,
            "select number, expiring, stock - quantity from (select i.number as number,"
            " i.stock as stock, i.restock as restock, max(0, sum(l.quantity)) as quantity,"
            " i.storage_time <> 0 and ?1 - i.last_restock + ?2 >= i.storage_time as expiring"
            " from item i join lot l on l.item = i.number"
            " where i.in_use <> 0 and i.stock <> 0 group by i.number)"
            " where expiring or quantity <= restock");
    }

    // How many items must be bought; each one's amount is fetched.
    int count_wanted(Date now) {
        query_->bind(1, now).bind(2, int{expiration_warning_days});
        int rows = 0;
        double amount = 0;
        while (query_->next_row()) {
            amount += query_->number(2);
            ++rows;
        }
        benchmark::DoNotOptimize(amount);
        return rows;
    }

  private:
    void fill() {
        Statement row(database_, "insert into item values (?1, ?2, ?3, ?4, ?5, ?6)");
        Statement lot(database_, "insert into lot values (?1, ?2, ?3)");
        for (i16 number = 1; number <= item_capacity; ++number) {
            const ItemRecord& item = items[number];
            row.bind(1, number).bind(2, item.in_use).bind(3, item.stock_quantity);
            row.bind(4, item.restock_quantity).bind(5, item.storage_time);
            row.bind(6, item.last_restock_date).carry_out();
            for (int place = 0; place < lot_places; ++place) {
                const f64 held = lots[number].lot_quantity[static_cast<std::size_t>(place)];
                lot.bind(1, number).bind(2, place).bind(3, held).carry_out();
            }
        }
    }

    Database database_;
    std::optional<Statement> query_;
};

void scan_what_must_be_bought(benchmark::State& state) {
    household_of_this_run();
    StockDatabase database;
    const Date now = platform_clock().now();
    build_shopping_list();
    if (database.count_wanted(now) != listed_items()) std::abort();
    measure(state, pass_over_stock, build_shopping_list);
    constexpr int queries = 20;
    Stopwatch::time_point start = Stopwatch::now();
    for (int turn = 0; turn < queries; ++turn) database.count_wanted(now);
    const double sqlite = seconds_since(start) / queries;
    start = Stopwatch::now();
    for (int turn = 0; turn < queries; ++turn) build_shopping_list();
    state.counters["sqlite_us"] = sqlite * 1e6;
    state.counters["sqlite_ratio"] = sqlite / (seconds_since(start) / queries);
}

// --- the audit
// ------------------------------------------------------------------------------------

void refill_lots() {
    for (i16 item = 1; item <= item_capacity; ++item) {
        lots[item].lot_quantity.fill(2000);
        items[item].quantity = lot_total(item);
    }
}

double count_of_moves() {
    double moves = 0;
    for (i16 day = 1; day <= day_capacity; ++day) {
        moves += day_places + day_places * ingredient_places;
    }
    return moves;
}

// 30 items and 30 recipes of 50 ingredients on each of 1,095 days, with the history on the disk.
// `saved` = every item has a saved history, which its working copy begins with.
void audit_all_days(benchmark::State& state, bool saved) {
    FullHousehold& household = household_of_this_run();
    household.platform.clock.time = 47000;  // behind the last day
    const std::string entry(21, '\1');
    const auto prepare = [&] {
        household.begin_run();
        for (i16 item = 1; saved && item <= item_capacity; ++item) {
            const std::string number = std::to_string(1000000 + item).substr(1);
            const std::string path = household.reports + "/bench" + number + ".dat";
            household.platform.disk.open(path, OpenMode::read_write)->write(0, entry);
        }
        for (i16 day = 1; day <= day_capacity; ++day) days[day].audited = 0;
        refill_lots();
    };
    // The yardstick: reading the plan and the stock once.
    const auto pass = [] {
        return pass_over(days) + pass_over(day_quantities) + pass_over_stock();
    };
    double total = 0;
    measure(
        state, pass,
        [&] {
            const Stopwatch::time_point start = Stopwatch::now();
            audit_inventory();
            total += seconds_since(start);
        },
        prepare);
    if (days[day_capacity].audited == 0) std::abort();
    state.counters["moves"] = count_of_moves();
    state.counters["ns_a_move"] =
        total / static_cast<double>(state.iterations()) / count_of_moves() * 1e9;
}

void audit_of_1095_full_days(benchmark::State& state) {
    audit_all_days(state, false);
}

void audit_of_1095_full_days_behind_saved_histories(benchmark::State& state) {
    audit_all_days(state, true);
}

// --- booking a shopping list
// -----------------------------------------------------------------------

constexpr i16 bought_items = 120;

std::string history_path(const FullHousehold& household, i16 item, const char* extension) {
    return household.reports + "/bench" + std::to_string(1000000 + item).substr(1) + extension;
}

// A list of 120 items goes into stock, each behind a history of 100 entries. The yardstick: as many
// files of the same length, copied by the library. Goal: 50 ms.
void book_120_items_behind_saved_histories(benchmark::State& state) {
    FullHousehold& household = household_of_this_run();
    for (i16 item = 1; item <= bought_items; ++item) {
        household.platform.disk.open(history_path(household, item, ".dat"), OpenMode::read_write)
            ->write(0, std::string(2100, '\1'));
    }
    const auto copy_files = [&] {
        for (i16 item = 1; item <= bought_items; ++item) {
            std::filesystem::copy_file(history_path(household, item, ".dat"),
                                       history_path(household, item, ".yard"),
                                       std::filesystem::copy_options::overwrite_existing);
        }
        return 0;
    };
    const auto prepare = [&] {
        if (!discard_usage_files()) std::abort();
        for (i16 item = 1; item <= item_capacity; ++item) items[item].on_shopping_list = 0;
        for (i16 item = 1; item <= bought_items; ++item) {
            items[item].on_shopping_list = 1;
            items[item].shopping_quantity = 2;
            lots[item].lot_quantity[3] = 0;
        }
        household.platform.transcript.clear();
        household.platform.calls.clear();
    };
    measure(state, copy_files, book_list_into_stock, prepare);
    if (!household.platform.disk.exists(history_path(household, bought_items, ".tmp"))) {
        std::abort();
    }
}

BENCHMARK(scan_what_must_be_bought)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(book_120_items_behind_saved_histories)
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(audit_of_1095_full_days)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(audit_of_1095_full_days_behind_saved_histories)
    ->UseManualTime()
    ->Iterations(2)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
