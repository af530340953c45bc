// The reports' screen over 10,000 items, drawing included: a real screen in the real main window.
// The default report, search and all, has 150 ms. The yardstick is a plain list with as many
// constant rows and columns.
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>
#include <benchmark/benchmark.h>
#include <cstdlib>

#include "constant_list.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "painting.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/register_screens.h"
#include "screens/parts/screen_switch.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

constexpr int pairs = 21;

class FullReport {
  public:
    FullReport() {
        fill_full_project();
        set_platform({.clock = &platform_.clock,
                      .boxes = &platform_.boxes,
                      .file_dialogs = &platform_.dialogs,
                      .files = &platform_.disk,
                      .settings_store = &platform_.settings,
                      .file_associations = &platform_.associations,
                      .project_lock = &platform_.lock,
                      .system_info = &platform_.system,
                      .help_viewer = &platform_.help,
                      .save_progress = &window_.progress(),
                      .main = &window_,
                      .screens = &window_.registry(),
                      .replace_item = &platform_.replace_item});
        register_screens(window_);
        window_.load("");
        window_.resize(1280, 900);
        window_.show();
        project_path = platform_.path("bench.tvk");
        project_open = i16_true;
        window_.enable_project_menus(true);
        show();
    }
    ~FullReport() { project_modified = i16_false; }
    FullReport(const FullReport&) = delete;
    FullReport& operator=(const FullReport&) = delete;

    void show() {
        screen_ = show_screen(QStringLiteral("Reports"));
        if (screen_ == nullptr) std::abort();
        paint();
    }
    void close() {
        screen_->parentWidget()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        paint();
    }
    template <typename Part>
    Part& part(const char* name) {
        auto* found = screen_->findChild<Part*>(QLatin1String(name));
        if (found == nullptr) std::abort();
        return *found;
    }
    QTreeView& list() { return part<QTreeView>("report_list"); }
    void paint() { paint_changes(window_); }

  private:
    TestPlatform platform_;
    Main window_;
    QWidget* screen_ = nullptr;
};

void nothing() {}

// From the command to the painted screen.
void opening(benchmark::State& state) {
    FullReport full;
    ConstantList plain(full.list(), item_capacity);
    measure_pairs(
        state, [&] { full.close(); }, [&] { full.show(); }, [&] { plain.fill(); });
}

void run(benchmark::State& state, bool all_fields) {
    FullReport full;
    if (all_fields) {
        for (int clicks = 0; clicks < 2; ++clicks) full.part<QPushButton>("view_none").click();
    }
    ConstantList plain(full.list(), item_capacity);
    measure_pairs(
        state, nothing,
        [&] {
            full.part<QAction>("report_toolbar_1").trigger();
            full.paint();
        },
        [&] { plain.fill(); });
    if (full.list().model()->rowCount() != item_capacity) std::abort();
}
void default_report(benchmark::State& state) {
    run(state, false);
}
void report_of_79_columns(benchmark::State& state) {
    run(state, true);
}

// What an accepted item asks for.
void search_and_list_by_another_screen(benchmark::State& state) {
    FullReport full;
    ConstantList plain(full.list(), item_capacity);
    measure_pairs(
        state, nothing,
        [&] {
            reports()->search_engine();
            reports()->populate_list();
            full.paint();
        },
        [&] { plain.fill(); });
}

// A click on the title of the column: 0 is a text, 4 a number, 15 a date.
void sorted(benchmark::State& state) {
    FullReport full;
    const int column = static_cast<int>(state.range(0));
    ConstantList plain(full.list(), item_capacity);
    measure_pairs(
        state, nothing,
        [&] {
            Q_EMIT full.list().header()->sectionClicked(column);
            full.paint();
        },
        [&] { plain.fill(); });
}

void page(benchmark::State& state) {
    FullReport full;
    ConstantList plain(full.list(), item_capacity);
    measure_pairs(
        state, nothing, [&] { ConstantList::turn_page_of(full.list()); },
        [&] { plain.turn_page(); });
}

#define SCREEN_BENCHMARK(name) \
    BENCHMARK(name)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond)
SCREEN_BENCHMARK(opening);
SCREEN_BENCHMARK(default_report);
SCREEN_BENCHMARK(report_of_79_columns);
SCREEN_BENCHMARK(search_and_list_by_another_screen);
SCREEN_BENCHMARK(sorted)->Arg(0)->Arg(4)->Arg(15);
BENCHMARK(page)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
