// The planner's screen over a full project, drawing included, each beside a yardstick of the same
// run: the system's own calendar doing the like. "ratio" is the work in yardsticks.
#include <QApplication>
#include <QCalendarWidget>
#include <QScrollBar>
#include <QTreeView>
#include <benchmark/benchmark.h>
#include <chrono>

#include "basics/date.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "painting.h"
#include "planning/recommendations.h"
#include "screens/planner/MealPlan.h"
#include "screens/planner/calendar_grid.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

using Stopwatch = std::chrono::steady_clock;

double seconds_since(Stopwatch::time_point start) {
    return std::chrono::duration<double>(Stopwatch::now() - start).count();
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

// Every date around today has its 30 recipes of 50 ingredients and its 30 items.
struct FullPlanner {
    FullPlanner() {
        fill_full_project();
        platform.clock.time = date_from_civil(2024, 6, 12) + 0.5;
        planner = std::make_unique<MealPlan>();
        planner->resize(1200, 700);
        planner->show();
        system_calendar.resize(780, 400);
        system_calendar.show();
        paint_changes(*planner);
        paint_changes(system_calendar);
    }

    template <typename Part>
    Part& part(const char* name) {
        return *planner->findChild<Part*>(QLatin1String(name));
    }
    void turn_system_calendar() {
        system_calendar.showNextMonth();
        paint_changes(system_calendar);
    }

    TestPlatform platform;
    std::unique_ptr<MealPlan> planner;
    QCalendarWidget system_calendar;
};

void month_redraw(benchmark::State& state) {
    FullPlanner full;
    measure(
        state,
        [&] {
            full.planner->CalendarUpdate(ports::month_in_view);
            paint_changes(*full.planner);
        },
        [&] { full.turn_system_calendar(); });
}

void day_switch(benchmark::State& state) {
    FullPlanner full;
    auto& grid = full.part<CalendarGrid>("calendar_grid");
    int cell = 0;
    measure(
        state,
        [&] {
            cell = (cell + 1) % calendar_cell_count;
            grid.choose(cell);
            paint_changes(*full.planner);
        },
        [&] { full.turn_system_calendar(); });
}

void opening(benchmark::State& state) {
    FullPlanner full;
    measure(
        state,
        [&] {
            full.planner = std::make_unique<MealPlan>();
            full.planner->resize(1200, 700);
            full.planner->show();
            paint_changes(*full.planner);
        },
        [] {
            QCalendarWidget calendar;
            calendar.resize(780, 400);
            calendar.show();
            paint_changes(calendar);
        });
}

// Every one of the 10,000 items has stock past its date.
void recommendations_of_everything(benchmark::State& state) {
    FullPlanner full;
    full.platform.clock.time += 5000;
    measure(
        state,
        [&] {
            full.planner->populate_meal_recommendations();
            paint_changes(*full.planner);
        },
        [] { benchmark::DoNotOptimize(meal_recommendations()); });
    state.counters["rows"] = full.part<QTreeView>("recommendations").model()->rowCount();
}

void recommendations_sorted_and_scrolled(benchmark::State& state) {
    FullPlanner full;
    full.platform.clock.time += 5000;
    full.planner->populate_meal_recommendations();
    auto& list = full.part<QTreeView>("recommendations");
    int column = 0;
    measure(
        state,
        [&] {
            column = (column + 1) % 3;
            list.sortByColumn(column, Qt::DescendingOrder);
            list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() / 2);
            paint_changes(*full.planner);
        },
        [] { benchmark::DoNotOptimize(meal_recommendations()); });
}

BENCHMARK(month_redraw)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(opening)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(day_switch)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(recommendations_of_everything)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(recommendations_sorted_and_scrolled)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
