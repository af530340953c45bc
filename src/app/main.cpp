// Builds the platform, hands it over and opens the first window.
#include "screens/frame/Main.h"

#include "app/program_start.h"
#include "platform/platform.h"
#include "platform_qt/qt_platform.h"
#include "screens/aids/help_desk.h"
#include "screens/exchange/ImportForm.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/Splash.h"
#include "screens/frame/register_screens.h"
#include "screens/frame/start_up.h"
#include "screens/lookups/ReplaceItem.h"
#include "screens/parts/application.h"
#include "screens/reports/ftpexport.h"

int main(int argc, char** argv) {
    using namespace tavernook;
    Application application(argc, argv);
    introduce_program(application);
    QtPlatform outside;
    Main main_window;
    ReplacementScreen replacement;
    ImportForm import_form(&main_window);
    PublishingWindow publishing(main_window);
    HelpDesk help(help_folders());
    Platform parts =
        outside.platform(&main_window.progress(), &main_window, &main_window.registry());
    parts.help_viewer = &help;
    parts.replace_item = &replacement;
    parts.import_form = &import_form;
    parts.ftp_export = &publishing;
    set_platform(parts);
    register_screens(main_window);
    // The program ends with its main window and with nothing else.
    application.setQuitOnLastWindowClosed(false);
    QObject::connect(&main_window, &Main::unloaded, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);

    if (!place_program_files()) tell_not_placed();
    place_sample_and_pages();
    Splash splash;
    start_program(main_window, splash, project_argument(QCoreApplication::arguments().mid(1)));
    return QApplication::exec();
}
