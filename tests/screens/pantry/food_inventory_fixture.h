// The item screen in a real main window with a new project open, driven as a user drives it. It is
// Wednesday, 15 May 2024, 12:00.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QTreeView>
#include <stdexcept>
#include <string>

#include "core/catagories.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "screens/frame/register_screens.h"
#include "screens/main_window_fixture.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/pantry/item_tree.h"
#include "screens/parts/quantity_box.h"

namespace tavernook {

class FoodInventoryTest : public MainWindowTest {
  protected:
    void SetUp() override {
        Platform parts = outside();
        parts.replace_item = &platform.replace_item;
        set_platform(parts);
        register_screens(window);
        window.resize(1200, 800);
        start();
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
        project_modified = i16_false;
    }

    // Shows the screen, loading it first.
    void open() {
        ASSERT_TRUE(window.registry().show("FoodInventory"));
        settle();
    }

    FoodInventory& screen() {
        auto* found = dynamic_cast<FoodInventory*>(window.registry().loaded("FoodInventory"));
        if (found == nullptr) throw std::runtime_error("the item screen is not loaded");
        return *found;
    }

    template <typename Widget>
    Widget& part(const char* name) {
        auto* found = screen().findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("no part ") + name);
        return *found;
    }

    QTreeView& tree() { return part<QTreeView>("item_tree"); }
    CatagoryTreeModel& model() { return *qobject_cast<CatagoryTreeModel*>(tree().model()); }

    void choose_row(const char* key) {
        const QModelIndex index = model().index_of(QLatin1String(key));
        ASSERT_TRUE(index.isValid()) << key;
        tree().setCurrentIndex(index);
        settle();
    }

    std::string marked() {
        return tree().currentIndex().data(CatagoryTreeModel::key_role).toString().toStdString();
    }

    void click(const char* name) {
        part<QAbstractButton>(name).click();
        settle();
    }
    void command(const char* name) {
        part<QAction>(name).trigger();
        settle();
    }
    void accept() { command("item_toolbar_2_1"); }

    std::string text(const char* name) {
        QWidget& field = part<QWidget>(name);
        if (auto* box = qobject_cast<QComboBox*>(&field)) return box->currentText().toStdString();
        if (auto* line = qobject_cast<QLineEdit*>(&field)) return line->text().toStdString();
        if (auto* label = qobject_cast<QLabel*>(&field)) return label->text().toStdString();
        if (auto* button = qobject_cast<QAbstractButton*>(&field)) {
            return button->text().toStdString();
        }
        return qobject_cast<QPlainTextEdit*>(&field)->toPlainText().toStdString();
    }
    void enter(const char* name, const char* value) {
        QWidget& field = part<QWidget>(name);
        if (auto* box = qobject_cast<QComboBox*>(&field)) {
            box->setEditText(QString::fromUtf8(value));
        } else if (auto* line = qobject_cast<QLineEdit*>(&field)) {
            line->setText(QString::fromUtf8(value));
        } else {
            qobject_cast<QPlainTextEdit*>(&field)->setPlainText(QString::fromUtf8(value));
        }
    }
    void type(const char* letters) {
        QTest::keyClicks(QApplication::focusWidget(), QLatin1String(letters));
    }
    static std::string focused() {
        QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }

    // A live item as the tables hold it, with its stock in the first lot.
    static void put_item(i16 slot, const char* name, i16 catagory, f64 quantity) {
        ItemRecord& item = items[slot];
        item = ItemRecord{};
        item.name = name;
        item.category = catagory;
        item.in_use = 1;
        item.quantity = quantity;
        item.serving_size = 1;
        item.servings_per_qty_unit = 1;
        item.barcode = no_barcode;
        item.last_restock_date = 45400;
        init_lot_record(slot);
        lots[slot].lot_quantity[0] = quantity;
    }

    static void put_catagory(i16 row, const char* name, i16 type = -1, i16 parent = 0) {
        catagories[row].name = name;
        catagories[row].in_use = 1;
        catagories[row].type = type;
        catagories[row].parent = parent;
    }
};

}  // namespace tavernook
