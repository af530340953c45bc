// The pane around the tree of categories, by itself: what is open, what is marked, its keys.
#include "screens/parts/catagory_tree_pane.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/waiting.h"
#include "gui_support/warning_guard.h"

namespace tavernook {
namespace {

using Names = std::vector<std::pair<i16, QString>>;  // number and name, all in category 1

bool is_shown(i16 row) {
    return row >= 1 && row <= catagory_capacity && catagories[row].in_use == 1;
}

class Pane : public CatagoryTreePane {
  public:
    Pane(const Names& leaves, int opens_up_to) : leaves_(leaves) {
        auto* column = new QVBoxLayout(this);
        for (QWidget* part : std::initializer_list<QWidget*>{&filter, &tree, &hint}) {
            column->addWidget(part);
        }
        tree.setEditTriggers(QAbstractItemView::NoEditTriggers);
        tree.setContextMenuPolicy(Qt::CustomContextMenu);
        set_up({filter, tree, hint}, contents(),
               {.hint_when_empty = "Nothing yet",
                .hint_when_none_match = "Nothing found",
                .opens_up_to = opens_up_to});
    }
    using CatagoryTreePane::model;

    QLineEdit filter;
    QTreeView tree;
    QLabel hint;

  private:
    TreeContents contents() const {
        const auto read = [this] {
            std::vector<TreeLeaf> found;
            for (const auto& [number, name] : leaves_) {
                found.push_back({number, 1, folded(name), folded(name)});
            }
            return found;
        };
        const auto name = [this](i16 leaf) {
            for (const auto& [number, text] : leaves_) {
                if (number == leaf) return text;
            }
            return QString();
        };
        return {.is_shown = is_shown,
                .read_leaves = read,
                .columns = {{.title = "Name", .text = name},
                            {.title = "Number",
                             .text = [](i16 leaf) { return QString::number(leaf); },
                             .rank = [](i16 leaf) { return LeafRank(leaf, {}); }}},
                .drag_text = [](i16 leaf) { return QString::number(leaf); },
                .rename_catagory =
                    [](i16 row, std::string_view text) {
                        catagories[row].name = text;
                        return true;
                    }};
    }

    const Names& leaves_;
};

class TreePane : public testing::Test {
  protected:
    void SetUp() override {
        for (const auto& [row, name] : {std::pair<i16, const char*>{1, "Food"}, {2, "Other"}}) {
            catagories[row].name = name;
            catagories[row].in_use = 1;
            catagories[row].type = -1;
        }
        pane.resize(400, 300);
        pane.show();
        ASSERT_TRUE(becomes_active(pane));
        pane.tree.setFocus();
        pane.populate();
    }
    bool is_open(const char* key) {
        return pane.tree.isExpanded(pane.model().index_of(QLatin1String(key)));
    }
    std::string marked() { return pane.marked_key().toStdString(); }
    void press(QWidget& widget, Qt::Key key) { QTest::keyClick(&widget, key); }

