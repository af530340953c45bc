#include "app/program_start.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <string>

#include "aids/lessons.h"
#include "aids/sample_project.h"
#include "platform/platform.h"
#include "platform_qt/program_files.h"
#include "platform_qt/qt_text.h"
#include "platform_qt/shipped_page_files.h"
#include "platform_qt/shipped_sample.h"
#include "reports/pages/shipped_pages.h"
#include "screens/parts/icons.h"

namespace tavernook {

namespace {

// Beside the program when it is installed; none in a folder where it was only built.
QString shipped_files_folder() {
    const QString folder = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                           QStringLiteral("/../share/tavernook"));
    return QFileInfo(folder).isDir() ? folder : QString();
}

}  // namespace

void introduce_program(QApplication& application) {
    application.setApplicationName(QStringLiteral("Tavernook"));
    application.setOrganizationName(QStringLiteral("Tavernook"));
    application.setDesktopFileName(QStringLiteral("tavernook"));
    application.setWindowIcon(icon(QStringLiteral("app")));
}

QStringList help_folders() {
    const QString program = QCoreApplication::applicationDirPath();
    return {program, program + QStringLiteral("/../lib/tavernook")};
}

bool place_program_files() {
    const QString from = shipped_files_folder();
    const bool placed =
        install_program_files(qstring_to_path(from), system_info().program_folder());
    set_shipped_sample(shipped_sample());
    set_shipped_lessons(shipped_lesson_file);
    return placed || from.isEmpty();
}

void place_sample_and_pages() {
    constexpr int while_the_splash_stands = 200;
    QTimer::singleShot(while_the_splash_stands, QCoreApplication::instance(), [] {
        const bool has_sample = lay_out_sample_project(platform_clock().now());
        const bool has_pages = lay_out_pages(shipped_page_file);
        const bool has_lessons = lay_out_lessons();
        if (!has_sample || !has_pages || !has_lessons) tell_not_placed();
    });
}

void tell_not_placed() {
    main_window().set_status(message_panel,
                             "Some files that come with Tavernook could not be put in place.");
}

}  // namespace tavernook
