// Writes pictures of every screen into a folder, at scale 1 and 2, in a light and a dark palette:
//   tavernook_shots FOLDER
// Needs a display with real fonts; it starts itself once for each scale.
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QProcess>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "app/program_start.h"
#include "core/program_state.h"
#include "core/project/main_commands.h"
#include "core/project/recent_files.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "platform_qt/qt_platform.h"
#include "screens/exchange/ImportForm.h"
#include "screens/frame/About.h"
#include "screens/frame/Main.h"
#include "screens/frame/ProjectSetup.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/Splash.h"
#include "screens/frame/register_screens.h"
#include "screens/lookups/ReplaceItem.h"
#include "screens/parts/application.h"
#include "screens/reports/ftpexport.h"
#include "shots/plain_views.h"
#include "shots/shots_aids.h"
#include "shots/shots_help.h"
#include "shots/shots_icons.h"
#include "shots/shots_inventory.h"
#include "shots/shots_lookups.h"
#include "shots/shots_planner.h"
#include "shots/shots_recipes.h"
#include "shots/shots_sample.h"
#include "shots/shots_shopping.h"

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

    void take(const QString& name, const QPixmap& picture) {
        const QString path = QStringLiteral("%1/%2-%3.png").arg(folder_, name, ending_);
        if (!picture.save(path)) failed_ = true;
    }
    void take(const QString& name, QWidget& window) {
        settle();
        take(name, window.grab());
    }
    static void settle() {
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    }
    bool failed() const { return failed_; }

  private:
    QString folder_;
    QString ending_;
    bool failed_ = false;
};

// The window with one of its menus open, as the user sees them.
void take_menu(Photographer& photographer, const QString& name, Main& window, const char* menu) {
    auto* shown = window.findChild<QMenu*>(QLatin1String(menu));
    const QRect title = window.menuBar()->actionGeometry(shown->menuAction());
    const QPoint place = window.menuBar()->mapTo(&window, title.bottomLeft());
    shown->popup(window.mapToGlobal(place));
    Photographer::settle();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    painter.drawPixmap(place, shown->grab());
    painter.end();
    shown->close();
    photographer.take(name, picture);
}

void take_message_box(Photographer& photographer) {
    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        photographer.take(QStringLiteral("message_box"), *box);
        box->close();
    });
    boxes().message("Project has been modified.  Would you like to save before closing?",
                    Buttons::yes_no_cancel, "Project Modified");
}

void take_publishing(Photographer& photographer, Main& window) {
    ftpexport publishing(&window);
    publishing.show();
    for (const char* line :
         {"Preparing Files....", "Building Main Report", "Building Grocery List",
          "Building Month View",
          "The password goes to the server unencrypted.  An address that begins with \"ftps://\" "
          "or \"sftp://\" encrypts it.",
          "220 pantry FTP server ready.", "USER ann", "331 Password, please.", "PASS ****",
          "230 Welcome, ann.", "CWD pantry", "250 Here you are.", "STOR calm.htm",
          "226 Transfer complete.", "STOR month.jpg"}) {
        publishing.updatetext(line);
    }
    publishing.set_progress(20);
    publishing.enable_close(false);
    photographer.take(QStringLiteral("ftpexport"), publishing);
}

void take_exchange(Photographer& photographer, Main& window) {
    ImportForm form(&window);
    form.begin("Import Status");
    for (const char* line :
         {"Starting Import of file: /home/anna/pantry.csv", "Importing 3 items.",
          "Imported item: Rye flour", "Imported item: Oats, rolled", "Imported item: Honey"}) {
        form.add_line(line);
    }
    form.workbar(60);
    form.is_cancelled();
    photographer.take(QStringLiteral("exchange_at_work"), form);
    form.add_line("Import Completed Successfully on 11/22/2026 9:41:05 PM");
    form.workbar(100);
    form.end();
    photographer.take(QStringLiteral("exchange_done"), form);
    form.close();
}

