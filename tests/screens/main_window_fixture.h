// A real main window over fakes of the outside, driven as a user drives it.
#pragma once

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <gtest/gtest.h>
#include <string>

#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/fake_html_views.h"
#include "gui_support/waiting.h"
#include "gui_support/warning_guard.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/SaveProgress.h"
#include "screens/lookups/ReplaceItem.h"
#include "screens/reports/ftpexport.h"

namespace tavernook {

class MainWindowTest : public testing::Test {
  protected:
    MainWindowTest() {
        QApplication::setQuitOnLastWindowClosed(false);
        // However slow the machine is: letters typed one behind the other make one word, and the
        // timers tick when a test says so, not by themselves.
        QApplication::setKeyboardInputInterval(never_ms);
        for (const char* name : {"timer_1", "timer_2"}) timer(name).setInterval(never_ms);
        set_platform(outside());
        QObject::connect(&window, &Main::unloaded, &window, [this] { ++ends; });
    }

    // What the program is handed over; a test may put a part of its own in.
    Platform outside() {
        return {.clock = &platform.clock,
                .boxes = &platform.boxes,
                .file_dialogs = &platform.dialogs,
                .files = &platform.files,
                .settings_store = &platform.settings,
                .file_associations = &platform.associations,
                .project_lock = &platform.lock,
                .system_info = &platform.system,
                .help_viewer = &platform.help,
                .save_progress = &window.progress(),
                .main = &window,
                .screens = &window.registry(),
                .replace_item = &replacement,
                .import_form = &platform.import_form,
                .batch_scanner = &platform.scanner,
                .cabinets = &platform.cabinets,
                .ftp_session = &platform.ftp,
                .ftp_export = &publishing,
                .html_views = &html_views,
                .print_prompt = &print_prompt,
                .speech = &platform.speech};
    }

    void start(const std::string& command_line = "") {
        window.load(command_line);
        window.show();
        ASSERT_TRUE(becomes_active(window));
    }

    // A project on the disk under this name, which is closed again.
    std::string project_on_disk(const std::string& name) {
        const std::string path = platform.path(name);
        platform.dialogs.expect_save("New Project", path);
        press("Ctrl+N");
        press("Ctrl+W");
        EXPECT_TRUE(platform.disk.exists(path));
        return path;
    }

    void open_by_keys(const std::string& path) {
        platform.dialogs.expect_open("Open Project", path);
        press("Ctrl+O");
    }

    // As from the keyboard, into whatever has the focus.
    void press(const char* keys) {
        const QKeyCombination combination = QKeySequence(QLatin1String(keys))[0];
        QWidget* target = QApplication::activePopupWidget();
        if (target == nullptr) target = QApplication::focusWidget();
        if (target == nullptr) target = &window;
        QTest::keyClick(target, combination.key(), combination.keyboardModifiers());
    }

    QAction& action(const char* name) {
        auto* found = window.findChild<QAction*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("no action ") + name);
        return *found;
    }

    // Walks down the menu (opened by its own letter) to the entry; false when the keyboard never
    // comes there.
    bool walk_to(const char* menu_keys, const QAction& entry) {
        press(menu_keys);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return false;
        for (qsizetype step = 0; step <= menu->actions().size(); ++step) {
            if (menu->activeAction() == &entry) return true;
            QTest::keyClick(menu, Qt::Key_Down);
        }
        press("Escape");
        return false;
    }

    void choose(const char* menu_keys, const char* name) {
        ASSERT_TRUE(walk_to(menu_keys, action(name))) << name;
        press("Return");
    }

    std::string panel(int number) {
        auto* label = window.findChild<QLabel*>(QStringLiteral("status_panel_%1").arg(number));
        return label->text().toStdString();
    }
    std::string shown_title() { return window.windowTitle().toStdString(); }

    QTimer& timer(const char* name) { return *window.findChild<QTimer*>(QLatin1String(name)); }

    // One tick, without waiting for it; false when the timer was not running.
    bool tick(const char* timer_name) {
        QTimer& ticking = timer(timer_name);
        if (!ticking.isActive()) return false;
        QTimerEvent event(ticking.timerId());
        QCoreApplication::sendEvent(&ticking, &event);
        return true;
    }

    static void settle() { QCoreApplication::processEvents(); }

    TestPlatform platform;
    ReplacementScreen replacement;
    FakeHtmlViews html_views;
    FakePrintPrompt print_prompt;
    Main window;
    PublishingWindow publishing{window};
    int ends = 0;
};

}  // namespace tavernook
