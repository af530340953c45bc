#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include "gui_support/waiting.h"

namespace tavernook {
namespace {

class MenuPart : public QLineEdit {
  public:
    int menus = 0;
    bool takes_keys = false;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override {
        if (event->reason() == QContextMenuEvent::Keyboard) ++menus;
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (!takes_keys) QLineEdit::keyPressEvent(event);
    }
};

class MenuKey : public testing::Test {
  protected:
    MenuKey() {
        part.show();
        part.setFocus();
    }
    MenuPart part;
};

TEST_F(MenuKey, ShiftF10AsksForTheMenuOfThePartWithTheFocus) {
    ASSERT_TRUE(becomes_active(part));
    QTest::keyClick(&part, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(part.menus, 1);
    QTest::keyClick(&part, Qt::Key_F10);
    QTest::keyClick(&part, Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(part.menus, 1);
}

TEST_F(MenuKey, APartThatTakesTheKeysGoesFirst) {
    ASSERT_TRUE(becomes_active(part));
    part.takes_keys = true;
    QTest::keyClick(&part, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(part.menus, 0);
}

}  // namespace
}  // namespace tavernook
