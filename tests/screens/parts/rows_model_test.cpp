// The shared list: rows as numbers, columns as data; sorts on top of each other, the user's place
// in the list, dragging and dropping.
#include "screens/parts/rows_model.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTreeView>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <memory>

#include "basics/fault.h"
#include "gui_support/warning_guard.h"
#include "screens/parts/rows_in_view.h"

namespace tavernook {
namespace {

using Rows = std::vector<RowId>;

struct Food {
    QString name;
    f64 price = 0;
};

class RowsModelTest : public testing::Test {
  protected:
    RowsModelTest() { view.setModel(&model); }

    std::vector<RowsColumn> columns() {
        RowsColumn name{.title = "Food", .text = [this](RowId row) { return foods[row].name; }};
        RowsColumn price{.title = "Price",
                         .text = [this](RowId row) { return QString::number(foods[row].price); },
                         .number = [this](RowId row) { return foods[row].price; },
                         .alignment = on_the_right,
                         .title_tip = "What one costs"};
        return {name, price};
    }

    void stock_the_shelf() {
        foods = {{1, {"milk", 10}}, {2, {"Bread", 2}}, {3, {"apples", 2}}, {4, {"Milk", 1}}};
        model.set_rows({1, 2, 3, 4});
    }

    void select(const Rows& rows) {
        view.selectionModel()->clearSelection();
        for (const RowId row : rows) {
            view.selectionModel()->select(model.index(model.place_of(row), 0),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }

    Rows selected() const {
        Rows found = selected_rows(view, model);
        std::sort(found.begin(), found.end());
        return found;
    }

    QVariant cell(int row, int column, int role = Qt::DisplayRole) const {
        return model.index(row, column).data(role);
    }

    std::map<RowId, Food> foods;
    RowsModel model{columns(), nullptr};
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
    QTreeView view;
};

// --- numbers as rows -----------------------------------------------------------------------------

TEST(RowIds, PackAndGiveBackSmallNumbersOfAnySign) {
    const RowId row = row_id(-1, 10000, 7);
    EXPECT_EQ(part_of(row, 0), -1);
    EXPECT_EQ(part_of(row, 1), 10000);
    EXPECT_EQ(part_of(row, 2), 7);
    EXPECT_NE(row_id(3, 0), row_id(0, 3));
    EXPECT_EQ(row_id(0, 0, 0), no_row);
}

// --- cells ---------------------------------------------------------------------------------------

TEST_F(RowsModelTest, ColumnsSayHowARowReads) {
    stock_the_shelf();
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(cell(0, 0).toString(), "milk");
    EXPECT_EQ(cell(0, 1).toString(), "10");
    EXPECT_EQ(cell(0, 0, Qt::TextAlignmentRole).toInt(), int(Qt::AlignLeft | Qt::AlignVCenter));
    EXPECT_EQ(cell(0, 1, Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_FALSE(cell(0, 0, Qt::DecorationRole).isValid());
    EXPECT_FALSE(cell(0, 0, Qt::ToolTipRole).isValid());
    EXPECT_FALSE(cell(0, 0, Qt::AccessibleDescriptionRole).isValid());
    EXPECT_EQ(cell(2, 0, RowsModel::row_role).toLongLong(), 3);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Price");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(), "What one costs");
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    EXPECT_FALSE(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
}

TEST_F(RowsModelTest, IconTipAndDescriptionComeFromTheColumn) {
    RowsColumn column{.title = "Food",
                      .text = [](RowId) { return QString("tea"); },
                      .icon = [](RowId) { return QIcon(QPixmap(8, 8)); },
                      .tip = [](RowId row) { return QString("tip %1").arg(row); },
                      .description = [](RowId) { return QString("Item"); }};
    RowsModel rich({column}, nullptr);
    rich.set_rows({5});
    EXPECT_FALSE(rich.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(rich.index(0, 0).data(Qt::ToolTipRole).toString(), "tip 5");
    EXPECT_EQ(rich.index(0, 0).data(Qt::AccessibleDescriptionRole).toString(), "Item");
}

TEST_F(RowsModelTest, ARowIsFoundByItsKey) {
    stock_the_shelf();
    EXPECT_EQ(cell(1, 0, RowsModel::key_role).toString(), "2");
    model.set_key([](RowId row) { return QString("t%1").arg(row); });
    EXPECT_EQ(cell(1, 0, RowsModel::key_role).toString(), "t2");
    EXPECT_EQ(model.place_of_key("t3"), 2);
    EXPECT_EQ(model.place_of_key("t9"), -1);
    EXPECT_EQ(model.place_of(9), -1);
    EXPECT_EQ(model.row_at(-1), no_row);
    EXPECT_EQ(model.row_at(4), no_row);
}

TEST_F(RowsModelTest, AColumnThatFailsLeavesItsCellEmpty) {
    RowsColumn column{.title = "Food", .text = [](RowId) -> QString { throw Fault{9, "far"}; }};
    RowsModel damaged({column}, nullptr);
    damaged.set_rows({1, 2});
    EXPECT_EQ(damaged.index(0, 0).data().toString(), "");
    damaged.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(damaged.rows(), (Rows{1, 2}));
}

// --- sorting -------------------------------------------------------------------------------------

TEST_F(RowsModelTest, TextsAreSortedAsPeopleWriteThemAndEqualOnesKeepTheirPlaces) {
    stock_the_shelf();
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(model.rows(), (Rows{3, 2, 1, 4}));  // apples, Bread, milk, Milk
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(model.rows(), (Rows{1, 4, 2, 3}));
}

TEST_F(RowsModelTest, NumbersAreSortedByValue) {
    stock_the_shelf();
    model.sort(1, Qt::AscendingOrder);
    EXPECT_EQ(model.rows(), (Rows{4, 2, 3, 1}));  // 1, 2, 2, 10
}

TEST_F(RowsModelTest, WhatIsNoNumberStandsFirst) {
    stock_the_shelf();
    foods[3].price = std::numeric_limits<f64>::quiet_NaN();
    model.sort(1, Qt::AscendingOrder);
    EXPECT_EQ(model.rows(), (Rows{3, 4, 2, 1}));
}

TEST_F(RowsModelTest, ASortStandsOnTopOfTheOnesBefore) {
    stock_the_shelf();
    model.sort(0, Qt::DescendingOrder);
    model.sort(1, Qt::AscendingOrder);
    EXPECT_EQ(model.rows(), (Rows{4, 2, 3, 1}));
    ASSERT_EQ(model.sort_steps().size(), 2u);
    EXPECT_EQ(model.sort_steps()[0].column, 0);
    EXPECT_EQ(model.sort_steps()[0].order, Qt::DescendingOrder);
    model.sort(0, Qt::AscendingOrder);  // the earlier one by this column no longer shows
    EXPECT_EQ(model.sort_steps().size(), 2u);
    EXPECT_EQ(model.rows(), (Rows{3, 2, 4, 1}));  // Milk at 1 before milk at 10
}

TEST_F(RowsModelTest, NoColumnBringsBackTheOrderOfTheOwner) {
    stock_the_shelf();
    model.set_rows({4, 1, 3, 2});
    model.sort(0, Qt::AscendingOrder);
    model.sort(-1, Qt::AscendingOrder);
    EXPECT_EQ(model.rows(), (Rows{4, 1, 3, 2}));
    EXPECT_TRUE(model.sort_steps().empty());
}

TEST_F(RowsModelTest, RememberedSortsAreDoneAgainWheneverRowsCome) {
    stock_the_shelf();
    model.set_sort_steps({{9, Qt::AscendingOrder}, {1, Qt::AscendingOrder}});
    EXPECT_EQ(model.sort_steps().size(), 1u);
    model.set_rows({3, 2, 1});
    EXPECT_EQ(model.rows(), (Rows{3, 2, 1}));  // 2, 2, 10
    foods[1].price = 1;
    EXPECT_TRUE(model.set_rows({3, 2, 1}));
    EXPECT_EQ(model.rows(), (Rows{1, 3, 2}));
}

TEST_F(RowsModelTest, WhatIsSelectedStaysSoWhenTheOrderChanges) {
    stock_the_shelf();
    select({1, 3});
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(selected(), (Rows{1, 3}));
    EXPECT_TRUE(model.set_rows({4, 2, 1, 3}));
    EXPECT_EQ(selected(), (Rows{1, 3}));
}

TEST_F(RowsModelTest, FiftyThousandRowsAreReadOnceForASort) {
    Rows many;
    for (RowId row = 1; row <= 50000; ++row) many.push_back(row);
    int reads = 0;
    RowsColumn column{.title = "Food", .text = [&reads](RowId row) {
                          ++reads;
                          return QString("food %1").arg(row * 7919 % 5003, 4, 10, QChar('0'));
                      }};
    RowsModel long_list({column}, nullptr);
    long_list.set_rows(many);
    EXPECT_EQ(reads, 0);
    long_list.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(reads, 50000);
    EXPECT_EQ(long_list.row_at(0), 5003);  // "food 0000", the first of its ten
    EXPECT_EQ(long_list.row_at(1), 10006);
}

// --- new rows ------------------------------------------------------------------------------------

TEST_F(RowsModelTest, TheSameRowsAreReadAnewOnly) {
    stock_the_shelf();
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    const QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    EXPECT_FALSE(model.set_rows({1, 2, 3, 4}));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(RowsModelTest, WhatStaysInARefilledListStaysSelectedAndCurrent) {
    stock_the_shelf();
    EXPECT_TRUE(select_row(view, model, 3));
    select({1, 3});
    EXPECT_TRUE(refill_in_place(view, model, {3, 4, 5}));
    EXPECT_EQ(selected(), (Rows{3}));
    EXPECT_EQ(current_row(view, model), 3);
    EXPECT_FALSE(refill_in_place(view, model, {3, 4, 5}));
}

TEST_F(RowsModelTest, ASelectionThatGoesWithItsRowsIsTold) {
    stock_the_shelf();
    select({2});
    const QSignalSpy told(view.selectionModel(), &QItemSelectionModel::selectionChanged);
    refill_in_place(view, model, {1, 3, 4});
    EXPECT_EQ(told.size(), 1);
    EXPECT_TRUE(selected().empty());
}

TEST_F(RowsModelTest, TheNextRowBecomesCurrentForOneThatHasGone) {
    stock_the_shelf();
    select_row(view, model, 2);
    refill_in_place(view, model, {1, 3, 4});
    EXPECT_EQ(current_row(view, model), 3);
    EXPECT_TRUE(selected().empty());
    select_row(view, model, 4);
    refill_in_place(view, model, {1, 3});
    EXPECT_EQ(current_row(view, model), 3);  // the last one has no next
    refill_in_place(view, model, {});
    EXPECT_EQ(current_row(view, model), no_row);
}

TEST_F(RowsModelTest, ARefilledListStaysScrolled) {
    Rows many;
    for (RowId row = 1; row <= 500; ++row) many.push_back(row);
    model.set_rows(many);
    view.resize(200, 200);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.show();
    view.doItemsLayout();
    view.verticalScrollBar()->setValue(700);
    many.pop_back();
    refill_in_place(view, model, many);
    EXPECT_EQ(view.verticalScrollBar()->value(), 700);
}

TEST_F(RowsModelTest, ARowThatIsNotInTheListCannotBeSelected) {
    stock_the_shelf();
    EXPECT_FALSE(select_row(view, model, 9));
    EXPECT_EQ(current_row(view, model), no_row);
}

// --- dragging and dropping -----------------------------------------------------------------------

TEST_F(RowsModelTest, ARowIsDraggedAsItsText) {
    stock_the_shelf();
    EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsDragEnabled));
    EXPECT_EQ(model.mimeData({model.index(0, 0)}), nullptr);
    model.set_drag_text([](RowId row) { return QString("i%1").arg(row); });
    EXPECT_TRUE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsDragEnabled));
    const std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(1, 0)}));
    ASSERT_NE(dragged, nullptr);
    EXPECT_EQ(dragged->text(), "i2");
    EXPECT_EQ(model.mimeData({}), nullptr);
}

TEST_F(RowsModelTest, OnlyWhatTheRuleLetsThroughIsDropped) {
    stock_the_shelf();
    QSignalSpy dropped(&model, &RowsModel::dropped);
    QMimeData text;
    text.setText("m3");
    EXPECT_FALSE(model.flags({}).testFlag(Qt::ItemIsDropEnabled));
    EXPECT_FALSE(model.dropMimeData(&text, Qt::CopyAction, -1, -1, {}));
    model.set_drop_rule([](const QString& offered) { return offered.startsWith('m'); });
    EXPECT_TRUE(model.flags({}).testFlag(Qt::ItemIsDropEnabled));
    EXPECT_TRUE(model.dropMimeData(&text, Qt::CopyAction, -1, -1, {}));
    text.setText("i3");
    EXPECT_FALSE(model.dropMimeData(&text, Qt::CopyAction, -1, -1, {}));
    ASSERT_EQ(dropped.size(), 1);
    EXPECT_EQ(dropped[0][0].toString(), "m3");
    EXPECT_FALSE(model.canDropMimeData(nullptr, Qt::CopyAction, -1, -1, {}));
}

TEST(RowsModelParts, WhatAPartDecidesIsReadOnceForItWhenRowsAreSorted) {
    int read = 0;
    const std::map<i16, QString> names = {{-7, "Milk"}, {2, "apples"}, {9, "Bread"}};
    RowsColumn name{.title = "Food",
                    .text =
                        [&](RowId row) {
                            ++read;
                            return names.at(part_of(row, 1));
                        },
                    .part = 1};
    RowsModel model({name}, nullptr);
    model.set_rows({row_id(1, -7), row_id(1, 2), row_id(2, 9), row_id(3, -7), row_id(4, 2)});
    read = 0;
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(read, 3);
    Rows sorted;
    for (int row = 0; row < model.rowCount(); ++row) sorted.push_back(model.row_at(row));
    EXPECT_EQ(sorted,
              (Rows{row_id(1, 2), row_id(4, 2), row_id(2, 9), row_id(1, -7), row_id(3, -7)}));
}

}  // namespace
}  // namespace tavernook
