// The recipe manager in a real main window with the new project "home.tvk" open and a real recipes
// folder, driven as a user drives it.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QTextEdit>
#include <QTreeView>
#include <stdexcept>
#include <string>
#include <vector>

#include "inventory/lots.h"
#include "screens/cookbook/Mealbuilder.h"
#include "screens/cookbook/ingredients_pane.h"
#include "screens/frame/register_screens.h"
#include "screens/main_window_fixture.h"
#include "screens/parts/catagory_tree_model.h"
#include "screens/parts/rows_model.h"

namespace tavernook {

class MealbuilderTest : public MainWindowTest {
  protected:
    void SetUp() override {
        register_screens(window);
        window.resize(1200, 800);
        start();
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
        project_modified = i16_false;
    }

    // Shows the screen, loading it first.
    void open() {
        ASSERT_TRUE(window.registry().show("Mealbuilder"));
        settle();
    }
    bool is_open() { return window.registry().loaded("Mealbuilder") != nullptr; }
    void close() { screen().parentWidget()->close(); }

    Mealbuilder& screen() {
        auto* found = dynamic_cast<Mealbuilder*>(window.registry().loaded("Mealbuilder"));
        if (found == nullptr) throw std::runtime_error("the recipe manager is not loaded");
        return *found;
    }

    template <typename Widget>
    Widget& part(const char* name) {
        auto* found = screen().findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) throw std::runtime_error(std::string("no part ") + name);
        return *found;
    }

    QTreeView& tree() { return part<QTreeView>("recipe_tree"); }
    CatagoryTreeModel& model() { return *qobject_cast<CatagoryTreeModel*>(tree().model()); }
    QTreeView& list() { return part<QTreeView>("ingredient_list"); }
    QTextEdit& document() { return *part<QWidget>("recipe_pane").findChild<QTextEdit*>(); }
    std::string pane_text() { return document().toPlainText().toStdString(); }

    // The tree from the top: categories in brackets, what is in them behind.
    std::string rows(const QModelIndex& parent = {}) {
        std::string found;
        for (int row = 0; row < model().rowCount(parent); ++row) {
            const QModelIndex index = model().index(row, 0, parent);
            const std::string name = index.data().toString().toStdString();
            found += model().leaf_at(index) != 0 ? name + " " : "[" + name + " ";
            found += rows(index);
            if (model().leaf_at(index) == 0) found += "] ";
        }
        return found;
    }

    // Every ingredient as "name amount key".
    std::vector<std::string> ingredients() {
        std::vector<std::string> found;
        const QAbstractItemModel& shown = *list().model();
        for (int row = 0; row < shown.rowCount(); ++row) {
            const QModelIndex name = shown.index(row, 0);
            found.push_back((name.data().toString() + ' ' + shown.index(row, 1).data().toString() +
                             ' ' + name.data(RowsModel::key_role).toString())
                                .toStdString());
        }
        return found;
    }

    void mark(const char* key) {
        const QModelIndex index = model().index_of(QLatin1String(key));
        ASSERT_TRUE(index.isValid()) << key;
        tree().setCurrentIndex(index);
        settle();
    }
    std::string marked() {
        return tree().currentIndex().data(CatagoryTreeModel::key_role).toString().toStdString();
    }
    void choose_ingredient(int row) { list().setCurrentIndex(list().model()->index(row, 0)); }

    void click(const char* name) {
        part<QAbstractButton>(name).click();
        settle();
    }
    void command(const char* name) {
        part<QAction>(name).trigger();
        settle();
    }
    std::string label(const char* name) { return part<QLabel>(name).text().toStdString(); }
    void type(const char* letters) {
        QTest::keyClicks(QApplication::focusWidget(), QLatin1String(letters));
    }
    static std::string focused() {
        QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }
    std::string hint() { return panel(1); }

    // The name of the row being edited in the tree, replaced and accepted.
    void type_name(const char* name) {
        auto* editor = qobject_cast<QLineEdit*>(tree().indexWidget(tree().currentIndex()));
        ASSERT_NE(editor, nullptr);
        editor->setText(QString::fromUtf8(name));
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
        settle();  // the tree follows once the editor is done
    }

    // As the mouse does it, with the text dragged; false when it is not taken there.
    bool drop(QAbstractItemView& view, const QPoint& place, const char* text) {
        QMimeData data;
        data.setText(QLatin1String(text));
        return drop(view, place, data);
    }
    bool drop(QAbstractItemView& view, const QPoint& place, const QMimeData& data) {
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(view.viewport(), &enter);
        if (!enter.isAccepted()) return false;
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        move.ignore();
        QCoreApplication::sendEvent(view.viewport(), &move);
        if (!move.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(view.viewport(), &leave);
            return false;
        }
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(view.viewport(), &event);
        settle();
        return event.isAccepted();
    }
    QPoint middle_of(const char* key) {
        return tree().visualRect(model().index_of(QLatin1String(key))).center();
    }

    std::string recipe_path(const std::string& name) const {
        return platform.system.program + "/recipes/" + name;
    }
    void put_file(const std::string& name, const std::string& bytes) {
        platform.disk.make_folder(platform.system.program + "/recipes");
        const auto file = platform.disk.open(recipe_path(name), OpenMode::read_write);
        file->write(0, bytes);
    }
    std::string file_bytes(const std::string& name) { return read_whole_file(recipe_path(name)); }

    static void put_recipe(i16 slot, const char* name, i16 catagory = 0) {
        meals[slot].name = name;
        meals[slot].in_use = 1;
        meals[slot].category = catagory;
        meal_serving_size[slot] = 1;
    }
    static void put_catagory(i16 row, const char* name, i16 parent = 0,
                             i16 type = recipe_category_type) {
        catagories[row].name = name;
        catagories[row].in_use = 1;
        catagories[row].type = type;
        catagories[row].parent = parent;
    }
    // One serving is `size` of unit 2, "Cup(s)".
    static void put_item(i16 slot, const char* name, f64 size, i16 calories, i16 fat, f64 cost,
                         f64 servings) {
        ItemRecord& item = items[slot];
        item = ItemRecord{};
        item.name = name;
        item.category = 1;
        item.in_use = 1;
        item.serving_size = size;
        item.serving_size_units = 2;
        item.calories = calories;
        item.fat = fat;
        item.cost = cost;
        item.servings_per_qty_unit = servings;
        item.barcode = no_barcode;
        init_lot_record(slot);
    }
    static void put_ingredient(i16 recipe, std::size_t place, i16 item, f64 quantity) {
        meals[recipe].ingredient_item[place] = item;
        meals[recipe].ingredient_qty[place] = quantity;
    }

    // Items 7 and 17, and three recipes of which 1 uses them.
    static void put_household() {
        put_item(7, "Milk", 0.5, 100, 4, 2, 8);
        put_item(17, "Flour", 2, 30, 1, 3, 6);
        put_catagory(2, "Breakfast");
        put_recipe(1, "Pancakes", 2);
        put_recipe(2, "Porridge", 2);
        put_recipe(3, "Stew");
        put_ingredient(1, 1, 7, 3);
        put_ingredient(1, 2, 17, 2);
    }
};

}  // namespace tavernook
