// The lesson reader, and the project's settings as a lesson shows them.
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QToolBar>
#include <filesystem>

#include "core/project_settings.h"
#include "screens/aids/tutorial_fixture.h"
#include "screens/frame/ProjectSetup.h"

namespace tavernook {
namespace {

class Reader : public TutorialTest {
  protected:
    void SetUp() override {
        TutorialTest::SetUp();
        write_whole_file(in_program("tut100.dat"), "First steps/b/One/b/Two/b/Three/b/");
    }
};

TEST_F(Reader, BearsItsTexts) {
    begin_lesson("lesson_new");
    EXPECT_EQ(reader()->windowTitle(), "Tavernook Tutorial");
    EXPECT_EQ(window.findChild<QDockWidget*>()->windowTitle(), "Tavernook Tutorial");
    EXPECT_EQ(in_reader<QLabel>("title_label").text(), "TAVERNOOK Tutorial\nFirst steps");
    EXPECT_EQ(in_reader<QPushButton>("next_button").text(), "Next >>");
    EXPECT_EQ(in_reader<QPushButton>("prev_button").text(), "<< Prev");
    EXPECT_EQ(in_reader<QPushButton>("menu_button").text(), "Menu");
    EXPECT_EQ(in_reader<QPushButton>("close_button").text(), "Close");
    EXPECT_EQ(place_shown(), "Page 1 of 3");
    EXPECT_EQ(page_shown(), "One");
}

TEST_F(Reader, GoesToTheLastPageAndBackToTheFirst) {
    begin_lesson("lesson_new");
    click_in_reader("prev_button");
    EXPECT_EQ(page_shown(), "One");
    EXPECT_EQ(panel(1), "This is the first page of the lesson.");
    click_in_reader("next_button");
    EXPECT_EQ(page_shown(), "Two");
    EXPECT_EQ(place_shown(), "Page 2 of 3");
    EXPECT_EQ(panel(1), "");
    for (int times = 0; times < 3; ++times) click_in_reader("next_button");
    EXPECT_EQ(page_shown(), "Three");
    EXPECT_EQ(panel(1), "This is the last page of the lesson.");
    click_in_reader("prev_button");
    EXPECT_EQ(page_shown(), "Two");
}

TEST_F(Reader, TheKeyboardTurnsThePagesFromTheReaderAndFromTheScreen) {
    begin_lesson("lesson_new");
    EXPECT_EQ(focused(), "next_button");
    press("Return");
    EXPECT_EQ(page_shown(), "Two");
    press("Space");
    EXPECT_EQ(page_shown(), "Three");
    press("Alt+Left");
    EXPECT_EQ(page_shown(), "Two");
    SeedProject();
    open("FoodInventory");
    part<QLineEdit>("filter").setFocus();
    press("Alt+Right");
    EXPECT_EQ(page_shown(), "Three");
    press("Alt+Left");
    EXPECT_EQ(page_shown(), "Two");
    EXPECT_EQ(focused(), "filter");
}

TEST_F(Reader, TabGoesThroughItsParts) {
    begin_lesson("lesson_new");
    for (const char* name : {"prev_button", "menu_button", "close_button", "text_box"}) {
        press("Tab");
        EXPECT_EQ(focused(), name);
    }
    screen = reader();
    expect_accessible_names();
}

TEST_F(Reader, WhoListensHearsThePageThatComes) {
    begin_lesson("lesson_new");
    click_in_reader("next_button");
    QAccessibleInterface* told =
        QAccessible::queryAccessibleInterface(&in_reader<QLabel>("page_label"));
    EXPECT_EQ(told->text(QAccessible::Name), "Page 2 of 3");
    EXPECT_EQ(told->text(QAccessible::Description), "Two");
}

TEST_F(Reader, EscapeClosesItAndTheScreenHasTheKeyboard) {
    SeedProject();
    begin_lesson("lesson_items");
    EXPECT_EQ(focused(), "next_button");
    press("Escape");
    EXPECT_EQ(reader(), nullptr);
    on("FoodInventory");
    EXPECT_TRUE(screen->isAncestorOf(QApplication::focusWidget()));
}

// However the screen of the lesson came up: with the sample, which was not open yet, too.
TEST_F(Reader, ItHasTheKeyboardWhenALessonBegins) {
    const std::pair<const char*, const char*> lessons[] = {{"lesson_items", "FoodInventory"},
                                                           {"lesson_planner", "MealPlan"},
                                                           {"lesson_recipes", "Mealbuilder"},
                                                           {"lesson_setup", "ProjectSetup"},
                                                           {"lesson_reports", "Reports"}};
    for (const auto& [picture, name] : lessons) {
        begin_lesson(picture);
        EXPECT_EQ(focused(), "next_button") << name;
        EXPECT_TRUE(is_in_front(name)) << name;
        press("Return");
        EXPECT_EQ(place_shown().substr(0, 6), "Page 2") << name;
        press("F6");
        EXPECT_TRUE(on(name).isAncestorOf(QApplication::focusWidget())) << name << focused();
        press("Alt+Right");
        EXPECT_EQ(place_shown().substr(0, 6), "Page 3") << name;
        action("mnuFile_Close").trigger();
        settle();
    }
}

TEST_F(Reader, ClosingItLeavesTheScreenInFrontThere) {
    SeedProject();
    for (const char* name : {"MealPlan", "FoodInventory", "Reports", "wam"}) open(name);
    begin_lesson("lesson_items");
    for (const char* name : {"wam", "MealPlan", "Reports", "FoodInventory"}) {
        SCOPED_TRACE(name);
        open(name);
        in_reader<QPushButton>("next_button").setFocus();
        click_in_reader("close_button");
        EXPECT_TRUE(is_in_front(name));
        on(name);
        EXPECT_TRUE(screen->isAncestorOf(QApplication::focusWidget()));
        begin_lesson("lesson_new");
        EXPECT_TRUE(is_in_front(name));
        window.findChild<QDockWidget*>()->close();
        EXPECT_TRUE(is_in_front(name));
        begin_lesson("lesson_new");
    }
}

TEST_F(Reader, F6LeadsFromTheToolbarsToItAndOnToTheScreen) {
    SeedProject();
    begin_lesson("lesson_items");
    on("FoodInventory");
    bool was_in_toolbars = false;
    press("F6");
    EXPECT_TRUE(screen->isAncestorOf(QApplication::focusWidget()));
    for (int step = 0; step < 4 && !reader()->isAncestorOf(QApplication::focusWidget()); ++step) {
        press("F6");
        was_in_toolbars |=
            qobject_cast<QToolBar*>(QApplication::focusWidget()->parent()) != nullptr;
    }
    EXPECT_TRUE(was_in_toolbars);
    EXPECT_EQ(focused(), "next_button");
}

TEST_F(Reader, LiesUnderTheToolbarsAcrossTheWindowAndCoversNoScreen) {
    SeedProject();
    open("MealPlan");
    begin_lesson("lesson_items");
    const auto rect = [&](QWidget& part) {
        return QRect(part.mapTo(&window, QPoint()), part.size());
    };
    const QRect dock = rect(*window.findChild<QDockWidget*>());
    for (QToolBar* bar : window.findChildren<QToolBar*>(Qt::FindDirectChildrenOnly)) {
        EXPECT_GT(dock.top(), rect(*bar).bottom() - 2) << bar->objectName().toStdString();
    }
    EXPECT_GE(dock.width(), window.width() - 4);
    EXPECT_LE(dock.height(), window.height() / 4);
    EXPECT_GT(rect(on("FoodInventory")).top(), dock.bottom());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Reader, ComesBackUnderTheToolbarsWhereverItWasClosed) {
    begin_lesson("lesson_new");
    auto* dock = window.findChild<QDockWidget*>();
    window.addDockWidget(Qt::BottomDockWidgetArea, dock);
    begin_lesson("lesson_open");
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::BottomDockWidgetArea);
    click_in_reader("close_button");
    begin_lesson("lesson_new");
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::TopDockWidgetArea);
}

