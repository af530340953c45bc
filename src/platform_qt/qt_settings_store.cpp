#include "platform_qt/qt_settings_store.h"

#include <QVariant>

#include "platform_qt/qt_text.h"
#include "platform_qt/user_folders.h"

namespace tavernook {

namespace {

std::unique_ptr<QSettings> users_settings() {
    const QString home = portable_home();
    if (!home.isEmpty()) {
        return std::make_unique<QSettings>(home + QStringLiteral("/Tavernook.conf"),
                                           QSettings::IniFormat);
    }
    return std::make_unique<QSettings>(QStringLiteral("Tavernook"), QStringLiteral("Tavernook"));
}

QString full_key(const std::string& section, const std::string& key) {
    return text_to_qstring(section) + QLatin1Char('/') + text_to_qstring(key);
}

}  // namespace

QtSettingsStore::QtSettingsStore() : settings_(users_settings()) {
    settings_->setFallbacksEnabled(false);
}

std::string QtSettingsStore::get(const std::string& section, const std::string& key) {
    return settings_->value(full_key(section, key)).toByteArray().toStdString();
}

void QtSettingsStore::set(const std::string& section, const std::string& key,
                          const std::string& value) {
    const QString text = path_to_qstring(value);
    if (qstring_to_path(text) == value) {
        settings_->setValue(full_key(section, key), text);
    } else {
        settings_->setValue(full_key(section, key), QByteArray::fromStdString(value));
    }
}

}  // namespace tavernook
