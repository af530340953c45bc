// The welcome dialog: what it shows, what its pictures do, and when it comes at the start.
#include <QMdiArea>
#include <filesystem>

#include "core/project/settings_file.h"
#include "gui_support/modal_driver.h"
#include "screens/aids/tutorial_fixture.h"
#include "screens/frame/Splash.h"
#include "screens/frame/start_up.h"

namespace tavernook {
namespace {

struct Picture {
    const char* name;
    const char* text;
    i16 section;
    const char* screen;
    bool takes_sample;
};

// clang-format off
constexpr Picture pictures[] = {
    {"lesson_new", "Learn what a Tavernook project is and how to start a new one.", 100, nullptr, false},
    {"lesson_sample", "Get started now with a sample project that already has a small inventory and some meals.  You can use this as an example or build your project from this.", 0, nullptr, true},
    {"lesson_open", "This tutorial will teach you how to open an existing Tavernook project.", 200, nullptr, false},
    {"lesson_items", "Learn how to enter items into the Tavernook Item Inventory.  The Item Inventory will keep track of your inventory and will alert you when items or lots are expired or require restocking.", 300, "FoodInventory", true},
    {"lesson_planner", "Learn how to use the Meal Planner to plan meals, use meal recommendations, and more...", 400, "MealPlan", true},
    {"lesson_recipes", "This tutorial will show you how to construct recipes from your items and organize them in this easy to use recipe manager.", 500, "Mealbuilder", true},
    {"lesson_setup", "Learn how to setup your Tavernook project to your needs.", 600, "ProjectSetup", true},
    {"lesson_reports", "This tutorial will describe how to use the powerful Tavernook reporting system.  Use existing Tavernook reports or design your own using custom filters and sorting.", 700, "Reports", true},
};
// clang-format on

class Welcome : public TutorialTest {
  protected:
    std::string line() { return in_welcome<QLabel>("description_label").text().toStdString(); }
    void hover(const char* name) {
        const QPointF middle = in_welcome(name).rect().center();
        QEnterEvent event(middle, middle, middle);
        QCoreApplication::sendEvent(&in_welcome(name), &event);
    }
    void leave(const char* name) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&in_welcome(name), &event);
    }
    void click_button(const char* name) {
        QTest::mouseClick(&in_welcome(name), Qt::LeftButton);
        settle();
    }
};

TEST_F(Welcome, BearsItsTexts) {
    open_welcome();
    EXPECT_EQ(welcome()->windowTitle(), "Tavernook Tutorial");
    EXPECT_EQ(in_welcome<QLabel>("sentence_label").text(),
              "Select from one of the following lessons below or hit cancel to continue.");
    EXPECT_EQ(plain(in_welcome<QCheckBox>("hide_box").text()),
              "Do not show this dialog in the future");
    EXPECT_EQ(plain(in_welcome<QPushButton>("cancel_button").text()), "Cancel");
    EXPECT_EQ(plain(in_welcome<QPushButton>("new_button").text()), "New Project");
    EXPECT_EQ(plain(in_welcome<QPushButton>("open_button").text()), "Open Project");
}

TEST_F(Welcome, ThePointerBringsAPicturesTextAndTakesItAway) {
    open_welcome();
    for (const Picture& picture : pictures) {
        hover(picture.name);
        EXPECT_EQ(line(), picture.text);
        leave(picture.name);
        EXPECT_EQ(line(), "");
    }
}

TEST_F(Welcome, SoDoesTheKeyboard) {
    open_welcome();
    for (const char* keys : {"Right", "Down", "Left", "Up", "Up", "Left"}) press(keys);
    EXPECT_EQ(focused(), "lesson_new");
    EXPECT_EQ(line(), pictures[0].text);
    for (const Picture& picture : pictures) {
        EXPECT_EQ(focused(), picture.name);
        EXPECT_EQ(line(), picture.text);
        press("Tab");
    }
    EXPECT_EQ(focused(), "new_button");
    EXPECT_EQ(line(), "");
    for (const char* name : {"open_button", "hide_box", "cancel_button"}) {
        press("Tab");
        EXPECT_EQ(focused(), name);
    }
    in_welcome("lesson_reports").setFocus();
    for (const char* keys : {"Right", "Down"}) press(keys);
    EXPECT_EQ(focused(), "lesson_reports");
    press("Up");
    EXPECT_EQ(focused(), "lesson_items");
}