TEST_F(Reader, MenuShowsTheLessonsAgain) {
    begin_lesson("lesson_new");
    click_in_reader("menu_button");
    ASSERT_NE(welcome(), nullptr);
    choose_picture("lesson_open");
    EXPECT_EQ(welcome(), nullptr);
    EXPECT_EQ(tut_section, 200);
    EXPECT_EQ(page_shown(), lesson_page(1));
    EXPECT_EQ(tut_page, 1);
}

TEST_F(Reader, StaysWhenAProjectComesAndGoes) {
    begin_lesson("lesson_new");
    click_in_reader("next_button");
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    press("Ctrl+N");
    ASSERT_NE(reader(), nullptr);
    EXPECT_EQ(page_shown(), "Two");
    action("mnuFile_Close").trigger();
    settle();
    ASSERT_NE(reader(), nullptr);
    EXPECT_EQ(page_shown(), "Two");
}

TEST_F(Reader, ItsTextHasTheSizeOfTheSettings) {
    SeedProject();
    begin_lesson("lesson_new");
    const auto points = [&] { return in_reader<QPlainTextEdit>("text_box").font().pointSize(); };
    const int height = reader()->height();
    font_size = 22;
    end_of_step();
    EXPECT_EQ(points(), 22);
    EXPECT_EQ(page_shown(), "One");
    for (const i16 odd : {-5, 32767}) {
        font_size = odd;
        end_of_step();
        EXPECT_GT(points(), 0);
        EXPECT_LE(points(), 72);
    }
    settle();
    EXPECT_LT(reader()->height(), std::max(height * 3, window.height() / 2));
}

TEST_F(Reader, ALessonThatCannotBeReadSaysSo) {
    std::filesystem::remove(in_program("tut100.dat"));
    std::filesystem::create_directory(in_program("tut100.dat"));
    begin_lesson("lesson_new");
    EXPECT_EQ(page_shown(),
              "This lesson has no pages: its file \"tut100.dat\" is missing or damaged.");
    EXPECT_FALSE(in_reader<QLabel>("page_label").isVisible());
    EXPECT_EQ(panel(1), "The lesson could not be read from the file \"tut100.dat\".");
    click_in_reader("next_button");
    EXPECT_EQ(panel(1), "");
    click_in_reader("prev_button");
    EXPECT_EQ(panel(1), "");
    EXPECT_EQ(tut_page, 1);
}

