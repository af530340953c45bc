// The program up to its first window, without the splash and its wait.
#include <QApplication>

#include "app/program_start.h"
#include "first_paint.h"
#include "platform/platform.h"
#include "platform_qt/qt_platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/SaveProgress.h"

int main(int argc, char** argv) {
    using namespace tavernook;
    QApplication application(argc, argv);
    introduce_program(application);
    QtPlatform outside;
    Main window;
    set_platform(outside.platform(&window.progress(), &window, &window.registry()));
    if (!place_program_files()) return 1;
    const FirstPaint first_paint(window);
    window.load("");
    window.show();
    return QApplication::exec();
}
