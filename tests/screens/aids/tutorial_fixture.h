// The real main window with every screen, the sample household and the lessons as they come with
// the program, and no project open.
#pragma once

#include <QCheckBox>
#include <QDockWidget>
#include <QPlainTextEdit>
#include <QToolButton>

#include "aids/lessons.h"
#include "aids/sample_project.h"
#include "platform_qt/shipped_page_files.h"
#include "platform_qt/shipped_sample.h"
#include "screens/aids/Dialog.h"
#include "screens/aids/tut.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {

class TutorialTest : public ChildScreenTest {
  protected:
    TutorialTest() {
        set_shipped_sample(shipped_sample());
        set_shipped_lessons(shipped_lesson_file);
    }
    ~TutorialTest() override {
        set_shipped_lessons({});
        set_shipped_sample({});
    }

    void SetUp() override {
        register_screens(window);
        window.resize(1280, 900);
        platform.disk.make_folder(in_program("reports"));
        start();
    }

    // Window managers do this by themselves.
    static void bring_in_front(QWidget& wanted) {
        wanted.activateWindow();
        ASSERT_TRUE(comes_true([&] {
            const QWidget* focus = QApplication::focusWidget();
            return wanted.isActiveWindow() && focus != nullptr && focus->window() == &wanted;
        }));
        settle();
    }

    Dialog* welcome() {
        Dialog* shown = window.findChild<Dialog*>();
        return shown != nullptr && shown->isVisible() ? shown : nullptr;
    }
    void open_welcome() {
        action("mnu_tut").trigger();
        ASSERT_NE(welcome(), nullptr);
        bring_in_front(*welcome());
    }
    template <typename Widget = QWidget>
    Widget& in_welcome(const char* name) {
        auto* found = welcome()->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("not in the dialog: ") + name);
        return *found;
    }
    void choose_picture(const char* name) {
        QTest::mouseClick(&in_welcome(name), Qt::LeftButton);
        settle();
    }
    // As a newcomer comes to a lesson.
    void begin_lesson(const char* picture) {
        open_welcome();
        choose_picture(picture);
        ASSERT_EQ(welcome(), nullptr);
        bring_in_front(window);
    }

    tut* reader() {
        auto* shown = window.findChild<tut*>();
        return shown != nullptr && shown->isVisible() ? shown : nullptr;
    }
    template <typename Widget>
    Widget& in_reader(const char* name) {
        return *reader()->findChild<Widget*>(QLatin1String(name));
    }
    void click_in_reader(const char* name) {
        QTest::mouseClick(&in_reader<QPushButton>(name), Qt::LeftButton);
        settle();
    }
    std::string page_shown() {
        return in_reader<QPlainTextEdit>("text_box").toPlainText().toStdString();
    }
    std::string place_shown() { return in_reader<QLabel>("page_label").text().toStdString(); }
    // Turns to the next page from wherever the keyboard is.
    void turn() {
        const std::string before = page_shown();
        press("Alt+Right");
        EXPECT_NE(page_shown(), before);
    }

    // The screen of that name, which has come up by itself.
    QWidget& on(const char* name) {
        screen = window.registry().loaded(QLatin1String(name));
        if (screen == nullptr) throw std::runtime_error(std::string("not loaded: ") + name);
        return *screen;
    }
    bool is_in_front(const char* name) {
        const auto* area = window.findChild<QMdiArea*>("mdi_area");
        const QWidget* loaded = window.registry().loaded(QLatin1String(name));
        return loaded != nullptr && area->activeSubWindow() == loaded->parentWidget();
    }

    std::string in_program(const char* name) { return platform.system.program + "/" + name; }
};

}  // namespace tavernook
