#include "platform_qt/shipped_page_files.h"

#include <QFile>

#include "basics/fault.h"
#include "platform_qt/qt_text.h"

namespace tavernook {

std::string shipped_page_file(const std::string& name) {
    QFile file(QStringLiteral(":/tavernook/pages/") + path_to_qstring(name));
    if (!file.open(QIODevice::ReadOnly)) throw Fault(fault_number::file_not_found);
    return file.readAll().toStdString();
}

}  // namespace tavernook
