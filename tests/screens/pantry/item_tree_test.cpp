#include "screens/pantry/item_tree.h"

#include <QAbstractItemModelTester>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/warning_guard.h"
#include "inventory/lots.h"

namespace tavernook {
namespace {

class ItemModel : public testing::Test {
  protected:
    void put_item(i16 slot, const char* name, i16 catagory) {
        items[slot].name = name;
        items[slot].category = catagory;
        items[slot].in_use = 1;
        init_lot_record(slot);
    }
    void put_catagory(i16 row, const char* name, i16 parent = 0, i16 type = -1) {
        catagories[row].name = name;
        catagories[row].in_use = 1;
        catagories[row].type = type;
        catagories[row].parent = parent;
    }
    // Keys, a level deeper in brackets.
    std::string keys(const QModelIndex& parent = {}) {
        std::string found;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            found += index.data(CatagoryTreeModel::key_role).toString().toStdString();
            if (model.rowCount(index) > 0) found += "(" + keys(index) + ")";
            found += " ";
        }
        if (!found.empty()) found.pop_back();
        return found;
    }

    TestPlatform platform;
    CatagoryTreeModel model{item_tree_contents()};
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
};

TEST_F(ItemModel, KeysNameTheRows) {
    put_item(5, "Rice", 1);
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_EQ(keys(), "r1(c5)");
    EXPECT_EQ(model.leaf_at(model.index_of("c5")), 5);
    EXPECT_EQ(model.catagory_at(model.index_of("c5")), 0);
    EXPECT_EQ(model.catagory_at(model.index_of("r1")), 1);
    EXPECT_FALSE(model.index_of("c6").isValid());
    EXPECT_FALSE(model.index_of("").isValid());
    model.populate(CatagoryTreeModel::View::list);
    EXPECT_EQ(keys(), "c5");
}

TEST_F(ItemModel, SortsByNameWithoutRegardToCapitalsAndAccents) {
    put_catagory(2, "apples");
    put_item(1, "zucchini", 2);
    put_item(2,
             "\xc9"
             "clair",
             2);
    put_item(3, "eggs", 2);
    put_item(4, "Ebony", 2);
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_EQ(keys(), "r2(c4 c2 c3 c1) r1");
    model.sort(item_name_column, Qt::DescendingOrder);
    EXPECT_EQ(keys(), "r1 r2(c1 c3 c2 c4)");
}

TEST_F(ItemModel, CategoriesStandBeneathTheirParents) {
    put_catagory(2, "Fresh", 4);
    put_catagory(3, "Greens", 2);
    put_catagory(4, "Zone");
    put_item(1, "Kale", 3);
    put_item(2, "Herbs", 2);
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_EQ(keys(), "r1 r4(r2(r3(c1) c2))");
}

TEST_F(ItemModel, ACircleOfParentsAndAParentOfRecipesLeadToTheTop) {
    put_catagory(2, "A", 3);
    put_catagory(3, "B", 2);
    put_catagory(4, "C", 2);
    put_catagory(5, "D", 5);
    put_catagory(6, "Soups", 0, recipe_category_type);
    put_catagory(7, "E", 6);
    put_catagory(8, "F", 99);
    put_catagory(9, "G", -5);
    put_catagory(10, "H", 12345);
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_EQ(keys(), "r2(r4) r3 r5 r7 r8 r9 r1 r10");
}

TEST_F(ItemModel, AnItemOfNoOrOfAnUnknownCategoryStandsUnderTheFirst) {
    put_catagory(3, "Soups", 0, recipe_category_type);
    put_item(1, "A", 0);
    put_item(2, "B", 77);
    put_item(3, "C", 3);
    put_item(4, "D", -9);
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_EQ(keys(), "r1(c1 c2 c3 c4)");
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(items[2].category, 77);
    EXPECT_EQ(items[3].category, 3);
}

TEST_F(ItemModel, TheFilterWantsEveryWordInNameBrandOrBarcode) {
    put_catagory(2, "Dairy");
    put_catagory(3, "Cold", 2);
    put_item(1,
             "Cr\xe8me fra\xee"
             "che",
             3);
    put_item(2, "Cream", 1);
    put_item(3, "Milk", 2);
    items[3].barcode = "7610200068613";
    pooled_strings[1] = "Alpine Meadows";
    item_details[3].brand = 1;
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_FALSE(model.is_filtered());
    model.set_filter("CREME");
    EXPECT_EQ(keys(), "r2(r3(c1))");
    model.set_filter("cr");
    EXPECT_EQ(keys(), "r2(r3(c1)) r1(c2)");
    model.set_filter("meadow mil");
    EXPECT_EQ(keys(), "r2(c3)");
    model.set_filter("0200");
    EXPECT_EQ(keys(), "r2(c3)");
    EXPECT_FALSE(model.index_of("r1").isValid());
    model.set_filter("empty");
    EXPECT_EQ(keys(), "");
    EXPECT_EQ(model.leaf_count(), 0);
    model.set_filter("  ");
    EXPECT_EQ(keys(), "r2(r3(c1) c3) r1(c2)");
    EXPECT_EQ(model.leaf_count(), 3);
}

TEST_F(ItemModel, TheStockIsThatOfTheLotsWithItsUnit) {
    put_item(1, "Milk", 1);
    items[1].qty_units = 6;
    lots[1].lot_quantity[3] = 1.5;
    lots[1].lot_quantity[4] = 0.125;
    model.populate(CatagoryTreeModel::View::tree);
    const QModelIndex stock = model.index_of("c1").siblingAtColumn(item_stock_column);
    EXPECT_EQ(stock.data().toString(), "1.63 liter(s)");
    lots[1].lot_quantity[3] = 0;  // shown at once
    EXPECT_EQ(stock.data().toString(), "0.13 liter(s)");
}

TEST_F(ItemModel, OnlyACategoryCanBeRenamed) {
    put_item(1, "Milk", 1);
    model.populate(CatagoryTreeModel::View::tree);
    EXPECT_FALSE(model.setData(model.index_of("c1"), "Cream", Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index_of("r1"), "   ", Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index_of("r1"), "General", Qt::EditRole));
    EXPECT_TRUE(model.setData(model.index_of("r1"), " Pantry ", Qt::EditRole));
    EXPECT_EQ(std::string(catagories[1].name.right_trimmed()), "Pantry");
    EXPECT_EQ(std::string(items[1].name.trimmed()), "Milk");
}

TEST_F(ItemModel, BuildsATreeOfTenThousandItems) {
    for (i16 item = 1; item <= item_capacity; ++item) {
        put_item(item, ("Food number " + std::to_string(item)).c_str(), 1);
    }
    CatagoryTreeModel plain(item_tree_contents());  // without the tester, which looks at every row
    plain.populate(CatagoryTreeModel::View::tree);
    EXPECT_EQ(plain.leaf_count(), 10000);
}

}  // namespace
}  // namespace tavernook
