#include "screens/frame/start_up.h"

#include <QDir>
#include <QUrl>

#include "core/trap.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/Splash.h"
#include "screens/parts/guard.h"

namespace tavernook {

std::string project_argument(const QStringList& arguments) {
    const QString whole = arguments.join(QLatin1Char(' '));
    if (whole.trimmed().isEmpty()) return {};
    const bool is_url = whole.startsWith(QLatin1String("file:"), Qt::CaseInsensitive);
    const QString path = is_url ? QUrl(whole).toLocalFile() : whole;
    return QDir::cleanPath(QDir::current().absoluteFilePath(path)).toStdString();
}

void start_program(Main& main, Splash& splash, const std::string& command_line) {
    splash.come_up();
    platform_clock().wait_seconds(1);
    main.load(command_line);
    main.show();
    guarded([] { file_associations().write(); }, module_message);
    splash.close();
    main.welcome();
}

}  // namespace tavernook