TEST_F(Welcome, TellsOfTheFirstPictureFromTheStart) {
    open_welcome();
    EXPECT_EQ(focused(), "lesson_new");
    EXPECT_EQ(line(), pictures[0].text);
    EXPECT_TRUE(welcome()->testAttribute(Qt::WA_KeyboardFocusChange));  // its frame is seen
}

TEST_F(Welcome, WhoListensHearsNamesAndTexts) {
    open_welcome();
    for (const Picture& picture : pictures) {
        QAccessibleInterface* told =
            QAccessible::queryAccessibleInterface(&in_welcome(picture.name));
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty());
        EXPECT_EQ(told->text(QAccessible::Description).toStdString(), picture.text);
        EXPECT_EQ(told->role(), QAccessible::Button);
        EXPECT_FALSE(in_welcome<QToolButton>(picture.name).icon().isNull()) << picture.name;
    }
}

TEST_F(Welcome, TheDialogKeepsItsSizeWithTheLine) {
    open_welcome();
    const QSize before = welcome()->size();
    for (const Picture& picture : pictures) hover(picture.name);
    settle();
    EXPECT_EQ(welcome()->size(), before);
}

TEST_F(Welcome, EachPictureShowsItsLesson) {
    for (const Picture& picture : pictures) {
        SCOPED_TRACE(picture.name);
        project_modified = i16_false;
        action("mnuFile_Close").trigger();
        begin_lesson(picture.name);
        EXPECT_EQ(project_open, picture.takes_sample ? i16_true : i16_false);
        if (picture.takes_sample) {
            EXPECT_EQ(project_name, "Sample17.tvk");
        }
        if (picture.screen != nullptr) {
            EXPECT_TRUE(is_in_front(picture.screen));
        }
        if (picture.section == 0) {
            EXPECT_EQ(reader(), nullptr);
        } else {
            ASSERT_NE(reader(), nullptr);
            EXPECT_EQ(tut_section, picture.section);
            EXPECT_EQ(tut_page, 1);
            EXPECT_EQ(page_shown(), lesson_page(1));
        }
        if (reader() != nullptr) click_in_reader("close_button");
    }
}