    TestPlatform platform;
    Names leaves{{1, "Rice"}, {2, "Milk"}, {3, "Butter"}};
    Pane pane{leaves, 3};
    QSignalSpy chosen{&pane, &CatagoryTreePane::chosen};
};

TEST_F(TreePane, FewLeavesAreSeenAtOnceAndManyBehindTheirCategories) {
    EXPECT_TRUE(is_open("r1"));
    leaves.emplace_back(4, "Salt");
    pane.populate();
    EXPECT_FALSE(is_open("r1"));
    leaves.pop_back();
    pane.populate();
    EXPECT_TRUE(is_open("r1"));
}

TEST_F(TreePane, WhatTheUserHasClosedStaysSo) {
    pane.tree.collapse(pane.model().index_of("r1"));
    pane.populate();
    EXPECT_FALSE(is_open("r1"));
    pane.filter.setText("milk");
    EXPECT_TRUE(is_open("r1"));
    pane.filter.clear();
    EXPECT_FALSE(is_open("r1"));
    pane.tree.expand(pane.model().index_of("r1"));
    pane.populate();
    EXPECT_TRUE(is_open("r1"));
}

TEST_F(TreePane, AllAreOpenedOrClosedFromNowOn) {
    pane.expand_all(false);
    pane.populate();
    EXPECT_FALSE(is_open("r1"));
    pane.expand_all(true);
    leaves.emplace_back(4, "Salt");
    pane.populate();
    EXPECT_TRUE(is_open("r1"));
}

TEST_F(TreePane, MarkingTellsNothingAndChoosingTells) {
    pane.mark("c2");
    EXPECT_EQ(marked(), "c2");
    EXPECT_EQ(pane.marked_leaf(), 2);
    pane.populate();
    EXPECT_EQ(marked(), "c2");
    EXPECT_EQ(chosen.size(), 0);
    press(pane.tree, Qt::Key_Down);
    EXPECT_EQ(marked(), "c1");
    EXPECT_EQ(chosen.size(), 1);
    pane.mark({});
    EXPECT_FALSE(pane.is_anything_marked());
    EXPECT_EQ(pane.marked_catagory(), 0);
    EXPECT_FALSE(pane.rename_action()->isEnabled());
}

TEST_F(TreePane, TheRowOnShowIsMarkedAgainWhenTheFilterLetsIt) {
    pane.mark("c2");
    pane.set_on_show("c2");
    pane.filter.setText("rice");
    EXPECT_EQ(marked(), "");
    EXPECT_EQ(pane.leaf_count(), 1);
    EXPECT_TRUE(pane.show_all());
    EXPECT_EQ(marked(), "c2");
    EXPECT_FALSE(pane.show_all());
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(TreePane, TheFindBoxLeadsIntoTheTree) {
    QTest::keyClick(&pane.tree, Qt::Key_Slash, Qt::ShiftModifier);  // as some keyboards have it
    EXPECT_TRUE(pane.filter.hasFocus());
    QTest::keyClicks(&pane.filter, "but");
    press(pane.filter, Qt::Key_Return);
    EXPECT_EQ(marked(), "c3");
    EXPECT_TRUE(pane.tree.hasFocus());
    pane.find();
    press(pane.filter, Qt::Key_Escape);
    EXPECT_EQ(pane.filter.text(), "");
    EXPECT_TRUE(pane.tree.hasFocus());
}

TEST_F(TreePane, TheHintTellsWhyThereIsNothing) {
    EXPECT_FALSE(pane.hint.isVisible());
    pane.filter.setText("nothing");
    EXPECT_TRUE(pane.hint.isVisible());
    EXPECT_EQ(pane.hint.text(), "Nothing found");
    pane.filter.clear();
    leaves.clear();
    pane.populate();
    EXPECT_EQ(pane.hint.text(), "Nothing yet");
}

TEST_F(TreePane, KeysOfTheTreeAreTold) {
    QSignalSpy entered(&pane, &CatagoryTreePane::leaf_entered);
    QSignalSpy inserted(&pane, &CatagoryTreePane::insert_wanted);
    QSignalSpy deleted(&pane, &CatagoryTreePane::delete_wanted);
    QSignalSpy elsewhere(&pane, &CatagoryTreePane::rename_elsewhere);
    pane.mark("c1");
    press(pane.tree, Qt::Key_Return);
    press(pane.tree, Qt::Key_Insert);
    press(pane.tree, Qt::Key_Delete);
    press(pane.tree, Qt::Key_F2);
    for (const QSignalSpy* spy : {&entered, &inserted, &deleted, &elsewhere}) {
        EXPECT_EQ(spy->size(), 1);
    }
    pane.mark("r1");
    press(pane.tree, Qt::Key_Enter);
    EXPECT_FALSE(is_open("r1"));
    EXPECT_EQ(entered.size(), 1);
}

TEST_F(TreePane, ANameIsTypedInPlaceAndItsKeysStayThere) {
    QSignalSpy inserted(&pane, &CatagoryTreePane::insert_wanted);
    pane.mark("r1");
    press(pane.tree, Qt::Key_F2);
    ASSERT_TRUE(pane.is_naming());
    auto* editor = pane.tree.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    press(*editor, Qt::Key_Insert);
    EXPECT_EQ(inserted.size(), 0);
    editor->setText("Staples");
    press(*editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_FALSE(pane.is_naming());
    EXPECT_EQ(catagories[1].name.trimmed(), "Staples");
}

TEST_F(TreePane, AHeaderSortsAndCategoriesTakeTheWholeWidth) {
    QHeaderView& header = *pane.tree.header();
    header.setSortIndicator(1, Qt::DescendingOrder);
    EXPECT_EQ(pane.model().leaf_at(pane.model().index(0, 0, pane.model().index_of("r1"))), 3);
    const QModelIndex food = pane.model().index_of("r1");
    EXPECT_TRUE(pane.tree.isFirstColumnSpanned(food.row(), food.parent()));
    const QModelIndex rice = pane.model().index_of("c1");
    EXPECT_FALSE(pane.tree.isFirstColumnSpanned(rice.row(), rice.parent()));
    pane.resize(700, 300);
    EXPECT_EQ(header.sectionSize(0) + header.sectionSize(1), pane.tree.viewport()->width());
}

TEST_F(TreePane, ANewRowIsBroughtInSightWithoutBeingMarked) {
    pane.tree.collapse(pane.model().index_of("r1"));
    pane.filter.setText("rice");
    leaves.emplace_back(4, "Salt");
    pane.populate();
    pane.reveal("c4");
    EXPECT_EQ(pane.filter.text(), "");
    EXPECT_TRUE(is_open("r1"));
    EXPECT_EQ(marked(), "");
}

}  // namespace
}  // namespace tavernook