void take_small_windows(Photographer& photographer, Main& window) {
    Splash splash;
    splash.come_up();
    photographer.take(QStringLiteral("splash"), splash);
    splash.close();
    About about(&window);
    about.show();
    photographer.take(QStringLiteral("about"), about);
    about.close();
    SaveProgress& progress = window.progress();
    progress.load("Saving Project", "Saving Project....");
    progress.show();
    platform_clock().wait_seconds(0.6);
    progress.set_label("Saving Meals to file.");
    progress.workbar(60);
    photographer.take(QStringLiteral("progress"), progress);
    progress.offer_cancel();
    photographer.take(QStringLiteral("progress_cancel"), progress);
    progress.unload();
    take_message_box(photographer);
    take_publishing(photographer, window);
    take_exchange(photographer, window);
}

void make_projects(const QString& folder) {
    for (const char* name : {"Summer house.tvk", "Parents.tvk", "Our home.tvk"}) {
        project_path = folder.toStdString() + "/" + name;
        save_recent_project(project_path);
    }
    load_recent_menu();
}

void take_settings(Photographer& photographer, Main& window) {
    sales_tax = 7.5;
    ProjectSetup setup(&window);
    setup.show();
    photographer.take(QStringLiteral("project_setup"), setup);
    setup.close();
    font_size = 0;
}

void take_screens(Photographer& photographer, Main& window, const QString& projects) {
    window.load("");
    window.show();
    photographer.take(QStringLiteral("main_first_start"), window);
    make_projects(projects);
    photographer.take(QStringLiteral("main_idle"), window);
    take_menu(photographer, QStringLiteral("menu_file_idle"), window, "mnuFile");
    take_small_windows(photographer, window);

    project_name = "Our home.tvk";
    project_open = i16_true;
    project_modified = i16_true;
    audit_hour = 21;
    window.set_toolbar_state(2);
    window.enable_project_menus(true);
    window.set_title("Tavernook - Our home.tvk");
    window.set_status(audit_time_panel, "Audit Time: 9:00 PM");
    window.set_status(activity_panel, "Ready");
    photographer.take(QStringLiteral("main_open"), window);
    take_menu(photographer, QStringLiteral("menu_file_open"), window, "mnuFile");
    take_menu(photographer, QStringLiteral("menu_project"), window, "mnuProject");
    window.set_toolbar_captions(false);
    photographer.take(QStringLiteral("main_no_captions"), window);
    const QSize size = window.size();
    window.resize(window.minimumSizeHint());
    photographer.take(QStringLiteral("main_smallest"), window);
    window.resize(size);
    window.set_toolbar_captions(true);
    const TakePicture take = [&photographer](const QString& name, QWidget& shown) {
        photographer.take(name, shown);
    };
    take_help(take);
    take_icons(take);
    take_settings(photographer, window);
    take_lookup_screens(window, take);
    take_inventory_screens(window, take);
    take_recipe_screens(window, take);
    take_shopping_screens(window, take);
    take_planner_screens(window, take);
    take_sample_screens(window, take);
}

int take_pictures(int argc, char** argv) {
    const QTemporaryDir home;
    qputenv("TAVERNOOK_HOME", home.path().toUtf8());
    Application application(argc, argv);
    introduce_program(application);
    application.setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(3) == QLatin1String("dark")) QApplication::setPalette(dark_palette());

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
    Photographer photographer(arguments.value(1),
                              arguments.value(3) + QLatin1Char('-') + arguments.value(2));
    take_screens(photographer, window, home.path());
    project_modified = i16_false;
    window.registry().unload_all();
    clear_platform();
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
    if (argc == 2) {
        return tavernook::take_all(QString::fromLocal8Bit(argv[0]),
                                   QString::fromLocal8Bit(argv[1]));
    }
    if (argc == 4) return tavernook::take_pictures(argc, argv);
    std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
    return 2;
}
