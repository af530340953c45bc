// One row for both toolbars, or two.
#include <QToolBar>

#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class ToolbarRowsTest : public MainWindowTest {
  protected:
    void SetUp() override { start(); }

    QToolBar& bar(const char* name) { return *window.findChild<QToolBar*>(QLatin1String(name)); }
    int width_of_both() {
        return bar("toolbar_1").sizeHint().width() + bar("toolbar_2").sizeHint().width();
    }
    // A row changes behind a layout, which another one follows.
    bool is_one_row() {
        for (int turn = 0; turn < 3; ++turn) settle();
        return bar("toolbar_1").y() == bar("toolbar_2").y();
    }
    void resize(int width) {
        window.resize(width, 700);
        settle();
    }
};

TEST_F(ToolbarRowsTest, TheyShareARowWhereBothHaveRoom) {
    resize(width_of_both() + 10);
    EXPECT_TRUE(is_one_row());
    EXPECT_GE(bar("toolbar_2").width(), bar("toolbar_2").sizeHint().width());
    resize(width_of_both() - 10);
    EXPECT_FALSE(is_one_row());
    resize(width_of_both() + 10);
    EXPECT_TRUE(is_one_row());
}

TEST_F(ToolbarRowsTest, WithoutCaptionsTheyNeedLess) {
    resize(width_of_both() - 10);
    ASSERT_FALSE(is_one_row());
    window.set_toolbar_captions(false);
    settle();
    EXPECT_TRUE(is_one_row());
    window.set_toolbar_captions(true);
    settle();
    EXPECT_FALSE(is_one_row());
}

TEST_F(ToolbarRowsTest, AToolbarThatTheUserHasMovedStaysThere) {
    window.addToolBar(Qt::BottomToolBarArea, &bar("toolbar_2"));
    resize(width_of_both() + 10);
    EXPECT_EQ(window.toolBarArea(&bar("toolbar_2")), Qt::BottomToolBarArea);
    EXPECT_FALSE(is_one_row());
}

}  // namespace
}  // namespace tavernook
