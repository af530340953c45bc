// Back-up and restore in MB of the project a second, beside yardsticks of the same run over the
// same bytes: copying them in memory ("memcpy_MB_s", the pair of "ratio") and zlib at its quickest,
// level 1 ("zlib_MB_s"). First the coding alone, in memory; then the commands with the disk, where
// backing up reads everything twice and waits for the disk. Goal: 200 MB/s.
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <zlib.h>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/file_management.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "platform/platform.h"
#include "support/generated_projects.h"
#include "transfer/backup.h"
#include "transfer/run_length.h"

namespace tavernook {
namespace {

constexpr int pairs = 31;
constexpr std::size_t longest = 255 * 32000 - 1;

class MemoryFile : public File {
  public:
    explicit MemoryFile(const std::string& bytes) : bytes_(bytes) {}
    std::size_t read(i64 offset, char* buffer, std::size_t count) override {
        return bytes_.copy(buffer, count, static_cast<std::size_t>(offset));
    }
    void write(i64, std::string_view) override { std::abort(); }
    i64 length() override { return static_cast<i64>(bytes_.size()); }
    void flush() override {}

  private:
    const std::string& bytes_;
};

// A saved project on the disk.
struct Household {
    explicit Household(void (*fill)()) {
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
        file_version = 1;
        project_created = 45000;
        fill();
        set_project_path(platform.path("home.tvk"));
        if (!Project_Save(1)) std::abort();
        bytes = read_whole_file(project_path);
        // As much of the fullest project as a back-up holds.
        if (bytes.size() > longest) bytes.resize(longest);
        write_whole_file(project_path, bytes);
    }

    TestPlatform platform;
    std::string bytes;
};

double megabytes_a_second(const std::string& bytes, double seconds) {
    return static_cast<double>(bytes.size()) / 1e6 / seconds;
}

double file_copy_seconds(Household& household) {
    const std::string other = household.platform.path("other.tvk");
    std::vector<double> turns;
    for (int turn = 0; turn < 5; ++turn) {
        turns.push_back(seconds_of([&] { household.platform.disk.copy(project_path, other); }));
    }
    return median(turns);
}

double zlib_seconds(const std::string& bytes) {
    std::string packed(compressBound(bytes.size()), '\0');
    std::vector<double> turns;
    for (int turn = 0; turn < 5; ++turn) {
        uLongf size = packed.size();
        turns.push_back(seconds_of([&] {
            compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                      reinterpret_cast<const Bytef*>(bytes.data()), bytes.size(), 1);
        }));
    }
    return median(turns);
}

template <typename Prepare, typename Work>
void measure_beside_memcpy(benchmark::State& state, const std::string& bytes, Prepare prepare,
                           Work work) {
    std::string copy(bytes.size(), '\1');
    std::vector<double> copies;
    const double seconds = measure_pairs(state, prepare, work, [&] {
        copies.push_back(seconds_of([&] {
            std::memcpy(copy.data(), bytes.data(), bytes.size());
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }));
    });
    state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
    state.counters["MB_s"] = megabytes_a_second(bytes, seconds);
    state.counters["memcpy_MB_s"] = megabytes_a_second(bytes, median(copies));
    state.counters["zlib_MB_s"] = megabytes_a_second(bytes, zlib_seconds(bytes));
}

void encode(const std::string& bytes, std::string& backup) {
    MemoryFile file(bytes);
    backup.clear();
    encode_runs(
        file, [&](std::string_view part) { backup += part; }, [](int) {});
}

void coding(benchmark::State& state, void (*fill)()) {
    const Household household(fill);
    std::string backup;
    measure_beside_memcpy(
        state, household.bytes, [] {}, [&] { encode(household.bytes, backup); });
    state.counters["backup_MB"] = static_cast<double>(backup.size()) / 1e6;
}

void decoding(benchmark::State& state, void (*fill)()) {
    const Household household(fill);
    std::string backup;
    encode(household.bytes, backup);
    std::string restored;
    measure_beside_memcpy(
        state, household.bytes, [&] { restored.clear(); },
        [&] {
            MemoryFile file(backup);
            decode_runs(
                file, [&](std::string_view part) { restored += part; }, [](int) {});
        });
}

void back_up(benchmark::State& state, void (*fill)()) {
    Household household(fill);
    const std::string target = household.platform.path("home.vzk");
    const double copying = file_copy_seconds(household);
    measure_beside_memcpy(
        state, household.bytes, [] {},
        [&] {
            if (compress_file(project_path, target) == Backup::failed) std::abort();
        });
    state.counters["file_copy_MB_s"] = megabytes_a_second(household.bytes, copying);
}

// With the opening of the project.
void restore(benchmark::State& state, void (*fill)()) {
    const Household household(fill);
    const std::string target = household.platform.path("home.vzk");
    if (compress_file(project_path, target) == Backup::failed) std::abort();
    const std::string restored = in_program_folder("restored.tvk");
    const auto prepare = [&] {
        project_open = i16_false;
        std::filesystem::remove(restored);
    };
    measure_beside_memcpy(state, household.bytes, prepare,
                          [&] { decompress_file(target, restored); });
}

#define TAVERNOOK_MEASURE(work)                            \
    BENCHMARK_CAPTURE(work, typical, fill_typical_project) \
        ->UseManualTime()                                  \
        ->Iterations(pairs)                                \
        ->Unit(benchmark::kMillisecond);                   \
    BENCHMARK_CAPTURE(work, full, fill_full_project)       \
        ->UseManualTime()                                  \
        ->Iterations(pairs)                                \
        ->Unit(benchmark::kMillisecond)

TAVERNOOK_MEASURE(coding);
TAVERNOOK_MEASURE(decoding);
TAVERNOOK_MEASURE(back_up);
BENCHMARK_CAPTURE(restore, typical, fill_typical_project)
    ->UseManualTime()
    ->Iterations(pairs)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
