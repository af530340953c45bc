#include "screens/frame/recent_names.h"

#include <QFileInfo>
#include <QStringList>
#include <algorithm>

#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

QStringList folders_of(const QString& path) {
    return QFileInfo(path).path().split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QString last_folders(const QString& path, qsizetype count) {
    const QStringList folders = folders_of(path);
    return folders.mid(std::max<qsizetype>(0, folders.size() - count)).join(QLatin1Char('/'));
}

QStringList others_of_that_name(const QString& path, const std::vector<std::string>& paths) {
    QStringList others;
    for (const std::string& one : paths) {
        const QString other = shown_path(one);
        if (other != path && QFileInfo(other).fileName() == QFileInfo(path).fileName()) {
            others.append(other);
        }
    }
    return others;
}

}  // namespace

QString shortened(const QString& text, const QFontMetrics& metrics) {
    constexpr int letters = 40;
    return metrics.elidedText(text, Qt::ElideMiddle, metrics.averageCharWidth() * letters);
}

QString telling_folder(std::size_t place, const std::vector<std::string>& paths) {
    const QString path = shown_path(paths[place]);
    const QStringList others = others_of_that_name(path, paths);
    if (others.isEmpty()) return {};
    for (qsizetype count = 1; count < folders_of(path).size(); ++count) {
        const QString folder = last_folders(path, count);
        const bool tells = std::none_of(others.begin(), others.end(), [&](const QString& other) {
            return last_folders(other, count) == folder;
        });
        if (tells) return folder;
    }
    return QFileInfo(path).path();
}

}  // namespace tavernook
