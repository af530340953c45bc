// The planner's walks over whole tables on a full project, each beside a yardstick: one pass over
// the bytes that it must look at. "ratio" is the work in yardsticks.
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <string>

#include "core/project_data.h"
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

// Every item has stock past its date, every recipe fifty ingredients.
void recommendations_with_everything_expired(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    platform.clock.time += 5000;
    measure(
        state, [] { benchmark::DoNotOptimize(meal_recommendations()); }, read_items_and_meals);
}

void recommendations_with_nothing_expired(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    platform.clock.time -= 5000;
    measure(
        state, [] { benchmark::DoNotOptimize(meal_recommendations()); }, read_items_and_meals);
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
BENCHMARK(recommendations_with_nothing_expired)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(deleting_three_years)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(totals_of_a_full_day)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
