// The commands of the File menu, each through the real window.
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "core/project/settings_file.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

constexpr const char* save_question =
    "Project has been modified.  Would you like to save before closing?";

class FileCommands : public MainWindowTest {
  protected:
    void SetUp() override { start(); }

    void expect_save_question(Answer answer) {
        platform.boxes.expect_message(save_question, answer)
            .title("Project Modified")
            .buttons(Buttons::yes_no_cancel);
    }

    void expect_idle() {
        EXPECT_EQ(project_open, i16_false);
        EXPECT_EQ(window.title(), "Tavernook");
        EXPECT_EQ(shown_title(), "Tavernook");
        EXPECT_FALSE(action("mnuFile_Save").isEnabled());
        EXPECT_FALSE(action("toolbar_1_3").isEnabled());
    }

    void expect_open(const std::string& name) {
        EXPECT_EQ(project_open, i16_true);
        EXPECT_EQ(project_name, name);
        EXPECT_EQ(shown_title(), "Tavernook - " + name);
        EXPECT_TRUE(action("mnuFile_Save").isEnabled());
        EXPECT_TRUE(action("mnuFile_SaveAs").isEnabled());
        EXPECT_TRUE(action("mnuFile_Close").isEnabled());
        EXPECT_TRUE(action("toolbar_1_3").isEnabled());
    }
};

TEST_F(FileCommands, NewByItsKeys) {
    const std::string path = platform.path("home.tvk");
    platform.dialogs.expect_save("New Project", path)
        .filter("Tavernook Files (*.tvk)|*.tvk")
        .initial_file(platform.path("program/*.tvk"));
    press("Ctrl+N");
    expect_open("home.tvk");
    EXPECT_TRUE(platform.disk.exists(path));
}

TEST_F(FileCommands, NewByTheMenu) {
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    choose("Alt+F", "mnuFile_NewProject");
    expect_open("home.tvk");
}

TEST_F(FileCommands, NewByTheLetterInTheMenu) {
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    press("Alt+F");
    press("N");
    expect_open("home.tvk");
}

TEST_F(FileCommands, NewByTheToolbar) {
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    press("F6");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "toolbar_1_1_button");
    press("Space");
    expect_open("home.tvk");
}

TEST_F(FileCommands, NewCancelledStaysIdle) {
    platform.dialogs.expect_save("New Project", cancelled);
    press("Ctrl+N");
    expect_idle();
}

TEST_F(FileCommands, OpenByItsKeysEntersTheRecentProjects) {
    const std::string path = project_on_disk("home.tvk");
    expect_idle();
    EXPECT_FALSE(action("mnuRecentFile_1").isVisible());
    open_by_keys(path);
    expect_open("home.tvk");
    EXPECT_EQ(panel(2), "Audit Time: 11:59 PM");
    EXPECT_TRUE(action("mnuRecentFile_1").isVisible());
    EXPECT_EQ(action("mnuRecentFile_1").text(), "&1 home.tvk");
    EXPECT_EQ(action("mnuRecentFile_1").toolTip().toStdString(), path);
    EXPECT_EQ(action("mnuRecentFile_1").statusTip().toStdString(), path);
    EXPECT_FALSE(action("mnuRecentFile_2").isVisible());
}

TEST_F(FileCommands, OpenByTheMenu) {
    const std::string path = project_on_disk("home.tvk");
    platform.dialogs.expect_open("Open Project", path);
    choose("Alt+F", "mnuFile_Open");
    expect_open("home.tvk");
}

TEST_F(FileCommands, SaveByItsKeysClearsTheMark) {
    open_by_keys(project_on_disk("home.tvk"));
    project_modified = i16_true;
    sales_tax = 7.5;
    window.set_title(window.title());
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk*");
    EXPECT_EQ(window.title(), "Tavernook - home.tvk");
    press("Ctrl+S");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
    sales_tax = 0;
    open_by_keys(project_path);
    EXPECT_EQ(sales_tax, 7.5);
}