TEST_F(Reader, OneThatCannotBeReadBehindAnotherIsNamed) {
    for (const char* name : {"tut100.dat", "tut200.dat"}) {
        std::filesystem::remove(in_program(name));
        std::filesystem::create_directory(in_program(name));
    }
    begin_lesson("lesson_new");
    begin_lesson("lesson_open");
    EXPECT_EQ(page_shown(),
              "This lesson has no pages: its file \"tut200.dat\" is missing or damaged.");
}

// --- the settings beside a lesson ---------------------------------------------------------------

class SetupLesson : public TutorialTest {
  protected:
    void begin() {
        begin_lesson("lesson_setup");
        on("ProjectSetup");
        project_modified = i16_false;
    }
    void type_warning(const char* days) {
        auto& box = part<QLineEdit>("expiration_warning");
        box.setFocus();
        box.selectAll();
        type(days);
    }
};

TEST_F(SetupLesson, StandsBesideTheReaderAndBothCanBeUsed) {
    begin();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(is_in_front("ProjectSetup"));
    click_in_reader("next_button");
    EXPECT_EQ(tut_page, 2);
    type_warning("9");
    press("Alt+Right");
    EXPECT_EQ(tut_page, 3);
    EXPECT_EQ(focused(), "expiration_warning");
    press("Return");
    settle();
    EXPECT_FALSE(is_open("ProjectSetup"));
    EXPECT_EQ(expiration_warning_days, 9);
    EXPECT_NE(reader(), nullptr);
}

// Beside the lesson it stands in the main window, whose menus have letters, too.
TEST_F(SetupLesson, ItsLettersAreNoMenus) {
    begin();
    expect_unique_mnemonics();
    press("F6");
    press("Alt+B");
    EXPECT_EQ(focused(), "show_toolbar_text");
    press("Alt+W");
    EXPECT_EQ(QApplication::activePopupWidget(), window.findChild<QMenu*>("mnuWindow"));
    press("Escape");
    press("Escape");
}

TEST_F(SetupLesson, TheMenuBringsTheSameOneInFront) {
    begin();
    type_warning("9");
    open("FoodInventory");
    action("Project_Setup").trigger();
    EXPECT_TRUE(is_in_front("ProjectSetup"));
    EXPECT_EQ(window.findChildren<ProjectSetup*>().size(), 1);
    on("ProjectSetup");
    EXPECT_EQ(part<QLineEdit>("expiration_warning").text(), "9");
}

TEST_F(SetupLesson, CancelEscapeAndItsCrossDropWhatWasEntered) {
    const auto leave = {std::function<void()>([&] { click("cancel_button"); }),
                        std::function<void()>([&] { press("Escape"); }),
                        std::function<void()>([&] { screen->parentWidget()->close(); })};
    for (const auto& one : leave) {
        begin();
        const i16 before = expiration_warning_days;
        type_warning("27");
        one();
        settle();
        EXPECT_FALSE(is_open("ProjectSetup"));
        EXPECT_EQ(expiration_warning_days, before);
        EXPECT_EQ(project_modified, i16_false);
    }
}

TEST_F(SetupLesson, ANumberThatNoSettingHoldsKeepsItOpen) {
    begin();
    const i16 before = expiration_warning_days;
    type_warning("99999");
    platform.boxes.expect_message("there has been an error");
    click("ok_button");
    settle();
    EXPECT_TRUE(is_open("ProjectSetup"));
    EXPECT_EQ(expiration_warning_days, before);
}

TEST_F(SetupLesson, GoesWithItsProjectAndReachesNoOther) {
    begin();
    const QPointer<QWidget> setup = screen;
    type_warning("27");
    part<QComboBox>("font_list").setCurrentIndex(12);
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    window.setFocus();
    press("Ctrl+N");
    settle();
    EXPECT_FALSE(is_open("ProjectSetup"));
    EXPECT_EQ(project_name, "home.tvk");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(setup.isNull());
    EXPECT_NE(expiration_warning_days, 27);
    EXPECT_EQ(project_modified, i16_false);
    begin();
    action("mnuFile_Close").trigger();
    settle();
    EXPECT_FALSE(is_open("ProjectSetup"));
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(SetupLesson, AllOfItIsInSightOrCanBeScrolledTo) {
    begin();
    const QWidget& child = *screen->parentWidget();
    EXPECT_LE(child.height(), child.parentWidget()->height());
    EXPECT_TRUE(part<QPushButton>("ok_button").isVisible());
    EXPECT_LE(part<QPushButton>("ok_button")
                  .mapTo(&child, part<QPushButton>("ok_button").rect().bottomLeft())
                  .y(),
              child.height());
}

}  // namespace
}  // namespace tavernook
