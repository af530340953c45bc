#include "platform_qt/program_files.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include "basics/fault.h"
#include "platform_disk/disk_files.h"
#include "platform_qt/qt_text.h"

namespace tavernook {

namespace {

// A link counts as there even when it leads nowhere.
bool is_there(const QFileInfo& file) {
    return file.exists() || file.isSymbolicLink();
}

bool place(const QFileInfo& source, const QString& target) {
    if (is_there(QFileInfo(target))) return true;
    try {
        DiskFiles files;
        if (source.isDir()) {
            files.make_folder(qstring_to_path(target));
        } else {
            files.copy(qstring_to_path(source.filePath()), qstring_to_path(target));
        }
        return true;
    } catch (const Fault&) {
        return false;
    }
}

}  // namespace

bool install_program_files(const std::string& from_folder, const std::string& program_folder) {
    const QString to = path_to_qstring(program_folder);
    bool complete = true;
    for (const char* name : {"recipes", "dat", "reports", "barcode"}) {
        complete = QDir().mkpath(to + QLatin1Char('/') + QLatin1String(name)) && complete;
    }
    const QDir from(path_to_qstring(from_folder));
    if (from_folder.empty() || !from.exists()) return false;
    QDirIterator shipped(from.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (shipped.hasNext()) {
        const QFileInfo source = shipped.nextFileInfo();
        const QString name = from.relativeFilePath(source.filePath());
        complete = place(source, to + QLatin1Char('/') + name) && complete;
    }
    return complete;
}

}  // namespace tavernook
