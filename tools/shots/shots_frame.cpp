#include "shots/shots_frame.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTimer>

#include "core/program_state.h"
#include "core/project/main_commands.h"
#include "core/project/recent_files.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/exchange/ImportForm.h"
#include "screens/frame/About.h"
#include "screens/frame/Main.h"
#include "screens/frame/ProjectSetup.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/Splash.h"
#include "screens/reports/ftpexport.h"

namespace tavernook {

namespace {

// The window with one of its menus open, as the user sees them.
void take_menu(const TakePicture& take, const QString& name, Main& window, const char* menu) {
    auto* shown = window.findChild<QMenu*>(QLatin1String(menu));
    const QRect title = window.menuBar()->actionGeometry(shown->menuAction());
    const QPoint place = window.menuBar()->mapTo(&window, title.bottomLeft());
    shown->popup(window.mapToGlobal(place));
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    painter.drawPixmap(place, shown->grab());
    painter.end();
    shown->close();
    QLabel both;
    both.setPixmap(picture);
    both.resize(window.size());
    take(name, both);
}

// A box stands until its picture is taken.
void take_box(const TakePicture& take, const char* name, const std::function<void()>& ask) {
    QTimer::singleShot(0, [&] {
        QWidget* box = QApplication::activeModalWidget();
        take(QLatin1String(name), *box);
        box->close();
    });
    ask();
}

void take_boxes(const TakePicture& take) {
    take_box(take, "message_box", [] {
        boxes().message("Project has been modified.  Would you like to save before closing?",
                        Buttons::yes_no_cancel, "Project Modified");
    });
    take_box(take, "input_box", [] {
        boxes().input("Current Quantity = 2\nEnter new quantity:", "Change Quantity", "3");
    });
}

void take_publishing(const TakePicture& take, Main& window) {
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
    take(QStringLiteral("ftpexport"), publishing);
}

void take_exchange(const TakePicture& take, Main& window) {
    ImportForm form(&window);
    form.begin("Import Status");
    for (const char* line :
         {"Starting Import of file: /home/anna/pantry.csv", "Importing 3 items.",
          "Imported item: Rye flour", "Imported item: Oats, rolled", "Imported item: Honey"}) {
        form.add_line(line);
    }
    form.workbar(60);
    form.is_cancelled();
    take(QStringLiteral("exchange_at_work"), form);
    form.add_line("Import Completed Successfully on 11/22/2026 9:41:05 PM");
    form.workbar(100);
    form.end();
    take(QStringLiteral("exchange_done"), form);
    form.close();
}

void take_progress(const TakePicture& take, SaveProgress& progress) {
    progress.load("Saving Project", "Saving Project....");
    progress.show();
    platform_clock().wait_seconds(0.6);
    progress.set_label("Saving Meals to file.");
    progress.workbar(60);
    take(QStringLiteral("progress"), progress);
    progress.offer_cancel();
    take(QStringLiteral("progress_cancel"), progress);
    progress.unload();
}

void take_small_windows(const TakePicture& take, Main& window) {
    Splash splash;
    splash.come_up();
    take(QStringLiteral("splash"), splash);
    splash.close();
    About about(&window);
    about.show();
    take(QStringLiteral("about"), about);
    about.close();
    take_progress(take, window.progress());
    take_boxes(take);
    take_publishing(take, window);
    take_exchange(take, window);
}

void make_projects(const QString& folder) {
    for (const char* name : {"Summer house.tvk", "Parents.tvk", "Our home.tvk"}) {
        project_path = folder.toStdString() + "/" + name;
        save_recent_project(project_path);
    }
    load_recent_menu();
}

void seem_open(Main& window) {
    project_name = "Our home.tvk";
    project_open = i16_true;
    project_modified = i16_true;
    audit_hour = 21;
    window.set_toolbar_state(2);
    window.enable_project_menus(true);
    window.set_title("Tavernook - Our home.tvk");
    window.set_status(audit_time_panel, "Audit Time: 9:00 PM");
    window.set_status(activity_panel, "Ready");
}

void take_settings(const TakePicture& take, Main& window) {
    sales_tax = 7.5;
    ProjectSetup setup(&window);
    setup.show();
    take(QStringLiteral("project_setup"), setup);
    setup.close();
    font_size = 0;
}

}  // namespace

void take_main_window(Main& window, const TakePicture& take, const QString& projects) {
    window.load("");
    window.show();
    take(QStringLiteral("main_first_start"), window);
    make_projects(projects);
    take(QStringLiteral("main_idle"), window);
    take_menu(take, QStringLiteral("menu_file_idle"), window, "mnuFile");
    take_small_windows(take, window);
    seem_open(window);
    take(QStringLiteral("main_open"), window);
    take_menu(take, QStringLiteral("menu_file_open"), window, "mnuFile");
    take_menu(take, QStringLiteral("menu_project"), window, "mnuProject");
    window.set_toolbar_captions(false);
    take(QStringLiteral("main_no_captions"), window);
    const QSize size = window.size();
    window.resize(window.minimumSizeHint());
    take(QStringLiteral("main_smallest"), window);
    window.resize(size);
    window.set_toolbar_captions(true);
    take_settings(take, window);
}

}  // namespace tavernook