TEST_F(Welcome, EnterPressesThePictureAndEveryButton) {
    open_welcome();
    press("Return");
    settle();
    EXPECT_EQ(welcome(), nullptr);
    EXPECT_EQ(tut_section, 100);
    open_welcome();
    in_welcome("cancel_button").setFocus();
    press("Return");
    EXPECT_EQ(welcome(), nullptr);
    open_welcome();
    press("Escape");
    EXPECT_EQ(welcome(), nullptr);
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(Welcome, WithAProjectOpenTheLessonRunsOnThat) {
    project_on_disk("home.tvk");
    open_by_keys(platform.path("home.tvk"));
    begin_lesson("lesson_items");
    EXPECT_EQ(project_name, "home.tvk");
    EXPECT_TRUE(is_in_front("FoodInventory"));
    EXPECT_EQ(tut_section, 300);
    EXPECT_EQ(project_tag, 0);
}

TEST_F(Welcome, WithAProjectOpenTheSampleStaysWhereItIsAndThatIsTold) {
    project_on_disk("home.tvk");
    open_by_keys(platform.path("home.tvk"));
    begin_lesson("lesson_sample");
    EXPECT_EQ(project_name, "home.tvk");
    EXPECT_EQ(panel(1), "The project that is open stays; close it to see the sample.");
}

TEST_F(Welcome, ReportsThatComeWithTheSampleAreUpToDate) {
    begin_lesson("lesson_reports");
    on("Reports");
    EXPECT_EQ(part<QLabel>("count_label").text(), "134");
}

TEST_F(Welcome, ASampleThatCannotBeOpenedLeavesTheDialogAndShowsNothing) {
    write_whole_file(in_program("sample17.tvk"), std::string(400, '\0'));
    open_welcome();
    for (const char* name : {"lesson_sample", "lesson_items", "lesson_setup"}) {
        platform.boxes.expect_message(
            "FileManagement.Project_Open - File Load Error.  Bad Record Number");
        choose_picture(name);
        EXPECT_NE(welcome(), nullptr);
        EXPECT_EQ(project_open, i16_false);
        EXPECT_EQ(reader(), nullptr);
        EXPECT_EQ(tut_section, 0);
        for (const char* one : {"FoodInventory", "ProjectSetup"}) EXPECT_FALSE(is_open(one));
    }
}

TEST_F(Welcome, TheCheckIsStoredAtOnce) {
    open_welcome();
    EXPECT_FALSE(in_welcome<QCheckBox>("hide_box").isChecked());
    in_welcome("hide_box").setFocus();
    press("Space");
    EXPECT_EQ(hide_welcome_dialog, i16_true);
    EXPECT_EQ(read_settings_file().hide_welcome_dialog, i16_true);
    press("Escape");
    open_welcome();
    EXPECT_TRUE(in_welcome<QCheckBox>("hide_box").isChecked());
    in_welcome("hide_box").setFocus();
    press("Space");
    EXPECT_EQ(read_settings_file().hide_welcome_dialog, i16_false);
}

TEST_F(Welcome, AProjectThatItStartsOrOpensBearsItsTag) {
    open_welcome();
    platform.dialogs.expect_save("New Project", cancelled);
    click_button("new_button");
    EXPECT_NE(welcome(), nullptr);
    EXPECT_EQ(project_tag, 0);

    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    click_button("new_button");
    EXPECT_EQ(welcome(), nullptr);
    EXPECT_EQ(project_name, "home.tvk");
    EXPECT_EQ(project_tag, 10);
    EXPECT_EQ(project_modified, i16_false);

    bring_in_front(window);
    const std::string other = [&] {
        platform.dialogs.expect_save("New Project", platform.path("other.tvk"));
        project_tag = 0;
        press("Ctrl+N");
        return platform.path("other.tvk");
    }();
    EXPECT_EQ(project_tag, 0);
    open_welcome();
    platform.dialogs.expect_open("Open Project", cancelled);
    click_button("open_button");
    EXPECT_NE(welcome(), nullptr);
    EXPECT_EQ(project_tag, 0);
    platform.dialogs.expect_open("Open Project", platform.path("home.tvk"));
    click_button("open_button");
    EXPECT_EQ(welcome(), nullptr);
    EXPECT_EQ(project_name, "home.tvk");
    EXPECT_EQ(project_tag, 10);

    bring_in_front(window);
    press("Ctrl+S");
    open_by_keys(other);
    EXPECT_EQ(project_tag, 0);
    open_by_keys(platform.path("home.tvk"));
    EXPECT_EQ(project_tag, 10);
}

TEST_F(Welcome, AProjectThatCannotBeOpenedLeavesTheDialog) {
    write_whole_file(platform.path("bad.tvk"), std::string(400, '\0'));
    open_welcome();
    platform.dialogs.expect_open("Open Project", platform.path("bad.tvk"));
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    click_button("open_button");
    EXPECT_NE(welcome(), nullptr);
    EXPECT_EQ(project_open, i16_false);
    EXPECT_NE(project_tag, 10);
}

TEST_F(Welcome, StaysOutOfTheWayUntilTheProgramStarts) {
    EXPECT_EQ(welcome(), nullptr);
}

class WelcomeAtTheStart : public TutorialTest {
  protected:
    void SetUp() override {
        register_screens(window);
        window.resize(1280, 900);
    }
    Splash splash;
};

TEST_F(WelcomeAtTheStart, ComesOverTheWindowAndTheStartPage) {
    start_program(window, splash, "");
    ASSERT_NE(welcome(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.findChild<QWidget*>("StartPage")->isVisible());
    bring_in_front(*welcome());
    press("Escape");
    EXPECT_EQ(welcome(), nullptr);
    EXPECT_EQ(hide_welcome_dialog, i16_false);
}

TEST_F(WelcomeAtTheStart, NotWhenTheUserDoesNotWantIt) {
    SettingsRecord record;
    record.hide_welcome_dialog = i16_true;
    write_whole_file(platform.system.settings + "/TVK.dat", encode_settings(record, {}));
    start_program(window, splash, "");
    EXPECT_EQ(welcome(), nullptr);
}

TEST_F(WelcomeAtTheStart, NotWithAProjectOnTheCommandLine) {
    start_program(window, splash, platform.path("none.tvk"));
    EXPECT_EQ(welcome(), nullptr);
}

}  // namespace
}  // namespace tavernook
