#include "shots/shots_reports.h"

#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>

#include "core/program_folders.h"
#include "platform/platform.h"
#include "reports/report_configurations.h"
#include "screens/frame/Main.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

// Saved reports, as the screen asks for a search string with a box of its own.
void save_reports() {
    const auto filter = std::make_unique<ReportFilter>();
    begin_report_filter(*filter);
    const auto keep_only = [&filter](std::initializer_list<std::size_t> rows) {
        filter->row_checked.fill(i16_false);
        for (const std::size_t row : rows) filter->row_checked[row] = i16_true;
    };
    filter->search_strings[1] = "no such food";
    save_report("Nothing", *filter, {});
    filter->search_strings[1] = "*";
    filter->search_strings[31] = "*/*";
    keep_only({1, 2, 5, 7, 31});
    save_report("Past its date", *filter, {.sort = {4, 0, i16_false}});
}

void choose_saved(QWidget& screen, const char* name) {
    auto& box = *screen.findChild<QComboBox*>(QStringLiteral("saved_reports"));
    box.setCurrentIndex(box.findText(QLatin1String(name), Qt::MatchStartsWith));
    Q_EMIT box.activated(box.currentIndex());
}

}  // namespace

void take_report_screens(Main& window, const TakePicture& take) {
    save_reports();
    const QSize size = window.size();
    QWidget& screen = *show_screen(QStringLiteral("Reports"));
    const auto click = [&screen](const char* button) {
        screen.findChild<QPushButton*>(QLatin1String(button))->click();
    };
    auto& list = *screen.findChild<QTreeView*>(QStringLiteral("report_list"));
    auto& rows = *screen.findChild<QTreeView*>(QStringLiteral("row_list"));
    take(QStringLiteral("Reports"), window);
    choose_saved(screen, "Past its date");
    for (int clicks = 0; clicks < 2; ++clicks) Q_EMIT list.header()->sectionClicked(4);
    list.setCurrentIndex(list.model()->index(2, 0));
    list.setFocus();
    take(QStringLiteral("Reports_past_its_date"), window);
    choose_saved(screen, "Nothing");
    take(QStringLiteral("Reports_empty"), window);
    click("reset");
    click("view_none");
    rows.setCurrentIndex(rows.model()->index(30, 0));
    take(QStringLiteral("Reports_edited"), window);
    click("view_none");
    reports()->populate_list();
    list.scrollTo(list.model()->index(0, 40));
    take(QStringLiteral("Reports_79_columns"), window);
    click("reset");
    window.resize(900, 600);
    take(QStringLiteral("Reports_small"), window);
    screen.parentWidget()->close();
    window.resize(size);
}

}  // namespace tavernook
