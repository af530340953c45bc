#include "platform_qt/shipped_page_files.h"

#include <QFile>

#include "basics/fault.h"
#include "platform_qt/qt_text.h"

namespace tavernook {

namespace {

std::string shipped_file(const char* folder, const std::string& name) {
    QFile file(QStringLiteral(":/tavernook/%1/").arg(QLatin1String(folder)) +
               path_to_qstring(name));
    if (!file.open(QIODevice::ReadOnly)) throw Fault(fault_number::file_not_found);
    return file.readAll().toStdString();
}

}  // namespace

std::string shipped_page_file(const std::string& name) {
    return shipped_file("pages", name);
}

std::string shipped_lesson_file(const std::string& name) {
    return shipped_file("lessons", name);
}

}  // namespace tavernook
