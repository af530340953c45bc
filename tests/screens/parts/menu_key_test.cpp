#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
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

// Beneath the row that it is about, in sight, in the measures of a right click.
TEST(MenuKeyOfAList, TheRowComesInSightAndTheMenuStandsBeneathIt) {
    QListWidget list;
    for (int row = 0; row < 100; ++row) list.addItem(QString::number(row));
    list.setContextMenuPolicy(Qt::CustomContextMenu);
    std::vector<QPoint> places;
    QObject::connect(&list, &QWidget::customContextMenuRequested, &list,
                     [&places](const QPoint& place) { places.push_back(place); });
    list.resize(200, 200);
    list.show();
    ASSERT_TRUE(becomes_active(list));
    list.setFocus();
    list.setCurrentRow(90);
    list.scrollToTop();
    QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(places.size(), 1u);
    EXPECT_EQ(places[0], list.visualItemRect(list.item(90)).bottomLeft());
    EXPECT_TRUE(list.viewport()->rect().contains(places[0]));
}

// A row may be selected without being the current one.
TEST(MenuKeyOfAList, WithoutACurrentRowItIsTheSelectedOne) {
    QListWidget list;
    for (int row = 0; row < 5; ++row) list.addItem(QString::number(row));
    list.setContextMenuPolicy(Qt::CustomContextMenu);
    std::vector<QPoint> places;
    QObject::connect(&list, &QWidget::customContextMenuRequested, &list,
                     [&places](const QPoint& place) { places.push_back(place); });
    list.show();
    ASSERT_TRUE(becomes_active(list));
    list.setFocus();
    list.selectionModel()->clearCurrentIndex();
    list.selectionModel()->select(list.model()->index(3, 0), QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(places.size(), 1u);
    EXPECT_EQ(places[0], list.visualItemRect(list.item(3)).bottomLeft());
}

}  // namespace
}  // namespace tavernook
