#include "screens/parts/catagory_tree_model.h"

#include <QAbstractItemModelTester>
#include <QMimeData>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/warning_guard.h"
#include "screens/parts/shown_text.h"

namespace tavernook {
namespace {

bool is_shown(i16 row) {
    return row >= 1 && row <= catagory_capacity && catagories[row].in_use == 1;
}

// Leaves with a name, a maker who is only searched, and an amount in a column of its own.
class CatagoryTree : public testing::Test {
  protected:
    struct Leaf {
        i16 number;
        i16 catagory;
        QString name;
        QString maker = {};
        f64 amount = 0;
    };

    TreeContents contents() {
        const auto read = [this] {
            if (fails) throw Fault{fault_number::subscript_out_of_range, "Subscript out of range"};
            std::vector<TreeLeaf> found;
            for (const Leaf& leaf : leaves) {
                found.push_back({leaf.number, leaf.catagory, folded(leaf.name),
                                 folded(leaf.name + QLatin1Char('\n') + leaf.maker)});
            }
            return found;
        };
        return {.is_shown = is_shown,
                .read_leaves = read,
                .columns = {{.title = "Name", .text = [this](i16 leaf) { return of(leaf).name; }},
                            {.title = "Amount",
                             .text = [this](i16 leaf) { return QString::number(of(leaf).amount); },
                             .rank = [this](i16 leaf) { return LeafRank(of(leaf).amount, {}); },
                             .is_right = true}},
                .drag_text = [](i16 leaf) { return QStringLiteral("x%1").arg(leaf); }};
    }
    const Leaf& of(i16 number) const {
        for (const Leaf& leaf : leaves) {
            if (leaf.number == number) return leaf;
        }
        throw Fault{fault_number::subscript_out_of_range, "Subscript out of range"};
    }

    static void put_catagory(i16 row, const char* name, i16 parent = 0) {
        catagories[row].name = name;
        catagories[row].in_use = 1;
        catagories[row].type = -1;
        catagories[row].parent = parent;
    }
    void put_pantry() {
        put_catagory(1, "General");
        put_catagory(2, "Dairy", 1);
        leaves = {{1, 1, "Rice", "Golden Field", 5},
                  {2, 2, "Milk", "Alp", 1},
                  {3, 2, "Butter", "Alp", 3}};
    }

    // Keys, a level deeper in brackets.
    static std::string keys(const CatagoryTreeModel& model, const QModelIndex& parent = {}) {
        std::string found;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            found += index.data(CatagoryTreeModel::key_role).toString().toStdString();
            if (model.rowCount(index) > 0) found += "(" + keys(model, index) + ")";
            found += " ";
        }
        if (!found.empty()) found.pop_back();
        return found;
    }

