// The way to the sample household from the start page.
#include <QPushButton>

#include "aids/sample_project.h"
#include "platform_qt/shipped_sample.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class StartPageSample : public MainWindowTest {
  protected:
    StartPageSample() { set_shipped_sample(shipped_sample()); }
    ~StartPageSample() override { set_shipped_sample({}); }
    void SetUp() override { start(); }

    QPushButton& button() { return *window.findChild<QPushButton*>("start_sample"); }
    void walk_to_button() {
        for (int step = 0; step < 10 && QApplication::focusWidget() != &button(); ++step) {
            press("Tab");
        }
    }
};

TEST_F(StartPageSample, TheButtonTellsWhatItDoes) {
    EXPECT_TRUE(button().isVisible());
    EXPECT_EQ(button().text(), "Open the sample household");
    EXPECT_EQ(button().accessibleName(), "Open the sample household");
    EXPECT_FALSE(button().toolTip().isEmpty());
}

TEST_F(StartPageSample, TabAndReturnOpenIt) {
    walk_to_button();
    ASSERT_EQ(QApplication::focusWidget(), &button());
    press("Return");
    settle();
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(shown_title(), "Tavernook - Sample17.tvk");
    EXPECT_FALSE(button().isVisible());
    EXPECT_TRUE(platform.disk.exists(platform.system.program + "/recipes/sample17000028.rtf"));
    EXPECT_GT(items[1].quantity, 0);
}

TEST_F(StartPageSample, AClickOpensItAndClosingBringsTheButtonBack) {
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(project_open, i16_true);
    settle();
    press("Ctrl+W");
    settle();
    EXPECT_EQ(project_open, i16_false);
    EXPECT_TRUE(button().isVisible());
}

}  // namespace
}  // namespace tavernook
