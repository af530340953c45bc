// Writes pictures of every screen into a folder, at scale 1 and 2, in a light and a dark palette:
//   tavernook_shots FOLDER
// or shows the same screens one after another to another program (stage.h):
//   tavernook_shots --stage
// Needs a display with real fonts; it starts itself once for each scale.
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>

#include "app/program_start.h"
#include "core/program_state.h"
#include "platform/platform.h"
#include "platform_qt/qt_platform.h"
#include "screens/exchange/ImportForm.h"
#include "screens/frame/Main.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/register_screens.h"
#include "screens/lookups/ReplaceItem.h"
#include "screens/parts/application.h"
#include "shots/plain_views.h"
#include "shots/shots_aids.h"
#include "shots/shots_frame.h"
#include "shots/shots_help.h"
#include "shots/shots_icons.h"
#include "shots/shots_inventory.h"
#include "shots/shots_lookups.h"
#include "shots/shots_planner.h"
#include "shots/shots_recipes.h"
#include "shots/shots_sample.h"
#include "shots/shots_shopping.h"
#include "shots/stage.h"

namespace tavernook {

namespace {

QPalette dark_palette() {
    QPalette palette(QColor(45, 45, 48), QColor(37, 37, 40));
    const QColor text(230, 230, 230);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    }
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::Link, QColor(120, 170, 255));
    palette.setColor(QPalette::Highlight, QColor(50, 100, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(60, 60, 64));
    palette.setColor(QPalette::ToolTipText, text);
    return palette;
}

class Photographer {
  public:
    Photographer(QString folder, QString ending)
        : folder_(std::move(folder)), ending_(std::move(ending)) {}

    void take(const QString& name, QWidget& window) {
        const QString path = QStringLiteral("%1/%2-%3.png").arg(folder_, name, ending_);
        if (!window.grab().save(path)) failed_ = true;
    }
    bool failed() const { return failed_; }

  private:
    QString folder_;
    QString ending_;
    bool failed_ = false;
};

void settle() {
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
}

void take_screens(Main& window, const TakePicture& take, const QString& projects) {
    take_main_window(window, take, projects);
    take_help(take);
    take_icons(take);
    take_lookup_screens(window, take);
    take_inventory_screens(window, take);
    take_recipe_screens(window, take);
    take_shopping_screens(window, take);
    take_planner_screens(window, take);
    take_sample_screens(window, take);
}

// Every screen in turn, as the program shows it, handed to `take` when it has come to rest.
void show_all(int argc, char** argv, bool is_dark, const TakePicture& take) {
    const QTemporaryDir home;
    qputenv("TAVERNOOK_HOME", home.path().toUtf8());
    Application application(argc, argv);
    introduce_program(application);
    application.setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (is_dark) QApplication::setPalette(dark_palette());

    QtPlatform outside;
    Main window;
    ReplacementScreen replacement;
    ImportForm import_form(&window);
    Platform parts = outside.platform(&window.progress(), &window, &window.registry());
    parts.replace_item = &replacement;
    parts.import_form = &import_form;
    PlainViews views;
    PlainPrintPrompt prompt;
    parts.html_views = &views;
    parts.print_prompt = &prompt;
    NoVoice voice;
    parts.speech = &voice;
    set_platform(parts);
    register_screens(window);
    const TakePicture take_at_rest = [&take](const QString& name, QWidget& shown) {
        settle();
        take(name, shown);
    };
    take_screens(window, take_at_rest, home.path());
    project_modified = i16_false;
    window.registry().unload_all();
    clear_platform();
}

int take_pictures(int argc, char** argv) {
    const QString scale = QString::fromLocal8Bit(argv[2]);
    const QString palette = QString::fromLocal8Bit(argv[3]);
    Photographer photographer(QString::fromLocal8Bit(argv[1]), palette + QLatin1Char('-') + scale);
    show_all(
        argc, argv, palette == QLatin1String("dark"),
        [&photographer](const QString& name, QWidget& shown) { photographer.take(name, shown); });
    return photographer.failed() ? 1 : 0;
}

int take_all(const QString& program, const QString& folder) {
    int result = QDir().mkpath(folder) ? 0 : 1;
    for (const char* scale : {"1", "2"}) {
        qputenv("QT_SCALE_FACTOR", scale);
        for (const char* palette : {"light", "dark"}) {
            const QStringList arguments{folder, QLatin1String(scale), QLatin1String(palette)};
            if (QProcess::execute(program, arguments) != 0) result = 1;
        }
    }
    return result;
}

}  // namespace

}  // namespace tavernook

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--stage") == 0) {
        tavernook::show_all(argc, argv, false, tavernook::show_scene);
        return 0;
    }
    if (argc == 2) {
        return tavernook::take_all(QString::fromLocal8Bit(argv[0]),
                                   QString::fromLocal8Bit(argv[1]));
    }
    if (argc == 4) return tavernook::take_pictures(argc, argv);
    std::fprintf(stderr, "usage: %s FOLDER | --stage\n", argv[0]);
    return 2;
}