    TestPlatform platform;
    std::vector<Leaf> leaves;
    bool fails = false;
};

TEST_F(CatagoryTree, StandsByNameWithoutARowForItsTop) {
    put_pantry();
    CatagoryTreeModel model(contents());
    QAbstractItemModelTester tester(&model);
    EXPECT_EQ(keys(model), "");
    model.populate();
    EXPECT_EQ(keys(model), "r1(r2(c3 c2) c1)");
    EXPECT_EQ(model.leaf_count(), 3);
    EXPECT_EQ(model.leaf_at(model.index_of("c3")), 3);
    EXPECT_EQ(model.catagory_at(model.index_of("c3")), 0);
    EXPECT_EQ(model.catagory_at(model.index_of("r2")), 2);
    EXPECT_FALSE(model.is_root(model.index_of("r1")));
    for (const char* key : {"", "r0", "c9", "r3", "2r", "x2", "c", "c-1"}) {
        EXPECT_FALSE(model.index_of(QLatin1String(key)).isValid()) << key;
    }
}

TEST_F(CatagoryTree, TheRootIsARowWhereItHasAName) {
    put_pantry();
    TreeContents wanted = contents();
    wanted.root_name = "Everything";
    wanted.is_number_first = true;
    CatagoryTreeModel model(wanted);
    QAbstractItemModelTester tester(&model);
    model.populate();
    EXPECT_EQ(keys(model), "r0(1r(2r(3c 2c) 1c))");
    const QModelIndex root = model.index_of("r0");
    EXPECT_TRUE(model.is_root(root));
    EXPECT_EQ(root.data().toString(), "Everything");
    EXPECT_EQ(model.catagory_at(root), 0);
    EXPECT_EQ(model.leaf_at(root), 0);
    EXPECT_EQ(model.key_of_leaf(3), "3c");
    EXPECT_EQ(model.key_of_catagory(0), "r0");
}

TEST_F(CatagoryTree, AsOneListItShowsNoCategories) {
    put_pantry();
    CatagoryTreeModel model(contents());
    QAbstractItemModelTester tester(&model);
    model.populate(CatagoryTreeModel::View::list);
    EXPECT_EQ(keys(model), "c3 c2 c1");
    EXPECT_TRUE(model.catagory_rows().isEmpty());
    model.set_filter("alp");
    EXPECT_EQ(keys(model), "c3 c2");
}

TEST_F(CatagoryTree, AColumnIsSortedByItsRankAndTheFirstOneByName) {
    put_pantry();
    leaves.push_back({4, 2, "Quark", "", 1});
    CatagoryTreeModel model(contents());
    QAbstractItemModelTester tester(&model);
    model.populate();
    model.sort(1, Qt::AscendingOrder);
    EXPECT_EQ(keys(model), "r1(r2(c2 c4 c3) c1)");  // of one amount by name
    model.sort(1, Qt::DescendingOrder);
    EXPECT_EQ(keys(model), "r1(r2(c3 c4 c2) c1)");
    leaves[1].amount = 7;
    model.populate();
    EXPECT_EQ(keys(model), "r1(r2(c2 c3 c4) c1)");
    put_catagory(3, "Cellar", 1);
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(keys(model), "r1(r2(c4 c2 c3) r3 c1)");
}

TEST_F(CatagoryTree, TheFilterWantsEveryWordAndDropsEmptyCategories) {
    put_pantry();
    CatagoryTreeModel model(contents());
    QAbstractItemModelTester tester(&model);
    model.populate();
    model.set_filter("alp BUT");
    EXPECT_EQ(keys(model), "r1(r2(c3))");
    EXPECT_EQ(model.leaf_count(), 1);
    model.set_filter("golden");
    EXPECT_EQ(keys(model), "r1(c1)");
    EXPECT_EQ(model.catagory_rows().size(), 1);
    EXPECT_FALSE(model.index_of("r2").isValid());
    model.set_filter("nothing");
    EXPECT_EQ(keys(model), "");
    model.set_filter(" ");
    EXPECT_EQ(keys(model), "r1(r2(c3 c2) c1)");
    EXPECT_FALSE(model.is_filtered());
}

TEST_F(CatagoryTree, ALeafOfAnImpossibleCategoryStandsAtTheTop) {
    put_catagory(1, "General");
    leaves = {{1, 0, "A"}, {2, -5, "B"}, {3, 32000, "C"}, {4, 77, "D"}};
    CatagoryTreeModel model(contents());
    model.populate();
    EXPECT_EQ(keys(model), "r1 c1 c2 c3 c4");
}

TEST_F(CatagoryTree, WhatCannotBeReadLeavesTheRowsAsTheyWere) {
    put_pantry();
    CatagoryTreeModel model(contents());
    QAbstractItemModelTester tester(&model);
    model.populate();
    fails = true;
    EXPECT_THROW(model.populate(CatagoryTreeModel::View::list), Fault);
    EXPECT_EQ(keys(model), "r1(r2(c3 c2) c1)");
    EXPECT_EQ(model.view(), CatagoryTreeModel::View::tree);
}

TEST_F(CatagoryTree, ALeafThatCannotBeToldHasAnEmptyCell) {
    put_pantry();
    CatagoryTreeModel model(contents());
    model.populate();
    const QModelIndex milk = model.index_of("c2");
    leaves.clear();
    EXPECT_EQ(milk.data().toString(), "");
    EXPECT_EQ(milk.siblingAtColumn(1).data().toString(), "");
}

TEST_F(CatagoryTree, CellsAreReadWhenTheyAreShown) {
    put_pantry();
    CatagoryTreeModel model(contents());
    model.populate();
    const QModelIndex amount = model.index_of("c2").siblingAtColumn(1);
    leaves[1].amount = 2.5;
    EXPECT_EQ(amount.data().toString(), "2.5");
    EXPECT_TRUE(amount.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_FALSE(model.index_of("r1").siblingAtColumn(1).data().isValid());
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Amount");
    EXPECT_FALSE(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
}

TEST_F(CatagoryTree, NamesWhatItsOwnerLetsItName) {
    put_pantry();
    TreeContents wanted = contents();
    wanted.rename_catagory = [](i16 row, std::string_view name) {
        catagories[row].name = name;
        return true;
    };
    CatagoryTreeModel model(wanted);
    model.populate();
    int changes = 0;
    QObject::connect(&model, &CatagoryTreeModel::changed, [&] { ++changes; });
    EXPECT_FALSE(model.setData(model.index_of("c2"), "Cream", Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index_of("r2"), "Dairy", Qt::EditRole));
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(model.setData(model.index_of("r2"), "Cold", Qt::EditRole));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(model.index_of("r2").data().toString(), "Cold");
    EXPECT_FALSE(model.flags(model.index_of("c2")) & Qt::ItemIsEditable);
    EXPECT_FALSE(model.flags(model.index_of("r2").siblingAtColumn(1)) & Qt::ItemIsEditable);
}

TEST_F(CatagoryTree, ANameThatFailsIsToldAndChangesNothing) {
    put_pantry();
    TreeContents wanted = contents();
    wanted.rename_leaf = [](i16, std::string_view) -> bool {
        throw Fault{fault_number::disk_full, "Disk full"};
    };
    CatagoryTreeModel model(wanted);
    model.populate();
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(model.setData(model.index_of("c2"), "Cream", Qt::EditRole));
}

TEST_F(CatagoryTree, TakesDropsOnlyWhereItsOwnerMovesLeaves) {
    put_pantry();
    QMimeData data;
    data.setText("x1");
    CatagoryTreeModel fixed(contents());
    fixed.populate();
    EXPECT_FALSE(fixed.canDropMimeData(&data, Qt::CopyAction, -1, -1, fixed.index_of("r2")));
    TreeContents wanted = contents();
    wanted.move_leaf = [this](i16 leaf, i16 catagory) {
        leaves[static_cast<std::size_t>(leaf - 1)].catagory = catagory;
        return true;
    };
    wanted.dropped_leaf = [](const QString& text) {
        return text.startsWith('x') ? text.mid(1).toShort() : i16{0};
    };
    CatagoryTreeModel model(wanted);
    model.populate();
    EXPECT_FALSE(model.dropMimeData(&data, Qt::CopyAction, 0, 0, model.index_of("r2")));
    EXPECT_FALSE(model.dropMimeData(&data, Qt::CopyAction, -1, -1, model.index_of("c2")));
    EXPECT_TRUE(model.dropMimeData(&data, Qt::CopyAction, -1, -1, model.index_of("r2")));
    model.populate();
    EXPECT_EQ(keys(model), "r1(r2(c3 c2 c1))");
}

}  // namespace
}  // namespace tavernook
