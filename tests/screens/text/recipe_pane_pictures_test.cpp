// The pictures of a recipe's text under the hands of the user.
#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QMenu>

#include "screens/text/recipe_pane_fixture.h"

namespace tavernook {
namespace {

class RecipePanePictures : public RecipePaneTest {
  protected:
    void SetUp() override {
        RecipePaneTest::SetUp();
        pane.load(R"({\rtf1 Soup\par})");
        put_caret(4);
        ASSERT_TRUE(pane.insert_picture(plain_picture(200, 100)));
        QCoreApplication::processEvents();
    }
    QSizeF size() { return saved_pictures().at(0).size; }
    // Somewhere on the picture, which stands in the second line.
    QPoint place_of_picture() {
        const QTextBlock block = text().document()->findBlockByNumber(1);
        const QRectF area = text().document()->documentLayout()->blockBoundingRect(block);
        return (area.topLeft() + QPointF(30, 50)).toPoint();
    }
    void open_menu(const QPoint& place, QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, place, text().viewport()->mapToGlobal(place));
        QApplication::sendEvent(text().viewport(), &event);
    }
    static QStringList entries(const QMenu& menu) {
        QStringList found;
        for (const QAction* action : menu.actions()) found += action->text();
        return found;
    }
};

TEST_F(RecipePanePictures, StandInAParagraphOfTheirOwn) {
    EXPECT_EQ(text().toPlainText(), QStringLiteral("Soup\n\uFFFC\n"));
    type("hot");
    EXPECT_EQ(text().toPlainText(), QStringLiteral("Soup\n\uFFFC\nhot"));
    put_caret(2);
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 4)));
    EXPECT_EQ(text().toPlainText(), QStringLiteral("So\n\uFFFC\nup\n\uFFFC\nhot"));
    press("Ctrl+Z");
    EXPECT_EQ(text().toPlainText(), QStringLiteral("Soup\n\uFFFC\nhot"));
}

TEST_F(RecipePanePictures, PartAListWithoutAnEntryOfTheirOwn) {
    pane.load(R"({\rtf1\pard{\listtext 1.\tab}stir\par{\listtext 2.\tab}bake\par})");
    put_caret(2);
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 4)));
    EXPECT_NE(saved_paragraph(0).textList(), nullptr);
    EXPECT_EQ(saved_paragraph(1).textList(), nullptr);
    ASSERT_NE(saved_paragraph(2).textList(), nullptr);
    const QTextBlock last = saved_paragraph(3);
    EXPECT_EQ(last.textList()->itemText(last), "3.");
}

TEST_F(RecipePanePictures, KeysMakeThemLargerAndSmaller) {
    EXPECT_EQ(size(), QSizeF(200, 100));
    put_caret(5);
    press("Alt+Up");
    EXPECT_EQ(size(), QSizeF(250, 125));
    press("Alt+Down");
    press("Alt+Down");
    EXPECT_EQ(size(), QSizeF(160, 80));
    press("Alt+Home");
    EXPECT_EQ(size(), QSizeF(200, 100));
    press("Ctrl+Z");
    EXPECT_EQ(size(), QSizeF(160, 80));
    pane.load(pane.rich_text());
    EXPECT_EQ(size(), QSizeF(160, 80));
    EXPECT_EQ(saved_pictures().at(0).image.size(), QSize(200, 100));
}

TEST_F(RecipePanePictures, GrowNoWiderThanTheTextAndStayInSight) {
    put_caret(5);
    for (int step = 0; step < 30; ++step) press("Alt+Up");
    EXPECT_LE(size().width(), text().viewport()->width());
    EXPECT_GT(size().width(), text().viewport()->width() * 0.9);
    EXPECT_NEAR(size().width() / size().height(), 2, 0.01);
    for (int step = 0; step < 60; ++step) press("Alt+Down");
    EXPECT_NEAR(size().width(), 16, 0.1);
}

TEST_F(RecipePanePictures, KeysDoNothingWhereNoPictureIsMeant) {
    pane.set_unchanged();
    put_caret(2);
    press("Alt+Up");
    select("Soup");
    press("Alt+Up");
    EXPECT_FALSE(pane.is_changed());
    put_caret(5);
    pane.set_editable(false);
    press("Alt+Up");
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePanePictures, AClickSelectsOne) {
    put_caret(0);
    QTest::mouseClick(text().viewport(), Qt::LeftButton, {}, place_of_picture());
    EXPECT_EQ(text().textCursor().selectionStart(), 5);
    EXPECT_EQ(text().textCursor().selectionEnd(), 6);
    press("Alt+Up");
    EXPECT_EQ(size(), QSizeF(250, 125));
}

TEST_F(RecipePanePictures, TheContextMenuOffersTheirSizes) {
    put_caret(0);
    open_menu(place_of_picture(), QContextMenuEvent::Mouse);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    const QStringList texts = entries(*menu);
    ASSERT_GE(texts.indexOf("&Larger Picture"), 0);
    EXPECT_GE(texts.indexOf("S&maller Picture"), 0);
    EXPECT_GE(texts.indexOf("&Original Size"), 0);
    menu->actions().at(texts.indexOf("&Larger Picture"))->trigger();
    menu->close();
    EXPECT_EQ(size(), QSizeF(250, 125));
}

TEST_F(RecipePanePictures, TheContextMenuOfWordsIsAsEver) {
    put_caret(1);
    open_menu({5, 5}, QContextMenuEvent::Keyboard);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(entries(*menu).indexOf("&Larger Picture"), -1);
    EXPECT_GT(entries(*menu).size(), 5);
    menu->close();
}

TEST_F(RecipePanePictures, ALargeOneComesAtMostTwoThirdsAsWideAsThePane) {
    pane.clear();
    ASSERT_TRUE(pane.insert_picture(plain_picture(1500, 1500)));
    EXPECT_LE(size().width(), text().viewport()->width() * 2 / 3.0);
    EXPECT_GT(size().width(), text().viewport()->width() * 0.6);
    EXPECT_EQ(size().width(), size().height());
}

}  // namespace
}  // namespace tavernook
