#include "platform_qt/shipped_sample.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include "basics/fault.h"
#include "platform_qt/qt_text.h"

// Outside any namespace, as the macro wants it: resources of a library are not found by themselves.
static void take_in_sample() {
    Q_INIT_RESOURCE(sample);
}

namespace tavernook {

namespace {

QString sample_root() {
    return QStringLiteral(":/tavernook/sample");
}

std::string shipped_bytes(const std::string& name) {
    QFile file(sample_root() + QLatin1Char('/') + path_to_qstring(name));
    if (!file.open(QIODevice::ReadOnly)) throw Fault(fault_number::file_not_found);
    return file.readAll().toStdString();
}

}  // namespace

ShippedSample shipped_sample() {
    take_in_sample();
    ShippedSample sample;
    sample.bytes = shipped_bytes;
    const QDir root(sample_root());
    QDirIterator files(root.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        sample.names.push_back(qstring_to_path(root.relativeFilePath(files.next())));
    }
    return sample;
}

}  // namespace tavernook
