// The screen on which items are seen and edited: the tree of categories with their items, and the
// fields of the item shown. Other screens open it to pick an item, in a return mode.
#pragma once

#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QStringListModel>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "inventory/items.h"
#include "platform/screen_ports.h"
#include "screens/pantry/item_tree_model.h"
#include "screens/parts/unsaved_edits.h"

class QAction;
class QCalendarWidget;
class QComboBox;
class QFrame;
class QPlainTextEdit;

namespace tavernook {

class QuantityBox;

namespace Ui {
class FoodInventory;
}

class FoodInventory : public QWidget, public ports::FoodInventory, public UnsavedEdits {
    Q_OBJECT

  public:
    explicit FoodInventory(QWidget* parent = nullptr);
    ~FoodInventory() override;

    i16 getindex() override { return shown_item_; }
    void view_item(i16 item, i16 select) override;
    void set_return(i16 mode) override;
    void set_view(i16 view) override;
    void new_item() override;
    void add_barcode(std::string_view barcode) override;
    void accept_item(bool is_new) override;
    void delete_food_item() override;
    void initialize_inv() override;
    void populate_tree() override;
    void populate_Alpha() override;
    void refresh_quantity() override;
    void refresh_stores() override;
    void refresh_units() override;

    // Asks about edits that were not accepted yet; false when the user wants to stay with them.
    bool settle_edits() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct NutrientRow {
        QuantityBox* value;
        QComboBox* unit;
    };

    // One command at a time, trapped.
    void run(const std::function<void()>& command);
    void when_clicked(const char* name, const std::function<void()>& command);

    void set_up_toolbars();
    void set_up_commands();
    void set_up_fields();
    void set_up_tree();
    void set_up_columns();
    void set_up_sizes();
    void set_up_tab_order();
    void set_up_keys();

    // The item and its fields.
    void show_item(i16 item);
    void show_nothing();
    void update_commands();
    bool has_item() const { return shown_item_ != 0 || new_item_; }
    bool has_edits() const;
    bool start_new_item();
    bool store(bool is_new);
    void accept();
    void new_category();
    void copy_item_shown();
    void tell_other_screens();
    void hide_screen();

    void fill_fields(i16 item);
    void clear_fields();
    void fill_numbers(i16 item);
    void fill_nutrients(i16 item);
    void fill_texts(i16 item);
    void fill_names(i16 item);
    void fill_catagories(i16 catagory);
    void fill_dates(i16 item);
    void update_labels();
    ItemValues form_values() const;
    i16 chosen_catagory() const;
    void read_texts(ItemValues& values) const;
    QStringList field_texts() const;
    void take_snapshot() { shown_texts_ = field_texts(); }
    std::vector<QuantityBox*> number_boxes() const;
    std::vector<QComboBox*> unit_boxes() const;
    std::vector<NutrientRow> nutrient_rows() const;
    std::vector<QWidget*> fields_in_order() const;
    void go_to_next_field(QWidget* field);

    // The tree.
    void rebuild_tree();
    void restore_tree();
    void select_key(const QString& key);
    QString selected_key() const;
    i16 selected_catagory() const;
    void selection_changed();
    void show_selected();
    void narrow(const QString& filter);
    void expand_all(bool expanded);
    void note_expanded(const QModelIndex& index, bool expanded);
    void fit_name_column();
    void span_catagories();
    void sort_tree(int column);
    void rename_selected();
    void show_tree_menu(const QPoint& place);
    void update_tree_hint();
    bool key_pressed(QObject* watched, QKeyEvent& key);
    bool tree_key(QKeyEvent& event);
    bool filter_key(QKeyEvent& event);

    // Barcode, dates and lots.
    void show_barcode(const std::string& barcode);
    void update_scan();
    void scan();
    void start_capture();
    void finish_capture();
    void cancel_capture();
    bool capture_key(QKeyEvent& event);
    bool is_capturing() const;
    void toggle_month_view();
    void make_month_view();
    void hide_month_view();
    void pick_expiry(const QDate& day);
    void show_lots();

    // Handing the item back.
    void update_return();
    void add_to_caller();
    void hand_over(f64 quantity);

    std::unique_ptr<Ui::FoodInventory> ui_;
    ItemTreeModel* model_;
    QStringListModel* unit_names_;
    QStringListModel* store_names_;
    QAction* rename_ = nullptr;
    QPointer<QFrame> month_box_;
    QCalendarWidget* month_view_ = nullptr;

    i16 shown_item_ = 0;
    bool new_item_ = false;
    i16 return_mode_ = 0;
    std::string barcode_;
    QStringList shown_texts_;
    QSet<QString> turned_;  // categories that the user has opened or closed against the rule
    bool open_by_rule_ = true;
    bool arranging_tree_ = false;
    bool copying_ = false;
    bool busy_ = false;
};

}  // namespace tavernook
