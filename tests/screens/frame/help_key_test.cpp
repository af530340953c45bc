// F1 from everywhere.
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>

#include "gui_support/modal_driver.h"
#include "screens/child_screen_fixture.h"
#include "screens/frame/About.h"
#include "screens/frame/ProjectSetup.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

class HelpKeyTest : public ChildScreenTest {
  protected:
    const Texts& pages() const { return platform.help.pages_shown; }
    std::string last_page() const { return pages().empty() ? "" : pages().back(); }

    static constexpr const char* no_help =
        "Unable to display Help Contents. There is no Help associated with this project.";
};

TEST_F(HelpKeyTest, WithoutAScreenItShowsTheContents) {
    press("F1");
    EXPECT_EQ(platform.help.contents_shown, 1);
    EXPECT_EQ(pages(), Texts{});
}

TEST_F(HelpKeyTest, EveryScreenInFrontGetsItsPage) {
    for (const char* name : {"FoodInventory", "LotView", "Mealbuilder", "ShoppingList", "MealPlan",
                             "Reports", "StoresForm", "UnitsForm", "wam", "PP", "BCBuild", "BCGEN",
                             "Calculator", "CS1504GETUPC"}) {
        open(name);
        press("F1");
        EXPECT_EQ(last_page(), name);
    }
    window.findChild<QWidget*>("toolbar_1_11_button")->setFocus();
    press("F1");
    EXPECT_EQ(last_page(), "CS1504GETUPC");  // from a toolbar, too
    open("VII");                             // has no toolbars and takes the other keys of its row
    press("F1");
    EXPECT_EQ(last_page(), "VII");
    EXPECT_EQ(platform.help.contents_shown, 0);
}

TEST_F(HelpKeyTest, AScreenThatWasClosedIsNotInFrontAnyMore) {
    open("wam");
    press("Ctrl+W");
    press("F1");
    EXPECT_EQ(pages(), Texts{});
    EXPECT_EQ(platform.help.contents_shown, 1);
}

TEST_F(HelpKeyTest, TextFieldsLetItThrough) {
    std::size_t fields = 0;
    for (const char* name : {"FoodInventory", "wam", "CS1504GETUPC"}) {
        open(name);
        for (QLineEdit* field : screen->findChildren<QLineEdit*>()) {
            if (!field->isVisible() || !field->isEnabled()) continue;
            field->setFocus();
            press("F1");
            EXPECT_EQ(pages().size(), ++fields);
            EXPECT_EQ(last_page(), name);
        }
    }
    EXPECT_GE(fields, 2U);
}

TEST_F(HelpKeyTest, ADialogGetsItsPageAndTheScreenOverItToo) {
    when_modal<ProjectSetup>([&](ProjectSetup& setup) {
        press_key(setup, Qt::Key_F1);
        EXPECT_EQ(last_page(), "ProjectSetup");
        for (QWidget* field : setup.findChildren<QWidget*>()) {
            if (qobject_cast<QLineEdit*>(field) != nullptr) press_key(*field, Qt::Key_F1);
        }
        EXPECT_EQ(last_page(), "ProjectSetup");
        setup.reject();
    });
    action("Project_Setup").trigger();
    window.show_about();
    press_key(*window.findChild<About*>(), Qt::Key_F1);
    EXPECT_EQ(last_page(), "About");
    window.findChild<About*>()->close();
}

TEST_F(HelpKeyTest, TheLessonReaderAndTheWelcomeDialogHaveTheirPages) {
    open("wam");
    ASSERT_TRUE(window.registry().show("tut"));
    press("F1");
    EXPECT_EQ(last_page(), "tut");
    screen->setFocus();
    press("F1");
    EXPECT_EQ(last_page(), "wam");
    ASSERT_TRUE(window.registry().show("Dialog"));
    press_key(*QApplication::activeModalWidget(), Qt::Key_F1);
    EXPECT_EQ(last_page(), "Dialog");
    QApplication::activeModalWidget()->close();
}

TEST_F(HelpKeyTest, InABoxAndInAMenuNothingHappens) {
    open("wam");
    QMessageBox box(&window);
    box.show();
    press_key(box, Qt::Key_F1);
    press_key(*box.findChild<QLabel*>(), Qt::Key_F1);
    EXPECT_TRUE(box.isVisible());
    box.close();
    press("Alt+F");
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press("F1");
    press("Escape");
    EXPECT_EQ(pages(), Texts{});
    EXPECT_EQ(platform.help.contents_shown, 0);
}

TEST_F(HelpKeyTest, WhileAProjectIsSavedNothingHappens) {
    window.progress().load("Saving Project", "Saving Project....");
    window.progress().show();
    press_key(window.progress(), Qt::Key_F1);
    window.progress().unload();
    EXPECT_EQ(pages(), Texts{});
}

TEST_F(HelpKeyTest, AMissingHelpIsTold) {
    platform.help.available = false;
    platform.boxes.expect_message(no_help);
    press("F1");
    open("wam");
    platform.boxes.expect_message(no_help);
    press("F1");
}

TEST_F(HelpKeyTest, OtherKeysAreLeftAlone) {
    open("wam");
    press("Shift+F1");
    press("Ctrl+F1");
    EXPECT_EQ(pages(), Texts{});
    EXPECT_EQ(platform.help.contents_shown, 0);
}

}  // namespace
}  // namespace tavernook
