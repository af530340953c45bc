// A piece of work and its yardstick in turns, so that a busy machine slows both. Counters:
// "median_ms", "yardstick_ms" and "ratio", the median over the pairs.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <vector>

namespace tavernook {

template <typename Work>
double seconds_of(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// `prepare` comes before each `work` and is not measured. Returns the median seconds of the work.
template <typename Prepare, typename Work, typename Yardstick>
double measure_pairs(benchmark::State& state, Prepare prepare, Work work, Yardstick yardstick) {
    std::vector<double> works;
    std::vector<double> yardsticks;
    std::vector<double> ratios;
    for (auto _ : state) {
        yardsticks.push_back(seconds_of(yardstick));
        prepare();
        works.push_back(seconds_of(work));
        ratios.push_back(works.back() / yardsticks.back());
        state.SetIterationTime(works.back());
    }
    state.counters["median_ms"] = median(works) * 1e3;
    state.counters["yardstick_ms"] = median(yardsticks) * 1e3;
    state.counters["ratio"] = median(ratios);
    return median(works);
}

}  // namespace tavernook
