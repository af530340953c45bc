#include "app/program_start.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <string>

#include "platform/platform.h"
#include "platform_qt/program_files.h"
#include "platform_qt/qt_text.h"
#include "screens/icons.h"

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

bool place_program_files() {
    const QString from = shipped_files_folder();
    const bool placed =
        install_program_files(qstring_to_path(from), system_info().program_folder());
    return placed || from.isEmpty();
}

}  // namespace tavernook
