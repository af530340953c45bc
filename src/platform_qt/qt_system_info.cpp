#include "platform_qt/qt_system_info.h"

#include <QLocale>

#include "platform_qt/qt_text.h"
#include "platform_qt/user_folders.h"

namespace tavernook {

std::string QtSystemInfo::program_folder() {
    const QString home = portable_home();
    return qstring_to_path(home.isEmpty() ? data_home() + QStringLiteral("/Tavernook") : home);
}

std::string QtSystemInfo::settings_folder() {
    const QString home = portable_home();
    return qstring_to_path(home.isEmpty() ? config_home() + QStringLiteral("/Tavernook") : home);
}

std::string QtSystemInfo::short_date_format() {
    QString plain;
    for (const QChar letter : QLocale::system().dateFormat(QLocale::ShortFormat)) {
        if (letter.category() == QChar::Other_Format) continue;
        plain.append(letter.isSpace() ? QChar(QLatin1Char(' ')) : letter);
    }
    return qstring_to_text(plain);
}

}  // namespace tavernook
