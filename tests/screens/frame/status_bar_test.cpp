// The three panels below the windows.
#include <QLabel>
#include <QStatusBar>
#include <QStatusTipEvent>

#include "screens/frame/register_screens.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

class StatusBar : public MainWindowTest {
  protected:
    void SetUp() override {
        register_screens(window);
        start();
    }
};

TEST_F(StatusBar, ALongSentenceLeavesTheWindowAsWideAsItWas) {
    const int width = window.width();
    const int least = window.minimumSizeHint().width();
    const std::string sentence(400, 'w');
    window.set_status(message_panel, sentence);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(window.width(), width);
    EXPECT_EQ(window.minimumSizeHint().width(), least);
    EXPECT_EQ(panel(message_panel), sentence);
}

TEST_F(StatusBar, TheStatusBarHasThreePanels) {
    EXPECT_EQ(panel(3), "Start-up");
    window.set_status(1, "Caf\xe9 opened");
    window.set_status(audit_time_panel, "Audit Time: 9:05 PM");
    window.set_status(activity_panel, "Ready");
    EXPECT_EQ(panel(1), "Café opened");
    EXPECT_EQ(panel(2), "Audit Time: 9:05 PM");
    EXPECT_EQ(panel(3), "Ready");
    window.set_status(0, "nowhere");
    window.set_status(4, "nowhere");
    EXPECT_EQ(panel(1), "Café opened");
}

TEST_F(StatusBar, AMessageIsSeenThoughTheMouseRestsOnAButton) {
    QStatusTipEvent tip(QStringLiteral("See the scanned codes and book them."));
    QCoreApplication::sendEvent(&window, &tip);
    EXPECT_FALSE(window.statusBar()->currentMessage().isEmpty());
    window.set_status(message_panel, "Milk is on the list.");
    EXPECT_TRUE(window.statusBar()->currentMessage().isEmpty());
}

// Counts the paintings of a widget.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
    int paints = 0;
};

TEST_F(StatusBar, AStatusTextIsLaidOutAndPaintedAtOnce) {
    settle();
    auto* label = window.findChild<QLabel*>("status_panel_2");
    const PaintCount count(label);
    EXPECT_LT(label->width(), label->fontMetrics().horizontalAdvance("Audit Time: 9:05 PM"));
    window.set_status(audit_time_panel, "Audit Time: 9:05 PM");
    EXPECT_GE(count.paints, 1);
    EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance("Audit Time: 9:05 PM"));
}

}  // namespace
}  // namespace tavernook
