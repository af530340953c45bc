// The pages of a full project, made and written, beside writing the same bytes (goal: a ratio of
// 3): the month, a shopping list of 10,000 rows with all its columns, a report of 10,000 x 22.
#include <cstdlib>

#include "core/program_folders.h"
#include "core/replace_file.h"
#include "measured_pairs.h"
#include "real_disk.h"
#include "reports/pages/calendar_pages.h"
#include "reports/pages/list_page.h"
#include "reports/pages/page_files.h"
#include "reports/pages/report_page.h"
#include "reports/pages/shipped_pages.h"
#include "shopping/list_rows.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

// A full project on the real disk.
struct FullHousehold {
    FullHousehold() {
        fill_full_project();
        put_on_real_disk(platform);
        const bool placed = lay_out_pages([](const std::string& name) {
            return read_whole_file(TAVERNOOK_SOURCE_FOLDER "/assets/pages/" + name);
        });
        if (!placed) std::abort();
        const DayRecord& day = days[1];
        platform.clock.time = date_from_civil(day.year, day.month, day.day);
    }
    TestPlatform platform;
};

template <typename Make>
void measure_page(benchmark::State& state, const char* name, Make make) {
    const std::string path = in_program_folder(name);
    if (!make()) std::abort();
    const std::string bytes = file_bytes(path);
    measure_pairs(
        state, [] {},
        [&] {
            if (!make()) std::abort();
        },
        [&] { replace_file(path + ".copy", bytes); });
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

void month_page(benchmark::State& state) {
    FullHousehold household;
    measure_page(state, "dat/calm.htm", [] { return Build_HTMLCal_Month(); });
}
BENCHMARK(month_page)->UseManualTime()->Iterations(21);

// The record is the screen's to make, out of the cells that it shows.
void list_page(benchmark::State& state) {
    FullHousehold household;
    for (i16 item = 1; item <= item_capacity; ++item) {
        items[item].on_shopping_list = i16_true;
        items[item].shopping_quantity = item;
    }
    collect_list_items();
    const std::vector<i16> shown(list_items.begin() + 1, list_items.begin() + 1 + list_count);
    const ListPage list = shopping_list_page({list_columns.begin(), list_columns.end()}, shown);
    measure_page(state, "dat/list.htm", [&] { return Build_HTMLlist(list); });
}
BENCHMARK(list_page)->UseManualTime()->Iterations(11);

void report_page(benchmark::State& state) {
    FullHousehold household;
    constexpr std::size_t columns = 22;
    TextTable report;
    report.titles.assign(columns, "A title");
    report.rows.assign(item_capacity, std::vector<std::string>(columns, "some 12.50"));
    measure_page(state, "reports/rlist.htm",
                 [&] { return Build_HTML_Report_list(report, 1, true, "All of it"); });
}
BENCHMARK(report_page)->UseManualTime()->Iterations(11);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
