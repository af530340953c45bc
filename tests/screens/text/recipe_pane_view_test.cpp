#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QMenu>
#include <QPalette>
#include <QScrollBar>
#include <QWheelEvent>

#include "screens/text/recipe_pane_fixture.h"

namespace tavernook {
namespace {

class RecipePaneView : public RecipePaneTest {
  protected:
    ~RecipePaneView() override { QApplication::setPalette(QPalette()); }

    double height() { return text().document()->size().height(); }
    QImage seen() { return text().viewport()->grab().toImage(); }
    static QPalette dark() {
        QPalette palette(QColor(45, 45, 48), QColor(37, 37, 40));
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
            palette.setColor(role, QColor(230, 230, 230));
        }
        palette.setColor(QPalette::Base, QColor(30, 30, 32));
        return palette;
    }
    static int darkest(const QImage& image) {
        int lowest = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                lowest = std::min(lowest, image.pixelColor(x, y).lightness());
            }
        }
        return lowest;
    }
};

TEST_F(RecipePaneView, ZoomsTheViewAndNotTheDocument) {
    pane.load(R"({\rtf1\fs40 Soup\par\fs20 with salt\par})");
    const std::string before = pane.rich_text();
    const double true_height = height();
    for (int step = 0; step < 10; ++step) press("Ctrl++");
    EXPECT_NEAR(height(), 2 * true_height, true_height * 0.15);
    EXPECT_EQ(pane.rich_text(), before);
    EXPECT_FALSE(pane.is_changed());
    press("Ctrl+-");
    EXPECT_LT(height(), 2 * true_height);
    press("Ctrl+0");
    EXPECT_EQ(height(), true_height);
}

