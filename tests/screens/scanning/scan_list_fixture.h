// The scan list in a real main window, driven by mouse, keyboard and scanner. It is Wednesday,
// 15 May 2024, 12:00. Four foods bear codes, one of them in "Bag(s)".
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "barcodes/scan_list.h"
#include "core/lot_table.h"
#include "inventory/lots.h"
#include "screens/child_screen_fixture.h"

namespace tavernook {

class ScanListScreen : public ChildScreenTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr i16 apples = 2;
    static constexpr i16 milk = 3;
    static constexpr i16 bread = 5;
    static constexpr i16 salt = 9;

    void SetUp() override {
        window.resize(1200, 800);
        ChildScreenTest::SetUp();
        units[1].name = "each";
        units[1].in_use = 1;
        units[2].name = "Bag(s)";
        units[2].in_use = 1;
        catagories[1].name = "General";
        catagories[1].in_use = 1;
        put_food(apples, "Apples", 2, "1111");
        put_food(milk, "Milk", 1, "2222");
        put_food(bread, "Bread", 1, "3333");
        put_food(salt, "Salt", 1, "4444");
    }

    static void put_food(i16 item, const std::string& name, i16 unit, const std::string& barcode) {
        ItemRecord& record = items[item];
        record = ItemRecord{};
        record.in_use = 1;
        record.name = name;
        record.category = 1;
        record.qty_units = unit;
        record.barcode = barcode;
        record.serving_size = 1;
        record.servings_per_qty_unit = 1;
        init_lot_record(item);
    }
    static void stock(i16 item, f64 quantity) { ASSERT_EQ(add_to_lots(item, quantity), -1); }

    // As the toolbar's button opens it.
    void open_list() {
        action("toolbar_2_2").trigger();
        settle();
        screen = window.registry().loaded(QStringLiteral("CS1504GETUPC"));
        ASSERT_NE(screen, nullptr);
    }
    QTreeView& list() { return part<QTreeView>("scan_list"); }
    QLineEdit& entry() { return part<QLineEdit>("Text1"); }
    std::string caption() { return screen->windowTitle().toStdString(); }
    std::string status() { return panel(message_panel); }
    std::string count() { return part<QLabel>("count_label").text().toStdString(); }
    Texts codes() { return column(list()); }
    Texts row(int number) {
        Texts cells;
        for (int cell = 0; cell < list().model()->columnCount(); ++cell) {
            cells.push_back(list().model()->index(number, cell).data().toString().toStdString());
        }
        return cells;
    }
    Texts marked() {
        Texts found;
        for (const QModelIndex& index : list().selectionModel()->selectedRows()) {
            found.push_back(index.data().toString().toStdString());
        }
        std::sort(found.begin(), found.end());
        return found;
    }
    bool has_button(int position) {
        return part<QToolButton>(button_name(position).c_str()).isVisible();
    }
    QAction& command(int position) {
        return part<QAction>(("scan_toolbar_" + std::to_string(position)).c_str());
    }
    static std::string button_name(int position) {
        return "scan_toolbar_" + std::to_string(position) + "_button";
    }
    void click_command(int position) { click(button_name(position).c_str()); }

    // What a scanner types that ends its codes with Enter.
    void scan(const std::string& code) {
        for (const char key : code) QTest::keyClick(QApplication::focusWidget(), key);
        press("Return");
    }
    void expect_question(const std::string& code, Answer answer) {
        platform.boxes
            .expect_message(code +
                                " is not currently an item in your inventory.  Would you like to "
                                "add this item to your inventory?",
                            answer)
            .buttons(Buttons::yes_no);
    }
    void expect_new_item(const std::string& code, const std::string& name) {
        expect_question(code, Answer::yes);
        platform.boxes.expect_input("Please enter the name of the item.", "New Item", "", name);
        platform.boxes.expect_message("The barcode " + code +
                                      " has been added to your inventory as " + name +
                                      " in the General category.  The quantity has been placed "
                                      "in Auto Lot mode.");
    }
};

}  // namespace tavernook
