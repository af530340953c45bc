// The sheet of labels of a full project, made and written, beside writing the same bytes (goal: a
// ratio of 3).
#include <cstdlib>

#include "barcodes/barcode_sheet.h"
#include "core/replace_file.h"
#include "measured_pairs.h"
#include "real_disk.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

void label_sheet(benchmark::State& state) {
    TestPlatform platform;
    fill_full_project();
    put_on_real_disk(platform);
    const SheetContents contents{.items = true};
    const BuiltSheet built = Build_Doc(contents);
    if (!built.is_written || built.labels.items != 10'000) std::abort();
    const std::string bytes = read_whole_file(sheet_path());
    measure_pairs(
        state, [] {},
        [&] {
            if (!Build_Doc(contents).is_written) std::abort();
        },
        [&] { replace_file(sheet_path() + ".copy", bytes); });
    state.counters["bytes"] = static_cast<double>(bytes.size());
}
BENCHMARK(label_sheet)->UseManualTime()->Iterations(21);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
