// The shopping list's screen in a real main window, driven by mouse, keyboard and scanner. It is
// Wednesday, 15 May 2024, 12:00. Three foods are on the list, one is not.
#pragma once

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>

#include "inventory/lots.h"
#include "screens/child_screen_fixture.h"
#include "screens/grocery/ShoppingList.h"
#include "shopping/list_rows.h"

namespace tavernook {

class ShoppingListScreen : public ChildScreenTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr i16 apples = 2;
    static constexpr i16 milk = 3;
    static constexpr i16 bread = 5;
    static constexpr i16 salt = 9;

    void SetUp() override {
        window.resize(1200, 800);
        ChildScreenTest::SetUp();
        stores[1].name = "Market";
        stores[1].in_use = 1;
        stores[2].name = "Baker";
        stores[2].in_use = 1;
        units[1].name = "each";
        units[1].in_use = 1;
        catagories[1].name = "General";
        catagories[1].in_use = 1;
        put_food(apples, "Apples", 1, 7, 0.25, "1111");
        put_food(milk, "Milk", 1, 3, 1.5, "2222");
        put_food(bread, "Bread", 2, 12, 4, "3333");
        put_food(salt, "Salt", 1, 5, 0.5, "4444");
        want(apples, 10);
        want(milk, 2);
        want(bread, 1);
        sales_tax = 7.5;
    }

    static void put_food(i16 item, const char* name, i16 store, i16 order, f64 cost,
                         const char* barcode) {
        ItemRecord& record = items[item];
        record = ItemRecord{};
        record.in_use = 1;
        record.name = name;
        record.category = 1;
        record.qty_units = 1;
        record.store = store;
        record.store_order = order;
        record.cost = cost;
        record.barcode = barcode;
        record.serving_size = 1;
        record.servings_per_qty_unit = 1;
        init_lot_record(item);
    }
    static void want(i16 item, f64 quantity) {
        items[item].on_shopping_list = i16_true;
        items[item].shopping_quantity = quantity;
    }

    void open_list() { open("ShoppingList"); }
    QTreeView& list() { return part<QTreeView>("shopping_list"); }
    QTreeView& picks() { return part<QTreeView>("quick_pick_list"); }
    QLineEdit& entry() { return part<QLineEdit>("Text1"); }
    QLineEdit& find_box() { return part<QLineEdit>("find_box"); }
    Texts names() { return column(list()); }
    std::string label(const char* name) { return part<QLabel>(name).text().toStdString(); }
    std::string status() { return panel(1); }

    void choose_row(int row) { click_row(list(), row); }
    static Texts selected_names(const QTreeView& view) {
        Texts names;
        for (const QModelIndex& index : view.selectionModel()->selectedRows()) {
            names.push_back(index.data().toString().toStdString());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    void click_header(int column) {
        QHeaderView* header = list().header();
        const QPoint place(
            header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
            header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    }
    int sort_mark() { return list().header()->sortIndicatorSection(); }

    // What a scanner types that ends its codes with Enter.
    void scan(const char* code) {
        type(code);
        press("Return");
    }

    static void expect_on_list(i16 item, f64 quantity) {
        EXPECT_EQ(items[item].on_shopping_list, -1) << item;
        EXPECT_EQ(items[item].shopping_quantity, quantity) << item;
    }
    static void expect_off_list(i16 item, f64 quantity) {
        EXPECT_EQ(items[item].on_shopping_list, 0) << item;
        EXPECT_EQ(items[item].shopping_quantity, quantity) << item;
    }
};

}  // namespace tavernook
