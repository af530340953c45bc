// Going on with the newest project, and how the recent ones are shown.
#include <QPushButton>
#include <QToolButton>

#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class StartPageContinue : public MainWindowTest {
  protected:
    void SetUp() override { start(); }

    QToolButton& button() { return *window.findChild<QToolButton*>("start_continue"); }
    QPushButton& link(int number) {
        return *window.findChild<QPushButton*>(QStringLiteral("recent_link_%1").arg(number));
    }
    static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }

    static int area_of(const QWidget& widget) { return widget.width() * widget.height(); }

    // On the disk, opened once and closed again.
    std::string recent_project(const std::string& name) {
        const std::string path = project_on_disk(name);
        open_by_keys(path);
        press("Ctrl+W");
        return path;
    }

    // As after a restart of the program.
    void restart() { window.load(""); }
};

TEST_F(StartPageContinue, WithoutARecentProjectThereIsNone) {
    EXPECT_FALSE(button().isVisible());
    EXPECT_EQ(focused(), "start_new");
}

TEST_F(StartPageContinue, AfterARestartItIsTheBiggestTheFirstAndFocused) {
    const std::string path = recent_project("home.tvk");
    restart();
    settle();
    ASSERT_TRUE(button().isVisible());
    EXPECT_EQ(button().text(), "Continue with home.tvk");
    EXPECT_EQ(button().toolTip().toStdString(), path);
    EXPECT_EQ(button().accessibleName(), "Continue with home.tvk");
    EXPECT_EQ(button().accessibleDescription().toStdString(), path);
    for (const char* other : {"start_new", "start_open"}) {
        EXPECT_GT(area_of(button()), 2 * area_of(*window.findChild<QToolButton*>(other)));
    }
    EXPECT_EQ(focused(), "start_continue");
    press("Tab");
    EXPECT_EQ(focused(), "start_new");
}

TEST_F(StartPageContinue, AClickAndSpaceOpenTheProject) {
    const std::string path = recent_project("home.tvk");
    restart();
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
    press("Ctrl+W");
    settle();
    EXPECT_EQ(focused(), "start_continue");
    press("Space");
    settle();
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
}

TEST_F(StartPageContinue, EnterOpensItToo) {
    recent_project("home.tvk");
    restart();
    ASSERT_EQ(focused(), "start_continue");
    press("Return");
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
}

// A flat button looks the same with the focus.
TEST_F(StartPageContinue, TheLinkWithTheFocusIsSeen) {
    recent_project("home.tvk");
    restart();
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the links before
    auto& sample = *window.findChild<QPushButton*>("start_sample");
    for (QPushButton* flat : {&sample, &link(1)}) {
        flat->setFocus(Qt::TabFocusReason);
        EXPECT_FALSE(flat->isFlat()) << flat->objectName().toStdString();
        button().setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(flat->isFlat());
    }
}

TEST_F(StartPageContinue, ANameMayHoldAnAmpersand) {
    recent_project("salt & pepper.tvk");
    restart();
    EXPECT_EQ(button().text(), "Continue with salt && pepper.tvk");
    EXPECT_EQ(button().accessibleName(), "Continue with salt & pepper.tvk");
}

TEST_F(StartPageContinue, ProjectsThatAreGoneArePassedOver) {
    const std::string path = project_on_disk("home.tvk");
    window.set_recent_files({platform.path("gone.tvk"), path});
    EXPECT_EQ(button().text(), "Continue with home.tvk");
    button().click();
    EXPECT_EQ(shown_title(), "Tavernook - home.tvk");
}

TEST_F(StartPageContinue, AProjectThatHasGoneMeanwhileIsToldInALine) {
    const std::string older = project_on_disk("older.tvk");
    const std::string newer = project_on_disk("newer.tvk");
    window.set_recent_files({newer, older});
    ASSERT_EQ(button().text(), "Continue with newer.tvk");
    platform.disk.remove(newer);
    button().click();
    EXPECT_EQ(panel(1), "newer.tvk could not be opened.");
    EXPECT_EQ(project_open, i16_false);
    EXPECT_EQ(shown_title(), "Tavernook");
    EXPECT_EQ(button().text(), "Continue with older.tvk");
    platform.disk.remove(older);
    button().click();
    EXPECT_EQ(panel(1), "older.tvk could not be opened.");
    EXPECT_FALSE(button().isVisible());
}

TEST_F(StartPageContinue, AnUnfinishedSaveStillCounts) {
    const std::string path = project_on_disk("home.tvk");
    platform.disk.rename(path, platform.path("home.previous.tvk"));
    window.set_recent_files({path});
    EXPECT_TRUE(button().isVisible());
}

TEST_F(StartPageContinue, TheMenuHasSixPlacesAndTellsTheSameNameApart) {
    const std::string long_name = "/a/" + std::string(150, 'w') + ".tvk";
    window.set_recent_files({"/a/home.tvk", "/b/home.tvk", long_name, "/a/salt & pepper.tvk",
                             "/a/5.tvk", "/a/6.tvk", "/a/7.tvk"});
    EXPECT_EQ(action("mnuRecentFile_1").text(), "&1 home.tvk   in /a");
    EXPECT_EQ(action("mnuRecentFile_2").text(), "&2 home.tvk   in /b");
    EXPECT_LT(action("mnuRecentFile_3").text().size(), 60);
    EXPECT_EQ(action("mnuRecentFile_3").toolTip().toStdString(), long_name);
    EXPECT_EQ(action("mnuRecentFile_4").text(), "&4 salt && pepper.tvk");
    EXPECT_TRUE(action("mnuRecentFile_6").isVisible());
    EXPECT_EQ(window.findChild<QAction*>("mnuRecentFile_7"), nullptr);
}

TEST_F(StartPageContinue, ThePageKeepsItsSizeWithLongNamesAndTellsTheSameNameApart) {
    const QSize before = window.minimumSizeHint();
    const std::string deep(200, 'w');
    const std::string first = "/" + deep + "/a/" + deep + "/home.tvk";
    const std::string second = "/" + deep + "/b/" + deep + "/home.tvk";
    window.set_recent_files({first, second, "/a/" + deep + ".tvk"});
    settle();
    EXPECT_NE(link(1).text(), link(2).text());
    EXPECT_EQ(link(1).toolTip().toStdString(), first);
    EXPECT_EQ(link(2).accessibleDescription().toStdString(), second);
    EXPECT_EQ(link(3).accessibleName().toStdString(), "Open " + deep + ".tvk");
    EXPECT_LT(link(3).text().size(), 120);
    EXPECT_LT(window.minimumSizeHint().width(), before.width() + 400);
}

TEST_F(StartPageContinue, AtTwiceTheTextSizeItScrollsInsteadOfOverlapping) {
    recent_project("home.tvk");
    const QFont before = QApplication::font();
    QFont twice = before;
    twice.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(twice);
    window.showNormal();
    window.resize(700, 500);
    for (int round = 0; round < 3; ++round) settle();
    const std::vector<const char*> parts{"start_heading", "start_line",   "start_continue",
                                         "start_new",     "start_sample", "recent_link_1"};
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        auto* above = window.findChild<QWidget*>(parts[i]);
        auto* below = window.findChild<QWidget*>(parts[i + 1]);
        EXPECT_GE(below->mapTo(&window, QPoint()).y(),
                  above->mapTo(&window, QPoint(0, above->height())).y())
            << parts[i + 1];
    }
    link(1).setFocus(Qt::TabFocusReason);
    QApplication::setFont(before);
}

}  // namespace
}  // namespace tavernook
