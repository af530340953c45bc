// The spoken interface in the main window: what is listed and said, by keys and by scans.
#include <QClipboard>
#include <QListWidget>
#include <QMdiArea>
#include <QToolBar>

#include "barcodes/scanners.h"
#include "screens/child_screen_fixture.h"

namespace tavernook {
namespace {

using Lines = std::vector<std::string>;

class SpokenScreen : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        project_name = "Our home.tvk";
        scanner_type = keyboard_wedge;
        units[4].name = "Ounce";
        units[4].in_use = 1;
        items[3].name = "K\xE4se";
        items[3].barcode = "40123455";
        items[3].quantity = 3;
        items[3].qty_units = 4;
        items[3].in_use = 1;
        meals[7].name = "Soup";
        meals[7].in_use = 1;
        end_of_step();
    }
    void open_screen() {
        open("VII");
        platform.speech.log.clear();
    }
    QListWidget& list() { return part<QListWidget>("List1"); }
    std::string last_line() { return list().item(list().count() - 1)->text().toStdString(); }
    // Since the last time it was asked.
    Lines heard() {
        Lines all = platform.speech.log.entries;
        platform.speech.log.clear();
        return all;
    }
    void scan(const char* code, const char* end = "Return") {
        type(code);
        press(end);
    }
    bool has_toolbars() {
        const bool first = !window.findChild<QToolBar*>("toolbar_1")->isHidden();
        EXPECT_EQ(!window.findChild<QToolBar*>("toolbar_2")->isHidden(), first);
        return first;
    }
};

TEST_F(SpokenScreen, BeginsByItsLines) {
    choose("Alt+P", "mnu_vii");
    screen = window.registry().loaded("VII");
    ASSERT_NE(screen, nullptr);
    settle();
    const Lines lines{"Visually Impaired Interface. Version 1.7",
                      "You are using project Our home.tvk",
                      "Press F2 to hear shopping list items",
                      "Press F3 to hear Expired items",
                      "Press F4 to plan meals",
                      "Press F5 to order items"};
    EXPECT_EQ(column(list()), lines);
    Lines said;
    for (const std::string& line : lines) said.push_back("speak " + line);
    EXPECT_EQ(heard(), said);
    EXPECT_EQ(list().currentRow(), 5);
    EXPECT_TRUE(list().currentItem()->isSelected());
    EXPECT_EQ(list().accessibleName(), "What was said");
}

TEST_F(SpokenScreen, NeedsAProject) {
    window.enable_project_menus(false);
    EXPECT_FALSE(action("mnu_vii").isEnabled());
    window.enable_project_menus(true);
    EXPECT_TRUE(action("mnu_vii").isEnabled());
}

