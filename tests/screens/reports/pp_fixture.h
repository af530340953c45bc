// The print preview over views of pages without an engine.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QProgressBar>
#include <filesystem>
#include <fstream>

#include "fakes/fake_screens.h"
#include "reports/preview.h"
#include "screens/child_screen_fixture.h"

namespace tavernook {

class PreviewTest : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        for (const char* folder : {"/dat", "/reports", "/barcode"}) {
            platform.disk.make_folder(platform.system.program + folder);
        }
        put_page("<html></html>");
    }

    std::string page_path() const { return platform.system.program + "/reports/rlist.htm"; }
    void put_page(const std::string& text) const {
        std::ofstream(page_path(), std::ios::binary) << text;
    }

    // The page of that kind is asked for, as a command of another screen does it.
    void ask_for(i16 kind) {
        set_htmlpath(page_path(), kind);
        screens().show_preview();
        screen = window.registry().loaded("PP");
        settle();
    }
    void show(i16 kind) {
        ask_for(kind);
        html_views.show();
        settle();
    }

    bool is_on(const char* name) { return part<QWidget>(name).isEnabled(); }
    bool is_seen(const char* name) { return part<QWidget>(name).isVisible(); }
    std::string sentence() { return part<QLabel>("sentence").text().toStdString(); }
    std::string said() { return panel(message_panel); }

    int calls(const std::string& call) const {
        const auto& seen = html_views.calls.entries;
        return static_cast<int>(std::count(seen.begin(), seen.end(), call));
    }
    int navigations() const { return calls("navigate " + page_path()); }

    // As the user does with the focus in the list.
    void choose_size(const char* name) {
        auto& box = part<QComboBox>("size_box");
        box.setFocus();
        const int wanted = box.findText(QLatin1String(name));
        ASSERT_GE(wanted, 0);
        while (box.currentIndex() < wanted) press("Down");
        while (box.currentIndex() > wanted) press("Up");
    }

    void choose_size_once(const char* key) {
        part<QComboBox>("size_box").setFocus();
        press(key);
    }

    void expect_all_off_but(const std::set<std::string>& on) {
        for (const char* name : {"print_button", "edit_button", "insert_image_button",
                                 "notes_button", "save_button", "size_box", "gridlines_box"}) {
            EXPECT_EQ(is_on(name), on.count(name) > 0) << name;
        }
        EXPECT_TRUE(is_on("cancel_button"));
    }

    void focus_page() { html_views.answers.widget->setFocus(); }
    bool page_has_focus() const { return html_views.answers.widget->hasFocus(); }

    // A project of its own on the disk, so that it can be closed.
    void bring_project() {
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
        project_modified = 0;
    }
};

}  // namespace tavernook
