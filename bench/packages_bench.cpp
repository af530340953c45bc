// Packing in MB of the package a second beside copying the same file on the same disk ("copy_MB_s",
// the pair of "ratio"; packing saves the project first, which "save_ms" tells alone); the export of
// 10,000 items beside writing as many bytes; and merging the fullest project into an empty one and
// into itself beside opening it.
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/file_management.h"
#include "core/project/main_commands.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "platform/platform.h"
#include "support/generated_projects.h"
#include "transfer/csv_export.h"
#include "transfer/merge.h"
#include "transfer/package.h"

namespace tavernook {
namespace {

constexpr int pairs = 11;
constexpr i16 texts = 200;
constexpr std::size_t length_of_text = 100'000;

// Any box is answered at once.
class SilentBoxes : public Boxes {
  public:
    Answer message(std::string_view, Buttons buttons, std::string_view, DefaultButton) override {
        return buttons == Buttons::ok ? Answer::ok : Answer::no;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return {};
    }
};

struct Household {
    explicit Household(void (*fill)()) {
        set_platform({.clock = &platform.clock,
                      .boxes = &boxes,
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
        file_version = 1;
        project_created = 45000;
        recipes_folder = in_program_folder("recipes/");
        fill();
        project_open = i16_true;
        set_project_path(platform.path("home.tvk"));
        save();
    }
    static void save() {
        if (!Project_Save(1)) std::abort();
    }

    TestPlatform platform;
    SilentBoxes boxes;
};

double megabytes(const std::string& path) {
    return static_cast<double>(std::filesystem::file_size(path)) / 1e6;
}

void put_texts() {
    files().make_folder(recipes_folder);
    for (i16 slot = 1; slot <= texts; ++slot) {
        const std::string name = "text" + std::to_string(slot) + ".rtf";
        meals[slot].in_use = 1;
        meal_documents[slot] = "*vk14" + name;
        write_whole_file(recipes_folder + name, std::string(length_of_text, 't'));
    }
}

void pack(benchmark::State& state, void (*fill)()) {
    Household household(fill);
    put_texts();
    const std::string package = household.platform.path("home.vpk");
    const std::string copy = household.platform.path("copy.vpk");
    pack_project(package);
    std::vector<double> copies;
    const auto copying = [&] {
        copies.push_back(seconds_of([&] { files().copy(package, copy); }));
    };
    const double seconds = measure_pairs(
        state, [] {}, [&] { pack_project(package); }, copying);
    const double size = megabytes(package);
    state.counters["MB"] = size;
    state.counters["MB_s"] = size / seconds;
    state.counters["copy_MB_s"] = size / median(copies);
    state.counters["save_ms"] = seconds_of([] { Household::save(); }) * 1e3;
}

void unpack(benchmark::State& state, void (*fill)()) {
    Household household(fill);
    put_texts();
    const std::string package = household.platform.path("trip.vpk");
    const std::string copy = household.platform.path("copy.vpk");
    pack_project(package);
    const auto prepare = [&] {
        std::filesystem::remove_all(recipes_folder);
        std::filesystem::remove(household.platform.path("trip.tvk"));
    };
    const double seconds = measure_pairs(
        state, prepare, [&] { unpack_project(package); }, [&] { files().copy(package, copy); });
    state.counters["MB_s"] = megabytes(package) / seconds;
}

void export_csv(benchmark::State& state) {
    const Household household(fill_full_project);
    const std::string target = household.platform.path("stock.csv");
    const std::string other = household.platform.path("other.csv");
    if (!export_to_csv(target)) std::abort();
    const std::string bytes = read_whole_file(target);
    measure_pairs(
        state, [] {}, [&] { export_to_csv(target); }, [&] { replace_file(other, bytes); });
    state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
}

// Into an empty project, and into the full one, where all items meet in the last slot.
void merge(benchmark::State& state, bool into_full) {
    const Household household(fill_full_project);
    merge_path = project_path;
    const auto prepare = [&] {
        if (!into_full) reset_project_tables();
    };
    const auto open = [] {
        reset_project_tables();
        Project_Open();
        if (project_load_failed != 0) std::abort();
    };
    measure_pairs(
        state, prepare, [] { merge_project(); }, open);
}

#define TAVERNOOK_MEASURE(...)     \
    BENCHMARK_CAPTURE(__VA_ARGS__) \
        ->UseManualTime()          \
        ->Iterations(pairs)        \
        ->Unit(benchmark::kMillisecond)

TAVERNOOK_MEASURE(pack, typical, fill_typical_project);
TAVERNOOK_MEASURE(pack, full, fill_full_project);
TAVERNOOK_MEASURE(unpack, typical, fill_typical_project);
TAVERNOOK_MEASURE(merge, full_into_empty, false);
TAVERNOOK_MEASURE(merge, full_into_full, true);
BENCHMARK(export_csv)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
