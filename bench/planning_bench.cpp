// The planner's walks over whole tables on a full project, each beside a yardstick: one pass over
// the bytes that it must look at. "ratio" is the work in yardsticks.
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "core/project_data.h"
#include "database.h"
#include "fakes/test_platform.h"
#include "planning/day_plans.h"
#include "planning/day_totals.h"
#include "planning/recommendations.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

using Stopwatch = std::chrono::steady_clock;

double seconds_since(Stopwatch::time_point start) {
    return std::chrono::duration<double>(Stopwatch::now() - start).count();
}

template <typename Record>
void read_bytes(const Record* first, std::size_t count) {
    const auto* bytes = reinterpret_cast<const char*>(first);
    std::uint64_t sum = 0;
    for (std::size_t at = 0; at + 8 <= count * sizeof(Record); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + at, sizeof word);
        sum += word;
    }
    benchmark::DoNotOptimize(sum);
}

template <typename Work, typename Yardstick>
void measure(benchmark::State& state, Work&& work, Yardstick&& yardstick) {
    double worked = 0;
    double measured = 0;
    for (auto unused : state) {
        (void)unused;
        const auto start = Stopwatch::now();
        work();
        const double seconds = seconds_since(start);
        worked += seconds;
        state.SetIterationTime(seconds);
        const auto stick = Stopwatch::now();
        yardstick();
        measured += seconds_since(stick);
    }
    state.counters["ratio"] = worked / measured;
}

void read_items_and_meals() {
    read_bytes(&items[0], item_capacity + 1);
    read_bytes(&lots[0], item_capacity + 1);
    read_bytes(&meals[0], meal_capacity + 1);
}

// The stock and the recipes as tables; each pair of an item and a recipe that takes it is there
// once, in the order in which the pairs are shown.
class RecommendationsDatabase {
  public:
    RecommendationsDatabase() {
        database_.run(
            "create table item (number integer primary key, in_use integer, name text,"
            " quantity real)");
        database_.run(
            "create table lot (item integer, place integer, quantity real, expires real,"
            " primary key (item, place)) without rowid");
        database_.run(
            "create table recipe (number integer primary key, in_use integer, name text)");
        database_.run(
            "create table uses (item integer, recipe integer,"
            " primary key (item, recipe)) without rowid");
        database_.run("begin");
        fill_stock();
        fill_recipes();
        database_.run("commit");
        database_.run("create index by_date on lot (expires, item, quantity)");
        database_.run("analyze");
        query_.emplace(
            database_,
            "select e.number, r.number, r.name, e.name, e.quantity from (select i.number as number,"
            " i.name as name, sum(l.quantity) as quantity from item i join lot l on"
            " l.item = i.number where i.in_use = 1 and i.quantity > 0 and l.expires <= ?1"
            " group by i.number having sum(l.quantity) > 0) e"
            " join uses u on u.item = e.number join recipe r on r.number = u.recipe"
            " where r.in_use = 1 order by e.number, r.number");
    }

    // How many rows are recommended; each one's texts and quantity are fetched.
    std::size_t count_recommended(Date latest) {
        query_->bind(1, latest);
        std::size_t rows = 0;
        while (query_->next_row()) {
            benchmark::DoNotOptimize(query_->text(2));
            benchmark::DoNotOptimize(query_->text(3));
            benchmark::DoNotOptimize(query_->number(4));
            ++rows;
        }
        return rows;
    }

  private:
    void fill_stock() {
        Statement row(database_, "insert into item values (?1, ?2, ?3, ?4)");
        Statement lot(database_, "insert into lot values (?1, ?2, ?3, ?4)");
        for (i16 item = 1; item <= item_capacity; ++item) {
            const std::string name(items[item].name.trimmed());
            row.bind(1, item).bind(2, items[item].in_use).bind(3, name.c_str());
            row.bind(4, items[item].quantity).carry_out();
            for (int place = 0; place < lot_places; ++place) {
                const auto at = static_cast<std::size_t>(place);
                lot.bind(1, item).bind(2, place).bind(3, lots[item].lot_quantity[at]);
                lot.bind(4, lots[item].expiration_date[at]).carry_out();
            }
        }
    }
    void fill_recipes() {
        Statement row(database_, "insert into recipe values (?1, ?2, ?3)");
        Statement uses(database_, "insert or ignore into uses values (?1, ?2)");
        for (i16 recipe = 1; recipe <= meal_capacity; ++recipe) {
            const std::string name(meals[recipe].name.trimmed());
            row.bind(1, recipe).bind(2, meals[recipe].in_use).bind(3, name.c_str()).carry_out();
            for (const i16 item : meals[recipe].ingredient_item) {
                if (item != 0) uses.bind(1, item).bind(2, recipe).carry_out();
            }
        }
    }

    Database database_;
    std::optional<Statement> query_;
};

// Beside the pass over the bytes, and beside SQLite: "sqlite_ratio" is its time in ours (goal: 10).
void measure_recommendations(benchmark::State& state) {
    constexpr int looks_back = 6;  // days, of 7 days of warning
    if (expiration_warning_days != 7) std::abort();
    RecommendationsDatabase database;
    const Date latest = platform_clock().now() - looks_back;
    const std::size_t rows = meal_recommendations().rows.size();
    if (database.count_recommended(latest) != rows) std::abort();
    measure(
        state, [] { benchmark::DoNotOptimize(meal_recommendations()); }, read_items_and_meals);
    double ours = 0;
    double sqlite = 0;
    constexpr int turns = 10;
    for (int turn = 0; turn < turns; ++turn) {
        auto start = Stopwatch::now();
        benchmark::DoNotOptimize(meal_recommendations());
        ours += seconds_since(start);
        start = Stopwatch::now();
        database.count_recommended(latest);
        sqlite += seconds_since(start);
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["sqlite_ms"] = sqlite / turns * 1e3;
    state.counters["sqlite_ratio"] = sqlite / ours;
}

// Every item has stock past its date, every recipe fifty ingredients.
void recommendations_with_everything_expired(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    platform.clock.time += 5000;
    measure_recommendations(state);
}

// One item in a hundred has.
void recommendations_with_little_expired(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (item % 100 == 0) continue;
        for (Date& date : lots[item].expiration_date) date += 10000;
    }
    platform.clock.time += 5000;
    measure_recommendations(state);
}

void recommendations_with_nothing_expired(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    platform.clock.time -= 5000;
    measure_recommendations(state);
}

void deleting_three_years(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    const Date first = date_from_civil(2100, 1, 1);
    measure(
        state, [first] { Delete_Day(first, first + 1094); },
        [] { read_bytes(&days[0], day_capacity + 1); });
}

void totals_of_a_full_day(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    measure(
        state, [] { benchmark::DoNotOptimize(day_totals(days[1], day_quantities[1])); },
        [] { read_bytes(&meals[0], day_places); });
}

BENCHMARK(recommendations_with_everything_expired)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(recommendations_with_little_expired)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(recommendations_with_nothing_expired)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(deleting_three_years)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(totals_of_a_full_day)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