TEST_F(FileCommands, SaveByTheMenuAndTheToolbar) {
    open_by_keys(project_on_disk("home.tvk"));
    project_modified = i16_true;
    choose("Alt+F", "mnuFile_Save");
    EXPECT_EQ(project_modified, i16_false);
    project_modified = i16_true;
    action("toolbar_1_3").trigger();
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(FileCommands, SaveAsGoesOnUnderTheNewName) {
    const std::string old_path = project_on_disk("home.tvk");
    open_by_keys(old_path);
    const std::string new_path = platform.path("cottage.tvk");
    platform.dialogs.expect_save("Save As", new_path);
    press("Ctrl+Shift+S");
    expect_open("cottage.tvk");
    EXPECT_EQ(project_path, new_path);
    EXPECT_TRUE(platform.disk.exists(old_path));
    EXPECT_TRUE(platform.disk.exists(new_path));
}

TEST_F(FileCommands, SaveAsCancelledByTheMenuKeepsTheName) {
    open_by_keys(project_on_disk("home.tvk"));
    platform.dialogs.expect_save("Save As", cancelled);
    choose("Alt+F", "mnuFile_SaveAs");
    expect_open("home.tvk");
}

TEST_F(FileCommands, CloseWithoutChangesAsksNothing) {
    open_by_keys(project_on_disk("home.tvk"));
    press("Ctrl+W");
    expect_idle();
}

TEST_F(FileCommands, CloseAndYesSaves) {
    const std::string path = project_on_disk("home.tvk");
    open_by_keys(path);
    project_modified = i16_true;
    sales_tax = 7.5;
    expect_save_question(Answer::yes);
    press("Ctrl+W");
    expect_idle();
    sales_tax = 0;
    open_by_keys(path);
    EXPECT_EQ(sales_tax, 7.5);
}

TEST_F(FileCommands, CloseAndNoDropsTheChanges) {
    const std::string path = project_on_disk("home.tvk");
    open_by_keys(path);
    project_modified = i16_true;
    sales_tax = 7.5;
    expect_save_question(Answer::no);
    choose("Alt+F", "mnuFile_Close");
    expect_idle();
    open_by_keys(path);
    EXPECT_EQ(sales_tax, 0);
}

TEST_F(FileCommands, CloseAndCancelStaysOpenAndMarked) {
    open_by_keys(project_on_disk("home.tvk"));
    project_modified = i16_true;
    expect_save_question(Answer::cancel);
    press("Ctrl+W");
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk*");
}

TEST_F(FileCommands, ExitWithoutChangesEndsAndRemembersTheWindow) {
    window.set_geometry({.height = 500, .width = 600, .left = 40, .top = 30});
    press("Ctrl+Q");
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(read_settings_file().geometry,
              (WindowGeometry{.height = 500, .width = 600, .left = 40, .top = 30}));
    EXPECT_EQ((platform.settings.get("Window", "Maximised")), "0");
    EXPECT_FALSE(platform.settings.get("Window", "Toolbars").empty());
}

TEST_F(FileCommands, ExitAndCancelKeepsRunning) {
    open_by_keys(project_on_disk("home.tvk"));
    project_modified = i16_true;
    expect_save_question(Answer::cancel);
    choose("Alt+F", "mnuFile_Exit");
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(FileCommands, TheWindowsCloseButtonAsksLikeExit) {
    open_by_keys(project_on_disk("home.tvk"));
    project_modified = i16_true;
    expect_save_question(Answer::cancel);
    EXPECT_FALSE(window.close());
    EXPECT_EQ(ends, 0);
    expect_save_question(Answer::no);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(ends, 1);
}

TEST_F(FileCommands, RecentEntriesOpenTheirProjects) {
    const std::string home = project_on_disk("home.tvk");
    const std::string cottage = project_on_disk("R&B cottage.tvk");
    open_by_keys(home);
    open_by_keys(cottage);
    EXPECT_EQ(action("mnuRecentFile_1").text(), "&1 R&&B cottage.tvk");
    EXPECT_EQ(action("mnuRecentFile_2").text(), "&2 home.tvk");
    choose("Alt+F", "mnuRecentFile_2");
    expect_open("home.tvk");
    press("Alt+F");
    press("1");
    expect_open("R&B cottage.tvk");
}

TEST_F(FileCommands, ARecentEntryWhoseFileIsGoneSaysSo) {
    const std::string path = project_on_disk("home.tvk");
    open_by_keys(path);
    press("Ctrl+W");
    platform.disk.remove(path);
    choose("Alt+F", "mnuRecentFile_1");
    expect_idle();
    EXPECT_EQ(panel(1), "home.tvk could not be opened.");
    platform.dialogs.expect_open("Open Project", cancelled);
    press("Ctrl+O");
    EXPECT_EQ(panel(1), "");
}

TEST_F(FileCommands, OnlyOneCommandRunsAtATime) {
    open_by_keys(project_on_disk("home.tvk"));
    project_modified = i16_true;
    platform.boxes.expect_message(save_question, Answer::cancel).during([this] {
        EXPECT_FALSE(window.close());
        action("mnuFile_SaveAs").trigger();
        action("toolbar_1_3").trigger();
    });
    press("Ctrl+W");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(ends, 0);
}

TEST_F(FileCommands, AProjectDroppedOnTheWindowOpens) {
    const std::string path = project_on_disk("home.tvk");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    settle();
    expect_open("home.tvk");
}

TEST_F(FileCommands, NothingElseCanBeDropped) {
    const QList<QList<QUrl>> refused = {
        {QUrl::fromLocalFile("/home/ann/notes.txt")},
        {QUrl("https://example.org/home.tvk")},
        {QUrl::fromLocalFile("/home/ann/a.tvk"), QUrl::fromLocalFile("/home/ann/b.tvk")},
        {}};
    for (const QList<QUrl>& urls : refused) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&window, &enter);
        EXPECT_FALSE(enter.isAccepted());
    }
}

TEST_F(FileCommands, HelpByItsKeyAndTheMenu) {
    press("F1");
    EXPECT_EQ(platform.help.contents_shown, 1);
    choose("Alt+H", "mnuhelp_search");
    EXPECT_EQ(platform.help.searches_shown, 1);
    action("toolbar_1_11").trigger();
    EXPECT_EQ(platform.help.contents_shown, 2);
    platform.help.available = false;
    platform.boxes.expect_message(
        "Unable to display Help Contents. There is no Help associated with this project.");
    choose("Alt+H", "mnu_tvkhelp");
}

}  // namespace
}  // namespace tavernook