TEST_F(SpokenScreen, KeysCutOffAndSpeak) {
    open_screen();
    EXPECT_EQ(focused(), "List1");
    for (const auto& [key, text] :
         {std::pair{"F2", "Shopping List"}, std::pair{"F3", "Expired items"},
          std::pair{"F4", "Plan Meals"}, std::pair{"F5", "order items"}, std::pair{"F6", "ya"}}) {
        press(key);
        EXPECT_EQ(heard(), (Lines{"stop", std::string("speak ") + text}));
        EXPECT_EQ(last_line(), text);
        EXPECT_EQ(list().currentRow(), list().count() - 1);
    }
    EXPECT_EQ(focused(), "List1");
    press("F7");
    press("Shift+F2");
    press("F9");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(SpokenScreen, AScanIsAnswered) {
    open_screen();
    scan("40123455");
    EXPECT_EQ(heard(), (Lines{"stop", "speak You have scanned item ... K\xE4se",
                              "speak this item is currently stocked at ... 3 .. Ounce"}));
    EXPECT_EQ(last_line(), "this item is currently stocked at ... 3 .. Ounce");
    EXPECT_EQ(list().item(list().count() - 2)->text(), QString("You have scanned item ... Käse"));
    scan("tvk7");
    EXPECT_EQ(heard(), (Lines{"stop", "speak You have scanned meal ... Soup"}));
    scan("TVK7", "Enter");
    EXPECT_EQ(heard(), (Lines{"stop", "speak You have scanned meal ... Soup"}));
    scan("TVK7", "Tab");
    EXPECT_EQ(heard(), (Lines{"stop", "speak You have scanned meal ... Soup"}));
    EXPECT_EQ(focused(), "List1");
}

TEST_F(SpokenScreen, WhatIsUnknownIsSilentAndForgotten) {
    open_screen();
    const int lines = list().count();
    scan("4711");
    scan("");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(list().count(), lines);
    scan("40123455");
    EXPECT_EQ(heard().size(), 3U);
    scanner_type = no_scanner;
    scan("40123455");
    EXPECT_EQ(heard(), Lines{});
    scanner_type = keyboard_wedge;
    scan("55");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(SpokenScreen, KeysOfACodeDoNothingElse) {
    open_screen();
    const int row = list().currentRow();
    type("vY p1");
    EXPECT_EQ(list().currentRow(), row);  // a list would look for a line that begins so
    press("Backspace");
    press("Escape");
    ASSERT_TRUE(is_open("VII"));
    type("4012346");
    press("Backspace");
    scan("56");
    EXPECT_EQ(heard(), Lines{});
    type("401234556");
    press("Backspace");
    press("Up");
    press("Ctrl+C");
    press("Return");
    EXPECT_EQ(heard().size(), 3U);
}

TEST_F(SpokenScreen, ACodeWithoutAnEndIsBounded) {
    open_screen();
    for (int time = 0; time < 300; ++time) type("0123456789");
    press("Return");
    EXPECT_EQ(heard(), Lines{});
    scan("40123455");
    EXPECT_EQ(heard().size(), 3U);
}

TEST_F(SpokenScreen, TheWindowPromptsWhereTheListHasNoFocus) {
    open_screen();
    const int lines = list().count();
    QTest::mouseClick(screen, Qt::LeftButton, {}, QPoint(2, 2));
    ASSERT_EQ(focused(), "VII");
    press("Pause");
    EXPECT_EQ(heard(), Lines{"speak ready for scan.  Place item in front of scanner."});
    press("Return");
    press("Enter");
    EXPECT_EQ(heard(), (Lines{"speak Scan Complete", "speak Scan Complete"}));
    press("F2");
    type("x");
    EXPECT_EQ(heard(), Lines{});
    press("Tab");
    EXPECT_EQ(heard(), Lines{"speak Auditing Inventory"});
    EXPECT_EQ(focused(), "List1");
    EXPECT_EQ(list().count(), lines);
    press("Tab");
    press("Pause");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(SpokenScreen, ToolbarsAreAwayWhileItIsLoaded) {
    ASSERT_TRUE(has_toolbars());
    open_screen();
    EXPECT_FALSE(has_toolbars());
    open("Calculator");
    EXPECT_FALSE(has_toolbars());
    open("VII");
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("VII"));
    EXPECT_TRUE(has_toolbars());
}

TEST_F(SpokenScreen, AToolbarThatTheUserHasPutAwayStaysAway) {
    window.findChild<QToolBar*>("toolbar_1")->hide();
    open_screen();
    press("Escape");
    settle();
    EXPECT_TRUE(window.findChild<QToolBar*>("toolbar_1")->isHidden());
    EXPECT_FALSE(window.findChild<QToolBar*>("toolbar_2")->isHidden());
}

TEST_F(SpokenScreen, ToolbarsComeBackWhenTheProjectGoes) {
    open_screen();
    platform.speech.log.clear();
    window.registry().unload_all();
    settle();
    EXPECT_TRUE(has_toolbars());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(heard(), Lines{"stop"});
}

TEST_F(SpokenScreen, ToolbarsComeBackWhenItIsHidden) {
    open_screen();
    window.registry().hide_all();
    settle();
    EXPECT_TRUE(has_toolbars());
    open("VII");
    EXPECT_FALSE(has_toolbars());
}

TEST_F(SpokenScreen, ToolbarsAreThereAtTheNextStart) {
    open_screen();
    window.close();
    ASSERT_EQ(ends, 1);
    Main next;
    next.load("");
    next.show();
    for (const char* name : {"toolbar_1", "toolbar_2"}) {
        EXPECT_FALSE(next.findChild<QToolBar*>(name)->isHidden()) << name;
    }
    next.end_program();
}

TEST_F(SpokenScreen, ClosingItCutsOff) {
    open_screen();
    press("Escape");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(heard(), Lines{"stop"});
}

TEST_F(SpokenScreen, GoodbyeIsSaidToItsEndAndEndsTheProgram) {
    open_screen();
    project_modified = i16_true;
    platform.clock.meanwhile = [this] {
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(tick("timer_1"));
        press("F2");  // nothing else is said
        EXPECT_EQ(ends, 0);
    };
    press("F10");
    EXPECT_EQ(heard(), Lines{"speak Exiting Tavern .. O .. K ... it is now ... "
                             "5/15/2024 12:00:00 PM ....  Goodbye"});
    EXPECT_EQ(platform.clock.waited, 20);
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_NE(project_modified, 0);
}

TEST_F(SpokenScreen, GoodbyeOutlivesItsScreen) {
    open_screen();
    platform.clock.meanwhile = [this] {
        window.registry().unload_all();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    press("F10");
    EXPECT_EQ(ends, 1);
}

TEST_F(SpokenScreen, TheProgramEndsOnceWhereTheWindowIsClosedMeanwhile) {
    open_screen();
    platform.clock.meanwhile = [this] { window.close(); };
    press("F10");
    EXPECT_EQ(ends, 1);
}

TEST_F(SpokenScreen, TheListFillsTheWindowButForItsMargins) {
    open_screen();
    QWidget& child = *screen->parentWidget();
    child.showNormal();
    for (const QSize size : {QSize(600, 400), QSize(300, 200), QSize(801, 301)}) {
        child.resize(size);
        settle();
        EXPECT_EQ(list().width(), screen->width() - 27);
        EXPECT_EQ(list().height(), screen->height() - 13);
    }
    QWidget alone;
    screen->setParent(&alone);
    screen->resize(10, 10);  // no room for it
    EXPECT_GE(list().width(), 1);
}

TEST_F(SpokenScreen, LinesCanBeCopied) {
    open_screen();
    press("F2");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "Shopping List");
}

}  // namespace
}  // namespace tavernook
