#include "shots/shots_help.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QLineEdit>
#include <QTabWidget>

#include "screens/aids/help_desk.h"
#include "screens/aids/help_window.h"

namespace tavernook {

namespace {

HelpWindow& help_window() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<HelpWindow*>(window)) return *found;
    }
    qFatal("The help file is missing.");
}

template <typename Part>
Part& part(const char* name) {
    return *help_window().findChild<Part*>(QLatin1String(name));
}

// The contents and the index are read beside what the window does.
void wait_for_rows(const char* list) {
    const QAbstractItemModel& rows = *part<QAbstractItemView>(list).model();
    while (rows.rowCount() == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace

void take_help(const TakePicture& take) {
    HelpDesk desk({QStringLiteral(TAVERNOOK_HELP_FOLDER)});
    desk.show_contents();
    wait_for_rows("contents_tree");
    wait_for_rows("index_list");
    take(QStringLiteral("help_contents"), help_window());
    desk.show_page("MealPlan");
    take(QStringLiteral("help_page"), help_window());
    desk.show_page("keys");
    take(QStringLiteral("help_keys"), help_window());
    part<QTabWidget>("help_tabs").setCurrentIndex(1);
    part<QLineEdit>("index_box").setText(QStringLiteral("lot"));
    part<QAction>("find_in_page").trigger();
    take(QStringLiteral("help_index"), help_window());
    desk.show_search();
    part<QLineEdit>("search_box").setText(QStringLiteral("grocery list"));
    take(QStringLiteral("help_search"), help_window());
    part<QLineEdit>("search_box").setText(QStringLiteral("grocery xyzzy"));
    for (int step = 0; step < 9; ++step) part<QAction>("larger_text").trigger();
    take(QStringLiteral("help_large_text"), help_window());
}

}  // namespace tavernook
