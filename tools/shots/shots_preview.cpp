#include "shots/shots_preview.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QPushButton>

#include "core/program_folders.h"
#include "inventory/items.h"
#include "platform/platform.h"
#include "platform_qt/shipped_page_files.h"
#include "reports/pages/report_page.h"
#include "reports/pages/shipped_pages.h"
#include "reports/preview.h"
#include "screens/frame/Main.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

template <typename Widget>
Widget& part(const char* name) {
    return *load_screen(QStringLiteral("PP"))->findChild<Widget*>(QLatin1String(name));
}

// What shows pages is there a few events later.
void wait_for_page() {
    for (int round = 0; round < 20; ++round) QCoreApplication::processEvents();
}

// As the reports' list makes it.
void show_report() {
    TextTable report{{"Item", "Category", "Quantity", "Cost/Unit"}, {}};
    for (const char* name : {"All-Purpose Flour", "Baby Spinach", "Whole Milk"}) {
        report.rows.push_back({name, "Groceries", "2", "1.25"});
    }
    if (!Build_HTML_Report_list(report, 1, false, "What is low")) return;
    set_htmlpath(in_program_folder("reports/rlist.htm"), 4);
    screens().show_preview();
}

}  // namespace

void take_preview_screens(Main& window, const TakePicture& take) {
    if (!lay_out_pages(shipped_page_file)) return;
    const auto take_page = [&](const char* name) {
        wait_for_page();
        take(QLatin1String(name), window);
    };
    const i16 flour = find_item_by_name("All-Purpose Flour");
    preview_list();
    take_page("preview_list");
    part<QPushButton>("notes_button").click();
    part<QComboBox>("size_box").setCurrentIndex(1);
    Q_EMIT part<QComboBox>("size_box").activated(1);
    take_page("preview_list_medium");
    preview_week();
    take_page("preview_week");
    preview_month();
    take_page("preview_month");
    preview_label(flour);
    take_page("preview_label");
    show_report();
    take_page("preview_report");
    preview_usage(flour);
    take_page("preview_usage");
    preview_project();
    take_page("preview_project");
    part<QPushButton>("edit_button").click();
    const QSize size = window.size();
    window.resize(900, 600);
    take_page("preview_small");
    window.resize(size);
    set_htmlpath(in_program_folder("reports/not_there.htm"), 0);
    screens().show_preview();
    take_page("preview_missing");
    load_screen(QStringLiteral("PP"))->parentWidget()->close();
}

}  // namespace tavernook
