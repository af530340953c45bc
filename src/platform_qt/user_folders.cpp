#include "platform_qt/user_folders.h"

#include <QDir>

namespace tavernook {

namespace {

QString base_folder(const char* variable, const char* below_home) {
    const QString set = qEnvironmentVariable(variable);
    if (QDir::isAbsolutePath(set)) return QDir::cleanPath(set);
    return QDir::cleanPath(QDir::homePath() + QLatin1Char('/') + QLatin1String(below_home));
}

}  // namespace

QString portable_home() {
    const QString set = qEnvironmentVariable("TAVERNOOK_HOME");
    return set.isEmpty() ? set : QDir::cleanPath(QDir(set).absolutePath());
}

QString data_home() {
    return base_folder("XDG_DATA_HOME", ".local/share");
}

QString config_home() {
    return base_folder("XDG_CONFIG_HOME", ".config");
}

}  // namespace tavernook