TEST_F(RecipePaneView, TheWheelZoomsWithTheControlKey) {
    pane.load(R"({\rtf1\fs40 Soup\par})");
    const double true_height = height();
    const QPointF place(50, 50);
    for (int turn = 0; turn < 5; ++turn) {
        QWheelEvent event(place, text().viewport()->mapToGlobal(place), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(text().viewport(), &event);
    }
    EXPECT_GT(height(), true_height);
}

TEST_F(RecipePaneView, ALargePictureIsShownTwoThirdsAsWideAsThePaneAndStaysLargeInTheFile) {
    pane.resize(500, 500);
    ASSERT_TRUE(pane.insert_picture(plain_picture(1600, 400)));
    EXPECT_LE(text().document()->size().width(), text().viewport()->width());
    EXPECT_FALSE(text().horizontalScrollBar()->isVisible());
    EXPECT_LT(height(), 400);
    const auto pictures = saved_pictures();
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(pictures[0].image.size(), QSize(1600, 400));
    EXPECT_LE(pictures[0].size.width(), text().viewport()->width() * 2 / 3.0);
    EXPECT_GT(pictures[0].size.width(), text().viewport()->width() * 0.6);
    EXPECT_NEAR(pictures[0].size.width() / pictures[0].size.height(), 4, 0.1);
}

TEST_F(RecipePaneView, ALargePictureOfAFileFitsThePane) {
    ASSERT_TRUE(pane.insert_picture(plain_picture(1600, 400)));
    std::string bytes = pane.rich_text();
    const std::size_t goal = bytes.find("\\picwgoal");
    bytes.replace(goal, bytes.find_first_of("\r ", goal) - goal, "\\picwgoal24000\\pichgoal6000");
    pane.load(bytes);
    pane.resize(500, 500);
    QCoreApplication::processEvents();
    EXPECT_LE(text().document()->size().width(), text().viewport()->width());
    const double narrow = height();
    pane.resize(1000, 500);
    QCoreApplication::processEvents();
    EXPECT_GT(height(), narrow * 1.5);
}

TEST_F(RecipePaneView, ALargePictureBehindABulletFitsThePaneToo) {
    pane.resize(500, 500);
    click("bullet");
    ASSERT_TRUE(pane.insert_picture(plain_picture(1600, 400)));
    EXPECT_LE(text().document()->size().width(), text().viewport()->width());
    EXPECT_FALSE(text().horizontalScrollBar()->isVisible());
}

TEST_F(RecipePaneView, APictureBeyondTheFormatsLengthsKeepsItsShape) {
    ASSERT_TRUE(pane.insert_picture(plain_picture(4000, 1000)));
    const auto pictures = saved_pictures();
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(pictures[0].image.size(), QSize(1600, 400));
    EXPECT_NEAR(pictures[0].size.width() / pictures[0].size.height(), 4, 0.01);
}

TEST_F(RecipePaneView, IsPaperInADarkPalette) {
    QApplication::setPalette(dark());
    pane.load(R"({\rtf1{\colortbl;\red0\green0\blue0;}\fs96 auto \cf1 black\par})");
    QCoreApplication::processEvents();
    const QImage picture = seen();
    EXPECT_GT(picture.pixelColor(picture.width() - 5, picture.height() - 5).lightness(), 200);
    EXPECT_LT(darkest(picture), 10);
    pane.load(R"({\rtf1\fs96 auto\par})");
    QCoreApplication::processEvents();
    EXPECT_LT(darkest(seen()), 60);
    EXPECT_EQ(pane.rich_text().find("\\cf"), std::string::npos);
}

TEST_F(RecipePaneView, FollowsThePaletteOfTheMoment) {
    QPalette light;
    light.setColor(QPalette::Base, QColor(255, 250, 240));
    light.setColor(QPalette::Text, QColor(20, 20, 60));
    QApplication::setPalette(light);
    QCoreApplication::processEvents();
    EXPECT_EQ(text().palette().color(QPalette::Base), QColor(255, 250, 240));
    EXPECT_EQ(text().palette().color(QPalette::Text), QColor(20, 20, 60));
    QApplication::setPalette(dark());
    QCoreApplication::processEvents();
    EXPECT_EQ(text().palette().color(QPalette::Base), QColor(230, 230, 230));
    EXPECT_EQ(text().palette().color(QPalette::Text), QColor(30, 30, 32));
}

TEST_F(RecipePaneView, EveryPartHasANameForTheEar) {
    int checked = 0;
    for (QWidget* widget : pane.findChildren<QWidget*>()) {
        const bool counts =
            widget->focusPolicy() != Qt::NoFocus || qobject_cast<QToolButton*>(widget) != nullptr;
        if (!counts || widget->objectName().startsWith("qt_scrollarea")) continue;
        if (widget->parentWidget() != nullptr &&
            qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr) {
            continue;
        }
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
        ++checked;
    }
    EXPECT_GE(checked, 14);
    for (const QAction* action : pane.toolbar().actions()) {
        EXPECT_TRUE(action->isSeparator() || !action->toolTip().isEmpty());
    }
}

TEST_F(RecipePaneView, TheTabKeyWalksFromTheFontToTheText) {
    part("recipe_font").setFocus(Qt::TabFocusReason);
    std::vector<std::string> stops;
    for (int stop = 0; stop < 3; ++stop) {
        press("Tab");
        stops.push_back(QApplication::focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(stops,
              (std::vector<std::string>{"recipe_font_size", "recipe_bold_button", "recipe_text"}));
    press("Shift+Tab");
    EXPECT_EQ(QApplication::focusWidget(), &button("bold"));
}

TEST_F(RecipePaneView, TheArrowKeysWalkAlongTheButtons) {
    button("bold").setFocus(Qt::TabFocusReason);
    press("Right");
    EXPECT_EQ(QApplication::focusWidget(), &button("italic"));
    press("Right");
    EXPECT_EQ(QApplication::focusWidget(), &button("underline"));
    press("Left");
    type(" ");
    EXPECT_TRUE(is_down("italic"));
    for (int step = 0; step < 20; ++step) press("Right");
    EXPECT_EQ(QApplication::focusWidget(), &button("information"));
    press("Tab");
    EXPECT_EQ(QApplication::focusWidget(), &text());
}

TEST_F(RecipePaneView, ANarrowPaneKeepsItsCommandsInAMenu) {
    pane.resize(pane.minimumSizeHint().width(), 400);
    QCoreApplication::processEvents();
    EXPECT_LE(pane.width(), 450);
    EXPECT_FALSE(button("information").isVisible());
    auto& more = part<QToolButton>("qt_toolbar_ext_button");
    ASSERT_TRUE(more.isVisible());
    EXPECT_EQ(more.accessibleName(), "More commands");
    button("bold").setFocus(Qt::TabFocusReason);
    for (int step = 0; step < 20; ++step) press("Right");
    EXPECT_EQ(QApplication::focusWidget(), &more);
    ASSERT_NE(more.menu(), nullptr);
    std::vector<std::string> entries;
    for (const QAction* entry : more.menu()->actions()) {
        entries.push_back(entry->text().toStdString());
    }
    EXPECT_NE(std::find(entries.begin(), entries.end(), "Insert Recipe Information"),
              entries.end());
}

}  // namespace
}  // namespace tavernook
