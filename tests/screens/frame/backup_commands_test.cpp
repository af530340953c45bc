// Back-up and restore by the menu of the real window.
#include "core/project/settings_file.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class BackupCommands : public MainWindowTest {
  protected:
    void SetUp() override { start(); }

    // In the submenu.
    void choose_transfer(const char* name) {
        ASSERT_TRUE(walk_to("Alt+F", *menu("mnuProjectTransfer").menuAction()));
        press("Right");
        auto* entries = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_EQ(entries, &menu("mnuProjectTransfer"));
        for (qsizetype step = 0; step < entries->actions().size(); ++step) {
            if (entries->activeAction() == &action(name)) break;
            QTest::keyClick(entries, Qt::Key_Down);
        }
        ASSERT_EQ(entries->activeAction(), &action(name));
        QTest::keyClick(entries, Qt::Key_Return);
        // As desktops do when the progress window has gone.
        window.activateWindow();
        settle();
    }
    QMenu& menu(const char* name) { return *window.findChild<QMenu*>(QLatin1String(name)); }

    void user_backs_up() {
        platform.dialogs.expect_save("Back-up Project", backup);
        choose_transfer("mnuFile_Backup");
    }
    void user_restores() {
        platform.dialogs.expect_open("Restore Project", backup);
        choose_transfer("mnuFile_Restore");
    }

    const std::string backup = platform.path("home.vzk");
    const std::string restored = platform.path("program/restored.tvk");
};

TEST_F(BackupCommands, BackingUpNeedsAProjectAndRestoringNone) {
    EXPECT_FALSE(action("mnuFile_Backup").isEnabled());
    EXPECT_TRUE(action("mnuFile_Restore").isEnabled());
    open_by_keys(project_on_disk("home.tvk"));
    EXPECT_TRUE(action("mnuFile_Backup").isEnabled());
    EXPECT_TRUE(action("mnuFile_Restore").isEnabled());
}

TEST_F(BackupCommands, ADamagedProjectComesBack) {
    const std::string home = project_on_disk("home.tvk");
    open_by_keys(home);
    sales_tax = 7.5;
    press("Ctrl+S");
    user_backs_up();
    EXPECT_EQ(panel(1), "Backed up as home.vzk, 1 KB of 1.7 MB.");
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
    press("Ctrl+W");
    write_whole_file(home, std::string(400, '\0'));
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    open_by_keys(home);
    EXPECT_EQ(project_open, i16_false);

    user_restores();
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(sales_tax, 7.5);
    EXPECT_EQ(project_path, restored);
    EXPECT_EQ(shown_title(), "Tavernook - Restored.gif");
    EXPECT_EQ(panel(1), "Restored from home.vzk.  Use Save Project As to give it a name.");
    EXPECT_TRUE(action("mnuFile_Save").isEnabled());

    platform.dialogs.expect_save("Save As", platform.path("home again.tvk"));
    press("Ctrl+Shift+S");
    EXPECT_EQ(shown_title(), "Tavernook - home again.tvk");
}

TEST_F(BackupCommands, RestoringAsksAboutUnsavedChanges) {
    open_by_keys(project_on_disk("home.tvk"));
    user_backs_up();
    project_modified = i16_true;
    sales_tax = 7.5;
    platform.boxes
        .expect_message("Project has been modified.  Would you like to save before closing?",
                        Answer::cancel)
        .title("Project Modified");
    user_restores();
    EXPECT_EQ(sales_tax, 7.5);
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk*");
    EXPECT_EQ(panel(1), "home.vzk was not restored.");
    EXPECT_FALSE(platform.disk.exists(restored));
}

TEST_F(BackupCommands, ARestoredProjectIsNotRememberedInTheSettingsFile) {
    const std::string home = project_on_disk("home.tvk");
    open_by_keys(home);
    user_backs_up();
    user_restores();
    press("Ctrl+Q");
    const SettingsRecord settings = read_settings_file();
    EXPECT_EQ(settings.recent_count, 1);
    EXPECT_EQ(settings.recent_projects[0].right_trimmed(), home);
}

TEST_F(BackupCommands, ADamagedBackupLeavesTheProjectOnShow) {
    open_by_keys(project_on_disk("home.tvk"));
    write_whole_file(backup, "no back-up");
    platform.boxes.expect_message(
        "Error in Module MAIN.mnuFile_Restore_Click.  Error Number 63 Err Description=Bad record "
        "number");
    user_restores();
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
    EXPECT_EQ(panel(1), "home.vzk could not be restored; nothing has changed.");
    EXPECT_FALSE(window.progress().isVisible());
    EXPECT_FALSE(window.progress().work_is_running());
}

}  // namespace
}  // namespace tavernook
