// From the order to show the page of a report to its standing there, beside what Qt's own text
// document takes to lay the same page out ("ratio" is the preview in those). The very first one
// loads the engine and is told apart.
#include <QApplication>
#include <QTextDocument>
#include <QWidget>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>

#include "fakes/temp_folder.h"
#include "platform_qt/web_library.h"
#include "reports/pages/report_page.h"

namespace tavernook {
namespace {

using Stopwatch = std::chrono::steady_clock;

double seconds_since(Stopwatch::time_point start) {
    return std::chrono::duration<double>(Stopwatch::now() - start).count();
}

std::string report_of(int rows) {
    constexpr int columns = 22;
    TextTable report;
    for (int column = 0; column < columns; ++column) report.titles.push_back("Column");
    for (int row = 0; row < rows; ++row) {
        report.rows.emplace_back(columns, "12.50");
        report.rows.back()[0] = "Whole milk " + std::to_string(row);
    }
    return report_page_text(report, 1, true, "stock", 45000);
}

struct Preview {
    Preview() : library({TAVERNOOK_WEB_FOLDER}), view(library.make()) {
        view->widget().resize(900, 700);
        view->widget().show();
    }

    double seconds_to_show(const std::string& page) {
        write_whole_file(folder.path("page.htm"), page);
        bool shown = false;
        const auto start = Stopwatch::now();
        view->navigate(folder.path("page.htm"), [&](bool) { shown = true; });
        while (!shown) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return seconds_since(start);
    }

    TempFolder folder;
    WebLibrary library;
    std::unique_ptr<HtmlView> view;
};

Preview& preview() {
    static auto* const only = new Preview;
    return *only;
}

void rows_shown(benchmark::State& state) {
    const std::string page = report_of(static_cast<int>(state.range(0)));
    double shown = 0;
    double measured = 0;
    for (auto unused : state) {
        (void)unused;
        const double seconds = preview().seconds_to_show(page);
        state.SetIterationTime(seconds);
        shown += seconds;
        const auto stick = Stopwatch::now();
        QTextDocument document;
        document.setHtml(QString::fromLatin1(page.data(), static_cast<qsizetype>(page.size())));
        benchmark::DoNotOptimize(document.size());
        measured += seconds_since(stick);
    }
    state.counters["ratio"] = shown / measured;
}

BENCHMARK(rows_shown)->Arg(300)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavernook

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const auto start = tavernook::Stopwatch::now();
    tavernook::preview().seconds_to_show(tavernook::report_of(300));
    std::printf("The first preview, with the engine: %.0f ms\n",
                1000 * tavernook::seconds_since(start));
    benchmark::RunSpecifiedBenchmarks();
    // What the engine runs with goes before the application.
    tavernook::preview().view.reset();
    return 0;
}
