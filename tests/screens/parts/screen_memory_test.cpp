// What comes back when a screen is opened again, and copying from lists.
#include "screens/parts/screen_memory.h"

#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QListView>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTextEdit>
#include <QVBoxLayout>

#include "screens/child_screen_fixture.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/table_copy.h"

namespace tavernook {
namespace {

// A screen with a splitter and a list of that many columns.
QWidget* make_screen(int columns = 3) {
    auto* screen = new QWidget;
    screen->setObjectName("Sample");
    auto* layout = new QVBoxLayout(screen);
    auto* splitter = new QSplitter(screen);
    splitter->setObjectName("halves");
    layout->addWidget(splitter);
    auto* list = new QTreeView(splitter);
    list->setObjectName("rows");
    auto* model = new QStandardItemModel(2, columns, list);
    list->setModel(model);
    list->setSortingEnabled(true);
    list->sortByColumn(-1, Qt::AscendingOrder);
    splitter->addWidget(new QTextEdit(splitter));
    return screen;
}

class ScreenMemory : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        window.resize(1000, 800);
        settle();
        window.registry().add("Sample", [this] { return make_screen(columns); });
    }

    QHeaderView& header() { return *part<QTreeView>("rows").header(); }
    QMdiSubWindow& child() { return static_cast<QMdiSubWindow&>(*screen->parentWidget()); }
    void close_it() {
        child().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    int columns = 3;
};

TEST_F(ScreenMemory, ColumnsKeepTheirWidthOrderAndSort) {
    open("Sample");
    header().resizeSection(0, 71);
    header().moveSection(2, 0);
    part<QTreeView>("rows").sortByColumn(1, Qt::DescendingOrder);
    close_it();
    open("Sample");
    EXPECT_EQ(header().sectionSize(0), 71);
    EXPECT_EQ(header().logicalIndex(0), 2);
    EXPECT_EQ(header().sortIndicatorSection(), 1);
    EXPECT_EQ(header().sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(ScreenMemory, WidthsOfOtherColumnsAreNotTaken) {
    open("Sample");
    header().resizeSection(0, 71);
    close_it();
    columns = 4;
    open("Sample");
    EXPECT_EQ(header().count(), 4);
    EXPECT_NE(header().sectionSize(0), 71);
}

TEST_F(ScreenMemory, SplittersKeepTheirHalves) {
    open("Sample");
    part<QSplitter>("halves").setSizes({200, 600});
    const QList<int> sizes = part<QSplitter>("halves").sizes();
    close_it();
    open("Sample");
    EXPECT_EQ(part<QSplitter>("halves").sizes(), sizes);
}

TEST_F(ScreenMemory, AnArrangedWindowComesBackWithItsSize) {
    open("Sample");
    EXPECT_TRUE(child().isMaximized());
    child().showNormal();
    child().resize(520, 410);
    close_it();
    open("Sample");
    EXPECT_FALSE(child().isMaximized());
    EXPECT_EQ(child().size(), QSize(520, 410));
}

TEST_F(ScreenMemory, AMaximisedWindowComesBackMaximisedOverItsOldSize) {
    open("Sample");
    child().showNormal();
    child().resize(520, 410);
    close_it();
    open("Sample");
    child().showMaximized();
    close_it();
    open("Sample");
    EXPECT_TRUE(child().isMaximized());
    child().showNormal();
    settle();
    EXPECT_EQ(child().size(), QSize(520, 410));
}

TEST_F(ScreenMemory, ClosingTheProjectRemembersToo) {
    open("Sample");
    child().showNormal();
    child().resize(520, 410);
    window.registry().unload_all();
    open("Sample");
    EXPECT_FALSE(child().isMaximized());
    EXPECT_EQ(child().size(), QSize(520, 410));
}

TEST_F(ScreenMemory, AMaximisedWindowBehindAnotherComesBackMaximised) {
    open("Sample");
    show_screen("wam");
    settle();
    window.registry().unload_all();
    settle();
    EXPECT_EQ(platform.settings.get("Screens", "Sample.Arranged"), "0");
    open("Sample");
    EXPECT_TRUE(child().isMaximized());
}

TEST_F(ScreenMemory, ComingInFrontOfAMaximisedWindowArrangesNothing) {
    open("Sample");
    show_screen("wam");
    settle();
    EXPECT_NE(platform.settings.get("Screens", "Sample.Arranged"), "1");
}

TEST_F(ScreenMemory, OfArrangedWindowsTheOneBehindStaysArranged) {
    open("Sample");
    child().showNormal();
    child().resize(520, 410);
    show_screen("wam");
    settle();
    window.registry().unload_all();
    settle();
    open("Sample");
    EXPECT_FALSE(child().isMaximized());
    EXPECT_EQ(child().size(), QSize(520, 410));
}

TEST_F(ScreenMemory, ASizeLargerThanTheAreaIsCut) {
    platform.settings.set("Screens", "Sample.Size", "5000x4000");
    platform.settings.set("Screens", "Sample.Arranged", "1");
    open("Sample");
    EXPECT_LE(child().width(), window.width());
    EXPECT_LE(child().height(), window.height());
}

TEST_F(ScreenMemory, RubbishInTheStoreIsPassedOver) {
    for (const char* rubbish : {"", "x", "12x", "-3x-4", "axb", "12x13x14", "\xff\xfe"}) {
        for (const char* entry : {"Size", "Arranged", "Splitter.halves", "Columns3.rows"}) {
            platform.settings.set("Screens", std::string("Sample.") + entry, rubbish);
        }
        open("Sample");
        EXPECT_TRUE(child().isMaximized()) << rubbish;
        EXPECT_EQ(header().logicalIndex(0), 0);
        close_it();
    }
}

TEST_F(ScreenMemory, PartsWithoutANameAndPartsOfQtAreNotStored) {
    QWidget plain;
    plain.setObjectName("Plain");
    auto* layout = new QVBoxLayout(&plain);
    layout->addWidget(new QSplitter(&plain));
    auto* inner = new QTreeView(&plain);
    inner->setObjectName("qt_inner");
    layout->addWidget(inner);
    remember_screen(plain);
    EXPECT_TRUE(platform.settings.values.empty());
}

TEST_F(ScreenMemory, ADialogKeepsItsSize) {
    {
        QDialog dialog;
        dialog.setObjectName("Question");
        dialog.resize(333, 222);
        remember_screen(dialog);
    }
    QDialog next;
    next.setObjectName("Question");
    restore_screen(next);
    EXPECT_EQ(next.size(), QSize(333, 222));
}

class TableCopy : public testing::Test {
  protected:
    TableCopy() {
        for (int row = 0; row < 4; ++row) {
            for (int cell = 0; cell < 3; ++cell) {
                model.setItem(row, cell, new QStandardItem(QString("%1%2").arg(row).arg(cell)));
            }
        }
        view.setModel(&model);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
    void select(int row) {
        view.selectionModel()->select(model.index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    QStandardItemModel model;
    QTreeView view;
};

TEST_F(TableCopy, RowsComeInTheOrderInWhichTheyStand) {
    select(2);
    select(0);
    EXPECT_EQ(selected_rows_text(view), "00\t01\t02\n20\t21\t22");
}

TEST_F(TableCopy, OnlyVisibleColumnsInTheOrderInWhichTheyAreSeen) {
    view.header()->moveSection(2, 0);
    view.setColumnHidden(1, true);
    select(1);
    EXPECT_EQ(selected_rows_text(view), "12\t10");
}

TEST_F(TableCopy, TabsAndLineEndsInATextBecomeBlanks) {
    model.item(0, 1)->setText("a\tb\r\nc\nd");
    select(0);
    EXPECT_EQ(selected_rows_text(view), "00\ta b c d\t02");
}

TEST_F(TableCopy, RowsBelowOthersComeBehindThem) {
    model.item(1, 0)->appendRow(new QStandardItem("below"));
    for (int row = 3; row >= 0; --row) select(row);
    view.selectionModel()->select(model.index(0, 0, model.index(1, 0)),
                                  QItemSelectionModel::Select);
    EXPECT_EQ(selected_rows_text(view).toStdString(),
              "00\t01\t02\n10\t11\t12\nbelow\t\t\n20\t21\t22\n30\t31\t32");
}

TEST_F(TableCopy, TheKeysPutItOnTheClipboard) {
    copy_rows_by_keys(view);
    view.show();
    ASSERT_TRUE(becomes_active(view));
    QGuiApplication::clipboard()->setText("before");
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
    select(3);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "30\t31\t32");
}

TEST_F(TableCopy, AListHasOneColumn) {
    QListView list;
    list.setModel(&model);
    list.selectionModel()->select(model.index(1, 0), QItemSelectionModel::Select);
    EXPECT_EQ(selected_rows_text(list), "10");
}

}  // namespace
}  // namespace tavernook
