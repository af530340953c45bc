// Recipe documents as rich text beside the same documents as HTML, read and written by the library
// that holds them; and the figures of a thousand recipes beside a plain sum over the same bytes.
// Goal: a ratio of at most 1 for the documents.
#include <QGuiApplication>
#include <QTextDocument>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "cookbook.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "recipes/roll_up.h"
#include "rich_text/rtf_reader.h"
#include "rich_text/rtf_writer.h"
#include "support/generated_projects.h"

namespace tavernook {

namespace {

constexpr int pairs = 21;

// --- documents -----------------------------------------------------------------------------------

void tell_speed(benchmark::State& state, const Cookbook& book, double seconds) {
    state.counters["MB_per_s"] = static_cast<double>(book.rtf_bytes.size()) / 1e6 / seconds;
    state.counters["rtf_kB"] = static_cast<double>(book.rtf_bytes.size()) / 1e3;
    state.counters["html_kB"] = static_cast<double>(book.html.toUtf8().size()) / 1e3;
}

// Each reading goes into a document of its own, which is gone before the next begins.
void read_document(benchmark::State& state) {
    const Cookbook book(static_cast<std::size_t>(state.range(0)));
    const auto read = [&] {
        QTextDocument document;
        rtf::read(book.rtf_bytes, document);
        benchmark::DoNotOptimize(document.blockCount());
    };
    const auto set_html = [&] {
        QTextDocument document;
        document.setHtml(book.html);
        benchmark::DoNotOptimize(document.blockCount());
    };
    tell_speed(state, book,
               measure_pairs(
                   state, [] {}, read, set_html));
}

void write_document(benchmark::State& state) {
    const Cookbook book(static_cast<std::size_t>(state.range(0)));
    const auto write = [&] { benchmark::DoNotOptimize(rtf::written(book.document)); };
    const auto to_html = [&] { benchmark::DoNotOptimize(book.document.toHtml()); };
    tell_speed(state, book,
               measure_pairs(
                   state, [] {}, write, to_html));
}

// --- figures -------------------------------------------------------------------------------------

template <typename Record>
std::uint64_t sum_of_bytes(const Record& record) {
    const char* bytes = reinterpret_cast<const char*>(&record);
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i + sizeof sum <= sizeof record; i += sizeof sum) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + i, sizeof word);
        sum += word;
    }
    return sum;
}

// Every recipe, its items and their units, in the order in which the figures need them.
void sum_recipes() {
    std::uint64_t sum = 0;
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        sum += sum_of_bytes(meals[slot]);
        for (const i16 item : meals[slot].ingredient_item) {
            if (item == 0) continue;
            sum += sum_of_bytes(items[item]);
            sum += sum_of_bytes(units[items[item].serving_size_units]);
        }
    }
    benchmark::DoNotOptimize(sum);
}

void roll_up_1000_recipes(benchmark::State& state) {
    const TestPlatform platform;
    fill_full_project();
    const auto roll_up_all = [] {
        for (i16 slot = 1; slot <= meal_capacity; ++slot) {
            const RollUp figures = roll_up(meals[slot], meal_serving_size[slot]);
            if (figures.ingredients.size() != ingredient_places) std::abort();
        }
    };
    measure_pairs(
        state, [] {}, roll_up_all, sum_recipes);
}

#define RECIPES_BENCHMARK(name) \
    BENCHMARK(name)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond)
RECIPES_BENCHMARK(read_document)->Arg(100'000)->Arg(1'000'000);
RECIPES_BENCHMARK(write_document)->Arg(100'000)->Arg(1'000'000);
RECIPES_BENCHMARK(roll_up_1000_recipes);

}  // namespace

}  // namespace tavernook

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
