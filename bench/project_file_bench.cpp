// Opening and saving the fullest project there can be, each beside its yardstick: reading the same
// bytes into fresh memory, and writing the same bytes to a new file and flushing it. Both run in
// turns, so that a busy machine slows both; "ratio" is the median over the pairs. Goals: 4 for
// opening, 1.5 for saving.
//
// A save also deletes the version before it, which for 10 MB takes the system a quarter of the
// whole time; save_full_project_in_place_of_old has a yardstick that does so too.
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/file_management.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "platform/platform.h"
#include "support/generated_projects.h"

namespace tavernook {

namespace {

constexpr int pairs = 31;

// The real disk without counting, everything else quiet.
struct Household {
    Household() {
        set_platform({.clock = &platform.clock,
                      .boxes = &platform.boxes,
                      .file_dialogs = &platform.dialogs,
                      .files = &platform.disk,
                      .settings_store = &platform.settings,
                      .file_associations = &platform.associations,
                      .project_lock = &platform.lock,
                      .system_info = &platform.system,
                      .help_viewer = &platform.help,
                      .save_progress = &platform.progress,
                      .main = &platform.main,
                      .screens = &platform.screens});
        set_project_path(platform.path("full.tvk"));
        fill_full_project();
        save();
        bytes = read_whole_file(project_path);
    }

    static void save() {
        if (!Project_Save(1)) std::abort();
    }
    static void open() {
        Project_Open();
        if (project_load_failed != 0) std::abort();
    }
    void read_into_fresh_memory() const {
        const auto file = platform.disk.open(project_path, OpenMode::read);
        const auto size = static_cast<std::size_t>(file->length());
        const auto memory = std::make_unique_for_overwrite<char[]>(size);
        if (file->read(0, memory.get(), size) != size) std::abort();
        benchmark::DoNotOptimize(memory.get());
    }
    void write_new_file(const char* name) const {
        const auto file = platform.disk.open(platform.path(name), OpenMode::read_write);
        file->write(0, bytes);
        file->flush();
    }
    void remove(const char* name) const { platform.disk.remove(platform.path(name)); }

    mutable TestPlatform platform;
    std::string bytes;
};

// Tables as a fresh program has them; texts give their memory back.
void start_afresh() {
    for (std::string& text : pooled_strings) std::string().swap(text);
    for (std::string& text : meal_documents) std::string().swap(text);
    for (WamRecord& line : wams) std::string().swap(line.text);
    reset_project_tables();
}

void open_full_project(benchmark::State& state) {
    const Household household;
    measure_pairs(
        state, start_afresh, [] { Household::open(); },
        [&] { household.read_into_fresh_memory(); });
}

void reset_and_open_full_project(benchmark::State& state) {
    const Household household;
    measure_pairs(
        state, start_afresh,
        [] {
            reset_project_tables();
            Household::open();
        },
        [&] { household.read_into_fresh_memory(); });
}

void save_full_project(benchmark::State& state) {
    const Household household;
    measure_pairs(
        state, [&] { household.remove("yardstick"); }, [] { Household::save(); },
        [&] { household.write_new_file("yardstick"); });
}

void save_full_project_in_place_of_old(benchmark::State& state) {
    const Household household;
    household.write_new_file("old yardstick");
    measure_pairs(
        state,
        [&] {
            household.platform.disk.rename(household.platform.path("yardstick"),
                                           household.platform.path("old yardstick"));
        },
        [] { Household::save(); },
        [&] {
            household.write_new_file("yardstick");
            household.remove("old yardstick");
        });
}

BENCHMARK(open_full_project)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond);
BENCHMARK(reset_and_open_full_project)
    ->UseManualTime()
    ->Iterations(pairs)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save_full_project)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond);
BENCHMARK(save_full_project_in_place_of_old)
    ->UseManualTime()
    ->Iterations(pairs)
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace tavernook

BENCHMARK_MAIN();
