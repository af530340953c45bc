// Work timed beside a yardstick of the same run; "ratio" is the work in yardsticks.
#pragma once

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <functional>
#include <string>

#include "core/project_data.h"

namespace tavernook {

using Stopwatch = std::chrono::steady_clock;

inline double seconds_since(Stopwatch::time_point start) {
    return std::chrono::duration<double>(Stopwatch::now() - start).count();
}

inline unsigned long long sum_of_words(const void* bytes, std::size_t count) {
    const char* at = static_cast<const char*>(bytes);
    unsigned long long sum = 0;
    for (; count >= sizeof sum; count -= sizeof sum, at += sizeof sum) {
        unsigned long long word = 0;
        std::memcpy(&word, at, sizeof word);
        sum += word;
    }
    return sum;
}

template <typename Record, int Capacity>
unsigned long long pass_over(const Table<Record, Capacity>& table) {
    return sum_of_words(&table[0], sizeof(Record) * (Capacity + 1));
}

inline unsigned long long pass_over_pool() {
    unsigned long long sum = 0;
    for (const std::string& text : pooled_strings) sum += sum_of_words(text.data(), text.size());
    return sum;
}

inline double yardstick_seconds(const std::function<unsigned long long()>& pass) {
    constexpr int passes = 50;
    const Stopwatch::time_point start = Stopwatch::now();
    for (int turn = 0; turn < passes; ++turn) benchmark::DoNotOptimize(pass());
    return seconds_since(start) / passes;
}

// Times `work` alone; `prepare` before each turn does not count.
inline void measure(
    benchmark::State& state, const std::function<unsigned long long()>& pass,
    const std::function<void()>& work, const std::function<void()>& prepare = [] {}) {
    const double before = yardstick_seconds(pass);
    double total = 0;
    for ([[maybe_unused]] auto turn : state) {
        prepare();
        const Stopwatch::time_point start = Stopwatch::now();
        work();
        const double seconds = seconds_since(start);
        state.SetIterationTime(seconds);
        total += seconds;
    }
    const double yardstick = (before + yardstick_seconds(pass)) / 2;
    const double each = total / static_cast<double>(state.iterations());
    state.counters["yardstick_us"] = yardstick * 1e6;
    state.counters["ratio"] = each / yardstick;
}

}  // namespace tavernook
