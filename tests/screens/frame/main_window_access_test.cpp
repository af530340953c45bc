// What assistive technology hears of the main window: the texts of the status bar as they come, and
// the start page. What the panels show when no project is open.
#include <QAccessible>
#include <QToolButton>
#include <optional>
#include <vector>

#include "screens/heard.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class MainWindowAccess : public MainWindowTest {
  protected:
    void SetUp() override {
        start();
        hearing.emplace();
    }

    QWidget* part(const char* name) { return window.findChild<QWidget*>(QLatin1String(name)); }
    std::string spoken(const char* name) {
        return QAccessible::queryAccessibleInterface(part(name))
            ->text(QAccessible::Name)
            .toStdString();
    }
    static int times(const char* object, QAccessible::Event event, const QString& name) {
        int count = 0;
        for (const Heard& one : heard()) {
            count += one.object == QLatin1String(object) && one.event == event && one.name == name;
        }
        return count;
    }

    std::optional<Hearing> hearing;

    static bool reaches(QAccessibleInterface* from, const QObject* wanted) {
        if (from == nullptr) return false;
        if (from->object() == wanted) return true;
        for (int i = 0; i < from->childCount(); ++i) {
            if (reaches(from->child(i), wanted)) return true;
        }
        return false;
    }
};

TEST_F(MainWindowAccess, ThePanelsAreHeardWithTheirTexts) {
    window.set_status(message_panel, "Caf\xe9 opened.");
    window.set_status(audit_time_panel, "Audit Time: 9:05 PM");
    window.set_status(activity_panel, "Auditing...");
    EXPECT_EQ(spoken("status_panel_1"), "Messages: Café opened.");
    EXPECT_EQ(spoken("status_panel_2"), "Daily audit: Audit Time: 9:05 PM");
    EXPECT_EQ(spoken("status_panel_3"), "Present activity: Auditing...");
    EXPECT_EQ(times("status_panel_3", QAccessible::NameChanged, "Present activity: Auditing..."),
              1);
    window.set_status(message_panel, "");
    EXPECT_EQ(spoken("status_panel_1"), "Messages");
}

TEST_F(MainWindowAccess, AMessageIsAnAlertEachTime) {
    window.set_status(message_panel, "Copied.");
    window.set_status(message_panel, "");
    window.set_status(message_panel, "Copied.");
    EXPECT_EQ(times("status_panel_1", QAccessible::Alert, "Messages: Copied."), 2);
    EXPECT_EQ(times("status_panel_1", QAccessible::Alert, "Messages"), 0);
    window.set_status(activity_panel, "Ready");
    EXPECT_EQ(times("status_panel_3", QAccessible::Alert, "Present activity: Ready"), 0);
}

TEST_F(MainWindowAccess, TheStartPageIsInTheTreeOfTheWindow) {
    const std::string path = project_on_disk("home.tvk");
    window.set_recent_files({path});
    settle();
    QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&window);
    for (const char* name : {"StartPage", "start_heading", "start_line", "start_continue",
                             "start_new", "start_open", "start_sample", "recent_link_1"}) {
        ASSERT_NE(part(name), nullptr) << name;
        EXPECT_TRUE(reaches(root, part(name))) << name;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(part(name));
        EXPECT_FALSE(told->state().invisible) << name;
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << name;
    }
}

TEST_F(MainWindowAccess, TheStartPageStaysOverTheAreaAsItMoves) {
    auto* page = part("StartPage");
    auto* area = part("mdi_area");
    for (const bool captions : {false, true, false}) {
        window.set_toolbar_captions(captions);
        settle();
        EXPECT_EQ(page->mapToGlobal(QPoint()), area->mapToGlobal(QPoint()));
        EXPECT_EQ(page->size(), area->size());
    }
}

using Texts = std::vector<std::string>;

TEST_F(MainWindowAccess, WithoutAProjectThePanelsAreEmpty) {
    EXPECT_EQ((Texts{panel(1), panel(2), panel(3)}), (Texts{"", "", "Start-up"}));
    const std::string path = project_on_disk("home.tvk");
    open_by_keys(path);
    ASSERT_EQ(project_open, i16_true);
    EXPECT_EQ(panel(2).substr(0, 11), "Audit Time:");
    window.set_status(message_panel, "Of that project.");
    press("Ctrl+W");
    ASSERT_EQ(project_open, i16_false);
    EXPECT_EQ((Texts{panel(1), panel(2)}), (Texts{"", ""}));
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ((Texts{panel(1), panel(2), panel(3)}), (Texts{"", "", "Ready"}));
}

TEST_F(MainWindowAccess, ClosingByTheMenuOfAnotherRoomEmptiesThem) {
    const std::string path = project_on_disk("home.tvk");
    open_by_keys(path);
    window.set_status(message_panel, "Of that project.");
    window.set_toolbar_state(1);  // as the logic says when a project has gone
    EXPECT_EQ((Texts{panel(1), panel(2)}), (Texts{"", ""}));
}

TEST_F(MainWindowAccess, AFailedOpeningLeavesOnlyItsOwnLine) {
    const std::string good = project_on_disk("home.tvk");
    const std::string bad = platform.path("bad.tvk");
    write_whole_file(bad, "no project");
    open_by_keys(good);
    EXPECT_NE(panel(2), "");
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    window.set_recent_files({bad});
    action("mnuRecentFile_1").trigger();
    EXPECT_EQ(project_open, i16_false);
    EXPECT_EQ(panel(1), "bad.tvk could not be opened.");
    EXPECT_EQ(panel(2), "");
}

}  // namespace
}  // namespace tavernook
